#include <cmath>
#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Mesh.h>
#include <Magnum/MeshTools/Compile.h>
#include <Magnum/Primitives/Cube.h>
#include <Magnum/Shaders/MeshVisualizerGL.h>
#include <Magnum/Trade/MeshData.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

namespace ConformanceShaders {
namespace {

using namespace Corrade;
using namespace Magnum;
using Shaders::MeshVisualizerGL3D;
typedef MeshVisualizerGL3D::Flag Flag;

// Corners are snapped to 1/256 of a pixel, by which a colour changes by up to 1.5/256/smoothness.
constexpr Float Tolerance = 2.0f / 255.0f;
const Color4 Blue{0.0f, 0.0f, 1.0f, 1.0f};

MeshVisualizerGL3D shaderWith(MeshVisualizerGL3D::Flags flags) {
    MeshVisualizerGL3D shader{MeshVisualizerGL3D::Configuration{}.setFlags(flags)};
    shader.setViewportSize(Vector2{Float(Canvas::Size)});
    return shader;
}

// How far out of a line that wide a distance is, from 0 to 1, with a soft band around the edge of the line.
Float outside(Float width, Float smoothness, Float distance) {
    const Float t = Math::clamp((distance - 0.5f * (width - smoothness)) / smoothness, 0.0f, 1.0f);
    return t * t * (3.0f - 2.0f * t);
}

class MeshVisualizerGLTest: public VantrelTest::GlTest {
protected:
    Canvas _canvas;
};

typedef MeshVisualizerGLTest MeshVisualizerGLDeathTest;

TEST_F(MeshVisualizerGLTest, FlagValues) {
    EXPECT_EQ(Int(Flag::Wireframe), 1);
    EXPECT_EQ(Int(Flag::NormalDirection), 512);
    EXPECT_EQ(Int(Flag::ObjectId), 4096);
    EXPECT_EQ(UnsignedInt(Flag::Wireframe | Flag::NormalDirection), 513u);
    EXPECT_TRUE(
        shaderWith(Flag::Wireframe | Flag::NormalDirection).flags() == (Flag::Wireframe | Flag::NormalDirection));
}

/* Edges */

// Its lower edge runs along the lower end of pixel row 16, the others are far away from column 32.
GL::Mesh triangleWithLowerEdge() {
    return mesh({{{-1.0f, -0.5f, 0.0f}}, {{1.0f, -0.5f, 0.0f}}, {{0.0f, 100.0f, 0.0f}}});
}

struct EdgeCase {
    const char* name;
    Float width, smoothness;
    Vector2 viewport;
    Float pixelsPerPixel;
    bool withNormals;
};

class MeshVisualizerGLEdgeTest: public MeshVisualizerGLTest, public testing::WithParamInterface<EdgeCase> {};

TEST_P(MeshVisualizerGLEdgeTest, FadesWithTheDistanceInPixels) {
    const EdgeCase& c = GetParam();
    const Color4 fill{0.9f, 0.8f, 0.1f, 0.5f}, line{0.1f, 0.2f, 0.7f, 1.0f};
    GL::Mesh triangle = triangleWithLowerEdge();
    shaderWith(c.withNormals ? Flag::Wireframe | Flag::NormalDirection : MeshVisualizerGL3D::Flags{Flag::Wireframe})
        .setViewportSize(c.viewport)
        .setColor(fill)
        .setWireframeColor(line)
        .setWireframeWidth(c.width)
        .setSmoothness(c.smoothness)
        .draw(triangle);
    EXPECT_TRUE(_canvas.isBackground(32, 15));
    for(Int y = 16; y != 30; ++y) {
        const Float distance = (Float(y) - 15.5f) * c.pixelsPerPixel;
        EXPECT_TRUE(
            isNear(_canvas.at(32, y), Math::lerp(line, fill, outside(c.width, c.smoothness, distance)), Tolerance))
            << "row " << y;
    }
}

INSTANTIATE_TEST_SUITE_P(, MeshVisualizerGLEdgeTest,
    testing::Values(EdgeCase{"Default", 1.0f, 2.0f, {64.0f, 64.0f}, 1.0f, false},
        EdgeCase{"NoWidth", 0.0f, 2.0f, {64.0f, 64.0f}, 1.0f, false},
        EdgeCase{"NoWidthVerySmooth", 0.0f, 4.0f, {64.0f, 64.0f}, 1.0f, false},
        EdgeCase{"Wide", 5.0f, 2.0f, {64.0f, 64.0f}, 1.0f, false},
        EdgeCase{"WideVerySmooth", 7.0f, 8.0f, {64.0f, 64.0f}, 1.0f, false},
        EdgeCase{"HardlySmooth", 4.0f, 0.5f, {64.0f, 64.0f}, 1.0f, false},
        EdgeCase{"HalfTheViewport", 3.0f, 2.0f, {32.0f, 32.0f}, 0.5f, false},
        EdgeCase{"TallViewport", 3.0f, 4.0f, {64.0f, 128.0f}, 2.0f, false},
        EdgeCase{"WithNormals", 5.0f, 4.0f, {64.0f, 64.0f}, 1.0f, true}),
    [](const testing::TestParamInfo<EdgeCase>& info) { return std::string{info.param.name}; });

TEST_F(MeshVisualizerGLTest, EdgesWithoutSmoothnessAreHard) {
    GL::Mesh triangle = triangleWithLowerEdge();
    shaderWith(Flag::Wireframe).setWireframeWidth(4.0f).setSmoothness(0.0f).draw(triangle);
    EXPECT_TRUE(isNear(_canvas.at(32, 16), Color4{0.0f, 1.0f}));
    EXPECT_TRUE(isNear(_canvas.at(32, 17), Color4{0.0f, 1.0f}));
    EXPECT_TRUE(isNear(_canvas.at(32, 18), Color4{1.0f}));
}

TEST_F(MeshVisualizerGLTest, EdgeDefaults) {
    GL::Mesh triangle = triangleWithLowerEdge();
    shaderWith(Flag::Wireframe).draw(triangle);
    // White, opaque black lines of one pixel, faded over two.
    EXPECT_TRUE(isNear(_canvas.at(32, 16), Color4{0.5f, 1.0f}, Tolerance));
    EXPECT_TRUE(isNear(_canvas.at(32, 17), Color4{1.0f}, Tolerance));
    EXPECT_TRUE(isNear(_canvas.at(32, 40), Color4{1.0f}));
}

TEST_F(MeshVisualizerGLTest, DistanceIsThatToTheNearestEdgeOnTheScreen) {
    // A triangle that is far from parallel to the screen: the distances are nevertheless pixels.
    const Vector3 corners[]{{-1.2f, -0.9f, -2.0f}, {2.4f, -1.1f, -5.0f}, {0.1f, 0.7f, -1.5f}};
    const Matrix4 transformation = Matrix4::translation({0.0f, 0.0f, -1.0f}) * Matrix4::rotationY(Deg(10.0f)),
                  projection = Matrix4::perspectiveProjection(Deg(60.0f), 1.0f, 0.1f, 100.0f);
    Vector2 places[3];
    for(std::size_t i = 0; i != 3; ++i)
        places[i] = Canvas::pixelOf((projection * transformation).transformPoint(corners[i]).xy());

    const Float width = 3.0f, smoothness = 4.0f;
    GL::Mesh triangle = mesh({{corners[0]}, {corners[1]}, {corners[2]}});
    shaderWith(Flag::Wireframe)
        .setTransformationMatrix(transformation)
        .setProjectionMatrix(projection)
        .setWireframeWidth(width)
        .setSmoothness(smoothness)
        .draw(triangle);
    Int inside = 0, faded = 0;
    for(Int y = 0; y != Canvas::Size; ++y) {
        for(Int x = 0; x != Canvas::Size; ++x) {
            // Counterclockwise: inside is to the left of all edges.
            Float nearest = Constants::inf();
            for(std::size_t i = 0; i != 3; ++i) {
                const Vector2 along = (places[(i + 1) % 3] - places[i]).normalized(),
                              to = Vector2{Float(x) + 0.5f, Float(y) + 0.5f} - places[i];
                nearest = Math::min(nearest, along.x() * to.y() - along.y() * to.x());
            }
            if(nearest < 0.05f) continue;
            const Float expected = outside(width, smoothness, nearest);
            EXPECT_NEAR(_canvas.at(x, y).r(), expected, Tolerance) << x << ", " << y;
            ++inside;
            faded += expected > 0.05f && expected < 0.95f;
        }
    }
    EXPECT_GT(inside, 300);
    EXPECT_GT(faded, 50);
}

TEST_F(MeshVisualizerGLTest, EveryTriangleOfACompiledPrimitiveHasItsEdges) {
    GL::Mesh cube = MeshTools::compile(Primitives::cubeSolid());
    shaderWith(Flag::Wireframe)
        .setTransformationMatrix(Matrix4::scaling({0.75f, 0.75f, -0.75f}))
        .setWireframeWidth(4.0f)
        .draw(cube);
    // The face spans the pixels 8 to 55. Outer edges, the diagonal one way or the other, and neither.
    EXPECT_TRUE(isNear(_canvas.at(8, 30), Color4{0.0f, 1.0f}, Tolerance));
    EXPECT_TRUE(isNear(_canvas.at(30, 55), Color4{0.0f, 1.0f}, Tolerance));
    EXPECT_NEAR(_canvas.at(24, 24).r() + _canvas.at(24, 39).r(), 1.0f, Tolerance);
    EXPECT_TRUE(isNear(_canvas.at(32, 16), Color4{1.0f}, Tolerance));
    EXPECT_TRUE(_canvas.isBackground(7, 30));
}

/* Normals */

// Below the middle, flat, and of a size that leaves its three corners apart: at the pixels (8, 8), (56, 8), (32, 16).
GL::Mesh triangleWithNormals(const Vector3& normal) {
    return mesh(
        {{{-0.75f, -0.75f, 0.0f}, {}, normal}, {{0.75f, -0.75f, 0.0f}, {}, normal}, {{0.0f, -0.5f, 0.0f}, {}, normal}});
}

TEST_F(MeshVisualizerGLTest, ALineAtEachCorner) {
    GL::Mesh triangle = triangleWithNormals({0.0f, 0.01f, 0.0f});
    shaderWith(Flag::NormalDirection).setLineWidth(4.0f).setLineLength(0.5f).setSmoothness(2.0f).draw(triangle);
    // As long as asked for, however long the normal is, and not longer: half a unit is 16 pixels.
    EXPECT_TRUE(isNear(_canvas.at(8, 8), Blue, Tolerance));
    EXPECT_TRUE(isNear(_canvas.at(8, 23), Blue, Tolerance));
    EXPECT_TRUE(_canvas.isBackground(8, 7));
    EXPECT_TRUE(_canvas.isBackground(8, 24));
    EXPECT_TRUE(isNear(_canvas.at(56, 15), Blue, Tolerance));
    EXPECT_TRUE(isNear(_canvas.at(32, 31), Blue, Tolerance));
    EXPECT_TRUE(_canvas.isBackground(32, 32));
    // The triangle itself is not drawn.
    EXPECT_TRUE(_canvas.isBackground(24, 10));
}

TEST_F(MeshVisualizerGLTest, LineDefaults) {
    GL::Mesh triangle = triangleWithNormals({0.0f, 1.0f, 0.0f});
    shaderWith(Flag::NormalDirection).draw(triangle);
    // One unit long, one pixel wide, faded over two: half of it is left half a pixel from the middle.
    EXPECT_TRUE(isNear(_canvas.at(8, 8), Blue * 0.5f, Tolerance));
    EXPECT_TRUE(isNear(_canvas.at(7, 39), Blue * 0.5f, Tolerance));
    EXPECT_TRUE(_canvas.isBackground(8, 40));
    EXPECT_TRUE(_canvas.isBackground(10, 20));
}

struct LineCase {
    const char* name;
    Float width, smoothness, viewport;
};

class MeshVisualizerGLLineTest: public MeshVisualizerGLTest, public testing::WithParamInterface<LineCase> {};

TEST_P(MeshVisualizerGLLineTest, FadesToTransparentBlackOnBothSides) {
    const LineCase& c = GetParam();
    GL::Mesh triangle = triangleWithNormals({0.0f, 1.0f, 0.0f});
    shaderWith(Flag::NormalDirection)
        .setViewportSize(Vector2{c.viewport})
        .setLineWidth(c.width)
        .setSmoothness(c.smoothness)
        .draw(triangle);
    const Float scale = c.viewport / Float(Canvas::Size);
    for(Int x = 20; x != 44; ++x) {
        const Float distance = std::abs(Float(x) + 0.5f - 32.0f) * scale, reach = 0.5f * (c.width + c.smoothness);
        // Whether a pixel at the very end of the band is drawn is up to the rasteriser.
        if(distance > reach + 0.01f) {
            EXPECT_TRUE(_canvas.isBackground(x, 24)) << x;
        } else if(distance < reach - 0.01f) {
            EXPECT_TRUE(isNear(_canvas.at(x, 24), Blue * (1.0f - outside(c.width, c.smoothness, distance)), Tolerance))
                << x;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, MeshVisualizerGLLineTest,
    testing::Values(LineCase{"Thin", 1.0f, 2.0f, 64.0f}, LineCase{"Wide", 5.0f, 2.0f, 64.0f},
        LineCase{"VerySmooth", 4.0f, 6.0f, 64.0f}, LineCase{"HardlySmooth", 6.0f, 0.5f, 64.0f},
        LineCase{"HalfTheViewport", 4.0f, 2.0f, 32.0f}),
    [](const testing::TestParamInfo<LineCase>& info) { return std::string{info.param.name}; });

TEST_F(MeshVisualizerGLTest, LineInPerspective) {
    // From a place in front of the camera to another one nearer to it, halfwidth in pixels on the whole way.
    const Matrix4 transformation = Matrix4::translation({0.2f, -0.1f, -4.0f}) * Matrix4::rotationX(Deg(20.0f)) *
        Matrix4::scaling({1.0f, 2.0f, 0.5f}),
                  projection = Matrix4::perspectiveProjection(Deg(60.0f), 1.0f, 0.1f, 100.0f);
    const Vector3 corner{0.4f, 0.2f, 0.3f}, normal{0.5f, 0.5f, 1.0f};
    const Vector3 from = transformation.transformPoint(corner),
                  to = from + (transformation.normalMatrix() * normal).normalized() * 1.5f;
    const Vector2 start = Canvas::pixelOf(projection.transformPoint(from).xy()),
                  end = Canvas::pixelOf(projection.transformPoint(to).xy()), along = (end - start).normalized();
    ASSERT_GT((end - start).length(), 10.0f);

    const Float width = 4.0f, smoothness = 3.0f;
    const Vector3 aside{-9.0f, 0.0f, 9.0f};
    GL::Mesh triangle = mesh({{corner, {}, normal}, {aside, {}, normal}, {aside, {}, normal}});
    shaderWith(Flag::NormalDirection)
        .setTransformationMatrix(transformation)
        .setNormalMatrix(transformation.normalMatrix())
        .setProjectionMatrix(projection)
        .setLineLength(1.5f)
        .setLineWidth(width)
        .setSmoothness(smoothness)
        .draw(triangle);
    Int inside = 0;
    for(Int y = 0; y != Canvas::Size; ++y) {
        for(Int x = 0; x != Canvas::Size; ++x) {
            const Vector2 place = Vector2{Float(x) + 0.5f, Float(y) + 0.5f} - start;
            const Float behind = Math::dot(along, place),
                        distance = std::abs(along.x() * place.y() - along.y() * place.x()),
                        // How deep in the drawn rectangle, negative outside.
                depth = Math::min(
                    Math::min(behind, (end - start).length() - behind), 0.5f * (width + smoothness) - distance);
            if(depth < -0.05f) {
                EXPECT_TRUE(_canvas.isBackground(x, y)) << x << ", " << y;
            } else if(depth > 0.05f) {
                EXPECT_TRUE(isNear(_canvas.at(x, y), Blue * (1.0f - outside(width, smoothness, distance)), Tolerance))
                    << x << ", " << y;
                ++inside;
            }
        }
    }
    EXPECT_GT(inside, 50);
}

TEST_F(MeshVisualizerGLTest, LineThatEndsBehindTheCamera) {
    // From (0.15, 0), pixel 36, past the camera on its right side: all the way to the border of the picture.
    const Vector3 normal{0.0f, 0.0f, 1.0f}, aside{-9.0f, 0.0f, -2.0f};
    GL::Mesh triangle = mesh({{{0.3f, 0.0f, -2.0f}, {}, normal}, {aside, {}, normal}, {aside, {}, normal}});
    shaderWith(Flag::NormalDirection)
        .setProjectionMatrix(Matrix4::perspectiveProjection(Deg(90.0f), 1.0f, 0.1f, 100.0f))
        .setLineLength(4.0f)
        .setLineWidth(6.0f)
        .draw(triangle);
    // How smooth it is next to its start is not relied on.
    for(Int x = 44; x != Canvas::Size; ++x) EXPECT_TRUE(isNear(_canvas.at(x, 32), Blue, Tolerance)) << x;
    for(Int x = 28; x != 36; ++x) EXPECT_TRUE(_canvas.isBackground(x, 32)) << x;
    for(Int x = 28; x != Canvas::Size; ++x) EXPECT_TRUE(_canvas.isBackground(x, 37)) << x;
}

TEST_F(MeshVisualizerGLTest, NormalMatrixTurnsTheLines) {
    GL::Mesh triangle = triangleWithNormals({0.0f, 1.0f, 0.0f});
    shaderWith(Flag::NormalDirection)
        .setLineWidth(4.0f)
        .setLineLength(0.25f)
        .setNormalMatrix(Matrix4::rotationZ(Deg(-90.0f)).normalMatrix())
        .draw(triangle);
    // To the right, 8 pixels.
    EXPECT_TRUE(isNear(_canvas.at(15, 8), Blue, Tolerance));
    EXPECT_TRUE(_canvas.isBackground(16, 8));
    EXPECT_TRUE(_canvas.isBackground(7, 8));
    EXPECT_TRUE(_canvas.isBackground(8, 14));
}

TEST_F(MeshVisualizerGLTest, LengthIsNotScaledByTheTransformation) {
    const Matrix4 transformation = Matrix4::translation({0.25f, 0.25f, 0.0f}) * Matrix4::scaling({0.5f, 0.5f, 0.5f});
    GL::Mesh triangle = triangleWithNormals({0.0f, 1.0f, 0.0f});
    shaderWith(Flag::NormalDirection)
        .setTransformationMatrix(transformation)
        .setNormalMatrix(transformation.normalMatrix())
        .setLineWidth(4.0f)
        .setLineLength(0.25f)
        .draw(triangle);
    // The first corner is at (-1/8, -1/8), pixel 28; from there 8 pixels up.
    EXPECT_TRUE(isNear(_canvas.at(28, 28), Blue, Tolerance));
    EXPECT_TRUE(isNear(_canvas.at(28, 35), Blue, Tolerance));
    EXPECT_TRUE(_canvas.isBackground(28, 36));
    EXPECT_TRUE(_canvas.isBackground(28, 27));
}

TEST_F(MeshVisualizerGLTest, LinesAreInDepth) {
    // One line goes away from the viewer, behind the triangle, the other one comes out of it.
    for(const Float side: {1.0f, -1.0f}) {
        GL::Mesh large = mesh({{{-3.0f, -3.0f, 0.0f}, {}, {1.0f, 1.0f, side}},
            {{3.0f, -3.0f, 0.0f}, {}, {0.0f, -1.0f, side}}, {{0.0f, 0.9f, 0.0f}, {}, {0.0f, -1.0f, side}}});
        _canvas.clear();
        shaderWith(Flag::Wireframe | Flag::NormalDirection).setLineWidth(4.0f).setLineLength(0.9f).draw(large);
        EXPECT_EQ(_canvas.at(32, 50).b() > 0.0f && _canvas.at(32, 50).r() == 0.0f, side < 0.0f) << side;
    }
}

TEST_F(MeshVisualizerGLTest, TogetherWithEdgesLinesAreNotSmooth) {
    const struct {
        Float wireframeWidth, smoothness, lineWidth;
    } cases[]{{1.0f, 2.0f, 3.0f}, {1.0f, 4.0f, 3.0f}, {0.0f, 2.0f, 6.0f}, {2.0f, 2.0f, 1.0f}, {5.0f, 2.0f, 4.0f}};
    for(const auto& c: cases) {
        GL::Mesh triangle = triangleWithNormals({0.0f, 1.0f, 0.0f});
        _canvas.clear();
        shaderWith(Flag::Wireframe | Flag::NormalDirection)
            .setWireframeWidth(c.wireframeWidth)
            .setSmoothness(c.smoothness)
            .setLineWidth(c.lineWidth)
            .draw(triangle);
        // As opaque as an edge is in its middle, over the whole width and no wider.
        const Color4 expected = Blue * (1.0f - outside(c.wireframeWidth, c.smoothness, 0.0f));
        for(Int x = 24; x != 40; ++x) {
            const Float distance = std::abs(Float(x) + 0.5f - 32.0f);
            if(distance < 0.5f * c.lineWidth - 0.01f) {
                EXPECT_TRUE(isNear(_canvas.at(x, 30), expected, Tolerance)) << x;
            } else if(distance > 0.5f * c.lineWidth + 0.01f) {
                EXPECT_TRUE(_canvas.isBackground(x, 30)) << x;
            }
        }
        // The triangle is there, too.
        EXPECT_FALSE(_canvas.isBackground(24, 10));
    }
}

TEST_F(MeshVisualizerGLTest, WithoutNormalsThereAreNoLines) {
    const Vector3 positions[]{{-0.75f, -0.75f, 0.0f}, {0.75f, -0.75f, 0.0f}, {0.0f, 0.75f, 0.0f}};
    GL::Mesh triangle;
    triangle.setCount(3).addVertexBuffer(GL::Buffer{GL::Buffer::TargetHint::Array, Containers::arrayView(positions)}, 0,
        Shaders::GenericGL3D::Position{});
    shaderWith(Flag::Wireframe | Flag::NormalDirection).setLineWidth(5.0f).draw(triangle);
    EXPECT_TRUE(isNear(_canvas.at(32, 20), Color4{1.0f}, Tolerance));
    // The grey of the edges, but nothing blue.
    for(Int y = 0; y < Canvas::Size; y += 3) {
        for(Int x = 0; x < Canvas::Size; x += 3) {
            const Color4 color = _canvas.at(x, y);
            EXPECT_TRUE(color == Canvas::background() || isNear(color, {color.r(), color.r(), color.r(), 1.0f}))
                << x << ", " << y << ": " << color.r() << " " << color.g() << " " << color.b();
        }
    }
}

/* Object id */

TEST_F(MeshVisualizerGLTest, ObjectIdIsAPlaceInTheColourMap) {
    const Color4 colors[]{
        {0.1f, 0.2f, 0.3f, 0.4f}, {0.5f, 0.6f, 0.7f, 0.8f}, {0.9f, 1.0f, 0.8f, 0.6f}, {0.4f, 0.2f, 0.0f, 1.0f}};
    GL::Texture2D map = texture({colors[0], colors[1], colors[2], colors[3]});
    GL::Mesh mesh = square();
    MeshVisualizerGL3D shader = shaderWith(Flag::ObjectId);
    shader.bindColorMapTexture(map);
    // By default 256 ids share the map.
    const struct { UnsignedInt id, texel; } defaults[]{{0, 0}, {63, 0}, {64, 1}, {127, 1}, {200, 3}};
    for(const auto& i: defaults) {
        _canvas.clear();
        shader.setObjectId(i.id).draw(mesh);
        EXPECT_TRUE(isNear(_canvas.at(32, 32), colors[i.texel])) << i.id;
    }

    _canvas.clear();
    shader.setColorMapTransformation(0.125f, 0.25f).setObjectId(2).setColor({0.5f, 1.0f, 0.5f, 0.5f}).draw(mesh);
    EXPECT_TRUE(isNear(_canvas.at(32, 32), {0.45f, 1.0f, 0.4f, 0.3f}));
}

TEST_F(MeshVisualizerGLTest, ObjectIdBelowTheEdges) {
    GL::Texture2D map = texture({{0.4f, 0.6f, 0.8f, 1.0f}});
    GL::Mesh triangle = triangleWithLowerEdge();
    shaderWith(Flag::ObjectId | Flag::Wireframe).bindColorMapTexture(map).draw(triangle);
    EXPECT_TRUE(isNear(_canvas.at(32, 16), {0.2f, 0.3f, 0.4f, 1.0f}, Tolerance));
    EXPECT_TRUE(isNear(_canvas.at(32, 30), {0.4f, 0.6f, 0.8f, 1.0f}));
}

/* Errors */

TEST_F(MeshVisualizerGLDeathTest, NeedsAFlag) {
    EXPECT_EXIT(MeshVisualizerGL3D{MeshVisualizerGL3D::Configuration{}}, testing::KilledBySignal(SIGABRT),
        testing::HasSubstr("Shaders::MeshVisualizerGL3D: at least one visualization feature has to be enabled\n"));
}

TEST_F(MeshVisualizerGLDeathTest, SettersExpectTheirFlag) {
    const auto dies = [](const char* setter, const char* feature) {
        return testing::HasSubstr(
            "Shaders::" + std::string{setter} + "(): the shader was not created with " + feature + " enabled\n");
    };
    const testing::KilledBySignal aborts{SIGABRT};
    GL::Texture2D empty;
    MeshVisualizerGL3D edges = shaderWith(Flag::Wireframe), normals = shaderWith(Flag::NormalDirection),
                       ids = shaderWith(Flag::ObjectId);
    EXPECT_EXIT(
        normals.setColor({}), aborts, dies("MeshVisualizerGL::setColor", "wireframe or object/vertex/primitive ID"));
    EXPECT_EXIT(normals.setWireframeColor({}), aborts, dies("MeshVisualizerGL::setWireframeColor", "wireframe"));
    EXPECT_EXIT(ids.setWireframeWidth(1.0f), aborts, dies("MeshVisualizerGL::setWireframeWidth", "wireframe"));
    EXPECT_EXIT(edges.setNormalMatrix({}), aborts, dies("MeshVisualizerGL3D::setNormalMatrix", "TBN direction"));
    EXPECT_EXIT(edges.setLineWidth(1.0f), aborts, dies("MeshVisualizerGL3D::setLineWidth", "TBN direction"));
    EXPECT_EXIT(ids.setLineLength(1.0f), aborts, dies("MeshVisualizerGL3D::setLineLength", "TBN direction"));
    EXPECT_EXIT(
        ids.setSmoothness(1.0f), aborts, dies("MeshVisualizerGL3D::setSmoothness", "wireframe or TBN direction"));
    EXPECT_EXIT((edges.setColorMapTransformation(0.0f, 1.0f)), aborts,
        dies("MeshVisualizerGL::setColorMapTransformation", "object/vertex/primitive ID"));
    EXPECT_EXIT(normals.bindColorMapTexture(empty), aborts,
        dies("MeshVisualizerGL::bindColorMapTexture", "object/vertex/primitive ID"));
    EXPECT_EXIT(edges.setObjectId(1), aborts, dies("MeshVisualizerGL::setObjectId", "object ID"));
}

}
}
