#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>

#include "Panels/Log.h"

namespace VantrelEngine {

// Which lines of a log are shown.
struct LogChoice {
    std::array<bool, SeverityCount> isShown{true, true, true, true};
    // Lines that hold it, upper and lower case alike; empty for all.
    std::string text;

    bool operator==(const LogChoice& other) const { return isShown == other.isShown && text == other.text; }
    bool isAll() const { return text.empty() && isShown == std::array<bool, SeverityCount>{true, true, true, true}; }
    bool shows(const LogLine& line) const;
};

// The lines that are chosen. Looks at each line once, and at all of them again only where the choice is another one.
class LogFilter {
public:
    void update(const Log& log, const LogChoice& choice);

    // Numbers of the lines, ascending.
    const std::deque<std::uint64_t>& lines() const { return _lines; }

private:
    LogChoice _choice;
    // Of the first line that was not looked at yet.
    std::uint64_t _next = 0;
    std::deque<std::uint64_t> _lines;
};

} // namespace VantrelEngine
