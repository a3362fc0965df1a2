#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// Colour attachments of the framebuffer that holds what the view has drawn.
constexpr Magnum::UnsignedInt PictureAttachment = 0;
constexpr Magnum::UnsignedInt ObjectIdAttachment = 1;

// Where the picture of the view is, and how large.
struct ViewFrame {
    // Of its top left corner, window points.
    Magnum::Vector2i origin;
    // Window points; zero before the first frame.
    Magnum::Vector2i size;
    // Framebuffer pixels.
    Magnum::Vector2i framebufferSize;
    // Framebuffer pixels per window point, as they were when the framebuffer was made.
    Magnum::Vector2 pixelsPerPoint{1.0f};
    // The window of the view is hovered, and nothing in it is.
    bool isHovered = false;
};

// Whole numbers of at least 1 in both directions.
Magnum::Vector2i wholeSize(const Magnum::Vector2& size);

// How large a framebuffer can be, pixels: along one edge, at least 1, and in all, at least that.
struct FramebufferLimits {
    Magnum::Int edge;
    Magnum::Long pixels;
};

// Pixels of the framebuffer for a size in points, at least 1 and within the limits; what has too many keeps its shape.
// A scale that is no positive number counts as 1.
Magnum::Vector2i framebufferSize(
    const Magnum::Vector2i& size, const Magnum::Vector2& scale, const FramebufferLimits& limits);

// Pixels per point of a framebuffer that was made for a size in points: the scale, where it is as large as the scale makes
// it, and else what it has.
Magnum::Vector2 pixelsPerPoint(
    const Magnum::Vector2i& framebufferSize, const Magnum::Vector2i& size, const Magnum::Vector2& scale);

} // namespace VantrelEngine
