#include <csignal>
#include <cstdio>

#include <CLI/CLI.hpp>
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

}

int main(int argc, char** argv) {
    std::signal(SIGALRM, outOfTime);
    alarm(LimitSeconds);

    CLI::App app{"Asks one question a verb and prints a line of JSON for each case: a figure, the floor under it, and "
                 "their ratio (the median of interleaved pairs). Each verb ends within 60 seconds."};
    app.require_subcommand(1);
    app.add_subcommand("math", "Matrix and dual quaternion transformations beside plain loops over floats")
        ->callback([] { VantrelBench::math(); });
    app.add_subcommand("containers", "String search, split, formatting and array growth beside the standard libraries")
        ->callback([] { VantrelBench::containers(); });

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
