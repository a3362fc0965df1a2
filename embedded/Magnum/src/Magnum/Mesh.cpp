#include "Magnum/Mesh.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/Implementation/EnumDebug.h"

namespace Magnum {

UnsignedInt meshIndexTypeSize(MeshIndexType type) {
    switch(type) {
    case MeshIndexType::UnsignedByte: return 1;
    case MeshIndexType::UnsignedShort: return 2;
    case MeshIndexType::UnsignedInt: return 4;
    }
    CORRADE_ASSERT_UNREACHABLE("meshIndexTypeSize(): invalid type" << type, {});
}

Debug& operator<<(Debug& debug, MeshPrimitive value) {
    static constexpr const char* Names[]{"Points", "Lines", "LineLoop", "LineStrip", "Triangles", "TriangleStrip",
        "TriangleFan", "Instances", "Faces", "Edges", "Meshlets"};
    return Implementation::printEnum(debug, "MeshPrimitive", Names, 1, value);
}

Debug& operator<<(Debug& debug, MeshIndexType value) {
    static constexpr const char* Names[]{"UnsignedByte", "UnsignedShort", "UnsignedInt"};
    return Implementation::printEnum(debug, "MeshIndexType", Names, 1, value);
}

}
