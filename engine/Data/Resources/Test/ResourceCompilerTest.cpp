#include <cmath>

#include <VantrelHost/ResourceCompiler.h>

#include <Magnum/Math/Color.h>
#include <Magnum/PixelFormat.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FontBuilder.h"
#include "ImageBuilder.h"
#include "ResourceCompilerFixture.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelEngine::Test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr ResourceKind Images = ResourceKind::Image, Textures = ResourceKind::Texture, Shaders = ResourceKind::Shader,
                       Pipelines = ResourceKind::Pipeline, Materials = ResourceKind::Material,
                       Meshes = ResourceKind::Mesh, Skins = ResourceKind::Skin, Animations = ResourceKind::Animation,
                       Fonts = ResourceKind::Font;

const std::vector<float> Triangle{0, 0, 0, 1, 0, 0, 0, 1, 0};

const char* const LitShader = R"({"name": "Lit", "stage": "mesh", "vertex": "lit.vert", "fragment": "lit.frag",
    "parameters": [{"name": "shine", "type": "float", "default": 0.5},
                   {"name": "axis", "type": "vector", "default": [1, 2, 3, 4]},
                   {"name": "tint", "type": "color", "default": [1, 1, 0]},
                   {"name": "diffuse", "type": "texture"}]})";
const char* const LitPipeline = R"({"name": "Lit", "shader": "lit", "features": ["SHADOWS"]})";

struct ResourceCompilerTest: ResourceCompilerFixture {
    // A cube, an image and what leads from it to a material.
    void setUpMaterial() {
        folder.write("brick.png", pngFile(2, 2, 100));
        set(Images, "brick", R"({"name": "brick.png", "file": "brick.png"})");
        set(Textures, "wall", R"({"name": "wall", "image": "brick"})");
        set(Shaders, "lit", LitShader);
        set(Pipelines, "lit", LitPipeline);
        set(Materials, "stone", R"({"name": "stone", "pipeline": "lit", "Lit": {"diffuse": "wall"}})");
        set(Meshes, "cube", R"({"name": "cube", "primitive": "cube"})");
        EXPECT_EQ(update(), "");
        touched();
        object.use(scene.maps.node(Materials, "stone"));
        object.use(scene.maps.node(Meshes, "cube"));
    }

    const SceneMaterial& stone() const { return scene.resources.materials[index(Materials, "stone")]; }

    Object object{"object"}, other{"other"};
};

// Images

TEST_F(ResourceCompilerTest, image) {
    folder.write("a/brick.png", pngFile(3, 2, 100));
    compile(Images, "brick", R"({"name": "brick", "file": "a/brick.png"})");
    ASSERT_EQ(index(Images, "brick"), 1);
    const SceneImage& image = scene.resources.images[1];
    EXPECT_EQ(image.id, "brick");
    EXPECT_EQ(image.header.size, (Vector2i{3, 2}));
    EXPECT_FALSE(image.header.isCompressed);
    EXPECT_EQ(image.pixels->size(), (Vector2i{3, 2}));
    EXPECT_TRUE(image.isSrgb);
    EXPECT_THAT(touched().aspects, ElementsAre("Images"));

    const std::uint32_t revision = image.revision;
    compile(Images, "brick", R"({"name": "brick", "file": "a/brick.png", "colorSpace": "linear"})");
    EXPECT_FALSE(scene.resources.images[1].isSrgb);
    EXPECT_THAT(touched().aspects, ElementsAre("Images"));
    const std::uint32_t linearRevision = scene.resources.images[1].revision;
    EXPECT_NE(linearRevision, revision) << "the same pixels are other colours";
    compile(Images, "brick", R"({"name": "other name", "file": "a/brick.png", "colorSpace": "linear"})");
    EXPECT_THAT(touched().aspects, IsEmpty());
    EXPECT_EQ(scene.resources.images[1].revision, linearRevision);
}

TEST_F(ResourceCompilerTest, imagesOfHighDynamicRangeAreLinear) {
    folder.write("sky.hdr", hdrFile(1, 1, {8, 4, 2, 1}));
    compile(Images, "sky", R"({"name": "sky", "file": "sky.hdr", "colorSpace": "srgb"})");
    EXPECT_EQ(scene.resources.images[1].pixels->format(), PixelFormat::RGBA32F);
    EXPECT_FALSE(scene.resources.images[1].isSrgb);
}

TEST_F(ResourceCompilerTest, damagedImage) {
    folder.write("brick.png", "no image");
    set(Images, "brick", R"({"name": "brick", "file": "brick.png"})");
    EXPECT_EQ(update(),
        "ResourceCompiler: images/brick: brick.png: this is not a PNG, JPEG, TGA, BMP or HDR image, or "
        "it is damaged or larger than 8192 x 8192 pixels\n");
    const auto& pixels = scene.resources.images[1].pixels;
    ASSERT_EQ(pixels->size(), Vector2i{8});
    EXPECT_EQ(pixels->pixels<Color4ub>()[0][0], (Color4ub{255, 0, 255, 255}));
    EXPECT_EQ(pixels->pixels<Color4ub>()[0][1], (Color4ub{0, 0, 0, 255}));
    EXPECT_EQ(pixels->pixels<Color4ub>()[1][1], (Color4ub{255, 0, 255, 255}));
    EXPECT_THAT(touched().aspects, ElementsAre("Images"));

    // It stays the same placeholder, and the line is not repeated.
    scene.compiler.compile(Images, "brick");
    EXPECT_EQ(update(), "");
    EXPECT_THAT(touched().aspects, IsEmpty());
    // Until the file can be used.
    folder.write("brick.png", pngFile(2, 2, 1));
    scene.compiler.compile(Images, "brick");
    EXPECT_EQ(update(), "");
    EXPECT_EQ(scene.resources.images[1].header.size, Vector2i{2});
    EXPECT_THAT(touched().aspects, ElementsAre("Images"));
    EXPECT_THAT(scene.compiler.problems(), IsEmpty());
}

