#include "Views/SceneView/Render/LightMarkers.h"

#include <algorithm>
#include <cstddef>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Image.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/Scene.h>

#include "Support/OffscreenContext.h"
#include "Views/SceneView/ViewCamera.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;

constexpr Int Size = 32;
// What a light takes: a matrix and two colours.
constexpr std::size_t Bytes = (16 + 4 + 4) * sizeof(Float);

// A camera 2 units in front of the origin, where a light is seen over some pixels in the middle.
struct LightMarkersTest: VantrelTest::GlTest {
    LightMarkersTest(): framebuffer{{{}, Vector2i{Size}}} {
        color.setStorage(GL::RenderbufferFormat::RGBA8, Vector2i{Size});
        framebuffer.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, color);
        camera.setTransformation(DualQuaternion::translation({0.0f, 0.0f, 2.0f}));
        camera.setTarget(framebuffer, Vector2i{Size});
        markers.create();
    }

    Id add(const Vector3& position, const Vector4& color) {
        const Id object = scene.addObject(RootObject), light = scene.lights.addComponent(object);
        scene.lights.color(light) = color;
        scene.lights.activate(light);
        move(light, position);
        return light;
    }
    void move(Id light, const Vector3& position) {
        const Id object = scene.lights.object(light);
        scene.localTransformation(object) = DualQuaternion::translation(position);
        scene.setDirty(object);
    }
    std::size_t update() {
        scene.computeAbsoluteTransformations();
        camera.update();
        const std::size_t bytes = markers.update(scene, camera);
        scene.resetChanged();
        return bytes;
    }
    Image2D picture() {
        GL::Renderer::disable(GL::Renderer::Feature::DepthTest);
        framebuffer.clearColor(0, Color4{0.0f, 1.0f}).bind();
        markers.draw();
        return framebuffer.read(framebuffer.viewport(), Image2D{PixelFormat::RGBA8Unorm});
    }
    Color4ub middle() { return picture().pixels<Color4ub>()[Size / 2][Size / 2]; }
    std::ptrdiff_t count(const Color4ub& color) {
        const Image2D image = picture();
        const auto pixels = image.pixels<Color4ub>().asContiguous();
        return std::count(pixels.begin(), pixels.end(), color);
    }

    GL::Renderbuffer color;
    GL::Framebuffer framebuffer;
    Scene scene;
    ViewCamera camera;
    LightMarkers markers;
};

const Vector4 RedLight{1.0f, 0.0f, 0.0f, 1.0f}, GreenLight{0.0f, 1.0f, 0.0f, 1.0f};
const Color4ub Black{0, 255}, Red{255, 0, 0}, Green{0, 255, 0};

TEST_F(LightMarkersTest, nothingIsUploadedWhereNothingChanged) {
    EXPECT_EQ(update(), 0u);
    add({}, RedLight);
    EXPECT_EQ(update(), Bytes);
    EXPECT_EQ(update(), 0u);
    EXPECT_EQ(middle(), Red);
    const std::ptrdiff_t pixelsOfOne = count(Red);
    const Id second = add({0.5f, 0.0f, 0.0f}, RedLight);
    EXPECT_EQ(update(), 2 * Bytes);
    EXPECT_EQ(update(), 0u);
    EXPECT_GE(count(Red), pixelsOfOne * 3 / 2);
    // Nor is a second one drawn that is not there any more.
    scene.lights.setActive(second, false);
    EXPECT_EQ(update(), Bytes);
    EXPECT_EQ(count(Red), pixelsOfOne);
}

TEST_F(LightMarkersTest, aChangeOfALightIsSeen) {
    const Id light = add({}, RedLight);
    update();
    scene.lights.color(light) = GreenLight;
    EXPECT_EQ(update(), Bytes);
    EXPECT_EQ(middle(), Green);
    // Far less than what counts as equal elsewhere.
    scene.lights.color(light) = {1.0e-7f, 1.0f, 0.0f, 1.0f};
    EXPECT_EQ(update(), Bytes);
    move(light, {5.0f, 0.0f, 0.0f});
    EXPECT_EQ(update(), Bytes);
    EXPECT_EQ(middle(), Black);
    EXPECT_EQ(update(), 0u);
}

TEST_F(LightMarkersTest, aMoveOfTheCameraIsSeen) {
    add({}, RedLight);
    update();
    camera.setTransformation(DualQuaternion::translation({0.5f, 0.0f, 2.0f}));
    EXPECT_EQ(update(), Bytes);
    EXPECT_EQ(middle(), Black);
}

// Only of the shape that is concerned.
TEST_F(LightMarkersTest, eachShapeIsUploadedForItself) {
    add({}, RedLight);
    const Id sun = add({0.0f, 0.0f, -1.0f}, GreenLight);
    scene.lights.setLightType(sun, LightType::Sun);
    EXPECT_EQ(update(), 2 * Bytes);
    scene.lights.color(sun) = RedLight;
    EXPECT_EQ(update(), Bytes);
    scene.lights.setLightType(sun, LightType::Point);
    EXPECT_EQ(update(), 2 * Bytes);
    EXPECT_EQ(update(), 0u);
}

// It is still there.
TEST_F(LightMarkersTest, whatComesBackAsItWasIsNotUploaded) {
    const Id light = add({}, RedLight);
    update();
    scene.lights.setActive(light, false);
    EXPECT_EQ(update(), 0u);
    EXPECT_EQ(middle(), Black);
    scene.lights.setActive(light, true);
    EXPECT_EQ(update(), 0u);
    EXPECT_EQ(middle(), Red);
}

TEST_F(LightMarkersTest, madeAgainTheyAreUploadedAgain) {
    add({}, RedLight);
    update();
    markers.create();
    EXPECT_EQ(update(), Bytes);
    EXPECT_EQ(middle(), Red);
}

} // namespace
