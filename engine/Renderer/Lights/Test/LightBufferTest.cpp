#include "Renderer/Lights/LightBuffer.h"

#include <cmath>
#include <string>

#include <Corrade/Containers/StringStl.h>
#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/GL/Version.h>
#include <Magnum/Image.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/Scene.h>
#include <gmock/gmock.h>

#include "Renderer/DefaultAssets/DefaultAssets.h"
#include "Renderer/TextureUnits.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using namespace Math::Literals;

// The light that reaches a place, from all lights, on a surface across each.
struct LightProgram: GL::AbstractShaderProgram {
    explicit LightProgram(const char* result) {
        GL::Shader vertex{GL::Version::GL330, GL::Shader::Type::Vertex};
        GL::Shader fragment{GL::Version::GL330, GL::Shader::Type::Fragment};
        vertex.addSource(defaultAsset("FullScreenTriangle.vert"));
        fragment.addSource("uniform vec3 cameraPosition; uniform vec3 place; out vec4 color;\n");
        fragment.addSource(defaultAsset("Lights.glsl"));
        fragment.addSource("void main() { vec3 sum = vec3(0.0), towards = vec3(0.0), direction, incoming;"
                           "for(int i = 0; i != lightCount(); ++i)"
                           "if(lightAt(i, place, direction, incoming)) { sum += incoming; towards += direction; }\n");
        fragment.addSource(std::string{result} + "}\n");
        EXPECT_TRUE(vertex.compile() && fragment.compile());
        attachShader(vertex);
        attachShader(fragment);
        EXPECT_TRUE(link());
        setUniform(uniformLocation("lightData"), TextureUnit::LightData);
    }
    LightProgram& setPlace(const Vector3& place) { return setUniform(uniformLocation("place"), place), *this; }
};

struct LightBufferTest: VantrelTest::GlTest {
    Id add(
        LightType type, const Vector4& color, const DualQuaternion& transformation = {}, const Vector3& angles = {}) {
        const Id object = scene.addObject(RootObject);
        scene.localTransformation(object) = transformation;
        scene.setDirty(object);
        const Id light = scene.lights.addComponent(object);
        scene.lights.color(light) = color;
        scene.lights.parameters(light) = angles;
        scene.lights.setLightType(light, type);
        scene.lights.activate(light);
        return light;
    }

    std::size_t update() {
        scene.computeAbsoluteTransformations();
        return buffer.update(scene);
    }

    Vector3 evaluate(LightProgram& program, const Vector3& place) {
        GL::Texture2D target;
        target.setStorage(1, GL::TextureFormat::RGBA32F, {1, 1});
        GL::Framebuffer framebuffer{{{}, {1, 1}}};
        framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, target, 0).bind();
        buffer.bind();
        GL::Mesh triangle;
        triangle.setCount(3);
        program.setPlace(place).draw(triangle);
        const Image2D image = framebuffer.read({{}, {1, 1}}, Image2D{PixelFormat::RGBA32F});
        return reinterpret_cast<const Vector3*>(image.data().data())[0];
    }
    Vector3 lightAt(const Vector3& place) { return evaluate(incoming, place); }

    Scene scene;
    LightBuffer buffer;
    LightProgram incoming{"color = vec4(sum, 1.0);"};
    LightProgram directions{"color = vec4(towards, 1.0);"};
};

void expectNear(const Vector3& actual, const Vector3& expected, float tolerance = 1.0e-4f) {
    for(std::size_t i = 0; i != 3; ++i) EXPECT_NEAR(actual[i], expected[i], tolerance) << "channel " << i;
}

TEST_F(LightBufferTest, noLightIsNone) {
    expectNear(lightAt({}), Vector3{0.0f});
    EXPECT_EQ(update(), 0u);
}

