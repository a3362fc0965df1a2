#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Iterable.h>
#include <Corrade/Containers/Reference.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/MeshTools/Concatenate.h>
#include <Magnum/MeshTools/Transform.h>
#include <Magnum/Trade/MeshData.h>

#include "Expect.h"

using namespace Corrade;
using namespace Magnum;
using namespace Magnum::Math::Literals;
using SceneTest::floats;
using SceneTest::items;
using Trade::DataFlag;
using Trade::DataFlags;
using Trade::MeshAttribute;
using Trade::MeshAttributeData;
using Trade::MeshData;
using Trade::MeshIndexData;

namespace {

// With padding in front of the last attribute.
struct Vertex {
    Vector3 position;
    UnsignedByte padding[5];
    Vector2us textureCoordinates;
};

const Vertex Vertices[]{{{0, 1, 2}, {77, 77, 77, 77, 77}, {0, 65535}},
    {{1, 1, 2}, {77, 77, 77, 77, 77}, {65535, 13107}}, {{2, 1, 2}, {77, 77, 77, 77, 77}, {0, 0}}};
const UnsignedByte Indices[]{1, 2, 2, 0};
const Vector3 Points[]{{9, 9, 9}, {8, 8, 8}};

const auto VertexView = Containers::stridedArrayView(Vertices);

Containers::Array<MeshAttributeData> texturedAttributes() {
    return Containers::array({MeshAttributeData{MeshAttribute::Position, VertexView.slice(&Vertex::position)},
        MeshAttributeData{MeshAttribute::TextureCoordinates, VertexFormat::Vector2usNormalized,
            VertexView.slice(&Vertex::textureCoordinates)}});
}

MeshData textured(MeshPrimitive primitive = MeshPrimitive::Lines) {
    return MeshData{primitive, DataFlags{}, Vertices, texturedAttributes()};
}

MeshData texturedIndexed() {
    return MeshData{MeshPrimitive::Lines, DataFlags{}, Indices, MeshIndexData{Indices}, DataFlags{}, Vertices,
        texturedAttributes()};
}

MeshData plain() {
    return MeshData{MeshPrimitive::Lines, DataFlags{}, Points,
        {MeshAttributeData{MeshAttribute::Position, Containers::stridedArrayView(Points)}}};
}

template<class... Meshes> MeshData concatenated(const Meshes&... meshes) { return MeshTools::concatenate({meshes...}); }

TEST(ConcatenateTest, indicesOfTheSecondMeshAreOffset) {
    const MeshData mesh = concatenated(texturedIndexed(), texturedIndexed());
    EXPECT_EQ(mesh.primitive(), MeshPrimitive::Lines);
    EXPECT_EQ(mesh.vertexCount(), 6u);
    EXPECT_EQ(mesh.indexType(), MeshIndexType::UnsignedInt);
    EXPECT_EQ(mesh.indexStride(), 4);
    EXPECT_THAT(items<UnsignedInt>(mesh.indices<UnsignedInt>()), testing::ElementsAre(1, 2, 2, 0, 4, 5, 5, 3));
    EXPECT_EQ(mesh.indexDataFlags(), DataFlag::Owned | DataFlag::Mutable);
    EXPECT_EQ(mesh.vertexDataFlags(), DataFlag::Owned | DataFlag::Mutable);
}

TEST(ConcatenateTest, takesReferencesToo) {
    const MeshData a = texturedIndexed();
    const MeshData b = plain();
    const Containers::Reference<const MeshData> meshes[]{a, b, a};
    EXPECT_EQ(MeshTools::concatenate(meshes).vertexCount(), 8u);
    EXPECT_EQ(MeshTools::concatenate({a, b}).vertexCount(), 5u);
}

TEST(ConcatenateTest, layoutOfTheFirstIsKept) {
    const MeshData mesh = concatenated(textured(), textured());
    EXPECT_FALSE(mesh.isIndexed());
    EXPECT_EQ(mesh.attributeCount(), 2u);
    EXPECT_EQ(mesh.attributeOffset(MeshAttribute::Position), 0u);
    EXPECT_EQ(mesh.attributeOffset(MeshAttribute::TextureCoordinates), offsetof(Vertex, textureCoordinates));
    EXPECT_EQ(mesh.attributeStride(0), Short(sizeof(Vertex)));
    EXPECT_EQ(mesh.attributeStride(1), Short(sizeof(Vertex)));
    EXPECT_EQ(mesh.vertexData().size(), 6 * sizeof(Vertex));
    EXPECT_EQ(mesh.vertexData()[offsetof(Vertex, padding)], 0);
    EXPECT_EQ(mesh.attributeFormat(1), VertexFormat::Vector2usNormalized);
    EXPECT_EQ(mesh.attribute<Vector2us>(1)[4], (Vector2us{65535, 13107}));
}

TEST(ConcatenateTest, layoutIsPackedOnRequest) {
    const MeshData a = textured();
    const MeshData b = textured();
    const MeshData mesh = MeshTools::concatenate({a, b}, MeshTools::InterleaveFlags{});
    EXPECT_EQ(mesh.attributeOffset(1), 12u);
    EXPECT_EQ(mesh.attributeStride(0), 16);
    EXPECT_EQ(mesh.attribute<Vector2us>(1)[4], (Vector2us{65535, 13107}));
    EXPECT_EQ(UnsignedInt(MeshTools::InterleaveFlag::PreserveInterleavedAttributes), 1u);
}

TEST(ConcatenateTest, attributesAfterEachOtherAreInterleaved) {
    char data[100]{};
    const MeshData separate{MeshPrimitive::Lines, DataFlags{}, data,
        {MeshAttributeData{MeshAttribute::Position, VertexFormat::Vector3, 0, 2, 12},
            MeshAttributeData{MeshAttribute::Normal, VertexFormat::Vector3, 24, 2, 12}}};
    const MeshData mesh = concatenated(separate);
    EXPECT_EQ(mesh.attributeOffset(1), 12u);
    EXPECT_EQ(mesh.attributeStride(0), 24);
}

TEST(ConcatenateTest, whatTheFirstAttributeStartsWithIsDropped) {
    char data[200]{};
    const MeshData late{MeshPrimitive::Lines, DataFlags{}, data,
        {MeshAttributeData{MeshAttribute::Position, VertexFormat::Vector3, 20, 2, 40},
            MeshAttributeData{MeshAttribute::Normal, VertexFormat::Vector3, 36, 2, 40}}};
    const MeshData mesh = concatenated(late);
    EXPECT_EQ(mesh.attributeOffset(0), 0u);
    EXPECT_EQ(mesh.attributeOffset(1), 16u);
    EXPECT_EQ(mesh.attributeStride(0), 40);
    EXPECT_EQ(mesh.vertexData().size(), 80u);
}

TEST(ConcatenateTest, missingAttributesAreZero) {
    const MeshData mesh = concatenated(texturedIndexed(), plain());
    EXPECT_EQ(mesh.attributeCount(), 2u);
    EXPECT_THAT(floats(mesh.positions3DAsArray()), testing::ElementsAre(0, 1, 2, 1, 1, 2, 2, 1, 2, 9, 9, 9, 8, 8, 8));
    EXPECT_THAT(floats(mesh.textureCoordinates2DAsArray()),
        testing::Pointwise(testing::FloatNear(1.0e-6f), (std::vector<float>{0, 1, 1, 0.2f, 0, 0, 0, 0, 0, 0})));
}

TEST(ConcatenateTest, furtherAttributesAreDropped) {
    const MeshData mesh = concatenated(plain(), textured());
    EXPECT_EQ(mesh.attributeCount(), 1u);
    EXPECT_EQ(mesh.attributeStride(0), 12);
    EXPECT_THAT(floats(mesh.positions3DAsArray()), testing::ElementsAre(9, 9, 9, 8, 8, 8, 0, 1, 2, 1, 1, 2, 2, 1, 2));
}

TEST(ConcatenateTest, oneIndexedMeshMakesAllIndexed) {
    EXPECT_THAT(items<UnsignedInt>(concatenated(texturedIndexed(), plain()).indicesAsArray()),
        testing::ElementsAre(1, 2, 2, 0, 3, 4));
    EXPECT_THAT(items<UnsignedInt>(concatenated(plain(), texturedIndexed()).indicesAsArray()),
        testing::ElementsAre(0, 1, 3, 4, 4, 2));
    EXPECT_FALSE(concatenated(textured(), plain()).isIndexed());
}

TEST(ConcatenateTest, morphTargetsAreTheirOwnAttributes) {
    char data[100]{};
    data[47] = 0x40;
    const auto morphed = [&](Int target) {
        return MeshData{MeshPrimitive::Points, DataFlags{}, data,
            {MeshAttributeData{MeshAttribute::Position, VertexFormat::Vector3, 0, 1, 60},
                MeshAttributeData{MeshAttribute::Position, VertexFormat::Vector3, 44, 1, 60, 0, target}}};
    };
    const MeshData mesh = concatenated(morphed(1), morphed(2), morphed(1));
    EXPECT_EQ(mesh.attributeCount(), 2u);
    EXPECT_EQ(mesh.attributeMorphTargetId(1), 1);
    EXPECT_THAT(floats(mesh.positions3DAsArray(0, 1)), testing::ElementsAre(2, 0, 0, 0, 0, 0, 2, 0, 0));
}

TEST(ConcatenateTest, shorterArraysAreFilledWithZeros) {
    const char data[100]{1, 2, 3, 4};
    const auto skinned = [&](UnsignedShort size) {
        return MeshData{MeshPrimitive::Points, DataFlags{}, data,
            {MeshAttributeData{MeshAttribute::JointIds, VertexFormat::UnsignedByte, 0, 1, 80, size},
                MeshAttributeData{MeshAttribute::Weights, VertexFormat::Float, 40, 1, 80, size}}};
    };
    EXPECT_THAT(items<UnsignedInt>(concatenated(skinned(4), skinned(2)).jointIdsAsArray()),
        testing::ElementsAre(1, 2, 3, 4, 1, 2, 0, 0));
    EXPECT_ABORT(concatenated(skinned(2), skinned(4)),
        "MeshTools::concatenate(): expected array size 2 or less for attribute 0 (Trade::MeshAttribute::JointIds) but "
        "got 4 in mesh 1 attribute 0");
}

TEST(ConcatenateTest, primitives) {
    EXPECT_ABORT(concatenated(textured(), textured(MeshPrimitive::TriangleStrip)),
        "MeshTools::concatenate(): expected MeshPrimitive::Lines but got MeshPrimitive::TriangleStrip in mesh 1");
    EXPECT_ABORT(concatenated(textured(), plain(), textured(MeshPrimitive::Points)),
        "MeshTools::concatenate(): expected MeshPrimitive::Lines but got MeshPrimitive::Points in mesh 2");
    for(const MeshPrimitive primitive:
        {MeshPrimitive::LineLoop, MeshPrimitive::LineStrip, MeshPrimitive::TriangleStrip, MeshPrimitive::TriangleFan})
        EXPECT_ABORT(concatenated(textured(primitive), textured(primitive)),
            "MeshTools::concatenate(): " + SceneTest::printed(primitive) +
                " is not supported, turn it into a plain indexed mesh first");
    EXPECT_EQ(concatenated(textured(MeshPrimitive::Points), textured(MeshPrimitive::Points)).primitive(),
        MeshPrimitive::Points);
}

TEST(ConcatenateTest, asserts) {
    EXPECT_ABORT(MeshTools::concatenate(Containers::Iterable<const MeshData>()),
        "MeshTools::concatenate(): expected at least one mesh");
    const Vector2 floats[2];
    const MeshData floatTextured{MeshPrimitive::Lines, DataFlags{}, floats,
        {MeshAttributeData{MeshAttribute::TextureCoordinates, Containers::stridedArrayView(floats)}}};
    EXPECT_ABORT(concatenated(textured(), floatTextured),
        "MeshTools::concatenate(): expected VertexFormat::Vector2usNormalized for attribute 1 "
        "(Trade::MeshAttribute::TextureCoordinates) but got VertexFormat::Vector2 in mesh 1 attribute 0");
}

TEST(TransformTest, points) {
    Vector3 points[]{{1, 2, 3}, {0, 0, 1}};
    MeshTools::transformPointsInPlace(
        Matrix4::translation({1, 2, 3}) * Matrix4::rotationX(90.0_degf) * Matrix4::scaling({1, 2, 3}), points);
    EXPECT_EQ(points[0], (Vector3{2, -7, 7}));
    EXPECT_EQ(points[1], (Vector3{1, -1, 3}));

    Vector3 others[]{{1, 2, 3}, {0, 0, 1}};
    MeshTools::transformPointsInPlace(
        DualQuaternion::translation({1, 0, 0}) * DualQuaternion::rotation(90.0_degf, Vector3::xAxis()),
        Containers::stridedArrayView(others));
    EXPECT_EQ(others[0], (Vector3{2, -3, 2}));
    EXPECT_EQ(others[1], (Vector3{1, -1, 0}));
}

TEST(TransformTest, pointsAreDividedByTheirDepth) {
    Vector3 points[]{{1, 2, 3}};
    MeshTools::transformPointsInPlace(Matrix4::perspectiveProjection(90.0_degf, 1.0f, 1.0f, 10.0f), points);
    EXPECT_EQ(points[0], (Vector3{-0.3333333f, -0.6666667f, 1.9629630f}));
}

TEST(TransformTest, vectors) {
    Vector3 vectors[]{{1, 2, 3}};
    MeshTools::transformVectorsInPlace(
        Matrix4::translation({1, 2, 3}) * Matrix4::rotationX(90.0_degf) * Matrix4::scaling({1, 2, 3}), vectors);
    EXPECT_EQ(vectors[0], (Vector3{1, -9, 4}));
    Vector3 rotated[]{{1, 2, 3}};
    MeshTools::transformVectorsInPlace(Quaternion::rotation(90.0_degf, Vector3::xAxis()), rotated);
    EXPECT_EQ(rotated[0], (Vector3{1, -3, 2}));
}

}
