#include <cmath>

#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector3.h>
#include <Magnum/Math/Vector4.h>
#include <gmock/gmock.h>

#include "Data/Resources/AnimationFile.h"
#include "Data/Resources/MeshFile.h"
#include "Data/Resources/Test/GlbBuilder.h"
#include "Import/Converter/Test/ConverterFixture.h"
#include "Import/Converter/Test/ModelTexts.h"

namespace VantrelImport::Test {

namespace {

using namespace testing;
using VantrelEngine::Test::view;
using Magnum::Vector2;
using Magnum::Vector3;
namespace Trade = Magnum::Trade;

using LibraryImportTest = ConverterTest;

std::optional<Trade::MeshData> meshOf(const ImportResult& result, const JsonValue& entry) {
    std::string reason;
    const std::string bytes = result.file(entry);
    auto mesh = VantrelEngine::readMesh(view(bytes), reason);
    EXPECT_TRUE(mesh) << reason << '\n' << result.text();
    return mesh;
}

std::vector<float> placeOf(const ImportResult& result, const std::string& object, const char* key) {
    return numbers(result.named("objects", object)[key]);
}

TEST_F(LibraryImportTest, ObjWithMaterials) {
    write("paint.mtl",
        "newmtl Red\nKd 0.8 0.1 0.2\nKs 0.5 0.5 0.5\nNs 30\nd 0.5\nmap_Kd tex\\skin.png\nmap_Bump skin_normal.png\n"
        "newmtl Dull\nKd 1 1 1\nmap_Bump heights.png\n");
    std::filesystem::create_directory(models.path("tex"));
    write("tex/skin.png", pngPixel());
    write("skin_normal.png", pngPixel());
    const ImportResult result = import("a.obj",
        "mtllib paint.mtl\nv 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nvt 0 0\nvt 1 0\nvt 1 0.75\nvn 0 0 1\n"
        "o Quad\nusemtl Red\nf 1/1/1 2/2/1 3/3/1\no Half\nusemtl Dull\nf 1//1 3//1 4//1\n");
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_EQ(result.count("objects"), 3u);
    EXPECT_EQ(result.count("meshes"), 2u);
    const auto mesh = meshOf(result, result.named("meshes", "Quad"));
    ASSERT_TRUE(mesh);
    ASSERT_EQ(mesh->vertexCount(), 3u);
    EXPECT_EQ(mesh->attribute<Vector2>(Trade::MeshAttribute::TextureCoordinates)[2], (Vector2{1, 0.75f}));
    EXPECT_EQ(mesh->attribute<Vector3>(Trade::MeshAttribute::Normal)[0], (Vector3{0, 0, 1}));

    const JsonValue& red = result.named("materials", "Red");
    EXPECT_EQ(red["pipeline"].GetString(), result.idOf("pipelines", "Lit Blend"));
    EXPECT_THAT(numbers(red["Lit"]["baseColor"]), ElementsAre(0.8f, 0.1f, 0.2f, 0.5f));
    EXPECT_NEAR(red["Lit"]["roughness"].GetFloat(), std::pow(2.0f / 32.0f, 0.25f), 1e-5f);
    EXPECT_EQ(red["Lit"]["baseColorTexture"].GetString(), result.idOf("textures", "skin"));
    EXPECT_EQ(red["Lit"]["normalTexture"].GetString(), result.idOf("textures", "skin_normal"));
    EXPECT_TRUE(result.hasWarning("\"Dull\": its height map \"heights.png\" is left out")) << result.text();
}

TEST_F(LibraryImportTest, ObjWithoutMaterialsAndNormals) {
    const ImportResult result = import("a.obj", ObjText);
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_STREQ(result.only("materials")["name"].GetString(), "Default");
    EXPECT_THAT(numbers(result.only("materials")["Lit"]["baseColor"]), ElementsAre(0.8f, 0.8f, 0.8f, 1));
    const auto mesh = meshOf(result, result.only("meshes"));
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->attribute<Vector3>(Trade::MeshAttribute::Normal)[0], (Vector3{0, 0, 1}));
}

TEST_F(LibraryImportTest, ImagesOnOthersMachinesAreLookedForBesideTheFile) {
    write("m.mtl", "newmtl A\nKd 1 1 1\nmap_Kd C:\\work\\wood.png\nnewmtl B\nKd 1 1 1\nmap_Kd C:\\work\\gone.png\n");
    write("wood.png", pngPixel());
    const ImportResult result =
        import("a.obj", "mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 1 1 0\nusemtl A\nf 1 2 3\nusemtl B\nf 1 3 2\n");
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_EQ(result.count("images"), 1u);
    EXPECT_TRUE(result.hasWarning("gone.png\" is left out")) << result.text();
}

TEST_F(LibraryImportTest, Ply) {
    const ImportResult result = import("a.ply", PlyText);
    ASSERT_TRUE(result.isDone()) << result.text();
    const auto mesh = meshOf(result, result.only("meshes"));
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->indexCount(), 6u);
    const auto colors = mesh->attribute<Magnum::Vector4>(Trade::MeshAttribute::Color);
    bool isRed = false;
    for(std::size_t i = 0; i != colors.size(); ++i) isRed |= colors[i] == Magnum::Vector4{1, 0, 0, 1};
    EXPECT_TRUE(isRed);
}

