#include <cstring>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Optional.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Half.h>
#include <Magnum/Trade/MeshData.h>

#include "Expect.h"

// What is read from meshes, as it is and converted.

using namespace Corrade;
using namespace Magnum;
using SceneTest::floats;
using SceneTest::items;
using SceneTest::printed;
using Trade::DataFlag;
using Trade::DataFlags;
using Trade::MeshAttribute;
using Trade::MeshAttributeData;
using Trade::MeshData;
using Trade::MeshIndexData;

namespace {

struct Vertex {
    Vector3 position;
    Vector2 textureCoordinates;
    Vector3 morphed;
    UnsignedInt joints[4];
    Float weights[4];
    Vector3us custom;
    UnsignedShort objectId;
};

struct MeshDataAccessTest: testing::Test {
    Vertex vertices[3]{{{1, 2, 3}, {0.25f, 0.5f}, {}, {1, 2, 3, 4}, {0.5f, 0.25f, 0.125f, 0.125f}, {7, 8, 9}, 10},
        {{4, 5, 6}, {0.75f, 1.0f}, {-1, -2, -3}, {5, 6, 7, 8}, {1, 0, 0, 0}, {}, 11}, {}};
    UnsignedShort indices[6]{2, 1, 0, 0, 1, 2};
    Containers::StridedArrayView1D<Vertex> view = vertices;

    MeshData mesh(DataFlags flags = {}) {
        return MeshData{MeshPrimitive::Triangles, flags, indices, MeshIndexData{indices}, flags, vertices,
            {MeshAttributeData{MeshAttribute::Position, view.slice(&Vertex::position)},
                MeshAttributeData{MeshAttribute::TextureCoordinates, view.slice(&Vertex::textureCoordinates)},
                MeshAttributeData{MeshAttribute::Position, view.slice(&Vertex::morphed), 3},
                MeshAttributeData{MeshAttribute::JointIds, VertexFormat::UnsignedInt, view.slice(&Vertex::joints), 4},
                MeshAttributeData{MeshAttribute::Weights, VertexFormat::Float, view.slice(&Vertex::weights), 4},
                MeshAttributeData{
                    Trade::meshAttributeCustom(2), VertexFormat::Vector3usNormalized, view.slice(&Vertex::custom)},
                MeshAttributeData{MeshAttribute::ObjectId, view.slice(&Vertex::objectId)},
                MeshAttributeData{MeshAttribute::TextureCoordinates, view.slice(&Vertex::textureCoordinates)}}};
    }

