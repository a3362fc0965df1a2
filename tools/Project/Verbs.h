#pragma once

#include <string>

#include "Project/Generator.h"

namespace VantrelTools {

// The verbs of vantrel-project. Each returns the exit status.
enum ExitStatus : int {
    Success = 0,
    // The project was opened; something in it was repaired or does not work.
    Problems = 1,
    // A file could not be read or written, a project or a script was refused.
    Failure = 2
};

// Opens and compiles the project and prints what is wrong with it, a line each. Quiet, it prints nothing at all.
int check(const std::string& file, bool quiet);

// Opens and compiles the project. With statistics, prints how much of what there is and how long each stage took.
int compile(const std::string& file, bool statistics);

// Writes a generated project to a file, or to the standard output where that is empty.
int generate(const GeneratorOptions& options, const std::string& file);

// Edits the project as a script says and prints the document as it would be saved. See Script.h.
int applyScript(const std::string& file, const std::string& script);

}
