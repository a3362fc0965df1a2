// The engine's shaders, drawn into a few pixels.

#include <cmath>
#include <string>

#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Image.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Range.h>
#include <Magnum/PixelFormat.h>
#include <Magnum/Sampler.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Shaders/FullScreenShaderProgram.h"
#include "Shaders/ShaderResources.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine::Shaders;

typedef VantrelTest::GlTest EngineShadersTest;

GL::Shader shaderOf(const char* before, const char* file) {
    GL::Shader shader{shaderVersion(), GL::Shader::Type::Fragment};
    shader.addSource(before);
    addShaderSource(shader, ShaderGroup::Engine, file);
    return shader;
}

struct Program: FullScreenShaderProgram {
    explicit Program(const char* file, const char* before = ""):
        FullScreenShaderProgram{file, shaderOf(before, file)} {}

    template<class T> Program& set(const char* uniform, const T& value) {
        setUniform(uniformLocation(uniform), value);
        return *this;
    }
};

// Colors without limits, row after row from the bottom; closest texel, edges repeated.
struct Picture {
    explicit Picture(const Vector2i& size, const std::vector<Vector4>& pixels = {}): size{size} {
        texture.setMinificationFilter(SamplerFilter::Nearest)
            .setMagnificationFilter(SamplerFilter::Nearest)
            .setWrapping(SamplerWrapping::ClampToEdge)
            .setStorage(1, GL::TextureFormat::RGBA32F, size);
        if(!pixels.empty())
            texture.setSubImage(0, {},
                ImageView2D{
                    PixelFormat::RGBA32F, size, Containers::ArrayView<const Vector4>{pixels.data(), pixels.size()}});
    }

    GL::Texture2D texture;
    Vector2i size;
};

std::vector<Vector4> drawn(Program& program, const Vector2i& size) {
    Picture picture{size};
    GL::Framebuffer framebuffer{{{}, size}};
    framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, picture.texture, 0).bind();
    program.draw();
    const Image2D image = framebuffer.read({{}, size}, Image2D{PixelFormat::RGBA32F});
    const Vector4* const data = reinterpret_cast<const Vector4*>(image.data().data());
    return std::vector<Vector4>(data, data + size.product());
}

void expectNear(const Vector4& actual, const Vector3& expected, float tolerance = 1.0e-5f) {
    for(int i = 0; i != 3; ++i) EXPECT_NEAR(actual[i], expected[i], tolerance) << "channel " << i;
    EXPECT_EQ(actual.w(), 1.0f);
}

TEST_F(EngineShadersTest, overdrawIsTheColor) {
    Program program{"Overdraw.frag"};
    program.set("color", Vector4{0.1f, 0.2f, 0.3f, 0.4f});
    EXPECT_THAT(drawn(program, {2, 1}), testing::Each(Vector4{0.1f, 0.2f, 0.3f, 0.4f}));
}

struct BloomTest: VantrelTest::GlTest {
    // Two pixels to each side.
    Program program{
        "Bloom.frag", "#define NEW_GLSL\nhighp float WEIGHTS[3] = float[] (0.4, 0.2, 0.1);\n#define KERNEL_SIZE 3\n"};

    void SetUp() override {
        program.set("sceneTexture", 0).set("bloomTexture", 2);
        program.set("mask", 0).set("vertical", 0).set("blend", 0);
        program.set("threshold", 0.5f).set("bloomIntensity", 0.5f).set("exposure", 2.0f);
    }
};

std::vector<Vector4> dotInSeven() {
    std::vector<Vector4> pixels(7, Vector4{0.0f, 0.0f, 0.0f, 1.0f});
    pixels[3] = Vector4{1.0f, 2.0f, 4.0f, 1.0f};
    return pixels;
}

TEST_F(BloomTest, blursAlongOneAxis) {
    for(const bool vertical: {false, true}) {
        const Vector2i size = vertical ? Vector2i{1, 7} : Vector2i{7, 1};
        Picture scene{{1, 1}}, bloom{size, dotInSeven()};
        scene.texture.bind(0);
        bloom.texture.bind(2);
        program.set("vertical", Int(vertical));
        const std::vector<Vector4> pixels = drawn(program, size);
        const float weights[]{0.0f, 0.1f, 0.2f, 0.4f, 0.2f, 0.1f, 0.0f};
        for(int i = 0; i != 7; ++i) expectNear(pixels[i], weights[i] * Vector3{1.0f, 2.0f, 4.0f});

        // All taps fall onto the same texel.
        program.set("vertical", Int(!vertical));
        expectNear(drawn(program, size)[3], Vector3{1.0f, 2.0f, 4.0f});
    }
}

