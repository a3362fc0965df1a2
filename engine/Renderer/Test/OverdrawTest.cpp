// Counts of what is drawn, as colours.

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <Magnum/GL/OpenGL.h>

#include "Renderer/Test/RendererFixture.h"
#include "Support/LiveObjects.h"

using namespace VantrelTest;

namespace {

constexpr std::uint32_t Depth = PipelineHeader::DepthTest | PipelineHeader::DepthWrite;

// Of a legend from (39, 174, 96) over (255, 255, 0) to (255, 0, 0).
std::uint32_t colorOf(int count) {
    const double part = std::min(count, 5) / 5.0, rest = std::clamp(count / 5.0 - 1.0, 0.0, 1.0);
    const auto channel = [](double value) { return std::uint32_t(value + 0.5); };
    return channel(39 + part * (255 - 39)) << 24 | channel((174 + part * (255 - 174)) * (1.0 - rest)) << 16 |
        channel(96 * (1.0 - part)) << 8 | 0xffu;
}

void expectColor(std::uint32_t actual, std::uint32_t expected) {
    for(const int shift: {0, 8, 16, 24})
        EXPECT_NEAR(int(actual >> shift & 255), int(expected >> shift & 255), 1)
            << std::hex << actual << ' ' << expected;
}

struct OverdrawTest: RendererTest {
    OverdrawTest() {
        opaque = addPipeline("Opaque", Depth);
        blended = addPipeline("Blended", PipelineHeader::DepthTest | PipelineHeader::Blend, 1);
    }

    // Squares behind each other, each of which has a mesh of its own, in the order in which they are added.
    void stack(Id pipeline, int count, Float x, bool isNearestFirst = false) {
        for(int i = 0; i != count; ++i)
            add(addMesh(square()), addMaterial(pipeline, RedColor),
                {x, 0.0f, 0.1f * Float(isNearestFirst ? count - i : i)});
    }

    std::vector<std::uint32_t> overdraw(const Color4& background = Color4{0.0f, 0.0f, 1.0f, 1.0f}) {
        update();
        clear(background);
        renderer.beginOverdrawTracking();
        renderer.render(scene.views, scene);
        counted = pixels();
        renderer.endOverdrawTracking();
        renderer.renderOverdraw(scene.views);
        return pixels();
    }

