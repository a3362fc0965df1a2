#pragma once

#include <array>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

#include "Panels/Panel.h"

namespace VantrelEngine {

// How the user has arranged the panes: one on the left, one on the right, the view, and one below it. In window points at
// text of single size; larger text makes them larger in proportion.
struct PaneSizes {
    Magnum::Float leftWidth = 280.0f;
    Magnum::Float rightWidth = 320.0f;
    Magnum::Float bottomHeight = 200.0f;
    // By panel.
    std::array<bool, PanelCount> isOpen{true, true, true, true, true, true, true, true, true};

    bool& operator[](Panel panel) { return isOpen[std::size_t(panel)]; }
    bool operator[](Panel panel) const { return isOpen[std::size_t(panel)]; }
    // Whether the pane has an open panel.
    bool has(Pane pane) const;
};

// Side by side in window points, with the splitters between them. What is not shown is empty.
struct PanePlaces {
    Magnum::Range2D left, right, bottom, view;
    Magnum::Range2D leftSplitter, rightSplitter, bottomSplitter;

    const Magnum::Range2D& of(Pane pane) const;
};

constexpr Magnum::Float SplitterSize = 5.0f;
// At text of single size.
constexpr Magnum::Float MinPaneWidth = 120.0f;
constexpr Magnum::Float MinPaneHeight = 60.0f;
// The view keeps this much before the others get what they were given, and this part of the whole length before they get
// more for larger text.
constexpr Magnum::Float MinViewSize = 200.0f;
constexpr Magnum::Float MinViewPart = 0.4f;

// Fills the area; the scale is that of the text, at least 1. What does not fit is given less, and gets it back when the
// area grows; larger text makes panes larger in proportion. Nothing comes out with a negative size, however small the area
// is.
PanePlaces placePanes(const Magnum::Range2D& area, const PaneSizes& sizes, Magnum::Float scale = 1.0f);

// Whoever drags a splitter to a place along its axis wants these sizes: the pane beside it ends there, and the others keep
// what they were shown with.
PaneSizes draggedSizes(
    const Magnum::Range2D& area, const PaneSizes& sizes, Magnum::Float scale, Pane pane, Magnum::Float place);

} // namespace VantrelEngine
