// Materials that gain and lose textures: what is built for that, and what is seen.

#include <algorithm>
#include <vector>

#include <Magnum/Math/Color.h>

#include "Renderer/Test/RendererFixture.h"

using namespace VantrelTest;

namespace {

enum : Id { NoTexture, ColorTexture, OtherColorTexture, DataTexture, FloatTexture, WhiteTexture, TextureCount };

struct TexturedTest: RendererTest {
    TexturedTest() {
        fragment = "void main() {\n"
                   "    fragmentColor = material_color()*material_first(vec2(0.5))*material_second(vec2(0.5));\n"
                   "    if(material_has_first()) fragmentColor.b = 1.0;\n"
                   "}\n";
        pipeline = add("Plain", PipelineHeader::DepthTest | PipelineHeader::DepthWrite);
        left = addSquare(pipeline, -2.0f);
        right = addSquare(pipeline, 2.0f);
        tellImages(true);
        tell();
        frame();
    }

    Id add(const std::string& name, std::uint32_t flags) {
        const Id index = addPipeline(name, flags);
        for(const char* const parameter: {"first", "second"})
            resources.pipelines[index].parameters.push_back({parameter, ParameterType::Texture, {}});
        return index;
    }
    Id addSquare(Id index, Float x) {
        const Id material = addMaterial(index, Vector4{1.0f, 1.0f, 0.0f, 1.0f});
        resources.materials[material].values.resize(3);
        resources.materials[material].textures.resize(3);
        RendererTest::add(addMesh(square()), material, {x, 0.0f, 0.0f});
        return material;
    }

    SceneImage image(PixelFormat format, const Color4& color, bool isSrgb) {
        SceneImage result;
        result.header.size = Vector2i{1};
        result.isSrgb = isSrgb;
        const Color4ub bytes = Math::pack<Color4ub>(color);
        const bool isFloat = format == PixelFormat::RGBA32F;
        const auto* const from =
            isFloat ? reinterpret_cast<const char*>(&color) : reinterpret_cast<const char*>(&bytes);
        Containers::Array<char> texel{NoInit, isFloat ? sizeof(color) : sizeof(bytes)};
        std::copy_n(from, texel.size(), texel.data());
        result.pixels.emplace(format, Vector2i{1}, std::move(texel));
        return result;
    }
    // Red, green, red, green, and one without an image.
    void tellImages(bool isFirstColor) {
        constexpr PixelFormat Bytes = PixelFormat::RGBA8Unorm, Floats = PixelFormat::RGBA32F;
        const Color4 red{RedColor}, green{GreenColor};
        images.clear();
        images.push_back(image(Bytes, red, isFirstColor));
        images.push_back(image(Bytes, green, true));
        images.push_back(image(Bytes, red, false));
        images.push_back(image(Floats, green, false));
        uploadImages();
    }
    void uploadImages() {
        renderer.clearImages();
        for(std::size_t i = 0; i != images.size(); ++i) {
            ASSERT_TRUE(renderer.reserveImage(Id(i + 1), Vector2i{1}));
            renderer.textureAtlas().setImage(i, images[i]);
        }
        for(Id i = 1; i != TextureCount; ++i) {
            SceneTexture texture;
            texture.header = {i, Id(i == WhiteTexture ? 0 : i)};
            renderer.setImageForTexture(texture, texture.header.image);
        }
        renderer.prepareImages();
    }

    void set(Id material, std::size_t parameter, Id texture) {
        resources.materials[material].textures[parameter] = texture;
        renderer.updateMaterials(view(resources.materials), view(resources.pipelines));
    }
    // Programs that a change builds, all of them before the second frame.
    template<class Function> std::size_t builtBy(Function change) {
        const std::size_t before = renderer.builtPrograms();
        change();
        frame();
        const std::size_t after = renderer.builtPrograms();
        frame();
        EXPECT_EQ(renderer.builtPrograms(), after);
        return after - before;
    }
    std::uint32_t leftColor() { return at(frame(), -2.0f, 0.0f); }
    std::uint32_t rightColor() { return at(frame(), 2.0f, 0.0f); }