    Id opaque, blended;
    // The target, before colours are drawn.
    std::vector<std::uint32_t> counted;
};

TEST_F(OverdrawTest, stacksHaveTheColoursOfTheLegend) {
    const int counts[]{1, 5, 7, 10, 20};
    Float x = -3.0f;
    for(const int count: counts) stack(opaque, count, std::exchange(x, x + 1.5f));
    tell();
    const std::vector<std::uint32_t> picture = overdraw();
    x = -3.0f;
    for(const int count: counts) expectColor(at(picture, std::exchange(x, x + 1.5f), 0.0f), colorOf(count));
    expectColor(colorOf(0), 0x27ae60ffu);
    expectColor(colorOf(5), 0xffff00ffu);
    expectColor(colorOf(10), 0xff0000ffu);
    // Beside them nothing was drawn.
    EXPECT_EQ(at(picture, 0.0f, 3.0f), Blue);
    EXPECT_THAT(counted, testing::Each(Blue));
}

// The nearest one is drawn first, and hides the others before they are shaded.
TEST_F(OverdrawTest, whatIsHiddenIsNotCounted) {
    stack(opaque, 10, 0.0f, true);
    tell();
    expectColor(at(overdraw(), 0.0f, 0.0f), colorOf(1));
}

TEST_F(OverdrawTest, whatIsFoundHiddenByDepthDrawnFirstIsNotCounted) {
    stack(opaque, 10, 0.0f);
    tell();
    expectColor(at(overdraw(), 0.0f, 0.0f), colorOf(10));
    renderer.setDepthPrePassEnabled(true);
    expectColor(at(overdraw(), 0.0f, 0.0f), colorOf(1));
}

TEST_F(OverdrawTest, whatBlendsIsCountedWhetherDepthIsDrawnFirstOrNot) {
    stack(opaque, 3, 0.0f);
    for(int i = 0; i != 4; ++i) add(addMesh(square()), addMaterial(blended, RedColor), {0.0f, 0.0f, 1.0f + Float(i)});
    // Behind all of that.
    add(addMesh(square()), addMaterial(blended, RedColor), {0.0f, 0.0f, -1.0f});
    tell();
    expectColor(at(overdraw(), 0.0f, 0.0f), colorOf(3 + 4));
    renderer.setDepthPrePassEnabled(true);
    expectColor(at(overdraw(), 0.0f, 0.0f), colorOf(1 + 4));
}

TEST_F(OverdrawTest, holesAreNotCounted) {
    const Id masked = addPipeline("Masked", Depth | PipelineHeader::AlphaMask);
    fragment = "void main() {\n"
               "    fragmentColor = material_color();\n"
               "    if(fragmentColor.r > 0.5) discard;\n"
               "}\n";
    add(addMesh(square()), addMaterial(masked, RedColor), {-1.0f, 0.0f, 0.0f});
    add(addMesh(square()), addMaterial(masked, GreenColor), {1.0f, 0.0f, 0.0f});
    tell();
    const std::vector<std::uint32_t> picture = overdraw();
    EXPECT_EQ(at(picture, -1.0f, 0.0f), Blue);
    expectColor(at(picture, 1.0f, 0.0f), colorOf(1));
}

TEST_F(OverdrawTest, isTheSameWithBloom) {
    stack(opaque, 6, 0.0f);
    tell();
    const std::vector<std::uint32_t> picture = overdraw();
    renderer.setBloomEnabled(true);
    EXPECT_EQ(overdraw(), picture);
}

// What comes later is hidden by the scene.
TEST_F(OverdrawTest, leavesTheDepthOfTheScene) {
    stack(opaque, 2, 0.0f);
    tell();
    frame();
    const std::vector<float> scene = depths();
    overdraw();
    EXPECT_EQ(depths(), scene);
    EXPECT_NE(scene.front(), scene[Size * Size / 2 + Size / 2]);
}

TEST_F(OverdrawTest, takesNothingOnceItIsOff) {
    stack(opaque, 2, 0.0f);
    tell();
    frame();
    const std::vector<std::uint32_t> picture = frame();
    const LiveObjects before = LiveObjects::count();
    overdraw();
    // Nothing but the program that fills with a colour.
    const LiveObjects during = LiveObjects::count();
    EXPECT_EQ(during.programs, before.programs + 1);
    EXPECT_EQ(during.textures, before.textures);
    EXPECT_EQ(during.renderbuffers, before.renderbuffers);
    EXPECT_EQ(during.framebuffers, before.framebuffers);
    EXPECT_EQ(frame(), picture);
    EXPECT_EQ(LiveObjects::count(), before);
    // Nothing was counted.
    renderer.renderOverdraw(scene.views);
    EXPECT_EQ(pixels(), picture);
}

// 256 would be none again.
TEST_F(OverdrawTest, moreThanCanBeCountedAreMany) {
    stack(opaque, 256, 0.0f);
    scene.localTransformation(cameraObject) = DualQuaternion::translation({0.0f, 0.0f, 40.0f});
    scene.setDirty(cameraObject);
    tell();
    expectColor(at(overdraw(), 0.0f, 0.0f), colorOf(10));
}

TEST_F(OverdrawTest, countsAgainFromZero) {
    stack(opaque, 4, 0.0f);
    tell();
    const std::vector<std::uint32_t> picture = overdraw();
    update();
    clear(BlueColor);
    framebuffer.clearDepthStencil(1.0f, 200).bind();
    renderer.beginOverdrawTracking();
    renderer.render(scene.views, scene);
    renderer.endOverdrawTracking();
    renderer.renderOverdraw(scene.views);
    EXPECT_EQ(pixels(), picture);
}

TEST_F(OverdrawTest, samplesAreCountedEachForItself) {
    GL::Renderbuffer samples, sampleDepths;
    samples.setStorageMultisample(4, GL::RenderbufferFormat::RGBA8, Vector2i{Size});
    sampleDepths.setStorageMultisample(4, GL::RenderbufferFormat::Depth24Stencil8, Vector2i{Size});
    GL::Framebuffer multisampled{framebuffer.viewport()};
    multisampled.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, samples)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, sampleDepths);
    // Two of the four columns of samples of the pixels at the right edge.
    stack(opaque, 10, 1.0f / 16.0f);
    scene.views.targetFramebuffer(camera) = &multisampled;
    tell();
    update();
    RendererState{}.apply();
    multisampled.clearColor(0, BlueColor).clearDepthStencil(1.0f, 0);
    renderer.beginOverdrawTracking();
    renderer.render(scene.views, scene);
    renderer.endOverdrawTracking();
    renderer.renderOverdraw(scene.views);
    GL::AbstractFramebuffer::blit(multisampled, framebuffer, framebuffer.viewport(), GL::FramebufferBlit::Color);
    const std::vector<std::uint32_t> picture = pixels();
    expectColor(at(picture, 0.0f, 0.0f), colorOf(10));
    expectColor(at(picture, 0.5f, 0.0f), 0x800080ffu);
    EXPECT_EQ(at(picture, 1.0f, 0.0f), Blue);
}

