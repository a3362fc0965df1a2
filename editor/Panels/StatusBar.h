#pragma once

#include <string>

#include <Vantrel/EditorData/VantrelEditor.h>

#include "Panels/Log.h"

namespace VantrelEngine {

struct StatusLine {
    std::size_t objects = 0;
    std::size_t selected = 0;
    FrameStatistics statistics;
    // Milliseconds that the last frame took to be drawn, not counting what was waited for.
    double frameTime = 0.0;
    // Why the steps of the project are not kept in its journal; empty where they are, or it has none.
    std::string journalTrouble;
    // Null for none.
    const LogLine* message = nullptr;
    // What the view's last reload made again, and why, a line each; empty for nothing. Shown over the figures.
    std::string lastReload;
};

// One line at the lower end of the window.
void drawStatusBar(const StatusLine& status);

} // namespace VantrelEngine
