#include "Options.h"

#include <iostream>

#include <CLI/CLI.hpp>

namespace VantrelProof {

std::optional<Options> parseOptions(int argc, char** argv, int& exitCode) {
    Options options;
    CLI::App app{
        "Loads a plugin with compiled-in resources, lets it draw a picture, and unloads it again.", "vantrel-proof"};
    CLI::Option* const window =
        app.add_flag("--window", options.window, "Show the picture in a window; Escape closes it");
    app.add_option("--picture", options.picture, "Write the picture to FILE (PNG)")
        ->type_name("FILE")
        ->excludes(window);
    app.add_option("--check", options.golden, "Fail if the picture is not the one in GOLDEN (PNG)")
        ->type_name("GOLDEN")
        ->excludes(window);
    app.add_option("--plugin-dir", options.pluginDirectory, "Load the plugin from DIR")->type_name("DIR");
    try {
        app.parse(argc, argv);
        return options;
    } catch(const CLI::CallForHelp&) {
        std::cout << app.help();
        exitCode = 0;
    } catch(const CLI::ParseError& error) {
        std::cerr << "vantrel-proof: " << error.what() << " (--help lists the options)\n";
        exitCode = 2;
    }
    return {};
}

}
