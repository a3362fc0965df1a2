#include "Renderer/Meshes/MeshVertices.h"

#include <cstring>

#include <Magnum/Math/Vector3.h>
#include <gmock/gmock.h>

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;

namespace {

using testing::Each;
using testing::ElementsAre;

// Positions only, with or without indices.
Trade::MeshData mesh(const std::vector<Vector3>& positions, const std::vector<UnsignedByte>& indices = {}) {
    Containers::Array<char> vertexData{ValueInit, positions.size() * sizeof(Vector3)};
    std::memcpy(vertexData.data(), positions.data(), vertexData.size());
    const Trade::MeshAttributeData attribute{
        Trade::MeshAttribute::Position, VertexFormat::Vector3, 0, UnsignedInt(positions.size()), sizeof(Vector3)};
    if(indices.empty()) return Trade::MeshData{MeshPrimitive::Triangles, std::move(vertexData), {attribute}};
    Containers::Array<char> indexData{ValueInit, indices.size()};
    std::memcpy(indexData.data(), indices.data(), indices.size());
    const Trade::MeshIndexData view{MeshIndexType::UnsignedByte, indexData};
    return Trade::MeshData{MeshPrimitive::Triangles, std::move(indexData), view, std::move(vertexData), {attribute}};
}

struct Vertices {
    explicit Vertices(const Trade::MeshData& mesh) {
        interleave(mesh, VertexLayout{}, bytes, indices);
        for(std::size_t i = 0; i != bytes.size(); i += 2 * sizeof(Vector3)) {
            Vector3 values[2];
            std::memcpy(values, bytes.data() + i, sizeof(values));
            positions.push_back(values[0]);
            normals.push_back(values[1]);
        }
    }

    std::vector<char> bytes;
    std::vector<UnsignedInt> indices;
    std::vector<Vector3> positions, normals;
};

TEST(MeshVerticesTest, trianglesOfTheirOwnHaveTheirOwnNormals) {
    const Vertices vertices{mesh({{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {0, 0, 0}, {0, 1, 0}, {0, 0, 1}})};
    EXPECT_THAT(vertices.indices, ElementsAre(0, 1, 2, 3, 4, 5));
    EXPECT_EQ(vertices.positions[2], (Vector3{0, 2, 0}));
    for(std::size_t i = 0; i != 3; ++i) {
        EXPECT_EQ(vertices.normals[i], Vector3::zAxis());
        EXPECT_EQ(vertices.normals[i + 3], Vector3::xAxis());
    }
}

TEST(MeshVerticesTest, normalsOfSharedVerticesAreWeighedByArea) {
    // A triangle of area 2 across z and one of 0.5 across x share an edge.
    const Vertices vertices{mesh({{0, 0, 0}, {4, 0, 0}, {0, 1, 0}, {0, 0, 1}}, {0, 1, 2, 0, 2, 3})};
    EXPECT_THAT(vertices.indices, ElementsAre(0, 1, 2, 0, 2, 3));
    EXPECT_EQ(vertices.normals[1], Vector3::zAxis());
    EXPECT_EQ(vertices.normals[3], Vector3::xAxis());
    EXPECT_EQ(vertices.normals[0], (Vector3{1, 0, 4}.normalized()));
    EXPECT_EQ(vertices.normals[2], (Vector3{1, 0, 4}.normalized()));
}

TEST(MeshVerticesTest, verticesWithoutAreaHaveSomeNormal) {
    EXPECT_THAT(Vertices(mesh({{1, 1, 1}, {1, 1, 1}, {1, 1, 1}})).normals, Each(Vector3::zAxis()));
    EXPECT_THAT(Vertices(mesh({{0, 0, 0}, {3e38f, 0, 0}, {0, 3e38f, 0}})).normals, Each(Vector3::zAxis()));
}

TEST(MeshVerticesTest, fingerprintsDifferWhereContentsDo) {
    const std::vector<Vector3> positions{{0, 0, 0}, {4, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    const std::uint64_t known = fingerprint(mesh(positions, {0, 1, 2, 0, 2, 3}));
    EXPECT_EQ(fingerprint(mesh(positions, {0, 1, 2, 0, 2, 3})), known);
    EXPECT_NE(fingerprint(mesh(positions, {0, 1, 2, 0, 3, 2})), known);
    EXPECT_NE(fingerprint(mesh(positions)), known);
    std::vector<Vector3> others = positions;
    others[3].z() = 1.0000001f;
    EXPECT_NE(fingerprint(mesh(others, {0, 1, 2, 0, 2, 3})), known);
}

} // namespace