    static constexpr std::uint32_t Plain = 0xffff00ff, Magenta = 0xff00ffff, Cyan = 0x00ffffff;

    std::vector<SceneImage> images;
    Id pipeline, left, right;
};

// What is laid over the picture, from its lower right corner: of colours, of values, and of floats.
TEST_F(TexturedTest, layersAreShownWhereTheyAreAskedFor) {
    images[2] = image(PixelFormat::RGBA8Unorm, {0.4f, 0.0f, 0.0f, 1.0f}, false);
    images[3] = image(PixelFormat::RGBA32F, {0.0f, 0.5f, 0.0f, 1.0f}, false);
    uploadImages();
    const std::vector<std::uint32_t> before = frame();
    renderer.debug().textureAtlas = true;
    EXPECT_EQ(frame(), before);
    renderer.debug().textureOverlay = true;
    const std::vector<std::uint32_t> shown = frame();
    const auto has = [&](std::size_t sheet, std::uint32_t color) {
        constexpr std::size_t Edge = Size / 4;
        for(std::size_t y = 0; y != Edge; ++y)
            for(std::size_t x = 0; x != Edge; ++x)
                if(shown[y * Size + Size - Edge * (sheet + 1) + x] == color) return true;
        return false;
    };
    EXPECT_TRUE(has(0, Red) && has(0, Green));
    // Values as they are, light in the curve of the screen.
    EXPECT_TRUE(has(1, 0x660000ff));
    EXPECT_TRUE(has(2, 0x00bc00ff));
    std::size_t differences = 0;
    for(std::size_t i = 0; i != shown.size(); ++i) differences += shown[i] != before[i];
    EXPECT_EQ(differences, 3u * 14 * 14);
    EXPECT_EQ(framebuffer.viewport(), (Range2Di{{}, Vector2i{Size}}));

    renderer.debug().textureAtlas = false;
    EXPECT_EQ(frame(), before);
}

TEST_F(TexturedTest, theFirstTextureOfAKindBuildsOneProgramOnce) {
    EXPECT_EQ(builtBy([&] { set(left, 1, ColorTexture); }), 1u);
    EXPECT_EQ(builtBy([&] { set(right, 1, OtherColorTexture); }), 0u);
    EXPECT_EQ(builtBy([&] { set(left, 1, NoTexture); }), 0u);
    EXPECT_EQ(builtBy([&] { set(right, 1, NoTexture); }), 0u);
    EXPECT_EQ(builtBy([&] { set(left, 1, ColorTexture); }), 0u);
    // Of another array, and of another parameter.
    EXPECT_EQ(builtBy([&] { set(right, 1, DataTexture); }), 1u);
    EXPECT_EQ(builtBy([&] { set(right, 2, DataTexture); }), 1u);
    // What nobody uses any more is gone: here the first program.
    set(left, 1, NoTexture);
    set(right, 1, NoTexture);
    set(right, 2, NoTexture);
    EXPECT_EQ(builtBy([&] { tellPipelines(); }), 1u);
    // Two that come together are built together.
    EXPECT_EQ(builtBy([&] {
        resources.materials[left].textures[2] = FloatTexture;
        set(left, 1, ColorTexture);
    }),
        1u);
}

TEST_F(TexturedTest, whatHasNoneLooksAsBefore) {
    EXPECT_EQ(leftColor(), Plain);
    EXPECT_EQ(rightColor(), Plain);
    const struct {
        Id texture;
        std::uint32_t color;
    } rows[]{{ColorTexture, Magenta}, {OtherColorTexture, Cyan}, {DataTexture, Magenta}, {FloatTexture, Cyan},
        {WhiteTexture, 0xffffffff}, {NoTexture, Plain}, {60000, 0xffffffff}};
    for(const auto& row: rows) {
        SCOPED_TRACE(row.texture);
        // With the programs of all rows so far, and with one for this row alone.
        for(const bool isAlone: {false, true}) {
            if(isAlone) tellPipelines();
            set(left, 1, row.texture);
            EXPECT_EQ(leftColor(), row.color);
            EXPECT_EQ(rightColor(), Plain);
        }
    }
}

TEST_F(TexturedTest, texturesOfSeveralArraysAreSeenBesideEachOther) {
    set(left, 1, ColorTexture);
    set(right, 1, FloatTexture);
    EXPECT_EQ(leftColor(), Magenta);
    EXPECT_EQ(rightColor(), Cyan);
    set(left, 1, DataTexture);
    EXPECT_EQ(leftColor(), Magenta);
    EXPECT_EQ(rightColor(), Cyan);
}

// An image moves to another array when it is told anew; its materials are not.
TEST_F(TexturedTest, imagesThatChangeAreFoundWhereTheyAre) {
    set(left, 1, ColorTexture);
    EXPECT_EQ(leftColor(), Magenta);
    EXPECT_EQ(builtBy([&] { tellImages(false); }), 1u);
    EXPECT_EQ(leftColor(), Magenta);
    EXPECT_EQ(builtBy([&] { tellImages(true); }), 0u);
    EXPECT_EQ(leftColor(), Magenta);
}

// Materials from before count for pipelines that are told anew, also those that are no scene's.
TEST_F(TexturedTest, pipelinesThatAreToldAnewKnowTheMaterials) {
    set(left, 1, ColorTexture);
    const std::size_t programs = renderer.builtPrograms();
    tellPipelines();
    EXPECT_EQ(leftColor(), Magenta);
    EXPECT_EQ(renderer.builtPrograms(), programs);

    const Id custom = renderer.registerCustomMaterial();
    SceneMaterial material = resources.materials[right];
    material.textures[1] = DataTexture;
    EXPECT_EQ(builtBy([&] { renderer.updateMaterial(custom, material); }), 1u);
}

// One that is drawn flat has no textures.
TEST_F(TexturedTest, aPipelineThatDoesNotCompileIsToldOfOnce) {
    fragment = "void main() { fragmentColor = missing; }\n";
    EXPECT_THAT(linesOf([&] { tell(); }), testing::StartsWith("WebGL2Renderer: pipeline Plain is drawn flat"));
    EXPECT_EQ(linesOf([&] { EXPECT_EQ(builtBy([&] { set(left, 1, ColorTexture); }), 0u); }), "");
    EXPECT_EQ(leftColor(), Plain);
}

// The shape of a masked pipeline is that of its picture, without the rest of it.
TEST_F(TexturedTest, shapesOfMaskedPipelinesRunTheMaskAlone) {
    fragment = "void main() {\n"
               "    fragmentColor = material_color();\n"
               "    if(material_first(vec2(0.5)).g < 0.5) discard;\n"
               "#ifdef MASK_ONLY\n"
               "    if(material_color().r > 0.5) discard;\n"
               "#endif\n"
               "}\n";
    const std::uint32_t flags = PipelineHeader::DepthTest | PipelineHeader::DepthWrite | PipelineHeader::AlphaMask;
    const Id masked = addSquare(add("Masked", flags), 0.0f);
    tell();
    resources.materials[masked].values[0] = GreenColor;
    set(masked, 1, OtherColorTexture);
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Green);
    EXPECT_NE(at(ids(), 0.0f, 0.0f), 0xffffffff);
    // A hole of the mask.
    set(masked, 1, DataTexture);
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Nothing);
    EXPECT_EQ(at(ids(), 0.0f, 0.0f), 0xffffffff);
    // Told apart from the picture only here, where a source cheats.
    set(masked, 1, OtherColorTexture);
    resources.materials[masked].values[0] = RedColor;
    set(masked, 1, OtherColorTexture);
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
    EXPECT_EQ(at(ids(), 0.0f, 0.0f), 0xffffffff);
}

} // namespace
