#include <sstream>
#include <vector>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/CubeMapTexture.h>
#include <Magnum/GL/DefaultFramebuffer.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureArray.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/ImageView.h>
#include <Magnum/PixelStorage.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

using namespace Conformance;

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::KilledBySignal;
typedef GL::Framebuffer::ColorAttachment ColorAttachment;
typedef GL::Framebuffer::BufferAttachment BufferAttachment;
typedef GL::Framebuffer::DrawAttachment DrawAttachment;
typedef GL::Framebuffer::Status Status;

constexpr std::uint32_t Red = 0xff0000ff;
constexpr std::uint32_t Green = 0x00ff00ff;
constexpr std::uint32_t Blue = 0x0000ffff;

GLint integer(GLenum name) {
    GLint value = -1;
    glGetIntegerv(name, &value);
    return value;
}

Range2Di glViewportRange() {
    GLint v[4];
    glGetIntegerv(GL_VIEWPORT, v);
    return Range2Di::fromSize({v[0], v[1]}, {v[2], v[3]});
}

struct FramebufferTest: VantrelTest::GlTest {};

TEST_F(FramebufferTest, limits) {
    // What every GL 3.3 has.
    EXPECT_GE(GL::Texture2D::maxSize().min(), 1024);
    EXPECT_GE(GL::AbstractFramebuffer::maxViewportSize().min(), 1024);

    // One pixel more is refused.
    GL::Texture2D texture;
    texture.setStorage(1, GL::TextureFormat::R8, {GL::Texture2D::maxSize().x(), 1});
    EXPECT_EQ(GL::Renderer::error(), GL::Renderer::Error::NoError);
    GL::Texture2D tooLarge;
    tooLarge.setStorage(1, GL::TextureFormat::R8, {GL::Texture2D::maxSize().x() + 1, 1});
    EXPECT_EQ(GL::Renderer::error(), GL::Renderer::Error::InvalidValue);
}

TEST_F(FramebufferTest, constructionAndMove) {
    GL::Framebuffer framebuffer{{{1, 2}, {3, 4}}};
    const UnsignedInt id = framebuffer.id();
    EXPECT_TRUE(glIsFramebuffer(id));
    EXPECT_EQ(framebuffer.viewport(), (Range2Di{{1, 2}, {3, 4}}));
    {
        GL::Framebuffer moved{std::move(framebuffer)};
        EXPECT_EQ(framebuffer.id(), 0u);
        EXPECT_EQ(moved.id(), id);
        EXPECT_EQ(moved.viewport(), (Range2Di{{1, 2}, {3, 4}}));
        GL::Framebuffer assigned{NoCreate};
        EXPECT_EQ(assigned.viewport(), Range2Di{});
        assigned = std::move(moved);
        EXPECT_EQ(moved.id(), 0u);
        EXPECT_EQ(assigned.id(), id);
    }
    EXPECT_FALSE(glIsFramebuffer(id));
}

TEST_F(FramebufferTest, renderbufferConstructionAndMove) {
    GL::Renderbuffer renderbuffer;
    const UnsignedInt id = renderbuffer.id();
    EXPECT_TRUE(glIsRenderbuffer(id));
    {
        GL::Renderbuffer moved{std::move(renderbuffer)};
        EXPECT_EQ(renderbuffer.id(), 0u);
        EXPECT_EQ(moved.id(), id);
    }
    EXPECT_FALSE(glIsRenderbuffer(id));
}

TEST_F(FramebufferTest, labels) {
    const bool supported = GL::Context::current().isExtensionSupported<GL::Extensions::KHR::debug>();
    GL::Framebuffer framebuffer{{{}, {1, 1}}};
    EXPECT_EQ(&framebuffer.setLabel("view"), &framebuffer);
    EXPECT_STREQ(framebuffer.label().data(), supported ? "view" : "");
    GL::Renderbuffer renderbuffer;
    EXPECT_EQ(&renderbuffer.setLabel("depth"), &renderbuffer);
    EXPECT_STREQ(renderbuffer.label().data(), supported ? "depth" : "");
}

