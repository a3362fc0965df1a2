// Textures as shaders see them, beside a texture of the GL's own with the same texels.

#include "Renderer/Textures/TextureTable.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

#include <Corrade/Utility/DebugStl.h>
#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/Version.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/SceneResources.h>
#include <Vantrel/Renderer/TextureAtlas.h>
#include <gmock/gmock.h>

#include "Renderer/DefaultAssets/DefaultAssets.h"
#include "Renderer/TextureUnits.h"
#include "Renderer/Textures/MipLevels.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using testing::HasSubstr;

constexpr Int TargetSize = 32;
constexpr std::size_t PixelCount = TargetSize * TargetSize;
constexpr Int PlainTextureUnit = 15;

// Draws a square of texture coordinates through the table, or through the plain texture.
struct SamplingProgram: GL::AbstractShaderProgram {
    explicit SamplingProgram() {
        GL::Shader vertex{GL::Version::GL330, GL::Shader::Type::Vertex};
        GL::Shader fragment{GL::Version::GL330, GL::Shader::Type::Fragment};
        vertex.addSource(defaultAsset("FullScreenTriangle.vert"));
        fragment.addSource(defaultAsset("Textures.glsl"));
        fragment.addSource("in vec2 uv; out vec4 color; uniform uint index; uniform vec2 offset, scale;"
                           "uniform sampler2D plain; uniform int isPlain;"
                           "void main() { vec2 place = offset + uv*scale;"
                           "color = isPlain == 1 ? texture(plain, place) : sampleTexture(index, place); }");
        EXPECT_TRUE(vertex.compile() && fragment.compile());
        attachShader(vertex);
        attachShader(fragment);
        EXPECT_TRUE(link());
        for(const SamplerUnit& sampler: {SamplerUnits[3], SamplerUnits[4], SamplerUnits[5], SamplerUnits[6]})
            setUniform(uniformLocation(sampler.name), sampler.unit);
        setUniform(uniformLocation("plain"), PlainTextureUnit);
    }
    SamplingProgram& set(const char* name, const Vector2& value) {
        return setUniform(uniformLocation(name), value), *this;
    }
    SamplingProgram& set(const char* name, UnsignedInt value) {
        return setUniform(uniformLocation(name), value), *this;
    }
    SamplingProgram& set(const char* name, Int value) { return setUniform(uniformLocation(name), value), *this; }
};

typedef std::vector<Vector4> Pixels;

struct TextureTableTest: VantrelTest::GlTest {
    Pixels draw(UnsignedInt texture, const Vector2& offset, const Vector2& scale, bool isPlain = false) {
        GL::Texture2D target;
        target.setMinificationFilter(GL::SamplerFilter::Nearest)
            .setStorage(1, GL::TextureFormat::RGBA32F, Vector2i{TargetSize});
        GL::Framebuffer framebuffer{{{}, Vector2i{TargetSize}}};
        framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, target, 0).bind();
        table.bind();
        GL::Mesh triangle;
        triangle.setCount(3);
        program.set("index", texture)
            .set("offset", offset)
            .set("scale", scale)
            .set("isPlain", Int(isPlain))
            .draw(triangle);
        const Image2D image = framebuffer.read({{}, Vector2i{TargetSize}}, Image2D{PixelFormat::RGBA32F});
        const auto* const data = reinterpret_cast<const Vector4*>(image.data().data());
        return Pixels(data, data + PixelCount);
    }

    // Adds an image under this index, and a texture of it under the same index.
    void add(Id index, const SceneImage& image, SamplerWrapping wrapping = SamplerWrapping::Repeat,
        SamplerFilter filter = SamplerFilter::Linear, SamplerMipmap mipmap = SamplerMipmap::Linear) {
        ASSERT_TRUE(table.images().reserve(index, image.pixels->size()));
        table.images().set(table.images().count(), image);
        SceneTexture texture;
        texture.header = {index, index};
        texture.wrapping = wrapping;
        texture.filter = filter;
        texture.mipmap = mipmap;
        table.setTexture(texture, index);
    }

    TextureTable table;
    SamplingProgram program;
};

// Smooth enough that neighbours of levels differ little, without being alike.
SceneImage makeImage(const Vector2i& size, bool isSrgb = true, unsigned seed = 1) {
    std::mt19937 random{seed};
    std::uniform_int_distribution<int> noise{0, 255};
    Containers::Array<char> data{NoInit, std::size_t(size.product()) * 4};
    for(std::size_t i = 0; i != data.size(); ++i) data[i] = char(i % 4 == 3 ? 255 : noise(random));
    SceneImage image;
    image.id = "noise";
    image.header.size = size;
    image.isSrgb = isSrgb;
    image.pixels.emplace(PixelFormat::RGBA8Unorm, size, std::move(data));
    return image;
}

