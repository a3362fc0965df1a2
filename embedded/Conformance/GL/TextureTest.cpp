#include <vector>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/String.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/CubeMapTexture.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/GL/Sampler.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureArray.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/ImageView.h>
#include <Magnum/PixelStorage.h>
#include <Magnum/Sampler.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

using namespace Conformance;

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::KilledBySignal;

constexpr std::uint32_t Red = 0xff0000ff;
constexpr std::uint32_t Green = 0x00ff00ff;
constexpr std::uint32_t Blue = 0x0000ffff;
constexpr std::uint32_t White = 0xffffffff;

// Makes raw calls in its scope affect what is bound to the unit.
struct ActiveUnit {
    explicit ActiveUnit(Int unit) {
        glGetIntegerv(GL_ACTIVE_TEXTURE, &before);
        glActiveTexture(GL_TEXTURE0 + unit);
    }
    ~ActiveUnit() { glActiveTexture(before); }

    GLint before;
};

GLint boundTo(Int unit, GLenum binding) {
    const ActiveUnit active{unit};
    GLint id = -1;
    glGetIntegerv(binding, &id);
    return id;
}

GLint parameter(GLenum target, GL::AbstractTexture& texture, GLenum name) {
    texture.bind(0);
    const ActiveUnit active{0};
    GLint value = -1;
    glGetTexParameteriv(target, name, &value);
    return value;
}

// Draws what a shader samples from the texture at one place.
struct TextureTest: VantrelTest::GlTest {
    std::uint32_t sample(GL::AbstractTexture& texture, const Vector2& coordinates, Float lod = 0.0f) {
        texture.bind(2);
        program.setUniform(program.uniformLocation("image"), 2);
        program.setUniform(program.uniformLocation("coordinates"), coordinates);
        program.setUniform(program.uniformLocation("lod"), lod);
        canvas.framebuffer.bind();
        program.draw(GL::Mesh{}.setCount(3));
        return canvas.pixel({});
    }

    Canvas canvas{{1, 1}};
    Program program{
        "void main() { gl_Position = vec4(vec2(gl_VertexID & 1, gl_VertexID >> 1)*4.0 - 1.0, 0.0, 1.0); }\n",
        "uniform sampler2D image;\nuniform vec2 coordinates;\nuniform float lod;\n"
        "out vec4 color;\nvoid main() { color = textureLod(image, coordinates, lod); }\n"};
};

// Red, green in the first row and blue, white in the second.
GL::Texture2D fourTexels() {
    GL::Texture2D texture;
    const UnsignedByte pixels[]{255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 255};
    texture.setStorage(1, GL::TextureFormat::RGBA8, {2, 2})
        .setMinificationFilter(SamplerFilter::Nearest)
        .setMagnificationFilter(SamplerFilter::Nearest)
        .setSubImage(0, {}, ImageView2D{PixelFormat::RGBA8Unorm, {2, 2}, pixels});
    return texture;
}

TEST_F(TextureTest, constructionAndMove) {
    GL::Texture2D texture;
    const UnsignedInt id = texture.id();
    EXPECT_TRUE(glIsTexture(id));
    {
        GL::Texture2D moved{std::move(texture)};
        EXPECT_EQ(texture.id(), 0u);
        EXPECT_EQ(moved.id(), id);
        GL::Texture2D assigned{NoCreate};
        assigned = std::move(moved);
        EXPECT_EQ(moved.id(), 0u);
        EXPECT_EQ(assigned.id(), id);
    }
    EXPECT_FALSE(glIsTexture(id));
    EXPECT_TRUE(glIsTexture(GL::Texture2DArray{}.id()));
    EXPECT_TRUE(glIsTexture(GL::CubeMapTexture{}.id()));
}

