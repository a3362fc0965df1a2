#include "Shaders/Bloom.h"

#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Resource.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Image.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Math/Vector4.h>
#include <Magnum/PixelFormat.h>
#include <Magnum/Sampler.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Shaders/BloomKernel.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine::Shaders;
using testing::HasSubstr;
using testing::KilledBySignal;
using testing::Not;
using Utility::Resource;

typedef VantrelTest::GlTest BloomTest;
typedef VantrelTest::GlTest BloomDeathTest;

constexpr std::array<const char*, 6> Uniforms{"exposure", "threshold", "vertical", "bloomIntensity", "blend", "mask"};

std::string fragmentSource(const Bloom& program) {
    GLuint shaders[2]{};
    GLsizei count = 0;
    glGetAttachedShaders(program.id(), 2, &count, shaders);
    for(const GLuint shader: shaders) {
        GLint type = 0, length = 0;
        glGetShaderiv(shader, GL_SHADER_TYPE, &type);
        if(type != GL_FRAGMENT_SHADER) continue;
        glGetShaderiv(shader, GL_SHADER_SOURCE_LENGTH, &length);
        std::string source(std::size_t(length), '\0');
        glGetShaderSource(shader, length, nullptr, source.data());
        return source.c_str();
    }
    return {};
}

// Colours without limits, row after row from the bottom.
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

std::vector<Vector4> drawn(Bloom& program, Picture& scene, Picture& bloom, const Vector2i& size) {
    Picture picture{size};
    GL::Framebuffer framebuffer{{{}, size}};
    framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, picture.texture, 0).bind();
    scene.texture.bind(0);
    bloom.texture.bind(2);
    GL::Mesh triangle;
    triangle.setCount(3);
    program.draw(triangle);
    const Image2D image = framebuffer.read({{}, size}, Image2D{PixelFormat::RGBA32F});
    const auto* const data = reinterpret_cast<const Vector4*>(image.data().data());
    return std::vector<Vector4>(data, data + size.product());
}

TEST_F(BloomTest, weightsStandInTheSourceWithTenDigits) {
    const struct {
        UnsignedInt kernelSize;
        const char* line;
    } rows[]{
        {0, "highp float WEIGHTS[1] = float[] (1);\n"},
        {1, "highp float WEIGHTS[1] = float[] (1);\n"},
        {2, "highp float WEIGHTS[2] = float[] (0.4, 0.3);\n"},
        {3, "highp float WEIGHTS[2] = float[] (0.4, 0.3);\n"},
        {5, "highp float WEIGHTS[3] = float[] (0.2941176471, 0.2352941176, 0.1176470588);\n"},
        {9,
            "highp float WEIGHTS[5] = float[] (0.2122186495, 0.1856913183, 0.1237942122, 0.06189710611, "
            "0.02250803859);\n"},
        {21, "highp float WEIGHTS[11] = float[] (0.1399657606, "},
        {21, ", 0.0002110131268);\n"},
    };
    for(const auto& row: rows)
        EXPECT_THAT(fragmentSource(Bloom{row.kernelSize}), HasSubstr(row.line)) << row.kernelSize;
}

TEST_F(BloomTest, sourcesStandInTheirOrder) {
    const std::string source = fragmentSource(Bloom{9});
    std::size_t place = 0;
    for(const char* const piece: {"#version 330", "#define NEW_GLSL\n", "highp float WEIGHTS[5]",
            "#define KERNEL_SIZE 5\n", "precision highp float;"}) {
        const std::size_t found = source.find(piece);
        ASSERT_NE(found, std::string::npos) << piece;
        EXPECT_GE(found, place) << piece;
        place = found;
    }
}

TEST_F(BloomTest, anEvenSizeIsTheSameProgramAsTheNextOddOne) {
    EXPECT_EQ(fragmentSource(Bloom{4}), fragmentSource(Bloom{5}));
    EXPECT_NE(fragmentSource(Bloom{5}), fragmentSource(Bloom{6}));
}