TEST_F(BloomTest, masksWhatIsNotBrighterThanTheThreshold) {
    Picture scene{{4, 1},
        {{0.5f, 0.5f, 0.5f, 1.0f}, {0.0f, 0.8f, 0.0f, 1.0f}, {1.0f, 0.0f, 1.0f, 1.0f}, {0.6f, 0.6f, 0.6f, 1.0f}}};
    Picture bloom{{1, 1}, {{9.0f, 9.0f, 9.0f, 1.0f}}};
    scene.texture.bind(0);
    bloom.texture.bind(2);
    // Along y there is one texel only.
    program.set("mask", 1).set("vertical", 1);
    const std::vector<Vector4> pixels = drawn(program, {4, 1});
    // Red and blue at once are dark.
    expectNear(pixels[1], {0.0f, 0.8f, 0.0f});
    expectNear(pixels[2], {});
    expectNear(pixels[3], {0.6f, 0.6f, 0.6f});
    program.set("threshold", 0.51f);
    expectNear(drawn(program, {4, 1})[0], {});
    program.set("threshold", 0.49f);
    expectNear(drawn(program, {4, 1})[0], {0.5f, 0.5f, 0.5f});
}

TEST_F(BloomTest, blendsOverTheSceneWithExposure) {
    Picture scene{{1, 1}, {{0.1f, 0.2f, 0.3f, 1.0f}}};
    Picture bloom{{1, 1}, {{1.0f, 0.5f, 0.0f, 1.0f}}};
    scene.texture.bind(0);
    bloom.texture.bind(2);
    program.set("blend", 1);
    const auto tone = [](float value) { return 1.0f - std::exp(-2.0f * value); };
    expectNear(drawn(program, {1, 1})[0], {tone(0.1f + 0.5f), tone(0.2f + 0.25f), tone(0.3f)});
}

// Light of one color from everywhere arrives as that color.
TEST_F(EngineShadersTest, bakersKeepAnEvenLight) {
    Picture environment{{1, 1}, {{0.25f, 0.5f, 2.0f, 1.0f}}};
    environment.texture.bind(0);
    Program irradiance{"IrradianceIBLBaker.frag"};
    irradiance.set("environment", 0);
    // The samples are 1.4 degrees apart.
    for(const Vector4& pixel: drawn(irradiance, {2, 2})) expectNear(pixel, {0.25f, 0.5f, 2.0f}, 0.01f);
    Program specular{"SpecularIBLBaker.frag"};
    specular.set("environment", 0);
    for(const float roughness: {0.0f, 0.3f, 1.0f}) {
        specular.set("roughness", roughness);
        for(const Vector4& pixel: drawn(specular, {2, 2})) expectNear(pixel, {0.25f, 0.5f, 2.0f}, 1.0e-4f);
    }
}

// Light from above: a surface that is turned away from it by an angle receives the share (1 + cos)/2.
TEST_F(EngineShadersTest, irradianceOfHalfASky) {
    Picture environment{{1, 2}, {{0.0f, 0.0f, 0.0f, 1.0f}, {1.0f, 1.0f, 1.0f, 1.0f}}};
    environment.texture.bind(0);
    Program program{"IrradianceIBLBaker.frag"};
    program.set("environment", 0);
    const std::vector<Vector4> pixels = drawn(program, {2, 6});
    for(int i = 0; i != 12; ++i) {
        const float latitude = ((i / 2 + 0.5f) / 6.0f - 0.5f) * 3.14159265f;
        expectNear(pixels[i], Vector3{(1.0f + std::sin(latitude)) / 2.0f}, 0.02f);
    }
}

TEST_F(EngineShadersTest, aPerfectMirrorShowsTheSurroundings) {
    std::vector<Vector4> pixels;
    for(int i = 0; i != 32; ++i) pixels.emplace_back(i * 0.125f, (i % 8) * 0.5f, (i / 8) * 0.25f, 1.0f);
    Picture environment{{8, 4}, pixels};
    environment.texture.bind(0);
    Program program{"SpecularIBLBaker.frag"};
    program.set("environment", 0).set("roughness", 0.0f);
    const std::vector<Vector4> result = drawn(program, {8, 4});
    for(int i = 0; i != 32; ++i) expectNear(result[i], pixels[i].xyz(), 1.0e-4f);
}

TEST_F(EngineShadersTest, aRoughMirrorBlursTheHorizon) {
    Picture environment{{1, 2}, {{0.0f, 0.0f, 0.0f, 1.0f}, {1.0f, 1.0f, 1.0f, 1.0f}}};
    environment.texture.bind(0);
    Program program{"SpecularIBLBaker.frag"};
    program.set("environment", 0);
    // Fifteen degrees above the horizon.
    float previous = 1.1f;
    for(const float roughness: {0.0f, 0.4f, 0.7f, 1.0f}) {
        program.set("roughness", roughness);
        const float light = drawn(program, {1, 6})[3].x();
        EXPECT_LT(light, previous) << roughness;
        EXPECT_GT(light, 0.5f) << roughness;
        previous = light;
    }
}

}
