#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::Primitives {

enum class CylinderFlag : UnsignedByte { TextureCoordinates = 1 << 0, Tangents = 1 << 1, CapEnds = 1 << 2 };
typedef Containers::EnumSet<CylinderFlag> CylinderFlags;
CORRADE_ENUMSET_OPERATORS(CylinderFlags)

// Indexed triangles with positions and normals: a cylinder of radius one along the Y axis, from -halfLength to
// halfLength, open unless the flags say otherwise. Asserts that there are at least one ring and three segments.
CORRADE_VISIBILITY_EXPORT Trade::MeshData cylinderSolid(
    UnsignedInt rings, UnsignedInt segments, Float halfLength, CylinderFlags flags = {});

}
