#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Optional.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Half.h>
#include <Magnum/Trade/MeshData.h>

#include "Expect.h"

// What meshes are made of, and what cannot be made.

using namespace Corrade;
using namespace Magnum;
using SceneTest::items;
using SceneTest::printed;
using Trade::DataFlag;
using Trade::DataFlags;
using Trade::MeshAttribute;
using Trade::MeshAttributeData;
using Trade::MeshData;
using Trade::MeshIndexData;

namespace {

TEST(DataFlagTest, valuesAndNames) {
    EXPECT_EQ(UnsignedInt(DataFlag::Owned), 1u);
    EXPECT_EQ(UnsignedInt(DataFlag::Mutable), 4u);
    EXPECT_EQ(UnsignedInt(DataFlag::ExternallyOwned), 8u);
    EXPECT_EQ(UnsignedInt(DataFlag::Global), 16u);
    EXPECT_EQ(printed(DataFlag::ExternallyOwned), "Trade::DataFlag::ExternallyOwned");
    EXPECT_EQ(printed(DataFlag(2)), "Trade::DataFlag(0x2)");
    EXPECT_EQ(printed(DataFlags{}), "Trade::DataFlags{}");
    EXPECT_EQ(printed(DataFlag::Mutable | DataFlag::Global | DataFlag::Owned),
        "Trade::DataFlag::Owned|Trade::DataFlag::Global|Trade::DataFlag::Mutable");
}

TEST(MeshAttributeTest, valuesAndNames) {
    const char* const names[]{
        "Position", "Tangent", "Bitangent", "Normal", "TextureCoordinates", "Color", "JointIds", "Weights", "ObjectId"};
    for(UnsignedInt i = 0; i != std::size(names); ++i)
        EXPECT_EQ(printed(MeshAttribute(i + 1)), std::string{"Trade::MeshAttribute::"} + names[i]);
    EXPECT_EQ(UnsignedInt(MeshAttribute::Position), 1u);
    EXPECT_EQ(UnsignedInt(MeshAttribute::Normal), 4u);
    EXPECT_EQ(UnsignedInt(MeshAttribute::JointIds), 7u);
    EXPECT_EQ(UnsignedInt(MeshAttribute::ObjectId), 9u);
    EXPECT_EQ(printed(MeshAttribute(0xabc)), "Trade::MeshAttribute(0xabc)");
}

TEST(MeshAttributeTest, custom) {
    constexpr MeshAttribute custom = Trade::meshAttributeCustom(3);
    EXPECT_EQ(UnsignedInt(custom), 32771u);
    EXPECT_EQ(printed(custom), "Trade::MeshAttribute::Custom(3)");
    EXPECT_TRUE(Trade::isMeshAttributeCustom(custom));
    EXPECT_FALSE(Trade::isMeshAttributeCustom(MeshAttribute::ObjectId));
    EXPECT_ABORT(Trade::meshAttributeCustom(32768), "Trade::meshAttributeCustom(): index 32768 too large");
}

MeshAttributeData offsetOnly(MeshAttribute name, VertexFormat format, std::size_t offset, UnsignedInt vertexCount = 2,
    std::ptrdiff_t stride = 100, UnsignedShort arraySize = 0, Int morphTarget = -1) {
    return MeshAttributeData{name, format, offset, vertexCount, stride, arraySize, morphTarget};
}

struct AllowedFormats {
    MeshAttribute name;
    std::vector<VertexFormat> formats;
};

const AllowedFormats Allowed[]{
    {MeshAttribute::Position,
        {VertexFormat::Vector2, VertexFormat::Vector2h, VertexFormat::Vector2ub, VertexFormat::Vector2ubNormalized,
            VertexFormat::Vector2b, VertexFormat::Vector2bNormalized, VertexFormat::Vector2us,
            VertexFormat::Vector2usNormalized, VertexFormat::Vector2s, VertexFormat::Vector2sNormalized,
            VertexFormat::Vector3, VertexFormat::Vector3h, VertexFormat::Vector3ub, VertexFormat::Vector3ubNormalized,
            VertexFormat::Vector3b, VertexFormat::Vector3bNormalized, VertexFormat::Vector3us,
            VertexFormat::Vector3usNormalized, VertexFormat::Vector3s, VertexFormat::Vector3sNormalized}},
    {MeshAttribute::Tangent,
        {VertexFormat::Vector3, VertexFormat::Vector3h, VertexFormat::Vector3bNormalized,
            VertexFormat::Vector3sNormalized, VertexFormat::Vector4, VertexFormat::Vector4h,
            VertexFormat::Vector4bNormalized, VertexFormat::Vector4sNormalized}},
    {MeshAttribute::Bitangent,
        {VertexFormat::Vector3, VertexFormat::Vector3h, VertexFormat::Vector3bNormalized,
            VertexFormat::Vector3sNormalized}},
    {MeshAttribute::Normal,
        {VertexFormat::Vector3, VertexFormat::Vector3h, VertexFormat::Vector3bNormalized,
            VertexFormat::Vector3sNormalized}},
    {MeshAttribute::TextureCoordinates,
        {VertexFormat::Vector2, VertexFormat::Vector2h, VertexFormat::Vector2ub, VertexFormat::Vector2ubNormalized,
            VertexFormat::Vector2b, VertexFormat::Vector2bNormalized, VertexFormat::Vector2us,
            VertexFormat::Vector2usNormalized, VertexFormat::Vector2s, VertexFormat::Vector2sNormalized}},
    {MeshAttribute::Color,
        {VertexFormat::Vector3, VertexFormat::Vector3h, VertexFormat::Vector3ubNormalized,
            VertexFormat::Vector3usNormalized, VertexFormat::Vector4, VertexFormat::Vector4h,
            VertexFormat::Vector4ubNormalized, VertexFormat::Vector4usNormalized}},
    {MeshAttribute::JointIds, {VertexFormat::UnsignedByte, VertexFormat::UnsignedShort, VertexFormat::UnsignedInt}},
    {MeshAttribute::Weights,
        {VertexFormat::Float, VertexFormat::Half, VertexFormat::UnsignedByteNormalized,
            VertexFormat::UnsignedShortNormalized}},
    {MeshAttribute::ObjectId, {VertexFormat::UnsignedByte, VertexFormat::UnsignedShort, VertexFormat::UnsignedInt}},
};

TEST(MeshAttributeDataTest, formats) {
    for(const AllowedFormats& allowed: Allowed) {
        for(UnsignedInt i = 1; i != 53; ++i) {
            const auto format = VertexFormat(i);
            const bool isAllowed =
                std::find(allowed.formats.begin(), allowed.formats.end(), format) != allowed.formats.end();
            // A child process for each of the others takes long: those of three components, where names differ most.
            if(isAllowed) {
                offsetOnly(allowed.name, format, 0);
            } else if(vertexFormatComponentCount(format) == 3) {
                EXPECT_ABORT(offsetOnly(allowed.name, format, 0),
                    "Trade::MeshAttributeData: " + printed(format) + " is not a valid format for " +
                        printed(allowed.name));
            }
        }
    }
    EXPECT_ABORT(offsetOnly(MeshAttribute::Position, VertexFormat::Vector4, 0),
        "Trade::MeshAttributeData: VertexFormat::Vector4 is not a valid format for Trade::MeshAttribute::Position");
    EXPECT_ABORT(offsetOnly(MeshAttribute::Position, VertexFormat::Vector2d, 0),
        "Trade::MeshAttributeData: VertexFormat::Vector2d is not a valid format for Trade::MeshAttribute::Position");
    EXPECT_ABORT(offsetOnly(MeshAttribute::ObjectId, VertexFormat::Int, 0),
        "Trade::MeshAttributeData: VertexFormat::Int is not a valid format for Trade::MeshAttribute::ObjectId");
    EXPECT_ABORT(offsetOnly(MeshAttribute{}, VertexFormat::Vector3, 0),
        "Trade::MeshAttributeData: VertexFormat::Vector3 is not a valid format for Trade::MeshAttribute(0x0)");
}

TEST(MeshAttributeDataTest, arraysAndMorphTargets) {
    for(const AllowedFormats& allowed: Allowed) {
        const bool isSkin = allowed.name == MeshAttribute::JointIds || allowed.name == MeshAttribute::Weights;
        const bool canMorph = !isSkin && allowed.name != MeshAttribute::ObjectId;
        const VertexFormat format = allowed.formats.front();
        if(isSkin) {
            offsetOnly(allowed.name, format, 0, 2, 100, 4);
        } else {
            EXPECT_ABORT(offsetOnly(allowed.name, format, 0, 2, 100, 4),
                "Trade::MeshAttributeData: " + printed(allowed.name) + " can't be an array attribute");
        }
        if(canMorph) {
            offsetOnly(allowed.name, format, 0, 2, 100, 0, 127);
        } else {
            EXPECT_ABORT(offsetOnly(allowed.name, format, 0, 2, 100, 0, 1),
                "Trade::MeshAttributeData: morph target not allowed for " + printed(allowed.name));
        }
    }
    offsetOnly(Trade::meshAttributeCustom(1), VertexFormat::Double, 0, 2, 100, 17, 5);
    EXPECT_ABORT(offsetOnly(MeshAttribute::Position, VertexFormat::Vector3, 0, 2, 100, 0, 128),
        "Trade::MeshAttributeData: expected morph target ID to be either -1 or less than 128 but got 128");
}

TEST(MeshAttributeDataTest, strides) {
    offsetOnly(MeshAttribute::Position, VertexFormat::Vector3, 0, 2, 32767);
    EXPECT_ABORT(offsetOnly(MeshAttribute::Position, VertexFormat::Vector3, 0, 2, 32768),
        "Trade::MeshAttributeData: expected stride to fit into 16 bits but got 32768");
}

struct Vertex {
    Vector3 position;
    Vector2 textureCoordinates;
    Color4ub color;
};

const Vertex Vertices[]{{{1, 2, 3}, {0.25f, 0.5f}, {255, 0, 51, 102}}, {{4, 5, 6}, {0.75f, 1.0f}, {0, 255, 0, 255}},
    {{7, 8, 9}, {0.0f, 0.0f}, {0, 0, 255, 0}}};
const UnsignedShort Indices[]{2, 1, 0, 0, 1, 2};

const auto VertexView = Containers::stridedArrayView(Vertices);

MeshAttributeData positions() {
    return MeshAttributeData{MeshAttribute::Position, VertexView.slice(&Vertex::position)};
}

MeshAttributeData textureCoordinates() {
    return MeshAttributeData{MeshAttribute::TextureCoordinates, VertexView.slice(&Vertex::textureCoordinates)};
}

TEST(MeshDataTest, referencesIndexedData) {
    const MeshData mesh{MeshPrimitive::Triangles, DataFlags{}, Indices, MeshIndexData{Indices}, DataFlag::Global,
        Vertices, {positions(), MeshAttributeData{MeshAttribute::Color, VertexView.slice(&Vertex::color)}}};
    EXPECT_EQ(mesh.primitive(), MeshPrimitive::Triangles);
    EXPECT_EQ(mesh.indexDataFlags(), DataFlags{});
    EXPECT_EQ(mesh.vertexDataFlags(), DataFlag::Global);
    EXPECT_EQ(mesh.indexData().data(), static_cast<const void*>(Indices));
    EXPECT_EQ(mesh.indexData().size(), sizeof(Indices));
    EXPECT_EQ(mesh.vertexData().data(), static_cast<const void*>(Vertices));
    EXPECT_EQ(mesh.vertexData().size(), sizeof(Vertices));
    EXPECT_TRUE(mesh.isIndexed());
    EXPECT_EQ(mesh.indexCount(), 6u);
    EXPECT_EQ(mesh.indexType(), MeshIndexType::UnsignedShort);
    EXPECT_EQ(mesh.indexOffset(), 0u);
    EXPECT_EQ(mesh.indexStride(), 2);
    EXPECT_EQ(mesh.vertexCount(), 3u);
    EXPECT_EQ(mesh.attributeCount(), 2u);
    EXPECT_EQ(mesh.attributeFormat(0), VertexFormat::Vector3);
    EXPECT_EQ(mesh.attributeOffset(0), 0u);
    EXPECT_EQ(mesh.attributeStride(0), 24);
    EXPECT_EQ(mesh.attributeFormat(1), VertexFormat::Vector4ubNormalized);
    EXPECT_EQ(mesh.attributeOffset(1), 20u);
}

TEST(MeshDataTest, ownsData) {
    Containers::Array<char> indexData{ValueInit, 8};
    indexData[2] = 2;
    Containers::Array<char> vertexData{ValueInit, 3 * 12 + 4};
    const char* const indexPointer = indexData.data();
    const char* const vertexPointer = vertexData.data();
    const MeshIndexData indices{MeshIndexType::UnsignedByte, indexData.slice(2, 5)};
    MeshData mesh{MeshPrimitive::LineStrip, Utility::move(indexData), indices, Utility::move(vertexData),
        {offsetOnly(MeshAttribute::Position, VertexFormat::Vector3, 4, 3, 12)}};
    EXPECT_EQ(mesh.indexDataFlags(), DataFlag::Owned | DataFlag::Mutable);
    EXPECT_EQ(mesh.vertexDataFlags(), DataFlag::Owned | DataFlag::Mutable);
    EXPECT_EQ(mesh.indexData().data(), indexPointer);
    EXPECT_EQ(mesh.vertexData().data(), vertexPointer);
    EXPECT_EQ(mesh.mutableIndexData().data(), indexPointer);
    EXPECT_EQ(mesh.mutableVertexData().data(), vertexPointer);
    EXPECT_EQ(mesh.indexOffset(), 2u);
    EXPECT_EQ(mesh.indexCount(), 3u);
    EXPECT_THAT(items<UnsignedInt>(mesh.indicesAsArray()), testing::ElementsAre(2, 0, 0));
    EXPECT_EQ(mesh.attributeOffset(0), 4u);
    mesh.mutableAttribute<Vector3>(MeshAttribute::Position)[1] = {1.0f, 2.0f, 3.0f};
    EXPECT_EQ(reinterpret_cast<const Vector3*>(vertexPointer + 4)[1], (Vector3{1.0f, 2.0f, 3.0f}));
}

TEST(MeshDataTest, withoutIndices) {
    Containers::Array<MeshAttributeData> attributes{InPlaceInit, {positions()}};
    const MeshData referenced{MeshPrimitive::Points, DataFlag::ExternallyOwned, Vertices, Utility::move(attributes)};
    EXPECT_FALSE(referenced.isIndexed());
    EXPECT_EQ(referenced.vertexCount(), 3u);
    EXPECT_EQ(referenced.vertexDataFlags(), DataFlag::ExternallyOwned);
    EXPECT_EQ(referenced.indexDataFlags(), DataFlag::Owned | DataFlag::Mutable);
    EXPECT_EQ(referenced.indexData().size(), 0u);
    EXPECT_EQ(referenced.indices().size()[0], 0u);
    const MeshData owned{MeshPrimitive::Points, Containers::Array<char>{ValueInit, 24},
        {offsetOnly(MeshAttribute::Position, VertexFormat::Vector3, 0, 2, 12)}};
    EXPECT_FALSE(owned.isIndexed());
    EXPECT_EQ(owned.vertexDataFlags(), DataFlag::Owned | DataFlag::Mutable);
    EXPECT_EQ(owned.vertexCount(), 2u);
}

TEST(MeshDataTest, explicitVertexCount) {
    const MeshData fewer{MeshPrimitive::Points, DataFlags{}, Vertices, {positions()}, 2};
    EXPECT_EQ(fewer.vertexCount(), 2u);
    EXPECT_EQ(fewer.attribute<Vector3>(0).size(), 2u);
    const MeshData none{MeshPrimitive::Points, DataFlags{}, nullptr, {}, 7};
    EXPECT_EQ(none.vertexCount(), 7u);
    EXPECT_EQ(none.attributeCount(), 0u);
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, Vertices, {}),
        "Trade::MeshData: vertex count can't be implicit if there are no attributes");
}