TEST_F(TextureTest, labels) {
    const bool supported = GL::Context::current().isExtensionSupported<GL::Extensions::KHR::debug>();
    GL::Texture2D texture;
    EXPECT_EQ(&texture.setLabel("tiles"), &texture);
    EXPECT_STREQ(texture.label().data(), supported ? "tiles" : "");
    EXPECT_STREQ(GL::Texture2DArray{}.setLabel("layers").label().data(), supported ? "layers" : "");
    EXPECT_STREQ(GL::CubeMapTexture{}.setLabel("sky").label().data(), supported ? "sky" : "");
}

TEST_F(TextureTest, storageHasLevels) {
    GL::Texture2D texture;
    EXPECT_EQ(texture.imageSize(0), Vector2i{});
    EXPECT_EQ(&texture.setStorage(3, GL::TextureFormat::RGBA8, {8, 5}), &texture);
    EXPECT_EQ(texture.imageSize(0), (Vector2i{8, 5}));
    EXPECT_EQ(texture.imageSize(1), (Vector2i{4, 2}));
    EXPECT_EQ(texture.imageSize(2), (Vector2i{2, 1}));
}

TEST_F(TextureTest, storageOfAllKinds) {
    const GL::TextureFormat formats[]{GL::TextureFormat::R8, GL::TextureFormat::RG8, GL::TextureFormat::RGB8,
        GL::TextureFormat::RGBA8, GL::TextureFormat::SRGB8, GL::TextureFormat::SRGB8Alpha8, GL::TextureFormat::R16,
        GL::TextureFormat::RG16, GL::TextureFormat::RGBA16, GL::TextureFormat::R16F, GL::TextureFormat::RG16F,
        GL::TextureFormat::RGBA16F, GL::TextureFormat::R11FG11FB10F, GL::TextureFormat::R32F, GL::TextureFormat::RG32F,
        GL::TextureFormat::RGBA32F, GL::TextureFormat::R16UI, GL::TextureFormat::R32UI,
        GL::TextureFormat::DepthComponent16, GL::TextureFormat::DepthComponent24, GL::TextureFormat::DepthComponent32F,
        GL::TextureFormat::Depth24Stencil8};
    for(const GL::TextureFormat format: formats) {
        GL::Texture2D texture;
        texture.setStorage(2, format, {4, 4});
        texture.bind(0);
        const ActiveUnit active{0};
        for(int level = 0; level != 2; ++level) {
            GLint actual = 0;
            glGetTexLevelParameteriv(GL_TEXTURE_2D, level, GL_TEXTURE_INTERNAL_FORMAT, &actual);
            EXPECT_EQ(GLenum(actual), GLenum(format));
        }
        EXPECT_EQ(GL::Renderer::error(), GL::Renderer::Error::NoError) << std::hex << GLenum(format);
    }
    GL::Texture2DArray{}.setStorage(2, GL::TextureFormat::RGBA8, {4, 4, 3});
    GL::Texture2DArray{}.setStorage(1, GL::TextureFormat::DepthComponent24, {4, 4, 3});
    GL::CubeMapTexture{}.setStorage(3, GL::TextureFormat::RGBA8, {4, 4});
    EXPECT_EQ(GL::Renderer::error(), GL::Renderer::Error::NoError);
}