SceneImage plainImage(const Vector2i& size, const Color4ub& color) {
    SceneImage image = makeImage(size);
    auto* const texels = reinterpret_cast<Color4ub*>(image.pixels->data().data());
    std::fill_n(texels, size.product(), color);
    return image;
}

// A texture of the GL's own, with the levels that the store makes.
void makePlain(GL::Texture2D& texture, const SceneImage& image) {
    const auto sizes = mipSizes(image.pixels->size());
    texture.setStorage(
        Int(sizes.size()), image.isSrgb ? GL::TextureFormat::SRGB8Alpha8 : GL::TextureFormat::RGBA8, sizes[0]);
    MipLevels levels{*image.pixels, image.isSrgb};
    for(std::size_t i = 0; i != sizes.size(); ++i) {
        if(i) levels.halve();
        const auto texels = levels.bytesWithMargin();
        PixelStorage storage;
        storage.setRowLength(sizes[i].x() + 2).setSkip({1, 1, 0});
        texture.setSubImage(Int(i), {}, ImageView2D{storage, PixelFormat::RGBA8Unorm, sizes[i], texels});
    }
}

float largestDifference(const Pixels& a, const Pixels& b) {
    float largest = 0.0f;
    for(std::size_t i = 0; i != a.size(); ++i) largest = std::max(largest, Math::abs(a[i] - b[i]).max());
    return largest;
}

struct Sampling {
    const char* name;
    SamplerWrapping wrapping;
    SamplerFilter filter;
    SamplerMipmap mipmap;
};

TEST_F(TextureTableTest, samplesAsTheGlDoes) {
    const Sampling samplings[]{
        {"repeat", SamplerWrapping::Repeat, SamplerFilter::Linear, SamplerMipmap::Linear},
        {"mirror", SamplerWrapping::MirroredRepeat, SamplerFilter::Linear, SamplerMipmap::Linear},
        {"clamp", SamplerWrapping::ClampToEdge, SamplerFilter::Linear, SamplerMipmap::Linear},
        {"nearest", SamplerWrapping::Repeat, SamplerFilter::Nearest, SamplerMipmap::Base},
        {"nearest mirror", SamplerWrapping::MirroredRepeat, SamplerFilter::Nearest, SamplerMipmap::Base},
        {"nearest clamp", SamplerWrapping::ClampToEdge, SamplerFilter::Nearest, SamplerMipmap::Base},
        {"one level", SamplerWrapping::Repeat, SamplerFilter::Linear, SamplerMipmap::Base},
        {"nearest level", SamplerWrapping::Repeat, SamplerFilter::Linear, SamplerMipmap::Nearest},
    };
    const SceneImage images[]{makeImage({16, 16}), makeImage({13, 6}, false, 2), makeImage({1, 1}, false, 3)};
    Id texture = 0;
    for(const SceneImage& image: images)
        for(const Sampling& sampling: samplings)
            add(++texture, image, sampling.wrapping, sampling.filter, sampling.mipmap);
    table.prepare();

    texture = 0;
    for(const SceneImage& image: images) {
        GL::Texture2D plain;
        makePlain(plain, image);
        for(const Sampling& sampling: samplings) {
            ++texture;
            plain.setMinificationFilter(sampling.filter, sampling.mipmap)
                .setMagnificationFilter(sampling.filter)
                .setWrapping(sampling.wrapping);
            // Much larger, somewhat larger and smaller; all of them across the edges of the image. Pixels do not meet
            // texels' edges, where nearest has two answers.
            for(const float scale: {0.51f, 3.1f, 8.03f, 33.0f}) {
                SCOPED_TRACE(sampling.name);
                plain.bind(PlainTextureUnit);
                const Vector2 offset{-0.5003f * scale, -0.4007f * scale};
                const Pixels expected = draw(0, offset, Vector2{scale}, true);
                // GLs differ in how exactly they choose a level.
                EXPECT_LT(largestDifference(draw(texture, offset, Vector2{scale}), expected), 0.03f)
                    << "image of " << image.pixels->size().x() << ", scale " << scale;
            }
        }
    }
}

