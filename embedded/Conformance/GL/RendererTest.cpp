#include <sstream>

#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderer.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

using namespace Conformance;

namespace {

using testing::Each;
using testing::ElementsAre;
typedef GL::Renderer Renderer;
typedef GL::Renderer::BlendFunction Blend;

constexpr std::uint32_t Red = 0xff0000ff;
constexpr std::uint32_t Green = 0x00ff00ff;

struct RendererTest: VantrelTest::GlTest {
    Canvas canvas{{4, 4}};
    FlatProgram program;
};

TEST_F(RendererTest, features) {
    const struct {
        Renderer::Feature feature;
        GLenum value;
        bool initially;
    } rows[]{{Renderer::Feature::Blending, GL_BLEND, false}, {Renderer::Feature::DepthClamp, GL_DEPTH_CLAMP, false},
        {Renderer::Feature::DepthTest, GL_DEPTH_TEST, false}, {Renderer::Feature::FaceCulling, GL_CULL_FACE, false},
        {Renderer::Feature::FramebufferSrgb, GL_FRAMEBUFFER_SRGB, false},
        {Renderer::Feature::Multisampling, GL_MULTISAMPLE, true},
        {Renderer::Feature::PolygonOffsetFill, GL_POLYGON_OFFSET_FILL, false},
        {Renderer::Feature::PolygonOffsetLine, GL_POLYGON_OFFSET_LINE, false},
        {Renderer::Feature::ProgramPointSize, GL_PROGRAM_POINT_SIZE, false},
        {Renderer::Feature::ScissorTest, GL_SCISSOR_TEST, false},
        {Renderer::Feature::SeamlessCubeMapTexture, GL_TEXTURE_CUBE_MAP_SEAMLESS, false},
        {Renderer::Feature::StencilTest, GL_STENCIL_TEST, false}};
    for(const auto& row: rows) {
        EXPECT_EQ(bool(glIsEnabled(row.value)), row.initially) << row.value;
        Renderer::enable(row.feature);
        EXPECT_TRUE(glIsEnabled(row.value)) << row.value;
        Renderer::disable(row.feature);
        EXPECT_FALSE(glIsEnabled(row.value)) << row.value;
        Renderer::setFeature(row.feature, true);
        EXPECT_TRUE(glIsEnabled(row.value)) << row.value;
        Renderer::setFeature(row.feature, row.initially);
        EXPECT_EQ(bool(glIsEnabled(row.value)), row.initially) << row.value;
    }
}

TEST_F(RendererTest, blending) {
    const Color4 below{0.0f, 0.6f, 0.0f, 1.0f};
    const Color4 above{1.0f, 0.2f, 0.0f, 0.4f};
    const struct {
        void (*set)();
        std::uint32_t expected;
    } rows[]{{[] { Renderer::setBlendFunction(Blend::SourceAlpha, Blend::OneMinusSourceAlpha); }, 0x667000c2u},
        {[] { Renderer::setBlendFunction(Blend::One, Blend::One); }, 0xffcc00ffu},
        {[] { Renderer::setBlendFunction(Blend::Zero, Blend::One); }, 0x009900ffu},
        {[] { Renderer::setBlendFunction(Blend::SourceAlpha, Blend::OneMinusSourceAlpha, Blend::Zero, Blend::One); },
            0x667000ffu},
        {[] {
             Renderer::setBlendFunction(Blend::One, Blend::One);
             Renderer::setBlendEquation(Renderer::BlendEquation::Subtract);
         },
            0xff000000u},
        {[] {
             Renderer::setBlendFunction(Blend::One, Blend::One);
             Renderer::setBlendEquation(Renderer::BlendEquation::ReverseSubtract, Renderer::BlendEquation::Max);
         },
            0x006600ffu}};
    for(const auto& row: rows) {
        Renderer::disable(Renderer::Feature::Blending);
        program.fill(below);
        Renderer::enable(Renderer::Feature::Blending);
        row.set();
        program.fill(above);
        // Rounding may differ by one.
        const std::uint32_t pixel = canvas.pixel({1, 1});
        for(int shift = 0; shift != 32; shift += 8)
            EXPECT_NEAR(int(pixel >> shift & 0xff), int(row.expected >> shift & 0xff), 1) << std::hex << row.expected;
        Renderer::setBlendFunction(Blend::One, Blend::Zero);
        Renderer::setBlendEquation(Renderer::BlendEquation::Add);
    }
    Renderer::disable(Renderer::Feature::Blending);
}

TEST_F(RendererTest, scissorIsHalfOpen) {
    Renderer::enable(Renderer::Feature::ScissorTest);
    Renderer::setScissor({{1, 2}, {3, 4}});
    program.fill(Color4::red());
    Renderer::disable(Renderer::Feature::ScissorTest);
    EXPECT_THAT(canvas.pixels(), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, Red, Red, 0, 0, Red, Red, 0));
}

