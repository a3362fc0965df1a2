#pragma once

#include <cstddef>

#include "Corrade/Containers/Array.h"
#include "Magnum/Magnum.h"
#include "Magnum/Math/Vector2.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::Primitives::Implementation {

// Where segment `segment` of `segmentCount` meets the circle of radius one around the Y axis: (x, z). The first one
// lies on +Z, the second in the direction of +X.
Vector2 circlePoint(UnsignedInt segment, UnsignedInt segmentCount);

// Builds triangles around the Y axis from the bottom to the top: first the vertices, pole by pole and ring by ring, then
// the faces between them.
class Revolution {
public:
    // With texture coordinates or tangents a ring has a further vertex at its end, in the place of the first one.
    explicit Revolution(UnsignedInt segments, bool hasTextureCoordinates, bool hasTangents, std::size_t poleCount,
        std::size_t ringCount);

    // One vertex on the axis, with a normal that points down or up.
    void addPole(Float y, Float normalY, Float textureY);
    // The normal is (away from the axis, up).
    void addRing(Float y, Float radius, const Vector2& normal, Float textureY);

    // Vertices are numbered in the order in which they were added.
    void addFacesAbovePole(UnsignedInt pole, UnsignedInt firstOfRing);
    void addFacesBetweenRings(UnsignedInt firstOfLower, UnsignedInt firstOfUpper);
    void addFacesBelowPole(UnsignedInt firstOfRing, UnsignedInt pole);

    UnsignedInt verticesPerRing() const { return _verticesPerRing; }
    UnsignedInt vertexCount() const { return _vertexCount; }

    Trade::MeshData finish() &&;

private:
    void addVertex(
        const Vector3& position, const Vector3& normal, const Vector2& tangentXz, const Vector2& textureCoordinates);
    void addFace(UnsignedInt a, UnsignedInt b, UnsignedInt c);
    // Of the vertex after the given one in a ring.
    UnsignedInt next(UnsignedInt segment) const { return (segment + 1) % _verticesPerRing; }

    UnsignedInt _segments, _verticesPerRing, _vertexCount{};
    bool _hasTextureCoordinates, _hasTangents;
    Containers::Array<Float> _vertices;
    Containers::Array<UnsignedInt> _indices;
};

}
