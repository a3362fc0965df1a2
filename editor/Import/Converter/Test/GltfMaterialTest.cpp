#include <cmath>

#include <Magnum/Math/Vector2.h>
#include <gmock/gmock.h>

#include "Data/Project/DefaultSettings.h"
#include "Import/Converter/SpecularGlossiness.h"
#include "Import/Converter/Test/ConverterFixture.h"
#include "Import/Converter/Test/GltfText.h"

namespace VantrelImport::Test {

namespace {

using namespace testing;
using Magnum::Vector2;
using Magnum::Vector3;

class GltfMaterialTest: public ConverterTest {
public:
    // A triangle with this material, and whatever else the file holds.
    ImportResult importMaterial(const std::string& material, const std::string& more = {}) const {
        return import("a.gltf", triangleGltf(",\"materials\":[" + material + ']' + more));
    }
};

std::string textures(const std::string& list, const std::string& images) {
    return ",\"textures\":[" + list + "],\"images\":[" + images + ']';
}

const std::string Image = "{\"name\":\"Pixel\",\"uri\":\"" + std::string{PngUri} + "\"}";

TEST_F(GltfMaterialTest, ValuesOfAllKinds) {
    const ImportResult result = importMaterial(R"({"name":"Paint","pbrMetallicRoughness":{
        "baseColorFactor":[0.1,0.2,0.3,0.4],"metallicFactor":0.5,"roughnessFactor":0.25,"baseColorTexture":{"index":0},
        "metallicRoughnessTexture":{"index":0}},"normalTexture":{"index":0,"scale":0.75},"occlusionTexture":{"index":0},
        "emissiveTexture":{"index":0},"emissiveFactor":[1,0.5,0],
        "extensions":{"KHR_materials_emissive_strength":{"emissiveStrength":4}}})",
        textures("{\"source\":0}", Image));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_THAT(result.texts("warning"), IsEmpty());
    const JsonValue& material = result.only("materials");
    const JsonValue& values = material["Lit"];
    EXPECT_THAT(numbers(values["baseColor"]), ElementsAre(0.1f, 0.2f, 0.3f, 0.4f));
    EXPECT_EQ(values["metalness"].GetFloat(), 0.5f);
    EXPECT_EQ(values["roughness"].GetFloat(), 0.25f);
    EXPECT_EQ(values["normalScale"].GetFloat(), 0.75f);
    EXPECT_THAT(numbers(values["emissiveColor"]), ElementsAre(4, 2, 0, 1));

    // One file, as colours and as numbers.
    EXPECT_EQ(result.count("images"), 2u);
    EXPECT_EQ(result.count("textures"), 2u);
    const auto spaceOf = [&](const char* key) {
        const JsonValue& texture = result.json["textures"][values[key].GetString()];
        const JsonValue& image = result.json["images"][texture["image"].GetString()];
        EXPECT_EQ(result.file(image), pngPixel()) << key;
        return std::string{image["colorSpace"].GetString()};
    };
    EXPECT_EQ(spaceOf("baseColorTexture"), "srgb");
    EXPECT_EQ(spaceOf("emissiveTexture"), "srgb");
    EXPECT_EQ(spaceOf("metallicRoughnessTexture"), "linear");
    EXPECT_EQ(spaceOf("normalTexture"), "linear");
    EXPECT_EQ(spaceOf("occlusionTexture"), "linear");
}

TEST_F(GltfMaterialTest, MissingValuesAreThoseOfTheFormat) {
    const ImportResult result = importMaterial("{}");
    const JsonValue& values = result.named("materials", "Material 1")["Lit"];
    EXPECT_THAT(numbers(values["baseColor"]), ElementsAre(1, 1, 1, 1));
    EXPECT_EQ(values["metalness"].GetFloat(), 1.0f);
    EXPECT_EQ(values["roughness"].GetFloat(), 1.0f);
}

TEST_F(GltfMaterialTest, PlainShadersAndPipelinesAreThoseOfANewProject) {
    const JsonDocument project = VantrelEngine::newProject();
    const ImportResult lit = importMaterial("{\"name\":\"A\"}");
    EXPECT_TRUE(lit.only("shaders") == project["shaders"]["lit"]);
    EXPECT_TRUE(lit.only("pipelines") == project["pipelines"]["lit"]);
    const JsonValue& expected = project["materials"]["lit"]["Lit"];
    EXPECT_EQ(lit.only("materials")["Lit"].MemberCount(), expected.MemberCount());
    for(const auto& member: expected.GetObject()) EXPECT_TRUE(lit.only("materials")["Lit"].HasMember(member.name));

    const ImportResult flat = importMaterial(R"({"extensions":{"KHR_materials_unlit":{}},
        "pbrMetallicRoughness":{"baseColorFactor":[1,0,0,1]}})");
    EXPECT_TRUE(flat.only("shaders") == project["shaders"]["flat"]);
    EXPECT_TRUE(flat.only("pipelines") == project["pipelines"]["flat"]);
    EXPECT_THAT(numbers(flat.only("materials")["Flat"]["color"]), ElementsAre(1, 0, 0, 1));
}

