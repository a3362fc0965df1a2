#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>

namespace VantrelEngine {

// Debug: nothing that a user has to know.
enum class Severity : std::uint8_t { Information, Warning, Error, Debug };
constexpr std::size_t SeverityCount = 4;

struct LogLine {
    Severity severity;
    std::string text;
};

// What was said, line by line. Keeps the last MaxLogLines. Lines have numbers, which are never given again.
class Log {
public:
    static constexpr std::size_t MaxLogLines = 10000;

    void add(Severity severity, std::string text) {
        if(severity != Severity::Debug) _message = {severity, text};
        if(_lines.size() == MaxLogLines) {
            --_counts[std::size_t(_lines.front().severity)];
            ++_firstNumber;
            _lines.pop_front();
        }
        ++_counts[std::size_t(severity)];
        _lines.push_back({severity, std::move(text)});
    }
    void clear() {
        _firstNumber += _lines.size();
        _lines.clear();
        _counts = {};
        _message = {};
    }

    const std::deque<LogLine>& lines() const { return _lines; }
    // What was said last to the user; empty for nothing.
    const LogLine& message() const { return _message; }
    // Of the lines that are kept.
    std::size_t count(Severity severity) const { return _counts[std::size_t(severity)]; }
    // Numbers of the first line that is kept, and of the one that comes next.
    std::uint64_t firstNumber() const { return _firstNumber; }
    std::uint64_t endNumber() const { return _firstNumber + _lines.size(); }
    const LogLine& line(std::uint64_t number) const { return _lines[std::size_t(number - _firstNumber)]; }

private:
    std::deque<LogLine> _lines;
    LogLine _message{};
    std::uint64_t _firstNumber = 0;
    std::array<std::size_t, SeverityCount> _counts{};
};

} // namespace VantrelEngine
