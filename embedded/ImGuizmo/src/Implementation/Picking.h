#pragma once

#include "Implementation/Handle.h"
#include "Implementation/Layout.h"

namespace ImGuizmo::Implementation {

// The handle of the operation that is nearest to a pixel, within 12 pixels of an axis and 8 of a ring; none elsewhere.
// The one in the middle comes first; inside of a plane's quad, axes that are farther than 6 pixels away stand back.
Handle handleAt(const Layout& layout, OPERATION operation, const Magnum::Vector2d& pixel);

// Least distance of a point to a straight line between two others.
Magnum::Double distanceToLine(
    const Magnum::Vector2d& point, const Magnum::Vector2d& start, const Magnum::Vector2d& end);
// Of a convex quadrilateral, whichever way round. An edge belongs to it.
bool isInside(const std::array<Magnum::Vector2d, 4>& corners, const Magnum::Vector2d& point);

}
