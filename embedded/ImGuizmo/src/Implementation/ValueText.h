#pragma once

#include <array>

#include "Implementation/Drag.h"

namespace ImGuizmo::Implementation {

// Ends with a zero.
typedef std::array<char, 96> ValueText;

// How far a drag has come, for its user: distances along the axes that it moves along, degrees, or factors.
ValueText valueText(const Drag& drag, const Motion& motion);

}