TEST_F(LightBufferTest, aPointFallsWithTheSquareOfTheDistance) {
    add(LightType::Point, {1.0f, 0.5f, 0.25f, 40.0f}, DualQuaternion::translation({1.0f, 0.0f, 0.0f}));
    update();
    // Less than a percent is taken off towards the end of its reach, which is 63 away.
    expectNear(lightAt({3.0f, 0.0f, 0.0f}), {10.0f, 5.0f, 2.5f}, 1.0e-2f);
    expectNear(lightAt({1.0f, 0.0f, 4.0f}), Vector3{40.0f, 20.0f, 10.0f} / 16.0f, 1.0e-2f);
    expectNear(evaluate(directions, {1.0f, 7.0f, 0.0f}), {0.0f, -1.0f, 0.0f});
    expectNear(lightAt({65.0f, 0.0f, 0.0f}), Vector3{0.0f});
    EXPECT_TRUE(std::isfinite(lightAt({1.0f, 0.0f, 0.0f}).sum()));
}

TEST_F(LightBufferTest, aSunIsEverywhereAlongTheNegativeYAxis) {
    add(LightType::Sun, {1.0f, 1.0f, 0.5f, 2.0f}, DualQuaternion::rotation(90.0_degf, Vector3::zAxis()));
    update();
    for(const Vector3& place: {Vector3{}, Vector3{1.0e5f, 3.0f, -1.0e5f}}) {
        expectNear(lightAt(place), {2.0f, 2.0f, 1.0f});
        // -Y turned by that is +X: the light comes from -X.
        expectNear(evaluate(directions, place), {-1.0f, 0.0f, 0.0f});
    }
}

TEST_F(LightBufferTest, aSpotFadesBetweenItsAngles) {
    add(LightType::Spot, {1.0f, 1.0f, 1.0f, 100.0f}, DualQuaternion::translation({0.0f, 1.0f, 0.0f}),
        {30.0f, 20.0f, 0.0f});
    update();
    const auto atAngle = [&](float degrees) {
        const Rad angle{Deg{degrees}};
        return lightAt({Math::sin(angle), 1.0f - Math::cos(angle), 0.0f}).x();
    };
    EXPECT_NEAR(atAngle(0.0f), 100.0f, 0.01f);
    EXPECT_NEAR(atAngle(19.5f), 100.0f, 0.01f);
    const float between = (std::cos(0.4363323f) - std::cos(0.5235988f)) / (std::cos(0.3490659f) - std::cos(0.5235988f));
    EXPECT_NEAR(atAngle(25.0f), 100.0f * between * between, 0.01f);
    EXPECT_EQ(atAngle(30.5f), 0.0f);
    EXPECT_EQ(atAngle(180.0f), 0.0f);
}

TEST_F(LightBufferTest, aSpotWithoutFadeHasASharpEdge) {
    add(LightType::Spot, {1.0f, 1.0f, 1.0f, 100.0f}, {}, {30.0f, 30.0f, 0.0f});
    update();
    EXPECT_GT(lightAt({std::sin(0.515f), -std::cos(0.515f), 0.0f}).x(), 99.0f);
    EXPECT_EQ(lightAt({std::sin(0.53f), -std::cos(0.53f), 0.0f}).x(), 0.0f);
}

TEST_F(LightBufferTest, activeOnesOfAllTypesAdd) {
    const Id off = add(LightType::Sun, {1.0f, 1.0f, 1.0f, 100.0f});
    scene.lights.setActive(off, false);
    for(std::size_t i = 0; i != 300; ++i) add(LightType::Sun, {0.01f, 0.0f, 0.0f, 1.0f});
    add(LightType::Point, {0.0f, 1.0f, 0.0f, 4.0f}, DualQuaternion::translation({0.0f, 2.0f, 0.0f}));
    add(LightType::Spot, {0.0f, 0.0f, 1.0f, 9.0f}, DualQuaternion::translation({0.0f, 3.0f, 0.0f}),
        {45.0f, 30.0f, 0.0f});
    update();
    expectNear(lightAt({}), {3.0f, 1.0f, 1.0f}, 2.0e-3f);
}

