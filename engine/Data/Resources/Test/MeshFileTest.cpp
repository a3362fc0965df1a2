#include "Data/Resources/MeshFile.h"

#include <cmath>
#include <limits>
#include <random>

#include <Magnum/Math/Color.h>
#include <Magnum/Mesh.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Data/Resources/MeshShape.h"
#include "GlbBuilder.h"
#include "Vantrel/EngineData/SceneResources.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelEngine::Test;
using testing::ElementsAre;
using testing::HasSubstr;
// The builder's are meant.
using VantrelEngine::Test::Byte;
using VantrelEngine::Test::Float;
using VantrelEngine::Test::UnsignedByte;
using VantrelEngine::Test::UnsignedInt;
using VantrelEngine::Test::UnsignedShort;

std::string meshes(const std::string& attributes, const std::string& more = {}) {
    return "\"meshes\":[{\"primitives\":[{\"attributes\":{" + attributes + "}" + more + "}]}]";
}

const std::vector<float> Triangle{0, 0, 0, 2, 0, 0, 0, 4, -6};

// A mesh of three vertices and two triangles with everything.
std::string fullFile() {
    GlbBuilder builder;
    builder.add(Float, "VEC3", 3, Triangle, false, 16);
    builder.add(Float, "VEC3", 3, std::vector<float>{0, 0, 1, 0, 0, 1, 0, 1, 0});
    builder.add(Float, "VEC4", 4, std::vector<float>{1, 0, 0, 1, 1, 0, 0, -1, 1, 0, 0, 1});
    builder.add(UnsignedShort, "VEC2", 2, std::vector<std::uint16_t>{0, 0, 65535, 0, 0, 65535}, true);
    builder.add(Float, "VEC2", 2, std::vector<float>{0.25f, 0.75f, 1, 2, 0, -1});
    builder.add(UnsignedByte, "VEC3", 3, std::vector<std::uint8_t>{255, 0, 0, 0, 255, 0, 0, 0, 51}, true, 4);
    builder.add(UnsignedByte, "VEC4", 4, std::vector<std::uint8_t>{0, 1, 2, 255, 4, 5, 6, 7, 8, 9, 10, 11});
    builder.add(Float, "VEC4", 4, std::vector<float>{1, 0, 0, 0, 0.5f, 0.5f, 0, 0, 0.25f, 0.25f, 0.25f, 0.25f});
    builder.add(UnsignedShort, "SCALAR", 1, std::vector<std::uint16_t>{0, 1, 2, 2, 1, 0});
    return builder.file(meshes("\"POSITION\":0,\"NORMAL\":1,\"TANGENT\":2,\"TEXCOORD_0\":3,\"TEXCOORD_1\":4,"
                               "\"COLOR_0\":5,\"JOINTS_0\":6,\"WEIGHTS_0\":7,\"TEXCOORD_7\":99",
        ",\"indices\":8,\"mode\":4"));
}

template<class T> std::vector<T> list(const Corrade::Containers::Array<T>& array) {
    return {array.begin(), array.end()};
}

std::string reasonOf(const std::string& bytes) {
    std::string reason;
    EXPECT_FALSE(readMesh(view(bytes), reason));
    return reason;
}