    MeshData notIndexed() {
        return MeshData{MeshPrimitive::Triangles, DataFlags{}, vertices,
            {MeshAttributeData{MeshAttribute::Position, view.slice(&Vertex::position)}}};
    }
};

TEST_F(MeshDataAccessTest, findsAttributes) {
    const MeshData data = mesh();
    EXPECT_EQ(data.attributeCount(), 8u);
    EXPECT_EQ(data.attributeCount(MeshAttribute::TextureCoordinates), 2u);
    EXPECT_EQ(data.attributeCount(MeshAttribute::Position), 1u);
    EXPECT_EQ(data.attributeCount(MeshAttribute::Position, 3), 1u);
    EXPECT_EQ(data.attributeCount(MeshAttribute::Normal), 0u);
    EXPECT_TRUE(data.hasAttribute(MeshAttribute::Position));
    EXPECT_TRUE(data.hasAttribute(MeshAttribute::Position, 3));
    EXPECT_FALSE(data.hasAttribute(MeshAttribute::Position, 2));
    EXPECT_TRUE(data.hasAttribute(MeshAttribute::JointIds));
    EXPECT_FALSE(data.hasAttribute(MeshAttribute::JointIds, 3));
    EXPECT_FALSE(data.hasAttribute(MeshAttribute::Normal));
    EXPECT_TRUE(data.hasAttribute(Trade::meshAttributeCustom(2)));
    EXPECT_FALSE(data.hasAttribute(Trade::meshAttributeCustom(1)));
    EXPECT_FALSE(data.findAttributeId(MeshAttribute::Normal));
    EXPECT_FALSE(data.findAttributeId(MeshAttribute::TextureCoordinates, 2));
    EXPECT_EQ(*data.findAttributeId(MeshAttribute::TextureCoordinates, 1), 7u);
    EXPECT_EQ(data.attributeId(MeshAttribute::Position, 0, 3), 2u);
    EXPECT_EQ(data.attributeName(5), Trade::meshAttributeCustom(2));
    EXPECT_EQ(data.attributeId(7), 1u);
    EXPECT_EQ(data.attributeId(2), 0u);
    EXPECT_EQ(data.attributeMorphTargetId(2), 3);
    EXPECT_EQ(data.attributeMorphTargetId(0), -1);
}

TEST_F(MeshDataAccessTest, attributeProperties) {
    const MeshData data = mesh();
    EXPECT_EQ(data.attributeFormat(3), VertexFormat::UnsignedInt);
    EXPECT_EQ(data.attributeFormat(MeshAttribute::TextureCoordinates), VertexFormat::Vector2);
    EXPECT_EQ(data.attributeFormat(MeshAttribute::ObjectId), VertexFormat::UnsignedShort);
    EXPECT_EQ(data.attributeOffset(4), offsetof(Vertex, weights));
    EXPECT_EQ(data.attributeOffset(MeshAttribute::Position, 0, 3), offsetof(Vertex, morphed));
    EXPECT_EQ(data.attributeStride(4), Short(sizeof(Vertex)));
    EXPECT_EQ(data.attributeStride(MeshAttribute::ObjectId), Short(sizeof(Vertex)));
    EXPECT_EQ(data.attributeArraySize(3), 4);
    EXPECT_EQ(data.attributeArraySize(MeshAttribute::Weights), 4);
    EXPECT_EQ(data.attributeArraySize(MeshAttribute::Position), 0);
}

TEST_F(MeshDataAccessTest, missingAttributes) {
    const MeshData data = mesh();
    const std::string rest = "(): index 0 out of range for 0 Trade::MeshAttribute::Normal attributes\n";
    EXPECT_ABORT(data.attributeId(MeshAttribute::Normal), "Trade::MeshData::attributeId" + rest);
    EXPECT_ABORT(data.attributeFormat(MeshAttribute::Normal), "Trade::MeshData::attributeFormat" + rest);
    EXPECT_ABORT(data.attributeOffset(MeshAttribute::Normal), "Trade::MeshData::attributeOffset" + rest);
    EXPECT_ABORT(data.attributeStride(MeshAttribute::Normal), "Trade::MeshData::attributeStride" + rest);
    EXPECT_ABORT(data.attributeArraySize(MeshAttribute::Normal), "Trade::MeshData::attributeArraySize" + rest);
    EXPECT_ABORT(data.attribute(MeshAttribute::Normal), "Trade::MeshData::attribute" + rest);
    EXPECT_ABORT(data.attribute<Vector3>(MeshAttribute::Normal), "Trade::MeshData::attribute" + rest);
    EXPECT_ABORT(
        mesh(DataFlag::Mutable).mutableAttribute(MeshAttribute::Normal), "Trade::MeshData::mutableAttribute" + rest);
    EXPECT_ABORT(mesh(DataFlag::Mutable).mutableAttribute<Vector3>(MeshAttribute::Normal),
        "Trade::MeshData::mutableAttribute" + rest);
    EXPECT_ABORT(data.attributeOffset(MeshAttribute::Position, 1),
        "Trade::MeshData::attributeOffset(): index 1 out of range for 1 Trade::MeshAttribute::Position attributes\n");
    EXPECT_ABORT(data.attributeOffset(MeshAttribute::Position, 1, 3),
        "Trade::MeshData::attributeOffset(): index 1 out of range for 1 Trade::MeshAttribute::Position attributes in "
        "morph target 3\n");
}

TEST_F(MeshDataAccessTest, bytesOfAttributes) {
    const MeshData data = mesh();
    const auto joints = data.attribute(3);
    EXPECT_EQ(joints.size()[0], 3u);
    EXPECT_EQ(joints.size()[1], 16u);
    EXPECT_EQ(joints.stride()[0], std::ptrdiff_t(sizeof(Vertex)));
    EXPECT_EQ(joints[1][4], 6);
    EXPECT_EQ(data.attribute(MeshAttribute::ObjectId).size()[1], 2u);
    EXPECT_EQ(data.attribute(MeshAttribute::ObjectId)[1][0], 11);
    MeshData changed = mesh(DataFlag::Mutable);
    changed.mutableAttribute(MeshAttribute::ObjectId)[1][0] = 12;
    EXPECT_EQ(vertices[1].objectId, 12);
}

TEST_F(MeshDataAccessTest, typedAttributes) {
    const MeshData data = mesh();
    const auto positions = data.attribute<Vector3>(MeshAttribute::Position);
    EXPECT_EQ(positions.size(), 3u);
    EXPECT_EQ(positions[1], (Vector3{4, 5, 6}));
    EXPECT_EQ(data.attribute<Vector3>(MeshAttribute::Position, 0, 3)[1], (Vector3{-1, -2, -3}));
    EXPECT_EQ(data.attribute<Vector2>(7)[0], (Vector2{0.25f, 0.5f}));
    EXPECT_EQ(data.attribute<UnsignedShort>(MeshAttribute::ObjectId)[1], 11);
    EXPECT_EQ(data.attribute<Vector3us>(5)[0], (Vector3us{7, 8, 9}));
    MeshData changed = mesh(DataFlag::Mutable);
    changed.mutableAttribute<Vector3>(MeshAttribute::Position)[2] = {9, 9, 9};
    EXPECT_EQ(vertices[2].position, (Vector3{9, 9, 9}));
    changed.mutableAttribute<Vector2>(1)[2] = {3, 4};
    EXPECT_EQ(vertices[2].textureCoordinates, (Vector2{3, 4}));
}

TEST_F(MeshDataAccessTest, wrongTypes) {
    const MeshData data = mesh();
    EXPECT_ABORT(data.attribute<Vector2>(0),
        "Trade::MeshData::attribute(): Trade::MeshAttribute::Position is VertexFormat::Vector3 but requested a type "
        "equivalent to VertexFormat::Vector2");
    EXPECT_ABORT(data.attribute<Vector4>(MeshAttribute::Position),
        "Trade::MeshData::attribute(): Trade::MeshAttribute::Position is VertexFormat::Vector3 but requested a type "
        "equivalent to VertexFormat::Vector4");
    EXPECT_ABORT(data.attribute<UnsignedInt>(MeshAttribute::ObjectId),
        "Trade::MeshData::attribute(): Trade::MeshAttribute::ObjectId is VertexFormat::UnsignedShort but requested a "
        "type equivalent to VertexFormat::UnsignedInt");
    EXPECT_ABORT(data.attribute<UnsignedInt>(MeshAttribute::JointIds),
        "Trade::MeshData::attribute(): Trade::MeshAttribute::JointIds is an array attribute, use T[] to access it");
    EXPECT_ABORT(mesh(DataFlag::Mutable).mutableAttribute<Vector2>(0),
        "Trade::MeshData::mutableAttribute(): Trade::MeshAttribute::Position is VertexFormat::Vector3 but requested a "
        "type equivalent to VertexFormat::Vector2");
}

// Which format a type names, and that integers stand for their normalized form too, except in colours.
template<class T> void expectType(const char* format, bool alsoNormalized) {
    const char data[64]{};
    const auto mesh = [&](UnsignedInt value) {
        return MeshData{MeshPrimitive::Points, DataFlags{}, data,
            {MeshAttributeData{Trade::meshAttributeCustom(0), VertexFormat(value), 0, 1, 64}}};
    };
    for(UnsignedInt i = 1; i != 53; ++i) {
        const std::string name = printed(VertexFormat(i));
        const std::string wanted = std::string{"VertexFormat::"} + format;
        if(name == wanted || (alsoNormalized && name == wanted + "Normalized")) {
            EXPECT_EQ(mesh(i).template attribute<T>(0).data(), static_cast<const void*>(data));
        } else if(i % 13 == 0 || i % 13 == 5) {
            EXPECT_ABORT(mesh(i).template attribute<T>(0), "but requested a type equivalent to " + wanted + "\n");
        }
    }
}

TEST(MeshDataTypesTest, formats) {
    expectType<Float>("Float", false);
    expectType<Half>("Half", false);
    expectType<Double>("Double", false);
    expectType<UnsignedByte>("UnsignedByte", true);
    expectType<Short>("Short", true);
    expectType<UnsignedInt>("UnsignedInt", false);
    expectType<Vector2>("Vector2", false);
    expectType<Vector2us>("Vector2us", true);
    expectType<Vector3h>("Vector3h", false);
    expectType<Vector3b>("Vector3b", true);
    expectType<Vector3i>("Vector3i", false);
    expectType<Vector4d>("Vector4d", false);
    expectType<Vector4ub>("Vector4ub", true);
    expectType<Color3>("Vector3", false);
    expectType<Color4>("Vector4", false);
    expectType<Color3ub>("Vector3ubNormalized", false);
    expectType<Color4us>("Vector4usNormalized", false);
}

TEST_F(MeshDataAccessTest, dataNotMutable) {
    MeshData data = mesh();
    EXPECT_ABORT(data.mutableIndexData(), "Trade::MeshData::mutableIndexData(): index data not mutable");
    EXPECT_ABORT(data.mutableVertexData(), "Trade::MeshData::mutableVertexData(): vertex data not mutable");
    EXPECT_ABORT(data.mutableAttribute(0), "Trade::MeshData::mutableAttribute(): vertex data not mutable");
    EXPECT_ABORT(data.mutableAttribute<Vector3>(0), "Trade::MeshData::mutableAttribute(): vertex data not mutable");
    EXPECT_ABORT(data.mutableAttribute<Vector3>(MeshAttribute::Position),
        "Trade::MeshData::mutableAttribute(): vertex data not mutable");
    MeshData changed = mesh(DataFlag::Mutable);
    EXPECT_EQ(changed.mutableIndexData().data(), reinterpret_cast<char*>(indices));
    EXPECT_EQ(changed.mutableVertexData().data(), reinterpret_cast<char*>(vertices));
}

template<class T> void expectIndices(MeshIndexType type) {
    const T data[]{9, 3, 7, 1, 5};
    const char vertex[12]{};
    const auto mesh = [&](const MeshIndexData& indices) {
        return MeshData{MeshPrimitive::Points, DataFlags{}, data, indices, DataFlags{}, vertex,
            {MeshAttributeData{MeshAttribute::Position, VertexFormat::Vector3, 0, 1, 12}}};
    };
    const MeshData contiguous = mesh(MeshIndexData{data});
    EXPECT_EQ(contiguous.indexType(), type);
    EXPECT_EQ(contiguous.indexStride(), Short(sizeof(T)));
    EXPECT_THAT(items<UnsignedInt>(contiguous.indicesAsArray()), testing::ElementsAre(9, 3, 7, 1, 5));
    EXPECT_THAT(items<UnsignedInt>(contiguous.template indices<T>()), testing::ElementsAre(9, 3, 7, 1, 5));
    EXPECT_EQ(contiguous.indices().size()[0], 5u);
    EXPECT_EQ(contiguous.indices().size()[1], sizeof(T));

    const MeshData part = mesh(MeshIndexData{type, Containers::arrayView(data).slice(1, 3)});
    EXPECT_EQ(part.indexOffset(), sizeof(T));
    EXPECT_THAT(items<UnsignedInt>(part.indicesAsArray()), testing::ElementsAre(3, 7));

    const MeshData strided = mesh(MeshIndexData{Containers::stridedArrayView(data).every(2)});
    EXPECT_EQ(strided.indexStride(), Short(2 * sizeof(T)));
    EXPECT_EQ(strided.indexCount(), 3u);
    EXPECT_THAT(items<UnsignedInt>(strided.indicesAsArray()), testing::ElementsAre(9, 7, 5));
    EXPECT_THAT(items<UnsignedInt>(strided.template indices<T>()), testing::ElementsAre(9, 7, 5));
    UnsignedInt into[3];
    strided.indicesInto(into);
    EXPECT_EQ(into[1], 7u);
}

TEST(MeshDataIndicesTest, allTypes) {
    expectIndices<UnsignedByte>(MeshIndexType::UnsignedByte);
    expectIndices<UnsignedShort>(MeshIndexType::UnsignedShort);
    expectIndices<UnsignedInt>(MeshIndexType::UnsignedInt);
}

TEST_F(MeshDataAccessTest, indicesOfMeshesWithout) {
    const MeshData data = notIndexed();
    EXPECT_FALSE(data.isIndexed());
    EXPECT_ABORT(data.indexCount(), "Trade::MeshData::indexCount(): the mesh is not indexed");
    EXPECT_ABORT(data.indexType(), "Trade::MeshData::indexType(): the mesh is not indexed");
    EXPECT_ABORT(data.indexOffset(), "Trade::MeshData::indexOffset(): the mesh is not indexed");
    EXPECT_ABORT(data.indexStride(), "Trade::MeshData::indexStride(): the mesh is not indexed");
    EXPECT_ABORT(data.indices<UnsignedInt>(), "Trade::MeshData::indices(): the mesh is not indexed");
    EXPECT_ABORT(data.indicesAsArray(), "Trade::MeshData::indicesAsArray(): the mesh is not indexed");
    UnsignedInt into[3];
    EXPECT_ABORT(data.indicesInto(into), "Trade::MeshData::indicesInto(): the mesh is not indexed");
}

TEST_F(MeshDataAccessTest, wrongIndexTypeAndSize) {
    const MeshData data = mesh();
    EXPECT_ABORT(data.indices<UnsignedInt>(),
        "Trade::MeshData::indices(): indices are MeshIndexType::UnsignedShort but requested "
        "MeshIndexType::UnsignedInt");
    UnsignedInt into[5];
    EXPECT_ABORT(data.indicesInto(into), "Trade::MeshData::indicesInto(): expected a view with 6 elements but got 5");
}

// One vertex with up to four components, 17 bytes into the data to be sure that nothing has to be aligned.
struct Packed {
    char data[64]{};