TEST_F(ResourceCompilerTest, everyFileProblemIsOneLine) {
    const struct {
        const char *json, *line;
    } data[]{{R"({"name": "x", "file": "missing.png"})", "x: missing.png: cannot be opened: No such file or directory"},
        {R"({"name": "x", "file": "../x.png"})", "x: ../x.png: the file name leads upwards"},
        {R"({"name": "x", "file": "/x.png"})", "x: /x.png: the file name is absolute"},
        {R"({"name": "x", "file": "x.png", "asset": "none"})", "x: x.png: there is no asset \"none\""},
        {R"({"name": "x", "file": ""})", "x: \"file\" is empty"}, {R"({"name": "x"})", "x: \"file\" is missing"},
        {R"({"name": "x", "file": 5})", "x: \"file\" is not a text"}, {"[]", "x: this is not an object"}};
    for(const auto& row: data) {
        for(const ResourceKind kind: {Images, Meshes, Fonts}) {
            set(kind, "x", row.json);
            EXPECT_EQ(update(), "ResourceCompiler: " + std::string{resourceSection(kind)} + "/" + row.line + "\n");
            EXPECT_EQ(index(kind, "x"), 1) << row.json;
            ASSERT_EQ(scene.compiler.problems().size(), 1u);
            EXPECT_EQ(scene.compiler.problems()[0].kind, kind);
            EXPECT_EQ(scene.compiler.problems()[0].id, "x");
            remove(kind, "x");
            EXPECT_EQ(update(), "");
            EXPECT_THAT(scene.compiler.problems(), IsEmpty());
        }
    }
}

TEST_F(ResourceCompilerTest, aFileIsReadAgainOnlyForAnotherLink) {
    folder.write("brick.png", pngFile(2, 2, 1));
    folder.write("mesh.glb", meshFile(Triangle));
    compile(Images, "brick", R"({"name": "brick", "file": "brick.png"})");
    compile(Meshes, "mesh", R"({"name": "mesh", "file": "mesh.glb"})");
    folder.write("brick.png", pngFile(4, 4, 1));
    folder.write("mesh.glb", "");
    folder.write("stone.png", pngFile(5, 5, 1));
    compile(Images, "brick", R"({"name": "new", "file": "brick.png"})");
    compile(Meshes, "mesh", R"({"name": "new", "file": "mesh.glb"})");
    EXPECT_EQ(scene.resources.images[1].header.size, Vector2i{2});
    EXPECT_EQ(scene.resources.meshes[1].name, "new");
    EXPECT_FALSE(scene.resources.meshes[1].isPlaceholder);
    compile(Images, "brick", R"({"name": "new", "file": "stone.png"})");
    EXPECT_EQ(scene.resources.images[1].header.size, Vector2i{5});
    compile(Images, "brick", R"({"name": "new", "file": "brick.png"})");
    EXPECT_EQ(scene.resources.images[1].header.size, Vector2i{4});
    // Who is not there any more is not remembered.
    remove(Images, "brick");
    update();
    folder.write("brick.png", pngFile(6, 6, 1));
    compile(Images, "brick", R"({"name": "new", "file": "brick.png"})");
    EXPECT_EQ(scene.resources.images[1].header.size, Vector2i{6});
}

// Textures

TEST_F(ResourceCompilerTest, texture) {
    folder.write("brick.png", pngFile(2, 2, 1));
    set(Textures, "wall", R"({"name": "wall", "image": "brick"})");
    set(Images, "brick", R"({"name": "brick", "file": "brick.png"})");
    EXPECT_EQ(update(), "");
    const SceneTexture& texture = scene.resources.textures[1];
    EXPECT_EQ(texture.id, "wall");
    EXPECT_EQ(texture.header.texture, 1);
    EXPECT_EQ(texture.header.image, 1);
    EXPECT_EQ(texture.filter, SamplerFilter::Linear);
    EXPECT_EQ(texture.mipmap, SamplerMipmap::Linear);
    EXPECT_EQ(texture.wrapping, SamplerWrapping::Repeat);
    EXPECT_THAT(touched().aspects, ElementsAre("Images", "Textures"));

    compile(
        Textures, "wall", R"({"name": "wall", "image": "", "filter": "nearest", "mipmap": "none", "wrap": "mirror"})");
    EXPECT_EQ(texture.header.image, 0);
    EXPECT_EQ(texture.filter, SamplerFilter::Nearest);
    EXPECT_EQ(texture.mipmap, SamplerMipmap::Base);
    EXPECT_EQ(texture.wrapping, SamplerWrapping::MirroredRepeat);
    EXPECT_EQ(touched().count, 1u);
    compile(Textures, "wall", R"({"name": "wall", "image": "", "mipmap": "nearest", "wrap": "clamp"})");
    EXPECT_EQ(texture.mipmap, SamplerMipmap::Nearest);
    EXPECT_EQ(texture.wrapping, SamplerWrapping::ClampToEdge);
    EXPECT_THAT(touched().aspects, ElementsAre("Textures"));
    scene.compiler.compile(Textures, "wall");
    EXPECT_EQ(update(), "");
    EXPECT_EQ(touched().count, 0u);
}

