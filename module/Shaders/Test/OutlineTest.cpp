#include "Shaders/Outline.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/GL/Renderer.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MaskPicture.h"
#include "ReferenceFlood.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine::Shaders;
using namespace VantrelTest;
using testing::Each;
using testing::KilledBySignal;

typedef GlTest OutlineTest;
typedef GlTest OutlineDeathTest;

const Color4ub Black{0, 0, 0, 255};
const Color4ub White{255, 255, 255, 255};

Mask squareMask(const Vector2i& size, const Vector2i& begin, const Vector2i& end) {
    Mask mask = emptyMask(size);
    for(Int y = begin.y(); y != end.y(); ++y)
        for(Int x = begin.x(); x != end.x(); ++x) mask.at({x, y}) = 1.0f;
    return mask;
}

TEST_F(OutlineTest, widthFourAroundASquare) {
    const Vector2i size{24, 20};
    OutlineCanvas canvas{squareMask(size, {10, 8}, {14, 12})};
    Outline outline;
    canvas.draw(outline.setWidth(4.0f));

    // The distance of a pixel in the middle row is a whole number: the fourth one is beyond the width.
    const std::vector<Color4ub> pixels = canvas.pixels();
    const auto at = [&](Int x, Int y) { return pixels[y * size.x() + x]; };
    for(Int x: {10, 11, 12, 13}) EXPECT_EQ(at(x, 9), Black) << x;
    for(Int x: {7, 8, 9, 14, 15, 16}) EXPECT_EQ(at(x, 9), White) << x;
    for(Int x: {0, 5, 6, 17, 18, 23}) EXPECT_EQ(at(x, 9), Black) << x;
    for(Int y: {5, 6, 7, 12, 13, 14}) EXPECT_EQ(at(11, y), White) << y;
    for(Int y: {3, 4, 15, 16}) EXPECT_EQ(at(11, y), Black) << y;
    // Two and three pixels from the corner: 4 - sqrt(13) is left of the last pixel.
    EXPECT_NEAR(at(8 + 8, 12 + 1).r(), 255 * (4.0 - std::sqrt(13.0)), 1.0);
}

TEST_F(OutlineTest, colorIsBlendedByItsAlpha) {
    OutlineCanvas canvas{squareMask({12, 12}, {4, 4}, {8, 8}), {0.2f, 0.4f, 0.8f, 1.0f}};
    Outline outline;
    canvas.draw(outline.setWidth(3.0f).setColor({0.9f, 0.0f, 0.5f, 0.5f}));
    const std::vector<Color4ub> pixels = canvas.pixels();
    const Color4ub beside = pixels[5 * 12 + 3];
    EXPECT_NEAR(beside.r(), 255 * (0.9 * 0.5 + 0.2 * 0.5), 1.0);
    EXPECT_NEAR(beside.g(), 255 * (0.4 * 0.5), 1.0);
    EXPECT_NEAR(beside.b(), 255 * (0.5 * 0.5 + 0.8 * 0.5), 1.0);
    EXPECT_EQ(pixels[5 * 12 + 5], (Color4ub{51, 102, 204, 255}));
    EXPECT_EQ(pixels[0], (Color4ub{51, 102, 204, 255}));
}

TEST_F(OutlineTest, isWhiteAndOnePixelWideByDefault) {
    Mask mask = squareMask({8, 8}, {3, 3}, {5, 5});
    mask.at({5, 3}) = 0.6f;
    OutlineCanvas canvas{mask};
    Outline outline;
    canvas.draw(outline);
    // Nothing outside of the mask: only an edge, as far as it is not covered.
    const std::vector<Color4ub> pixels = canvas.pixels();
    for(Int i = 0; i != 64; ++i) {
        if(i == 3 * 8 + 5) continue;
        EXPECT_EQ(pixels[i], Black) << i;
    }
    // The edge's own position is 0.4 from its centre.
    EXPECT_NEAR(pixels[3 * 8 + 5].r(), 255 * (1.0 - 0.6) * (1.0 - 0.4), 2.0);
}

TEST_F(OutlineTest, resultIsInTheTextureThatWasWrittenLast) {
    OutlineCanvas canvas{discsMask({32, 32})};
    Outline outline;
    const auto lastTexture = [&](float width) {
        canvas.draw(outline.setWidth(width));
        return boundPositionsId();
    };
    // Without a step it is the one that has the seeds.
    const unsigned int seeds = lastTexture(1.0f);
    const unsigned int other = lastTexture(2.0f);
    EXPECT_NE(other, seeds);
    EXPECT_EQ(lastTexture(4.0f), seeds);
    EXPECT_EQ(lastTexture(5.0f), other);
}

