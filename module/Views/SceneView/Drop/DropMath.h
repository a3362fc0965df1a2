#pragma once

#include <optional>
#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Math/Vector2.h>

// What a drop into the view computes, without a window and a GL context.
namespace VantrelEngine {

// Window points that a drop keeps away from the edges of the view's window.
constexpr Magnum::Float DropMargin = 8.0f;

// Where drops are taken: the rectangle with the margin away from each side, and within it. Empty, but never inside out,
// where there is not as much.
Magnum::Range2D dropRectangle(const Magnum::Range2D& window);

// The longest text that a dragged thing may have: more than any path or id of use.
constexpr std::size_t MaxPayloadSize = 1 << 16;

// The text of a dragged thing, without its zero byte. None, and the reason, where it is empty, too long, does not end in
// a zero byte, or has one inside.
std::optional<std::string> payloadText(Corrade::Containers::ArrayView<const char> payload, std::string& reason);

// A ray in the scene's space; the direction has the length 1.
struct Ray {
    Magnum::Vector3 origin, direction;
};

// A camera: from its space to the scene's, rigid, and its projection.
struct DropCamera {
    Magnum::Matrix4 transformation, projection;
    // Scene units: the far plane, which may be at infinity, and how far off what the camera turns about is.
    Magnum::Float far, orbitDistance;
};

// The middle of a pixel in clip space, from -1 to 1. Pixels from the bottom left.
Magnum::Vector2 clipPosition(const Magnum::Vector2i& pixel, const Magnum::Vector2i& size);

// From the camera through a place in clip space.
Ray rayThrough(const DropCamera& camera, const Magnum::Vector2& clip);

// What stands at a place in clip space, at a depth from 0 to 1 as the framebuffer has it.
Magnum::Vector3 pointAt(const DropCamera& camera, const Magnum::Vector2& clip, Magnum::Float depth);

// Where something that is dropped comes to stand: what is drawn at that pixel, else the plane y = 0 in front of the camera
// up to its far plane, else as far in front of the camera as what it turns about. A depth of 1 says that nothing is drawn.
Magnum::Vector3 dropPlace(const DropCamera& camera, const Magnum::Vector2& clip, Magnum::Float depth);

// A line in window points as far as it lies in front of the camera; none where it does not.
struct ScreenLine {
    Magnum::Vector2 from, to;
};
// viewProjection goes to clip space, rectangle is where the picture is, y down.
std::optional<ScreenLine> screenLine(const Magnum::Vector3& from, const Magnum::Vector3& to,
    const Magnum::Matrix4& viewProjection, const Magnum::Range2D& rectangle);

} // namespace VantrelEngine
