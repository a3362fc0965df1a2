#include "Data/Resources/MeshShape.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector3.h>
#include <Magnum/Mesh.h>
#include <Magnum/Primitives/Cone.h>
#include <Magnum/Primitives/Cylinder.h>
#include <Magnum/Primitives/UVSphere.h>
#include <Vantrel/EngineData/SceneResources.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Containers::Literals;
using namespace Magnum;

const Containers::StringView MeshShapeNames[MeshShapeCount]{"cube"_s, "sphere"_s, "plane"_s, "cylinder"_s, "cone"_s};

namespace {

constexpr UnsignedInt SphereRings = 16;
constexpr UnsignedInt Segments = 32;

struct Vertex {
    Vector3 position, normal;
    Vector2 textureCoordinates;
};

// Squares around the origin, each by its normal and the direction in which its texture goes right. Half an edge long
// from there.
template<std::size_t count> Trade::MeshData squares(const Vector3 (&sides)[count][2], Float offset, Float halfEdge) {
    Containers::Array<char> vertexData{ValueInit, count * 4 * sizeof(Vertex)};
    Containers::Array<char> indexData{ValueInit, count * 6 * sizeof(UnsignedShort)};
    auto* const vertices = reinterpret_cast<Vertex*>(vertexData.data());
    auto* const indices = reinterpret_cast<UnsignedShort*>(indexData.data());
    for(std::size_t side = 0; side != count; ++side) {
        const Vector3 normal = sides[side][0], right = sides[side][1];
        const Vector3 up = Math::cross(normal, right);
        for(std::size_t corner = 0; corner != 4; ++corner) {
            const Vector2 place{Float(corner % 2), Float(corner / 2)};
            vertices[side * 4 + corner] = {
                normal * offset + (right * (2 * place.x() - 1) + up * (2 * place.y() - 1)) * halfEdge, normal, place};
        }
        const UnsignedInt triangles[]{0, 1, 3, 0, 3, 2};
        for(std::size_t i = 0; i != 6; ++i) indices[side * 6 + i] = UnsignedShort(side * 4 + triangles[i]);
    }
    const UnsignedInt vertexCount = count * 4;
    const Trade::MeshIndexData indexView{MeshIndexType::UnsignedShort, indexData};
    return Trade::MeshData{MeshPrimitive::Triangles, std::move(indexData), indexView, std::move(vertexData),
        {Trade::MeshAttributeData{Trade::MeshAttribute::Position, VertexFormat::Vector3, offsetof(Vertex, position),
             vertexCount, sizeof(Vertex)},
            Trade::MeshAttributeData{Trade::MeshAttribute::Normal, VertexFormat::Vector3, offsetof(Vertex, normal),
                vertexCount, sizeof(Vertex)},
            Trade::MeshAttributeData{Trade::MeshAttribute::TextureCoordinates, VertexFormat::Vector2,
                offsetof(Vertex, textureCoordinates), vertexCount, sizeof(Vertex)}}};
}

Trade::MeshData cube(Float halfEdge) {
    const Vector3 x = Vector3::xAxis(), y = Vector3::yAxis(), z = Vector3::zAxis();
    const Vector3 sides[][2]{{z, x}, {x, -z}, {-z, -x}, {-x, z}, {y, x}, {-y, x}};
    return squares(sides, halfEdge, halfEdge);
}

} // namespace

Trade::MeshData shapeMesh(MeshShape shape) {
    switch(shape) {
    case MeshShape::Cube: break;
    case MeshShape::Sphere:
        return Primitives::uvSphereSolid(SphereRings, Segments, Primitives::UVSphereFlag::TextureCoordinates);
    case MeshShape::Plane: return squares({{Vector3::zAxis(), Vector3::xAxis()}}, 0.0f, 1.0f);
    case MeshShape::Cylinder:
        return Primitives::cylinderSolid(
            1, Segments, 1.0f, Primitives::CylinderFlag::TextureCoordinates | Primitives::CylinderFlag::CapEnds);
    case MeshShape::Cone:
        return Primitives::coneSolid(
            1, Segments, 1.0f, Primitives::ConeFlag::TextureCoordinates | Primitives::ConeFlag::CapEnd);
    }
    return cube(1.0f);
}

Trade::MeshData placeholderMesh() { return cube(0.5f); }

MeshBounds meshBounds(const Trade::MeshData& mesh) {
    const auto positions = mesh.attribute<Vector3>(Trade::MeshAttribute::Position);
    if(!positions.size()) return {};
    Vector3 min = positions[0], max = positions[0];
    for(const Vector3& position: positions) {
        min = Math::min(min, position);
        max = Math::max(max, position);
    }
    // What is finite can be too far apart for a float.
    const Vector3d center = (Vector3d{min} + Vector3d{max}) * 0.5;
    double square = 0.0;
    for(const Vector3& position: positions) square = std::max(square, (Vector3d{position} - center).dot());
    constexpr double Limit = std::numeric_limits<Float>::max();
    return {{min, max}, Float(std::min(std::sqrt(square), Limit))};
}

std::uint32_t meshLayout(const Trade::MeshData& mesh) {
    std::uint32_t flags = 0;
    if(mesh.hasAttribute(Trade::MeshAttribute::Normal)) flags |= LayoutNormal;
    if(mesh.hasAttribute(Trade::MeshAttribute::Tangent)) flags |= LayoutTangent;
    if(mesh.attributeCount(Trade::MeshAttribute::TextureCoordinates) > 0) flags |= LayoutTextureCoordinates;
    if(mesh.attributeCount(Trade::MeshAttribute::TextureCoordinates) > 1) flags |= LayoutSecondTextureCoordinates;
    if(mesh.hasAttribute(Trade::MeshAttribute::Color)) flags |= LayoutColor;
    if(mesh.hasAttribute(Trade::MeshAttribute::JointIds)) flags |= LayoutJoints;
    return flags;
}

} // namespace VantrelEngine
