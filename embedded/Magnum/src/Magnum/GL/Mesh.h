#pragma once

#include <type_traits>

#include "Corrade/Containers/Array.h"
#include "Magnum/GL/Attribute.h"
#include "Magnum/GL/Buffer.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/Implementation/DrawRange.h"
#include "Magnum/GL/OpenGL.h"
#include "Magnum/Tags.h"

namespace Magnum::GL {

enum class MeshPrimitive : UnsignedInt {
    Points = GL_POINTS,
    Lines = GL_LINES,
    LineLoop = GL_LINE_LOOP,
    LineStrip = GL_LINE_STRIP,
    Triangles = GL_TRIANGLES,
    TriangleStrip = GL_TRIANGLE_STRIP,
    TriangleFan = GL_TRIANGLE_FAN
};

enum class MeshIndexType : UnsignedInt {
    UnsignedByte = GL_UNSIGNED_BYTE,
    UnsignedShort = GL_UNSIGNED_SHORT,
    UnsignedInt = GL_UNSIGNED_INT
};

// GL value of a generic one. Asserts that there is one.
CORRADE_VISIBILITY_EXPORT MeshPrimitive meshPrimitive(Magnum::MeshPrimitive primitive);
CORRADE_VISIBILITY_EXPORT MeshIndexType meshIndexType(Magnum::MeshIndexType type);

// Vertex attributes in buffers, maybe indices, and how to draw them; shader programs do the drawing. A mesh without
// buffers is drawable too: its vertices are numbered. Buffers passed as rvalues belong to the mesh, others have to
// outlive its draws.
class CORRADE_VISIBILITY_EXPORT Mesh {
public:
    explicit Mesh(MeshPrimitive primitive = MeshPrimitive::Triangles);
    explicit Mesh(Magnum::MeshPrimitive primitive): Mesh{meshPrimitive(primitive)} {}
    explicit Mesh(NoCreateT) noexcept {}
    Mesh(Mesh&&) noexcept = default;
    Mesh& operator=(Mesh&&) noexcept = default;
    ~Mesh();

    UnsignedInt id() const { return _id; }
    Containers::String label() const;
    Mesh& setLabel(Containers::StringView label);

    MeshPrimitive primitive() const { return _primitive; }
    Mesh& setPrimitive(MeshPrimitive primitive) {
        _primitive = primitive;
        return *this;
    }
    Mesh& setPrimitive(Magnum::MeshPrimitive primitive) { return setPrimitive(meshPrimitive(primitive)); }

    // Of vertices or, when indexed, of indices. Has to be set before drawing.
    Int count() const { return _range.count < 0 ? 0 : _range.count; }
    Mesh& setCount(Int count) {
        _range.count = count;
        return *this;
    }
    // The first vertex or, when indexed, what is added to every index.
    Int baseVertex() const { return _range.baseVertex; }
    Mesh& setBaseVertex(Int vertex) {
        _range.baseVertex = vertex;
        return *this;
    }
    Int instanceCount() const { return _range.instanceCount; }
    Mesh& setInstanceCount(Int count) {
        _range.instanceCount = count;
        return *this;
    }
    // First instance in the instanced buffers. Without effect on draws of a single instance. Needs GL 4.2.
    UnsignedInt baseInstance() const { return _range.baseInstance; }
    Mesh& setBaseInstance(UnsignedInt instance) {
        _range.baseInstance = instance;
        return *this;
    }
    // The first index to draw. Asserts that the mesh is indexed.
    GLintptr indexOffset() const { return _range.indexOffset; }
    Mesh& setIndexOffset(GLintptr offset);

    bool isIndexed() const { return _indexType != MeshIndexType{}; }
    // Asserts that the mesh is indexed.
    MeshIndexType indexType() const;