TEST_F(ResourceCompilerTest, textureKeys) {
    set(Textures, "wall", R"({"name": 1, "filter": "cubic", "mipmap": 3, "wrap": "repeat"})");
    EXPECT_EQ(update(),
        "ResourceCompiler: textures/wall: \"name\" is not a text\n"
        "ResourceCompiler: textures/wall: \"image\" is missing\n"
        "ResourceCompiler: textures/wall: \"filter\" is \"cubic\", none of linear, nearest\n"
        "ResourceCompiler: textures/wall: \"mipmap\" is not a text\n");
    EXPECT_EQ(scene.compiler.problems().size(), 4u);
}

TEST_F(ResourceCompilerTest, aTextureFollowsItsImage) {
    folder.write("brick.png", pngFile(2, 2, 1));
    set(Textures, "wall", R"({"name": "wall", "image": "brick"})");
    EXPECT_EQ(update(), "ResourceCompiler: textures/wall: images/brick is not there\n");
    EXPECT_EQ(scene.resources.textures[1].header.image, 0);
    touched();

    compile(Images, "brick", R"({"name": "brick", "file": "brick.png"})");
    EXPECT_EQ(scene.resources.textures[1].header.image, 1);
    EXPECT_THAT(touched().aspects, ElementsAre("Images", "Textures"));
    EXPECT_THAT(scene.compiler.problems(), IsEmpty());
    // Its pixels are no business of the texture.
    folder.write("stone.png", pngFile(3, 3, 1));
    compile(Images, "brick", R"({"name": "brick", "file": "stone.png"})");
    EXPECT_THAT(touched().aspects, ElementsAre("Images"));

    remove(Images, "brick");
    EXPECT_EQ(update(), "ResourceCompiler: textures/wall: images/brick is not there\n");
    EXPECT_EQ(scene.resources.textures[1].header.image, 0);
    EXPECT_THAT(touched().aspects, ElementsAre("Images", "Textures"));
}

// Shaders, pipelines and materials

TEST_F(ResourceCompilerTest, shader) {
    compile(Shaders, "lit", LitShader);
    const SceneShader& shader = scene.resources.shaders[1];
    EXPECT_EQ(shader.id, "lit");
    EXPECT_EQ(shader.name, "Lit");
    EXPECT_EQ(shader.header.stage, ShaderStage::Mesh);
    EXPECT_EQ(shader.header.variant, 0);
    EXPECT_EQ(shader.vertex.asset, "default");
    EXPECT_EQ(shader.vertex.file, "lit.vert");
    EXPECT_EQ(shader.fragment.file, "lit.frag");
    ASSERT_EQ(shader.parameters.size(), 4u);
    EXPECT_EQ(shader.parameters[0].name, "shine");
    EXPECT_EQ(shader.parameters[0].type, ParameterType::Float);
    EXPECT_EQ(shader.parameters[0].initial, (Vector4{0.5f, 0, 0, 0}));
    EXPECT_EQ(shader.parameters[1].type, ParameterType::Vector);
    EXPECT_EQ(shader.parameters[1].initial, (Vector4{1, 2, 3, 4}));
    EXPECT_EQ(shader.parameters[2].type, ParameterType::Color);
    EXPECT_EQ(shader.parameters[2].initial, (Vector4{1, 1, 0, 1}));
    EXPECT_EQ(shader.parameters[3].type, ParameterType::Texture);
    EXPECT_THAT(touched().aspects, ElementsAre("Shaders"));

    // Smaller than the tolerance of vectors.
    compile(Shaders, "lit", replaced(LitShader, "0.5", "0.5000001"));
    EXPECT_NE(shader.parameters[0].initial[0], 0.5f);
    EXPECT_THAT(touched().aspects, ElementsAre("Shaders"));

    compile(Shaders, "skin",
        R"({"name": "Skin", "stage": "skinning", "variant": 1, "vertex": "s.vert", "fragment": "s.frag"})");
    EXPECT_EQ(scene.resources.shaders[2].header.stage, ShaderStage::Skinning);
    EXPECT_EQ(scene.resources.shaders[2].header.variant, 1);
    EXPECT_THAT(scene.resources.shaders[2].parameters, IsEmpty());
    scene.compiler.compile(Shaders, "skin");
    touched();
    EXPECT_EQ(update(), "");
    EXPECT_EQ(touched().count, 0u);
}

TEST_F(ResourceCompilerTest, shaderProblems) {
    set(Shaders, "bad", R"({"name": "Bad", "stage": "pixel", "variant": 2, "vertex": "gone.vert", "fragment": "x.frag",
        "asset": "", "parameters": [5, {"type": "float"}, {"name": "a", "type": "matrix"}, {"name": "b", "type": "float",
        "default": "1"}, {"name": "b", "type": "color"}, {"name": "c", "type": "color", "default": [1, 2]},
        {"name": "d", "type": "vector", "default": [1, 2, 1e60]}]})");
    folder.write("x.frag", "void main() {}");
    EXPECT_EQ(update(),
        "ResourceCompiler: shaders/bad: \"stage\" is \"pixel\", none of mesh, text, skinning\n"
        "ResourceCompiler: shaders/bad: \"variant\" is not a whole number from 0 to 1\n"
        "ResourceCompiler: shaders/bad: gone.vert: cannot be opened: No such file or directory\n"
        "ResourceCompiler: shaders/bad: \"parameters/0\" is not an object\n"
        "ResourceCompiler: shaders/bad: \"parameters/1/name\" is missing\n"
        "ResourceCompiler: shaders/bad: \"parameters/2/type\" is \"matrix\", none of float, vector, color, texture\n"
        "ResourceCompiler: shaders/bad: \"parameters/3/default\" is not a number\n"
        "ResourceCompiler: shaders/bad: \"parameters/4/name\" is that of another parameter\n"
        "ResourceCompiler: shaders/bad: \"parameters/5/default\" is not a list of 3 or 4 numbers\n"
        "ResourceCompiler: shaders/bad: \"parameters/6/default\" is too large a number\n");
    const SceneShader& shader = scene.resources.shaders[1];
    EXPECT_EQ(shader.header.stage, ShaderStage::None);
    EXPECT_EQ(shader.vertex.file, "");
    EXPECT_EQ(shader.fragment.file, "x.frag");
    ASSERT_EQ(shader.parameters.size(), 3u);
    EXPECT_EQ(shader.parameters[0].name, "b");
    EXPECT_EQ(shader.parameters[0].type, ParameterType::Float);
    EXPECT_EQ(shader.parameters[1].initial, Vector4{0.0f});
}

