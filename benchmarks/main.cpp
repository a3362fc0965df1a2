#include <algorithm>
#include <csignal>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <Vantrel/EngineData/Types.h>
#include <unistd.h>

#include "Verbs.h"

namespace {

constexpr unsigned LimitSeconds = 60;

extern "C" void outOfTime(int) {
    constexpr char message[] = "vantrel-bench: stopped after 60 seconds\n";
    // Nothing else may be called from here; there is no way to report that this failed.
    const auto written = write(STDERR_FILENO, message, sizeof(message) - 1);
    _exit(written < 0 ? 4 : 3);
}

// Arguments of the verbs that work on a generated project.
struct Arguments {
    std::size_t count = VantrelEngine::MaxObjects;
    // Where what is asked is not how much they cost.
    std::size_t fewer = 1000;
    std::string topology = "all";
    std::size_t changes = 200000, dragged = 10000, undone = 1000, deleted = 10000, duplicated = 10000,
                reparented = 10000, frames = 10, framesOfASecond = 60;
    std::size_t selected = 100, resizes = 1000, reloads = 100, lights = 0, cascades = 3;
    int width = 640, height = 480, kernelSize = 9, passes = 8;
    double outside = 0.0, outlineWidth = 300.0;
    std::string aspect = "all", project, model;
    double seconds = 1.0;

