#include "Magnum/Primitives/UVSphere.h"

#include <cmath>

#include "Corrade/Containers/GrowableArray.h"
#include "Corrade/Utility/Algorithms.h"
#include "Corrade/Utility/Assert.h"
#include "Magnum/Math/Vector3.h"
#include "Magnum/Mesh.h"
#include "Magnum/Primitives/Implementation/Revolution.h"
#include "Magnum/Trade/MeshData.h"

namespace Magnum::Primitives {

namespace {

// (radius, y) of ring `ring` of `rings`, where the first and the last one are the poles.
Vector2 ringPoint(UnsignedInt ring, UnsignedInt rings) {
    const double angle = ring * 3.14159265358979323846 / rings;
    return {Float(std::sin(angle)), Float(-std::cos(angle))};
}

}

Trade::MeshData uvSphereSolid(UnsignedInt rings, UnsignedInt segments, UVSphereFlags flags) {
    CORRADE_ASSERT(rings >= 2 && segments >= 3,
        "Primitives::uvSphereSolid(): expected at least two rings and three segments but got" << rings << "and"
                                                                                              << segments,
        (Trade::MeshData{MeshPrimitive::Triangles, Containers::Array<char>{}, {}, 0}));

    Implementation::Revolution sphere{
        segments, bool(flags & UVSphereFlag::TextureCoordinates), bool(flags & UVSphereFlag::Tangents), 2, rings - 1};
    sphere.addPole(-1.0f, -1.0f, 0.0f);
    for(UnsignedInt i = 1; i != rings; ++i) {
        const Vector2 point = ringPoint(i, rings);
        sphere.addRing(point.y(), point.x(), point, Float(i) / Float(rings));
    }
    sphere.addPole(1.0f, 1.0f, 1.0f);

    const UnsignedInt ringSize = sphere.verticesPerRing();
    const UnsignedInt topPole = sphere.vertexCount() - 1;
    sphere.addFacesAbovePole(0, 1);
    for(UnsignedInt first = 1; first + ringSize < topPole; first += ringSize)
        sphere.addFacesBetweenRings(first, first + ringSize);
    sphere.addFacesBelowPole(topPole - ringSize, topPole);
    return Utility::move(sphere).finish();
}

Trade::MeshData uvSphereWireframe(UnsignedInt rings, UnsignedInt segments) {
    CORRADE_ASSERT(rings && rings % 2 == 0 && segments && segments % 4 == 0,
        "Primitives::uvSphereWireframe(): expected multiples of 2 rings and multiples of 4 segments but got"
            << rings << "and" << segments,
        (Trade::MeshData{MeshPrimitive::Lines, Containers::Array<char>{}, {}, 0}));

    // Four meridians, and further points only on the equator, the first of each quarter before the second ones.
    const UnsignedInt quarter = segments / 4;
    Containers::Array<Vector3> positions;
    arrayReserve(positions, rings * 4 + segments - 2);
    const auto addFour = [&](UnsignedInt ring, UnsignedInt firstSegment) {
        const Vector2 point = ringPoint(ring, rings);
        for(UnsignedInt i = 0; i != 4; ++i) {
            const Vector2 xz = Implementation::circlePoint(i * quarter + firstSegment, segments) * point.x();
            arrayAppend(positions, Vector3{xz.x(), point.y(), xz.y()});
        }
    };
    Containers::Array<UnsignedInt> indices;
    arrayReserve(indices, (rings * 4 + segments) * 2);

    arrayAppend(positions, Vector3{0.0f, -1.0f, 0.0f});
    for(UnsignedInt i = 0; i != 4; ++i) arrayAppend(indices, {0u, 1 + i});
    UnsignedInt below = 1;
    for(UnsignedInt ring = 1; ring != rings; ++ring) {
        const UnsignedInt first = UnsignedInt(positions.size());
        if(ring != 1) {
            for(UnsignedInt i = 0; i != 4; ++i) arrayAppend(indices, {below + i, first + i});
        }
        below = first;
        addFour(ring, 0);
        if(ring != rings / 2) continue;
        for(UnsignedInt segment = 1; segment != quarter; ++segment) {
            const UnsignedInt last = UnsignedInt(positions.size()) - 4;
            for(UnsignedInt i = 0; i != 4; ++i) arrayAppend(indices, {last + i, last + 4 + i});
            addFour(ring, segment);
        }
        const UnsignedInt last = UnsignedInt(positions.size()) - 4;
        for(UnsignedInt i = 0; i != 4; ++i) arrayAppend(indices, {last + i, first + (i + 1) % 4});
    }
    arrayAppend(positions, Vector3{0.0f, 1.0f, 0.0f});
    for(UnsignedInt i = 0; i != 4; ++i) arrayAppend(indices, {below + i, UnsignedInt(positions.size()) - 1});

    Containers::Array<char> vertexData{NoInit, positions.size() * sizeof(Vector3)};
    Utility::copy(Containers::arrayCast<const char>(Containers::arrayView(positions)), vertexData);
    Containers::Array<char> indexData{NoInit, indices.size() * sizeof(UnsignedInt)};
    Utility::copy(Containers::arrayCast<const char>(Containers::arrayView(indices)), indexData);
    const Trade::MeshIndexData meshIndices{MeshIndexType::UnsignedInt, indexData};
    return Trade::MeshData{MeshPrimitive::Lines, Utility::move(indexData), meshIndices, Utility::move(vertexData),
        {Trade::MeshAttributeData{
            Trade::MeshAttribute::Position, VertexFormat::Vector3, 0, UnsignedInt(positions.size()), sizeof(Vector3)}}};
}

}
