#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Iterable.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Corrade/Utility/Algorithms.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Half.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/MeshTools/Compile.h>
#include <Magnum/MeshTools/Concatenate.h>
#include <Magnum/PixelFormat.h>
#include <Magnum/Primitives/Axis.h>
#include <Magnum/Primitives/Cube.h>
#include <Magnum/Primitives/Plane.h>
#include <Magnum/Primitives/UVSphere.h>
#include <Magnum/Shaders/FlatGL.h>
#include <Magnum/Shaders/MeshVisualizerGL.h>
#include <Magnum/Shaders/VertexColorGL.h>
#include <Magnum/Trade/MeshData.h>

#include "Expect.h"
#include "Support/OffscreenContext.h"

using namespace Corrade;
using namespace Magnum;
using namespace Magnum::Math::Literals;
using Trade::DataFlags;
using Trade::MeshAttribute;
using Trade::MeshAttributeData;
using Trade::MeshData;

namespace {

constexpr Int Size = 32;

const Color4ub Background{0, 0, 0, 0};
const Color4ub White{255, 255, 255, 255};

struct CompileTest: VantrelTest::GlTest {
    GL::Renderbuffer color;
    GL::Framebuffer framebuffer{{{}, Vector2i{Size}}};
    Image2D picture{PixelFormat::RGBA8Unorm};

    void SetUp() override {
        color.setStorage(GL::RenderbufferFormat::RGBA8, Vector2i{Size});
        framebuffer.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, color);
        GL::Renderer::setClearColor(0x00000000_rgbaf);
        framebuffer.clear(GL::FramebufferClear::Color).bind();
    }

    // From -1 to 1 in both directions, upwards.
    Color4ub at(Float x, Float y) {
        if(!picture.size().product()) framebuffer.read(framebuffer.viewport(), picture);
        const auto pixels = picture.pixels<Color4ub>();
        const auto index = [](Float v) { return std::size_t((v + 1.0f) * 0.5f * Size); };
        return pixels[index(y)][index(x)];
    }

    std::size_t drawnPixels() {
        at(0.0f, 0.0f);
        std::size_t count = 0;
        for(const auto row: picture.pixels<Color4ub>())
            for(const Color4ub& pixel: row) count += pixel != Background;
        return count;
    }
};

// What the vertex array object says about a location.
struct Binding {
    bool enabled, normalized, integral;
    Int components;
    GLenum type;
};

Binding binding(GL::Mesh& mesh, GLuint location) {
    const auto get = [&](GLenum name) {
        GLint value = 0;
        glGetVertexAttribiv(location, name, &value);
        return value;
    };
    glBindVertexArray(mesh.id());
    const Binding out{get(GL_VERTEX_ATTRIB_ARRAY_ENABLED) != 0, get(GL_VERTEX_ATTRIB_ARRAY_NORMALIZED) != 0,
        get(GL_VERTEX_ATTRIB_ARRAY_INTEGER) != 0, get(GL_VERTEX_ATTRIB_ARRAY_SIZE),
        GLenum(get(GL_VERTEX_ATTRIB_ARRAY_TYPE))};
    glBindVertexArray(0);
    return out;
}

std::vector<int> enabledLocations(GL::Mesh& mesh) {
    std::vector<int> out;
    for(int i = 0; i != 16; ++i)
        if(binding(mesh, i).enabled) out.push_back(i);
    return out;
}

const char Zeros[400]{};

MeshAttributeData attribute(
    MeshAttribute name, VertexFormat format, std::size_t offset, UnsignedShort arraySize = 0, Int morphTarget = -1) {
    return MeshAttributeData{name, format, offset, 3, 100, arraySize, morphTarget};
}

GL::Mesh compiled(std::initializer_list<MeshAttributeData> attributes) {
    return MeshTools::compile(MeshData{MeshPrimitive::Triangles, DataFlags{}, Zeros, attributes});
}

std::string warnings(std::initializer_list<MeshAttributeData> attributes) {
    Containers::String out;
    {
        Warning redirected{&out};
        compiled(attributes);
    }
    return {out.data(), out.size()};
}

