#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"

namespace Magnum {

enum class MeshPrimitive : UnsignedInt {
    Points = 1,
    Lines,
    LineLoop,
    LineStrip,
    Triangles,
    TriangleStrip,
    TriangleFan,
    Instances,
    Faces,
    Edges,
    Meshlets
};

enum class MeshIndexType : UnsignedInt { UnsignedByte = 1, UnsignedShort, UnsignedInt };

// In bytes. Asserts that the type is one of the enumerators.
CORRADE_VISIBILITY_EXPORT UnsignedInt meshIndexTypeSize(MeshIndexType type);

CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, MeshPrimitive value);
CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, MeshIndexType value);

}
