#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::Primitives {

// A triangle strip that is not indexed, with positions and normals: the square from -1 to 1 in X and Y that faces +Z.
// The data are static and cannot be changed.
CORRADE_VISIBILITY_EXPORT Trade::MeshData planeSolid();

}
