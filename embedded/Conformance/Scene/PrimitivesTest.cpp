#include <algorithm>
#include <cmath>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Iterable.h>
#include <Corrade/Containers/Optional.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/MeshTools/Concatenate.h>
#include <Magnum/MeshTools/Transform.h>
#include <Magnum/Primitives/Axis.h>
#include <Magnum/Primitives/Cone.h>
#include <Magnum/Primitives/Cube.h>
#include <Magnum/Primitives/Cylinder.h>
#include <Magnum/Primitives/Plane.h>
#include <Magnum/Primitives/UVSphere.h>
#include <Magnum/Trade/MeshData.h>

#include "Expect.h"

using namespace Corrade;
using namespace Magnum;
using Primitives::ConeFlag;
using Primitives::CylinderFlag;
using Primitives::UVSphereFlag;
using SceneTest::floats;
using SceneTest::items;
using SceneTest::printed;

namespace {

typedef Trade::MeshAttribute Attribute;

const Trade::DataFlags Generated = Trade::DataFlag::Owned | Trade::DataFlag::Mutable;

// Name, format and offset of every attribute, and the stride that they share.
std::string layout(const Trade::MeshData& mesh) {
    std::string out;
    for(UnsignedInt i = 0; i != mesh.attributeCount(); ++i) {
        EXPECT_EQ(mesh.attributeStride(i), mesh.attributeStride(0));
        out += printed(mesh.attributeName(i)).substr(22) + " " + printed(mesh.attributeFormat(i)).substr(14) + " @" +
            std::to_string(mesh.attributeOffset(i)) + ", ";
    }
    return out + "stride " + std::to_string(mesh.attributeStride(0));
}

auto nearly(const std::vector<float>& expected) { return testing::Pointwise(testing::FloatNear(1.0e-6f), expected); }

template<class T> std::vector<float> values(const Trade::MeshData& mesh, Attribute attribute) {
    return floats(mesh.attribute<T>(attribute));
}

std::vector<UnsignedInt> indices(const Trade::MeshData& mesh) { return items<UnsignedInt>(mesh.indicesAsArray()); }

TEST(AxisTest, contents) {
    const Trade::MeshData mesh = Primitives::axis3D();
    EXPECT_EQ(mesh.primitive(), MeshPrimitive::Lines);
    EXPECT_EQ(mesh.vertexCount(), 12u);
    EXPECT_EQ(mesh.indexType(), MeshIndexType::UnsignedShort);
    EXPECT_EQ(layout(mesh), "Position Vector3 @0, Color Vector3 @12, stride 24");
    EXPECT_THAT(indices(mesh), testing::ElementsAre(0, 1, 1, 2, 1, 3, 4, 5, 5, 6, 5, 7, 8, 9, 9, 10, 9, 11));
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Position),
        nearly({0, 0, 0, 1, 0, 0, 0.9f, 0.1f, 0, 0.9f, -0.1f, 0, 0, 0, 0, 0, 1, 0, 0.1f, 0.9f, 0, -0.1f, 0.9f, 0, 0, 0,
            0, 0, 0, 1, 0.1f, 0, 0.9f, -0.1f, 0, 0.9f}));
    const auto colors = mesh.attribute<Color3>(Attribute::Color);
    for(UnsignedInt i = 0; i != 12; ++i) {
        Color3 expected;
        expected[i / 4] = 1.0f;
        EXPECT_EQ(colors[i], expected);
    }
}

