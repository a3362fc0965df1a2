#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "IncludeTable/IncludeTable.h"

namespace VantrelTools {

struct IncludeLine {
    int line;
    std::string header; // between the quotes or brackets
    bool quoted;
};

// Every #include of a C++ source, those in comments and string literals left out.
std::vector<IncludeLine> includesOf(std::string_view source);

// Whether a header belongs to the C++ standard library: <vector>, <cstddef>.
bool isStandardHeader(std::string_view header);

// Checks each C++ file below the folders module, engine, editor, embedded, tools, benchmarks and tests (those that
// exist) against the table. Files below a folder named Test may include anything, and nothing outside of one may
// include them. Returns a line for each broken rule: "FILE:LINE: FOLDER may not include HEADER".
std::vector<std::string> brokenIncludes(const IncludeTable& table, const std::filesystem::path& project);

}
