#pragma once

#include <string>

namespace VantrelEngine {

struct ShownProgress {
    std::string text;
    // 0 to 1.
    float fraction;
    bool canBeCancelled;
};

// A bar over the lower right corner of the window, above the status bar. True where it is to be cancelled.
bool drawProgress(const ShownProgress& progress);

// A bar in the middle, over all else, which gets no mouse meanwhile.
void drawOpening(const ShownProgress& progress);

} // namespace VantrelEngine
