#pragma once

namespace VantrelEngine {

class Log;

// Shows the log in the window that is current. Stays at the end unless the user scrolled away from it. Costs the lines
// that are seen.
class LogPanel {
public:
    void draw(Log& log);

private:
    bool _isAtEnd = true;
    float _lastScroll = 0.0f;
};

} // namespace VantrelEngine