TEST_F(FramebufferTest, statuses) {
    const struct {
        Status status;
        GLenum value;
        const char* name;
    } rows[]{{Status::Complete, GL_FRAMEBUFFER_COMPLETE, "GL::Framebuffer::Status::Complete"},
        {Status::IncompleteAttachment, GL_FRAMEBUFFER_INCOMPLETE_ATTACHMENT,
            "GL::Framebuffer::Status::IncompleteAttachment"},
        {Status::IncompleteMissingAttachment, GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT,
            "GL::Framebuffer::Status::IncompleteMissingAttachment"},
        {Status::IncompleteDrawBuffer, GL_FRAMEBUFFER_INCOMPLETE_DRAW_BUFFER,
            "GL::Framebuffer::Status::IncompleteDrawBuffer"},
        {Status::IncompleteReadBuffer, GL_FRAMEBUFFER_INCOMPLETE_READ_BUFFER,
            "GL::Framebuffer::Status::IncompleteReadBuffer"},
        {Status::Unsupported, GL_FRAMEBUFFER_UNSUPPORTED, "GL::Framebuffer::Status::Unsupported"},
        {Status::IncompleteMultisample, GL_FRAMEBUFFER_INCOMPLETE_MULTISAMPLE,
            "GL::Framebuffer::Status::IncompleteMultisample"},
        {Status::IncompleteLayerTargets, GL_FRAMEBUFFER_INCOMPLETE_LAYER_TARGETS,
            "GL::Framebuffer::Status::IncompleteLayerTargets"},
        {Status(0x12), 0x12, "GL::Framebuffer::Status(0x12)"}};
    for(const auto& row: rows) {
        std::ostringstream out;
        Debug{&out, Debug::Flag::NoNewlineAtTheEnd} << row.status;
        EXPECT_EQ(out.str(), row.name);
        EXPECT_EQ(GLenum(row.status), row.value);
    }
}

TEST_F(FramebufferTest, statusOfBothTargets) {
    GL::Framebuffer framebuffer{{{}, {4, 4}}};
    EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Draw), Status::IncompleteMissingAttachment);
    EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Read), Status::IncompleteMissingAttachment);
    GL::Renderbuffer depth;
    depth.setStorage(GL::RenderbufferFormat::DepthComponent24, {4, 4});
    framebuffer.attachRenderbuffer(ColorAttachment{0}, depth);
    EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Draw), Status::IncompleteAttachment);
    framebuffer.detach(ColorAttachment{0}).attachRenderbuffer(BufferAttachment::Depth, depth);
    framebuffer.mapForDraw(DrawAttachment::None);
    EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Draw), Status::Complete);
    framebuffer.detach(BufferAttachment::Depth);
    EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Draw), Status::IncompleteMissingAttachment);
}

// The framebuffers of an editor: colors with depth and stencil, two numbers, one number, and multisampled ones.
TEST_F(FramebufferTest, usualFormatsAreComplete) {
    const Vector2i size{16, 8};
    {
        GL::Texture2D color, other;
        GL::Renderbuffer depth;
        color.setStorage(1, GL::TextureFormat::RGBA8, size);
        other.setStorage(1, GL::TextureFormat::RGB8, size);
        depth.setStorage(GL::RenderbufferFormat::Depth24Stencil8, size);
        GL::Framebuffer framebuffer{{{}, size}};
        framebuffer.attachTexture(ColorAttachment{0}, color, 0)
            .attachTexture(ColorAttachment{1}, other, 0)
            .attachRenderbuffer(BufferAttachment::DepthStencil, depth)
            .mapForDraw({{0, ColorAttachment{0}}, {1, ColorAttachment{1}}});
        EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Draw), Status::Complete);
        EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Read), Status::Complete);
    }
    for(const GL::TextureFormat format: {GL::TextureFormat::RG16, GL::TextureFormat::R8}) {
        GL::Texture2D texture;
        texture.setStorage(1, format, size);
        GL::Framebuffer framebuffer{{{}, size}};
        framebuffer.attachTexture(ColorAttachment{0}, texture, 0);
        EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Draw), Status::Complete);
    }
    const struct {
        GL::RenderbufferFormat color;
        GL::RenderbufferFormat depth;
        BufferAttachment attachment;
    } rows[]{{GL::RenderbufferFormat::RGBA8, GL::RenderbufferFormat::Depth24Stencil8, BufferAttachment::DepthStencil},
        {GL::RenderbufferFormat::R8, GL::RenderbufferFormat::DepthComponent32F, BufferAttachment::Depth},
        {GL::RenderbufferFormat::RG16, GL::RenderbufferFormat::DepthComponent16, BufferAttachment::Depth},
        {GL::RenderbufferFormat::RGBA16F, GL::RenderbufferFormat::DepthComponent24, BufferAttachment::Depth},
        {GL::RenderbufferFormat::SRGB8Alpha8, GL::RenderbufferFormat::Depth32FStencil8,
            BufferAttachment::DepthStencil}};
    ASSERT_GE(GL::Renderbuffer::maxSamples(), 4);
    for(const Int samples: {0, 4})
        for(const auto& row: rows) {
            GL::Renderbuffer color, depth;
            if(samples) {
                color.setStorageMultisample(samples, row.color, size);
                depth.setStorageMultisample(samples, row.depth, size);
            } else {
                color.setStorage(row.color, size);
                depth.setStorage(row.depth, size);
            }
            GL::Framebuffer framebuffer{{{}, size}};
            framebuffer.attachRenderbuffer(ColorAttachment{0}, color).attachRenderbuffer(row.attachment, depth);
            EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Draw), Status::Complete);
        }
}