TEST_F(TextureTest, genericFormats) {
    const struct {
        PixelFormat generic;
        GLenum expected;
    } rows[]{{PixelFormat::R8Unorm, GL_R8}, {PixelFormat::RG8Unorm, GL_RG8}, {PixelFormat::RGB8Unorm, GL_RGB8},
        {PixelFormat::RGBA8Unorm, GL_RGBA8}, {PixelFormat::RG8Snorm, GL_RG8_SNORM}, {PixelFormat::RGB8Srgb, GL_SRGB8},
        {PixelFormat::RGBA8Srgb, GL_SRGB8_ALPHA8}, {PixelFormat::RGB8UI, GL_RGB8UI}, {PixelFormat::RGBA8I, GL_RGBA8I},
        {PixelFormat::R16Unorm, GL_R16}, {PixelFormat::RG16Snorm, GL_RG16_SNORM}, {PixelFormat::RGB16UI, GL_RGB16UI},
        {PixelFormat::RGBA16I, GL_RGBA16I}, {PixelFormat::R32UI, GL_R32UI}, {PixelFormat::RG32I, GL_RG32I},
        {PixelFormat::RGB16F, GL_RGB16F}, {PixelFormat::RGBA32F, GL_RGBA32F},
        {PixelFormat::Depth16Unorm, GL_DEPTH_COMPONENT16}, {PixelFormat::Depth24Unorm, GL_DEPTH_COMPONENT24},
        {PixelFormat::Depth32F, GL_DEPTH_COMPONENT32F}, {PixelFormat::Stencil8UI, GL_STENCIL_INDEX8},
        {PixelFormat::Depth24UnormStencil8UI, GL_DEPTH24_STENCIL8},
        {PixelFormat::Depth32FStencil8UI, GL_DEPTH32F_STENCIL8}};
    for(const auto& row: rows) EXPECT_EQ(GLenum(GL::textureFormat(row.generic)), row.expected);
    EXPECT_EXIT(GL::textureFormat(PixelFormat(0)), KilledBySignal(SIGABRT),
        HasSubstr("GL::textureFormat(): invalid format PixelFormat(0x0)"));
    EXPECT_EXIT(GL::textureFormat(PixelFormat(5000)), KilledBySignal(SIGABRT),
        HasSubstr("GL::textureFormat(): invalid format PixelFormat(0x1388)"));
    EXPECT_EXIT(GL::textureFormat(PixelFormat::Depth16UnormStencil8UI), KilledBySignal(SIGABRT),
        HasSubstr("GL::textureFormat(): format PixelFormat::Depth16UnormStencil8UI is not supported on this target"));
}

TEST_F(TextureTest, subImagesAndReadingBack) {
    GL::Texture2D texture = fourTexels();
    const UnsignedByte pixel[]{1, 2, 3, 4};
    EXPECT_EQ(&texture.setSubImage(0, {1, 0}, ImageView2D{PixelFormat::RGBA8Unorm, {1, 1}, pixel}), &texture);
    const Image2D image = texture.image(0, Image2D{PixelFormat::RGBA8Unorm});
    EXPECT_EQ(image.size(), (Vector2i{2, 2}));
    const auto* const data = reinterpret_cast<const UnsignedByte*>(image.data().data());
    EXPECT_THAT((std::vector<int>{data, data + image.data().size()}),
        ElementsAre(255, 0, 0, 255, 1, 2, 3, 4, 0, 0, 255, 255, 255, 255, 255, 255));
}

TEST_F(TextureTest, readingBackReusesMemory) {
    GL::Texture2D texture = fourTexels();
    Image2D image = texture.image(0,
        Image2D{
            PixelStorage{}.setAlignment(1), PixelFormat::RGBA8Unorm, {3, 3}, Containers::Array<char>{ValueInit, 36}});
    EXPECT_EQ(image.size(), (Vector2i{2, 2}));
    EXPECT_EQ(image.data().size(), 36u);
    EXPECT_EQ(UnsignedByte(image.data()[0]), 255);
    EXPECT_EQ(UnsignedByte(image.data()[5]), 255);
}

