#pragma once

#include "Implementation/Brush.h"
#include "Implementation/Drag.h"
#include "Implementation/Handle.h"
#include "Implementation/Layout.h"

namespace ImGuizmo::Implementation {

// What is drawn in which state.
struct Look {
    OPERATION operation;
    bool isEnabled;
    // Under the mouse while nothing is dragged
    Handle hovered;
    // The one that is dragged, with where it has come to
    const Drag* drag;
    Motion motion;
};

// All handles of the operation: the one that matters in the colour of the selection, the others dim during a drag.
void paintHandles(Brush& brush, const Camera& camera, const Layout& layout, const Look& look, const Style& style);

// What lies below the handles during a drag: the way from where it began, or the angle that was turned.
void paintTrail(Brush& brush, const Camera& camera, const Layout& layout, const Look& look, const Style& style);

// The numbers of a drag, beside a pixel and inside of a rectangle.
void paintValue(Brush& brush, const Rect& rect, const Magnum::Vector2d& pixel, const Look& look, const Style& style);

}
