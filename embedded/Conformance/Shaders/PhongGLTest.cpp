#include <cmath>
#include <string>
#include <vector>

#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Mesh.h>
#include <Magnum/MeshTools/Compile.h>
#include <Magnum/Primitives/UVSphere.h>
#include <Magnum/Shaders/PhongGL.h>
#include <Magnum/Trade/MeshData.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

namespace ConformanceShaders {
namespace {

using namespace Magnum;
using Shaders::PhongGL;
typedef PhongGL::Flag Flag;

// GPUs compute powers with about 10 bits after the point less than exactly; with the exponents here this is enough.
constexpr Float Tolerance = 1.0e-3f;

struct Light {
    Vector4 position{0.0f, 0.0f, 1.0f, 0.0f};
    Color3 color{1.0f};
    Color3 specular{1.0f};
    Float range = Constants::inf();
};

struct Surface {
    Color4 ambient{0.0f, 0.0f};
    Color4 diffuse{1.0f};
    Color4 specular{1.0f, 0.0f};
    Float shininess = 80.0f;
};

Float attenuation(const Light& light, Float distance) {
    if(light.position.w() == 0.0f) return 1.0f;
    const Float window = Math::clamp(1.0f - std::pow(distance / light.range, 4.0f), 0.0f, 1.0f);
    return window * window / (1.0f + distance * distance);
}

// The lighting formula for one point in camera space. The highlight's alpha counts for each light that has one.
Color4 lit(const std::vector<Light>& lights, const Surface& surface, const Vector3& point, const Vector3& normal) {
    Color4 sum = surface.ambient;
    if(!lights.empty()) sum.a() += surface.diffuse.a();
    for(const Light& light: lights) {
        const Vector3 toLight = light.position.xyz() - point * light.position.w();
        const Vector3 l = toLight.normalized(), n = normal.normalized();
        const Float fade = attenuation(light, toLight.length()), facing = Math::max(Math::dot(n, l), 0.0f) * fade;
        sum.rgb() += surface.diffuse.rgb() * light.color * facing;
        if(facing <= 0.0f) continue;
        const Vector3 reflected = 2.0f * Math::dot(n, l) * n - l;
        const Float alignment = Math::max(Math::dot((-point).normalized(), reflected), 0.0f);
        sum.rgb() += surface.specular.rgb() * light.specular * std::pow(alignment, surface.shininess) * fade;
        sum.a() += surface.specular.a();
    }
    return sum;
}

PhongGL shaderFor(const std::vector<Light>& lights, const Surface& surface, PhongGL::Flags flags = {}) {
    PhongGL shader{PhongGL::Configuration{}.setLightCount(UnsignedInt(lights.size())).setFlags(flags)};
    shader.setAmbientColor(surface.ambient)
        .setDiffuseColor(surface.diffuse)
        .setSpecularColor(surface.specular)
        .setShininess(surface.shininess);
    for(UnsignedInt i = 0; i != lights.size(); ++i)
        shader.setLightPosition(i, lights[i].position)
            .setLightColor(i, lights[i].color)
            .setLightSpecularColor(i, lights[i].specular)
            .setLightRange(i, lights[i].range);
    return shader;
}

// A square three units in front of a camera with a picture angle of 90 degrees, large enough to fill the picture.
constexpr Float Distance = 3.0f;
Matrix4 transformation() {
    return Matrix4::translation({0.0f, 0.0f, -Distance}) * Matrix4::scaling({Distance, Distance, 1.0f});
}
Matrix4 projection() { return Matrix4::perspectiveProjection(Deg(90.0f), 1.0f, 0.1f, 100.0f); }
Vector3 pointAt(const Vector2i& pixel) { return {Canvas::deviceAt(pixel.x(), pixel.y()) * Distance, -Distance}; }

const Vector2i Pixels[]{{3, 5}, {60, 10}, {31, 32}, {40, 44}, {12, 61}};

class PhongGLTest: public VantrelTest::GlTest {
protected:
    void draw(PhongGL& shader, const Vector3& normal = {0.0f, 0.0f, 1.0f}) {
        GL::Mesh mesh = square(normal);
        shader.setTransformationMatrix(transformation()).setProjectionMatrix(projection()).draw(mesh);
    }

    // Everywhere the same, hence one pixel is enough: no highlight, directional lights only.
    Color4 drawn(PhongGL& shader, const Vector3& normal = {0.0f, 0.0f, 1.0f}) {
        _canvas.clear();
        draw(shader, normal);
        return _canvas.at(20, 40);
    }