TEST_F(FramebufferTest, bindAppliesTheViewport) {
    Canvas first{{8, 8}};
    GL::Framebuffer second{{{1, 2}, {5, 4}}};
    first.framebuffer.bind();
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), GLint(first.framebuffer.id()));
    EXPECT_EQ(glViewportRange(), (Range2Di{{}, {8, 8}}));
    second.bind();
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), GLint(second.id()));
    EXPECT_EQ(glViewportRange(), (Range2Di{{1, 2}, {5, 4}}));
}

TEST_F(FramebufferTest, viewportIsAppliedAtOnceWhenBound) {
    Canvas bound{{8, 8}}, other{{4, 4}};
    bound.framebuffer.bind();
    EXPECT_EQ(&bound.framebuffer.setViewport({{2, 3}, {4, 7}}), &bound.framebuffer);
    EXPECT_EQ(glViewportRange(), (Range2Di{{2, 3}, {4, 7}}));
    other.framebuffer.setViewport({{}, {3, 3}});
    EXPECT_EQ(glViewportRange(), (Range2Di{{2, 3}, {4, 7}}));
    EXPECT_EQ(other.framebuffer.viewport(), (Range2Di{{}, {3, 3}}));
    other.framebuffer.bind();
    EXPECT_EQ(glViewportRange(), (Range2Di{{}, {3, 3}}));

    // By pixels.
    bound.framebuffer.bind();
    FlatProgram{}.fill(Color4::red());
    EXPECT_EQ(bound.pixel({2, 3}), Red);
    EXPECT_EQ(bound.pixel({3, 6}), Red);
    EXPECT_EQ(bound.pixel({1, 3}), 0u);
    EXPECT_EQ(bound.pixel({4, 3}), 0u);
    EXPECT_EQ(bound.pixel({2, 2}), 0u);
    EXPECT_EQ(bound.pixel({2, 7}), 0u);
}

TEST_F(FramebufferTest, onlyBindAndClearChangeWhatIsDrawnTo) {
    Canvas drawn{{4, 4}}, other{{2, 2}};
    drawn.framebuffer.bind();
    const GLint id = GLint(drawn.framebuffer.id());
    GL::Framebuffer created{{{}, {4, 4}}};
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), id);
    GL::Renderbuffer color;
    color.setStorage(GL::RenderbufferFormat::RGBA8, {4, 4});
    created.attachRenderbuffer(ColorAttachment{0}, color).mapForDraw(ColorAttachment{0}).mapForRead(ColorAttachment{0});
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), id);
    created.checkStatus(GL::FramebufferTarget::Draw);
    created.clearColor(0, Color4{1.0f});
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), id);
    GL::AbstractFramebuffer::blit(created, other.framebuffer, {{}, {1, 1}}, GL::FramebufferBlit::Color);
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), id);
    other.pixels();
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), id);
    FlatProgram{}.fill(Color4::green());
    EXPECT_THAT(drawn.pixels(), Each(Green));

    created.clear(GL::FramebufferClear::Color);
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), GLint(created.id()));
    EXPECT_EQ(glViewportRange(), (Range2Di{{}, {4, 4}}));
}

TEST_F(FramebufferTest, deletingTheBoundOneBindsTheDefault) {
    {
        Canvas canvas{{4, 4}};
        EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), GLint(canvas.framebuffer.id()));
    }
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), 0);
    EXPECT_EQ(glViewportRange(), GL::defaultFramebuffer.viewport());
    // A new one with the same name is bound and not taken for the old one.
    Canvas canvas{{4, 4}};
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), GLint(canvas.framebuffer.id()));
    EXPECT_EQ(glViewportRange(), (Range2Di{{}, {4, 4}}));
}

