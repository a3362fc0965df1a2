#include <limits>

#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector3.h>
#include <Magnum/Math/Vector4.h>
#include <Magnum/Mesh.h>
#include <gmock/gmock.h>

#include "Data/Resources/MeshFile.h"
#include "Data/Resources/Test/GlbBuilder.h"
#include "Import/Converter/Test/ConverterFixture.h"

namespace VantrelImport::Test {

namespace {

using Magnum::MeshIndexType;
using Magnum::Vector2;
using Magnum::Vector3;
using Magnum::Vector4;
namespace Trade = Magnum::Trade;
using namespace testing;
using namespace VantrelEngine::Test;

const std::vector<float> Corners{0, 0, 0, 1, 0, 0, 0, 1, 0};

// A file with one object "Thing" that has the mesh "Shape" of one primitive.
std::string withPrimitive(const GlbBuilder& builder, const std::string& primitive, const std::string& more = {}) {
    return builder.file(
        "\"nodes\":[{\"name\":\"Thing\",\"mesh\":0}],\"scenes\":[{\"nodes\":[0]}],\"meshes\":[{\"name\":\"Shape\","
        "\"primitives\":[{" +
        primitive + "}]}]" + more);
}

std::string number(int value) { return std::to_string(value); }

std::optional<Trade::MeshData> meshOf(const ImportResult& result) {
    std::string reason;
    const std::string bytes = result.file(result.only("meshes"));
    auto mesh = VantrelEngine::readMesh(view(bytes), reason);
    EXPECT_TRUE(mesh) << reason << '\n' << result.text();
    return mesh;
}

using GltfMeshTest = ConverterTest;

TEST_F(GltfMeshTest, EveryAttributeArrives) {
    GlbBuilder builder;
    const int positions = builder.add(Float, "VEC3", 3, Corners);
    const int normals = builder.add(Float, "VEC3", 3, std::vector<float>{0, 0, 1, 0, 0, 1, 0, 0, 1});
    const int tangents = builder.add(Float, "VEC4", 4, std::vector<float>{1, 0, 0, 1, 1, 0, 0, 1, 1, 0, 0, -1});
    const int first = builder.add(Float, "VEC2", 2, std::vector<float>{0, 0, 1, 0, 0, 0.75f});
    // Whole numbers that stand for 0 to 1, each in four bytes.
    const int second = builder.add(UnsignedByte, "VEC2", 2, std::vector<std::uint8_t>{0, 0, 255, 0, 0, 51}, true, 4);
    const int colors = builder.add(
        UnsignedShort, "VEC3", 3, std::vector<std::uint16_t>{65535, 0, 0, 0, 65535, 0, 0, 0, 65535}, true, 8);
    const int joints =
        builder.add(UnsignedByte, "VEC4", 4, std::vector<std::uint8_t>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
    const int weights =
        builder.add(Float, "VEC4", 4, std::vector<float>{1, 0, 0, 0, 0.5f, 0.5f, 0, 0, 0.25f, 0.25f, 0.25f, 0.25f});
    const int indices = builder.add(UnsignedByte, "SCALAR", 1, std::vector<std::uint8_t>{2, 0, 1});
    const ImportResult result = import("a.glb",
        withPrimitive(builder,
            "\"indices\":" + number(indices) + ",\"attributes\":{\"POSITION\":" + number(positions) + ",\"NORMAL\":" +
                number(normals) + ",\"TANGENT\":" + number(tangents) + ",\"TEXCOORD_0\":" + number(first) +
                ",\"TEXCOORD_1\":" + number(second) + ",\"COLOR_0\":" + number(colors) +
                ",\"JOINTS_0\":" + number(joints) + ",\"WEIGHTS_0\":" + number(weights) + "}"));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_THAT(result.texts("warning"), IsEmpty());

    const auto mesh = meshOf(result);
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->attributeCount(), 8u);
    const auto places = mesh->attribute<Vector3>(Trade::MeshAttribute::Position);
    EXPECT_EQ(places[1], (Vector3{1, 0, 0}));
    EXPECT_EQ(mesh->attribute<Vector3>(Trade::MeshAttribute::Normal)[2], (Vector3{0, 0, 1}));
    EXPECT_EQ(mesh->attribute<Vector4>(Trade::MeshAttribute::Tangent)[2], (Vector4{1, 0, 0, -1}));
    // The engine's begin at the bottom.
    EXPECT_EQ(mesh->attribute<Vector2>(Trade::MeshAttribute::TextureCoordinates, 0)[2], (Vector2{0, 0.25f}));
    EXPECT_EQ(mesh->attribute<Vector2>(Trade::MeshAttribute::TextureCoordinates, 1)[1], (Vector2{1, 1}));
    EXPECT_EQ(mesh->attribute<Vector2>(Trade::MeshAttribute::TextureCoordinates, 1)[2], (Vector2{0, 0.8f}));
    EXPECT_EQ(mesh->attribute<Vector4>(Trade::MeshAttribute::Color)[1], (Vector4{0, 1, 0, 1}));
    EXPECT_EQ(mesh->jointIdsAsArray()[11], 11u);
    EXPECT_EQ(mesh->weightsAsArray()[5], 0.5f);
    ASSERT_EQ(mesh->indexCount(), 3u);
    EXPECT_EQ(mesh->indices<std::uint16_t>()[0], 2);
}

TEST_F(GltfMeshTest, PositionsInWholeNumbersAndSparseOnes) {
    GlbBuilder builder;
    const int indices = builder.add(UnsignedShort, "SCALAR", 1, std::vector<std::uint16_t>{1});
    const int values = builder.add(Float, "VEC3", 3, std::vector<float>{0, 7, 0});
    const int corners = builder.add(Short, "VEC3", 3, std::vector<std::int16_t>{0, 0, 0, 5, 0, 0, 0, -5, 0}, false, 8);
    const std::string sparse =
        "{\"componentType\":5126,\"count\":3,\"type\":\"VEC3\",\"sparse\":{\"count\":1,\"indices\":"
        "{\"bufferView\":" +
        number(indices) + ",\"componentType\":5123},\"values\":{\"bufferView\":" + number(values) + "}}}";
    const std::string file =
        withPrimitive(builder, "\"attributes\":{\"POSITION\":" + number(corners) + ",\"NORMAL\":3}");
    // One more accessor behind the builder's.
    const std::string changed = replaced(file, "}],\"nodes\"", "}," + sparse + "],\"nodes\"");
    const std::size_t data = changed.find("BIN");
    ASSERT_NE(data, changed.npos);
    const std::size_t json = changed.find('{');
    const ImportResult result = import("a.glb", glb(changed.substr(json, data - 4 - json), changed.substr(data + 4)));
    ASSERT_TRUE(result.isDone()) << result.text();
    const auto mesh = meshOf(result);
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->attribute<Vector3>(Trade::MeshAttribute::Position)[2], (Vector3{0, -5, 0}));
    EXPECT_EQ(mesh->attribute<Vector3>(Trade::MeshAttribute::Normal)[1], (Vector3{0, 7, 0}));
    EXPECT_EQ(mesh->attribute<Vector3>(Trade::MeshAttribute::Normal)[0], (Vector3{0, 0, 0}));
}

TEST_F(GltfMeshTest, MissingNormalsAreThoseOfTheTriangles) {
    GlbBuilder builder;
    const int positions = builder.add(Float, "VEC3", 3, std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1});
    const int indices = builder.add(UnsignedShort, "SCALAR", 1, std::vector<std::uint16_t>{0, 1, 2, 0, 3, 1});
    const auto mesh = meshOf(import("a.glb",
        withPrimitive(
            builder, "\"indices\":" + number(indices) + ",\"attributes\":{\"POSITION\":" + number(positions) + "}")));
    ASSERT_TRUE(mesh);
    // Corners that two triangles share are two.
    ASSERT_EQ(mesh->vertexCount(), 6u);
    const auto normals = mesh->attribute<Vector3>(Trade::MeshAttribute::Normal);
    EXPECT_EQ(normals[0], (Vector3{0, 0, 1}));
    EXPECT_EQ(normals[5], (Vector3{0, 1, 0}));
}

