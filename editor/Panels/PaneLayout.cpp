#include "Panels/PaneLayout.h"

#include <Magnum/Math/Functions.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Of text of single size: what a pane gets of a length that it shares with the view, no less than its minimum if that fits.
Float share(Float wish, Float minimum, Float length) {
    const Float most = Math::max(length - SplitterSize - MinViewSize, Math::min(minimum, length * 0.5f));
    return Math::max(Math::min(Math::max(wish, minimum), most), 0.0f);
}

Float viewShare(Float length, Float scale) {
    return scale > 1.0f ? Math::max(MinViewSize, length * MinViewPart) : MinViewSize;
}

// What larger text makes of panes beside the view that have these sizes now, and their splitters: more of each in
// proportion, as far as there is room.
Vector2 grown(const Vector2& sizes, const Vector2& minima, Float scale, Float splitters, Float length) {
    if(!(scale > 1.0f)) return sizes;
    const Vector2 wanted = sizes * scale;
    const Float least = Math::min(minima.sum() * scale, length * 0.5f);
    const Float most = Math::max(length - splitters - viewShare(length, scale), least);
    return wanted.sum() > most ? wanted * Math::max(most, 0.0f) / wanted.sum() : wanted;
}

// Of the left, of the right.
Vector2 sideWidths(const PaneSizes& sizes, Float scale, Float length) {
    const Vector2 isThere{Float(sizes.has(Pane::Left)), Float(sizes.has(Pane::Right))};
    Vector2 widths;
    if(isThere[0] > 0.0f) widths[0] = share(sizes.leftWidth, MinPaneWidth, length);
    const Float rest = Math::max(length - widths[0] - SplitterSize * isThere[0], 0.0f);
    if(isThere[1] > 0.0f) widths[1] = share(sizes.rightWidth, MinPaneWidth, rest);
    return grown(widths, MinPaneWidth * isThere, scale, SplitterSize * isThere.sum(), length);
}

Float bottomHeight(const PaneSizes& sizes, Float scale, Float length) {
    const Vector2 height{share(sizes.bottomHeight, MinPaneHeight, length), 0.0f};
    return grown(height, {MinPaneHeight, 0.0f}, scale, SplitterSize, length).x();
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

PanePlaces placePanes(const Range2D& area, const PaneSizes& sizes, Float scale) {
    PanePlaces places;
    const Vector2 max = Math::max(area.min(), area.max());
    places.view = {area.min(), max};
    const Vector2 sides = sideWidths(sizes, scale, max.x() - area.min().x());
    if(sizes.has(Pane::Left)) {
        const Float right = area.min().x() + sides[0];
        const Float viewLeft = Math::min(right + SplitterSize, max.x());
        places.left = {area.min(), {right, max.y()}};
        places.leftSplitter = {{right, area.min().y()}, {viewLeft, max.y()}};
        places.view.min().x() = viewLeft;
    }
    if(sizes.has(Pane::Right)) {
        const Float left = Math::max(max.x() - sides[1], places.view.min().x());
        const Float viewRight = Math::max(left - SplitterSize, places.view.min().x());
        places.right = {{left, area.min().y()}, max};
        places.rightSplitter = {{viewRight, area.min().y()}, {left, max.y()}};
        places.view.max().x() = viewRight;
    }
    if(sizes.has(Pane::Bottom)) {
        const Float top = max.y() - bottomHeight(sizes, scale, max.y() - area.min().y());
        const Float viewBottom = Math::max(top - SplitterSize, area.min().y());
        places.bottom = {{places.view.min().x(), top}, {places.view.max().x(), max.y()}};
        places.bottomSplitter = {{places.view.min().x(), viewBottom}, {places.view.max().x(), top}};
        places.view.max().y() = viewBottom;
    }
    return places;
}

PaneSizes draggedSizes(const Range2D& area, const PaneSizes& sizes, Float scale, Pane pane, Float place) {
    const PanePlaces shown = placePanes(area, sizes, scale);
    const Float half = SplitterSize * 0.5f;
    PaneSizes dragged = sizes;
    if(pane == Pane::Bottom) {
        dragged.bottomHeight = Math::max((area.max().y() - place - half) / scale, MinPaneHeight);
        return dragged;
    }
    const bool isLeft = pane == Pane::Left;
    const Float wish = isLeft ? place - area.min().x() - half : area.max().x() - place - half;
    const Float other = (isLeft ? shown.right : shown.left).sizeX();
    const Float splitters = SplitterSize * (other > 0.0f ? 2.0f : 1.0f);
    const Float most = area.sizeX() - splitters - viewShare(area.sizeX(), scale) - other;
    const Float width = Math::max(Math::min(wish, most) / scale, MinPaneWidth);
    (isLeft ? dragged.leftWidth : dragged.rightWidth) = width;
    if(other > 0.0f) (isLeft ? dragged.rightWidth : dragged.leftWidth) = other / scale;
    return dragged;
}

} // namespace VantrelEngine