TEST_F(ResourceCompilerTest, pipeline) {
    set(Pipelines, "lit", R"({"name": "Lit", "shader": "lit", "features": ["SHADOWS", "a_1"], "doubleSided": true,
        "depthTest": false, "depthWrite": false, "blend": true, "alphaMask": true, "order": 255})");
    set(Shaders, "lit", LitShader);
    EXPECT_EQ(update(), "");
    const ScenePipeline& pipeline = scene.resources.pipelines[1];
    EXPECT_EQ(pipeline.id, "lit");
    EXPECT_EQ(pipeline.name, "Lit");
    EXPECT_EQ(pipeline.shader, 1);
    EXPECT_EQ(pipeline.header.flags,
        std::uint32_t(PipelineHeader::DoubleSided | PipelineHeader::Blend | PipelineHeader::AlphaMask));
    EXPECT_EQ(pipeline.header.order, 255);
    EXPECT_THAT(pipeline.features, ElementsAre("SHADOWS", "a_1"));
    EXPECT_EQ(pipeline.parameters.size(), 4u);
    touched();

    compile(Pipelines, "lit", LitPipeline);
    EXPECT_EQ(pipeline.header.flags, std::uint32_t(PipelineHeader::DepthTest | PipelineHeader::DepthWrite));
    EXPECT_EQ(pipeline.header.order, 0);
    EXPECT_THAT(touched().aspects, ElementsAre("Pipelines"));
    scene.compiler.compile(Pipelines, "lit");
    update();
    EXPECT_EQ(touched().count, 0u);

    set(Pipelines, "lit", R"({"name": "Lit", "shader": "lit", "features": ["A B", "1", "", 7, "OK"], "blend": 1,
        "order": 256})");
    EXPECT_EQ(update(),
        "ResourceCompiler: pipelines/lit: \"features/3\" is not a text\n"
        "ResourceCompiler: pipelines/lit: \"features\" has \"A B\", which a shader cannot define\n"
        "ResourceCompiler: pipelines/lit: \"features\" has \"1\", which a shader cannot define\n"
        "ResourceCompiler: pipelines/lit: \"blend\" is neither true nor false\n"
        "ResourceCompiler: pipelines/lit: \"order\" is not a whole number from 0 to 255\n");
    EXPECT_THAT(pipeline.features, ElementsAre("OK"));
}