TEST_F(GltfMeshTest, StripsAndFansBecomeTriangles) {
    const std::vector<float> square{0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0};
    for(const auto& [mode, last]: {std::pair{5, std::vector<std::uint32_t>{1, 3, 2}}, {6, {0, 2, 3}}}) {
        GlbBuilder builder;
        const int positions = builder.add(Float, "VEC3", 3, square), normals = builder.add(Float, "VEC3", 3, square);
        const auto mesh = meshOf(import("a.glb",
            withPrimitive(builder,
                "\"mode\":" + number(mode) + ",\"attributes\":{\"POSITION\":" + number(positions) +
                    ",\"NORMAL\":" + number(normals) + "}")));
        ASSERT_TRUE(mesh);
        ASSERT_EQ(mesh->indexCount(), 6u);
        const auto indices = mesh->indices<std::uint16_t>();
        EXPECT_THAT((std::vector<std::uint32_t>{indices[3], indices[4], indices[5]}), Eq(last)) << mode;
    }
}

TEST_F(GltfMeshTest, PrimitivesOfOneMeshAreComponentsOfOneObjectWithTheVerticesThatTheyUse) {
    GlbBuilder builder;
    const int positions =
        builder.add(Float, "VEC3", 3, std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, 9, 9, 9, 8, 9, 9, 9, 8, 9});
    const int normals = builder.add(Float, "VEC3", 3, std::vector<float>(18, 1.0f));
    const int indices = builder.add(UnsignedShort, "SCALAR", 1, std::vector<std::uint16_t>{3, 4, 5});
    const std::string attributes =
        "\"attributes\":{\"POSITION\":" + number(positions) + ",\"NORMAL\":" + number(normals) + "}";
    const ImportResult result = import("a.glb",
        withPrimitive(builder, attributes + "},{\"indices\":" + number(indices) + ",\"material\":0," + attributes,
            ",\"materials\":[{\"name\":\"Other\"}]"));
    ASSERT_TRUE(result.isDone()) << result.text();
    const JsonValue& components = result.named("objects", "Thing")["components"];
    ASSERT_EQ(components.Size(), 2u);
    EXPECT_EQ(result.count("meshes"), 2u);
    EXPECT_EQ(components[0]["mesh"]["material"].GetString(), result.idOf("materials", "Default"));
    EXPECT_EQ(components[1]["mesh"]["material"].GetString(), result.idOf("materials", "Other"));
    std::string reason;
    const std::string bytes = result.file(result.named("meshes", "Shape 2"));
    const auto second = VantrelEngine::readMesh(view(bytes), reason);
    ASSERT_TRUE(second) << reason;
    EXPECT_EQ(second->vertexCount(), 3u);
    EXPECT_EQ(second->attribute<Vector3>(Trade::MeshAttribute::Position)[1], (Vector3{8, 9, 9}));
}