TEST(CubeTest, solid) {
    const Trade::MeshData mesh = Primitives::cubeSolid();
    EXPECT_EQ(mesh.primitive(), MeshPrimitive::Triangles);
    EXPECT_EQ(mesh.vertexCount(), 24u);
    EXPECT_EQ(mesh.indexType(), MeshIndexType::UnsignedShort);
    EXPECT_EQ(layout(mesh), "Position Vector3 @0, Normal Vector3 @12, stride 24");
    EXPECT_THAT(indices(mesh),
        testing::ElementsAre(0, 1, 2, 0, 2, 3, 4, 5, 6, 4, 6, 7, 8, 9, 10, 8, 10, 11, 12, 13, 14, 12, 14, 15, 16, 17,
            18, 16, 18, 19, 20, 21, 22, 20, 22, 23));
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Position),
        nearly({-1, -1, 1, 1, -1, 1, 1, 1, 1, -1, 1, 1, 1, -1, 1, 1, -1, -1, 1, 1, -1, 1, 1, 1, -1, 1, 1, 1, 1, 1, 1, 1,
            -1, -1, 1, -1, 1, -1, -1, -1, -1, -1, -1, 1, -1, 1, 1, -1, -1, -1, -1, 1, -1, -1, 1, -1, 1, -1, -1, 1, -1,
            -1, -1, -1, -1, 1, -1, 1, 1, -1, 1, -1}));
    const Vector3 faceNormals[]{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}, {0, 0, -1}, {0, -1, 0}, {-1, 0, 0}};
    const auto normals = mesh.attribute<Vector3>(Attribute::Normal);
    for(UnsignedInt i = 0; i != 24; ++i) EXPECT_EQ(normals[i], faceNormals[i / 4]);
}

TEST(CubeTest, wireframe) {
    const Trade::MeshData mesh = Primitives::cubeWireframe();
    EXPECT_EQ(mesh.primitive(), MeshPrimitive::Lines);
    EXPECT_EQ(mesh.indexType(), MeshIndexType::UnsignedShort);
    EXPECT_EQ(layout(mesh), "Position Vector3 @0, stride 12");
    EXPECT_THAT(
        indices(mesh), testing::ElementsAre(0, 1, 1, 2, 2, 3, 3, 0, 4, 5, 5, 6, 6, 7, 7, 4, 1, 5, 2, 6, 0, 4, 3, 7));
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Position),
        nearly({-1, -1, 1, 1, -1, 1, 1, 1, 1, -1, 1, 1, -1, -1, -1, 1, -1, -1, 1, 1, -1, -1, 1, -1}));
}

TEST(PlaneTest, solid) {
    const Trade::MeshData mesh = Primitives::planeSolid();
    EXPECT_EQ(mesh.primitive(), MeshPrimitive::TriangleStrip);
    EXPECT_FALSE(mesh.isIndexed());
    EXPECT_EQ(mesh.vertexDataFlags(), Trade::DataFlag::Global);
    EXPECT_EQ(layout(mesh), "Position Vector3 @0, Normal Vector3 @12, stride 24");
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Position), nearly({1, -1, 0, 1, 1, 0, -1, -1, 0, -1, 1, 0}));
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Normal), nearly({0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1}));
}

TEST(PrimitivesTest, staticDataCannotBeChanged) {
    for(const auto generate: {Primitives::axis3D, Primitives::cubeSolid, Primitives::cubeWireframe}) {
        Trade::MeshData mesh = generate();
        EXPECT_EQ(mesh.indexDataFlags(), Trade::DataFlag::Global);
        EXPECT_EQ(mesh.vertexDataFlags(), Trade::DataFlag::Global);
        EXPECT_ABORT(mesh.mutableVertexData(), "Trade::MeshData::mutableVertexData(): vertex data not mutable");
    }
}

TEST(PrimitivesTest, generatedDataCanBeChanged) {
    for(const Trade::DataFlags flags:
        {Primitives::uvSphereSolid(8, 8).vertexDataFlags(), Primitives::uvSphereSolid(8, 8).indexDataFlags(),
            Primitives::uvSphereWireframe(8, 8).vertexDataFlags(), Primitives::uvSphereWireframe(8, 8).indexDataFlags(),
            Primitives::cylinderSolid(1, 8, 1.0f).vertexDataFlags(),
            Primitives::cylinderSolid(1, 8, 1.0f).indexDataFlags(), Primitives::coneSolid(1, 8, 1.0f).vertexDataFlags(),
            Primitives::coneSolid(1, 8, 1.0f).indexDataFlags()})
        EXPECT_EQ(flags, Generated);
}

// Of a sphere or another solid around the origin.
void expectFacesPointOutwards(const Trade::MeshData& mesh) {
    const auto positions = mesh.positions3DAsArray();
    const auto faces = indices(mesh);
    for(std::size_t i = 0; i != faces.size(); i += 3) {
        const Vector3 a = positions[faces[i]], b = positions[faces[i + 1]], c = positions[faces[i + 2]];
        EXPECT_GE(Math::dot(Math::cross(b - a, c - a), a + b + c), -1.0e-6f) << "face " << i / 3;
    }
}