    Magnum::Vector2i size() const { return {width, height}; }
    VantrelBench::Budget budget() const { return {seconds, 2e-3, 3}; }
};

CLI::App& addCountedVerb(CLI::App& app, std::size_t& count, const char* name, const char* description) {
    CLI::App& verb = *app.add_subcommand(name, description);
    verb.add_option("N", count, "Objects of the project")
        ->check(CLI::Range(std::size_t{16}, VantrelEngine::MaxObjects))
        ->capture_default_str();
    return verb;
}

void addSeconds(CLI::App& verb, Arguments& arguments) {
    verb.add_option("--seconds", arguments.seconds, "For one measurement; three rounds are made in any case")
        ->check(CLI::Range(0.0, 60.0))
        ->capture_default_str();
}

CLI::App& addProjectVerb(CLI::App& app, Arguments& arguments, const char* name, const char* description) {
    CLI::App& verb = addCountedVerb(app, arguments.count, name, description);
    addSeconds(verb, arguments);
    return verb;
}
CLI::Option* addCount(
    CLI::App& verb, const char* name, std::size_t& count, std::size_t least, const char* description) {
    return verb.add_option(name, count, description)
        ->check(CLI::Range(least, std::size_t{1000000}))
        ->capture_default_str();
}

void addTopology(CLI::App& verb, Arguments& arguments) {
    verb.add_option("TOPOLOGY", arguments.topology, "One topology, or all of them")
        ->check(CLI::IsMember(std::vector<std::string>{"all", "flat", "tree", "reverse", "random", "chain"}))
        ->capture_default_str();
}

void addProjectVerbs(CLI::App& app, Arguments& arguments) {
    addProjectVerb(app, arguments, "open", "Opening a project").callback([&] {
        VantrelBench::open(arguments.count, arguments.budget());
    });
    CLI::App& compile = addProjectVerb(app, arguments, "compile", "Compiling a project that was read");
    addTopology(compile, arguments);
    compile.callback([&] { VantrelBench::compile(arguments.count, arguments.topology, arguments.budget()); });
    addProjectVerb(app, arguments, "compile_one", "Editing and compiling one object").callback([&] {
        VantrelBench::compileOne(arguments.count, arguments.budget());
    });
    CLI::App& record = addProjectVerb(app, arguments, "record", "Recording changes");
    addCount(record, "C", arguments.changes, 10, "Changes");
    record.callback([&] { VantrelBench::record(arguments.count, arguments.changes, arguments.budget()); });
    CLI::App& drag = addProjectVerb(app, arguments, "drag", "Dragging objects");
    addCount(drag, "K", arguments.dragged, 2, "Objects that are dragged");
    addCount(drag, "FRAMES", arguments.frames, 3, "Frames of a gesture");
    drag.callback([&] {
        VantrelBench::drag(arguments.count, arguments.dragged, arguments.frames, arguments.budget());
        VantrelBench::dragInView(arguments.count, arguments.dragged, arguments.frames, arguments.budget());
    });
    CLI::App& undo = addProjectVerb(app, arguments, "undo", "Undoing a drag");
    addCount(undo, "K", arguments.undone, 1, "Objects that were dragged");
    undo.callback([&] {
        VantrelBench::undo(arguments.count, arguments.undone, arguments.budget());
        VantrelBench::undoInView(arguments.count, arguments.undone, arguments.budget());
    });
    CLI::App& journal =
        addProjectVerb(app, arguments, "journal", "Dragging objects with a journal, and bringing steps back");
    addCount(journal, "K", arguments.undone, 2, "Objects that are dragged");
    addCount(journal, "FRAMES", arguments.framesOfASecond, 3, "Frames of a gesture");
    journal.callback([&] {
        VantrelBench::journal(arguments.count, arguments.undone, arguments.framesOfASecond, arguments.budget());
    });
    CLI::App& deletion = addProjectVerb(app, arguments, "delete", "Deleting objects");
    addCount(deletion, "K", arguments.deleted, 2, "Objects that are deleted");
    deletion.callback([&] { VantrelBench::deleteObjects(arguments.count, arguments.deleted, arguments.budget()); });
    CLI::App& duplication = addProjectVerb(app, arguments, "duplicate", "Duplicating objects");
    addCount(duplication, "K", arguments.duplicated, 2, "Objects that are duplicated");
    duplication.callback(
        [&] { VantrelBench::duplicateObjects(arguments.count, arguments.duplicated, arguments.budget()); });
    CLI::App& reparenting = addProjectVerb(app, arguments, "reparent", "Moving objects below other parents");
    addCount(reparenting, "K", arguments.reparented, 2, "Objects that are moved");
    reparenting.callback([&] { VantrelBench::reparent(arguments.count, arguments.reparented, arguments.budget()); });
    addProjectVerb(app, arguments, "xform", "Absolute transformations").callback([&] {
        VantrelBench::transform(arguments.count, arguments.budget());
    });
    addProjectVerb(app, arguments, "memory", "Bytes an object and a change, and of video memory").callback([&] {
        VantrelBench::memory(arguments.count);
    });
}

void addImportVerb(CLI::App& app, Arguments& arguments) {
    CLI::App& importing = *app.add_subcommand("import", "Importing a model, beside the bare reading of its file");
    addSeconds(importing, arguments);
    importing.add_option("FILE", arguments.model, "glTF, OBJ, FBX, PLY, STL or Collada")
        ->required()
        ->check(CLI::ExistingFile);
    importing.callback([&] { VantrelBench::importFile(arguments.model, arguments.budget()); });
}

void addSize(CLI::App& verb, Arguments& arguments) {
    for(const auto& [name, pixels]: {std::pair{"W", &arguments.width}, {"H", &arguments.height}})
        verb.add_option(name, *pixels, "Pixels of the picture")->check(CLI::Range(64, 4096))->capture_default_str();
}

void addViewVerbs(CLI::App& app, Arguments& arguments) {
    CLI::App& reload = addProjectVerb(app, arguments, "reload", "Bringing the view's renderer up to date");
    reload.add_option("ASPECT", arguments.aspect, "What changed")
        ->check(CLI::IsMember(VantrelBench::reloadAspects()))
        ->capture_default_str();
    reload.callback([&] { VantrelBench::reload(arguments.count, arguments.aspect, arguments.budget()); });
    CLI::App& frame = addProjectVerb(app, arguments, "frame", "Drawing frames");
    addSize(frame, arguments);
    frame.add_option("--outside", arguments.outside, "Part of the objects that is behind the camera")
        ->check(CLI::Range(0.0, 0.99));
    frame.add_option("--lights", arguments.lights, "Point lights, each of which reaches a part of the objects")
        ->check(CLI::Range(3, 10000));
    frame.callback([&] {
        if(arguments.lights)
            VantrelBench::frameLights(arguments.count, arguments.size(), arguments.lights, arguments.budget());
        else if(arguments.outside > 0.0)
            VantrelBench::frameOutside(arguments.count, arguments.size(), arguments.outside, arguments.budget());
        else
            VantrelBench::frame(arguments.count, arguments.size(), arguments.budget());
    });
    CLI::App& framing = addProjectVerb(app, arguments, "frame_selection", "Bringing what is selected into view");
    addTopology(framing, arguments);
    framing.callback([&] { VantrelBench::frameSelection(arguments.count, arguments.topology, arguments.budget()); });
    addCountedVerb(app, arguments.count, "idle", "Frames in which nothing moves").callback([&] {
        VantrelBench::idle(arguments.count);
    });
    addCountedVerb(app, arguments.fewer, "lag", "Frames until what was done is seen").callback([&] {
        VantrelBench::lag(arguments.fewer);
    });
    addProjectVerb(app, arguments, "outliner", "The panel of all objects").callback([&] {
        VantrelBench::outliner(arguments.count, arguments.budget());
    });
    CLI::App& shadow = addCountedVerb(app, arguments.fewer, "shadow", "Drawing the shadow maps of a sun");
    shadow.add_option("CASCADES", arguments.cascades, "Maps")->check(CLI::Range(1, 4))->capture_default_str();
    shadow.callback([&] { VantrelBench::shadow(arguments.fewer, arguments.cascades); });
    CLI::App& outline = addCountedVerb(app, arguments.fewer, "outline", "Outlines of selected objects");
    addSeconds(outline, arguments);
    addCount(outline, "K", arguments.selected, 1, "Objects that are selected");
    addSize(outline, arguments);
    outline.add_option("WIDTH", arguments.outlineWidth, "Pixels of the widest outline")
        ->check(CLI::Range(3.0, 300.0))
        ->capture_default_str();
    outline.callback([&] {
        VantrelBench::outline(arguments.fewer, std::min(arguments.fewer, arguments.selected), arguments.size(),
            arguments.outlineWidth, arguments.budget());
    });
    addProjectVerb(app, arguments, "pick", "Clicking on an object").callback([&] {
        VantrelBench::pick(arguments.count, arguments.budget());
    });
    CLI::App& box = addProjectVerb(app, arguments, "box", "Selecting all objects of a picture with a box");
    addSize(box, arguments);
    box.callback([&] { VantrelBench::box(arguments.count, arguments.size(), arguments.budget()); });
    CLI::App& bloom = *app.add_subcommand("bloom", "The glow around what is bright");
    addSeconds(bloom, arguments);
    bloom.add_option("KERNEL", arguments.kernelSize, "Size of the kernel")
        ->check(CLI::Range(0, 21))
        ->capture_default_str();
    bloom.add_option("PASSES", arguments.passes, "Passes")->check(CLI::Range(3, 64))->capture_default_str();
    addSize(bloom, arguments);
    bloom.callback(
        [&] { VantrelBench::bloom(arguments.kernelSize, arguments.passes, arguments.size(), arguments.budget()); });
    CLI::App& resize = *app.add_subcommand("resize", "Changing the size of the picture");
    addCount(resize, "C", arguments.resizes, 8, "Changes");
    resize.callback([&] { VantrelBench::resize(arguments.resizes); });
    CLI::App& startup = *app.add_subcommand("startup", "From the start of the program to the first frame");
    startup.add_option("PROJECT", arguments.project, "A project's file")->required()->check(CLI::ExistingFile);
    startup.callback([&] { VantrelBench::startup(arguments.project); });
    CLI::App& hotReload = addCountedVerb(app, arguments.fewer, "hotreload", "Loading the view's module again");
    addCount(hotReload, "C", arguments.reloads, 1, "Times");
    hotReload.callback([&] { VantrelBench::hotReload(arguments.fewer, arguments.reloads); });
}

}