// Three pixels of one or three bytes, which do not fill rows of four.
TEST_F(TextureTest, storageOfUploadsIsHonoured) {
    const UnsignedByte gray[]{10, 20, 30, 40, 50, 60};
    const UnsignedByte padded[]{10, 20, 30, 0, 40, 50, 60, 0};
    const UnsignedByte inside[]{0, 0, 0, 0, 0, 0, 0, 10, 20, 30, 0, 0, 40, 50, 60};
    const ImageView2D views[]{ImageView2D{PixelStorage{}.setAlignment(1), PixelFormat::R8Unorm, {3, 2}, gray},
        ImageView2D{PixelFormat::R8Unorm, {3, 2}, padded},
        ImageView2D{
            PixelStorage{}.setAlignment(1).setRowLength(5).setSkip({2, 1, 0}), PixelFormat::R8Unorm, {3, 2}, inside}};
    for(const ImageView2D& view: views) {
        GL::Texture2D texture;
        texture.setStorage(1, GL::TextureFormat::R8, {3, 2}).setSubImage(0, {}, view);
        const Image2D image = texture.image(0, Image2D{PixelStorage{}.setAlignment(1), PixelFormat::R8Unorm});
        EXPECT_THAT((std::vector<int>{image.data().begin(), image.data().end()}), ElementsAre(10, 20, 30, 40, 50, 60));
    }

    UnsignedByte rgb[18];
    for(int i = 0; i != 18; ++i) rgb[i] = UnsignedByte(i + 1);
    GL::Texture2D texture;
    texture.setStorage(1, GL::TextureFormat::RGB8, {3, 2})
        .setSubImage(0, {}, ImageView2D{PixelStorage{}.setAlignment(1), PixelFormat::RGB8Unorm, {3, 2}, rgb});
    const Image2D packed = texture.image(0, Image2D{PixelStorage{}.setAlignment(1), PixelFormat::RGB8Unorm});
    EXPECT_THAT((std::vector<int>{packed.data().begin(), packed.data().end()}), ElementsAreArray(rgb));
    const Image2D aligned = texture.image(0, Image2D{PixelFormat::RGB8Unorm});
    ASSERT_EQ(aligned.data().size(), 24u);
    EXPECT_EQ(aligned.data()[12], 10);
}

TEST_F(TextureTest, filters) {
    GL::Texture2D texture = fourTexels();
    texture.setWrapping(SamplerWrapping::ClampToEdge);
    EXPECT_EQ(sample(texture, {0.45f, 0.25f}), Red);
    EXPECT_EQ(sample(texture, {0.55f, 0.25f}), Green);
    EXPECT_EQ(sample(texture, {0.25f, 0.75f}), Blue);
    EXPECT_EQ(&texture.setMagnificationFilter(SamplerFilter::Linear), &texture);
    EXPECT_EQ(&texture.setMinificationFilter(SamplerFilter::Linear), &texture);
    const std::uint32_t middle = sample(texture, {0.5f, 0.25f});
    EXPECT_NEAR(int(middle >> 24), 128, 2);
    EXPECT_NEAR(int(middle >> 16 & 0xff), 128, 2);
    EXPECT_EQ(middle & 0xffff, 0x00ffu);
}

TEST_F(TextureTest, mipmaps) {
    GL::Texture2D texture;
    const UnsignedByte black[64]{};
    texture.setStorage(3, GL::TextureFormat::RGBA8, {4, 4})
        .setSubImage(0, {}, ImageView2D{PixelFormat::RGBA8Unorm, {4, 4}, black});
    EXPECT_EQ(&texture.generateMipmap(), &texture);
    const Image2D generated = texture.image(2, Image2D{PixelFormat::RGBA8Unorm});
    EXPECT_EQ(generated.size(), (Vector2i{1, 1}));
    EXPECT_EQ(generated.data()[3], 0);

    UnsignedByte white[16];
    std::fill(std::begin(white), std::end(white), 255);
    texture.setSubImage(1, {}, ImageView2D{PixelFormat::RGBA8Unorm, {2, 2}, white})
        .setMagnificationFilter(SamplerFilter::Nearest);
    texture.setMinificationFilter(SamplerFilter::Nearest);
    EXPECT_EQ(sample(texture, {0.5f, 0.5f}, 1.0f), 0u);
    texture.setMinificationFilter(SamplerFilter::Nearest, SamplerMipmap::Nearest);
    EXPECT_EQ(sample(texture, {0.5f, 0.5f}, 0.8f), White);
    texture.setMinificationFilter(SamplerFilter::Linear, SamplerMipmap::Linear);
    EXPECT_NEAR(int(sample(texture, {0.5f, 0.5f}, 0.5f) & 0xff), 128, 2);
    EXPECT_EQ(&texture.setBaseLevel(1), &texture);
    EXPECT_EQ(sample(texture, {0.5f, 0.5f}, 0.0f), White);
    EXPECT_EQ(&texture.setMaxLevel(1), &texture);
    EXPECT_EQ(sample(texture, {0.5f, 0.5f}, 5.0f), White);
}

