#pragma once

#include <optional>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

// Where the camera of the scene view looks from, and where the mouse points in its picture, as of the last frame.
struct ViewPointer {
    // From the scene's space to the camera's, and on to clip space.
    Magnum::Matrix4 view, projection;
    // Of the picture, window points, y down. Empty before the first frame.
    Magnum::Range2D rectangle;
    // From the camera through the pixel under the mouse, scene's space; the direction has the length 1.
    Magnum::Vector3 rayOrigin, rayDirection{0.0f, 0.0f, -1.0f};
    // While a file is dragged over the view: where it comes to stand when it is dropped, scene's space.
    std::optional<Magnum::Vector3> place;
};

} // namespace VantrelEngine