TEST(MeshFileTest, everything) {
    const std::string bytes = fullFile();
    std::string reason;
    const auto mesh = readMesh(view(bytes), reason);
    ASSERT_TRUE(mesh) << reason;
    EXPECT_EQ(mesh->primitive(), MeshPrimitive::Triangles);
    EXPECT_EQ(mesh->vertexCount(), 3u);
    EXPECT_THAT(list(mesh->indicesAsArray()), ElementsAre(0, 1, 2, 2, 1, 0));
    EXPECT_THAT(list(mesh->positions3DAsArray()), ElementsAre(Vector3{0, 0, 0}, Vector3{2, 0, 0}, Vector3{0, 4, -6}));
    EXPECT_THAT(list(mesh->normalsAsArray()), ElementsAre(Vector3{0, 0, 1}, Vector3{0, 0, 1}, Vector3{0, 1, 0}));
    EXPECT_EQ(mesh->attribute<Vector4>(Trade::MeshAttribute::Tangent)[1], (Vector4{1, 0, 0, -1}));
    // The file counts from the top.
    EXPECT_THAT(list(mesh->textureCoordinates2DAsArray(0)), ElementsAre(Vector2{0, 1}, Vector2{1, 1}, Vector2{0, 0}));
    EXPECT_THAT(
        list(mesh->textureCoordinates2DAsArray(1)), ElementsAre(Vector2{0.25f, 0.25f}, Vector2{1, -1}, Vector2{0, 2}));
    EXPECT_THAT(
        list(mesh->colorsAsArray()), ElementsAre(Color4{1, 0, 0, 1}, Color4{0, 1, 0, 1}, Color4{0, 0, 0.2f, 1}));
    EXPECT_THAT(list(mesh->jointIdsAsArray()), ElementsAre(0, 1, 2, 255, 4, 5, 6, 7, 8, 9, 10, 11));
    EXPECT_THAT(list(mesh->weightsAsArray()), ElementsAre(1, 0, 0, 0, 0.5f, 0.5f, 0, 0, 0.25f, 0.25f, 0.25f, 0.25f));
    EXPECT_EQ(mesh->attributeCount(), 8u);
    EXPECT_EQ(meshLayout(*mesh),
        LayoutNormal | LayoutTangent | LayoutTextureCoordinates | LayoutSecondTextureCoordinates | LayoutColor |
            LayoutJoints);
    // One buffer, vertex by vertex.
    for(Magnum::UnsignedInt i = 0; i != mesh->attributeCount(); ++i)
        EXPECT_EQ(std::size_t(mesh->attributeStride(i)) * 3, mesh->vertexData().size());
}

TEST(MeshFileTest, withoutIndices) {
    const std::string bytes = meshFile({0, 0, 0, 1, 0, 0, 0, 1, 0, 5, 5, 5, 6, 5, 5, 5, 6, 5});
    std::string reason;
    const auto mesh = readMesh(view(bytes), reason);
    ASSERT_TRUE(mesh) << reason;
    EXPECT_FALSE(mesh->isIndexed());
    EXPECT_EQ(mesh->vertexCount(), 6u);
    EXPECT_EQ(meshLayout(*mesh), 0u);
}

TEST(MeshFileTest, indexTypes) {
    const auto read = [](auto values, ComponentType type) {
        GlbBuilder builder;
        builder.add(Float, "VEC3", 3, Triangle);
        builder.add(type, "SCALAR", 1, values);
        const std::string bytes = builder.file(meshes("\"POSITION\":0", ",\"indices\":1"));
        std::string reason;
        auto mesh = readMesh(view(bytes), reason);
        EXPECT_TRUE(mesh) << reason;
        return mesh ? list(mesh->indicesAsArray()) : std::vector<Magnum::UnsignedInt>{};
    };
    EXPECT_THAT(read(std::vector<std::uint8_t>{2, 1, 0}, UnsignedByte), ElementsAre(2, 1, 0));
    EXPECT_THAT(read(std::vector<std::uint16_t>{2, 1, 0}, UnsignedShort), ElementsAre(2, 1, 0));
    EXPECT_THAT(read(std::vector<std::uint32_t>{2, 1, 0}, UnsignedInt), ElementsAre(2, 1, 0));
}

TEST(MeshFileTest, fourComponentColorsKeepTheirAlpha) {
    GlbBuilder builder;
    builder.add(Float, "VEC3", 3, Triangle);
    builder.add(Float, "VEC4", 4, std::vector<float>{1, 2, 3, 0.5f, 0, 0, 0, 0, 0, 0, 0, 1});
    const std::string bytes = builder.file(meshes("\"POSITION\":0,\"COLOR_0\":1"));
    std::string reason;
    const auto mesh = readMesh(view(bytes), reason);
    ASSERT_TRUE(mesh) << reason;
    EXPECT_EQ(mesh->colorsAsArray()[0], (Color4{1, 2, 3, 0.5f}));
}