void expectUnitNormals(const Trade::MeshData& mesh) {
    for(const Vector3& normal: mesh.attribute<Vector3>(Attribute::Normal)) EXPECT_NEAR(normal.length(), 1.0f, 1.0e-5f);
}

TEST(UVSphereTest, lowSphere) {
    const Trade::MeshData mesh = Primitives::uvSphereSolid(8, 8);
    EXPECT_EQ(mesh.primitive(), MeshPrimitive::Triangles);
    EXPECT_EQ(mesh.vertexCount(), 58u);
    EXPECT_EQ(mesh.indexCount(), 336u);
    EXPECT_EQ(mesh.indexType(), MeshIndexType::UnsignedInt);
    EXPECT_EQ(mesh.indexOffset(), 0u);
    EXPECT_EQ(layout(mesh), "Position Vector3 @0, Normal Vector3 @12, stride 24");
    const auto positions = floats(mesh.attribute<Vector3>(Attribute::Position).prefix(3));
    EXPECT_THAT(positions, nearly({0, -1, 0, 0, -0.9238795f, 0.3826834f, 0.2705980f, -0.9238795f, 0.2705980f}));
    EXPECT_EQ(mesh.attribute<Vector3>(Attribute::Position)[57], (Vector3{0.0f, 1.0f, 0.0f}));
    const auto begin = indices(mesh);
    EXPECT_EQ(std::vector<UnsignedInt>(begin.begin(), begin.begin() + 6), (std::vector<UnsignedInt>{0, 2, 1, 0, 3, 2}));
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Normal), nearly(values<Vector3>(mesh, Attribute::Position)));
    expectFacesPointOutwards(mesh);
}

TEST(UVSphereTest, smoothSphere) {
    const Trade::MeshData mesh =
        Primitives::uvSphereSolid(24, 24, UVSphereFlag::TextureCoordinates | UVSphereFlag::Tangents);
    EXPECT_EQ(mesh.vertexCount(), 577u);
    EXPECT_EQ(mesh.indexCount(), 3312u);
    EXPECT_EQ(layout(mesh),
        "Position Vector3 @0, Normal Vector3 @12, Tangent Vector4 @24, TextureCoordinates Vector2 @40, stride 48");
    expectFacesPointOutwards(mesh);
    const auto normals = mesh.attribute<Vector3>(Attribute::Normal);
    const auto tangents = mesh.attribute<Vector4>(Attribute::Tangent);
    for(UnsignedInt i = 0; i != 577; ++i) {
        EXPECT_NEAR(tangents[i].xyz().length(), 1.0f, 1.0e-5f);
        EXPECT_NEAR(Math::dot(tangents[i].xyz(), normals[i]), 0.0f, 1.0e-5f);
        EXPECT_EQ(tangents[i].w(), 1.0f);
    }
}

TEST(UVSphereTest, allOfASmallOne) {
    const Trade::MeshData mesh =
        Primitives::uvSphereSolid(3, 4, UVSphereFlag::TextureCoordinates | UVSphereFlag::Tangents);
    const float r = 0.8660254f;
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Position),
        nearly({0, -1, 0, 0, -0.5f, r, r, -0.5f, 0, 0, -0.5f, -r, -r, -0.5f, 0, 0, -0.5f, r, 0, 0.5f, r, r, 0.5f, 0, 0,
            0.5f, -r, -r, 0.5f, 0, 0, 0.5f, r, 0, 1, 0}));
    EXPECT_THAT(values<Vector4>(mesh, Attribute::Tangent),
        nearly({-1, 0, 0, 1, 1, 0, 0, 1, 0, 0, -1, 1, -1, 0, 0, 1, 0, 0, 1, 1, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, -1, 1, -1,
            0, 0, 1, 0, 0, 1, 1, 1, 0, 0, 1, 1, 0, 0, 1}));
    const float a = 1.0f / 3.0f, b = 2.0f / 3.0f;
    EXPECT_THAT(values<Vector2>(mesh, Attribute::TextureCoordinates),
        nearly({0.5f, 0, 0, a, 0.25f, a, 0.5f, a, 0.75f, a, 1, a, 0, b, 0.25f, b, 0.5f, b, 0.75f, b, 1, b, 0.5f, 1}));
    EXPECT_THAT(indices(mesh),
        testing::ElementsAre(0, 2, 1, 0, 3, 2, 0, 4, 3, 0, 5, 4, 1, 2, 7, 1, 7, 6, 2, 3, 8, 2, 8, 7, 3, 4, 9, 3, 9, 8,
            4, 5, 10, 4, 10, 9, 6, 7, 11, 7, 8, 11, 8, 9, 11, 9, 10, 11));
}