TEST_F(RendererTest, scissorLimitsClears) {
    Renderer::setClearColor(Color4::red());
    Renderer::enable(Renderer::Feature::ScissorTest);
    Renderer::setScissor({{}, {4, 1}});
    canvas.framebuffer.clear(GL::FramebufferClear::Color);
    Renderer::disable(Renderer::Feature::ScissorTest);
    Renderer::setClearColor(Color4{0x1f / 255.0f});
    EXPECT_THAT(canvas.pixels(), ElementsAre(Red, Red, Red, Red, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST_F(RendererTest, depthFunctions) {
    typedef Renderer::DepthFunction Function;
    // Whether something nearer, as near and farther is drawn.
    const struct {
        Function function;
        bool drawn[3];
    } rows[]{{Function::Never, {false, false, false}}, {Function::Always, {true, true, true}},
        {Function::Less, {true, false, false}}, {Function::LessOrEqual, {true, true, false}},
        {Function::Equal, {false, true, false}}, {Function::NotEqual, {true, false, true}},
        {Function::GreaterOrEqual, {false, true, true}}, {Function::Greater, {false, false, true}}};
    Renderer::enable(Renderer::Feature::DepthTest);
    for(const auto& row: rows)
        for(int i = 0; i != 3; ++i) {
            canvas.framebuffer.clearColor(0, Color4{0.0f, 0.0f}).clearDepth(0.5f);
            Renderer::setDepthFunction(row.function);
            program.fill(Color4::green(), Float(i - 1) * 0.5f);
            EXPECT_EQ(canvas.pixel({}), row.drawn[i] ? Green : 0) << int(row.function) << ' ' << i;
        }
    Renderer::setDepthFunction(Function::Less);
    Renderer::disable(Renderer::Feature::DepthTest);
}

TEST_F(RendererTest, depthMask) {
    Renderer::enable(Renderer::Feature::DepthTest);
    Renderer::setDepthMask(false);
    program.fill(Color4::red(), -0.5f);
    Renderer::setDepthMask(true);
    program.fill(Color4::green(), 0.5f);
    EXPECT_EQ(canvas.pixel({}), Green);
    program.fill(Color4::red(), 0.75f);
    EXPECT_EQ(canvas.pixel({}), Green);
    Renderer::disable(Renderer::Feature::DepthTest);
}

TEST_F(RendererTest, polygonOffset) {
    Renderer::enable(Renderer::Feature::DepthTest);
    program.fill(Color4::red(), 0.0f);
    Renderer::enable(Renderer::Feature::PolygonOffsetFill);
    Renderer::setPolygonOffset(0.0f, 16.0f);
    program.fill(Color4::green(), 0.0f);
    EXPECT_EQ(canvas.pixel({}), Red);
    Renderer::setPolygonOffset(0.0f, -16.0f);
    program.fill(Color4::green(), 0.0f);
    EXPECT_EQ(canvas.pixel({}), Green);
    Renderer::setPolygonOffset(0.0f, 0.0f);
    Renderer::disable(Renderer::Feature::PolygonOffsetFill);
    Renderer::disable(Renderer::Feature::DepthTest);
}

TEST_F(RendererTest, colorMask) {
    canvas.framebuffer.clearColor(0, Color4{0.0f, 0.0f});
    Renderer::setColorMask(true, false, true, false);
    program.fill(Color4{1.0f});
    Renderer::setColorMask(true, true, true, true);
    EXPECT_THAT(canvas.pixels(), Each(0xff00ff00u));
}

TEST_F(RendererTest, faceCulling) {
    typedef Renderer::PolygonFacing Facing;
    typedef Renderer::FrontFace Front;
    // The triangle is counterclockwise.
    const struct {
        Facing culled;
        Front front;
        bool drawn;
    } rows[]{{Facing::Back, Front::CounterClockWise, true}, {Facing::Front, Front::CounterClockWise, false},
        {Facing::FrontAndBack, Front::CounterClockWise, false}, {Facing::Back, Front::ClockWise, false},
        {Facing::Front, Front::ClockWise, true}};
    Renderer::enable(Renderer::Feature::FaceCulling);
    for(const auto& row: rows) {
        canvas.framebuffer.clearColor(0, Color4{0.0f, 0.0f});
        Renderer::setFaceCullingMode(row.culled);
        Renderer::setFrontFace(row.front);
        program.fill(Color4::green());
        EXPECT_EQ(canvas.pixel({}), row.drawn ? Green : 0);
    }
    Renderer::setFaceCullingMode(Facing::Back);
    Renderer::setFrontFace(Front::CounterClockWise);
    Renderer::disable(Renderer::Feature::FaceCulling);
}

TEST_F(RendererTest, stencil) {
    Renderer::enable(Renderer::Feature::StencilTest);
    Renderer::setStencilFunction(Renderer::StencilFunction::Always, 5, 0xff);
    Renderer::setStencilOperation(
        Renderer::StencilOperation::Keep, Renderer::StencilOperation::Keep, Renderer::StencilOperation::Replace);
    program.fill(Color4::red());
    Renderer::setStencilOperation(
        Renderer::StencilOperation::Keep, Renderer::StencilOperation::Keep, Renderer::StencilOperation::Keep);
    Renderer::setStencilFunction(Renderer::StencilFunction::NotEqual, 5, 0xff);
    program.fill(Color4::green());
    EXPECT_EQ(canvas.pixel({}), Red);
    // 6 is less than 5 nowhere; the reference is on the left.
    Renderer::setStencilFunction(Renderer::StencilFunction::Less, 6, 0xff);
    program.fill(Color4::green());
    EXPECT_EQ(canvas.pixel({}), Red);
    Renderer::setStencilFunction(Renderer::StencilFunction::Less, 4, 0xff);
    program.fill(Color4::green());
    EXPECT_EQ(canvas.pixel({}), Green);

    // Only the bits of the mask are written.
    Renderer::setStencilMask(0x02);
    Renderer::setStencilFunction(Renderer::StencilFunction::Always, 2, 0xff);
    Renderer::setStencilOperation(
        Renderer::StencilOperation::Keep, Renderer::StencilOperation::Keep, Renderer::StencilOperation::Replace);
    program.fill(Color4::red());
    Renderer::setStencilMask(0xffffffff);
    EXPECT_EQ(canvas.framebuffer.read({{}, {1, 1}}, Image2D{PixelFormat::Stencil8UI}).data()[0], 7);
    Renderer::setClearStencil(9);
    canvas.framebuffer.clear(GL::FramebufferClear::Stencil);
    EXPECT_EQ(canvas.framebuffer.read({{}, {1, 1}}, Image2D{PixelFormat::Stencil8UI}).data()[0], 9);

    Renderer::setClearStencil(0);
    Renderer::setStencilFunction(Renderer::StencilFunction::Always, 0, 0xffffffff);
    Renderer::setStencilOperation(
        Renderer::StencilOperation::Keep, Renderer::StencilOperation::Keep, Renderer::StencilOperation::Keep);
    Renderer::disable(Renderer::Feature::StencilTest);
}

TEST_F(RendererTest, lineWidth) {
    Renderer::setLineWidth(1.0f);
    GLfloat width = 0.0f;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, 1.0f);
}

TEST_F(RendererTest, errors) {
    EXPECT_EQ(Renderer::error(), Renderer::Error::NoError);
    glEnable(0xdead);
    EXPECT_EQ(Renderer::error(), Renderer::Error::InvalidEnum);
    EXPECT_EQ(Renderer::error(), Renderer::Error::NoError);
    Renderer::setLineWidth(-1.0f);
    EXPECT_EQ(Renderer::error(), Renderer::Error::InvalidValue);
    Renderer::flush();
    Renderer::finish();
    EXPECT_EQ(Renderer::error(), Renderer::Error::NoError);
}

TEST(RendererError, prints) {
    const struct {
        Renderer::Error error;
        const char* name;
    } rows[]{{Renderer::Error::NoError, "GL::Renderer::Error::NoError"},
        {Renderer::Error::InvalidEnum, "GL::Renderer::Error::InvalidEnum"},
        {Renderer::Error::InvalidValue, "GL::Renderer::Error::InvalidValue"},
        {Renderer::Error::InvalidOperation, "GL::Renderer::Error::InvalidOperation"},
        {Renderer::Error::InvalidFramebufferOperation, "GL::Renderer::Error::InvalidFramebufferOperation"},
        {Renderer::Error::OutOfMemory, "GL::Renderer::Error::OutOfMemory"},
        {Renderer::Error::StackUnderflow, "GL::Renderer::Error::StackUnderflow"},
        {Renderer::Error::StackOverflow, "GL::Renderer::Error::StackOverflow"},
        {Renderer::Error(3), "GL::Renderer::Error(0x3)"}};
    for(const auto& row: rows) {
        std::ostringstream out;
        Debug{&out, Debug::Flag::NoNewlineAtTheEnd} << row.error;
        EXPECT_EQ(out.str(), row.name);
    }
}

}