std::string binaryPly(bool isBigEndian) {
    std::string bytes = std::string{"ply\nformat binary_"} + (isBigEndian ? "big" : "little") +
        "_endian 1.0\ncomment c\nelement vertex 3\nproperty float x\nproperty float y\nproperty float z\n"
        "element face 1\nproperty list uchar int vertex_indices\nend_header\n";
    const auto append = [&](std::uint32_t value) {
        for(unsigned i = 0; i != 4; ++i) bytes += char(value >> 8 * (isBigEndian ? 3 - i : i));
    };
    for(const std::uint32_t coordinate: {0u, 0u, 0u, 0x3f800000u, 0u, 0u, 0u, 0x3f800000u, 0u}) append(coordinate);
    bytes += '\3';
    for(const std::uint32_t index: {0u, 1u, 2u}) append(index);
    return bytes;
}

// The library would wait for the rest until its time is over.
TEST_F(LibraryImportTest, APlyFileThatIsCutIsRefusedAtOnce) {
    const std::string text = PlyText;
    for(const std::string& whole: {text.substr(0, text.size() - 1), binaryPly(false), binaryPly(true)}) {
        EXPECT_TRUE(import("a.ply", whole).isDone());
        for(std::size_t size = 1; size < whole.size(); size += size < whole.size() - 40 ? 20 : 1) {
            const ImportResult result = import("a.ply", whole.substr(0, size));
            EXPECT_THAT(result.error(),
                AnyOf("its header has no end", "the file ends before its last element",
                    "an element of its header has no number", "a property of its header has no known type"))
                << size << result.text();
        }
    }
    std::string claim = PlyText;
    claim.replace(claim.find("face 1"), 6, "face 4000000000");
    EXPECT_EQ(import("a.ply", claim).error(), "the file ends before its last element");
}

TEST_F(LibraryImportTest, PointsAndLinesAreSaid) {
    const ImportResult result = import("a.obj", "v 0 0 0\nv 1 0 0\nv 1 1 0\no Mixed\nf 1 2 3\nl 1 2\nl 2 3\n");
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_EQ(result.count("meshes"), 1u);
    EXPECT_TRUE(result.hasWarning("2 points or lines are left out")) << result.text();
}

TEST_F(LibraryImportTest, StlAsTextAndBinary) {
    for(const std::string& file: {std::string{StlText}, binaryStl()}) {
        const ImportResult result = import("a.stl", file);
        ASSERT_TRUE(result.isDone()) << result.text();
        const auto mesh = meshOf(result, result.only("meshes"));
        ASSERT_TRUE(mesh);
        EXPECT_EQ(mesh->indexCount(), 3u);
        EXPECT_EQ(mesh->attribute<Vector3>(Trade::MeshAttribute::Normal)[0], (Vector3{0, 0, 1}));
    }
}

TEST_F(LibraryImportTest, ColladaStandsUprightInMetres) {
    write("pic one.png", pngPixel());
    const ImportResult result = import("a.dae", DaeText);
    ASSERT_TRUE(result.isDone()) << result.text();
    const float half = std::sqrt(0.5f);
    EXPECT_THAT(placeOf(result, "s", "rotation"), Pointwise(FloatNear(1e-6f), {-half, 0.0f, 0.0f, half}));
    EXPECT_THAT(placeOf(result, "s", "scaling"), Pointwise(FloatNear(1e-6f), {0.01f, 0.01f, 0.01f}));
    EXPECT_THAT(placeOf(result, "Thing", "translation"), ElementsAre(0, 0, 100));
    EXPECT_EQ(
        result.named("materials", "Red")["Lit"]["baseColorTexture"].GetString(), result.idOf("textures", "pic one"));
    // 40 degrees upright, in a picture that is twice as wide as high.
    EXPECT_NEAR(result.component("Cam", "view")["fov"].GetFloat(), 72.1048f, 1e-3f);
    EXPECT_STREQ(result.component("Sun Light", "light")["type"].GetString(), "sun");
    EXPECT_EQ(result.component("Sun Light", "light")["intensity"].GetFloat(), 2.0f);
    EXPECT_EQ(result.component("Spot Light", "light")["outerAngle"].GetFloat(), 30.0f);
}