TEST_F(ResourceCompilerTest, material) {
    setUpMaterial();
    EXPECT_EQ(stone().id, "stone");
    EXPECT_EQ(stone().name, "stone");
    EXPECT_EQ(stone().pipeline, 1);
    EXPECT_THAT(
        stone().values, ElementsAre(Vector4{0.5f, 0, 0, 0}, Vector4{1, 2, 3, 4}, Vector4{1, 1, 0, 1}, Vector4{0.0f}));
    EXPECT_THAT(stone().textures, ElementsAre(0, 0, 0, 1));

    compile(Materials, "stone",
        R"({"name": "s", "pipeline": "lit", "Lit": {"shine": 2, "axis": [5, 6, 7], "tint": [0, 0, 0, 0.25]}})");
    EXPECT_THAT(
        stone().values, ElementsAre(Vector4{2, 0, 0, 0}, Vector4{5, 6, 7, 1}, Vector4{0, 0, 0, 0.25f}, Vector4{0.0f}));
    EXPECT_THAT(stone().textures, ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(touched().aspects, ElementsAre("Materials"));
    // Values are read when it is drawn.
    EXPECT_THAT(objects(), IsEmpty());

    // A change that is smaller than the tolerance of vectors is one.
    compile(Materials, "stone",
        R"({"name": "s", "pipeline": "lit", "Lit": {"shine": 2.000001, "axis": [5, 6, 7], "tint": [0, 0, 0, 0.25]}})");
    EXPECT_THAT(touched().aspects, ElementsAre("Materials"));
    scene.compiler.compile(Materials, "stone");
    update();
    EXPECT_EQ(touched().count, 0u);

    set(Materials, "stone", R"({"name": "s", "pipeline": "lit", "Lit": {"shine": [1], "axis": 3, "diffuse": "gone"}})");
    EXPECT_EQ(update(),
        "ResourceCompiler: materials/stone: \"Lit/shine\" is not a number\n"
        "ResourceCompiler: materials/stone: \"Lit/axis\" is not a list of 3 or 4 numbers\n"
        "ResourceCompiler: materials/stone: textures/gone is not there\n");
    EXPECT_EQ(stone().values[0], (Vector4{0.5f, 0, 0, 0}));
    set(Materials, "stone", R"({"name": "s", "pipeline": "lit", "Lit": []})");
    EXPECT_EQ(update(), "ResourceCompiler: materials/stone: \"Lit\" is not an object\n");
    EXPECT_EQ(stone().values.size(), 4u);
}

TEST_F(ResourceCompilerTest, aMaterialFollowsItsPipeline) {
    setUpMaterial();
    remove(Pipelines, "lit");
    EXPECT_EQ(update(), "ResourceCompiler: materials/stone: pipelines/lit is not there\n");
    EXPECT_EQ(stone().pipeline, 0);
    EXPECT_THAT(stone().values, IsEmpty());
    EXPECT_THAT(objects(), ElementsAre("object"));
    EXPECT_THAT(touched().aspects, ElementsAre("Materials", "Pipelines"));

    compile(Pipelines, "lit", LitPipeline);
    EXPECT_EQ(stone().pipeline, 1);
    EXPECT_EQ(stone().values.size(), 4u);
    EXPECT_THAT(objects(), ElementsAre("object"));
    touched();

    compile(Pipelines, "other", LitPipeline);
    EXPECT_THAT(objects(), IsEmpty());
    EXPECT_THAT(touched().aspects, ElementsAre("Pipelines"));
    compile(Materials, "stone", R"({"name": "stone", "pipeline": "other"})");
    EXPECT_EQ(stone().pipeline, 2);
    EXPECT_THAT(objects(), ElementsAre("object"));
    EXPECT_THAT(touched().aspects, ElementsAre("Materials"));
    // It leans on the first one no more.
    remove(Pipelines, "lit");
    EXPECT_EQ(update(), "");
    EXPECT_THAT(objects(), IsEmpty());
    // How the pipeline draws is no business of the material.
    compile(Pipelines, "other", R"({"name": "Lit", "shader": "lit", "features": [], "order": 7})");
    EXPECT_THAT(objects(), IsEmpty());
    EXPECT_THAT(touched().aspects, ElementsAre("Pipelines"));
}

TEST_F(ResourceCompilerTest, aMaterialFollowsTheShader) {
    setUpMaterial();
    const auto shader = [](const char* name, const char* parameter) {
        return R"({"name": ")" + std::string{name} +
            R"(", "stage": "mesh", "vertex": "a", "fragment": "b", "parameters": [{"name": ")" + parameter +
            R"(", "type": "float", "default": 3}]})";
    };
    compile(Shaders, "lit", shader("Lit", "rough"));
    EXPECT_THAT(stone().values, ElementsAre(Vector4{3, 0, 0, 0}));
    EXPECT_EQ(scene.resources.pipelines[1].parameters.size(), 1u);
    EXPECT_THAT(touched().aspects, ElementsAre("Materials", "Pipelines", "Shaders"));
    EXPECT_THAT(objects(), IsEmpty());

    compile(Materials, "stone", R"({"name": "stone", "pipeline": "lit", "Lit": {"rough": 4}, "Matt": {"rough": 5}})");
    EXPECT_THAT(stone().values, ElementsAre(Vector4{4, 0, 0, 0}));
    touched();
    // The values of a material stand under the shader's name.
    compile(Shaders, "lit", shader("Matt", "rough"));
    EXPECT_THAT(stone().values, ElementsAre(Vector4{5, 0, 0, 0}));
    EXPECT_THAT(touched().aspects, ElementsAre("Materials", "Shaders"));

    remove(Shaders, "lit");
    EXPECT_EQ(update(), "ResourceCompiler: pipelines/lit: shaders/lit is not there\n");
    EXPECT_THAT(stone().values, IsEmpty());
    EXPECT_EQ(stone().pipeline, 1);
    compile(Shaders, "lit", shader("Lit", "rough"));
    EXPECT_THAT(stone().values, ElementsAre(Vector4{4, 0, 0, 0}));
}

TEST_F(ResourceCompilerTest, aMaterialFollowsItsTexture) {
    setUpMaterial();
    remove(Textures, "wall");
    EXPECT_EQ(update(), "ResourceCompiler: materials/stone: textures/wall is not there\n");
    EXPECT_EQ(stone().textures[3], 0);
    EXPECT_THAT(touched().aspects, ElementsAre("Materials", "Textures"));
    EXPECT_THAT(objects(), IsEmpty());
    compile(Textures, "wall", R"({"name": "wall", "image": "brick"})");
    EXPECT_EQ(stone().textures[3], 1);
    touched();
    compile(Textures, "wall", R"({"name": "wall", "image": "brick", "wrap": "clamp"})");
    EXPECT_THAT(touched().aspects, ElementsAre("Textures"));
}

// Meshes

TEST_F(ResourceCompilerTest, mesh) {
    folder.write("tree.glb", meshFile({0, 0, 0, 2, 0, 0, 0, 2, 0}));
    compile(Meshes, "tree", R"({"name": "Tree", "file": "tree.glb"})");
    const SceneMesh& mesh = scene.resources.meshes[1];
    EXPECT_EQ(mesh.id, "tree");
    EXPECT_EQ(mesh.name, "Tree");
    EXPECT_EQ(mesh.data->vertexCount(), 3u);
    EXPECT_EQ(mesh.bounds, (Range3D{{0, 0, 0}, {2, 2, 0}}));
    EXPECT_FLOAT_EQ(mesh.radius, std::sqrt(2.0f));
    EXPECT_FALSE(mesh.isPlaceholder);
    auto changes = touched();
    EXPECT_THAT(changes.aspects, ElementsAre("Meshes"));
    EXPECT_EQ(changes.count, 1u);

    compile(Meshes, "tree", R"({"name": "Oak", "file": "tree.glb"})");
    EXPECT_EQ(touched().count, 0u);
    const std::uint32_t revision = mesh.revision;
    compile(Meshes, "tree", R"({"name": "Elm", "file": "tree.glb"})");
    EXPECT_EQ(mesh.revision, revision);
    compile(Meshes, "tree", R"({"name": "Oak", "primitive": "sphere"})");
    EXPECT_GT(mesh.data->vertexCount(), 100u);
    EXPECT_GT(mesh.revision, revision);
    EXPECT_THAT(touched().aspects, ElementsAre("MeshData"));
    compile(Meshes, "tree", R"({"name": "Oak", "primitive": "cone"})");
    EXPECT_THAT(touched().aspects, ElementsAre("MeshData"));
    remove(Meshes, "tree");
    update();
    EXPECT_THAT(touched().aspects, ElementsAre("Meshes"));
}