TEST_F(FramebufferTest, defaultFramebuffer) {
    Canvas canvas{{4, 4}};
    GL::defaultFramebuffer.bind();
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), 0);
    const Range2Di before = GL::defaultFramebuffer.viewport();
    GL::defaultFramebuffer.setViewport({{1, 1}, {5, 7}});
    EXPECT_EQ(glViewportRange(), (Range2Di{{1, 1}, {5, 7}}));
    canvas.framebuffer.bind();
    GL::defaultFramebuffer.setViewport(before);
    EXPECT_EQ(glViewportRange(), (Range2Di{{}, {4, 4}}));
}

TEST_F(FramebufferTest, clearUsesTheClearValues) {
    Canvas canvas{{2, 2}};
    GL::Renderer::setClearColor(Color4{0.0f, 1.0f, 0.0f, 1.0f});
    canvas.framebuffer.clear(GL::FramebufferClear::Color);
    EXPECT_THAT(canvas.pixels(), Each(Green));

    // Depth alone leaves the color, and what is behind it is hidden.
    GL::Renderer::setClearDepth(0.25f);
    EXPECT_EQ(
        &canvas.framebuffer.clear(GL::FramebufferClear::Depth | GL::FramebufferClear::Stencil), &canvas.framebuffer);
    EXPECT_THAT(canvas.pixels(), Each(Green));
    GL::Renderer::enable(GL::Renderer::Feature::DepthTest);
    FlatProgram program;
    program.fill(Color4::red(), 0.0f);
    EXPECT_THAT(canvas.pixels(), Each(Green));
    program.fill(Color4::red(), -0.75f);
    EXPECT_THAT(canvas.pixels(), Each(Red));
    GL::Renderer::disable(GL::Renderer::Feature::DepthTest);
    GL::Renderer::setClearDepth(1.0f);
    GL::Renderer::setClearColor(Color4{0x1f / 255.0f});
}

TEST_F(FramebufferTest, clearSingleBuffers) {
    const Vector2i size{2, 1};
    GL::Renderbuffer color, integers;
    color.setStorage(GL::RenderbufferFormat::RGBA8, size);
    integers.setStorage(GL::RenderbufferFormat::R32UI, size);
    GL::Framebuffer framebuffer{{{}, size}};
    framebuffer.attachRenderbuffer(ColorAttachment{0}, color).attachRenderbuffer(ColorAttachment{1}, integers);
    framebuffer.mapForDraw({{0, ColorAttachment{0}}, {1, ColorAttachment{1}}});
    EXPECT_EQ(&framebuffer.clearColor(0, Color4{1.0f, 0.0f, 0.0f}), &framebuffer);
    framebuffer.clearColor(1, Vector4ui{0xdeadbeef});
    EXPECT_THAT(readPixels(framebuffer, {{}, size}), Each(Red));
    framebuffer.mapForRead(ColorAttachment{1});
    const Image2D image = framebuffer.read({{}, size}, Image2D{PixelFormat::R32UI});
    ASSERT_EQ(image.data().size(), 8u);
    EXPECT_EQ(reinterpret_cast<const UnsignedInt*>(image.data().data())[0], 0xdeadbeefu);
    EXPECT_EQ(reinterpret_cast<const UnsignedInt*>(image.data().data())[1], 0xdeadbeefu);
}

TEST_F(FramebufferTest, clearDepthAndStencil) {
    Canvas canvas{{1, 1}};
    canvas.framebuffer.clearDepth(0.5f).clearStencil(7);
    const auto depthStencil = [&] {
        const Image2D image = canvas.framebuffer.read({{}, {1, 1}}, Image2D{PixelFormat::Depth24UnormStencil8UI});
        return *reinterpret_cast<const UnsignedInt*>(image.data().data());
    };
    EXPECT_EQ(depthStencil() & 0xff, 7u);
    EXPECT_NEAR(double(depthStencil() >> 8) / 0xffffff, 0.5, 1e-6);
    canvas.framebuffer.clearDepthStencil(0.25f, 9);
    EXPECT_EQ(depthStencil() & 0xff, 9u);
    EXPECT_NEAR(double(depthStencil() >> 8) / 0xffffff, 0.25, 1e-6);
    const Image2D depth = canvas.framebuffer.read({{}, {1, 1}}, Image2D{PixelFormat::Depth32F});
    EXPECT_NEAR(*reinterpret_cast<const Float*>(depth.data().data()), 0.25, 1e-6);
}