std::vector<GLint> stateOf(std::initializer_list<GLenum> names) {
    std::vector<GLint> values;
    for(const GLenum name: names) {
        // As many as the longest one has.
        GLint value[4]{};
        glGetIntegerv(name, value);
        values.insert(values.end(), std::begin(value), std::end(value));
    }
    return values;
}

// What draws later finds nothing that hinders it, and is not counted: a sky is drawn in between.
TEST_F(OverdrawTest, leavesTheSwitches) {
    const auto switches = [] {
        return stateOf({GL_STENCIL_TEST, GL_STENCIL_WRITEMASK, GL_COLOR_WRITEMASK, GL_DEPTH_WRITEMASK, GL_DEPTH_TEST,
            GL_BLEND, GL_CULL_FACE});
    };
    const auto stencil = [] {
        return stateOf(
            {GL_STENCIL_FUNC, GL_STENCIL_REF, GL_STENCIL_VALUE_MASK, GL_STENCIL_FAIL, GL_STENCIL_PASS_DEPTH_FAIL,
                GL_STENCIL_PASS_DEPTH_PASS, GL_STENCIL_BACK_FUNC, GL_STENCIL_BACK_PASS_DEPTH_PASS});
    };
    stack(opaque, 2, 0.0f);
    tell();
    RendererState{}.apply();
    GL::Renderer::setStencilFunction(GL::Renderer::StencilFunction::Always, 0, ~UnsignedInt{});
    GL::Renderer::setStencilOperation(GL::Renderer::StencilOperation::Keep, GL::Renderer::StencilOperation::Keep,
        GL::Renderer::StencilOperation::Keep);
    const std::vector<GLint> switchesBefore = switches(), stencilBefore = stencil();
    update();
    clear();
    renderer.beginOverdrawTracking();
    renderer.render(scene.views, scene);
    EXPECT_EQ(switches(), switchesBefore);
    renderer.endOverdrawTracking();
    renderer.renderOverdraw(scene.views);
    EXPECT_EQ(switches(), switchesBefore);
    EXPECT_EQ(stencil(), stencilBefore);
}

TEST_F(OverdrawTest, aTargetWithoutStencilIsSkippedWithALine) {
    GL::Renderbuffer depthOnly;
    depthOnly.setStorage(GL::RenderbufferFormat::DepthComponent24, Vector2i{Size});
    GL::Framebuffer plain{framebuffer.viewport()};
    plain.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, color)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::Depth, depthOnly);
    stack(opaque, 2, 0.0f);
    tell();
    scene.views.targetFramebuffer(camera) = &plain;
    const std::string lines = linesOf([&] {
        EXPECT_THAT(overdraw(), testing::Each(Blue));
        EXPECT_THAT(overdraw(), testing::Each(Blue));
    });
    EXPECT_EQ(lines, "WebGL2Renderer: no overdraw in a framebuffer without stencil\n");
    EXPECT_EQ(GL::Renderer::error(), GL::Renderer::Error::NoError);
}

// Each in the stencil of its own target.
TEST_F(OverdrawTest, viewsAreCountedEachForItself) {
    RendererState{}.apply();
    GL::Renderbuffer otherColor, otherDepth;
    otherColor.setStorage(GL::RenderbufferFormat::RGBA8, {8, 8});
    otherDepth.setStorage(GL::RenderbufferFormat::Depth24Stencil8, {8, 8});
    GL::Framebuffer other{{{}, {8, 8}}};
    other.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, otherColor)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, otherDepth)
        .clearColor(0, BlueColor)
        .clearDepthStencil(1.0f, 0);
    const Id second = scene.views.addComponent(cameraObject);
    // A quarter of a unit around the origin.
    scene.views.projectionMatrix(second) = Matrix4::orthographicProjection(Vector2{0.25f}, 0.1f, 100.0f);
    scene.views.targetFramebuffer(second) = &other;
    scene.views.activate(second);
    renderer.setViewportSize(second, {8, 8});
    stack(opaque, 7, 0.0f);
    tell();
    expectColor(at(overdraw(), 0.0f, 0.0f), colorOf(7));
    const Image2D image = other.read({{}, {8, 8}}, Image2D{PixelFormat::RGBA8Unorm});
    for(const Color4ub& pixel: image.pixels<Color4ub>().asContiguous())
        expectColor(
            UnsignedInt(pixel.r()) << 24 | UnsignedInt(pixel.g()) << 16 | UnsignedInt(pixel.b()) << 8 | pixel.a(),
            colorOf(7));
}

} // namespace