    // Adds a buffer with interleaved vertices. The offset of the first vertex is in bytes. Then come the attributes in
    // memory order, and the bytes between and after them that are none of their business.
    template<class... Items, class = std::enable_if_t<!(std::is_same_v<Items, DynamicAttribute> || ...)>>
    Mesh& addVertexBuffer(Buffer& buffer, GLintptr offset, const Items&... items) {
        return addVertexBufferInstanced(buffer, 0, offset, items...);
    }
    template<class... Items, class = std::enable_if_t<!(std::is_same_v<Items, DynamicAttribute> || ...)>>
    Mesh& addVertexBuffer(Buffer&& buffer, GLintptr offset, const Items&... items) {
        return addVertexBufferInstanced(Utility::move(buffer), 0, offset, items...);
    }
    Mesh& addVertexBuffer(Buffer& buffer, GLintptr offset, GLsizei stride, const DynamicAttribute& attribute) {
        return addVertexBufferInstanced(buffer, 0, offset, stride, attribute);
    }
    Mesh& addVertexBuffer(Buffer&& buffer, GLintptr offset, GLsizei stride, const DynamicAttribute& attribute) {
        return addVertexBufferInstanced(Utility::move(buffer), 0, offset, stride, attribute);
    }

    // The attributes advance once in `divisor` instances instead of with the vertices.
    template<class... Items, class = std::enable_if_t<!(std::is_same_v<Items, DynamicAttribute> || ...)>>
    Mesh& addVertexBufferInstanced(Buffer& buffer, UnsignedInt divisor, GLintptr offset, const Items&... items) {
        const GLsizei stride = (itemSize(items) + ... + 0);
        (addItem(buffer, divisor, offset, stride, items), ...);
        return *this;
    }
    template<class... Items, class = std::enable_if_t<!(std::is_same_v<Items, DynamicAttribute> || ...)>>
    Mesh& addVertexBufferInstanced(Buffer&& buffer, UnsignedInt divisor, GLintptr offset, const Items&... items) {
        addVertexBufferInstanced(buffer, divisor, offset, items...);
        return own(Utility::move(buffer));
    }
    Mesh& addVertexBufferInstanced(
        Buffer& buffer, UnsignedInt divisor, GLintptr offset, GLsizei stride, const DynamicAttribute& attribute);
    Mesh& addVertexBufferInstanced(
        Buffer&& buffer, UnsignedInt divisor, GLintptr offset, GLsizei stride, const DynamicAttribute& attribute) {
        addVertexBufferInstanced(buffer, divisor, offset, stride, attribute);
        return own(Utility::move(buffer));
    }

    // The offset of the first index is in bytes.
    Mesh& setIndexBuffer(Buffer& buffer, GLintptr offset, Magnum::MeshIndexType type);
    Mesh& setIndexBuffer(Buffer&& buffer, GLintptr offset, Magnum::MeshIndexType type) {
        setIndexBuffer(buffer, offset, type);
        return own(Utility::move(buffer));
    }

private:
    friend AbstractShaderProgram;
    friend MeshView;

    template<UnsignedInt location, class T> static GLsizei itemSize(const Attribute<location, T>& attribute) {
        return attribute.vectorSize() * Attribute<location, T>::VectorCount;
    }
    static GLsizei itemSize(GLintptr gap) { return GLsizei(gap); }

    template<UnsignedInt location, class T>
    void addItem(Buffer& buffer, UnsignedInt divisor, GLintptr& offset, GLsizei stride,
        const Attribute<location, T>& attribute) {
        addVertexBufferInstanced(buffer, divisor, offset, stride, DynamicAttribute{attribute});
        offset += itemSize(attribute);
    }
    static void addItem(Buffer&, UnsignedInt, GLintptr& offset, GLsizei, GLintptr gap) { offset += gap; }

    Mesh& own(Buffer&& buffer);
    void draw(const Implementation::DrawRange& range);
    // Vertex offsets may be null for an indexed mesh, index offsets, in bytes, are for an indexed mesh only.
    void drawSeveral(std::size_t size, const UnsignedInt* counts, const UnsignedInt* vertexOffsets,
        const UnsignedLong* indexOffsets);

    Implementation::ObjectName _id;
    MeshPrimitive _primitive{MeshPrimitive::Triangles};
    MeshIndexType _indexType{};
    UnsignedInt _indexSize{};
    // Of the index buffer, in bytes.
    GLintptr _indexStart{};
    Implementation::DrawRange _range;
    Containers::Array<Buffer> _buffers;
};

}