    template<class T> void set(std::initializer_list<T> components) {
        std::size_t offset = 17;
        for(const T component: components) {
            std::memcpy(data + offset, &component, sizeof(T));
            offset += sizeof(T);
        }
    }
    MeshData mesh(MeshAttribute name, VertexFormat format) const {
        return MeshData{MeshPrimitive::Points, DataFlags{}, data, {MeshAttributeData{name, format, 17, 1, 40}}};
    }
};

// The four values that are tried for every type of component, and what they stand for.
struct ComponentValues {
    VertexFormat scalar;
    Float expected[4];
};

const ComponentValues Components[]{
    {VertexFormat::Float, {1.5f, -2.25f, 0.0f, 4096.5f}},
    {VertexFormat::Half, {1.5f, -2.25f, 0.0f, 0.333251953125f}},
    {VertexFormat::UnsignedByte, {0.0f, 51.0f, 255.0f, 102.0f}},
    {VertexFormat::UnsignedByteNormalized, {0.0f, 0.2f, 1.0f, 0.4f}},
    {VertexFormat::Byte, {-128.0f, -127.0f, 127.0f, 0.0f}},
    {VertexFormat::ByteNormalized, {-1.0f, -1.0f, 1.0f, 0.0f}},
    {VertexFormat::UnsignedShort, {0.0f, 13107.0f, 65535.0f, 26214.0f}},
    {VertexFormat::UnsignedShortNormalized, {0.0f, 0.2f, 1.0f, 0.4f}},
    {VertexFormat::Short, {-32768.0f, -32767.0f, 32767.0f, 6553.0f}},
    {VertexFormat::ShortNormalized, {-1.0f, -1.0f, 1.0f, 0.19998779f}},
};

Packed packed(VertexFormat scalar) {
    Packed out;
    switch(vertexFormatComponentFormat(scalar)) {
    case VertexFormat::Float: out.set<Float>({1.5f, -2.25f, 0.0f, 4096.5f}); break;
    case VertexFormat::Half: out.set<UnsignedShort>({0x3e00, 0xc080, 0x0000, 0x3555}); break;
    case VertexFormat::UnsignedByte: out.set<UnsignedByte>({0, 51, 255, 102}); break;
    case VertexFormat::Byte: out.set<Byte>({-128, -127, 127, 0}); break;
    case VertexFormat::UnsignedShort: out.set<UnsignedShort>({0, 13107, 65535, 26214}); break;
    case VertexFormat::Short: out.set<Short>({-32768, -32767, 32767, 6553}); break;
    default: ADD_FAILURE();
    }
    return out;
}

struct Conversion {
    MeshAttribute name;
    UnsignedInt minComponents, maxComponents;
    // Those of the result, and what it has in the place of those that are missing.
    UnsignedInt outComponents;
    Float missing;
    bool (*isAllowed)(VertexFormat scalar);
    std::vector<float> (*convert)(const MeshData&);
};

bool anyFormat(VertexFormat) { return true; }
bool isDirectionFormat(VertexFormat scalar) {
    return scalar == VertexFormat::Float || scalar == VertexFormat::Half || scalar == VertexFormat::ByteNormalized ||
        scalar == VertexFormat::ShortNormalized;
}
bool isColorFormat(VertexFormat scalar) {
    return scalar == VertexFormat::Float || scalar == VertexFormat::Half ||
        scalar == VertexFormat::UnsignedByteNormalized || scalar == VertexFormat::UnsignedShortNormalized;
}

const Conversion Conversions[]{
    {MeshAttribute::Position, 2, 3, 3, 0.0f, anyFormat,
        [](const MeshData& mesh) { return floats(mesh.positions3DAsArray()); }},
    {MeshAttribute::Tangent, 3, 4, 3, 0.0f, isDirectionFormat,
        [](const MeshData& mesh) { return floats(mesh.tangentsAsArray()); }},
    {MeshAttribute::Normal, 3, 3, 3, 0.0f, isDirectionFormat,
        [](const MeshData& mesh) { return floats(mesh.normalsAsArray()); }},
    {MeshAttribute::TextureCoordinates, 2, 2, 2, 0.0f, anyFormat,
        [](const MeshData& mesh) { return floats(mesh.textureCoordinates2DAsArray()); }},
    {MeshAttribute::Color, 3, 4, 4, 1.0f, isColorFormat,
        [](const MeshData& mesh) { return floats(mesh.colorsAsArray()); }},
};

TEST(MeshDataConversionsTest, everyFormatOfEveryAttribute) {
    for(const Conversion& conversion: Conversions) {
        for(const ComponentValues& component: Components) {
            if(!conversion.isAllowed(component.scalar)) continue;
            for(UnsignedInt count = conversion.minComponents; count <= conversion.maxComponents; ++count) {
                const auto format = VertexFormat(UnsignedInt(component.scalar) + 13 * (count - 1));
                SCOPED_TRACE(printed(conversion.name) + " " + printed(format));
                std::vector<float> expected(conversion.outComponents, conversion.missing);
                for(UnsignedInt i = 0; i != std::min(count, conversion.outComponents); ++i)
                    expected[i] = component.expected[i];
                EXPECT_THAT(conversion.convert(packed(component.scalar).mesh(conversion.name, format)),
                    testing::Pointwise(testing::FloatNear(1.0e-6f), expected));
            }
        }
    }
}

TEST_F(MeshDataAccessTest, conversionsOfSeveralVertices) {
    const MeshData data = mesh();
    EXPECT_THAT(floats(data.positions3DAsArray()), testing::ElementsAre(1, 2, 3, 4, 5, 6, 0, 0, 0));
    EXPECT_THAT(floats(data.positions3DAsArray(0, 3)), testing::ElementsAre(0, 0, 0, -1, -2, -3, 0, 0, 0));
    EXPECT_THAT(floats(data.textureCoordinates2DAsArray(1)), testing::ElementsAre(0.25f, 0.5f, 0.75f, 1, 0, 0));
    struct {
        Vector3 position;
        int other;
    } into[3]{};
    data.positions3DInto(
        Containers::stridedArrayView(into).slice(&std::remove_reference_t<decltype(into[0])>::position));
    EXPECT_EQ(into[1].position, (Vector3{4, 5, 6}));
    EXPECT_EQ(into[1].other, 0);
}

template<class T> void expectJoints(VertexFormat format) {
    Packed packed;
    packed.set<T>({T(7), T(200), T(0)});
    const MeshData mesh{MeshPrimitive::Points, DataFlags{}, packed.data,
        {MeshAttributeData{MeshAttribute::JointIds, format, 17, 1, 40, 3},
            MeshAttributeData{MeshAttribute::Weights, VertexFormat::Float, 40, 1, 40, 3}}};
    EXPECT_THAT(items<UnsignedInt>(mesh.jointIdsAsArray()), testing::ElementsAre(7, 200, 0));
}

TEST(MeshDataConversionsTest, jointIds) {
    expectJoints<UnsignedByte>(VertexFormat::UnsignedByte);
    expectJoints<UnsignedShort>(VertexFormat::UnsignedShort);
    expectJoints<UnsignedInt>(VertexFormat::UnsignedInt);
}

TEST(MeshDataConversionsTest, weights) {
    for(const ComponentValues& component: Components) {
        if(!isColorFormat(component.scalar)) continue;
        SCOPED_TRACE(printed(component.scalar));
        const Packed data = packed(component.scalar);
        const MeshData mesh{MeshPrimitive::Points, DataFlags{}, data.data,
            {MeshAttributeData{MeshAttribute::Weights, component.scalar, 17, 1, 40, 4},
                MeshAttributeData{MeshAttribute::JointIds, VertexFormat::UnsignedByte, 0, 1, 40, 4}}};
        EXPECT_THAT(
            items<Float>(mesh.weightsAsArray()), testing::Pointwise(testing::FloatNear(1.0e-6f), component.expected));
    }
}

TEST_F(MeshDataAccessTest, skinOfSeveralVertices) {
    const MeshData data = mesh();
    EXPECT_THAT(items<UnsignedInt>(data.jointIdsAsArray()), testing::ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 0, 0, 0, 0));
    EXPECT_THAT(
        items<Float>(data.weightsAsArray()), testing::ElementsAre(0.5f, 0.25f, 0.125f, 0.125f, 1, 0, 0, 0, 0, 0, 0, 0));
    UnsignedInt joints[12]{};
    data.jointIdsInto(Containers::StridedArrayView2D<UnsignedInt>{joints, {3, 4}});
    EXPECT_EQ(joints[5], 6u);
    Float weights[12]{};
    data.weightsInto(Containers::StridedArrayView2D<Float>{weights, {3, 4}});
    EXPECT_EQ(weights[1], 0.25f);
}

