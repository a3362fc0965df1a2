#include "Panels/PaneLayout.h"

#include <Magnum/Math/Functions.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// What a pane gets of a length that it shares with the view: no less than its minimum if that fits, and all of it at most.
Float share(Float wish, Float minimum, Float length) {
    const Float most = Math::max(length - SplitterSize - MinViewSize, Math::min(minimum, length * 0.5f));
    return Math::max(Math::min(Math::max(wish, minimum), most), 0.0f);
}

} // namespace

bool PaneSizes::has(Pane pane) const {
    for(const PanelInfo& panel: Panels)
        if(panel.pane == pane && (*this)[panel.panel]) return true;
    return false;
}

const Range2D& PanePlaces::of(Pane pane) const {
    switch(pane) {
    case Pane::Left: return left;
    case Pane::Right: return right;
    case Pane::Bottom: break;
    }
    return bottom;
}

PanePlaces placePanes(const Range2D& area, const PaneSizes& sizes) {
    PanePlaces places;
    const Vector2 max = Math::max(area.min(), area.max());
    places.view = {area.min(), max};
    if(sizes.has(Pane::Left)) {
        const Float right = area.min().x() + share(sizes.leftWidth, MinPaneWidth, max.x() - area.min().x());
        const Float viewLeft = Math::min(right + SplitterSize, max.x());
        places.left = {area.min(), {right, max.y()}};
        places.leftSplitter = {{right, area.min().y()}, {viewLeft, max.y()}};
        places.view.min().x() = viewLeft;
    }
    if(sizes.has(Pane::Right)) {
        const Float left = max.x() - share(sizes.rightWidth, MinPaneWidth, max.x() - places.view.min().x());
        const Float viewRight = Math::max(left - SplitterSize, places.view.min().x());
        places.right = {{left, area.min().y()}, max};
        places.rightSplitter = {{viewRight, area.min().y()}, {left, max.y()}};
        places.view.max().x() = viewRight;
    }
    if(sizes.has(Pane::Bottom)) {
        const Float top = max.y() - share(sizes.bottomHeight, MinPaneHeight, max.y() - area.min().y());
        const Float viewBottom = Math::max(top - SplitterSize, area.min().y());
        places.bottom = {{places.view.min().x(), top}, {places.view.max().x(), max.y()}};
        places.bottomSplitter = {{places.view.min().x(), viewBottom}, {places.view.max().x(), top}};
        places.view.max().y() = viewBottom;
    }
    return places;
}

} // namespace VantrelEngine