TEST_F(CompileTest, countsAndPrimitive) {
    const GL::Mesh axis = MeshTools::compile(Primitives::axis3D());
    EXPECT_EQ(axis.primitive(), GL::MeshPrimitive::Lines);
    EXPECT_EQ(axis.count(), 18);
    EXPECT_TRUE(axis.isIndexed());
    EXPECT_EQ(axis.indexType(), GL::MeshIndexType::UnsignedShort);
    const GL::Mesh sphere = MeshTools::compile(Primitives::uvSphereSolid(8, 8));
    EXPECT_EQ(sphere.primitive(), GL::MeshPrimitive::Triangles);
    EXPECT_EQ(sphere.count(), 336);
    EXPECT_EQ(sphere.indexType(), GL::MeshIndexType::UnsignedInt);
    const GL::Mesh plane = MeshTools::compile(Primitives::planeSolid());
    EXPECT_EQ(plane.primitive(), GL::MeshPrimitive::TriangleStrip);
    EXPECT_EQ(plane.count(), 4);
    EXPECT_FALSE(plane.isIndexed());
    EXPECT_EQ(MeshTools::compile(MeshData{MeshPrimitive::Triangles, DataFlags{}, nullptr, {}, 3}).count(), 3);
}

TEST_F(CompileTest, locations) {
    GL::Mesh mesh = compiled({attribute(MeshAttribute::Position, VertexFormat::Vector3, 0),
        attribute(MeshAttribute::TextureCoordinates, VertexFormat::Vector2usNormalized, 12),
        attribute(MeshAttribute::Color, VertexFormat::Vector4ubNormalized, 16),
        attribute(MeshAttribute::Tangent, VertexFormat::Vector4, 20),
        attribute(MeshAttribute::Bitangent, VertexFormat::Vector3h, 36),
        attribute(MeshAttribute::Normal, VertexFormat::Vector3sNormalized, 44),
        attribute(MeshAttribute::JointIds, VertexFormat::UnsignedByte, 50, 4),
        attribute(MeshAttribute::Weights, VertexFormat::Float, 56, 4)});
    EXPECT_THAT(enabledLocations(mesh), testing::ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
    const struct {
        GLuint location;
        Int components;
        GLenum type;
        bool normalized, integral;
    } expected[]{{0, 3, GL_FLOAT, false, false}, {1, 2, GL_UNSIGNED_SHORT, true, false},
        {2, 4, GL_UNSIGNED_BYTE, true, false}, {3, 4, GL_FLOAT, false, false}, {4, 3, GL_HALF_FLOAT, false, false},
        {5, 3, GL_SHORT, true, false}, {6, 4, GL_UNSIGNED_BYTE, false, true}, {7, 4, GL_FLOAT, false, false}};
    for(const auto& i: expected) {
        SCOPED_TRACE(i.location);
        const Binding actual = binding(mesh, i.location);
        EXPECT_EQ(actual.components, i.components);
        EXPECT_EQ(actual.type, i.type);
        EXPECT_EQ(actual.normalized, i.normalized);
        EXPECT_EQ(actual.integral, i.integral);
    }
}

TEST_F(CompileTest, fewerComponents) {
    GL::Mesh mesh = compiled({attribute(MeshAttribute::Position, VertexFormat::Vector2, 0),
        attribute(MeshAttribute::Color, VertexFormat::Vector3, 12),
        attribute(MeshAttribute::Tangent, VertexFormat::Vector3, 24),
        attribute(MeshAttribute::ObjectId, VertexFormat::UnsignedShort, 36)});
    EXPECT_THAT(enabledLocations(mesh), testing::ElementsAre(0, 2, 3, 4));
    EXPECT_EQ(binding(mesh, 0).components, 2);
    EXPECT_EQ(binding(mesh, 2).components, 3);
    EXPECT_EQ(binding(mesh, 3).components, 3);
    EXPECT_TRUE(binding(mesh, 4).integral);
    EXPECT_EQ(binding(mesh, 4).type, GLenum(GL_UNSIGNED_SHORT));
}

TEST_F(CompileTest, twoSetsOfJoints) {
    GL::Mesh eight = compiled({attribute(MeshAttribute::JointIds, VertexFormat::UnsignedByte, 0, 6),
        attribute(MeshAttribute::Weights, VertexFormat::UnsignedByteNormalized, 8, 6)});
    EXPECT_THAT(enabledLocations(eight), testing::ElementsAre(6, 7, 10, 11));
    EXPECT_EQ(binding(eight, 6).components, 4);
    EXPECT_EQ(binding(eight, 10).components, 2);
    EXPECT_TRUE(binding(eight, 10).integral);
    EXPECT_TRUE(binding(eight, 11).normalized);
    GL::Mesh separate = compiled({attribute(MeshAttribute::JointIds, VertexFormat::UnsignedByte, 0, 4),
        attribute(MeshAttribute::Weights, VertexFormat::Float, 8, 4),
        attribute(MeshAttribute::JointIds, VertexFormat::UnsignedShort, 30, 2),
        attribute(MeshAttribute::Weights, VertexFormat::Half, 40, 2)});
    EXPECT_THAT(enabledLocations(separate), testing::ElementsAre(6, 7, 10, 11));
    EXPECT_EQ(binding(separate, 10).type, GLenum(GL_UNSIGNED_SHORT));
    EXPECT_EQ(binding(separate, 11).type, GLenum(GL_HALF_FLOAT));
}

TEST_F(CompileTest, warnings) {
    const MeshAttributeData position = attribute(MeshAttribute::Position, VertexFormat::Vector3, 0);
    EXPECT_EQ(warnings({position}), "");
    EXPECT_EQ(warnings({position, attribute(Trade::meshAttributeCustom(5), VertexFormat::Vector3, 12)}),
        "MeshTools::compile(): ignoring unknown/unsupported attribute Trade::MeshAttribute::Custom(5)\n");
    EXPECT_EQ(warnings({position, attribute(MeshAttribute::Color, VertexFormat::Vector3, 12),
                  attribute(MeshAttribute::Color, VertexFormat::Vector3, 24)}),
        "MeshTools::compile(): ignoring Trade::MeshAttribute::Color 1 as its binding slot is already occupied by "
        "Trade::MeshAttribute::Color 0\n");
    EXPECT_EQ(warnings({attribute(MeshAttribute::ObjectId, VertexFormat::UnsignedInt, 0),
                  attribute(MeshAttribute::Bitangent, VertexFormat::Vector3, 12)}),
        "MeshTools::compile(): ignoring Trade::MeshAttribute::Bitangent 0 as its binding slot is already occupied by "
        "Trade::MeshAttribute::ObjectId 0\n");
    EXPECT_EQ(warnings({position, attribute(MeshAttribute::Position, VertexFormat::Vector3, 12, 0, 1),
                  attribute(MeshAttribute::Normal, VertexFormat::Vector3, 12, 0, 3)}),
        "MeshTools::compile(): ignoring 2 morph target attributes\n");
    EXPECT_EQ(warnings({attribute(MeshAttribute::JointIds, VertexFormat::UnsignedByte, 0, 10),
                  attribute(MeshAttribute::Weights, VertexFormat::UnsignedByteNormalized, 10, 10)}),
        "MeshTools::compile(): ignoring remaining 2 components of joint ID / weights attribute 0, only two sets are "
        "supported at most\n");
}

TEST_F(CompileTest, stridesOfGl) {
    const UnsignedShort indices[4]{};
    EXPECT_ABORT(MeshTools::compile(MeshData(MeshPrimitive::Triangles, DataFlags{}, indices,
                     Trade::MeshIndexData{Containers::stridedArrayView(indices).every(2)}, DataFlags{}, Zeros,
                     {attribute(MeshAttribute::Position, VertexFormat::Vector3, 0)})),
        "MeshTools::compile(): MeshIndexType::UnsignedShort with stride of 4 bytes isn't supported by OpenGL");
    EXPECT_ABORT(MeshTools::compile(MeshData(MeshPrimitive::Triangles, DataFlags{}, Zeros,
                     {MeshAttributeData(MeshAttribute::Position, VertexFormat::Vector3, 100, 2, -20)})),
        "MeshTools::compile(): Trade::MeshAttribute::Position stride of -20 bytes isn't supported by OpenGL");
}

TEST_F(CompileTest, flat) {
    GL::Mesh mesh = MeshTools::compile(Primitives::planeSolid());
    Shaders::FlatGL3D{}.setTransformationProjectionMatrix(Matrix4::scaling({0.5f, 0.25f, 1.0f})).draw(mesh);
    EXPECT_EQ(at(0.0f, 0.0f), White);
    EXPECT_EQ(at(0.45f, 0.2f), White);
    EXPECT_EQ(at(0.55f, 0.0f), Background);
    EXPECT_EQ(at(0.0f, 0.3f), Background);
    EXPECT_EQ(drawnPixels(), std::size_t(Size / 2 * Size / 4));
}

// The mesh outlives the data that it was made of, and moves.
TEST_F(CompileTest, ownsItsBuffers) {
    GL::Mesh mesh{NoCreate};
    {
        GL::Mesh made = MeshTools::compile(Primitives::cubeSolid());
        mesh = Utility::move(made);
    }
    Shaders::FlatGL3D{}.setTransformationProjectionMatrix(Matrix4::scaling(Vector3{0.5f})).draw(mesh);
    EXPECT_EQ(drawnPixels(), std::size_t(Size / 2 * Size / 2));
}

TEST_F(CompileTest, vertexColors) {
    GL::Mesh mesh = MeshTools::compile(Primitives::axis3D());
    Shaders::VertexColorGL3D{}.setTransformationProjectionMatrix(Matrix4::translation({1e-3f, 1e-3f, 0})).draw(mesh);
    EXPECT_EQ(at(0.5f, 0.001f), (Color4ub{255, 0, 0, 255}));
    EXPECT_EQ(at(0.001f, 0.5f), (Color4ub{0, 255, 0, 255}));
    EXPECT_EQ(at(-0.5f, 0.001f), Background);
    EXPECT_EQ(at(0.5f, 0.5f), Background);
}

TEST_F(CompileTest, packedFormatsIndicesAndOffset) {
    // A triangle over the right half, in shorts, the first vertex unused, one byte colours after all positions.
    struct {
        Short positions[4][4]{{}, {0, -32767, 0, 0}, {32767, 0, 0, 0}, {0, 32767, 0, 0}};
        Color4ub colors[4]{{}, {0, 255, 255, 255}, {0, 255, 255, 255}, {0, 255, 255, 255}};
    } vertices;
    const UnsignedByte indices[]{9, 1, 2, 3};
    const auto bytes = Containers::ArrayView<const void>{&vertices, sizeof(vertices)};
    GL::Mesh mesh = MeshTools::compile(MeshData{MeshPrimitive::Triangles, DataFlags{}, indices,
        Trade::MeshIndexData{MeshIndexType::UnsignedByte, Containers::arrayView(indices).exceptPrefix(1)}, DataFlags{},
        bytes,
        {MeshAttributeData{MeshAttribute::Position, VertexFormat::Vector3sNormalized, 0, 4, 8},
            MeshAttributeData{MeshAttribute::Color, VertexFormat::Vector4ubNormalized, 32, 4, 4}}});
    Shaders::VertexColorGL3D{}.draw(mesh);
    EXPECT_EQ(at(0.3f, 0.0f), (Color4ub{0, 255, 255, 255}));
    EXPECT_EQ(at(-0.3f, 0.0f), Background);
    EXPECT_EQ(at(0.9f, 0.9f), Background);
}

TEST_F(CompileTest, concatenated) {
    Trade::MeshData left = Primitives::uvSphereSolid(8, 8);
    for(Vector3& position: left.mutableAttribute<Vector3>(MeshAttribute::Position))
        position = position * 0.25f - Vector3{0.5f, 0.0f, 0.0f};
    Trade::MeshData right = Primitives::uvSphereSolid(8, 8);
    for(Vector3& position: right.mutableAttribute<Vector3>(MeshAttribute::Position))
        position = position * 0.25f + Vector3{0.5f, 0.0f, 0.0f};
    GL::Mesh mesh = MeshTools::compile(MeshTools::concatenate({left, right}));
    EXPECT_EQ(mesh.count(), 672);
    Shaders::FlatGL3D{}.draw(mesh);
    EXPECT_EQ(at(-0.5f, 0.0f), White);
    EXPECT_EQ(at(0.5f, 0.0f), White);
    EXPECT_EQ(at(0.0f, 0.0f), Background);
}

TEST_F(CompileTest, meshVisualizer) {
    GL::Mesh mesh = MeshTools::compile(Primitives::uvSphereSolid(8, 8));
    Shaders::MeshVisualizerGL3D shader{Shaders::MeshVisualizerGL3D::Configuration{}.setFlags(
        Shaders::MeshVisualizerGL3D::Flag::Wireframe | Shaders::MeshVisualizerGL3D::Flag::NormalDirection)};
    shader.setViewportSize(Vector2{Size})
        .setProjectionMatrix(Matrix4::orthographicProjection({2.0f, 2.0f}, -2.0f, 2.0f))
        .setTransformationMatrix(Matrix4::scaling(Vector3{0.5f}))
        .setColor(0xff0000ff_rgbaf)
        .setLineLength(0.25f)
        .draw(mesh);
    // The sphere, and normals that stick out of it by half its radius and no further.
    EXPECT_NE(at(0.1f, 0.1f), Background);
    std::size_t normals = 0;
    for(Int y = 0; y != Size; ++y) {
        for(Int x = 0; x != Size; ++x) {
            const Vector2 point = (Vector2(Vector2i{x, y}) + Vector2{0.5f}) * (2.0f / Size) - Vector2{1.0f};
            const Color4ub pixel = at(point.x(), point.y());
            if(point.length() > 0.55f && point.length() < 0.75f) normals += pixel.b() > 200 && pixel.r() < 50;
            if(point.length() > 0.85f) {
                EXPECT_EQ(pixel, Background);
            }
        }
    }
    EXPECT_GT(normals, 30u);
}

}