TEST_F(GltfMaterialTest, APipelineForEachWayToDraw) {
    const auto pipelineOf = [&](const std::string& material) {
        const ImportResult result = importMaterial(material);
        const JsonValue& pipeline = result.only("pipelines");
        const auto is = [&](const char* key) { return pipeline.HasMember(key) && pipeline[key].GetBool(); };
        return std::string{pipeline["name"].GetString()} + (is("doubleSided") ? ", double" : "") +
            (is("alphaMask") ? ", mask" : "") + (is("blend") ? ", blend" : "") +
            (pipeline.HasMember("depthWrite") && !is("depthWrite") ? ", no depth" : "");
    };
    EXPECT_EQ(pipelineOf(R"({"doubleSided":true})"), "Lit Double-Sided, double");
    EXPECT_EQ(pipelineOf(R"({"alphaMode":"MASK"})"), "Lit Mask, mask");
    EXPECT_EQ(pipelineOf(R"({"alphaMode":"BLEND"})"), "Lit Blend, blend, no depth");
    EXPECT_EQ(
        pipelineOf(R"({"alphaMode":"BLEND","doubleSided":true})"), "Lit Blend Double-Sided, double, blend, no depth");
    EXPECT_EQ(pipelineOf(R"({"alphaMode":"MASK","extensions":{"KHR_materials_unlit":{}}})"), "Flat Mask, mask");
}

TEST_F(GltfMaterialTest, CutoffsOfTheMask) {
    const ImportResult lit = importMaterial(R"({"alphaMode":"MASK","alphaCutoff":0.25})");
    EXPECT_EQ(lit.only("materials")["Lit"]["alphaCutoff"].GetFloat(), 0.25f);
    // The plain unlit shader has none.
    const ImportResult flat =
        importMaterial(R"({"alphaMode":"MASK","alphaCutoff":0.25,"extensions":{"KHR_materials_unlit":{}}})");
    EXPECT_EQ(flat.only("materials")["Flat Placed"]["alphaCutoff"].GetFloat(), 0.25f);
    EXPECT_STREQ(flat.only("shaders")["name"].GetString(), "Flat Placed");
}

TEST_F(GltfMaterialTest, Samplers) {
    const ImportResult result = importMaterial(R"({"pbrMetallicRoughness":{"baseColorTexture":{"index":0}},
        "emissiveTexture":{"index":1},"normalTexture":{"index":2}})",
        textures(R"({"source":0,"sampler":0},{"source":0,"sampler":1},{"source":0})", Image) +
            R"(,"samplers":[{"magFilter":9728,"minFilter":9729,"wrapS":33071,"wrapT":33071},
            {"minFilter":9985,"wrapS":33648,"wrapT":10497}])");
    ASSERT_TRUE(result.isDone()) << result.text();
    const auto samplerOf = [&](const char* key) {
        const JsonValue& texture = result.json["textures"][result.only("materials")["Lit"][key].GetString()];
        return std::string{texture["filter"].GetString()} + ' ' + texture["mipmap"].GetString() + ' ' +
            texture["wrap"].GetString();
    };
    EXPECT_EQ(samplerOf("baseColorTexture"), "nearest none clamp");
    EXPECT_EQ(samplerOf("emissiveTexture"), "linear nearest mirror");
    EXPECT_EQ(samplerOf("normalTexture"), "linear linear repeat");
    EXPECT_TRUE(result.hasWarning("repeats in one direction only")) << result.text();
}

// Where a coordinate of the file leads, as the extension has it, and the same coordinate of the engine as "TPlace" and
// "TTurn" have it. The two differ in where they begin.
TEST_F(GltfMaterialTest, PlacedTexturesShowTheSamePixels) {
    const float angle = 0.3f, c = std::cos(angle), s = std::sin(angle);
    const Vector2 offset{-0.2f, 0.1f}, scale{1.5f, -0.5f};
    const ImportResult result =
        importMaterial(R"({"name":"Placed","pbrMetallicRoughness":{"baseColorTexture":{"index":0,"extensions":
        {"KHR_texture_transform":{"offset":[-0.2,0.1],"rotation":0.3,"scale":[1.5,-0.5],"texCoord":1}}}}})",
            textures("{\"source\":0}", Image));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_STREQ(result.only("pipelines")["name"].GetString(), "Lit Placed");
    const JsonValue& values = result.only("materials")["Lit Placed"];
    const std::vector<float> place = numbers(values["baseColorTexturePlace"]),
                             turn = numbers(values["baseColorTextureTurn"]);
    ASSERT_EQ(place.size(), 4u);
    ASSERT_EQ(turn.size(), 4u);
    EXPECT_EQ(turn[1], 1.0f);
    for(const Vector2 uv: {Vector2{0, 0}, Vector2{1, 0}, Vector2{0.3f, 0.8f}}) {
        const Vector2 scaled = uv * scale;
        const Vector2 inFile = offset + Vector2{c * scaled.x() + s * scaled.y(), -s * scaled.x() + c * scaled.y()};
        const Vector2 own = Vector2{uv.x(), 1 - uv.y()} * Vector2{place[2], place[3]};
        const Vector2 inEngine{place[0] + std::cos(turn[0]) * own.x() - std::sin(turn[0]) * own.y(),
            place[1] + std::sin(turn[0]) * own.x() + std::cos(turn[0]) * own.y()};
        EXPECT_NEAR(inEngine.x(), inFile.x(), 1e-6f);
        EXPECT_NEAR(1 - inEngine.y(), inFile.y(), 1e-6f);
    }
    EXPECT_THAT(numbers(values["normalTexturePlace"]), ElementsAre(0, 0, 1, 1));
    EXPECT_THAT(numbers(values["normalTextureTurn"]), ElementsAre(0, 0, 0, 0));
}

