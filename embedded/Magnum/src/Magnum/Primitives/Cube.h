#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Trade/Trade.h"

// Cubes from -1 to 1 along each axis. The data are static and cannot be changed.

namespace Magnum::Primitives {

// Indexed triangles with positions and normals, flat shaded.
CORRADE_VISIBILITY_EXPORT Trade::MeshData cubeSolid();

// Indexed lines with positions.
CORRADE_VISIBILITY_EXPORT Trade::MeshData cubeWireframe();

}
