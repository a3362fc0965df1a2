#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

// How the user has arranged the panes: the list on the left, the view, the log below it. In window points; what does
// not fit is given less, and gets it back when the window grows.
struct PaneSizes {
    Magnum::Float listWidth = 280.0f;
    Magnum::Float logHeight = 160.0f;
    bool hasList = true;
    bool hasLog = true;
};

// Side by side in window points, with the splitters between them. What is not shown is empty.
struct PanePlaces {
    Magnum::Range2D list, view, log;
    Magnum::Range2D listSplitter, logSplitter;
};

constexpr Magnum::Float SplitterSize = 5.0f;
constexpr Magnum::Float MinListWidth = 120.0f;
constexpr Magnum::Float MinLogHeight = 60.0f;
// The view keeps this much before the others get what they were given.
constexpr Magnum::Float MinViewSize = 200.0f;

// Fills the area. Nothing comes out with a negative size, however small the area is.
PanePlaces placePanes(const Magnum::Range2D& area, const PaneSizes& sizes);

} // namespace VantrelEngine
