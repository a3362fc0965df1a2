#pragma once

#include <string>
#include <vector>

namespace VantrelEngine {

// What a converter says, understood line by line:
//
//     progress FRACTION TEXT
//     warning TEXT
//     done
//     error TEXT
//
// Nothing of it is trusted: other lines are passed over, long ones are cut, and what no terminal should get is taken out.
class ConverterLines {
public:
    // Bytes of a line that count, and warnings that are kept.
    static constexpr std::size_t MaxLine = 1000;
    static constexpr std::size_t MaxWarnings = 100;

    void add(const std::string& output);

    // 0 to 1, never less than before.
    float fraction() const { return _fraction; }
    const std::string& stage() const { return _stage; }
    bool isDone() const { return _isDone; }
    // Empty for none. The first one counts.
    const std::string& error() const { return _error; }
    // Those since the last call.
    std::vector<std::string> takeWarnings();

private:
    void addLine(std::string line);
    void addProgress(const std::string& text);

    std::string _line;
    float _fraction = 0.0f;
    std::string _stage;
    bool _isDone = false;
    std::string _error;
    std::vector<std::string> _warnings;
    std::size_t _warningCount = 0;
};

// The text as it can be shown on one line: without control characters, as UTF-8.
std::string shownText(const std::string& text);

} // namespace VantrelEngine
