#pragma once

#include <optional>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

// What is seen in a frame in which a box that selects is armed: a cursor beyond those of the UI library, for which the
// host shows a crosshair, and, where there is one already, the edge of the box, in window points.
void drawSelectionBox(const std::optional<Magnum::Range2D>& box);

} // namespace VantrelEngine