TEST_F(MeshDataAccessTest, conversionsOfMissingAttributes) {
    const MeshData data = mesh();
    const MeshData bare = notIndexed();
    EXPECT_ABORT(data.positions3DAsArray(1),
        "Trade::MeshData::positions3DInto(): index 1 out of range for 1 position attributes\n");
    EXPECT_ABORT(data.positions3DAsArray(0, 1),
        "Trade::MeshData::positions3DInto(): index 0 out of range for 0 position attributes in morph target 1\n");
    EXPECT_ABORT(
        data.normalsAsArray(), "Trade::MeshData::normalsInto(): index 0 out of range for 0 normal attributes\n");
    EXPECT_ABORT(
        data.tangentsAsArray(), "Trade::MeshData::tangentsInto(): index 0 out of range for 0 tangent attributes\n");
    EXPECT_ABORT(data.textureCoordinates2DAsArray(2),
        "Trade::MeshData::textureCoordinates2DInto(): index 2 out of range for 2 texture coordinate attributes\n");
    EXPECT_ABORT(data.colorsAsArray(), "Trade::MeshData::colorsInto(): index 0 out of range for 0 color attributes\n");
    EXPECT_ABORT(
        bare.jointIdsAsArray(), "Trade::MeshData::jointIdsAsArray(): index 0 out of range for 0 joint ID attributes\n");
    EXPECT_ABORT(
        bare.weightsAsArray(), "Trade::MeshData::weightsAsArray(): index 0 out of range for 0 weight attributes\n");
}

TEST_F(MeshDataAccessTest, conversionsIntoTooLittle) {
    const MeshData data = mesh();
    Vector3 three[2];
    Vector2 two[2];
    UnsignedInt joints[3];
    Float weights[3];
    EXPECT_ABORT(
        data.positions3DInto(three), "Trade::MeshData::positions3DInto(): expected a view with 3 elements but got 2");
    EXPECT_ABORT(data.textureCoordinates2DInto(two),
        "Trade::MeshData::textureCoordinates2DInto(): expected a view with 3 elements but got 2");
    EXPECT_ABORT(data.jointIdsInto(Containers::StridedArrayView2D<UnsignedInt>(joints, {3, 1})),
        "Trade::MeshData::jointIdsInto(): expected a view with {3, 4} elements but got {3, 1}");
    EXPECT_ABORT(data.weightsInto(Containers::StridedArrayView2D<Float>(weights, {1, 3})),
        "Trade::MeshData::weightsInto(): expected a view with {3, 4} elements but got {1, 3}");
}

}