TEST_F(LightBufferTest, darkAndNegativeOnesGiveNothing) {
    add(LightType::Point, {1.0f, 1.0f, 1.0f, 0.0f});
    add(LightType::Sun, {-1.0f, -1.0f, -1.0f, 5.0f});
    add(LightType::Spot, {1.0f, 1.0f, 1.0f, -5.0f}, {}, {180.0f, 90.0f, 0.0f});
    update();
    expectNear(lightAt({0.0f, -1.0f, 0.0f}), Vector3{0.0f});
    expectNear(lightAt({}), Vector3{0.0f});
}

TEST_F(LightBufferTest, uploadsOnlyWhatChanged) {
    const Id light = add(LightType::Point, {1.0f, 1.0f, 1.0f, 4.0f});
    EXPECT_GT(update(), 0u);
    EXPECT_EQ(update(), 0u);
    const Id object = scene.lights.object(light);
    scene.localTransformation(object) = DualQuaternion::translation({0.0f, 1.0f, 0.0f});
    scene.setDirty(object);
    EXPECT_GT(update(), 0u);
    EXPECT_EQ(update(), 0u);
    scene.lights.color(light).x() = 0.5f;
    EXPECT_GT(update(), 0u);
    scene.lights.setActive(light, false);
    EXPECT_GT(update(), 0u);
    EXPECT_EQ(update(), 0u);
    expectNear(lightAt({0.0f, 0.5f, 0.0f}), Vector3{0.0f});
}

TEST_F(LightBufferTest, withoutLightsThereIsWorkLight) {
    LightProgram program{"color = vec4(ambientLight(vec3(0.0, 1.0, 0.0)), 1.0);"};
    const Vector3 alone = evaluate(program, {});
    add(LightType::Point, {1.0f, 1.0f, 1.0f, 0.0f});
    update();
    const Vector3 withLight = evaluate(program, {});
    EXPECT_GT((alone / withLight).min(), 1.5f);
    EXPECT_GT(withLight.min(), 0.05f);
    EXPECT_LT(withLight.max(), 0.3f);
}

TEST_F(LightBufferTest, withoutLightsNoMetalIsBlack) {
    LightProgram program{"color = vec4(surroundingLight(place, 0.1), 1.0);"};
    for(const Vector3& axis: {Vector3::xAxis(), Vector3::yAxis(), Vector3::zAxis()})
        for(const float sign: {-1.0f, 1.0f}) EXPECT_GT(evaluate(program, axis * sign).min(), 0.05f);
}

TEST_F(LightBufferTest, toneMappingKeepsColorsBelowItsShoulder) {
    LightProgram program{"color = vec4(toneMapped(place), 1.0);"};
    for(const Vector3& color: {Vector3{0.0f}, Vector3{0.1f, 0.2f, 0.3f}, Vector3{0.6f, 0.5f, 0.0f}})
        expectNear(evaluate(program, color), color, 1.0e-6f);
    float last = 0.6f;
    for(const float value: {0.7f, 1.0f, 2.0f, 10.0f, 1000.0f}) {
        const Vector3 color = evaluate(program, {value, 0.0f, 0.0f});
        EXPECT_GT(color.x(), last);
        EXPECT_LT(color.max(), 1.0f);
        last = color.x();
    }
    // What is very bright becomes white.
    EXPECT_GT(evaluate(program, {1000.0f, 0.0f, 0.0f}).y(), 0.9f);
}

TEST_F(LightBufferTest, screenColorsFollowTheCurve) {
    LightProgram program{"color = vec4(screenColor(place), 1.0);"};
    expectNear(evaluate(program, {0.0f, 0.002f, 0.2140f}), {0.0f, 0.02584f, 0.5f});
    expectNear(evaluate(program, {1.0f, 5.0f, -1.0f}), {1.0f, 1.0f, 0.0f});
}

} // namespace