TEST(MeshDataTest, move) {
    MeshData a{
        MeshPrimitive::Lines, DataFlags{}, Indices, MeshIndexData{Indices}, DataFlags{}, Vertices, {positions()}};
    MeshData b{Utility::move(a)};
    EXPECT_EQ(b.vertexCount(), 3u);
    EXPECT_EQ(b.indices<UnsignedShort>()[0], 2);
    MeshData c{MeshPrimitive::Points, DataFlags{}, nullptr, {}, 7};
    c = Utility::move(b);
    EXPECT_EQ(c.primitive(), MeshPrimitive::Lines);
    EXPECT_EQ(c.attribute<Vector3>(0)[2], (Vector3{7.0f, 8.0f, 9.0f}));
    EXPECT_EQ(c.indexCount(), 6u);
    EXPECT_FALSE(std::is_copy_constructible<MeshData>::value);
}

TEST(MeshDataTest, flagsOfReferencedData) {
    EXPECT_ABORT(MeshData(MeshPrimitive::Triangles, DataFlag::Owned, Indices, MeshIndexData{Indices}, DataFlags{},
                     Vertices, {positions()}),
        "Trade::MeshData: can't construct with non-owned index data but Trade::DataFlag::Owned");
    EXPECT_ABORT(MeshData(MeshPrimitive::Triangles, DataFlags{}, Indices, MeshIndexData{Indices}, DataFlag::Owned,
                     Vertices, {positions()}),
        "Trade::MeshData: can't construct with non-owned vertex data but Trade::DataFlag::Owned");
    EXPECT_ABORT(MeshData(MeshPrimitive::Triangles, DataFlag::Owned, Vertices, {positions()}),
        "Trade::MeshData: can't construct with non-owned vertex data but Trade::DataFlag::Owned");
}

