#include <sstream>
#include <string>

#include <Corrade/Containers/Iterable.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Attribute.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/GL/MeshView.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Mesh.h>
#include <Magnum/VertexFormat.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

using namespace Conformance;

namespace {

using testing::HasSubstr;
using testing::KilledBySignal;

typedef GL::Attribute<0, Float> Column;
typedef GL::Attribute<1, Float> InstanceColumn;

// A mesh of points draws a pixel in each column that a vertex names: 'x' for the first instance, 'y' for the second.
struct MeshTest: VantrelTest::GlTest {
    static constexpr int Width = 16;

    std::string draw(GL::Mesh& mesh) {
        program().draw(mesh);
        return picture();
    }
    std::string draw(GL::MeshView view) {
        program().draw(view);
        return picture();
    }

    Program& program() { return _program; }

    std::string picture() {
        std::string result;
        for(const std::uint32_t pixel: _canvas.pixels())
            result += pixel == 0 ? '.' : pixel == 0xff0000ff ? 'x' : pixel == 0x00ff00ff ? 'y' : '?';
        _canvas.framebuffer.clearColor(0, Color4{0.0f, 0.0f});
        return result;
    }

private:
    Canvas _canvas{{Width, 1}};
    Program _program{"layout(location = 0) in float column;\n"
                     "layout(location = 1) in float instanceColumn;\n"
                     "flat out int instance;\n"
                     "void main() {\n"
                     "    gl_Position = vec4((column + instanceColumn + 0.5)/8.0 - 1.0, 0.0, 0.0, 1.0);\n"
                     "    instance = gl_InstanceID;\n"
                     "}\n",
        "flat in int instance;\n"
        "out vec4 color;\n"
        "void main() { color = instance == 0 ? vec4(1.0, 0.0, 0.0, 1.0) : vec4(0.0, 1.0, 0.0, 1.0); }\n"};
};

GL::Buffer columns() {
    return GL::Buffer{GL::Buffer::TargetHint::Array, {0.0f, 1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f, 7.0f}};
}

template<class T> GL::Buffer indices() {
    return GL::Buffer{GL::Buffer::TargetHint::ElementArray, {T(9), T(9), T(0), T(1), T(2), T(3), T(4), T(5), T(6)}};
}

// Two indices from an index buffer whose first two are not to be used.
GL::Mesh indexedMesh() {
    GL::Mesh mesh{MeshPrimitive::Points};
    mesh.addVertexBuffer(columns(), 0, Column{})
        .setIndexBuffer(indices<UnsignedShort>(), 4, MeshIndexType::UnsignedShort)
        .setCount(2);
    return mesh;
}

TEST_F(MeshTest, defaults) {
    GL::Mesh mesh;
    EXPECT_TRUE(glIsVertexArray(mesh.id()));
    EXPECT_EQ(mesh.primitive(), GL::MeshPrimitive::Triangles);
    EXPECT_EQ(mesh.count(), 0);
    EXPECT_EQ(mesh.baseVertex(), 0);
    EXPECT_EQ(mesh.instanceCount(), 1);
    EXPECT_EQ(mesh.baseInstance(), 0u);
    EXPECT_FALSE(mesh.isIndexed());

    GL::MeshView view{mesh};
    EXPECT_EQ(view.count(), 0);
    EXPECT_EQ(view.baseVertex(), 0);
    EXPECT_EQ(view.instanceCount(), 1);
    EXPECT_EQ(view.baseInstance(), 0u);
}

TEST_F(MeshTest, primitives) {
    const struct {
        MeshPrimitive generic;
        GL::MeshPrimitive expected;
        GLenum value;
    } rows[]{{MeshPrimitive::Points, GL::MeshPrimitive::Points, GL_POINTS},
        {MeshPrimitive::Lines, GL::MeshPrimitive::Lines, GL_LINES},
        {MeshPrimitive::LineLoop, GL::MeshPrimitive::LineLoop, GL_LINE_LOOP},
        {MeshPrimitive::LineStrip, GL::MeshPrimitive::LineStrip, GL_LINE_STRIP},
        {MeshPrimitive::Triangles, GL::MeshPrimitive::Triangles, GL_TRIANGLES},
        {MeshPrimitive::TriangleStrip, GL::MeshPrimitive::TriangleStrip, GL_TRIANGLE_STRIP},
        {MeshPrimitive::TriangleFan, GL::MeshPrimitive::TriangleFan, GL_TRIANGLE_FAN}};
    for(const auto& row: rows) {
        EXPECT_EQ(GL::Mesh{row.generic}.primitive(), row.expected);
        EXPECT_EQ(GL::Mesh{}.setPrimitive(row.generic).primitive(), row.expected);
        EXPECT_EQ(GL::Mesh{}.setPrimitive(row.expected).primitive(), row.expected);
        EXPECT_EQ(GLenum(row.expected), row.value);
    }
    EXPECT_EXIT(GL::Mesh{MeshPrimitive(0)}, KilledBySignal(SIGABRT),
        HasSubstr("GL::meshPrimitive(): invalid primitive MeshPrimitive(0x0)"));
    EXPECT_EXIT(GL::Mesh{MeshPrimitive::Instances}, KilledBySignal(SIGABRT),
        HasSubstr("GL::meshPrimitive(): unsupported primitive MeshPrimitive::Instances"));
}

TEST_F(MeshTest, moves) {
    GL::Mesh mesh = indexedMesh();
    const UnsignedInt id = mesh.id();
    {
        GL::Mesh moved{std::move(mesh)};
        EXPECT_EQ(mesh.id(), 0u);
        EXPECT_EQ(moved.id(), id);
        EXPECT_EQ(draw(moved), "xx..............");
        GL::Mesh assigned{NoCreate};
        assigned = std::move(moved);
        EXPECT_EQ(moved.id(), 0u);
        EXPECT_EQ(draw(assigned), "xx..............");
    }
    EXPECT_FALSE(glIsVertexArray(id));
}

TEST_F(MeshTest, label) {
    GL::Mesh mesh;
    EXPECT_EQ(&mesh.setLabel("grid"), &mesh);
    const bool supported = GL::Context::current().isExtensionSupported<GL::Extensions::KHR::debug>();
    EXPECT_STREQ(mesh.label().data(), supported ? "grid" : "");
}

TEST_F(MeshTest, buffersAreOwnedOrNot) {
    GL::Buffer own = columns();
    GL::Buffer borrowed{GL::Buffer::TargetHint::Array, {4.0f, 4.0f}};
    const UnsignedInt ownId = own.id();
    const UnsignedInt borrowedId = borrowed.id();
    {
        GL::Mesh mesh{MeshPrimitive::Points};
        mesh.addVertexBuffer(std::move(own), 0, Column{}).addVertexBuffer(borrowed, 0, InstanceColumn{}).setCount(2);
        EXPECT_EQ(own.id(), 0u);
        EXPECT_EQ(borrowed.id(), borrowedId);
        EXPECT_EQ(draw(mesh), "....xx..........");
    }
    EXPECT_FALSE(glIsBuffer(ownId));
    EXPECT_TRUE(glIsBuffer(borrowedId));
}

TEST_F(MeshTest, verticesFromTheBaseVertexOn) {
    GL::Mesh mesh{MeshPrimitive::Points};
    mesh.addVertexBuffer(columns(), 0, Column{}).setCount(2);
    EXPECT_EQ(draw(mesh), "xx..............");
    mesh.setBaseVertex(3);
    EXPECT_EQ(draw(mesh), "...xx...........");
}

TEST_F(MeshTest, offsetsGapsAndStrides) {
    const struct Vertex {
        Float other;
        UnsignedShort more[2];
        Float column;
    } vertices[]{{9.0f, {}, 1.0f}, {9.0f, {}, 5.0f}};
    GL::Buffer buffer{GL::Buffer::TargetHint::Array, vertices};
    {
        GL::Mesh mesh{MeshPrimitive::Points};
        mesh.addVertexBuffer(buffer, 0, 8, Column{}).setCount(2);
        EXPECT_EQ(draw(mesh), ".x...x..........");
    }
    {
        GL::Mesh mesh{MeshPrimitive::Points};
        mesh.addVertexBuffer(buffer, 8, Column{}, 8).setCount(2);
        EXPECT_EQ(draw(mesh), ".x...x..........");
    }
    {
        GL::Mesh mesh{MeshPrimitive::Points};
        mesh.addVertexBuffer(buffer, 8, 12, GL::DynamicAttribute{Column{}}).setCount(2);
        EXPECT_EQ(draw(mesh), ".x...x..........");
    }
    {
        // 9 of the first member and the column again.
        GL::Mesh mesh{MeshPrimitive::Points};
        mesh.addVertexBuffer(buffer, 0, InstanceColumn{}, 4, Column{}).setCount(2);
        EXPECT_EQ(draw(mesh), "..........x...x.");
    }
}

TEST_F(MeshTest, dataTypes) {
    const UnsignedByte bytes[]{0, 3, 255, 0};
    const Short shorts[]{5, 32767};
    GL::Buffer byteBuffer{GL::Buffer::TargetHint::Array, bytes};
    GL::Buffer shortBuffer{GL::Buffer::TargetHint::Array, shorts};
    const struct {
        GL::Buffer& buffer;
        GLintptr offset;
        GL::DynamicAttribute attribute;
        const char* expected;
    } rows[]{{byteBuffer, 1, GL::DynamicAttribute{Column{Column::DataType::UnsignedByte}}, "...x............"},
        {byteBuffer, 2, GL::DynamicAttribute{Column{Column::DataType::UnsignedByte, Column::DataOption::Normalized}},
            ".x.............."},
        {shortBuffer, 0, GL::DynamicAttribute{Column{}, VertexFormat::Short}, ".....x.........."},
        {shortBuffer, 2, GL::DynamicAttribute{Column{}, VertexFormat::ShortNormalized}, ".x.............."},
        {byteBuffer, 1,
            GL::DynamicAttribute{GL::DynamicAttribute::Kind::Generic, 0, GL::DynamicAttribute::Components::One,
                GL::DynamicAttribute::DataType::UnsignedByte},
            "...x............"}};
    for(const auto& row: rows) {
        GL::Mesh mesh{MeshPrimitive::Points};
        mesh.addVertexBuffer(row.buffer, row.offset, 4, row.attribute).setCount(1);
        EXPECT_EQ(draw(mesh), row.expected);
    }
}

TEST_F(MeshTest, integerAttributes) {
    Canvas canvas{{4, 1}};
    Program integers{
        "layout(location = 2) in ivec2 value;\n"
        "void main() { gl_Position = vec4((float(value.x + 6 + value.y) + 0.5)/2.0 - 1.0, 0.0, 0.0, 1.0); }\n",
        "out vec4 color;\nvoid main() { color = vec4(1.0); }\n"};
    const Short values[]{-5, 1, -7, 2};
    GL::Buffer buffer{GL::Buffer::TargetHint::Array, values};
    typedef GL::Attribute<2, Vector2i> Value;
    GL::Mesh mesh{MeshPrimitive::Points};
    mesh.addVertexBuffer(buffer, 0, Value{Value::DataType::Short}).setCount(2);
    integers.draw(mesh);
    EXPECT_THAT(canvas.pixels(), testing::ElementsAre(0u, 0xffffffffu, 0xffffffffu, 0u));
}

TEST_F(MeshTest, matrixAttributesTakeALocationAColumn) {
    Canvas canvas{{4, 1}};
    Program program{"layout(location = 4) in mat4 transformation;\n"
                    "void main() { gl_Position = transformation*vec4(0.0, 0.0, 0.0, 1.0); }\n",
        "out vec4 color;\nvoid main() { color = vec4(1.0); }\n"};
    const Matrix4 matrices[]{Matrix4::translation(Vector3::xAxis(-0.75f)), Matrix4::translation(Vector3::xAxis(0.25f))};
    GL::Mesh mesh{MeshPrimitive::Points};
    mesh.addVertexBufferInstanced(
            GL::Buffer{GL::Buffer::TargetHint::Array, matrices}, 1, 0, GL::Attribute<4, Matrix4>{})
        .setCount(1)
        .setInstanceCount(2);
    program.draw(mesh);
    EXPECT_THAT(canvas.pixels(), testing::ElementsAre(0xffffffffu, 0u, 0xffffffffu, 0u));
}

TEST_F(MeshTest, indexTypes) {
    const struct {
        GL::Buffer buffer;
        GLintptr offset;
        MeshIndexType type;
        GL::MeshIndexType expected;
    } rows[]{{indices<UnsignedByte>(), 2, MeshIndexType::UnsignedByte, GL::MeshIndexType::UnsignedByte},
        {indices<UnsignedShort>(), 4, MeshIndexType::UnsignedShort, GL::MeshIndexType::UnsignedShort},
        {indices<UnsignedInt>(), 8, MeshIndexType::UnsignedInt, GL::MeshIndexType::UnsignedInt}};
    for(const auto& row: rows) {
        GL::Mesh mesh{MeshPrimitive::Points};
        GL::Buffer& buffer = const_cast<GL::Buffer&>(row.buffer);
        mesh.addVertexBuffer(columns(), 0, Column{}).setIndexBuffer(buffer, row.offset, row.type).setCount(3);
        EXPECT_TRUE(mesh.isIndexed());
        EXPECT_EQ(mesh.indexType(), row.expected);
        EXPECT_EQ(draw(mesh), "xxx.............");
        // Counted in indices, after the offset in the buffer.
        mesh.setIndexOffset(2);
        EXPECT_EQ(mesh.indexOffset(), 2);
        EXPECT_EQ(draw(mesh), "..xxx...........");
        mesh.setBaseVertex(1);
        EXPECT_EQ(draw(mesh), "...xxx..........");
    }
}

TEST_F(MeshTest, indexBuffersAreOwnedOrNot) {
    GL::Buffer own = indices<UnsignedByte>();
    const UnsignedInt id = own.id();
    {
        GL::Mesh mesh{MeshPrimitive::Points};
        mesh.setIndexBuffer(std::move(own), 0, MeshIndexType::UnsignedByte);
        EXPECT_EQ(own.id(), 0u);
        EXPECT_TRUE(glIsBuffer(id));
    }
    EXPECT_FALSE(glIsBuffer(id));
}

// Filling a buffer must not tear the indices out of the mesh drawn last.
TEST_F(MeshTest, otherIndexBuffersStayOutOfTheMesh) {
    GL::Mesh mesh = indexedMesh();
    EXPECT_EQ(draw(mesh), "xx..............");
    GL::Buffer other = indices<UnsignedInt>();
    other.setData({UnsignedShort(7), UnsignedShort(7), UnsignedShort(7), UnsignedShort(7)});
    EXPECT_EQ(draw(mesh), "xx..............");
}

TEST_F(MeshTest, notIndexedAsserts) {
    GL::Mesh mesh;
    EXPECT_EXIT(mesh.indexType(), KilledBySignal(SIGABRT), HasSubstr("GL::Mesh::indexType(): mesh is not indexed"));
    EXPECT_EXIT(
        mesh.setIndexOffset(1), KilledBySignal(SIGABRT), HasSubstr("GL::Mesh::setIndexOffset(): mesh is not indexed"));
    EXPECT_EXIT(GL::MeshView{mesh}.setIndexOffset(1), KilledBySignal(SIGABRT),
        HasSubstr("GL::MeshView::setIndexOffset(): mesh is not indexed"));
    GL::Buffer buffer = columns();
    EXPECT_EXIT(mesh.setIndexBuffer(buffer, 0, MeshIndexType(0)), KilledBySignal(SIGABRT),
        HasSubstr("GL::meshIndexType(): invalid type MeshIndexType(0x0)"));
}

TEST_F(MeshTest, emptyBuffersAssert) {
    GL::Mesh mesh;
    GL::Buffer empty{NoCreate};
    EXPECT_EXIT(mesh.addVertexBuffer(empty, 0, Column{}), KilledBySignal(SIGABRT),
        HasSubstr("GL::Mesh::addVertexBuffer(): empty or moved-out Buffer instance was passed"));
    EXPECT_EXIT(mesh.addVertexBuffer(GL::Buffer{NoCreate}, 0, Column{}), KilledBySignal(SIGABRT),
        HasSubstr("GL::Mesh::addVertexBuffer(): empty or moved-out Buffer instance was passed"));
    EXPECT_EXIT(mesh.setIndexBuffer(empty, 0, MeshIndexType::UnsignedInt), KilledBySignal(SIGABRT),
        HasSubstr("GL::Mesh::setIndexBuffer(): empty or moved-out Buffer instance was passed"));
}

TEST_F(MeshTest, instances) {
    GL::Mesh plain{MeshPrimitive::Points};
    plain.addVertexBuffer(columns(), 0, Column{})
        .addVertexBufferInstanced(GL::Buffer{GL::Buffer::TargetHint::Array, {0.0f, 8.0f, 4.0f}}, 1, 0, InstanceColumn{})
        .setCount(2)
        .setInstanceCount(2);
    EXPECT_EQ(draw(plain), "xx......yy......");
    plain.setBaseInstance(1);
    EXPECT_EQ(draw(plain), "....yy..xx......");
    // A single instance is drawn as if there were no instances.
    plain.setInstanceCount(1);
    EXPECT_EQ(draw(plain), "xx..............");

    GL::Mesh indexed = indexedMesh();
    indexed
        .addVertexBufferInstanced(GL::Buffer{GL::Buffer::TargetHint::Array, {0.0f, 8.0f, 4.0f}}, 1, 0, 4,
            GL::DynamicAttribute{InstanceColumn{}})
        .setInstanceCount(2)
        .setIndexOffset(1)
        .setBaseVertex(1);
    EXPECT_EQ(draw(indexed), "..xx......yy....");
    indexed.setBaseInstance(1);
    EXPECT_EQ(draw(indexed), "......yy..xx....");
}

TEST_F(MeshTest, divisorRepeatsInstanceData) {
    GL::Mesh mesh{MeshPrimitive::Points};
    mesh.addVertexBuffer(columns(), 0, Column{})
        .addVertexBufferInstanced(GL::Buffer{GL::Buffer::TargetHint::Array, {2.0f, 8.0f}}, 2, 0, InstanceColumn{})
        .setCount(1)
        .setInstanceCount(3);
    // The first two instances share a column.
    EXPECT_EQ(draw(mesh), "..y.....y.......");
}

TEST_F(MeshTest, viewsAreRangesOfTheirOwn) {
    GL::Mesh mesh = indexedMesh();
    mesh.setIndexOffset(1).setBaseVertex(2).setInstanceCount(5);
    GL::MeshView view{mesh};
    EXPECT_EQ(draw(view.setCount(2)), "xx..............");
    EXPECT_EQ(draw(view.setIndexOffset(3)), "...xx...........");
    EXPECT_EQ(view.indexOffset(), 3);
    EXPECT_EQ(draw(view.setBaseVertex(1)), "....xx..........");
    EXPECT_EQ(draw(view.setCount(3)), "....xxx.........");

    GL::Mesh plain{MeshPrimitive::Points};
    plain.addVertexBuffer(columns(), 0, Column{}).setCount(2).setBaseVertex(3);
    EXPECT_EQ(draw(GL::MeshView{plain}.setCount(2)), "xx..............");
    EXPECT_EQ(draw(GL::MeshView{plain}.setCount(2).setBaseVertex(1)), ".xx.............");
}

TEST_F(MeshTest, viewsHaveInstances) {
    GL::Mesh mesh{MeshPrimitive::Points};
    mesh.addVertexBuffer(columns(), 0, Column{})
        .addVertexBufferInstanced(
            GL::Buffer{GL::Buffer::TargetHint::Array, {0.0f, 8.0f, 4.0f}}, 1, 0, InstanceColumn{});
    EXPECT_EQ(draw(GL::MeshView{mesh}.setCount(1).setInstanceCount(2)), "x.......y.......");
    EXPECT_EQ(draw(GL::MeshView{mesh}.setCount(1).setInstanceCount(2).setBaseInstance(1)), "....y...x.......");
}

TEST_F(MeshTest, listsOfViews) {
    GL::Mesh mesh{MeshPrimitive::Points};
    mesh.addVertexBuffer(columns(), 0, Column{});
    GL::MeshView first{mesh}, second{mesh}, unset{mesh};
    first.setCount(1).setBaseVertex(2);
    second.setCount(2).setBaseVertex(5);
    program().draw({first, second, unset});
    EXPECT_EQ(picture(), "..x..xx.........");

    GL::Mesh indexed = indexedMesh();
    GL::MeshView third{indexed}, fourth{indexed};
    third.setCount(1).setIndexOffset(2);
    fourth.setCount(2).setIndexOffset(5).setBaseVertex(-3);
    program().draw({third, fourth});
    EXPECT_EQ(picture(), "..xx............");
}

TEST_F(MeshTest, deletedMeshesAreNotTakenForNewOnes) {
    for(int i = 0; i != 3; ++i) {
        GL::Mesh mesh{MeshPrimitive::Points};
        mesh.addVertexBuffer(columns(), 0, Column{}).setCount(1).setBaseVertex(i);
        std::string expected(Width, '.');
        expected[i] = 'x';
        EXPECT_EQ(draw(mesh), expected);
    }
}

TEST(DynamicAttribute, takesOverAttributes) {
    typedef GL::Attribute<3, Vector4> Tint;
    const GL::DynamicAttribute tint{
        Tint{Tint::Components::Three, Tint::DataType::UnsignedByte, Tint::DataOption::Normalized}};
    EXPECT_EQ(tint.location(), 3u);
    EXPECT_EQ(tint.components(), GL::DynamicAttribute::Components::Three);
    EXPECT_EQ(tint.dataType(), GL::DynamicAttribute::DataType::UnsignedByte);
    EXPECT_EQ(tint.kind(), GL::DynamicAttribute::Kind::GenericNormalized);
    EXPECT_EQ(tint.vectors(), 1u);
    EXPECT_EQ((GL::DynamicAttribute{GL::Attribute<0, Color3>{}}.components()), GL::DynamicAttribute::Components::Three);
    EXPECT_EQ((GL::DynamicAttribute{GL::Attribute<0, UnsignedInt>{}}.kind()), GL::DynamicAttribute::Kind::Integral);
    EXPECT_EQ((GL::DynamicAttribute{GL::Attribute<0, Matrix4>{}}.vectors()), 4u);
}

TEST(DynamicAttribute, takesFormats) {
    typedef GL::DynamicAttribute::Kind Kind;
    typedef GL::DynamicAttribute::DataType Type;
    typedef GL::Attribute<7, Vector4> Vectors;
    typedef GL::Attribute<7, Vector4ui> Integers;
    const struct {
        GL::DynamicAttribute attribute;
        Kind kind;
        int components;
        Type type;
    } rows[]{{GL::DynamicAttribute{Vectors{}, VertexFormat::Vector3}, Kind::Generic, 3, Type::Float},
        {GL::DynamicAttribute{Vectors{}, VertexFormat::Vector4h}, Kind::Generic, 4, Type::Half},
        {GL::DynamicAttribute{Vectors{}, VertexFormat::Vector2d}, Kind::Generic, 2, Type::Double},
        {GL::DynamicAttribute{Vectors{}, VertexFormat::Vector4ub}, Kind::Generic, 4, Type::UnsignedByte},
        {GL::DynamicAttribute{Vectors{}, VertexFormat::Vector4ubNormalized}, Kind::GenericNormalized, 4,
            Type::UnsignedByte},
        {GL::DynamicAttribute{Vectors{}, VertexFormat::Vector2bNormalized}, Kind::GenericNormalized, 2, Type::Byte},
        {GL::DynamicAttribute{Vectors{}, VertexFormat::Vector2usNormalized}, Kind::GenericNormalized, 2,
            Type::UnsignedShort},
        {GL::DynamicAttribute{Vectors{}, VertexFormat::ShortNormalized}, Kind::GenericNormalized, 1, Type::Short},
        {GL::DynamicAttribute{Integers{}, VertexFormat::Vector4ub}, Kind::Integral, 4, Type::UnsignedByte},
        {GL::DynamicAttribute{Integers{}, VertexFormat::Vector3us}, Kind::Integral, 3, Type::UnsignedShort},
        {GL::DynamicAttribute{Integers{}, VertexFormat::Vector2ui}, Kind::Integral, 2, Type::UnsignedInt},
        {GL::DynamicAttribute{Integers{}, VertexFormat::Int}, Kind::Integral, 1, Type::Int}};
    for(const auto& row: rows) {
        EXPECT_EQ(row.attribute.location(), 7u);
        EXPECT_EQ(row.attribute.kind(), row.kind);
        EXPECT_EQ(int(row.attribute.components()), row.components);
        EXPECT_EQ(row.attribute.dataType(), row.type);
    }
}

TEST(DynamicAttribute, rejectsFormatsThatDoNotFit) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT((GL::DynamicAttribute{GL::Attribute<0, Vector3>{}, VertexFormat::Vector4}), KilledBySignal(SIGABRT),
        HasSubstr("GL::DynamicAttribute: can't use VertexFormat::Vector4 for a 3-component attribute"));
    EXPECT_EXIT((GL::DynamicAttribute{GL::Attribute<0, UnsignedInt>{}, VertexFormat::Float}), KilledBySignal(SIGABRT),
        HasSubstr("GL::DynamicAttribute: can't use VertexFormat::Float for an integral attribute"));
    EXPECT_EXIT((GL::DynamicAttribute{GL::Attribute<0, UnsignedInt>{}, VertexFormat::UnsignedShortNormalized}),
        KilledBySignal(SIGABRT),
        HasSubstr("GL::DynamicAttribute: can't use VertexFormat::UnsignedShortNormalized for a "
                  "GL::DynamicAttribute::Kind::Integral attribute"));
}

}