TEST_F(BloomTest, allSizesUpToTheLargestBuild) {
    for(UnsignedInt size = 0; size <= MaxBloomKernelSize; ++size) {
        testing::internal::CaptureStderr();
        const Bloom program{size};
        GLint isLinked = 0;
        glGetProgramiv(program.id(), GL_LINK_STATUS, &isLinked);
        EXPECT_TRUE(isLinked) << size;
        // Not even where a blur of one pixel has no direction.
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << size;
    }
}

TEST_F(BloomTest, samplersAreInTheUnitsZeroAndTwo) {
    const Bloom program{5};
    for(const auto& [name, unit]: {std::pair{"sceneTexture", 0}, {"bloomTexture", 2}}) {
        GLint value = -1;
        glGetUniformiv(program.id(), glGetUniformLocation(program.id(), name), &value);
        EXPECT_EQ(value, unit) << name;
    }
}

TEST_F(BloomTest, settersReachTheirUniforms) {
    Bloom program{5};
    program.setExposure(1.5f).setThreshold(2.5f).setVertical(true).setBloomIntensity(3.5f).setBlend(true).setMask(true);
    const std::array<float, 6> expected{1.5f, 2.5f, 1.0f, 3.5f, 1.0f, 1.0f};
    for(std::size_t i = 0; i != Uniforms.size(); ++i) {
        GLfloat value = -1.0f;
        glGetUniformfv(program.id(), glGetUniformLocation(program.id(), Uniforms[i]), &value);
        EXPECT_EQ(value, expected[i]) << Uniforms[i];
    }
    program.setVertical(false).setBlend(false).setMask(false);
    for(const char* const name: {"vertical", "blend", "mask"}) {
        GLfloat value = -1.0f;
        glGetUniformfv(program.id(), glGetUniformLocation(program.id(), name), &value);
        EXPECT_EQ(value, 0.0f) << name;
    }
}

TEST_F(BloomTest, blursWithItsWeightsAlongOneAxis) {
    const Containers::Array<Double> weights = bloomWeights(5);
    const Vector4 dot{1.0f, 2.0f, 4.0f, 1.0f};
    for(const bool vertical: {false, true}) {
        Picture scene{{1, 1}};
        std::vector<Vector4> pixels(7, Vector4{0.0f, 0.0f, 0.0f, 1.0f});
        pixels[3] = dot;
        const Vector2i size = vertical ? Vector2i{1, 7} : Vector2i{7, 1};
        Picture bloom{size, pixels};
        Bloom program{5};
        const std::vector<Vector4> result = drawn(program.setVertical(vertical), scene, bloom, size);
        for(int i = 0; i != 7; ++i) {
            const auto distance = std::size_t(std::abs(i - 3));
            const float weight = distance < weights.size() ? float(weights[distance]) : 0.0f;
            for(int channel = 0; channel != 3; ++channel)
                EXPECT_NEAR(result[i][channel], weight * dot[channel], 1e-6f) << i;
        }
    }
}

TEST_F(BloomTest, aKernelOfOnePixelCopiesAndMasks) {
    const std::vector<Vector4> pixels{{0.5f, 0.25f, 2.0f, 1.0f}, {3.0f, 3.0f, 3.0f, 1.0f}};
    Picture scene{{2, 1}, pixels}, bloom{{2, 1}, {pixels[1], pixels[0]}};
    for(const UnsignedInt size: {0u, 1u}) {
        Bloom program{size};
        EXPECT_EQ(drawn(program, scene, bloom, {2, 1}), (std::vector<Vector4>{pixels[1], pixels[0]}));
        program.setMask(true).setThreshold(1.0f);
        EXPECT_EQ(drawn(program, scene, bloom, {2, 1}), (std::vector<Vector4>{{0.0f, 0.0f, 0.0f, 1.0f}, pixels[1]}));
    }
}

