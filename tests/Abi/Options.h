#pragma once

#include <optional>
#include <string>

namespace VantrelProof {

struct Options {
    // Show a window instead of drawing once.
    bool window = false;
    // Empty: none.
    std::string picture, golden, pluginDirectory;
};

// Empty if there is nothing left to do, with the code to exit with: 0 after the help text, 2 after a mistake, which
// was explained in a line on the error output.
std::optional<Options> parseOptions(int argc, char** argv, int& exitCode);

}