TEST_F(GltfMeshTest, EqualMeshesAreOne) {
    GlbBuilder builder;
    const int positions = builder.add(Float, "VEC3", 3, Corners);
    const std::string primitive = "{\"primitives\":[{\"attributes\":{\"POSITION\":" + number(positions) + "}}]}";
    const ImportResult result = import("a.glb",
        builder.file("\"nodes\":[{\"mesh\":0},{\"mesh\":1}],\"scenes\":[{\"nodes\":[0,1]}],"
                     "\"meshes\":[" +
            primitive + ',' + primitive + ']'));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_EQ(result.count("meshes"), 1u);
    EXPECT_EQ(result.count("objects"), 3u);
}

TEST_F(GltfMeshTest, BrokenTrianglesGoAndTheOthersStay) {
    GlbBuilder builder;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const int positions = builder.add(Float, "VEC3", 3, std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, nan, 0, 0});
    const int normals = builder.add(Float, "VEC3", 3, std::vector<float>{nan, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1});
    const int indices =
        builder.add(UnsignedInt, "SCALAR", 1, std::vector<std::uint32_t>{0, 1, 2, 0, 1, 3, 0, 1, 4, 0, 1, 4000000000u});
    const ImportResult result = import("a.glb",
        withPrimitive(builder,
            "\"indices\":" + number(indices) + ",\"attributes\":{\"POSITION\":" + number(positions) +
                ",\"NORMAL\":" + number(normals) + "}"));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_TRUE(result.hasWarning("mesh \"Shape\": 3 triangles")) << result.text();
    EXPECT_TRUE(result.hasWarning("mesh \"Shape\": values that are not finite")) << result.text();
    const auto mesh = meshOf(result);
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->indexCount(), 3u);
    EXPECT_EQ(mesh->vertexCount(), 3u);
    EXPECT_EQ(mesh->attribute<Vector3>(Trade::MeshAttribute::Normal)[0], (Vector3{0, 0, 0}));
}