TEST_F(GltfMaterialTest, ASecondSetOfCoordinatesTakesThePlacedShader) {
    const ImportResult result =
        importMaterial(R"({"occlusionTexture":{"index":0,"texCoord":1},"emissiveTexture":{"index":0,"texCoord":3}})",
            textures("{\"source\":0}", Image));
    ASSERT_TRUE(result.isDone()) << result.text();
    const JsonValue& values = result.only("materials")["Lit Placed"];
    EXPECT_THAT(numbers(values["occlusionTexturePlace"]), ElementsAre(0, 0, 1, 1));
    EXPECT_THAT(numbers(values["occlusionTextureTurn"]), ElementsAre(0, 1, 0, 0));
    EXPECT_TRUE(result.hasWarning("uses texture coordinates 3")) << result.text();
}

TEST_F(GltfMaterialTest, GlossinessIsApproximated) {
    const ImportResult result = importMaterial(R"({"name":"Gold","extensions":{"KHR_materials_pbrSpecularGlossiness":
        {"diffuseFactor":[0,0,0,1],"specularFactor":[1,0.75,0.3],"glossinessFactor":0.75}}})");
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_TRUE(result.hasWarning("\"Gold\": its specular colour and glossiness are approximated"));
    const JsonValue& values = result.only("materials")["Lit"];
    EXPECT_NEAR(values["metalness"].GetFloat(), 1.0f, 0.01f);
    EXPECT_NEAR(values["roughness"].GetFloat(), 0.25f, 1e-6f);
    EXPECT_NEAR(numbers(values["baseColor"])[1], 0.75f, 0.01f);
    // What is no metal keeps its colour.
    const MetallicRoughness plastic = fromSpecularGlossiness(Vector3{0.5f}, Vector3{0.04f}, 0.0f);
    EXPECT_EQ(plastic.metalness, 0.0f);
    EXPECT_NEAR(plastic.baseColor.x(), 0.5f, 1e-5f);
    EXPECT_EQ(plastic.roughness, 1.0f);
}

TEST_F(GltfMaterialTest, ImagesThatCannotBeUsedAreLeftOutAndSaid) {
    std::string wide = tgaPixel(1, 2, 3);
    wide[13] = 127; // 32513 pixels
    write("wide.tga", wide);
    write("text.png", "no image");
    const ImportResult result = importMaterial(R"({"name":"M","pbrMetallicRoughness":{"baseColorTexture":{"index":0},
        "metallicRoughnessTexture":{"index":1}},"normalTexture":{"index":2},"occlusionTexture":{"index":3},"emissiveTexture":{"index":9}})",
        textures(R"({"source":0},{"source":1},{"source":2},{})",
            R"({"uri":"wide.tga"},{"uri":"text.png"},{"uri":"none.png"})"));
    ASSERT_TRUE(result.isDone()) << result.text();
    for(const char* const part: {"image \"wide\"", "image \"text\"", "image \"none\"", "a texture without a PNG",
            "uses a texture that is not there"})
        EXPECT_TRUE(result.hasWarning(part)) << part << '\n' << result.text();
    EXPECT_EQ(result.count("images"), 0u);
    for(const char* const key:
        {"baseColorTexture", "metallicRoughnessTexture", "normalTexture", "occlusionTexture", "emissiveTexture"})
        EXPECT_STREQ(result.only("materials")["Lit"][key].GetString(), "");
    EXPECT_EQ(result.count("meshes"), 1u);
}

TEST_F(GltfMaterialTest, OtherExtensionsAreNamed) {
    const ImportResult result =
        importMaterial(R"({"name":"Glass","extensions":{"KHR_materials_transmission":{"transmissionFactor":1}}})");
    EXPECT_TRUE(result.hasWarning("\"Glass\": \"KHR_materials_transmission\" is left out")) << result.text();
    EXPECT_TRUE(result.isDone());
}

} // namespace

} // namespace VantrelImport::Test
