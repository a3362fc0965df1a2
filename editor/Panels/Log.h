#pragma once

#include <cstdint>
#include <deque>
#include <string>

namespace VantrelEngine {

enum class Severity : std::uint8_t { Information, Warning, Error };

struct LogLine {
    Severity severity;
    std::string text;
};

// What was said, line by line. Keeps the last MaxLogLines.
class Log {
public:
    static constexpr std::size_t MaxLogLines = 10000;

    void add(Severity severity, std::string text) {
        if(_lines.size() == MaxLogLines) _lines.pop_front();
        _lines.push_back({severity, std::move(text)});
    }
    void clear() { _lines.clear(); }

    const std::deque<LogLine>& lines() const { return _lines; }

private:
    std::deque<LogLine> _lines;
};

} // namespace VantrelEngine