TEST(UVSphereTest, ringsCloseWithoutFlags) {
    EXPECT_THAT(indices(Primitives::uvSphereSolid(3, 4)),
        testing::ElementsAre(0, 2, 1, 0, 3, 2, 0, 4, 3, 0, 1, 4, 1, 2, 6, 1, 6, 5, 2, 3, 7, 2, 7, 6, 3, 4, 8, 3, 8, 7,
            4, 1, 5, 4, 5, 8, 5, 6, 9, 6, 7, 9, 7, 8, 9, 8, 5, 9));
}

TEST(UVSphereTest, counts) {
    for(const UnsignedInt rings: {2, 3, 7}) {
        for(const UnsignedInt segments: {3, 4, 9}) {
            for(const UnsignedByte flags: {0, 1, 2, 3}) {
                const Trade::MeshData mesh = Primitives::uvSphereSolid(rings, segments, UVSphereFlag(flags));
                EXPECT_EQ(mesh.vertexCount(), (rings - 1) * (segments + (flags ? 1 : 0)) + 2);
                EXPECT_EQ(mesh.indexCount(), 6 * segments * (rings - 1));
                EXPECT_EQ(mesh.attributeStride(0), 24 + (flags & 1 ? 8 : 0) + (flags & 2 ? 16 : 0));
                EXPECT_EQ(mesh.hasAttribute(Attribute::TextureCoordinates), bool(flags & 1));
                EXPECT_EQ(mesh.hasAttribute(Attribute::Tangent), bool(flags & 2));
            }
        }
    }
    EXPECT_EQ(UnsignedInt(UVSphereFlag::TextureCoordinates), 1u);
    EXPECT_EQ(UnsignedInt(UVSphereFlag::Tangents), 2u);
}

TEST(UVSphereTest, wireframe) {
    const Trade::MeshData mesh = Primitives::uvSphereWireframe(8, 8);
    EXPECT_EQ(mesh.primitive(), MeshPrimitive::Lines);
    EXPECT_EQ(mesh.vertexCount(), 34u);
    EXPECT_EQ(mesh.indexCount(), 80u);
    EXPECT_EQ(mesh.indexType(), MeshIndexType::UnsignedInt);
    EXPECT_EQ(layout(mesh), "Position Vector3 @0, stride 12");
    for(const Vector3& position: mesh.attribute<Vector3>(Attribute::Position))
        EXPECT_NEAR(position.length(), 1.0f, 1.0e-6f);
}

TEST(UVSphereTest, allOfASmallWireframe) {
    const Trade::MeshData mesh = Primitives::uvSphereWireframe(4, 8);
    const float r = 0.7071068f;
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Position),
        nearly({0, -1, 0, 0, -r, r, r, -r, 0, 0, -r, -r, -r, -r, 0, 0, 0, 1, 1, 0, 0, 0, 0, -1, -1, 0, 0, r, 0, r, r, 0,
            -r, -r, 0, -r, -r, 0, r, 0, r, r, r, r, 0, 0, r, -r, -r, r, 0, 0, 1, 0}));
    EXPECT_THAT(indices(mesh),
        testing::ElementsAre(0, 1, 0, 2, 0, 3, 0, 4, 1, 5, 2, 6, 3, 7, 4, 8, 5, 9, 6, 10, 7, 11, 8, 12, 9, 6, 10, 7, 11,
            8, 12, 5, 5, 13, 6, 14, 7, 15, 8, 16, 13, 17, 14, 17, 15, 17, 16, 17));
    EXPECT_THAT(indices(Primitives::uvSphereWireframe(2, 4)),
        testing::ElementsAre(0, 1, 0, 2, 0, 3, 0, 4, 1, 2, 2, 3, 3, 4, 4, 1, 1, 5, 2, 5, 3, 5, 4, 5));
    EXPECT_THAT(indices(Primitives::uvSphereWireframe(2, 16)),
        testing::ElementsAre(0, 1, 0, 2, 0, 3, 0, 4, 1, 5, 2, 6, 3, 7, 4, 8, 5, 9, 6, 10, 7, 11, 8, 12, 9, 13, 10, 14,
            11, 15, 12, 16, 13, 2, 14, 3, 15, 4, 16, 1, 1, 17, 2, 17, 3, 17, 4, 17));
}

