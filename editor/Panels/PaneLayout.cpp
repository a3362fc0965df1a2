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

PanePlaces placePanes(const Range2D& area, const PaneSizes& sizes) {
    PanePlaces places;
    const Vector2 max = Math::max(area.min(), area.max());
    places.view = {area.min(), max};
    if(sizes.hasList) {
        const Float right = area.min().x() + share(sizes.listWidth, MinListWidth, max.x() - area.min().x());
        const Float viewLeft = Math::min(right + SplitterSize, max.x());
        places.list = {area.min(), {right, max.y()}};
        places.listSplitter = {{right, area.min().y()}, {viewLeft, max.y()}};
        places.view.min().x() = viewLeft;
    }
    if(sizes.hasLog) {
        const Float top = max.y() - share(sizes.logHeight, MinLogHeight, max.y() - area.min().y());
        const Float viewBottom = Math::max(top - SplitterSize, area.min().y());
        places.log = {{places.view.min().x(), top}, max};
        places.logSplitter = {{places.view.min().x(), viewBottom}, {max.x(), top}};
        places.view.max().y() = viewBottom;
    }
    return places;
}

} // namespace VantrelEngine