// Of a file with a triangle's positions, a list of three indices and others that do not fit.
TEST(MeshFileTest, meshesThatAreNone) {
    GlbBuilder builder;
    builder.add(Float, "VEC3", 3, Triangle);
    builder.add(UnsignedShort, "SCALAR", 1, std::vector<std::uint16_t>{0, 1, 3});
    builder.add(UnsignedShort, "SCALAR", 1, std::vector<std::uint16_t>{0, 1});
    builder.add(Float, "VEC2", 2, std::vector<float>{0, 0, 1, 1});
    builder.add(Byte, "VEC3", 3, std::vector<std::int8_t>{0, 0, 0, 0, 0, 0, 0, 0, 0}, true);
    builder.add(UnsignedShort, "VEC4", 4, std::vector<std::uint16_t>(12));
    builder.add(Float, "VEC3", 3, std::vector<float>{0, 0, 0, 1, 1, 1});
    builder.add(UnsignedByte, "VEC2", 2, std::vector<std::uint8_t>(6));
    const struct {
        std::string members;
        const char* reason;
    } data[]{{"\"x\":0", "no mesh"}, {"\"meshes\":{}", "no mesh"}, {"\"meshes\":[]", "no mesh"},
        {"\"meshes\":[{\"primitives\":[]}]", "no mesh"}, {"\"meshes\":[{\"primitives\":[1]}]", "no attributes"},
        {"\"meshes\":[{\"primitives\":[{}]}]", "no attributes"}, {meshes(""), "no POSITION"},
        {meshes("\"NORMAL\":0"), "no POSITION"}, {meshes("\"POSITION\":0", ",\"mode\":5"), "its mode is 5"},
        {meshes("\"POSITION\":0", ",\"mode\":\"4\""), "\"mode\" is not a whole"},
        {meshes("\"POSITION\":4"), "POSITION: its type"}, {meshes("\"POSITION\":3"), "POSITION: its type"},
        {meshes("\"POSITION\":99"), "POSITION: accessor 99: it is not there"},
        {meshes("\"POSITION\":-1"), "\"POSITION\" is not a whole"},
        {meshes("\"POSITION\":0,\"NORMAL\":4"), "NORMAL: its type"},
        {meshes("\"POSITION\":0,\"NORMAL\":6"), "NORMAL: there are 2 elements for 3 vertices"},
        {meshes("\"POSITION\":0,\"TEXCOORD_0\":7"), "TEXCOORD_0: its type"},
        {meshes("\"POSITION\":0,\"TEXCOORD_0\":3"), "TEXCOORD_0: there are 2 elements for 3 vertices"},
        {meshes("\"POSITION\":0,\"TANGENT\":0"), "TANGENT: its type"},
        {meshes("\"POSITION\":0,\"JOINTS_0\":5"), "JOINTS_0 and WEIGHTS_0"},
        {meshes("\"POSITION\":0,\"JOINTS_0\":0"), "JOINTS_0: its type"},
        {meshes("\"POSITION\":0,\"WEIGHTS_0\":5"), "WEIGHTS_0: its type"},
        {meshes("\"POSITION\":6"), "2 vertices are no whole triangles"},
        {meshes("\"POSITION\":0", ",\"indices\":1"), "index 3 is out of range for 3 vertices"},
        {meshes("\"POSITION\":0", ",\"indices\":2"), "2 indices are no whole triangles"},
        {meshes("\"POSITION\":0", ",\"indices\":0"), "indices: their type"},
        {meshes("\"POSITION\":0", ",\"indices\":99"), "indices: accessor 99"},
        {meshes("\"POSITION\":0", ",\"indices\":null"), "\"indices\" is not a whole"}};
    for(const auto& row: data) EXPECT_THAT(reasonOf(builder.file(row.members)), HasSubstr(row.reason)) << row.members;
}

TEST(MeshFileTest, positionsAreFinite) {
    for(const float value: {NAN, INFINITY, -INFINITY}) {
        for(std::size_t i = 0; i != Triangle.size(); ++i) {
            std::vector<float> positions = Triangle;
            positions[i] = value;
            EXPECT_EQ(reasonOf(meshFile(positions)), "a position is not finite");
        }
    }
}

TEST(MeshFileTest, bounds) {
    const std::string bytes = meshFile(Triangle);
    std::string reason;
    const MeshBounds bounds = meshBounds(*readMesh(view(bytes), reason));
    EXPECT_EQ(bounds.box, (Range3D{{0, 0, -6}, {2, 4, 0}}));
    // From (1, 2, -3) to each of the three corners.
    EXPECT_FLOAT_EQ(bounds.radius, std::sqrt(14.0f));

    const float huge = std::numeric_limits<float>::max();
    const std::string wide = meshFile({huge, huge, huge, -huge, -huge, -huge, 0, 0, 0});
    EXPECT_EQ(meshBounds(*readMesh(view(wide), reason)).radius, huge);
    const std::string far = meshFile({3e38f, 0, 0, 2e38f, 0, 0, 3e38f, 0, 0});
    EXPECT_FLOAT_EQ(meshBounds(*readMesh(view(far), reason)).radius, 0.5e38f);
}