TEST(MeshDataTest, indicesOutsideOfTheirData) {
    const auto indices = Containers::arrayCast<const char>(Containers::arrayView(Indices));
    EXPECT_ABORT(MeshData(MeshPrimitive::Triangles, DataFlags{}, indices.exceptSuffix(1), MeshIndexData{Indices},
                     DataFlags{}, Vertices, {positions()}),
        "] are not contained in passed indexData array [0x");
    EXPECT_ABORT(MeshData(MeshPrimitive::Triangles, DataFlags{}, indices.exceptPrefix(1), MeshIndexData{Indices},
                     DataFlags{}, Vertices, {positions()}),
        "Trade::MeshData: indices [0x");
    EXPECT_ABORT(
        MeshData(MeshPrimitive::Triangles, DataFlags{}, Indices, MeshIndexData{}, DataFlags{}, Vertices, {positions()}),
        "Trade::MeshData: indexData passed for a non-indexed mesh");
}

TEST(MeshDataTest, attributesOutsideOfTheirData) {
    const auto vertices = Containers::arrayCast<const char>(Containers::arrayView(Vertices));
    // The last position ends 12 bytes before its vertex does.
    const MeshData fits{MeshPrimitive::Points, DataFlags{}, vertices.exceptSuffix(12), {positions()}};
    EXPECT_EQ(fits.vertexCount(), 3u);
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, vertices.exceptSuffix(13), {positions()}),
        "] is not contained in passed vertexData array [0x");
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, vertices.exceptPrefix(1), {positions()}),
        "Trade::MeshData: attribute 0 [0x");
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, vertices.exceptPrefix(1),
                     {MeshAttributeData(MeshAttribute::Position, VertexFormat::Vector3, 0, 3, 24), textureCoordinates(),
                         positions()}),
        "Trade::MeshData: attribute 2 [0x");
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, Vertices, {positions()}, 4),
        "] is not contained in passed vertexData array [0x");
}

