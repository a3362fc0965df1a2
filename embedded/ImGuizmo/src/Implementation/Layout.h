#pragma once

#include <array>
#include <optional>

#include "Implementation/Axes.h"
#include "Implementation/Camera.h"

namespace ImGuizmo::Implementation {

// Parts of the length of an axis
constexpr Magnum::Double PlaneNear = 0.5, PlaneFar = 0.8, RingRadius = 1.16, OuterRingRadius = 1.28;
// Pixels from the centre, where the handles in the middle are and the axes are not yet
constexpr Magnum::Double CentreSize = 10.0;

// Where the handles of a gizmo are on the screen. Computed once a frame; nothing in it is allocated.
struct Layout {
    enum : std::size_t { RingPoints = 64 };

    // From the centre outwards. Seen end-on it fades: from 1 to 0, and cannot be grabbed below a half.
    struct Line {
        Magnum::Vector2d start, end;
        Magnum::Double alpha;
    };
    struct Quad {
        std::array<Magnum::Vector2d, 4> corners;
        Magnum::Double alpha;
    };
    struct Ring {
        std::array<Magnum::Vector2d, RingPoints> points;
        // Whether a point lies on the half that is turned to the eye. All of them do where the ring itself faces it.
        std::array<bool, RingPoints> isFront;
    };

    Magnum::Vector3d position;
    Axes axes;
    Magnum::Vector3d sides;
    // Of an axis: in the world, and in pixels across the line of sight
    Magnum::Double length, pixels;
    Magnum::Vector2d centre;
    std::array<Line, 3> lines;
    std::array<Quad, 3> quads;
    // Empty without any
    std::array<Ring, 3> rings;
};

// What of a gizmo's size does not depend on where it is: pixels.
Magnum::Double axisPixels(const Rect& rect, Magnum::Double clipSpaceSize);

// 1 or -1 each: the side of an axis that is the longer one on the screen, which perspective makes the one that comes
// toward the eye. Where both are the same, the positive one.
Magnum::Vector3d longerSides(
    const Camera& camera, const Magnum::Vector3d& position, const Axes& axes, Magnum::Double pixels);

// Nothing where no part of it can be seen: behind the camera, or far beside the picture. Rings are most of the work.
std::optional<Layout> layoutOf(const Camera& camera, const Magnum::Vector3d& position, const Axes& axes,
    const Magnum::Vector3d& sides, Magnum::Double pixels, bool hasRings = true);

}
