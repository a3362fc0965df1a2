#include <Corrade/Containers/ArrayView.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Mesh.h>
#include <Magnum/MeshTools/Compile.h>
#include <Magnum/Primitives/Axis.h>
#include <Magnum/Shaders/VertexColorGL.h>
#include <Magnum/Trade/MeshData.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

namespace ConformanceShaders {
namespace {

using namespace Corrade;
using namespace Magnum;

class VertexColorGLTest: public VantrelTest::GlTest {
protected:
    Canvas _canvas;
    Shaders::VertexColorGL3D _shader;
};

GL::Mesh colorfulSquare() {
    const Vector3 normal{0.0f, 0.0f, 1.0f};
    const Vector4 tangent{1.0f, 0.0f, 0.0f, 1.0f};
    return mesh({{{-1.0f, -1.0f, 0.0f}, {}, normal, tangent, {0.0f, 0.5f, 0.25f, 1.0f}},
                    {{1.0f, -1.0f, 0.0f}, {}, normal, tangent, {1.0f, 0.5f, 0.25f, 1.0f}},
                    {{-1.0f, 1.0f, 0.0f}, {}, normal, tangent, {0.0f, 0.5f, 0.25f, 0.0f}},
                    {{1.0f, 1.0f, 0.0f}, {}, normal, tangent, {1.0f, 0.5f, 0.25f, 0.0f}}},
        MeshPrimitive::TriangleStrip);
}

TEST_F(VertexColorGLTest, InterpolatesTheColoursAndAlpha) {
    GL::Mesh square = colorfulSquare();
    _shader.draw(square);
    for(const Vector2i& pixel: {Vector2i{2, 3}, {60, 3}, {31, 40}, {10, 62}})
        EXPECT_TRUE(isNear(_canvas.at(pixel.x(), pixel.y()),
            {(Float(pixel.x()) + 0.5f) / 64.0f, 0.5f, 0.25f, 1.0f - (Float(pixel.y()) + 0.5f) / 64.0f}));
}

TEST_F(VertexColorGLTest, ThreeComponentsAreOpaque) {
    const struct {
        Vector3 position;
        Color3 color;
    } vertices[]{{{-1.0f, -1.0f, 0.0f}, {0.1f, 0.2f, 0.3f}}, {{3.0f, -1.0f, 0.0f}, {0.1f, 0.2f, 0.3f}},
        {{-1.0f, 3.0f, 0.0f}, {0.1f, 0.2f, 0.3f}}};
    GL::Mesh triangle;
    triangle.setCount(3).addVertexBuffer(GL::Buffer{GL::Buffer::TargetHint::Array, Containers::arrayView(vertices)}, 0,
        Shaders::GenericGL3D::Position{}, Shaders::GenericGL3D::Color3{});
    _shader.draw(triangle);
    EXPECT_TRUE(isNear(_canvas.at(20, 20), {0.1f, 0.2f, 0.3f, 1.0f}));
}

TEST_F(VertexColorGLTest, TransformationMovesTheMesh) {
    GL::Mesh square = colorfulSquare();
    // A quarter of the size, in the upper right quarter: pixels 40 to 55.
    _shader
        .setTransformationProjectionMatrix(
            Matrix4::translation({0.5f, 0.5f, 0.0f}) * Matrix4::scaling({0.25f, 0.25f, 1.0f}))
        .draw(square);
    EXPECT_TRUE(_canvas.isBackground(39, 48));
    EXPECT_FALSE(_canvas.isBackground(40, 48));
    EXPECT_FALSE(_canvas.isBackground(55, 48));
    EXPECT_TRUE(_canvas.isBackground(56, 48));
    EXPECT_TRUE(_canvas.isBackground(48, 39));
    EXPECT_TRUE(_canvas.isBackground(48, 56));
}

TEST_F(VertexColorGLTest, DrawsACompiledPrimitive) {
    GL::Mesh axis = MeshTools::compile(Primitives::axis3D());
    EXPECT_EQ(axis.count(), 18);
    // Half a pixel up and right: the lines run through the middles of pixels.
    _shader.setTransformationProjectionMatrix(Matrix4::translation({1.0f / 64.0f, 1.0f / 64.0f, 0.0f})).draw(axis);
    EXPECT_TRUE(isNear(_canvas.at(45, 32), {1.0f, 0.0f, 0.0f, 1.0f}));
    EXPECT_TRUE(isNear(_canvas.at(32, 45), {0.0f, 1.0f, 0.0f, 1.0f}));
    EXPECT_TRUE(_canvas.isBackground(20, 20));
}

}
}
