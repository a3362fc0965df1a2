#include <Magnum/GL/Texture.h>
#include <Magnum/Math/Matrix3.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Mesh.h>
#include <Magnum/MeshTools/Compile.h>
#include <Magnum/Primitives/Cube.h>
#include <Magnum/Shaders/FlatGL.h>
#include <Magnum/Trade/MeshData.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

namespace ConformanceShaders {
namespace {

using namespace Magnum;
using Shaders::FlatGL3D;
typedef FlatGL3D::Flag Flag;

class FlatGLTest: public VantrelTest::GlTest {
protected:
    Canvas _canvas;
};

typedef FlatGLTest FlatGLDeathTest;

FlatGL3D shaderWith(FlatGL3D::Flags flags) { return FlatGL3D{FlatGL3D::Configuration{}.setFlags(flags)}; }

TEST_F(FlatGLTest, FlagValues) {
    EXPECT_EQ(Int(Flag::Textured), 1);
    EXPECT_EQ(Int(Flag::AlphaMask), 2);
    EXPECT_EQ(Int(Flag::VertexColor), 4);
    EXPECT_EQ(Int(Flag::TextureTransformation), 8);
    EXPECT_EQ(Int(Flag::ObjectId), 16);
    EXPECT_TRUE(FlatGL3D{}.flags() == FlatGL3D::Flags{});
    EXPECT_TRUE(shaderWith(Flag::Textured | Flag::ObjectId).flags() == (Flag::Textured | Flag::ObjectId));
}

TEST_F(FlatGLTest, WhiteAndUntransformedByDefault) {
    GL::Mesh mesh = square();
    FlatGL3D{}.draw(mesh);
    for(const Vector2i& pixel: {Vector2i{0, 0}, {63, 63}, {0, 63}, {30, 20}})
        EXPECT_TRUE(isNear(_canvas.at(pixel.x(), pixel.y()), Color4{1.0f}, 0.0f));
}

TEST_F(FlatGLTest, ColourIsWrittenAsItIs) {
    GL::Mesh mesh = square();
    FlatGL3D{}.setColor({0.1f, 0.7f, 1.5f, 0.3f}).draw(mesh);
    EXPECT_TRUE(isNear(_canvas.at(5, 50), {0.1f, 0.7f, 1.5f, 0.3f}, 0.0f));
}

TEST_F(FlatGLTest, TransformationIsToClipSpace) {
    GL::Mesh mesh = square({0.0f, 0.0f, 1.0f}, -3.0f);
    // 90 degrees: at a distance of 3 the square, one to each side, spans a third of the picture to each side.
    FlatGL3D{}
        .setTransformationProjectionMatrix(Matrix4::perspectiveProjection(Deg(90.0f), 1.0f, 0.1f, 10.0f))
        .draw(mesh);
    EXPECT_TRUE(_canvas.isBackground(20, 32));
    EXPECT_FALSE(_canvas.isBackground(21, 32));
    EXPECT_FALSE(_canvas.isBackground(42, 32));
    EXPECT_TRUE(_canvas.isBackground(43, 32));
    EXPECT_TRUE(_canvas.isBackground(32, 20));
}

TEST_F(FlatGLTest, TextureIsMultipliedWithTheColour) {
    GL::Texture2D texels = texture({{1.0f, 0.5f, 0.25f, 1.0f}, {0.0f, 0.5f, 1.0f, 0.5f}});
    GL::Mesh mesh = square();
    shaderWith(Flag::Textured).bindTexture(texels).setColor({0.5f, 0.8f, 1.0f, 0.6f}).draw(mesh);
    EXPECT_TRUE(isNear(_canvas.at(31, 10), {0.5f, 0.4f, 0.25f, 0.6f}));
    EXPECT_TRUE(isNear(_canvas.at(32, 10), {0.0f, 0.4f, 1.0f, 0.3f}));
}

TEST_F(FlatGLTest, TextureMatrixTransformsTheCoordinates) {
    const Color4 left{1.0f, 0.0f, 0.0f, 1.0f}, right{0.0f, 1.0f, 0.0f, 1.0f};
    GL::Texture2D texels = texture({left, right});
    GL::Mesh mesh = square();
    FlatGL3D shader = shaderWith(Flag::Textured | Flag::TextureTransformation);
    shader.bindTexture(texels).draw(mesh);
    EXPECT_TRUE(isNear(_canvas.at(16, 32), left));
    EXPECT_TRUE(isNear(_canvas.at(48, 32), right));

    // Mirrored, then moved back: 1 - u.
    _canvas.clear();
    shader.setTextureMatrix({{-1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, {1.0f, 0.0f, 1.0f}}).draw(mesh);
    EXPECT_TRUE(isNear(_canvas.at(16, 32), right));
    EXPECT_TRUE(isNear(_canvas.at(48, 32), left));

    // From 3/8 to 7/8: the border between the texels, at 1/2, comes to lie at a quarter of the square.
    _canvas.clear();
    shader.setTextureMatrix({{0.5f, 0.0f, 0.0f}, {0.0f, 0.5f, 0.0f}, {0.375f, 0.0f, 1.0f}}).draw(mesh);
    EXPECT_TRUE(isNear(_canvas.at(15, 32), left));
    EXPECT_TRUE(isNear(_canvas.at(16, 32), right));
}

TEST_F(FlatGLTest, AlphaMaskDiscardsUpToAndIncludingTheMask) {
    GL::Mesh mesh = square();
    FlatGL3D shader = shaderWith(Flag::AlphaMask);
    const auto drawn = [&](Float alpha) {
        _canvas.clear();
        shader.setColor({1.0f, 1.0f, 1.0f, alpha}).draw(mesh);
        return !_canvas.isBackground(32, 32);
    };
    EXPECT_FALSE(drawn(0.5f));
    EXPECT_TRUE(drawn(0.50001f));
    shader.setAlphaMask(0.75f);
    EXPECT_FALSE(drawn(0.74f));
    EXPECT_FALSE(drawn(0.75f));
    EXPECT_TRUE(drawn(0.76f));
    shader.setAlphaMask(0.0f);
    EXPECT_FALSE(drawn(0.0f));
    EXPECT_TRUE(drawn(0.01f));
}

TEST_F(FlatGLTest, AlphaMaskIsAboutTheFinalAlpha) {
    GL::Texture2D texels = texture({Color4{1.0f, 0.5f}, Color4{1.0f, 1.0f}});
    GL::Mesh mesh = square();
    shaderWith(Flag::Textured | Flag::AlphaMask)
        .bindTexture(texels)
        .setAlphaMask(0.4f)
        .setColor({1.0f, 1.0f, 1.0f, 0.7f})
        .draw(mesh);
    EXPECT_TRUE(_canvas.isBackground(16, 32));
    EXPECT_TRUE(isNear(_canvas.at(48, 32), {1.0f, 1.0f, 1.0f, 0.7f}));
}

TEST_F(FlatGLTest, VertexColourIsMultipliedWithTheColour) {
    const Color4 color{0.2f, 0.4f, 0.6f, 0.8f};
    const Vector3 normal{0.0f, 0.0f, 1.0f};
    const Vector4 tangent;
    GL::Mesh triangle = mesh({{{-1.0f, -1.0f, 0.0f}, {}, normal, tangent, color},
        {{3.0f, -1.0f, 0.0f}, {}, normal, tangent, color}, {{-1.0f, 3.0f, 0.0f}, {}, normal, tangent, color}});
    shaderWith(Flag::VertexColor).setColor({0.5f, 1.0f, 2.0f, 0.5f}).draw(triangle);
    EXPECT_TRUE(isNear(_canvas.at(32, 32), {0.1f, 0.4f, 1.2f, 0.4f}));

    // Not looked at without the flag.
    _canvas.clear();
    FlatGL3D{}.draw(triangle);
    EXPECT_TRUE(isNear(_canvas.at(32, 32), Color4{1.0f}));
}

TEST_F(FlatGLTest, ObjectId) {
    GL::Mesh mesh = square();
    FlatGL3D shader = shaderWith(Flag::ObjectId);
    shader.draw(mesh);
    EXPECT_EQ(_canvas.idAt(32, 32), 0u);
    _canvas.clear();
    shader.setObjectId(0xfedcba98u).setColor({0.5f, 0.5f, 0.5f, 0.5f}).draw(mesh);
    EXPECT_EQ(_canvas.idAt(32, 32), 0xfedcba98u);
    EXPECT_TRUE(isNear(_canvas.at(32, 32), {0.5f, 0.5f, 0.5f, 0.5f}));
}

TEST_F(FlatGLTest, DrawsACompiledPrimitive) {
    GL::Mesh cube = MeshTools::compile(Primitives::cubeSolid());
    FlatGL3D{}
        .setTransformationProjectionMatrix(Matrix4::scaling({0.5f, 0.25f, 0.5f}))
        .setColor({0.1f, 0.2f, 0.3f, 0.4f})
        .draw(cube);
    EXPECT_TRUE(isNear(_canvas.at(16, 24), {0.1f, 0.2f, 0.3f, 0.4f}));
    EXPECT_TRUE(isNear(_canvas.at(47, 39), {0.1f, 0.2f, 0.3f, 0.4f}));
    EXPECT_TRUE(_canvas.isBackground(15, 32));
    EXPECT_TRUE(_canvas.isBackground(48, 32));
    EXPECT_TRUE(_canvas.isBackground(32, 40));
}

TEST_F(FlatGLDeathTest, SettersExpectTheirFlag) {
    const auto dies = [](const char* message) { return testing::HasSubstr(message); };
    GL::Texture2D empty;
    FlatGL3D shader;
    EXPECT_EXIT((shader.bindTexture(empty)), testing::KilledBySignal(SIGABRT),
        dies("Shaders::FlatGL::bindTexture(): the shader was not created with texturing enabled\n"));
    EXPECT_EXIT((shader.setTextureMatrix({})), testing::KilledBySignal(SIGABRT),
        dies("Shaders::FlatGL::setTextureMatrix(): the shader was not created with texture transformation enabled\n"));
    EXPECT_EXIT((shader.setAlphaMask(0.5f)), testing::KilledBySignal(SIGABRT),
        dies("Shaders::FlatGL::setAlphaMask(): the shader was not created with alpha mask enabled\n"));
    EXPECT_EXIT((shader.setObjectId(1)), testing::KilledBySignal(SIGABRT),
        dies("Shaders::FlatGL::setObjectId(): the shader was not created with object ID enabled\n"));
}

TEST_F(FlatGLDeathTest, TextureTransformationNeedsATexture) {
    EXPECT_EXIT(shaderWith(Flag::TextureTransformation), testing::KilledBySignal(SIGABRT),
        testing::HasSubstr("Shaders::FlatGL: texture transformation enabled but the shader is not textured\n"));
}

}
}