TEST_F(GltfMeshTest, WhatIsLeftOutIsSaid) {
    GlbBuilder builder;
    const int positions = builder.add(Float, "VEC3", 3, Corners);
    const int others = builder.add(Float, "VEC2", 2, std::vector<float>(6));
    const int four = builder.add(Float, "VEC3", 3, std::vector<float>(12));
    const std::string place = "\"POSITION\":" + number(positions);
    const ImportResult result = import("a.glb",
        withPrimitive(builder,
            "\"targets\":[{}],\"attributes\":{" + place + ",\"TEXCOORD_2\":" + number(others) +
                ",\"COLOR_1\":" + number(others) + ",\"JOINTS_1\":" + number(others) + ",\"NORMAL\":" + number(four) +
                "}},{\"mode\":1,\"attributes\":{" + place + "}},{\"mode\":0,\"attributes\":{" + place +
                "}},{\"attributes\":{}},{\"attributes\":{\"POSITION\":99}},{\"indices\":" + number(positions) +
                ",\"attributes\":{" + place + '}'));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_EQ(result.count("meshes"), 1u);
    for(const char* const part: {"\"Shape\": its morph targets", "\"Shape\": texture coordinates beyond the second",
            "\"Shape\": vertex colours beyond", "\"Shape\": joints beyond the fourth",
            "\"Shape\": an attribute without an element for each vertex",
            "\"Shape 2\" is left out: it consists of lines", "\"Shape 3\" is left out: it consists of points",
            "\"Shape 4\" is left out: it has no positions", "\"Shape 5\" is left out",
            "\"Shape 6\" is left out: the type of accessor"})
        EXPECT_TRUE(result.hasWarning(part)) << part << '\n' << result.text();
}

TEST_F(GltfMeshTest, ManyVerticesTakeLargerIndices) {
    GlbBuilder builder;
    std::vector<float> corners;
    for(int i = 0; i != 66000; ++i) corners.insert(corners.end(), {float(i), float(i % 7), float(i % 3)});
    const int positions = builder.add(Float, "VEC3", 3, corners);
    const auto mesh =
        meshOf(import("a.glb", withPrimitive(builder, "\"attributes\":{\"POSITION\":" + number(positions) + "}")));
    ASSERT_TRUE(mesh);
    ASSERT_EQ(mesh->indexType(), MeshIndexType::UnsignedInt);
    EXPECT_EQ(mesh->indices<std::uint32_t>()[65999], 65999u);
}

} // namespace

} // namespace VantrelImport::Test