// A level is all that a texture needs, whatever filter GL starts with. Without immutable storage that takes a word.
TEST_F(TextureTest, storageIsCompleteWithItsLevels) {
    GL::Texture2D texture;
    const UnsignedByte red[]{255, 0, 0, 255, 255, 0, 0, 255, 255, 0, 0, 255, 255, 0, 0, 255};
    texture.setStorage(1, GL::TextureFormat::RGBA8, {2, 2})
        .setSubImage(0, {}, ImageView2D{PixelFormat::RGBA8Unorm, {2, 2}, red});
    if(!GL::Context::current().isExtensionSupported<GL::Extensions::ARB::texture_storage>()) texture.setMaxLevel(0);
    EXPECT_EQ(sample(texture, {0.5f, 0.5f}), Red);
}

TEST_F(TextureTest, wrapping) {
    const struct {
        SamplerWrapping wrapping;
        std::uint32_t left, right, farRight;
    } rows[]{{SamplerWrapping::Repeat, Green, Red, Green}, {SamplerWrapping::MirroredRepeat, Red, Green, Red},
        {SamplerWrapping::ClampToEdge, Red, Green, Green},
        {SamplerWrapping::ClampToBorder, 0x3399ccff, 0x3399ccff, 0x3399ccff}};
    for(const auto& row: rows) {
        GL::Texture2D texture = fourTexels();
        EXPECT_EQ(&texture.setWrapping(row.wrapping).setBorderColor(0x3399ccff_rgbaf), &texture);
        EXPECT_EQ(sample(texture, {-0.25f, 0.25f}), row.left);
        EXPECT_EQ(sample(texture, {1.25f, 0.25f}), row.right);
        EXPECT_EQ(sample(texture, {1.75f, 0.25f}), row.farRight);
        // The other direction too.
        EXPECT_EQ(sample(texture, {0.25f, -0.25f}),
            row.wrapping == SamplerWrapping::Repeat              ? Blue
                : row.wrapping == SamplerWrapping::ClampToBorder ? 0x3399ccff
                                                                 : Red);
    }
}

TEST_F(TextureTest, swizzle) {
    const UnsignedByte pixel[]{10, 20, 30, 40};
    GL::Texture2D texture;
    texture.setStorage(1, GL::TextureFormat::RGBA8, {1, 1})
        .setMinificationFilter(SamplerFilter::Nearest)
        .setSubImage(0, {}, ImageView2D{PixelFormat::RGBA8Unorm, {1, 1}, pixel});
    EXPECT_EQ(&(texture.setSwizzle<'b', 'a', 'r', 'g'>()), &texture);
    EXPECT_EQ(sample(texture, {0.5f, 0.5f}), 0x1e280a14u);
    texture.setSwizzle<'r', '0', '1', '1'>();
    EXPECT_EQ(sample(texture, {0.5f, 0.5f}), 0x0a00ffffu);
}

