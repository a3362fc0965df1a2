#pragma once

#include <cstddef>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>

namespace VantrelImport {

// Why nothing of a file can be used: a line without a line break.
class Unusable: public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The lines for whoever started the program, each flushed:
//
//     progress FRACTION TEXT
//     warning TEXT
//     done
//     error TEXT
class Messages {
public:
    explicit Messages(std::FILE* output): _output{output} {}

    // From 0 to 1; never falls. A step that nobody sees is no line.
    void progress(double fraction, std::string_view text);
    // Beyond the first few hundred they are only counted: a file can be wrong in many places.
    void warn(std::string_view text);
    void done();
    void error(std::string_view text);

private:
    void line(std::string_view text);

    std::FILE* const _output;
    double _fraction = 0.0;
    // Of the last progress.
    std::string _stage;
    std::size_t _warnings = 0;
};

} // namespace VantrelImport
