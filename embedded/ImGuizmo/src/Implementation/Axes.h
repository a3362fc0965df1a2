#pragma once

#include <array>

#include <ImGuizmo.h>

#include "Implementation/Camera.h"

namespace ImGuizmo::Implementation {

// Three directions of length 1, perpendicular to each other; left-handed where the matrix mirrors.
typedef std::array<Magnum::Vector3d, 3> Axes;

// What the handles follow. An axis of the matrix that has no length, or that lies in line with another one, is replaced
// by what the others leave.
Axes axesOf(const Matrix4d& matrix, MODE mode);

}