// As a map of shadows is drawn: a texture of depth alone, of which a piece is cleared.
TEST_F(FramebufferTest, depthTextureAlone) {
    GL::Texture2D depth;
    depth.setMinificationFilter(GL::SamplerFilter::Nearest).setStorage(1, GL::TextureFormat::DepthComponent24, {2, 1});
    GL::Framebuffer framebuffer{{{}, {2, 1}}};
    framebuffer.attachTexture(BufferAttachment::Depth, depth, 0).mapForDraw(DrawAttachment::None);
    EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Draw), Status::Complete);
    framebuffer.clearDepth(1.0f);
    GL::Renderer::enable(GL::Renderer::Feature::ScissorTest);
    GL::Renderer::setScissor({{1, 0}, {2, 1}});
    framebuffer.clearDepth(0.25f);
    GL::Renderer::disable(GL::Renderer::Feature::ScissorTest);
    const Image2D image = depth.image(0, Image2D{PixelFormat::Depth32F});
    const auto* const texels = reinterpret_cast<const Float*>(image.data().data());
    EXPECT_NEAR(texels[0], 1.0, 1e-6);
    EXPECT_NEAR(texels[1], 0.25, 1e-6);
}

TEST_F(FramebufferTest, outputsGoWhereTheyAreMapped) {
    const Vector2i size{1, 1};
    GL::Renderbuffer buffers[2];
    GL::Framebuffer framebuffer{{{}, size}};
    for(UnsignedInt i = 0; i != 2; ++i) {
        buffers[i].setStorage(GL::RenderbufferFormat::RGBA8, size);
        framebuffer.attachRenderbuffer(ColorAttachment{i}, buffers[i]);
    }
    Program program{
        "void main() { gl_Position = vec4(vec2(gl_VertexID & 1, gl_VertexID >> 1)*4.0 - 1.0, 0.0, 1.0); }\n",
        "layout(location = 0) out vec4 first;\n"
        "layout(location = 1) out vec4 second;\n"
        "void main() { first = vec4(1.0, 0.0, 0.0, 1.0); second = vec4(0.0, 1.0, 0.0, 1.0); }\n"};
    const struct {
        void (*map)(GL::Framebuffer&);
        std::uint32_t expected[2];
    } rows[]{{[](GL::Framebuffer& f) {
                  f.mapForDraw({{0, ColorAttachment{0}}, {1, ColorAttachment{1}}});
              },
                 {Red, Green}},
        {[](GL::Framebuffer& f) {
             f.mapForDraw({{1, ColorAttachment{0}}, {0, ColorAttachment{1}}});
         },
            {Green, Red}},
        {[](GL::Framebuffer& f) {
             f.mapForDraw({{1, ColorAttachment{1}}});
         },
            {0, Green}},
        {[](GL::Framebuffer& f) {
             f.mapForDraw({{0, DrawAttachment::None}, {1, ColorAttachment{0}}});
         },
            {Green, 0}},
        {[](GL::Framebuffer& f) { f.mapForDraw(ColorAttachment{1}); }, {0, Red}},
        {[](GL::Framebuffer& f) { f.mapForDraw(DrawAttachment::None); }, {0, 0}}};
    for(const auto& row: rows) {
        framebuffer.mapForDraw({{0, ColorAttachment{0}}, {1, ColorAttachment{1}}});
        framebuffer.clearColor(0, Color4{0.0f, 0.0f}).clearColor(1, Color4{0.0f, 0.0f});
        row.map(framebuffer);
        framebuffer.bind();
        program.draw(GL::Mesh{}.setCount(3));
        for(UnsignedInt i = 0; i != 2; ++i) {
            framebuffer.mapForRead(ColorAttachment{i});
            EXPECT_THAT(readPixels(framebuffer, {{}, size}), ElementsAre(row.expected[i]));
        }
    }
}

