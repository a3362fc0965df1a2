#include "Views/SceneView/ViewFrame.h"

#include <limits>

#include <gtest/gtest.h>

#include "Views/SceneView/FrameClock.h"
#include "Views/SceneView/ViewCamera.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;

constexpr Float NaN = std::numeric_limits<Float>::quiet_NaN();

TEST(ViewFrameTest, wholeSizes) {
    const struct {
        Vector2 size;
        Vector2i whole;
    } cases[]{{{400.0f, 300.0f}, {400, 300}}, {{400.9f, 300.1f}, {400, 300}}, {{0.0f, 300.0f}, {1, 300}},
        {{400.0f, -5.0f}, {400, 1}}, {{0.99f, 1.0f}, {1, 1}}, {{NaN, 2.0f}, {1, 2}},
        {{std::numeric_limits<Float>::infinity(), 2.0f}, {1000000, 2}}};
    for(const auto& each: cases) EXPECT_EQ(wholeSize(each.size), each.whole);
}

TEST(ViewFrameTest, pixels) {
    const struct {
        Vector2i size;
        Vector2 scale;
        Vector2i pixels;
    } cases[]{{{400, 300}, {1.0f, 1.0f}, {400, 300}}, {{400, 300}, {2.0f, 2.0f}, {800, 600}},
        {{401, 301}, {1.5f, 1.0f}, {601, 301}}, {{1, 1}, {0.25f, 0.5f}, {1, 1}}, {{400, 300}, {0.0f, NaN}, {400, 300}},
        {{400, 300}, {-2.0f, 1.0f}, {400, 300}}, {{9000, 300}, {2.0f, 2.0f}, {4096, 600}}};
    for(const auto& each: cases) EXPECT_EQ(framebufferSize(each.size, each.scale, {4096, 4096 * 4096}), each.pixels);
}

TEST(ViewFrameTest, tooManyPixelsKeepTheirShape) {
    const struct {
        Vector2i size;
        Vector2i pixels;
    } cases[]{{{1000, 1000}, {1000, 1000}}, {{2000, 2000}, {1000, 1000}}, {{4000, 1000}, {2000, 500}},
        {{1000, 4000}, {500, 2000}}, {{1001, 1000}, {1000, 999}}};
    for(const auto& each: cases) EXPECT_EQ(framebufferSize(each.size, Vector2{1.0f}, {4096, 1000000}), each.pixels);
    // Of a strip the long edge gives way.
    EXPECT_EQ(framebufferSize({4096, 1}, Vector2{1.0f}, {4096, 100}), (Vector2i{100, 1}));
    EXPECT_EQ(framebufferSize({1, 4096}, Vector2{1.0f}, {4096, 100}), (Vector2i{1, 100}));
}

TEST(ViewFrameTest, pixelsPerPoint) {
    EXPECT_EQ(pixelsPerPoint({400, 300}, {400, 300}, Vector2{1.0f}), Vector2{1.0f});
    EXPECT_EQ(pixelsPerPoint({601, 451}, {401, 301}, Vector2{1.5f}), Vector2{1.5f});
    EXPECT_EQ(pixelsPerPoint({400, 300}, {400, 300}, {-1.0f, NaN}), Vector2{1.0f});
    // One that is smaller than the scale would have it.
    EXPECT_EQ(pixelsPerPoint({4096, 300}, {8192, 300}, {2.0f, 1.0f}), (Vector2{0.5f, 1.0f}));
}

TEST(FrameClockTest, frames) {
    FrameClock clock;
    clock.start(1.0e6);
    clock.tick(1.0e6 + 0.5);
    EXPECT_DOUBLE_EQ(clock.delta(), 0.5);
    clock.tick(1.0e6 + 0.75);
    EXPECT_DOUBLE_EQ(clock.delta(), 0.25);
    // What took long after the tick is not in the next frame.
    clock.skip(1.0e6 + 10.75);
    clock.tick(1.0e6 + 11.0);
    EXPECT_DOUBLE_EQ(clock.delta(), 0.25);
}

// As long as an editor runs, a frame is no longer or shorter than it was.
TEST(FrameClockTest, framesAfterAMonth) {
    FrameClock clock;
    clock.start(0.0);
    const Double month = 30 * 24 * 3600.0;
    clock.tick(month);
    clock.tick(month + 1 / 128.0);
    EXPECT_DOUBLE_EQ(clock.delta(), 1 / 128.0);
}

TEST(ViewCameraTest, startsWithOneView) {
    ViewCamera camera;
    EXPECT_EQ(camera.scene().size(), 2);
    EXPECT_NE(camera.object(), RootObject);
    EXPECT_EQ(camera.views().numActiveComponents(), 1);
    EXPECT_EQ(camera.views().object(camera.view()), camera.object());
    EXPECT_EQ(camera.views().targetFramebuffer(camera.view()), nullptr);
}

TEST(ViewCameraTest, followsItsTransformation) {
    ViewCamera camera;
    camera.setTransformation(DualQuaternion::translation({1.0f, 2.0f, 3.0f}));
    camera.update();
    EXPECT_EQ(
        camera.views().viewTransform(camera.view()).transformPoint({1.0f, 2.0f, 0.0f}), (Vector3{0.0f, 0.0f, -3.0f}));
}

} // namespace
