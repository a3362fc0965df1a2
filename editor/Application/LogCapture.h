#pragma once

#include <memory>

namespace VantrelEngine {

class Log;

// Adds to the log what the libraries and the modules say while the object lives; it still goes to the terminal, too. One
// at a time. The log outlives it.
class LogCapture {
public:
    explicit LogCapture(Log& log);
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

private:
    struct State;
    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