// What is read of a file, however it came about, is sound.
void expectSound(const Trade::MeshData& mesh) {
    ASSERT_TRUE(mesh.hasAttribute(Trade::MeshAttribute::Position));
    const MeshBounds bounds = meshBounds(mesh);
    EXPECT_TRUE(std::isfinite(bounds.radius));
    EXPECT_TRUE(mesh.vertexCount() > 0);
    if(mesh.isIndexed()) {
        for(const Magnum::UnsignedInt index: mesh.indicesAsArray()) EXPECT_LT(index, mesh.vertexCount());
    }
    EXPECT_EQ((mesh.isIndexed() ? mesh.indexCount() : mesh.vertexCount()) % 3, 0u);
}

TEST(MeshFileTest, damagedAtRandom) {
    const std::string good = fullFile();
    std::mt19937 random{1};
    int readable = 0;
    for(int i = 0; i != 20000; ++i) {
        std::string bytes = good;
        for(unsigned flips = 1 + random() % 3; flips != 0; --flips)
            bytes[random() % bytes.size()] ^= char(1 << random() % 8);
        std::string reason;
        const auto mesh = readMesh(view(bytes), reason);
        ASSERT_NE(bool(mesh), !reason.empty());
        if(!mesh) continue;
        ++readable;
        expectSound(*mesh);
    }
    // Most of the file is floats, of which any is as good as another.
    EXPECT_GT(readable, 2000);
    EXPECT_LT(readable, 18000);
}

TEST(MeshFileTest, truncatedAnywhere) {
    const std::string good = fullFile();
    for(std::size_t size = 0; size != good.size(); ++size) {
        // Once as it is, and once with a header that agrees.
        std::string bytes = good.substr(0, size);
        EXPECT_FALSE(reasonOf(bytes).empty());
        if(size < 12) continue;
        std::string length;
        appendWord(length, std::uint32_t(size));
        bytes.replace(8, 4, length);
        EXPECT_FALSE(reasonOf(bytes).empty()) << size;
    }
}

TEST(MeshShapeTest, allShapes) {
    for(std::size_t i = 0; i != MeshShapeCount; ++i) {
        const Trade::MeshData mesh = shapeMesh(MeshShape(i));
        EXPECT_EQ(mesh.primitive(), MeshPrimitive::Triangles) << i;
        EXPECT_EQ(meshLayout(mesh), LayoutNormal | LayoutTextureCoordinates) << i;
        const MeshBounds bounds = meshBounds(mesh);
        const bool isFlat = MeshShape(i) == MeshShape::Plane;
        EXPECT_EQ(bounds.box, (Range3D{{-1, -1, isFlat ? 0.0f : -1.0f}, {1, 1, isFlat ? 0.0f : 1.0f}})) << i;
        expectSound(mesh);
    }
    EXPECT_EQ(meshBounds(placeholderMesh()).box, (Range3D{Vector3{-0.5f}, Vector3{0.5f}}));
}

// Whoever looks from outside sees fronts: normals lead away from the inside, and triangles wind around them.
TEST(MeshShapeTest, facesLookOutwards) {
    for(const MeshShape shape:
        {MeshShape::Cube, MeshShape::Sphere, MeshShape::Plane, MeshShape::Cylinder, MeshShape::Cone}) {
        const Trade::MeshData mesh = shapeMesh(shape);
        const auto positions = mesh.positions3DAsArray(), normals = mesh.normalsAsArray();
        const auto indices = mesh.indicesAsArray();
        // The plane has no inside; what is behind it is.
        const Vector3 inside = shape == MeshShape::Plane ? Vector3{0, 0, -1} : Vector3{};
        for(std::size_t i = 0; i != indices.size(); i += 3) {
            const Vector3 a = positions[indices[i]], b = positions[indices[i + 1]], c = positions[indices[i + 2]];
            const Vector3 wound = Math::cross(b - a, c - a);
            // At the pole of a sphere and the tip of a cone two corners may be one.
            if(wound.dot() < 1e-10f) continue;
            EXPECT_GT(Math::dot(wound, a - inside), 0.0f) << int(shape) << ' ' << i;
            for(std::size_t j = 0; j != 3; ++j)
                EXPECT_GT(Math::dot(wound, normals[indices[i + j]]), 0.0f) << int(shape) << ' ' << i;
        }
    }
}

}