TEST_F(TextureTableTest, valuesAreThoseOfTheColorSpace) {
    const SceneImage color = plainImage({4, 4}, {128, 0, 255, 128});
    SceneImage data = plainImage({4, 4}, {128, 0, 255, 128}), bright = plainImage({1, 1}, {});
    data.isSrgb = false;
    Containers::Array<char> texel{NoInit, sizeof(Color4)};
    const Color4 value{40.0f, 0.25f, 2.0f, 1.0f};
    std::copy_n(reinterpret_cast<const char*>(&value), texel.size(), texel.data());
    bright.pixels.emplace(PixelFormat::RGBA32F, Vector2i{1, 1}, std::move(texel));
    add(1, color);
    add(2, data);
    add(3, bright);
    table.prepare();
    EXPECT_LT(largestDifference(draw(1, {}, Vector2{5.0f}), Pixels(PixelCount, {0.2158f, 0.0f, 1.0f, 0.502f})), 0.004f);
    EXPECT_LT(largestDifference(draw(2, {}, Vector2{5.0f}), Pixels(PixelCount, {0.502f, 0.0f, 1.0f, 0.502f})), 0.004f);
    EXPECT_LT(largestDifference(draw(3, {}, Vector2{5.0f}), Pixels(PixelCount, value)), 0.001f);
}

TEST_F(TextureTableTest, whatCannotBeHadIsWhite) {
    const Pixels white(PixelCount, Vector4{1.0f});
    EXPECT_EQ(draw(0, {}, Vector2{1.0f}), white);
    EXPECT_EQ(draw(1, {}, Vector2{1.0f}), white);
    const SceneImage black = plainImage({2, 2}, {0, 0, 0, 255});
    add(2, black);
    SceneTexture texture;
    texture.header = {3, 0};
    table.setTexture(texture, 0);
    // Reserved, but without pixels.
    ASSERT_TRUE(table.images().reserve(4, {8, 8}));
    table.images().set(1, SceneImage{});
    texture.header = {4, 4};
    table.setTexture(texture, 4);
    table.prepare();
    for(const UnsignedInt index: {0u, 1u, 3u, 4u, 5u, 60000u})
        EXPECT_EQ(draw(index, {}, Vector2{1.0f}), white) << index;
    EXPECT_EQ(draw(2, {}, Vector2{1.0f}), Pixels(PixelCount, Vector4{0.0f, 0.0f, 0.0f, 1.0f}));
    EXPECT_EQ(table.images().count(), 1u);
}

TEST_F(TextureTableTest, manyImagesInSeveralLayersStayApart) {
    table.images().setLayerSize({128, 128});
    std::vector<SceneImage> images;
    for(std::size_t i = 0; i != 500; ++i)
        images.push_back(plainImage({Int(3 + i % 29), Int(2 + i % 37)},
            {UnsignedByte(i % 256), UnsignedByte(i / 256 * 90), UnsignedByte(i * 7 % 256), 255}));
    for(std::size_t i = 0; i != 500; ++i) {
        images[i].isSrgb = false;
        add(Id(i + 1), images[i]);
    }
    table.prepare();
    for(std::size_t i = 0; i < 500; i += 7) {
        const auto& color = *reinterpret_cast<const Color4ub*>(images[i].pixels->data().data());
        const Pixels expected(PixelCount, Vector4{Math::unpack<Color4>(color)});
        for(const float scale: {0.7f, 21.0f})
            EXPECT_LT(largestDifference(draw(UnsignedInt(i + 1), Vector2{-0.3f}, Vector2{scale}), expected), 0.003f)
                << i;
    }
}

TEST_F(TextureTableTest, whatIsLargerThanALayerIsMadeSmaller) {
    const SceneImage image = makeImage({256, 64}, false);
    table.images().setLayerSize({64, 64});
    std::string lines;
    {
        std::ostringstream out;
        const Utility::Warning redirected{&out};
        add(1, image);
        table.prepare();
        lines = out.str();
    }
    EXPECT_EQ(lines, "TextureAtlas: image noise of 256 x 64 pixels is made smaller: a layer has 64 x 64\n");

    SceneImage smaller = makeImage({64, 16}, false);
    MipLevels levels{*image.pixels, false};
    levels.halve();
    levels.halve();
    const auto texels = levels.bytesWithMargin();
    for(Int y = 0; y != 16; ++y)
        std::copy_n(
            texels.data() + (y + 1) * 66 + 1, 64, reinterpret_cast<Color4ub*>(smaller.pixels->data().data()) + y * 64);
    GL::Texture2D plain;
    makePlain(plain, smaller);
    plain.setMinificationFilter(GL::SamplerFilter::Linear, GL::SamplerMipmap::Linear)
        .setMagnificationFilter(GL::SamplerFilter::Linear)
        .setWrapping(GL::SamplerWrapping::Repeat);
    plain.bind(PlainTextureUnit);
    EXPECT_LT(
        largestDifference(draw(1, Vector2{-0.3f}, Vector2{1.1f}), draw(0, Vector2{-0.3f}, Vector2{1.1f}, true)), 0.02f);
}

