#pragma once

#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>
#include <Vantrel/EngineData/Types.h>

namespace Magnum::GL {
class Framebuffer;
}

namespace VantrelEngine {

class DynamicSceneGraph;
struct ViewFrame;

// Which objects are seen in a part of the view: read back from the picture of ids that is drawn beside the picture.

// The framebuffer's pixel below a place in the window, in whole points, y down; one pixel, which lies outside of the
// framebuffer where the place is not over the view's picture.
Magnum::Range2Di pixelBelow(const Magnum::Vector2i& point, const ViewFrame& frame);

// The objects of the scene that pixels name, each once, in the order in which they come. A pixel has four bytes, the
// first one the low byte of an id and the second one its high byte. Names of nobody are left out; the root's, 0, is not:
// it is in every scene. Aborts with "Containers::arrayCast(): can't reinterpret N 1-byte items into a 4-byte type" where
// the bytes are no whole pixels.
std::vector<Id> objectsNamedBy(Corrade::Containers::ArrayView<const char> pixels, const DynamicSceneGraph& scene);

// The same of a rectangle of a view's framebuffer, in pixels, from below: rows from the lowest to the highest, from left to
// right. What of it is outside of the framebuffer names nobody. Waits for the GPU to have drawn the ids; reads no pixel
// where the rectangle has none.
std::vector<Id> readObjectIds(
    Magnum::GL::Framebuffer& framebuffer, const Magnum::Range2Di& rectangle, const DynamicSceneGraph& scene);

} // namespace VantrelEngine
