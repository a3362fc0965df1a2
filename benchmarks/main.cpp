#include <csignal>
#include <cstdio>
#include <string>
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
    std::string topology = "all";
    std::size_t changes = 200000, dragged = 10000, undone = 1000, deleted = 10000, frames = 10;
    double seconds = 1.0;

    VantrelBench::Budget budget() const { return {seconds, 2e-3, 3}; }
};

CLI::App& addProjectVerb(CLI::App& app, Arguments& arguments, const char* name, const char* description) {
    CLI::App& verb = *app.add_subcommand(name, description);
    verb.add_option("N", arguments.count, "Objects of the project")
        ->check(CLI::Range(std::size_t{16}, VantrelEngine::MaxObjects))
        ->capture_default_str();
    verb.add_option("--seconds", arguments.seconds, "For one measurement; three rounds are made in any case")
        ->check(CLI::Range(0.0, 60.0))
        ->capture_default_str();
    return verb;
}

CLI::Option* addCount(
    CLI::App& verb, const char* name, std::size_t& count, std::size_t least, const char* description) {
    return verb.add_option(name, count, description)
        ->check(CLI::Range(least, std::size_t{1000000}))
        ->capture_default_str();
}

void addProjectVerbs(CLI::App& app, Arguments& arguments) {
    addProjectVerb(app, arguments, "open", "Opening a project").callback([&] {
        VantrelBench::open(arguments.count, arguments.budget());
    });
    CLI::App& compile = addProjectVerb(app, arguments, "compile", "Compiling a project that was read");
    compile.add_option("TOPOLOGY", arguments.topology, "One topology, or all of them")
        ->check(CLI::IsMember(std::vector<std::string>{"all", "flat", "tree", "reverse", "random", "chain"}))
        ->capture_default_str();
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
    drag.callback(
        [&] { VantrelBench::drag(arguments.count, arguments.dragged, arguments.frames, arguments.budget()); });
    CLI::App& undo = addProjectVerb(app, arguments, "undo", "Undoing a drag");
    addCount(undo, "K", arguments.undone, 1, "Objects that were dragged");
    undo.callback([&] { VantrelBench::undo(arguments.count, arguments.undone, arguments.budget()); });
    CLI::App& deletion = addProjectVerb(app, arguments, "delete", "Deleting objects");
    addCount(deletion, "K", arguments.deleted, 2, "Objects that are deleted");
    deletion.callback([&] { VantrelBench::deleteObjects(arguments.count, arguments.deleted, arguments.budget()); });
    addProjectVerb(app, arguments, "xform", "Absolute transformations").callback([&] {
        VantrelBench::transform(arguments.count, arguments.budget());
    });
    addProjectVerb(app, arguments, "memory", "Bytes an object and a change").callback([&] {
        VantrelBench::memory(arguments.count);
    });
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