TEST_F(TextureTableTest, whatNoTextureShowsTakesNoRoom) {
    table.images().setLayerSize({64, 64});
    const SceneImage shown = plainImage({4, 4}, {0, 255, 0, 255}), hidden = makeImage({256, 64}, false);
    std::ostringstream lines;
    const Utility::Warning redirected{&lines};
    for(const Id index: {1, 3}) {
        ASSERT_TRUE(table.images().reserve(index, hidden.pixels->size()));
        table.images().set(table.images().count(), hidden);
    }
    add(2, shown);
    table.prepare();
    EXPECT_EQ(lines.str(), "");
    EXPECT_EQ(table.images().records().size(), mipSizes({4, 4}).size());
    for(const Id index: {1, 3}) EXPECT_EQ(table.images().levels(index).count, 0u);
    EXPECT_EQ(draw(2, {}, Vector2{1.0f})[0], (Vector4{0.0f, 1.0f, 0.0f, 1.0f}));
}

TEST_F(TextureTableTest, anImageOfTheSizeOfALayerKeepsItsSize) {
    table.images().setLayerSize(Vector2i{TargetSize});
    const SceneImage image = makeImage(Vector2i{TargetSize}, false);
    std::ostringstream lines;
    const Utility::Warning redirected{&lines};
    add(1, image, SamplerWrapping::Repeat, SamplerFilter::Nearest, SamplerMipmap::Base);
    table.prepare();
    EXPECT_EQ(lines.str(), "");
    const auto* const texels = reinterpret_cast<const Color4ub*>(image.pixels->data().data());
    const Pixels pixels = draw(1, {}, Vector2{1.0f});
    for(std::size_t i = 0; i != pixels.size(); ++i) ASSERT_EQ(Math::pack<Color4ub>(Color4{pixels[i]}), texels[i]) << i;
}

TEST_F(TextureTableTest, anotherSizeOfLayersCountsAfterTheImages) {
    const SceneImage image = makeImage({64, 64}, false);
    std::ostringstream lines;
    const Utility::Warning redirected{&lines};
    add(1, image);
    table.images().setLayerSize({32, 32});
    table.prepare();
    EXPECT_EQ(lines.str(), "");
    table.clear();
    add(1, image);
    table.prepare();
    EXPECT_THAT(lines.str(), HasSubstr("a layer has 32 x 32"));
}

TEST_F(TextureTableTest, sizesThatNoLayerCanHave) {
    std::ostringstream lines;
    const Utility::Warning redirected{&lines};
    for(const Vector2i& size: {Vector2i{0, 0}, Vector2i{-5, 100}, Vector2i{1 << 30, 1 << 30}}) {
        table.clear();
        table.images().setLayerSize(size);
        const SceneImage image = plainImage({4, 4}, {0, 0, 0, 255});
        add(1, image);
        table.prepare();
        EXPECT_EQ(draw(1, {}, Vector2{1.0f})[0], (Vector4{0.0f, 0.0f, 0.0f, 1.0f}));
    }
    EXPECT_FALSE(table.images().reserve(2, {0, 4}));
    EXPECT_EQ(lines.str(), "");
}

TEST_F(TextureTableTest, whereThereIsNoRoomIsSaid) {
    table.images().setLayerSize({16384, 16384});
    std::ostringstream lines;
    const Utility::Warning redirected{&lines};
    Id index = 1;
    while(index != 1000 && table.images().reserve(index, {8192, 8192})) ++index;
    EXPECT_GT(index, 2);
    EXPECT_EQ(
        lines.str(), "TextureAtlas: there is no room for image " + std::to_string(index) + " of 8192 x 8192 pixels\n");
}

std::size_t liveTextures() {
    std::size_t count = 0;
    for(GLuint name = 1; name != 10000; ++name) count += glIsTexture(name);
    return count;
}

TEST_F(TextureTableTest, refillingLeavesNoObjectsBehind) {
    const SceneImage images[]{makeImage({16, 16}), makeImage({32, 8}, false), makeImage({40, 40})};
    const auto refill = [&](std::size_t count) {
        table.clear();
        for(std::size_t i = 0; i != count; ++i) add(Id(i + 1), images[i]);
        table.prepare();
    };
    refill(3);
    const std::size_t count = liveTextures();
    for(std::size_t i = 0; i != 50; ++i) refill(1 + i % 3);
    refill(3);
    EXPECT_EQ(liveTextures(), count);
    refill(0);
    EXPECT_EQ(draw(1, {}, Vector2{1.0f}), Pixels(PixelCount, Vector4{1.0f}));
}

} // namespace