TEST(UVSphereTest, asserts) {
    const struct {
        UnsignedInt rings, segments;
        const char* numbers;
    } solid[]{{1, 3, "1 and 3"}, {2, 2, "2 and 2"}},
        wireframe[]{{1, 4, "1 and 4"}, {2, 6, "2 and 6"}, {0, 4, "0 and 4"}};
    for(const auto& i: solid)
        EXPECT_ABORT(Primitives::uvSphereSolid(i.rings, i.segments),
            std::string{"Primitives::uvSphereSolid(): expected at least two rings and three segments but got "} +
                i.numbers);
    for(const auto& i: wireframe)
        EXPECT_ABORT(Primitives::uvSphereWireframe(i.rings, i.segments),
            std::string{"Primitives::uvSphereWireframe(): expected multiples of 2 rings and multiples of 4 segments "
                        "but got "} +
                i.numbers);
}

TEST(CylinderTest, capped) {
    const Trade::MeshData mesh = Primitives::cylinderSolid(1, 8, 3.22f, CylinderFlag::CapEnds);
    EXPECT_EQ(mesh.vertexCount(), 34u);
    EXPECT_EQ(mesh.indexCount(), 96u);
    EXPECT_EQ(mesh.indexType(), MeshIndexType::UnsignedInt);
    EXPECT_EQ(layout(mesh), "Position Vector3 @0, Normal Vector3 @12, stride 24");
    const auto positions = mesh.attribute<Vector3>(Attribute::Position);
    EXPECT_EQ(positions[0], (Vector3{0.0f, -3.22f, 0.0f}));
    Vector3 min, max;
    for(const Vector3& position: positions) {
        min = Math::min(min, position);
        max = Math::max(max, position);
    }
    EXPECT_EQ(min, (Vector3{-1.0f, -3.22f, -1.0f}));
    EXPECT_EQ(max, (Vector3{1.0f, 3.22f, 1.0f}));
    expectUnitNormals(mesh);
    expectFacesPointOutwards(mesh);
}

TEST(CylinderTest, allOfASmallOne) {
    const Trade::MeshData mesh = Primitives::cylinderSolid(
        1, 3, 1.0f, CylinderFlag::CapEnds | CylinderFlag::TextureCoordinates | CylinderFlag::Tangents);
    EXPECT_EQ(layout(mesh),
        "Position Vector3 @0, Normal Vector3 @12, Tangent Vector4 @24, TextureCoordinates Vector2 @40, stride 48");
    const float r = 0.8660254f, h = -0.5f;
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Position),
        nearly({0, -1, 0, 0, -1, 1, r, -1, h, -r, -1, h, 0, -1, 1, 0, -1, 1, r, -1, h, -r, -1, h, 0, -1, 1, 0, 1, 1, r,
            1, h, -r, 1, h, 0, 1, 1, 0, 1, 1, r, 1, h, -r, 1, h, 0, 1, 1, 0, 1, 0}));
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Normal),
        nearly({0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, 0, 1, r, 0, h, -r, 0, h, 0, 0, 1, 0, 0, 1, r, 0, h,
            -r, 0, h, 0, 0, 1, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0}));
    std::vector<float> tangents{-1, 0, 0, 1};
    for(int ring = 0; ring != 4; ++ring)
        for(const float value: {1.0f, 0.0f, 0.0f, 1.0f, h, 0.0f, -r, 1.0f, h, 0.0f, r, 1.0f, 1.0f, 0.0f, 0.0f, 1.0f})
            tangents.push_back(value);
    for(const float value: {1.0f, 0.0f, 0.0f, 1.0f}) tangents.push_back(value);
    EXPECT_THAT(values<Vector4>(mesh, Attribute::Tangent), nearly(tangents));
    const float t = 1.0f / 3.0f, u = 2.0f / 3.0f;
    EXPECT_THAT(values<Vector2>(mesh, Attribute::TextureCoordinates),
        nearly({0.5f, 0, 0, 0.25f, t, 0.25f, u, 0.25f, 1, 0.25f, 0, 0.25f, t, 0.25f, u, 0.25f, 1, 0.25f, 0, 0.75f, t,
            0.75f, u, 0.75f, 1, 0.75f, 0, 0.75f, t, 0.75f, u, 0.75f, 1, 0.75f, 0.5f, 1}));
    EXPECT_THAT(indices(mesh),
        testing::ElementsAre(0, 2, 1, 0, 3, 2, 0, 4, 3, 5, 6, 10, 5, 10, 9, 6, 7, 11, 6, 11, 10, 7, 8, 12, 7, 12, 11,
            13, 14, 17, 14, 15, 17, 15, 16, 17));
}

