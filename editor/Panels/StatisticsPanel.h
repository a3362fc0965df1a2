#pragma once

#include <cstddef>
#include <string_view>

namespace VantrelEngine {

struct FrameStatistics;

// What the panel shows; outlives the call.
struct ShownStatistics {
    const FrameStatistics& frame;
    // Milliseconds of the last frame of the whole window, not counting what was waited for.
    double frameTime = 0.0;
    // What the view's last reload made again, and why, a line each; empty for nothing.
    std::string_view lastReload;
    // Files that are being imported or wait for it.
    std::size_t imports = 0;
    // Small pictures: whether one is still to be made, and how many were drawn and came from the disk since the start.
    bool areThumbnailsWaiting = false;
    std::size_t thumbnailsDrawn = 0, thumbnailsLoaded = 0;
};

// Into the window that is current: what the last frame drew, for the scene and for the editor, how long its passes took,
// and what else goes on.
void drawStatisticsPanel(const ShownStatistics& statistics);

} // namespace VantrelEngine