TEST_F(ResourceCompilerTest, damagedMesh) {
    folder.write("trees/oak.glb", meshFile(Triangle).substr(0, 100));
    set(Meshes, "tree", R"({"name": "Tree", "file": "trees/oak.glb"})");
    EXPECT_EQ(update(), "ResourceCompiler: meshes/tree: trees/oak.glb: the file is truncated\n");
    const SceneMesh& mesh = scene.resources.meshes[1];
    EXPECT_TRUE(mesh.isPlaceholder);
    EXPECT_EQ(mesh.bounds, (Range3D{Vector3{-0.5f}, Vector3{0.5f}}));
    EXPECT_EQ(mesh.data->indexCount(), 36u);

    set(Meshes, "tree", R"({"name": "Tree", "primitive": "torus"})");
    EXPECT_EQ(update(),
        "ResourceCompiler: meshes/tree: \"primitive\" is \"torus\", none of cube, sphere, plane, cylinder, cone\n");
    EXPECT_TRUE(mesh.isPlaceholder);
}

TEST_F(ResourceCompilerTest, objectsFollowWhatTheyTakeFromAMesh) {
    folder.write("plain.glb", meshFile(Triangle));
    folder.write("large.glb", meshFile({0, 0, 0, 9, 0, 0, 0, 9, 0}));
    folder.write("joints.glb", meshFile(Triangle, true));
    folder.write("bad.glb", "");
    object.use(scene.maps.node(Meshes, "tree"));
    object.use(scene.maps.node(Meshes, "tree"));
    other.use(scene.maps.node(Meshes, "house"));
    const struct {
        const char* json;
        bool isCollected;
    } steps[]{{R"({"name": "t", "file": "plain.glb"})", true}, {R"({"name": "t", "file": "large.glb"})", false},
        {R"({"name": "t", "file": "joints.glb"})", true}, {R"({"name": "u", "file": "joints.glb"})", false},
        {R"({"name": "u", "file": "plain.glb"})", true}, {R"({"name": "u", "file": "bad.glb"})", true},
        {R"({"name": "u", "file": "missing.glb"})", false}, {R"({"name": "u", "primitive": "cube"})", true},
        {"", true}};
    for(const auto& step: steps) {
        set(Meshes, "tree", step.json);
        update();
        EXPECT_EQ(objects(), step.isCollected ? std::set<std::string>{"object"} : std::set<std::string>{}) << step.json;
    }
    // Nobody who does not use it any more.
    object.forgetUses();
    set(Meshes, "tree", R"({"name": "t", "primitive": "cube"})");
    update();
    EXPECT_THAT(objects(), IsEmpty());
}

TEST_F(ResourceCompilerTest, meshLayoutFlags) {
    folder.write("plain.glb", meshFile(Triangle));
    folder.write("joints.glb", meshFile(Triangle, true));
    const auto flags = [&] { return scene.resources.meshLayoutFlags; };
    compile(Meshes, "a", R"({"name": "a", "file": "plain.glb"})");
    EXPECT_EQ(flags(), 0u);
    compile(Meshes, "b", R"({"name": "b", "file": "joints.glb"})");
    compile(Meshes, "c", R"({"name": "c", "file": "joints.glb"})");
    EXPECT_EQ(flags(), LayoutJoints);
    compile(Meshes, "a", R"({"name": "a", "primitive": "cube"})");
    EXPECT_EQ(flags(), LayoutJoints | LayoutNormal | LayoutTextureCoordinates);
    remove(Meshes, "b");
    update();
    EXPECT_EQ(flags(), LayoutJoints | LayoutNormal | LayoutTextureCoordinates);
    compile(Meshes, "c", R"({"name": "c", "file": "plain.glb"})");
    EXPECT_EQ(flags(), LayoutNormal | LayoutTextureCoordinates);
    remove(Meshes, "a");
    update();
    EXPECT_EQ(flags(), 0u);
}

// Skins, animations and fonts

TEST_F(ResourceCompilerTest, skin) {
    std::vector<float> matrices(32);
    for(int i = 0; i != 32; ++i) matrices[std::size_t(i)] = float(i);
    folder.write("skin.glb", skinFile(matrices));
    object.use(scene.maps.node(Skins, "arm"));
    compile(Skins, "arm", R"({"name": "Arm", "joints": ["elbow", "hand"], "file": "skin.glb"})");
    const SceneSkin& skin = scene.resources.skins[1];
    EXPECT_EQ(skin.name, "Arm");
    EXPECT_THAT(skin.joints, ElementsAre("elbow", "hand"));
    ASSERT_EQ(skin.inverseBindMatrices.size(), 2u);
    EXPECT_EQ(skin.inverseBindMatrices[1][0][0], 16.0f);
    EXPECT_THAT(objects(), ElementsAre("object"));
    auto changes = touched();
    EXPECT_THAT(changes.aspects, IsEmpty());
    EXPECT_EQ(changes.count, 1u);

    scene.compiler.compile(Skins, "arm");
    EXPECT_EQ(update(), "");
    EXPECT_EQ(touched().count, 0u);
    // Read again, because it fits no more; and again, because it does.
    set(Skins, "arm", R"({"name": "Arm", "joints": ["elbow"], "file": "skin.glb"})");
    EXPECT_EQ(update(), "ResourceCompiler: skins/arm: skin.glb: there are 2 matrices for 1 joints\n");
    EXPECT_THAT(skin.inverseBindMatrices, ElementsAre(Matrix4{}));
    EXPECT_THAT(objects(), ElementsAre("object"));
    compile(Skins, "arm", R"({"name": "Arm", "joints": ["elbow", "hand"], "file": "skin.glb"})");
    EXPECT_EQ(skin.inverseBindMatrices[1][0][0], 16.0f);

    compile(Skins, "arm", R"({"name": "Arm", "joints": ["elbow", "hand"]})");
    EXPECT_THAT(skin.inverseBindMatrices, ElementsAre(Matrix4{}, Matrix4{}));
    EXPECT_THAT(objects(), IsEmpty());
    compile(Skins, "arm", R"({"name": "Arm", "joints": ["elbow", "hand", "finger"]})");
    EXPECT_EQ(skin.inverseBindMatrices.size(), 3u);
    touched();
    scene.compiler.compile(Skins, "arm");
    EXPECT_EQ(update(), "");
    EXPECT_EQ(touched().count, 0u);
    set(Skins, "arm", R"({"name": "Arm", "joints": ["elbow", 5]})");
    EXPECT_EQ(update(), "ResourceCompiler: skins/arm: \"joints/1\" is not a text\n");
    EXPECT_THAT(skin.joints, ElementsAre("elbow", ""));
}

