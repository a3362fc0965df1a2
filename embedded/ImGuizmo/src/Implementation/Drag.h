#pragma once

#include <optional>

#include "Implementation/Axes.h"
#include "Implementation/Camera.h"
#include "Implementation/Handle.h"
#include "Implementation/Layout.h"

namespace ImGuizmo::Implementation {

// All that is known when a handle is grabbed, and stays as it is until it is let go.
struct Drag {
    Handle handle;
    // The gizmo's, in the world
    Magnum::Vector3d position;
    Axes axes;
    Magnum::Vector3d sides;
    // Of the matrix' axes
    Magnum::Vector3d lengths;
    Magnum::Vector2d mouse;
    // The plane in which the mouse is followed, and the point of it that was grabbed
    Magnum::Vector3d normal, grabbed;
    // A ring that is seen edge-on is turned by pixels along this direction: an angle of 1 for each length of it.
    std::optional<Magnum::Vector2d> edgeOnWay;
};

// How far a drag has come since it began.
struct Motion {
    Magnum::Vector3d displacement{0.0};
    // Radians about the normal of the drag's plane, any number of turns
    Magnum::Double angle = 0.0;
    Magnum::Vector3d factors{1.0};

    friend bool operator==(const Motion& a, const Motion& b) {
        return a.displacement == b.displacement && a.angle == b.angle && a.factors == b.factors;
    }
    friend bool operator!=(const Motion& a, const Motion& b) { return !(a == b); }
};

// Nothing if the plane cannot be seen at the pixel.
std::optional<Drag> beginDrag(
    Handle handle, const Layout& layout, const Camera& camera, const Matrix4d& matrix, const Magnum::Vector2d& mouse);

// The point that was grabbed stays under the mouse. Where the plane cannot be seen at the mouse, the last motion stays.
Motion follow(const Drag& drag, const Motion& last, const Camera& camera, const Magnum::Vector2d& mouse);

// Rounded to the nearest multiples of the steps, as Manipulate() states them. What has not moved stays.
Motion snapped(const Drag& drag, const Motion& motion, const float* steps);

// What a matrix becomes, and by what, when a motion goes on from one frame to the next.
struct Edit {
    Matrix4d matrix, delta;
};
Edit edited(const Drag& drag, const Motion& before, const Motion& now, const Matrix4d& matrix);

}