TEST(CylinderTest, openOnes) {
    const Trade::MeshData mesh = Primitives::cylinderSolid(1, 4, 2.0f);
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Position),
        nearly({0, -2, 1, 1, -2, 0, 0, -2, -1, -1, -2, 0, 0, 2, 1, 1, 2, 0, 0, 2, -1, -1, 2, 0}));
    EXPECT_THAT(
        indices(mesh), testing::ElementsAre(0, 1, 5, 0, 5, 4, 1, 2, 6, 1, 6, 5, 2, 3, 7, 2, 7, 6, 3, 0, 4, 3, 4, 7));
    EXPECT_THAT(values<Vector2>(Primitives::cylinderSolid(2, 3, 5.0f, CylinderFlag::TextureCoordinates),
                    Attribute::TextureCoordinates),
        nearly({0, 0, 1 / 3.0f, 0, 2 / 3.0f, 0, 1, 0, 0, 0.5f, 1 / 3.0f, 0.5f, 2 / 3.0f, 0.5f, 1, 0.5f, 0, 1, 1 / 3.0f,
            1, 2 / 3.0f, 1, 1, 1}));
}

TEST(CylinderTest, asserts) {
    EXPECT_ABORT(Primitives::cylinderSolid(0, 3, 1.0f),
        "Primitives::cylinderSolid(): expected at least one ring and three segments but got 0 and 3");
    EXPECT_ABORT(Primitives::cylinderSolid(1, 2, 1.0f),
        "Primitives::cylinderSolid(): expected at least one ring and three segments but got 1 and 2");
    EXPECT_EQ(UnsignedInt(CylinderFlag::TextureCoordinates), 1u);
    EXPECT_EQ(UnsignedInt(CylinderFlag::Tangents), 2u);
    EXPECT_EQ(UnsignedInt(CylinderFlag::CapEnds), 4u);
}

TEST(ConeTest, capped) {
    const Trade::MeshData mesh = Primitives::coneSolid(1, 8, 1.0f, ConeFlag::CapEnd);
    EXPECT_EQ(mesh.vertexCount(), 25u);
    EXPECT_EQ(mesh.indexCount(), 72u);
    EXPECT_EQ(mesh.indexType(), MeshIndexType::UnsignedInt);
    expectUnitNormals(mesh);
    expectFacesPointOutwards(mesh);
}