    Canvas _canvas;
};

typedef PhongGLTest PhongGLDeathTest;

const Surface NoHighlight{Color4{0.0f, 0.0f}, Color4{1.0f}, Color4{0.0f, 0.0f}, 80.0f};

TEST_F(PhongGLTest, FlagValues) {
    EXPECT_EQ(Int(Flag::DiffuseTexture), 2);
    EXPECT_EQ(Int(Flag::AlphaMask), 8);
    EXPECT_EQ(Int(Flag::NormalTexture), 16);
    EXPECT_EQ(Int(Flag::ObjectId), 128);
    EXPECT_TRUE(PhongGL{}.flags() == PhongGL::Flags{});
    EXPECT_TRUE(shaderFor({}, {}, Flag::AlphaMask | Flag::ObjectId).flags() == (Flag::AlphaMask | Flag::ObjectId));
}

struct LightingCase {
    const char* name;
    std::vector<Light> lights;
    Surface surface;
    Vector3 normal{0.0f, 0.0f, 1.0f};
};

class PhongGLLightingTest: public PhongGLTest, public testing::WithParamInterface<LightingCase> {};

TEST_P(PhongGLLightingTest, FollowsTheFormula) {
    const LightingCase& c = GetParam();
    PhongGL shader = shaderFor(c.lights, c.surface);
    draw(shader, c.normal);
    for(const Vector2i& pixel: Pixels)
        EXPECT_TRUE(
            isNear(_canvas.at(pixel.x(), pixel.y()), lit(c.lights, c.surface, pointAt(pixel), c.normal), Tolerance))
            << "at " << pixel.x() << ", " << pixel.y();
}

const Surface Colorful{{0.01f, 0.02f, 0.03f, 0.04f}, {0.5f, 0.4f, 0.3f, 0.2f}, {0.9f, 0.8f, 0.7f, 0.1f}, 5.0f};

INSTANTIATE_TEST_SUITE_P(, PhongGLLightingTest,
    testing::Values(LightingCase{"Default", {Light{}}, Surface{}},
        LightingCase{"DirectionalNotNormalised", {Light{{1.0f, 2.0f, 3.0f, 0.0f}}}, Colorful},
        LightingCase{
            "DirectionalHasNoRange", {Light{{1.0f, 2.0f, 3.0f, 0.0f}, Color3{1.0f}, Color3{1.0f}, 0.5f}}, Colorful},
        LightingCase{"DirectionalGrazing", {Light{{1.0f, 0.0f, 0.1f, 0.0f}}}, Colorful},
        LightingCase{"FromBehind", {Light{{0.0f, 0.5f, -1.0f, 0.0f}}}, Colorful},
        LightingCase{"Point", {Light{{1.0f, -0.5f, -1.0f, 1.0f}}}, Colorful},
        LightingCase{"PointRange", {Light{{0.5f, 0.5f, -2.0f, 1.0f}, Color3{1.0f}, Color3{1.0f}, 3.0f}}, Colorful},
        LightingCase{
            "PointOutOfRange", {Light{{0.0f, 0.0f, -1.0f, 1.0f}, Color3{1.0f}, Color3{1.0f}, 1.5f}}, NoHighlight},
        LightingCase{
            "LightColours", {Light{{0.3f, 0.2f, 1.0f, 0.0f}, {0.2f, 0.4f, 0.6f}, {0.9f, 0.1f, 0.5f}}}, Colorful},
        LightingCase{
            "NoShininess", {Light{}}, {Color4{0.0f, 0.0f}, Color4{0.0f, 0.0f}, {0.1f, 0.2f, 0.3f, 0.4f}, 0.0f}},
        LightingCase{"HighlightOnly", {Light{}}, {Color4{0.0f, 0.0f}, Color4{0.0f, 0.0f}, Color4{1.0f, 0.0f}, 12.0f}},
        LightingCase{"TiltedNormal", {Light{{0.1f, 0.2f, 0.9f, 0.0f}}}, Colorful, {0.6f, 0.0f, 0.8f}},
        LightingCase{"LongNormal", {Light{{0.1f, 0.2f, 0.9f, 0.0f}}}, Colorful, {0.0f, -3.0f, 4.0f}},
        LightingCase{"ThreeLights",
            {Light{{1.0f, 2.0f, 3.0f, 0.0f}, {0.5f, 0.1f, 0.2f}, {0.1f, 0.9f, 0.3f}},
                Light{{1.0f, -0.5f, -1.0f, 1.0f}, {0.8f, 1.0f, 0.6f}, {0.5f, 0.5f, 0.0f}, 4.0f},
                Light{{-2.0f, 0.5f, -1.0f, 1.0f}, {0.3f, 0.2f, 2.0f}, {1.0f, 0.5f, 0.2f}}},
            Colorful},
        LightingCase{"NoLights", {}, Colorful}),
    [](const testing::TestParamInfo<LightingCase>& info) { return std::string{info.param.name}; });

TEST_F(PhongGLTest, DefaultState) {
    // White, lit along the viewing direction: in the middle of the picture the highlight adds another one.
    GL::Mesh mesh = square({0.0f, 0.6f, 0.8f});
    PhongGL shader;
    shader.draw(mesh);
    EXPECT_TRUE(isNear(_canvas.at(32, 32), {0.8f, 0.8f, 0.8f, 1.0f}, Tolerance)) << "matrices are identity";

    const std::vector<Light> lights{Light{}};
    _canvas.clear();
    draw(shader);
    for(const Vector2i& pixel: Pixels)
        EXPECT_TRUE(isNear(
            _canvas.at(pixel.x(), pixel.y()), lit(lights, Surface{}, pointAt(pixel), {0, 0, 1}), 5.0f * Tolerance));
}

TEST_F(PhongGLTest, EveryLightHasTheDefaults) {
    PhongGL shader{PhongGL::Configuration{}.setLightCount(3)};
    shader.setSpecularColor(Color4{0.0f, 0.0f});
    EXPECT_TRUE(isNear(drawn(shader, {0.0f, 0.6f, 0.8f}), {2.4f, 2.4f, 2.4f, 1.0f}, Tolerance));
}

TEST_F(PhongGLTest, SettersForAllLightsAtOnce) {
    PhongGL shader{PhongGL::Configuration{}.setLightCount(2)};
    const std::vector<Light> lights{Light{{0.1f, 0.2f, 1.0f, 0.0f}, {0.5f, 0.1f, 0.2f}, {0.1f, 0.9f, 0.3f}},
        Light{{1.0f, -0.5f, -1.0f, 1.0f}, {0.8f, 1.0f, 0.6f}, {0.5f, 0.5f, 0.0f}, 4.0f}};
    const Surface surface{Color4{0.0f, 0.0f}, Color4{1.0f}, Color4{1.0f, 0.0f}, 10.0f};
    shader.setShininess(10.0f)
        .setLightPositions({lights[0].position, lights[1].position})
        .setLightColors({lights[0].color, lights[1].color})
        .setLightSpecularColors({lights[0].specular, lights[1].specular})
        .setLightRanges({lights[0].range, lights[1].range});
    draw(shader);
    for(const Vector2i& pixel: Pixels)
        EXPECT_TRUE(
            isNear(_canvas.at(pixel.x(), pixel.y()), lit(lights, surface, pointAt(pixel), {0, 0, 1}), Tolerance));
}

TEST_F(PhongGLTest, NormalMatrix) {
    // A plane tilted by 45 degrees, then stretched to twice its height: its normal tilts back.
    const Matrix4 stretch = Matrix4::scaling({1.0f, 2.0f, 1.0f});
    const Vector3 normal = Vector3{0.0f, 1.0f, 1.0f}.normalized(), stretched = Vector3{0.0f, 0.5f, 1.0f}.normalized();
    PhongGL shader = shaderFor({Light{}}, NoHighlight);
    EXPECT_NEAR(drawn(shader, normal).r(), normal.z(), Tolerance);
    shader.setNormalMatrix(stretch.normalMatrix());
    EXPECT_NEAR(drawn(shader, normal).r(), stretched.z(), Tolerance);
    shader.setNormalMatrix(Matrix4::rotationX(Deg(45.0f)).normalMatrix());
    EXPECT_NEAR(drawn(shader, normal).r(), 1.0f, Tolerance);
}

TEST_F(PhongGLTest, NormalsAreInterpolatedBeforeTheyAreNormalised) {
    const Vector3 up{0.0f, 1.0f, 0.0f}, front{0.0f, 0.0f, 1.0f};
    GL::Mesh mesh =
        ConformanceShaders::mesh({{{-1.0f, -1.0f, 0.0f}, {}, up * 3.0f}, {{1.0f, -1.0f, 0.0f}, {}, up * 3.0f},
                                     {{-1.0f, 1.0f, 0.0f}, {}, front}, {{1.0f, 1.0f, 0.0f}, {}, front}},
            MeshPrimitive::TriangleStrip);
    shaderFor({Light{}}, NoHighlight).draw(mesh);
    const Float t = 20.5f / 64.0f;
    EXPECT_NEAR(_canvas.at(32, 20).r(), Vector3(0.0f, 3.0f * (1.0f - t), t).normalized().z(), Tolerance);
}

TEST_F(PhongGLTest, WithoutNormalsThereIsOnlyTheAmbientColour) {
    const Vector3 positions[]{{-1.0f, -1.0f, 0.0f}, {3.0f, -1.0f, 0.0f}, {-1.0f, 3.0f, 0.0f}};
    GL::Mesh mesh;
    mesh.setCount(3).addVertexBuffer(
        GL::Buffer{GL::Buffer::TargetHint::Array, Corrade::Containers::arrayView(positions)}, 0,
        Shaders::GenericGL3D::Position{});
    PhongGL shader;
    shader.setAmbientColor({0.1f, 0.2f, 0.3f, 0.25f}).setDiffuseColor({1.0f, 1.0f, 1.0f, 0.5f}).draw(mesh);
    EXPECT_TRUE(isNear(_canvas.at(32, 32), {0.1f, 0.2f, 0.3f, 0.75f}));
}

TEST_F(PhongGLTest, DiffuseTextureIsMultipliedWithTheDiffuseColour) {
    GL::Texture2D texels = texture({{1.0f, 0.5f, 0.25f, 1.0f}, {0.0f, 0.5f, 1.0f, 0.5f}});
    const Surface surface{{0.1f, 0.1f, 0.1f, 0.1f}, {0.5f, 0.8f, 1.0f, 0.6f}, Color4{0.0f, 0.0f}, 80.0f};
    PhongGL shader = shaderFor({Light{}}, surface, Flag::DiffuseTexture);
    shader.bindDiffuseTexture(texels);
    draw(shader);
    EXPECT_TRUE(isNear(_canvas.at(31, 10), {0.6f, 0.5f, 0.35f, 0.7f}, Tolerance));
    EXPECT_TRUE(isNear(_canvas.at(32, 10), {0.1f, 0.5f, 1.1f, 0.4f}, Tolerance));
}

TEST_F(PhongGLTest, NormalTextureIsInTangentSpace) {
    // Texels hold (n + 1)/2. Here tangent -> Y, normal -> Z, and the bitangent is their product: -X, or X where the
    // tangent's fourth component is negative.
    const Vector3 inTangentSpace = Vector3{0.6f, 0.3f, 0.5f};
    GL::Texture2D texel = texture({Color4{inTangentSpace * 0.5f + Vector3{0.5f}, 1.0f}});
    const Vector3 unit = inTangentSpace.normalized();
    for(const Float handedness: {1.0f, -1.0f}) {
        const Vector3 expected{-unit.y() * handedness, unit.x(), unit.z()};
        for(std::size_t axis = 0; axis != 3; ++axis) {
            Light light{{}};
            light.position[axis] = expected[axis] < 0.0f ? -1.0f : 1.0f;
            PhongGL shader = shaderFor({light}, NoHighlight, Flag::NormalTexture);
            shader.bindNormalTexture(texel).setTransformationMatrix(transformation()).setProjectionMatrix(projection());
            GL::Mesh mesh = square({0.0f, 0.0f, 2.0f}, 0.0f, {0.0f, 3.0f, 0.0f, handedness});
            _canvas.clear();
            shader.draw(mesh);
            EXPECT_NEAR(_canvas.at(20, 20).r(), std::abs(expected[axis]), Tolerance) << axis << ", " << handedness;
        }
    }
}

TEST_F(PhongGLTest, BothTexturesAtOnce) {
    GL::Texture2D color = texture({{0.25f, 0.5f, 1.0f, 1.0f}}), down = texture({{0.5f, 0.5f, 0.0f, 1.0f}});
    PhongGL shader =
        shaderFor({Light{{0.0f, 0.0f, -1.0f, 0.0f}}}, NoHighlight, Flag::DiffuseTexture | Flag::NormalTexture);
    shader.bindDiffuseTexture(color).bindNormalTexture(down);
    EXPECT_TRUE(isNear(drawn(shader), {0.25f, 0.5f, 1.0f, 1.0f}, Tolerance));
}

TEST_F(PhongGLTest, AlphaMaskDiscardsUpToAndIncludingTheMask) {
    PhongGL shader{PhongGL::Configuration{}.setFlags(Flag::AlphaMask)};
    const auto isDrawn = [&](Float ambient, Float diffuse) {
        shader.setAmbientColor(Color4{0.0f, ambient}).setDiffuseColor(Color4{0.0f, diffuse});
        return !(drawn(shader) == Canvas::background());
    };
    EXPECT_FALSE(isDrawn(0.25f, 0.25f)) << "a half by default";
    EXPECT_TRUE(isDrawn(0.25f, 0.26f));
    shader.setAlphaMask(0.75f);
    EXPECT_FALSE(isDrawn(0.25f, 0.5f));
    EXPECT_TRUE(isDrawn(0.3f, 0.5f));
}

TEST_F(PhongGLTest, ObjectId) {
    PhongGL shader{PhongGL::Configuration{}.setFlags(Flag::ObjectId)};
    draw(shader);
    EXPECT_EQ(_canvas.idAt(32, 32), 0u);
    _canvas.clear();
    shader.setObjectId(0xfedcba98u);
    draw(shader);
    EXPECT_EQ(_canvas.idAt(32, 32), 0xfedcba98u);
    EXPECT_EQ(_canvas.at(32, 32).a(), 1.0f);
}

TEST_F(PhongGLTest, DrawsACompiledPrimitive) {
    // A sphere that fills half of the picture: its normals are its directions, so the light from the camera falls off
    // towards the rim. The viewer looks along -Z, in clip space what is nearer has the lower Z.
    GL::Mesh sphere = MeshTools::compile(Primitives::uvSphereSolid(64, 64));
    shaderFor({Light{}}, NoHighlight)
        .setTransformationMatrix(Matrix4::scaling({0.5f, 0.5f, 0.5f}))
        .setProjectionMatrix(Matrix4::scaling({1.0f, 1.0f, -1.0f}))
        .draw(sphere);
    for(const Int x: {32, 36, 40, 43}) {
        const Vector2 place = Canvas::deviceAt(x, 32) * 2.0f;
        EXPECT_NEAR(_canvas.at(x, 32).r(), std::sqrt(1.0f - place.dot()), 0.02f) << x;
    }
    EXPECT_TRUE(_canvas.isBackground(50, 32));
}

TEST_F(PhongGLDeathTest, SettersExpectTheirFlagAndTheNumberOfLights) {
    const auto dies = [](const char* message) { return testing::HasSubstr(message); };
    GL::Texture2D empty;
    PhongGL shader{PhongGL::Configuration{}.setLightCount(2)};
    EXPECT_EXIT((shader.bindDiffuseTexture(empty)), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::bindDiffuseTexture(): the shader was not created with diffuse texture enabled\n"));
    EXPECT_EXIT((shader.bindNormalTexture(empty)), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::bindNormalTexture(): the shader was not created with normal texture enabled\n"));
    EXPECT_EXIT((shader.setAlphaMask(0.5f)), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setAlphaMask(): the shader was not created with alpha mask enabled\n"));
    EXPECT_EXIT((shader.setObjectId(1)), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setObjectId(): the shader was not created with object ID enabled\n"));
    EXPECT_EXIT((shader.setLightPositions({Vector4{}})), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setLightPositions(): expected 2 items but got 1\n"));
    EXPECT_EXIT((shader.setLightColors({Color3{}, Color3{}, Color3{}})), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setLightColors(): expected 2 items but got 3\n"));
    EXPECT_EXIT((shader.setLightSpecularColors({Color3{}})), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setLightSpecularColors(): expected 2 items but got 1\n"));
    EXPECT_EXIT((shader.setLightRanges({1.0f})), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setLightRanges(): expected 2 items but got 1\n"));
    EXPECT_EXIT((shader.setLightPosition(2, {})), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setLightPosition(): light ID 2 is out of range for 2 lights\n"));
    EXPECT_EXIT((shader.setLightColor(2, {})), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setLightColor(): light ID 2 is out of range for 2 lights\n"));
    EXPECT_EXIT((shader.setLightSpecularColor(3, {})), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setLightSpecularColor(): light ID 3 is out of range for 2 lights\n"));
    EXPECT_EXIT((shader.setLightRange(2, 1.0f)), testing::KilledBySignal(SIGABRT),
        dies("Shaders::PhongGL::setLightRange(): light ID 2 is out of range for 2 lights\n"));
}

}
}