TEST_F(TextureTest, genericSamplerValuesAreThoseOfGl) {
    const struct {
        SamplerFilter filter;
        SamplerMipmap mipmap;
        GLenum expected;
    } filters[]{{SamplerFilter::Nearest, SamplerMipmap::Base, GL_NEAREST},
        {SamplerFilter::Linear, SamplerMipmap::Base, GL_LINEAR},
        {SamplerFilter::Nearest, SamplerMipmap::Nearest, GL_NEAREST_MIPMAP_NEAREST},
        {SamplerFilter::Linear, SamplerMipmap::Nearest, GL_LINEAR_MIPMAP_NEAREST},
        {SamplerFilter::Nearest, SamplerMipmap::Linear, GL_NEAREST_MIPMAP_LINEAR},
        {SamplerFilter::Linear, SamplerMipmap::Linear, GL_LINEAR_MIPMAP_LINEAR}};
    GL::Texture2D texture;
    for(const auto& row: filters) {
        texture.setMinificationFilter(row.filter, row.mipmap);
        EXPECT_EQ(GLenum(parameter(GL_TEXTURE_2D, texture, GL_TEXTURE_MIN_FILTER)), row.expected);
        texture.setMagnificationFilter(row.filter);
        EXPECT_EQ(GLenum(parameter(GL_TEXTURE_2D, texture, GL_TEXTURE_MAG_FILTER)), row.expected & ~0x102u & 0x2601u);
    }
    const struct {
        SamplerWrapping wrapping;
        GL::SamplerWrapping native;
        GLenum expected;
    } wrappings[]{{SamplerWrapping::Repeat, GL::SamplerWrapping::Repeat, GL_REPEAT},
        {SamplerWrapping::MirroredRepeat, GL::SamplerWrapping::MirroredRepeat, GL_MIRRORED_REPEAT},
        {SamplerWrapping::ClampToEdge, GL::SamplerWrapping::ClampToEdge, GL_CLAMP_TO_EDGE},
        {SamplerWrapping::ClampToBorder, GL::SamplerWrapping::ClampToBorder, GL_CLAMP_TO_BORDER},
        {SamplerWrapping::MirrorClampToEdge, GL::SamplerWrapping::MirrorClampToEdge, GL_MIRROR_CLAMP_TO_EDGE}};
    GL::CubeMapTexture cubeMap;
    for(const auto& row: wrappings) {
        texture.setWrapping(row.wrapping);
        cubeMap.setWrapping(row.native);
        EXPECT_EQ(GLenum(parameter(GL_TEXTURE_2D, texture, GL_TEXTURE_WRAP_S)), row.expected);
        EXPECT_EQ(GLenum(parameter(GL_TEXTURE_2D, texture, GL_TEXTURE_WRAP_T)), row.expected);
        EXPECT_EQ(GLenum(parameter(GL_TEXTURE_CUBE_MAP, cubeMap, GL_TEXTURE_WRAP_T)), row.expected);
    }
    EXPECT_EXIT(texture.setMinificationFilter(SamplerFilter(90)), KilledBySignal(SIGABRT),
        HasSubstr("GL::samplerFilter(): invalid filter SamplerFilter(0x5a)"));
    EXPECT_EXIT(texture.setMinificationFilter(SamplerFilter::Linear, SamplerMipmap(90)), KilledBySignal(SIGABRT),
        HasSubstr("GL::samplerMipmap(): invalid mode SamplerMipmap(0x5a)"));
    EXPECT_EXIT(texture.setWrapping(SamplerWrapping(90)), KilledBySignal(SIGABRT),
        HasSubstr("GL::samplerWrapping(): invalid wrapping SamplerWrapping(0x5a)"));
}

TEST_F(TextureTest, nativeSamplerValues) {
    GL::Texture2D texture = fourTexels();
    texture.setMinificationFilter(GL::SamplerFilter::Linear, GL::SamplerMipmap::Nearest)
        .setMagnificationFilter(GL::SamplerFilter::Linear);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, texture, GL_TEXTURE_MIN_FILTER), GL_LINEAR_MIPMAP_NEAREST);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, texture, GL_TEXTURE_MAG_FILTER), GL_LINEAR);
}

TEST_F(TextureTest, anisotropy) {
    GL::Texture2D texture;
    EXPECT_EQ(&texture.setMaxAnisotropy(4.0f), &texture);
    const bool supported =
        GL::Context::current().isExtensionSupported<GL::Extensions::EXT::texture_filter_anisotropic>();
    EXPECT_EQ(parameter(GL_TEXTURE_2D, texture, GL_TEXTURE_MAX_ANISOTROPY), supported ? 4 : 1);
}