TEST_F(ResourceCompilerTest, animation) {
    folder.write("walk.glb", animationFile(2, 1));
    object.use(scene.maps.node(Animations, "walk"));
    compile(Animations, "walk", R"({"name": "Walk", "targets": ["a", "b", "c"], "file": "walk.glb"})");
    const SceneAnimation* animation = &scene.resources.animations[1];
    EXPECT_EQ(animation->name, "Walk");
    EXPECT_THAT(animation->targets, ElementsAre("a", "b", "c"));
    EXPECT_EQ(animation->data->trackCount(), 2u);
    EXPECT_THAT(objects(), ElementsAre("object"));

    // Who plays it refers to it: it stays where it is while others come.
    const Trade::AnimationData* const data = animation->data.get();
    for(int i = 0; i != 100; ++i)
        set(Animations, std::to_string(i), R"({"name": "Walk", "targets": ["a", "b"], "file": "walk.glb"})");
    compile(Animations, "walk", R"({"name": "New", "targets": ["a", "b", "c"], "file": "walk.glb"})");
    animation = &scene.resources.animations[1];
    EXPECT_EQ(animation->data.get(), data);
    EXPECT_THAT(objects(), IsEmpty());

    compile(Animations, "walk", R"({"name": "New", "targets": ["b", "a"], "file": "walk.glb"})");
    EXPECT_EQ(animation->data.get(), data);
    EXPECT_THAT(objects(), ElementsAre("object"));
    set(Animations, "walk", R"({"name": "New", "targets": ["b"], "file": "walk.glb"})");
    EXPECT_EQ(update(), "ResourceCompiler: animations/walk: walk.glb: there are 1 targets for 2 nodes\n");
    EXPECT_EQ(animation->data->trackCount(), 0u);
    EXPECT_THAT(objects(), ElementsAre("object"));
    set(Animations, "walk", R"({"name": "New", "targets": ["b"]})");
    EXPECT_EQ(update(), "ResourceCompiler: animations/walk: \"file\" is missing\n");
    EXPECT_THAT(objects(), IsEmpty());
}

TEST_F(ResourceCompilerTest, font) {
    const std::string bytes = fontFile("OTTO");
    folder.write("sans.otf", bytes);
    folder.write("bad.otf", "OTTO");
    compile(Fonts, "sans", R"({"name": "Sans", "file": "sans.otf"})");
    EXPECT_EQ(scene.resources.fonts[1].name, "Sans");
    EXPECT_EQ((std::string{scene.resources.fonts[1].data.data(), scene.resources.fonts[1].data.size()}), bytes);
    EXPECT_THAT(touched().aspects, ElementsAre("Fonts"));
    set(Fonts, "sans", R"({"name": "Sans", "file": "bad.otf"})");
    EXPECT_EQ(update(), "ResourceCompiler: fonts/sans: bad.otf: its list of tables is truncated\n");
    EXPECT_TRUE(scene.resources.fonts[1].data.isEmpty());
    EXPECT_THAT(touched().aspects, ElementsAre("Fonts"));
    remove(Fonts, "sans");
    update();
    EXPECT_EQ(scene.resources.fonts.size(), 1u);
}

// Slots

TEST_F(ResourceCompilerTest, slotsAreTheSmallestFreeOnesAndStay) {
    const char* const json = R"({"name": "x", "primitive": "plane"})";
    for(const char* id: {"a", "b", "c", "d", "a/b~c%{}"}) compile(Meshes, id, json);
    EXPECT_EQ(index(Meshes, "a"), 1);
    EXPECT_EQ(index(Meshes, "d"), 4);
    EXPECT_EQ(index(Meshes, "a/b~c%{}"), 5);
    remove(Meshes, "b");
    remove(Meshes, "c");
    update();
    EXPECT_EQ(index(Meshes, "b"), 0);
    // Nobody asked for it.
    EXPECT_EQ(scene.maps.find(Meshes, "b"), nullptr);
    EXPECT_EQ(scene.resources.meshes[2].id, "");
    EXPECT_FALSE(scene.resources.meshes[2].data);
    EXPECT_EQ(scene.resources.meshes.size(), 6u);
    EXPECT_EQ(index(Meshes, "d"), 4);
    compile(Meshes, "e", json);
    EXPECT_EQ(index(Meshes, "e"), 2);

    // What goes makes place for what comes at the same time, and the list ends with what is in use.
    set(Meshes, "f", json);
    set(Meshes, "g", json);
    remove(Meshes, "a");
    update();
    EXPECT_EQ(index(Meshes, "f"), 1);
    EXPECT_EQ(index(Meshes, "g"), 3);
    for(const char* id: {"d", "a/b~c%{}", "g"}) remove(Meshes, id);
    update();
    EXPECT_EQ(scene.resources.meshes.size(), 3u);
    compile(Meshes, "h", json);
    EXPECT_EQ(index(Meshes, "h"), 3);
    EXPECT_EQ(scene.resources.meshes.size(), 4u);

    // Replaced between two updates it is the same resource.
    remove(Meshes, "e");
    set(Meshes, "e", json);
    touched();
    update();
    EXPECT_EQ(index(Meshes, "e"), 2);
    EXPECT_EQ(touched().count, 0u);
}