TEST_F(FramebufferTest, attachmentsAreLevelsLayersAndFaces) {
    const Vector2i size{2, 2};
    GL::Texture2D texture;
    texture.setStorage(3, GL::TextureFormat::RGBA8, size * 2);
    GL::Texture2DArray array;
    array.setStorage(1, GL::TextureFormat::RGBA8, {size, 3});
    GL::CubeMapTexture cubeMap;
    cubeMap.setStorage(1, GL::TextureFormat::RGBA8, size);
    GL::Framebuffer framebuffer{{{}, size}};
    FlatProgram program;
    const auto draw = [&](const Color4& color) {
        EXPECT_EQ(framebuffer.checkStatus(GL::FramebufferTarget::Draw), Status::Complete);
        framebuffer.bind();
        program.fill(color);
    };

    framebuffer.attachTexture(ColorAttachment{0}, texture, 1);
    draw(Color4::red());
    framebuffer.attachTextureLayer(ColorAttachment{0}, array, 0, 2);
    draw(Color4::green());
    framebuffer.attachTextureLayer(ColorAttachment{0}, array, 0, 1);
    draw(Color4::blue());
    framebuffer.attachCubeMapTexture(ColorAttachment{0}, cubeMap, GL::CubeMapCoordinate::NegativeY, 0);
    draw(Color4::cyan());
    framebuffer.attachCubeMapTexture(ColorAttachment{0}, cubeMap, GL::CubeMapCoordinate::PositiveZ, 0);
    draw(Color4::magenta());

    const auto pixels = [&] { return readPixels(framebuffer, {{}, size}); };
    EXPECT_THAT(pixels(), Each(0xff00ffffu));
    framebuffer.attachCubeMapTexture(ColorAttachment{0}, cubeMap, GL::CubeMapCoordinate::NegativeY, 0);
    EXPECT_THAT(pixels(), Each(0x00ffffffu));
    framebuffer.attachTextureLayer(ColorAttachment{0}, array, 0, 1);
    EXPECT_THAT(pixels(), Each(Blue));
    framebuffer.attachTextureLayer(ColorAttachment{0}, array, 0, 2);
    EXPECT_THAT(pixels(), Each(Green));
    framebuffer.attachTexture(ColorAttachment{0}, texture, 1);
    EXPECT_THAT(pixels(), Each(Red));
    const Image2D level = texture.image(1, Image2D{PixelFormat::RGBA8Unorm});
    EXPECT_EQ(level.size(), size);
    EXPECT_EQ(UnsignedByte(level.data()[0]), 255);
    EXPECT_EQ(UnsignedByte(level.data()[1]), 0);
}

// Object numbers drawn as colors: cleared to all ones, then 3 and 1 in the two lowest bytes.
TEST_F(FramebufferTest, numbersAsColors) {
    Canvas canvas{{2, 2}};
    canvas.framebuffer.clearColor(0, Color4{1.0f});
    const auto number = [&] {
        const Image2D image = canvas.framebuffer.read({{1, 1}, {2, 2}}, Image2D{PixelFormat::RGBA8Unorm});
        return *reinterpret_cast<const UnsignedInt*>(image.data().data());
    };
    EXPECT_EQ(number(), 0xffffffffu);
    EXPECT_EQ(number() & 0xffff, 65535u);
    FlatProgram{}.fill(Color4{3 / 255.0f, 1 / 255.0f, 0.0f, 1.0f});
    EXPECT_EQ(number() & 0xffff, 259u);
    EXPECT_EQ(number(), 0xff000103u);
}

TEST_F(FramebufferTest, readConvertsFormats) {
    GL::Texture2D texture;
    texture.setStorage(1, GL::TextureFormat::RGB8, {1, 1});
    GL::Framebuffer framebuffer{{{}, {1, 1}}};
    framebuffer.attachTexture(ColorAttachment{0}, texture, 0).clearColor(0, Color4{1.0f, 0.0f, 0.0f, 0.0f});
    EXPECT_THAT(readPixels(framebuffer, {{}, {1, 1}}), ElementsAre(Red));
    const Image2D image = framebuffer.read({{}, {1, 1}}, Image2D{PixelFormat::RGBA32F});
    const auto* const floats = reinterpret_cast<const Float*>(image.data().data());
    EXPECT_EQ(floats[0], 1.0f);
    EXPECT_EQ(floats[1], 0.0f);
    EXPECT_EQ(floats[3], 1.0f);
}

// Columns that count, so that every pixel tells where it is.
struct ReadTest: VantrelTest::GlTest {
    void SetUp() override {
        GL::Renderer::enable(GL::Renderer::Feature::ScissorTest);
        for(int y = 0; y != 5; ++y)
            for(int x = 0; x != 7; ++x) {
                GL::Renderer::setScissor(Range2Di::fromSize({x, y}, Vector2i{1}));
                canvas.framebuffer.clearColor(0, Color4{(y * 16 + x) / 255.0f, 0.0f, 0.0f});
            }
        GL::Renderer::disable(GL::Renderer::Feature::ScissorTest);
    }