TEST(MeshDataTest, offsetOnlyAttributesOutsideOfTheirData) {
    const char data[48]{};
    EXPECT_EQ((MeshData{MeshPrimitive::Points, DataFlags{}, data,
                   {offsetOnly(MeshAttribute::Position, VertexFormat::Vector3, 12, 3, 12)}})
                  .attributeOffset(0),
        12u);
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, data,
                     {offsetOnly(MeshAttribute::Position, VertexFormat::Vector3, 4, 4, 12)}),
        "Trade::MeshData: offset-only attribute 0 spans 52 bytes but passed vertexData array has only 48");
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, data,
                     {offsetOnly(MeshAttribute::Position, VertexFormat::Vector3, 0, 4, 13)}),
        "Trade::MeshData: offset-only attribute 0 spans 51 bytes but passed vertexData array has only 48");
}

TEST(MeshDataTest, attributesHaveTheSameCount) {
    EXPECT_ABORT(
        MeshData(MeshPrimitive::Points, DataFlags{}, Vertices,
            {positions(), MeshAttributeData(MeshAttribute::Color, VertexView.slice(&Vertex::color).prefix(2))}),
        "Trade::MeshData: attribute 1 has 2 vertices but 3 expected");
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, Vertices, {MeshAttributeData()}),
        "Trade::MeshData: attribute 0 doesn't specify anything");
}