int main(int argc, char** argv) {
    std::signal(SIGALRM, outOfTime);
    alarm(LimitSeconds);

    CLI::App app{"Asks one question a verb and prints a line of JSON for each case: a figure, the floor under it, and "
                 "their ratio (the median of interleaved pairs), or an exponent of growth, or a count. Lines with "
                 "\"holds\" say whether a limit is kept. Each verb ends within 60 seconds."};
    app.require_subcommand(1);
    app.add_subcommand("math", "Matrix and dual quaternion transformations beside plain loops over floats")
        ->callback([] { VantrelBench::math(); });
    app.add_subcommand("containers", "String search, split, formatting and array growth beside the standard libraries")
        ->callback([] { VantrelBench::containers(); });

    Arguments arguments;
    addProjectVerbs(app, arguments);
    addImportVerb(app, arguments);
    addViewVerbs(app, arguments);

    int status = 0;
    std::string other;
    CLI::App* const against =
        app.add_subcommand("against", "Run a verb in turn with another build of this program and compare the figures");
    against->add_option("OTHER", other, "The other vantrel-bench")->required()->check(CLI::ExistingFile);
    against->prefix_command();
    against->callback([&] { status = VantrelBench::against(argv[0], other, against->remaining()); });

    // The parser would only say that some verb is missing.
    if(argc > 1 && argv[1][0] != '-' &&
        app.get_subcommands([&](CLI::App* verb) { return verb->check_name(argv[1]); }).empty()) {
        std::fprintf(stderr, "vantrel-bench: unknown verb '%s' (--help lists them)\n", argv[1]);
        return 2;
    }
    CLI11_PARSE(app, argc, argv);
    return status;
}
