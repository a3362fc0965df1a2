#pragma once

#include <optional>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

struct ViewPointer;

// The box of a model that stands on a place: with the middle of its lower side; of one whose bounds are not known, a box of
// one unit. Scene's space.
Magnum::Range3D ghostBox(const std::optional<Magnum::Range3D>& bounds, const Magnum::Vector3& place);

// Draws its edges over the picture, into the window that is current.
void drawGhost(const Magnum::Range3D& box, const ViewPointer& pointer);

} // namespace VantrelEngine