TEST_F(BloomTest, blendsOverTheSceneAndMapsTheTones) {
    Picture scene{{1, 1}, {{0.1f, 0.2f, 0.3f, 0.0f}}}, bloom{{1, 1}, {{1.0f, 0.5f, 0.0f, 1.0f}}};
    Bloom program{9};
    program.setBlend(true).setBloomIntensity(0.5f).setExposure(2.0f);
    const Vector4 result = drawn(program, scene, bloom, {1, 1})[0];
    const float expected[]{0.6f, 0.45f, 0.3f};
    for(int i = 0; i != 3; ++i) EXPECT_NEAR(result[i], 1.0f - std::exp(-2.0f * expected[i]), 1e-6f) << i;
    EXPECT_EQ(result.w(), 1.0f);
}

TEST_F(BloomTest, isReplacedByAssignment) {
    Bloom program{NoCreate};
    EXPECT_EQ(program.id(), 0u);
    program = Bloom{3};
    const UnsignedInt first = program.id();
    EXPECT_TRUE(glIsProgram(first));
    program = Bloom{9};
    EXPECT_THAT(fragmentSource(program), HasSubstr("#define KERNEL_SIZE 5\n"));
    EXPECT_FALSE(glIsProgram(first));
    // With its uniforms.
    program.setExposure(7.0f);
    GLfloat exposure = 0.0f;
    glGetUniformfv(program.id(), glGetUniformLocation(program.id(), "exposure"), &exposure);
    EXPECT_EQ(exposure, 7.0f);
}

TEST_F(BloomTest, bringsItsSourcesAlong) {
    EXPECT_FALSE(Resource::hasGroup("VantrelEngineShaders"));
    EXPECT_NE(Bloom{3}.id(), 0u);
}

TEST_F(BloomDeathTest, aSizeThatIsTooBig) {
    for(const UnsignedInt size: {22u, UnsignedInt(-1)})
        EXPECT_EXIT(Bloom{size}, KilledBySignal(SIGABRT), "^Bloom::Bloom\\(\\): Kernel size too big\n$") << size;
}

// Sources that stand in for the group of the program's own.
void registerSources(const std::string& fragment, const std::string& vertex) {
    static std::string names, data;
    static unsigned int positions[4];
    static Utility::Implementation::ResourceGroup group{};
    names = std::string{"Bloom.frag"} + "FullscreenTriangle.vert";
    data = fragment + vertex;
    positions[0] = 10;
    positions[1] = unsigned(fragment.size());
    positions[2] = unsigned(names.size());
    positions[3] = unsigned(data.size());
    group.name = "VantrelEngineShaders";
    group.count = 2;
    group.positions = positions;
    group.filenames = reinterpret_cast<const unsigned char*>(names.data());
    group.data = reinterpret_cast<const unsigned char*>(data.data());
    Resource::registerData(group);
}

constexpr const char* GoodFragment = "out vec4 c; void main() { c = vec4(1.0); }";
constexpr const char* GoodVertex = "void main() { gl_Position = vec4(0.0); }";

TEST_F(BloomDeathTest, sourcesThatTheGlDoesNotTake) {
    const struct {
        const char *fragment, *vertex, *message;
    } rows[]{
        {GoodFragment, "nonsense", "Assertion vert\\.checkCompile\\(\\) failed at Shaders/Bloom:116\n$"},
        {"nonsense", GoodVertex, "Assertion frag\\.checkCompile\\(\\) failed at Shaders/Bloom:117\n$"},
        {"nonsense", "nonsense", "Assertion vert\\.checkCompile\\(\\) failed at Shaders/Bloom:116\n$"},
        {"in vec2 place; out vec4 c; void main() { c = place.xyxy; }",
            "out vec4 place; void main() { gl_Position = place = vec4(0.0); }",
            "Assertion link\\(\\) failed at Shaders/Bloom:121\n$"},
    };
    for(const auto& row: rows)
        EXPECT_EXIT(
            {
                registerSources(row.fragment, row.vertex);
                Bloom{5};
            },
            KilledBySignal(SIGABRT), row.message);
}

}
