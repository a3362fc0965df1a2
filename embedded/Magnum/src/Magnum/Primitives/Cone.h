#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::Primitives {

enum class ConeFlag : UnsignedByte { TextureCoordinates = 1 << 0, Tangents = 1 << 1, CapEnd = 1 << 2 };
typedef Containers::EnumSet<ConeFlag> ConeFlags;
CORRADE_ENUMSET_OPERATORS(ConeFlags)

// Indexed triangles with positions and normals: a cone along the Y axis, with a base of radius one at -halfLength and
// the tip at halfLength, open unless the flags say otherwise. The tip has a vertex and a normal for each segment.
// Asserts that there are at least one ring and three segments.
CORRADE_VISIBILITY_EXPORT Trade::MeshData coneSolid(
    UnsignedInt rings, UnsignedInt segments, Float halfLength, ConeFlags flags = {});

}
