#include "Magnum/Primitives/Cone.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/Mesh.h"
#include "Magnum/Primitives/Implementation/Revolution.h"
#include "Magnum/Trade/MeshData.h"

namespace Magnum::Primitives {

Trade::MeshData coneSolid(UnsignedInt rings, UnsignedInt segments, Float halfLength, ConeFlags flags) {
    CORRADE_ASSERT(rings >= 1 && segments >= 3,
        "Primitives::coneSolid(): expected at least one ring and three segments but got" << rings << "and" << segments,
        (Trade::MeshData{MeshPrimitive::Triangles, Containers::Array<char>{}, {}, 0}));

    const bool capped = bool(flags & ConeFlag::CapEnd);
    const Float length = 2.0f * halfLength;
    // The texture runs from the middle of the cap to the tip, along the axis rather than the slope.
    const Float textureEdge = capped ? 1.0f / (length + 1.0f) : 0.0f;
    Implementation::Revolution cone{segments, bool(flags & ConeFlag::TextureCoordinates),
        bool(flags & ConeFlag::Tangents), capped ? 1u : 0u, rings + (capped ? 2 : 1)};
    if(capped) {
        cone.addPole(-halfLength, -1.0f, 0.0f);
        cone.addRing(-halfLength, 1.0f, {0.0f, -1.0f}, textureEdge);
    }
    const UnsignedInt side = cone.vertexCount();
    // Perpendicular to the slope, which goes one inwards over the whole length.
    const Vector2 normal = Vector2{length, 1.0f}.normalized();
    for(UnsignedInt i = 0; i <= rings; ++i) {
        const Float along = Float(i) / Float(rings);
        cone.addRing(along * length - halfLength, 1.0f - along, normal, textureEdge + along * (1.0f - textureEdge));
    }

    const UnsignedInt ringSize = cone.verticesPerRing();
    if(capped) cone.addFacesAbovePole(0, 1);
    for(UnsignedInt i = 0; i != rings; ++i) cone.addFacesBetweenRings(side + i * ringSize, side + (i + 1) * ringSize);
    return Utility::move(cone).finish();
}

}