TEST_F(LibraryImportTest, ColladaBendsWithSkinAndAnimation) {
    const ImportResult result = import("a.dae", SkinnedDaeText);
    ASSERT_TRUE(result.isDone()) << result.text();
    const JsonValue& skin = result.only("skins");
    ASSERT_EQ(skin["joints"].Size(), 2u);
    EXPECT_EQ(skin["joints"][1].GetString(), result.idOf("objects", "Tip"));
    EXPECT_TRUE(result.component("Body", "mesh").HasMember("skin"));
    const auto mesh = meshOf(result, result.only("meshes"));
    ASSERT_TRUE(mesh);
    const auto weights = mesh->weightsAsArray();
    EXPECT_THAT(std::vector<float>(weights.begin(), weights.begin() + 4), UnorderedElementsAre(0.25f, 0.75f, 0, 0));

    const JsonValue& animation = result.only("animations");
    ASSERT_EQ(animation["targets"].Size(), 1u);
    EXPECT_EQ(animation["targets"][0].GetString(), result.idOf("objects", "Tip"));
    std::string reason;
    const std::string bytes = result.file(animation);
    const auto data = VantrelEngine::readAnimation(view(bytes), reason);
    ASSERT_TRUE(data) << reason;
    EXPECT_EQ(data->duration().max(), 2.0f);
    EXPECT_EQ(data->track<Vector3>(0).at(2.0f), (Vector3{0, 5, 0}));
}

TEST_F(LibraryImportTest, FbxStandsUprightInMetres) {
    const ImportResult result = import("a.fbx", FbxText);
    ASSERT_TRUE(result.isDone()) << result.text();
    const float half = std::sqrt(0.5f);
    EXPECT_THAT(placeOf(result, "RootNode", "rotation"), Pointwise(FloatNear(1e-6f), {-half, 0.0f, 0.0f, half}));
    EXPECT_THAT(placeOf(result, "RootNode", "scaling"), Pointwise(FloatNear(1e-6f), {0.01f, 0.01f, 0.01f}));
    EXPECT_THAT(placeOf(result, "Thing", "translation"), ElementsAre(0, 0, 100));
    EXPECT_EQ(result.named("materials", "Red")["pipeline"].GetString(), result.idOf("pipelines", "Lit Blend"));
    EXPECT_THAT(numbers(result.named("materials", "Red")["Lit"]["baseColor"]), ElementsAre(0.8f, 0.1f, 0.1f, 0.5f));
    const auto mesh = meshOf(result, result.only("meshes"));
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->indexCount(), 3u);
}

TEST_F(LibraryImportTest, WhatTheLibrarySaysAndAnEmptySceneAreWarnings) {
    const ImportResult result = import("a.fbx", VantrelEngine::Test::replaced(FbxText, "a: 0,1,-3", "a: 0,7,-3"));
    EXPECT_TRUE(result.isDone()) << result.text();
    EXPECT_TRUE(result.hasWarning("there is nothing in it")) << result.text();
    EXPECT_GE(result.texts("warning").size(), 2u) << result.text();
}

TEST_F(LibraryImportTest, ARootThatOnlyHoldsTheOthersGoes) {
    std::string text = FbxText;
    for(const auto& [from, to]:
        {std::pair{"\"UpAxis\", \"int\", \"Integer\", \"\",2", "\"UpAxis\", \"int\", \"Integer\", \"\",1"},
            {"\"FrontAxis\", \"int\", \"Integer\", \"\",1", "\"FrontAxis\", \"int\", \"Integer\", \"\",2"},
            {"\"FrontAxisSign\", \"int\", \"Integer\", \"\",-1", "\"FrontAxisSign\", \"int\", \"Integer\", \"\",1"},
            {"\"Number\", \"\",1", "\"Number\", \"\",100"}})
        text = VantrelEngine::Test::replaced(text, from, to);
    const ImportResult result = import("metres.fbx", text);
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_EQ(result.count("objects"), 2u);
    EXPECT_EQ(result.named("objects", "Thing")["parent"].GetString(), result.idOf("objects", "metres"));
}

} // namespace

} // namespace VantrelImport::Test