// Only the steps end there.
TEST_F(OutlineTest, aWidthBeyondTheDiagonalStillPaintsAsFarAsItGoes) {
    OutlineCanvas canvas{squareMask({5, 5}, {0, 0}, {1, 1})};
    Outline outline;
    canvas.draw(outline.setWidth(100.0f));
    std::vector<Color4ub> pixels = canvas.pixels();
    EXPECT_EQ(pixels[0], Black);
    pixels.erase(pixels.begin());
    EXPECT_THAT(pixels, Each(White));
}

TEST_F(OutlineTest, widthThatIsNotANumberDoesNotEndTheProgram) {
    OutlineCanvas canvas{squareMask({5, 5}, {0, 0}, {1, 1})};
    Outline outline;
    canvas.draw(outline);
    const unsigned int seeds = boundPositionsId();
    // As many steps as across the picture: three.
    canvas.draw(outline.setWidth(std::numeric_limits<float>::quiet_NaN()));
    EXPECT_NE(boundPositionsId(), seeds);
}

TEST_F(OutlineTest, emptyMaskLeavesTheTargetAlone) {
    OutlineCanvas canvas{emptyMask({16, 9})};
    Outline outline;
    for(const float width: {1.0f, 4.0f, 300.0f}) {
        canvas.draw(outline.setWidth(width));
        EXPECT_THAT(canvas.pixels(), Each(Black)) << width;
    }
}

// What a dot or a line has around itself says nothing about where it lies in the pixel.
TEST_F(OutlineTest, aFaintDotIsASeedInItsCentre) {
    const Vector2i size{16, 16};
    Mask mask = emptyMask(size);
    mask.at({5, 9}) = 0.5f;
    OutlineCanvas canvas{mask};
    Outline outline;
    canvas.draw(outline);
    const Vector2 seed = decoded(boundPositions(size)[9 * 16 + 5], size);
    EXPECT_NEAR(seed.x(), 5.5f, 16.0f / 65535.0f);
    EXPECT_NEAR(seed.y(), 9.5f, 16.0f / 65535.0f);
}

struct Threshold {
    float covered;
    float expectedX;
};

// Beside a covered half plane to the left; the pixel is the one from 8 to 9.
TEST_F(OutlineTest, onlyBeyondTheThresholdsAPixelIsNoEdge) {
    const Vector2i size{16, 16};
    const float below = std::nextafter(0.05f, 0.0f);
    const float above = std::nextafter(0.95f, 1.0f);
    for(const Threshold& t:
        {Threshold{below, 0.0f}, {0.05f, 8.5f - 0.95f}, {0.5f, 8.0f}, {0.95f, 8.5f - 0.05f}, {above, 8.5f}}) {
        Mask mask = squareMask(size, {0, 0}, {8, 16});
        for(Int y = 0; y != 16; ++y) mask.at({8, y}) = t.covered;
        OutlineCanvas canvas{mask};
        Outline outline;
        canvas.draw(outline);
        const Vector2 seed = decoded(boundPositions(size)[7 * 16 + 8], size);
        EXPECT_NEAR(seed.x(), t.expectedX, 16.0f / 65535.0f) << t.covered;
        EXPECT_NEAR(seed.y(), t.expectedX == 0.0f ? 0.0f : 7.5f, 16.0f / 65535.0f) << t.covered;
    }
}

TEST_F(OutlineTest, theSameSizeAgainKeepsTheTextures) {
    OutlineCanvas canvas{discsMask({32, 16})};
    Outline outline;
    canvas.draw(outline);
    const unsigned int texture = boundPositionsId();
    canvas.draw(outline);
    EXPECT_EQ(boundPositionsId(), texture);
}

TEST_F(OutlineTest, anotherSizeReplacesThem) {
    OutlineCanvas large{discsMask({64, 48})};
    Outline outline;
    large.draw(outline);
    const unsigned int texture = boundPositionsId();
    ASSERT_TRUE(glIsTexture(texture));

    const Mask mask = squareMask({9, 5}, {4, 2}, {5, 3});
    OutlineCanvas small{mask};
    small.draw(outline.setWidth(2.0f));
    EXPECT_EQ(boundPositionsSize(), (Vector2i{9, 5}));
    const std::vector<Color4ub> pixels = small.pixels();
    EXPECT_EQ(pixels[2 * 9 + 3], White);
    EXPECT_EQ(pixels[2 * 9 + 2], Black);
    EXPECT_EQ(small.framebuffer.viewport(), (Range2Di{{}, {9, 5}}));
}

