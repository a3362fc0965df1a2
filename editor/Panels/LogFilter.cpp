#include "Panels/LogFilter.h"

#include <algorithm>
#include <cctype>

namespace VantrelEngine {

namespace {

bool isSame(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

} // namespace

bool LogChoice::shows(const LogLine& line) const {
    if(!isShown[std::size_t(line.severity)]) return false;
    return std::search(line.text.begin(), line.text.end(), text.begin(), text.end(), isSame) != line.text.end() ||
        text.empty();
}

void LogFilter::update(const Log& log, const LogChoice& choice) {
    if(!(choice == _choice)) {
        _choice = choice;
        _lines.clear();
        _next = 0;
    }
    while(!_lines.empty() && _lines.front() < log.firstNumber()) _lines.pop_front();
    for(_next = std::max(_next, log.firstNumber()); _next != log.endNumber(); ++_next)
        if(_choice.shows(log.line(_next))) _lines.push_back(_next);
}

} // namespace VantrelEngine