TEST(ConeTest, allOfASmallOne) {
    const Trade::MeshData mesh =
        Primitives::coneSolid(2, 3, 1.0f, ConeFlag::CapEnd | ConeFlag::TextureCoordinates | ConeFlag::Tangents);
    EXPECT_EQ(layout(mesh),
        "Position Vector3 @0, Normal Vector3 @12, Tangent Vector4 @24, TextureCoordinates Vector2 @40, stride 48");
    const float r = 0.8660254f, q = 0.4330127f;
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Position),
        nearly({0, -1, 0, 0, -1, 1, r, -1, -0.5f, -r, -1, -0.5f, 0, -1, 1, 0, -1, 1, r, -1, -0.5f, -r, -1, -0.5f, 0, -1,
            1, 0, 0, 0.5f, q, 0, -0.25f, -q, 0, -0.25f, 0, 0, 0.5f, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0}));
    std::vector<float> normals;
    for(int i = 0; i != 5; ++i) normals.insert(normals.end(), {0, -1, 0});
    const float n = 0.4472136f, m = 0.8944272f, k = 0.7745967f;
    for(int ring = 0; ring != 3; ++ring) normals.insert(normals.end(), {0, n, m, k, n, -n, -k, n, -n, 0, n, m});
    EXPECT_THAT(values<Vector3>(mesh, Attribute::Normal), nearly(normals));
    const float t = 1.0f / 3.0f, u = 2.0f / 3.0f;
    EXPECT_THAT(values<Vector2>(mesh, Attribute::TextureCoordinates),
        nearly(
            {0.5f, 0, 0, t, t, t, u, t, 1, t, 0, t, t, t, u, t, 1, t, 0, u, t, u, u, u, 1, u, 0, 1, t, 1, u, 1, 1, 1}));
    EXPECT_THAT(indices(mesh),
        testing::ElementsAre(0, 2, 1, 0, 3, 2, 0, 4, 3, 5, 6, 10, 5, 10, 9, 6, 7, 11, 6, 11, 10, 7, 8, 12, 7, 12, 11, 9,
            10, 14, 9, 14, 13, 10, 11, 15, 10, 15, 14, 11, 12, 16, 11, 16, 15));
}

TEST(ConeTest, asserts) {
    EXPECT_ABORT(Primitives::coneSolid(0, 3, 1.0f),
        "Primitives::coneSolid(): expected at least one ring and three segments but got 0 and 3");
    EXPECT_ABORT(Primitives::coneSolid(1, 2, 1.0f),
        "Primitives::coneSolid(): expected at least one ring and three segments but got 1 and 2");
    EXPECT_EQ(UnsignedInt(ConeFlag::TextureCoordinates), 1u);
    EXPECT_EQ(UnsignedInt(ConeFlag::Tangents), 2u);
    EXPECT_EQ(UnsignedInt(ConeFlag::CapEnd), 4u);
}

// A capped cylinder and a capped cone whose positions were changed, in one mesh: an arrow down the Y axis.
TEST(PrimitivesTest, arrow) {
    Trade::MeshData shaft = Primitives::cylinderSolid(1, 8, 3.22f, CylinderFlag::CapEnds);
    for(Vector3& position: shaft.mutableAttribute<Vector3>(Attribute::Position))
        position = {-position.x() / 3.22f, (-position.y() - 2.61f) / 3.22f, -position.z() / 3.22f};
    Trade::MeshData tip = Primitives::coneSolid(1, 8, 1.0f, ConeFlag::CapEnd);
    for(Vector3& position: tip.mutableAttribute<Vector3>(Attribute::Position))
        position = {position.x() / 1.61f, -position.y() / 1.61f - 2.310559f, position.z() / 1.61f};
    const Trade::MeshData arrow = MeshTools::concatenate({shaft, tip});

    EXPECT_EQ(arrow.primitive(), MeshPrimitive::Triangles);
    EXPECT_EQ(arrow.vertexCount(), 59u);
    EXPECT_EQ(arrow.indexCount(), 168u);
    EXPECT_EQ(arrow.indexType(), MeshIndexType::UnsignedInt);
    EXPECT_EQ(layout(arrow), "Position Vector3 @0, Normal Vector3 @12, stride 24");
    Vector3 min, max;
    for(const Vector3& position: arrow.attribute<Vector3>(Attribute::Position)) {
        min = Math::min(min, position);
        max = Math::max(max, position);
    }
    EXPECT_NEAR(min.x(), -0.621118f, 1.0e-5f);
    EXPECT_NEAR(max.x(), 0.621118f, 1.0e-5f);
    EXPECT_NEAR(min.y(), -2.93168f, 1.0e-5f);
    EXPECT_NEAR(max.y(), 0.189441f, 1.0e-5f);
    EXPECT_NEAR(min.z(), -0.621118f, 1.0e-5f);
    EXPECT_NEAR(max.z(), 0.621118f, 1.0e-5f);
    // The normals are those of the parts, whatever happened to the positions.
    EXPECT_EQ(arrow.attribute<Vector3>(Attribute::Normal)[0], (Vector3{0.0f, -1.0f, 0.0f}));
    EXPECT_EQ(arrow.attribute<Vector3>(Attribute::Normal)[34], (Vector3{0.0f, -1.0f, 0.0f}));
}

}