    Canvas canvas{{7, 5}};
};

TEST_F(ReadTest, rowsAreAlignedToFour) {
    const Image2D image = canvas.framebuffer.read({{1, 2}, {4, 4}}, Image2D{PixelFormat::R8Unorm});
    EXPECT_EQ(image.size(), (Vector2i{3, 2}));
    EXPECT_EQ(image.format(), PixelFormat::R8Unorm);
    ASSERT_EQ(image.data().size(), 8u);
    const char* const data = image.data().data();
    EXPECT_THAT((std::vector<int>{data, data + 3}), ElementsAre(0x21, 0x22, 0x23));
    EXPECT_THAT((std::vector<int>{data + 4, data + 7}), ElementsAre(0x31, 0x32, 0x33));
}

TEST_F(ReadTest, storageIsHonoured) {
    const Image2D packed =
        canvas.framebuffer.read({{1, 2}, {4, 4}}, Image2D{PixelStorage{}.setAlignment(1), PixelFormat::R8Unorm});
    EXPECT_THAT((std::vector<int>{packed.data().begin(), packed.data().end()}),
        ElementsAre(0x21, 0x22, 0x23, 0x31, 0x32, 0x33));

    char memory[40]{};
    canvas.framebuffer.read({{1, 2}, {4, 4}},
        MutableImageView2D{
            PixelStorage{}.setAlignment(2).setRowLength(9).setSkip({2, 1, 0}), PixelFormat::R8Unorm, {3, 2}, memory});
    std::vector<int> expected(40);
    for(int y = 0; y != 2; ++y)
        for(int x = 0; x != 3; ++x) expected[10 * (1 + y) + 2 + x] = 0x21 + 0x10 * y + x;
    EXPECT_EQ((std::vector<int>{memory, memory + 40}), expected);

    // The next read is not affected.
    EXPECT_EQ(canvas.framebuffer.read({{}, {3, 5}}, Image2D{PixelFormat::R8Unorm}).data().size(), 20u);
}

TEST_F(ReadTest, memoryIsReusedWhenLargeEnough) {
    Image2D image{PixelFormat::RGBA8Unorm};
    canvas.framebuffer.read({{}, {4, 4}}, image);
    EXPECT_EQ(image.data().size(), 64u);
    const void* const memory = image.data().data();
    canvas.framebuffer.read({{1, 1}, {3, 2}}, image);
    EXPECT_EQ(image.size(), (Vector2i{2, 1}));
    EXPECT_EQ(image.data().data(), memory);
    EXPECT_EQ(image.data().size(), 64u);
    EXPECT_EQ(image.data()[0], 0x11);
    EXPECT_EQ(image.data()[4], 0x12);
    canvas.framebuffer.read({{}, {4, 4}}, image);
    EXPECT_EQ(image.data().data(), memory);
    canvas.framebuffer.read({{}, {7, 5}}, image);
    EXPECT_EQ(image.size(), (Vector2i{7, 5}));
    EXPECT_EQ(image.data().size(), 140u);
    EXPECT_EQ(image.data()[139 - 3], 0x46);

    const Image2D moved = canvas.framebuffer.read({{}, {1, 1}}, std::move(image));
    EXPECT_EQ(moved.data().size(), 140u);
}

TEST_F(ReadTest, emptyRectanglesGiveNoBytes) {
    for(const Vector2i size: {Vector2i{0, 5}, Vector2i{5, 0}, Vector2i{}}) {
        const Image2D image =
            canvas.framebuffer.read(Range2Di::fromSize({1, 1}, size), Image2D{PixelFormat::RGBA8Unorm});
        EXPECT_EQ(image.size(), size);
        EXPECT_EQ(image.data().size(), 0u);
    }
}

TEST_F(ReadTest, viewsOfTheWrongSizeAssert) {
    char memory[64];
    EXPECT_EXIT(canvas.framebuffer.read({{}, {3, 4}}, MutableImageView2D{PixelFormat::RGBA8Unorm, {4, 4}, memory}),
        KilledBySignal(SIGABRT),
        HasSubstr("GL::AbstractFramebuffer::read(): expected image view size Vector(3, 4) but got Vector(4, 4)"));
}

