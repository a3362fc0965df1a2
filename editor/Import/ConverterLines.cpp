#include "Import/ConverterLines.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "Data/Project/Utf8.h"

namespace VantrelEngine {

namespace {

// Whether the text begins with the word, which goes then.
bool takeWord(std::string& text, const std::string& word) {
    if(text.compare(0, word.size(), word) != 0) return false;
    if(text.size() == word.size())
        text.clear();
    else if(text[word.size()] == ' ')
        text.erase(0, word.size() + 1);
    else
        return false;
    return true;
}

} // namespace

std::string shownText(const std::string& text) {
    std::string shown = text;
    for(char& c: shown)
        if(static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
    if(!isUtf8(shown))
        for(char& c: shown)
            if(static_cast<unsigned char>(c) >= 0x80) c = '?';
    return shown;
}

void ConverterLines::add(const std::string& output) {
    for(const char c: output) {
        if(c != '\n') {
            // One more than counts, so that a line that is cut is told from one that is not.
            if(_line.size() <= MaxLine) _line += c;
            continue;
        }
        addLine(std::move(_line));
        _line.clear();
    }
}

void ConverterLines::addLine(std::string line) {
    if(line.size() > MaxLine) line = line.substr(0, MaxLine) + "...";
    line = shownText(line);
    if(takeWord(line, "progress")) return addProgress(line);
    if(takeWord(line, "warning")) {
        if(++_warningCount <= MaxWarnings)
            _warnings.push_back(std::move(line));
        else if(_warningCount == MaxWarnings + 1)
            _warnings.push_back("there are more warnings");
    } else if(takeWord(line, "error")) {
        if(_error.empty()) _error = line.empty() ? "the file cannot be read" : std::move(line);
    } else if(line == "done") {
        _isDone = true;
    }
}

void ConverterLines::addProgress(const std::string& text) {
    char* end = nullptr;
    const float fraction = std::strtof(text.data(), &end);
    if(end == text.data() || !std::isfinite(fraction)) return;
    _fraction = std::max(_fraction, std::min(fraction, 1.0f));
    _stage = *end == ' ' ? end + 1 : end;
}

std::vector<std::string> ConverterLines::takeWarnings() {
    std::vector<std::string> warnings;
    warnings.swap(_warnings);
    return warnings;
}

} // namespace VantrelEngine
