#include "Import/Converter/Messages.h"

#include <algorithm>

#include "Import/Converter/Text.h"

namespace VantrelImport {

namespace {

constexpr std::size_t MaximumWarnings = 300;
constexpr double SmallestStep = 0.01;

} // namespace

void Messages::progress(double fraction, std::string_view text) {
    if(text == _stage && fraction < _fraction + SmallestStep) return;
    _stage = text;
    _fraction = std::clamp(fraction, _fraction, 1.0);
    char number[16];
    std::snprintf(number, sizeof(number), "%.3f", _fraction);
    line(std::string{"progress "} + number + ' ' + cleanText(text));
}

void Messages::warn(std::string_view text) {
    if(++_warnings <= MaximumWarnings) line("warning " + cleanText(text));
}

void Messages::done() {
    if(_warnings > MaximumWarnings)
        line("warning and " + std::to_string(_warnings - MaximumWarnings) + " more like these");
    line("done");
}

void Messages::error(std::string_view text) { line("error " + cleanText(text)); }

void Messages::line(std::string_view text) {
    std::fprintf(_output, "%.*s\n", int(text.size()), text.data());
    std::fflush(_output);
}

} // namespace VantrelImport