TEST_F(FramebufferTest, blitCopiesTheSameRectangle) {
    Canvas source{{4, 4}}, destination{{4, 4}};
    source.framebuffer.clearColor(0, Color4{1.0f, 0.0f, 0.0f});
    destination.framebuffer.clearColor(0, Color4{0.0f, 1.0f, 0.0f});
    GL::AbstractFramebuffer::blit(
        source.framebuffer, destination.framebuffer, {{1, 1}, {3, 4}}, GL::FramebufferBlit::Color);
    for(int y = 0; y != 4; ++y)
        for(int x = 0; x != 4; ++x)
            EXPECT_EQ(destination.pixel({x, y}), x >= 1 && x < 3 && y >= 1 ? Red : Green) << x << ' ' << y;
}

TEST_F(FramebufferTest, blitScales) {
    Canvas source{{2, 1}}, destination{{8, 2}};
    GL::Renderer::enable(GL::Renderer::Feature::ScissorTest);
    GL::Renderer::setScissor({{}, {1, 1}});
    source.framebuffer.clearColor(0, Color4{1.0f, 0.0f, 0.0f});
    GL::Renderer::setScissor({{1, 0}, {2, 1}});
    source.framebuffer.clearColor(0, Color4{0.0f, 0.0f, 1.0f});
    GL::Renderer::disable(GL::Renderer::Feature::ScissorTest);
    GL::AbstractFramebuffer::blit(source.framebuffer, destination.framebuffer, {{}, {2, 1}}, {{}, {8, 2}},
        GL::FramebufferBlit::Color, GL::FramebufferBlitFilter::Nearest);
    EXPECT_EQ(destination.pixel({0, 0}), Red);
    EXPECT_EQ(destination.pixel({3, 1}), Red);
    EXPECT_EQ(destination.pixel({4, 0}), Blue);
    EXPECT_EQ(destination.pixel({7, 1}), Blue);
    GL::AbstractFramebuffer::blit(source.framebuffer, destination.framebuffer, {{}, {2, 1}}, {{}, {8, 2}},
        GL::FramebufferBlit::Color, GL::FramebufferBlitFilter::Linear);
    EXPECT_NE(destination.pixel({3, 0}), Red);
    EXPECT_NE(destination.pixel({3, 0}), Blue);
}

TEST_F(FramebufferTest, blitCopiesDepth) {
    Canvas source{{2, 2}}, destination{{2, 2}};
    source.framebuffer.clearDepthStencil(0.25f, 3);
    GL::AbstractFramebuffer::blit(source.framebuffer, destination.framebuffer, {{}, {2, 2}},
        GL::FramebufferBlit::Depth | GL::FramebufferBlit::Stencil);
    const Image2D depth = destination.framebuffer.read({{}, {1, 1}}, Image2D{PixelFormat::Depth32F});
    EXPECT_NEAR(*reinterpret_cast<const Float*>(depth.data().data()), 0.25, 1e-6);
    const Image2D stencil = destination.framebuffer.read({{}, {1, 1}}, Image2D{PixelFormat::Stencil8UI});
    EXPECT_EQ(stencil.data()[0], 3);
    EXPECT_EQ(destination.pixel({}), 0u);
}

TEST_F(FramebufferTest, blitResolves) {
    const Vector2i size{8, 8};
    GL::Renderbuffer samples;
    samples.setStorageMultisample(4, GL::RenderbufferFormat::RGBA8, size);
    GL::Framebuffer multisampled{{{}, size}};
    multisampled.attachRenderbuffer(ColorAttachment{0}, samples).clearColor(0, Color4{0.0f, 1.0f});
    multisampled.bind();
    // The lower left half: the diagonal goes through pixels.
    Program triangle{
        "void main() { gl_Position = vec4(vec2(gl_VertexID & 1, gl_VertexID >> 1)*2.0 - 1.0, 0.0, 1.0); }\n",
        "out vec4 color;\nvoid main() { color = vec4(1.0); }\n"};
    triangle.draw(GL::Mesh{}.setCount(3));
    Canvas resolved{size};
    GL::AbstractFramebuffer::blit(multisampled, resolved.framebuffer, {{}, size}, GL::FramebufferBlit::Color);
    EXPECT_EQ(resolved.pixel({1, 1}), 0xffffffffu);
    EXPECT_EQ(resolved.pixel({6, 6}), 0x000000ffu);
    const std::uint32_t edge = resolved.pixel({3, 4}) >> 24;
    EXPECT_GT(edge, 0x20u);
    EXPECT_LT(edge, 0xe0u);
}

}
