#include "Magnum/Primitives/Implementation/Revolution.h"

#include <cmath>

#include "Corrade/Containers/GrowableArray.h"
#include "Corrade/Utility/Algorithms.h"
#include "Magnum/Math/Vector3.h"
#include "Magnum/Math/Vector4.h"
#include "Magnum/Mesh.h"
#include "Magnum/Trade/MeshData.h"

namespace Magnum::Primitives::Implementation {

namespace {

template<class T> Containers::Array<char> bytes(const Containers::Array<T>& items) {
    Containers::Array<char> out{NoInit, items.size() * sizeof(T)};
    Utility::copy(Containers::arrayCast<const char>(Containers::arrayView(items)), out);
    return out;
}

}

Vector2 circlePoint(UnsignedInt segment, UnsignedInt segmentCount) {
    const double angle = segment * 2.0 * 3.14159265358979323846 / segmentCount;
    return {Float(std::sin(angle)), Float(std::cos(angle))};
}

Revolution::Revolution(
    UnsignedInt segments, bool hasTextureCoordinates, bool hasTangents, std::size_t poleCount, std::size_t ringCount):
    _segments{segments},
    _verticesPerRing{segments + (hasTextureCoordinates || hasTangents)}, _hasTextureCoordinates{hasTextureCoordinates},
    _hasTangents{hasTangents} {
    const std::size_t floatsPerVertex = 6 + (hasTangents ? 4 : 0) + (hasTextureCoordinates ? 2 : 0);
    arrayReserve(_vertices, (poleCount + ringCount * _verticesPerRing) * floatsPerVertex);
    arrayReserve(_indices, ringCount * segments * 6);
}

void Revolution::addVertex(
    const Vector3& position, const Vector3& normal, const Vector2& tangentXz, const Vector2& textureCoordinates) {
    arrayAppend(_vertices, {position.x(), position.y(), position.z(), normal.x(), normal.y(), normal.z()});
    if(_hasTangents) arrayAppend(_vertices, {tangentXz.x(), 0.0f, tangentXz.y(), 1.0f});
    if(_hasTextureCoordinates) arrayAppend(_vertices, {textureCoordinates.x(), textureCoordinates.y()});
    ++_vertexCount;
}

void Revolution::addFace(UnsignedInt a, UnsignedInt b, UnsignedInt c) { arrayAppend(_indices, {a, b, c}); }

void Revolution::addPole(Float y, Float normalY, Float textureY) {
    addVertex({0.0f, y, 0.0f}, {0.0f, normalY, 0.0f}, {normalY, 0.0f}, {0.5f, textureY});
}

void Revolution::addRing(Float y, Float radius, const Vector2& normal, Float textureY) {
    for(UnsignedInt i = 0; i != _verticesPerRing; ++i) {
        const Vector2 point = circlePoint(i % _segments, _segments);
        addVertex({point.x() * radius, y, point.y() * radius},
            {point.x() * normal.x(), normal.y(), point.y() * normal.x()}, {point.y(), -point.x()},
            {Float(i) / Float(_segments), textureY});
    }
}

void Revolution::addFacesAbovePole(UnsignedInt pole, UnsignedInt firstOfRing) {
    for(UnsignedInt i = 0; i != _segments; ++i) addFace(pole, firstOfRing + next(i), firstOfRing + i);
}

void Revolution::addFacesBetweenRings(UnsignedInt firstOfLower, UnsignedInt firstOfUpper) {
    for(UnsignedInt i = 0; i != _segments; ++i) {
        addFace(firstOfLower + i, firstOfLower + next(i), firstOfUpper + next(i));
        addFace(firstOfLower + i, firstOfUpper + next(i), firstOfUpper + i);
    }
}

void Revolution::addFacesBelowPole(UnsignedInt firstOfRing, UnsignedInt pole) {
    for(UnsignedInt i = 0; i != _segments; ++i) addFace(firstOfRing + i, firstOfRing + next(i), pole);
}

Trade::MeshData Revolution::finish() && {
    const std::ptrdiff_t stride = _vertices.size() * sizeof(Float) / _vertexCount;
    std::size_t offset = 0;
    Containers::Array<Trade::MeshAttributeData> attributes;
    const auto add = [&](Trade::MeshAttribute name, VertexFormat format) {
        arrayAppend(attributes, Trade::MeshAttributeData{name, format, offset, _vertexCount, stride});
        offset += vertexFormatSize(format);
    };
    add(Trade::MeshAttribute::Position, VertexFormat::Vector3);
    add(Trade::MeshAttribute::Normal, VertexFormat::Vector3);
    if(_hasTangents) add(Trade::MeshAttribute::Tangent, VertexFormat::Vector4);
    if(_hasTextureCoordinates) add(Trade::MeshAttribute::TextureCoordinates, VertexFormat::Vector2);

    Containers::Array<char> indexData = bytes(_indices);
    const Trade::MeshIndexData indices{MeshIndexType::UnsignedInt, indexData};
    return Trade::MeshData{
        MeshPrimitive::Triangles, Utility::move(indexData), indices, bytes(_vertices), Utility::move(attributes)};
}

}
