#include <Corrade/Containers/Array.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/ImageView.h>
#include <Magnum/Mesh.h>
#include <Magnum/PixelStorage.h>
#include <Magnum/Sampler.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

using namespace Conformance;

namespace {

using testing::Each;

constexpr std::uint32_t Red = 0xff0000ff;
constexpr std::uint32_t Green = 0x00ff00ff;

GLint integer(GLenum name) {
    GLint value = -1;
    glGetIntegerv(name, &value);
    return value;
}

// What a user interface library with a backend of its own does: draw with raw GL and leave things as they are.
struct ResetStateTest: VantrelTest::GlTest {
    void SetUp() override {
        glGenVertexArrays(1, &vertexArray);
        glGenBuffers(2, buffers);
        glGenTextures(1, &texture);
        glGenFramebuffers(1, &framebuffer);
    }

    void foreignCode() {
        glUseProgram(other.id());
        glBindVertexArray(vertexArray);
        glBindBuffer(GL_ARRAY_BUFFER, buffers[0]);
        glBufferData(GL_ARRAY_BUFFER, 64, nullptr, GL_STATIC_DRAW);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, buffers[1]);
        glBindBuffer(GL_PIXEL_PACK_BUFFER, buffers[0]);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffers[0]);
        for(const GLenum unit: {GL_TEXTURE0, GL_TEXTURE1, GL_TEXTURE2}) {
            glActiveTexture(unit);
            glBindTexture(GL_TEXTURE_2D, texture);
        }
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
        glBindRenderbuffer(GL_RENDERBUFFER, 0);
        glViewport(5, 6, 7, 8);
        for(const GLenum name: {GL_PACK_ALIGNMENT, GL_UNPACK_ALIGNMENT}) glPixelStorei(name, 8);
        for(const GLenum name: {GL_PACK_ROW_LENGTH, GL_UNPACK_ROW_LENGTH}) glPixelStorei(name, 100);
        for(const GLenum name: {GL_PACK_SKIP_PIXELS, GL_UNPACK_SKIP_PIXELS}) glPixelStorei(name, 3);
        for(const GLenum name: {GL_PACK_SKIP_ROWS, GL_UNPACK_SKIP_ROWS}) glPixelStorei(name, 2);
    }

    void TearDown() override {
        GL::Context::current().resetState(GL::Context::State::EnterExternal);
        glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
        glDeleteFramebuffers(1, &framebuffer);
        glDeleteTextures(1, &texture);
        glDeleteBuffers(2, buffers);
        glDeleteVertexArrays(1, &vertexArray);
        GL::Context::current().resetState();
        VantrelTest::GlTest::TearDown();
    }

    GLuint vertexArray = 0;
    GLuint buffers[2]{};
    GLuint texture = 0;
    GLuint framebuffer = 0;
    FlatProgram other;
};

TEST_F(ResetStateTest, drawsAreRightAgain) {
    Canvas canvas{{4, 4}};
    FlatProgram program;
    program.fill(Color4::red());
    foreignCode();
    GL::Context::current().resetState();
    canvas.framebuffer.bind();
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), GLint(canvas.framebuffer.id()));
    program.fill(Color4::green());
    EXPECT_THAT(canvas.pixels(), Each(Green));
}

