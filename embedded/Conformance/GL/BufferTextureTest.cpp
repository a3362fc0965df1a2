#include <Corrade/Containers/String.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/BufferTexture.h>
#include <Magnum/GL/BufferTextureFormat.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/GL/OpenGL.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

using namespace Conformance;

namespace {

using testing::ElementsAre;

constexpr Int Unit = 3;

struct BufferTextureTest: VantrelTest::GlTest {};

// A pixel a texel.
struct TexelProgram: Program {
    explicit TexelProgram(const char* sampler, const char* color):
        Program{"void main() { gl_Position = vec4(vec2(gl_VertexID & 1, gl_VertexID >> 1)*4.0 - 1.0, 0.0, 1.0); }\n",
            "uniform " + std::string{sampler} +
                " data;\n"
                "out vec4 color;\n"
                "void main() { color = " +
                color + "(texelFetch(data, int(gl_FragCoord.x))); }\n"} {
        setUniform(uniformLocation("data"), Unit);
    }

    std::vector<std::uint32_t> draw(GL::BufferTexture& texture) {
        Canvas canvas{{2, 1}};
        texture.bind(Unit);
        Program::draw(GL::Mesh{GL::MeshPrimitive::Triangles}.setCount(3));
        return canvas.pixels();
    }
};

TEST_F(BufferTextureTest, constructionAndMove) {
    GL::BufferTexture texture;
    const UnsignedInt id = texture.id();
    {
        GL::BufferTexture moved{std::move(texture)};
        EXPECT_EQ(texture.id(), 0u);
        EXPECT_EQ(moved.id(), id);
        moved.bind(Unit);
        EXPECT_TRUE(glIsTexture(id));
    }
    EXPECT_FALSE(glIsTexture(id));
    EXPECT_EQ(GL::BufferTexture{NoCreate}.id(), 0u);
}

TEST_F(BufferTextureTest, label) {
    GL::Buffer buffer;
    GL::BufferTexture texture;
    texture.setBuffer(GL::BufferTextureFormat::R32UI, buffer);
    EXPECT_EQ(&texture.setLabel("data"), &texture);
    const bool supported = GL::Context::current().isExtensionSupported<GL::Extensions::KHR::debug>();
    EXPECT_STREQ(texture.label().data(), supported ? "data" : "");
}

TEST_F(BufferTextureTest, hasRoomForAsManyTexelsAsEveryGlHas) { EXPECT_GE(GL::BufferTexture::maxSize(), 65536); }

TEST_F(BufferTextureTest, texelsAreWhatIsInTheBuffer) {
    GL::Buffer buffer{
        GL::Buffer::TargetHint::Array, {Vector4{1.0f, 0.0f, 1.0f, 0.0f}, Vector4{0.0f, 1.0f, 0.0f, 1.0f}}};
    GL::BufferTexture texture;
    EXPECT_EQ(&texture.setBuffer(GL::BufferTextureFormat::RGBA32F, buffer), &texture);
    EXPECT_THAT(TexelProgram("samplerBuffer", "vec4").draw(texture), ElementsAre(0xff00ff00u, 0x00ff00ffu));
}

TEST_F(BufferTextureTest, integersStayIntegers) {
    GL::Buffer buffer{GL::Buffer::TargetHint::Array, {1u, 0u}};
    GL::BufferTexture texture;
    texture.setBuffer(GL::BufferTextureFormat::R32UI, buffer);
    EXPECT_THAT(TexelProgram("usamplerBuffer", "vec4").draw(texture), ElementsAre(0xff0000ffu, 0x000000ffu));
}

// Also where the buffer gets another size, or another buffer takes its place.
TEST_F(BufferTextureTest, seesWhatIsWrittenLater) {
    TexelProgram program{"samplerBuffer", "vec4"};
    GL::Buffer buffer;
    GL::BufferTexture texture;
    texture.setBuffer(GL::BufferTextureFormat::RGBA8, buffer);
    buffer.setData({0xff0000ffu, 0xff00ff00u});
    EXPECT_THAT(program.draw(texture), ElementsAre(0xff0000ffu, 0x00ff00ffu));
    const UnsignedInt blue = 0xffff0000u;
    buffer.setSubData(4, Containers::arrayView(&blue, 1));
    EXPECT_THAT(program.draw(texture), ElementsAre(0xff0000ffu, 0x0000ffffu));

    GL::Buffer other{GL::Buffer::TargetHint::Array, {Vector4{1.0f}, Vector4{0.0f}}};
    texture.setBuffer(GL::BufferTextureFormat::RGBA32F, other);
    EXPECT_THAT(program.draw(texture), ElementsAre(0xffffffffu, 0x00000000u));
}

}