TEST_F(ResourceCompilerTest, noMoreThanIdsCanName) {
    std::string json = "{";
    for(int i = 0; i != 65535; ++i) json += (i ? ",\"" : "\"") + std::to_string(i) + R"(": {"name": "x", "image": ""})";
    JsonDocument textures;
    textures.Parse((json + "}").data());
    file.createByPointer("/textures").CopyFrom(textures, file.allocator());
    object.use(scene.maps.node(Textures, "65534"));
    EXPECT_EQ(compileAll(), "ResourceCompiler: textures/65534: there are more than 65534 of them\n");
    EXPECT_EQ(scene.resources.textures.size(), 65535u);
    EXPECT_EQ(index(Textures, "65533"), 65534);
    EXPECT_EQ(index(Textures, "65534"), 0);
    // It gets a place as soon as there is one.
    remove(Textures, "7");
    EXPECT_EQ(update(), "");
    EXPECT_EQ(index(Textures, "65534"), 8);
    EXPECT_THAT(objects(), ElementsAre("object"));
    EXPECT_THAT(scene.compiler.problems(), IsEmpty());
}

TEST_F(ResourceCompilerTest, withoutAnIdThereIsNothingToName) {
    set(Meshes, "", R"({"name": "x", "primitive": "cube"})");
    EXPECT_EQ(update(), "ResourceCompiler: meshes: a resource without an id is left out\n");
    EXPECT_EQ(scene.resources.meshes.size(), 1u);
    EXPECT_EQ(scene.compiler.problems().size(), 1u);
    remove(Meshes, "");
    update();
    EXPECT_THAT(scene.compiler.problems(), IsEmpty());
}

// All of them

TEST_F(ResourceCompilerTest, everyAspectIsTouchedOnce) {
    setUpMaterial();
    folder.write("sans.otf", fontFile("OTTO"));
    folder.write("stone.png", pngFile(3, 3, 1));
    set(Fonts, "sans", R"({"name": "Sans", "file": "sans.otf"})");
    set(Fonts, "serif", R"({"name": "Serif", "file": "sans.otf"})");
    set(Images, "brick", R"({"name": "b", "file": "stone.png"})");
    set(Images, "more", R"({"name": "b", "file": "stone.png"})");
    set(Meshes, "cube", R"({"name": "c", "primitive": "sphere"})");
    set(Meshes, "cone", R"({"name": "c", "primitive": "cone"})");
    remove(Textures, "wall");
    update();
    const auto changes = touched();
    EXPECT_THAT(changes.aspects, ElementsAre("Fonts", "Images", "Materials", "MeshData", "Meshes", "Textures"));
    EXPECT_EQ(changes.count, 6u);
}

TEST_F(ResourceCompilerTest, compileAll) {
    setUpMaterial();
    EXPECT_EQ(compileAll(), "");
    EXPECT_THAT(touched().aspects, ElementsAre("Images", "Materials", "MeshData", "Pipelines", "Shaders", "Textures"));
    EXPECT_THAT(objects(), IsEmpty());

    // Files are read again, and what is gone goes, though nobody said so.
    folder.write("brick.png", pngFile(7, 7, 1));
    edit(Meshes, "cube", {});
    edit(Meshes, "cone", R"({"name": "cone", "primitive": "cone"})");
    EXPECT_EQ(compileAll(), "");
    EXPECT_EQ(scene.resources.images[1].header.size, Vector2i{7});
    EXPECT_EQ(index(Meshes, "cube"), 0);
    EXPECT_EQ(index(Meshes, "cone"), 1);
    EXPECT_THAT(objects(), ElementsAre("object"));
    folder.write("brick.png", "");
    EXPECT_THAT(compileAll(), HasSubstr("images/brick: brick.png: "));
    EXPECT_EQ(scene.resources.images[1].header.size, Vector2i{8});
    EXPECT_THAT(compileAll(), HasSubstr("images/brick: brick.png: "));

    file.createByPointer("/images").SetInt(5);
    EXPECT_THAT(compileAll(), HasSubstr("ResourceCompiler: images: this is not an object\n"));
    EXPECT_EQ(scene.resources.images.size(), 1u);
    EXPECT_EQ(scene.resources.textures[1].header.image, 0);
    file.projectFile().SetObject();
    file.membersChanged();
    EXPECT_EQ(compileAll(), "");
    EXPECT_EQ(scene.resources.materials.size(), 1u);
    EXPECT_THAT(scene.compiler.problems(), IsEmpty());
}

TEST_F(ResourceCompilerTest, nothingToDo) {
    EXPECT_EQ(update(), "");
    EXPECT_EQ(compileAll(), "");
    EXPECT_EQ(touched().count, 0u);
    remove(Images, "never there");
    EXPECT_EQ(update(), "");
    EXPECT_EQ(touched().count, 0u);
    EXPECT_EQ(scene.maps.find(Images, "never there"), nullptr);
}

}
