#pragma once

#include "Panels/LogFilter.h"

namespace VantrelEngine {

// Shows the log in the window that is current: the lines of some severities that hold a text. Stays at the end unless the
// user scrolled away from it. Costs the lines that are seen, and each line once.
class LogPanel {
public:
    void draw(Log& log);

private:
    void drawChoice(Log& log);
    void drawLines(Log& log);
    void drawLine(Log& log, std::uint64_t number);
    void drawMenu(Log& log, const LogLine* line);
    std::string shownText(const Log& log) const;

    LogChoice _choice;
    LogFilter _filter;
    bool _isAtEnd = true;
    float _lastScroll = 0.0f;
};

} // namespace VantrelEngine
