#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <Vantrel/EngineData/Types.h>

#include "Project/Text.h"
#include "Project/Verbs.h"

namespace {

using namespace VantrelTools;
using Names = std::vector<std::string>;

// What the flags of `generate` say.
struct GenerateArguments {
    GeneratorOptions options;
    std::string file;
    std::string topology = "tree", ids = "uuid";
    int components = -1;
};

void addGenerate(CLI::App& app, GenerateArguments& arguments, int& status) {
    CLI::App* const verb = app.add_subcommand("generate", "Write a project with many objects");
    verb->add_option("N", arguments.options.count, "Number of objects")->required();
    verb->add_option("--topology", arguments.topology, "How the objects hang together")
        ->check(CLI::IsMember(Names{"flat", "tree", "reverse", "random", "chain"}))
        ->capture_default_str();
    verb->add_option("--seed", arguments.options.seed, "The same one gives the same project")->capture_default_str();
    verb->add_option("--ids", arguments.ids, "Form of the ids")
        ->check(CLI::IsMember(Names{"uuid", "short"}))
        ->capture_default_str();
    verb->add_option("--components", arguments.components, "Components of each object (default: a mix)")
        ->check(CLI::Range(0, 100));
    verb->add_option("-o,--output", arguments.file, "File to write (default: standard output)");
    verb->callback([&] {
        GeneratorOptions& options = arguments.options;
        if(options.count > VantrelEngine::MaxObjects) {
            status = fail("a project has at most " + std::to_string(VantrelEngine::MaxObjects) + " objects, not " +
                std::to_string(options.count));
            return;
        }
        options.topology = *topologyNamed(arguments.topology);
        options.ids = arguments.ids == "uuid" ? IdStyle::Uuid : IdStyle::Short;
        if(arguments.components >= 0) options.componentsPerObject = std::size_t(arguments.components);
        status = generate(options, arguments.file);
    });
}

}

int main(int argc, char** argv) {
    CLI::App app{
        "Checks, compiles, edits and generates project files. Ends with 0, with 1 where a project has problems, "
        "and with 2 where something could not be done."};
    app.require_subcommand(1);
    int status = Success;
    std::string file, script;

    bool isQuiet = false;
    CLI::App* const checkVerb = app.add_subcommand("check", "Say what is wrong with a project, a line each");
    checkVerb->add_option("FILE", file, "The project")->required();
    checkVerb->add_flag("--quiet", isQuiet, "Print nothing, only end with the status");
    checkVerb->callback([&] { status = check(file, isQuiet); });

    bool hasStatistics = false;
    CLI::App* const compileVerb = app.add_subcommand("compile", "Compile a project");
    compileVerb->add_option("FILE", file, "The project")->required();
    compileVerb->add_flag("--stats", hasStatistics, "Print what there is and how long each stage took");
    compileVerb->callback([&] { status = compile(file, hasStatistics); });

    GenerateArguments generateArguments;
    addGenerate(app, generateArguments, status);

    CLI::App* const applyVerb = app.add_subcommand("apply",
        "Edit a project with a script and print it. A command a line: record POINTER JSON, merge POINTER JSON, "
        "remove POINTER, begin [KEY], commit, undo, redo, update, save PATH; # begins a comment");
    applyVerb->add_option("FILE", file, "The project; it is not changed")->required();
    applyVerb->add_option("SCRIPT", script, "The script")->required();
    applyVerb->callback([&] { status = applyScript(file, script); });

    try {
        app.parse(argc, argv);
    } catch(const CLI::ParseError& error) {
        return app.exit(error) ? int(Failure) : int(Success);
    }
    return status;
}
