#include "Magnum/Primitives/Cylinder.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/Mesh.h"
#include "Magnum/Primitives/Implementation/Revolution.h"
#include "Magnum/Trade/MeshData.h"

namespace Magnum::Primitives {

Trade::MeshData cylinderSolid(UnsignedInt rings, UnsignedInt segments, Float halfLength, CylinderFlags flags) {
    CORRADE_ASSERT(rings >= 1 && segments >= 3,
        "Primitives::cylinderSolid(): expected at least one ring and three segments but got" << rings << "and"
                                                                                             << segments,
        (Trade::MeshData{MeshPrimitive::Triangles, Containers::Array<char>{}, {}, 0}));

    const bool capped = bool(flags & CylinderFlag::CapEnds);
    const Float length = 2.0f * halfLength;
    // The texture runs from the middle of one cap to that of the other.
    const Float textureEdge = capped ? 1.0f / (length + 2.0f) : 0.0f;
    Implementation::Revolution cylinder{segments, bool(flags & CylinderFlag::TextureCoordinates),
        bool(flags & CylinderFlag::Tangents), capped ? 2u : 0u, rings + (capped ? 3 : 1)};
    if(capped) {
        cylinder.addPole(-halfLength, -1.0f, 0.0f);
        cylinder.addRing(-halfLength, 1.0f, {0.0f, -1.0f}, textureEdge);
    }
    const UnsignedInt side = cylinder.vertexCount();
    for(UnsignedInt i = 0; i <= rings; ++i) {
        const Float along = Float(i) / Float(rings);
        cylinder.addRing(
            along * length - halfLength, 1.0f, {1.0f, 0.0f}, textureEdge + along * (1.0f - 2.0f * textureEdge));
    }
    const UnsignedInt topCap = cylinder.vertexCount();
    if(capped) {
        cylinder.addRing(halfLength, 1.0f, {0.0f, 1.0f}, 1.0f - textureEdge);
        cylinder.addPole(halfLength, 1.0f, 1.0f);
    }

    const UnsignedInt ringSize = cylinder.verticesPerRing();
    if(capped) cylinder.addFacesAbovePole(0, 1);
    for(UnsignedInt i = 0; i != rings; ++i)
        cylinder.addFacesBetweenRings(side + i * ringSize, side + (i + 1) * ringSize);
    if(capped) cylinder.addFacesBelowPole(topCap, topCap + ringSize);
    return Utility::move(cylinder).finish();
}

}