TEST(MeshDataTest, weightsMatchJointIds) {
    const char data[200]{};
    const auto joints = [](UnsignedShort size) {
        return offsetOnly(MeshAttribute::JointIds, VertexFormat::UnsignedByte, 0, 2, 100, size);
    };
    const auto weights = [](UnsignedShort size) {
        return offsetOnly(MeshAttribute::Weights, VertexFormat::Float, 20, 2, 100, size);
    };
    EXPECT_EQ((MeshData{MeshPrimitive::Points, DataFlags{}, data, {weights(4), joints(4)}}).attributeCount(), 2u);
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, data, {joints(4), weights(3)}),
        "Trade::MeshData: expected 4 array items for weight attribute 0 to match joint IDs but got 3");
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, data, {joints(4), joints(4), weights(4)}),
        "Trade::MeshData: expected 2 weight attributes to match joint IDs but got 1");
    EXPECT_ABORT(MeshData(MeshPrimitive::Points, DataFlags{}, data, {weights(4)}),
        "Trade::MeshData: expected 0 weight attributes to match joint IDs but got 1");
}

TEST(MeshIndexDataTest, sizeOfContiguousData) {
    EXPECT_ABORT(MeshIndexData(MeshIndexType::UnsignedInt, Containers::arrayView(Indices).prefix(3)),
        "Trade::MeshIndexData: view size 6 does not correspond to MeshIndexType::UnsignedInt");
    EXPECT_ABORT(MeshIndexData(MeshIndexType{}, Containers::arrayView(Indices)),
        "meshIndexTypeSize(): invalid type MeshIndexType(0x0)");
}

