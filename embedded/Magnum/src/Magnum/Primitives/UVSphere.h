#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"
#include "Magnum/Trade/Trade.h"

// Spheres of radius one.

namespace Magnum::Primitives {

enum class UVSphereFlag : UnsignedByte { TextureCoordinates = 1 << 0, Tangents = 1 << 1 };
typedef Containers::EnumSet<UVSphereFlag> UVSphereFlags;
CORRADE_ENUMSET_OPERATORS(UVSphereFlags)

// Indexed triangles with positions and normals, from the south pole to the north pole on the Y axis. Asserts that there
// are at least two rings and three segments.
CORRADE_VISIBILITY_EXPORT Trade::MeshData uvSphereSolid(
    UnsignedInt rings, UnsignedInt segments, UVSphereFlags flags = {});

// Indexed lines with positions: the equator and two circles through the poles. Asserts that the number of rings is a
// multiple of two and that of segments a multiple of four, neither of them zero.
CORRADE_VISIBILITY_EXPORT Trade::MeshData uvSphereWireframe(UnsignedInt rings, UnsignedInt segments);

}