TEST_F(ResetStateTest, meshesAreRightAgain) {
    Canvas canvas{{4, 4}};
    Program program{"layout(location = 0) in vec2 position;\nvoid main() { gl_Position = vec4(position, 0.0, 1.0); }\n",
        "out vec4 color;\nvoid main() { color = vec4(1.0, 0.0, 0.0, 1.0); }\n"};
    GL::Mesh mesh;
    mesh.addVertexBuffer(
            GL::Buffer{GL::Buffer::TargetHint::Array, {Vector2{-1.0f}, Vector2{3.0f, -1.0f}, Vector2{-1.0f, 3.0f}}}, 0,
            GL::Attribute<0, Vector2>{})
        .setIndexBuffer(
            GL::Buffer{GL::Buffer::TargetHint::ElementArray, {UnsignedByte(0), UnsignedByte(1), UnsignedByte(2)}}, 0,
            MeshIndexType::UnsignedByte)
        .setCount(3);
    program.draw(mesh);
    GL::Context::current().resetState(GL::Context::State::EnterExternal);
    foreignCode();
    GL::Context::current().resetState(GL::Context::State::ExitExternal);
    canvas.framebuffer.clearColor(0, Color4{0.0f, 0.0f});
    canvas.framebuffer.bind();
    program.draw(mesh);
    EXPECT_THAT(canvas.pixels(), Each(Red));
}

TEST_F(ResetStateTest, buffersAndTexturesAreRightAgain) {
    GL::Buffer buffer;
    GL::Texture2D image;
    image.setStorage(1, GL::TextureFormat::RGBA8, {2, 2}).setMinificationFilter(SamplerFilter::Nearest);
    image.bind(1);
    foreignCode();
    GL::Context::current().resetState();
    buffer.setData({UnsignedByte(1), UnsignedByte(2)});
    EXPECT_EQ(buffer.size(), 2);
    const UnsignedByte pixels[]{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    image.setSubImage(0, {}, ImageView2D{PixelFormat::RGBA8Unorm, {2, 2}, pixels});
    const Image2D read = image.image(0, Image2D{PixelFormat::RGBA8Unorm});
    EXPECT_EQ(std::string(read.data().begin(), read.data().end()), std::string(std::begin(pixels), std::end(pixels)));
    image.bind(1);
    glActiveTexture(GL_TEXTURE1);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), GLint(image.id()));
}

TEST_F(ResetStateTest, readsAreRightAgain) {
    Canvas canvas{{2, 2}};
    FlatProgram{}.fill(Color4::red());
    EXPECT_THAT(canvas.pixels(), Each(Red));
    foreignCode();
    GL::Context::current().resetState();
    EXPECT_THAT(canvas.pixels(), Each(Red));
}

TEST_F(ResetStateTest, renderbuffersAreRightAgain) {
    GL::Renderbuffer renderbuffer;
    renderbuffer.setStorage(GL::RenderbufferFormat::RGBA8, {2, 2});
    foreignCode();
    GL::Context::current().resetState();
    renderbuffer.setStorage(GL::RenderbufferFormat::RGBA8, {3, 3});
    glBindRenderbuffer(GL_RENDERBUFFER, renderbuffer.id());
    GLint width = 0;
    glGetRenderbufferParameteriv(GL_RENDERBUFFER, GL_RENDERBUFFER_WIDTH, &width);
    EXPECT_EQ(width, 3);
}

TEST_F(ResetStateTest, viewportIsAppliedAgain) {
    Canvas canvas{{4, 4}};
    foreignCode();
    GL::Context::current().resetState();
    canvas.framebuffer.bind();
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 4);
    EXPECT_EQ(viewport[3], 4);
}

// Editing does not change what foreign code draws to, even when nobody knows what that is.
TEST_F(ResetStateTest, foreignFramebufferStaysBound) {
    Canvas canvas{{4, 4}};
    foreignCode();
    GL::Context::current().resetState();
    canvas.framebuffer.mapForDraw(GL::Framebuffer::ColorAttachment{0});
    canvas.framebuffer.checkStatus(GL::FramebufferTarget::Draw);
    EXPECT_EQ(integer(GL_DRAW_FRAMEBUFFER_BINDING), GLint(framebuffer));
}

TEST_F(ResetStateTest, enteringForeignCodeUnbindsTheMesh) {
    Canvas canvas{{1, 1}};
    FlatProgram{}.fill(Color4::red());
    GL::Context::current().resetState(GL::Context::State::EnterExternal);
    EXPECT_EQ(integer(GL_VERTEX_ARRAY_BINDING), 0);
}

}