TEST(MeshDataTest, release) {
    MeshData mesh{MeshPrimitive::Triangles, DataFlags{}, Indices, MeshIndexData{Indices}, DataFlags{}, Vertices,
        {positions(), textureCoordinates()}};
    const Containers::Array<char> indexData = mesh.releaseIndexData();
    EXPECT_EQ(indexData.data(), static_cast<const void*>(Indices));
    EXPECT_EQ(indexData.size(), sizeof(Indices));
    EXPECT_TRUE(mesh.isIndexed());
    EXPECT_EQ(mesh.indexCount(), 0u);
    EXPECT_EQ(mesh.indexData().size(), 0u);
    EXPECT_EQ(mesh.indexOffset(), 0u);
    Containers::Array<MeshAttributeData> attributes = mesh.releaseAttributeData();
    EXPECT_EQ(attributes.size(), 2u);
    EXPECT_EQ(mesh.attributeCount(), 0u);
    EXPECT_EQ(mesh.vertexCount(), 3u);
    const Containers::Array<char> vertexData = mesh.releaseVertexData();
    EXPECT_EQ(vertexData.data(), static_cast<const void*>(Vertices));
    EXPECT_EQ(mesh.vertexData().size(), 0u);
    EXPECT_EQ(mesh.vertexCount(), 0u);
    // What was released makes a mesh again.
    const MeshData again{MeshPrimitive::Lines, DataFlags{}, vertexData, Utility::move(attributes)};
    EXPECT_EQ(again.attribute<Vector2>(MeshAttribute::TextureCoordinates)[1], (Vector2{0.75f, 1.0f}));
}

// An offset stays one when the attribute goes to other memory.
TEST(MeshDataTest, releasedOffsets) {
    MeshData mesh{MeshPrimitive::Points, Containers::Array<char>{ValueInit, 24},
        {offsetOnly(MeshAttribute::Position, VertexFormat::Vector3, 0, 2, 12)}};
    const Vector3 other[]{{1, 2, 3}, {4, 5, 6}};
    const MeshData moved{MeshPrimitive::Points, DataFlags{}, other, mesh.releaseAttributeData()};
    EXPECT_EQ(moved.attribute<Vector3>(0)[1], (Vector3{4, 5, 6}));
}

}
