#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::Primitives {

// Indexed lines with positions and colours: three arrows of length one, X in red, Y in green and Z in blue. The data are
// static and cannot be changed.
CORRADE_VISIBILITY_EXPORT Trade::MeshData axis3D();

}
