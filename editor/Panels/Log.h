#pragma once

#include <cstdint>
#include <deque>
#include <string>

namespace VantrelEngine {

// Debug: nothing that a user has to know.
enum class Severity : std::uint8_t { Information, Warning, Error, Debug };

struct LogLine {
    Severity severity;
    std::string text;
};

// What was said, line by line. Keeps the last MaxLogLines.
class Log {
public:
    static constexpr std::size_t MaxLogLines = 10000;

    void add(Severity severity, std::string text) {
        if(severity != Severity::Debug) _message = {severity, text};
        if(_lines.size() == MaxLogLines) _lines.pop_front();
        _lines.push_back({severity, std::move(text)});
    }
    void clear() {
        _lines.clear();
        _message = {};
    }

    const std::deque<LogLine>& lines() const { return _lines; }
    // What was said last to the user; empty for nothing.
    const LogLine& message() const { return _message; }

private:
    std::deque<LogLine> _lines;
    LogLine _message{};
};

} // namespace VantrelEngine