TEST_F(TextureTest, comparison) {
    Program comparing{
        "void main() { gl_Position = vec4(vec2(gl_VertexID & 1, gl_VertexID >> 1)*4.0 - 1.0, 0.0, 1.0); }\n",
        "uniform sampler2DShadow image;\nuniform float reference;\n"
        "out vec4 color;\nvoid main() { color = vec4(texture(image, vec3(0.5, 0.5, reference))); }\n"};
    const Float depth = 0.5f;
    GL::Texture2D texture;
    texture.setStorage(1, GL::TextureFormat::DepthComponent32F, {1, 1})
        .setMinificationFilter(SamplerFilter::Nearest)
        .setSubImage(0, {}, ImageView2D{PixelFormat::Depth32F, {1, 1}, Containers::arrayView(&depth, 1)})
        .setCompareMode(GL::SamplerCompareMode::CompareRefToTexture)
        .setCompareFunction(GL::SamplerCompareFunction::LessOrEqual)
        .bind(0);
    comparing.setUniform(comparing.uniformLocation("image"), 0);
    canvas.framebuffer.bind();
    for(const auto& row: {std::pair<Float, std::uint32_t>{0.25f, White}, {0.75f, 0u}}) {
        comparing.setUniform(comparing.uniformLocation("reference"), row.first);
        comparing.draw(GL::Mesh{}.setCount(3));
        EXPECT_EQ(canvas.pixel({}), row.second);
    }
    texture.setCompareFunction(GL::SamplerCompareFunction::Greater);
    comparing.draw(GL::Mesh{}.setCount(3));
    EXPECT_EQ(canvas.pixel({}), White);
    texture.setCompareMode(GL::SamplerCompareMode::None);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, texture, GL_TEXTURE_COMPARE_MODE), GL_NONE);
}

TEST_F(TextureTest, unitsKeepTheirTextures) {
    GL::Texture2D first = fourTexels();
    GL::Texture2D second = fourTexels();
    first.bind(0);
    second.bind(1);
    GL::Texture2D third;
    third.setStorage(1, GL::TextureFormat::RGBA8, {1, 1}).setMinificationFilter(SamplerFilter::Nearest);
    second.setMagnificationFilter(SamplerFilter::Linear);
    EXPECT_EQ(boundTo(0, GL_TEXTURE_BINDING_2D), GLint(first.id()));
    EXPECT_EQ(boundTo(1, GL_TEXTURE_BINDING_2D), GLint(second.id()));
    second.bind(0);
    EXPECT_EQ(boundTo(0, GL_TEXTURE_BINDING_2D), GLint(second.id()));
    GL::AbstractTexture::unbind(0);
    EXPECT_EQ(boundTo(0, GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(boundTo(1, GL_TEXTURE_BINDING_2D), GLint(second.id()));
    GL::AbstractTexture::unbind(0);
    first.bind(0);
    EXPECT_EQ(boundTo(0, GL_TEXTURE_BINDING_2D), GLint(first.id()));
}

TEST_F(TextureTest, unitsTakeTexturesOfAllKinds) {
    GL::Texture2D texture;
    GL::Texture2DArray array;
    GL::CubeMapTexture cubeMap;
    array.bind(4);
    EXPECT_EQ(boundTo(4, GL_TEXTURE_BINDING_2D_ARRAY), GLint(array.id()));
    cubeMap.bind(4);
    EXPECT_EQ(boundTo(4, GL_TEXTURE_BINDING_CUBE_MAP), GLint(cubeMap.id()));
    texture.bind(4);
    EXPECT_EQ(boundTo(4, GL_TEXTURE_BINDING_2D), GLint(texture.id()));
}

TEST_F(TextureTest, deletedTexturesAreNotTakenForNewOnes) {
    for(const UnsignedByte value: {UnsignedByte(50), UnsignedByte(100), UnsignedByte(150)}) {
        const UnsignedByte pixel[]{value, value, value, value};
        GL::Texture2D texture;
        texture.setStorage(1, GL::TextureFormat::RGBA8, {1, 1})
            .setMinificationFilter(SamplerFilter::Nearest)
            .setSubImage(0, {}, ImageView2D{PixelFormat::RGBA8Unorm, {1, 1}, pixel});
        EXPECT_EQ(sample(texture, {0.5f, 0.5f}), value * 0x01010101u);
    }
}

}