TEST_F(OutlineTest, leavesDepthTestingOnAndBlendingOff) {
    OutlineCanvas canvas{discsMask({16, 16})};
    Outline outline;
    GL::Renderer::disable(GL::Renderer::Feature::DepthTest);
    canvas.draw(outline.setWidth(2.0f));
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    GL::Renderer::disable(GL::Renderer::Feature::DepthTest);
}

// The target's depth does not hide it.
TEST_F(OutlineTest, isNotTestedForDepth) {
    OutlineCanvas canvas{squareMask({8, 8}, {3, 3}, {5, 5})};
    GL::Renderbuffer depth;
    depth.setStorage(GL::RenderbufferFormat::Depth24Stencil8, {8, 8});
    canvas.framebuffer.attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, depth)
        .clearDepthStencil(0.0f, 0);
    Outline outline;
    GL::Renderer::enable(GL::Renderer::Feature::DepthTest);
    canvas.draw(outline.setWidth(2.0f));
    GL::Renderer::disable(GL::Renderer::Feature::DepthTest);
    EXPECT_EQ(canvas.pixels()[3 * 8 + 2], White);
}

TEST_F(OutlineTest, withoutWidthNothingIsTouched) {
    OutlineCanvas canvas{discsMask({16, 16})};
    Outline outline;
    outline.setViewportSize({16, 16});
    GL::Framebuffer other{{{}, {3, 3}}};
    for(const float width: {0.0f, -1.0f}) {
        canvas.framebuffer.clearColor(0, Color4{0.0f, 1.0f}).setViewport({{}, {7, 7}});
        other.bind();
        GLint bound = 0, after = 0;
        glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &bound);
        GL::Renderer::disable(GL::Renderer::Feature::DepthTest);
        GL::Renderer::enable(GL::Renderer::Feature::Blending);
        outline.setMaskTexture(canvas.mask).setWidth(width).draw(canvas.framebuffer);
        EXPECT_TRUE(glIsEnabled(GL_BLEND));
        EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
        GL::Renderer::disable(GL::Renderer::Feature::Blending);
        glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &after);
        EXPECT_EQ(after, bound);
        EXPECT_EQ(canvas.framebuffer.viewport(), (Range2Di{{}, {7, 7}}));
        EXPECT_THAT(canvas.pixels(), Each(Black));
    }
}

TEST_F(OutlineTest, runsInLargeSizes) {
    for(const Vector2i& size: {Vector2i{4096, 4096}, Vector2i{4096, 1}, Vector2i{1, 4096}}) {
        Mask mask = emptyMask(size);
        mask.at(size / 2) = 1.0f;
        OutlineCanvas canvas{mask};
        Outline outline;
        canvas.draw(outline.setWidth(3.0f));
        const std::vector<Color4ub> pixels = canvas.pixels();
        // Up to two pixels away, and diagonally next to it. Positions are exact to a sixteenth of a pixel here.
        const auto isBright = [](const Color4ub& pixel) { return pixel.r() > 235; };
        EXPECT_EQ(std::count_if(pixels.begin(), pixels.end(), isBright), size.min() == 1 ? 4 : 12) << size.x();
    }
}

TEST_F(OutlineDeathTest, drawingBeforeASizeIsKnown) {
    EXPECT_EXIT(
        {
            OutlineCanvas canvas{discsMask({4, 4})};
            Outline outline;
            outline.setMaskTexture(canvas.mask).setWidth(0.0f).draw(canvas.framebuffer);
        },
        KilledBySignal(SIGABRT), "Assertion _offscreenFb\\[0\\]\\.id\\(\\) failed at Shaders/Outline:194\n");
}

TEST_F(OutlineDeathTest, drawingWithoutAMask) {
    EXPECT_EXIT(
        {
            OutlineCanvas canvas{discsMask({4, 4})};
            Outline outline;
            outline.setViewportSize({4, 4}).draw(canvas.framebuffer);
        },
        KilledBySignal(SIGABRT), "Outline::draw\\(\\): no mask texture was set\n");
}

TEST_F(OutlineDeathTest, aSizeWithoutPixels) {
    for(const Vector2i& size: {Vector2i{0, 0}, Vector2i{0, 5}, Vector2i{5, 0}})
        EXPECT_EXIT(Outline{}.setViewportSize(size), KilledBySignal(SIGABRT),
            "Assertion vp\\.product\\(\\) != 0 failed at Shaders/Outline:140\n");
}

TEST_F(OutlineDeathTest, aSizeThatTexturesCannotHave) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    EXPECT_EXIT(Outline{}.setViewportSize({largest + 1, 1}), KilledBySignal(SIGABRT),
        "Assertion fb\\.checkStatus\\(GL::FramebufferTarget::Draw\\) == GL::Framebuffer::Status::Complete failed "
        "at Shaders/Outline:159\n");
}

}
