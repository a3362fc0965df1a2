#include "Magnum/GL/Mesh.h"

#include "Corrade/Containers/GrowableArray.h"
#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/Debug.h"
#include "Magnum/GL/Implementation/State.h"
#include "Magnum/Mesh.h"

namespace Magnum::GL {

using Implementation::state;

namespace {

// GL takes byte offsets into bound buffers as pointers.
const void* bufferOffset(GLintptr offset) { return reinterpret_cast<const void*>(offset); }

}

MeshPrimitive meshPrimitive(Magnum::MeshPrimitive primitive) {
    switch(primitive) {
    case Magnum::MeshPrimitive::Points: return MeshPrimitive::Points;
    case Magnum::MeshPrimitive::Lines: return MeshPrimitive::Lines;
    case Magnum::MeshPrimitive::LineLoop: return MeshPrimitive::LineLoop;
    case Magnum::MeshPrimitive::LineStrip: return MeshPrimitive::LineStrip;
    case Magnum::MeshPrimitive::Triangles: return MeshPrimitive::Triangles;
    case Magnum::MeshPrimitive::TriangleStrip: return MeshPrimitive::TriangleStrip;
    case Magnum::MeshPrimitive::TriangleFan: return MeshPrimitive::TriangleFan;
    case Magnum::MeshPrimitive::Instances:
    case Magnum::MeshPrimitive::Faces:
    case Magnum::MeshPrimitive::Edges:
    case Magnum::MeshPrimitive::Meshlets:
        CORRADE_ASSERT_UNREACHABLE("GL::meshPrimitive(): unsupported primitive" << primitive, {});
    }
    CORRADE_ASSERT_UNREACHABLE("GL::meshPrimitive(): invalid primitive" << primitive, {});
}

MeshIndexType meshIndexType(Magnum::MeshIndexType type) {
    switch(type) {
    case Magnum::MeshIndexType::UnsignedByte: return MeshIndexType::UnsignedByte;
    case Magnum::MeshIndexType::UnsignedShort: return MeshIndexType::UnsignedShort;
    case Magnum::MeshIndexType::UnsignedInt: return MeshIndexType::UnsignedInt;
    }
    CORRADE_ASSERT_UNREACHABLE("GL::meshIndexType(): invalid type" << type, {});
}

Mesh::Mesh(MeshPrimitive primitive): _primitive{primitive} {
    GLuint id;
    glGenVertexArrays(1, &id);
    _id = Implementation::ObjectName{id};
    state().bindVertexArray(id);
}

Mesh::~Mesh() {
    if(!_id) return;
    Implementation::State& state = Implementation::state();
    if(state.vertexArray == _id) state.vertexArray = 0;
    const GLuint id = _id;
    glDeleteVertexArrays(1, &id);
}

Containers::String Mesh::label() const { return Implementation::objectLabel(GL_VERTEX_ARRAY, _id); }

Mesh& Mesh::setLabel(Containers::StringView label) {
    Implementation::setObjectLabel(GL_VERTEX_ARRAY, _id, label);
    return *this;
}

Mesh& Mesh::setIndexOffset(GLintptr offset) {
    CORRADE_ASSERT(isIndexed(), "GL::Mesh::setIndexOffset(): mesh is not indexed", *this);
    _range.indexOffset = offset;
    return *this;
}

MeshIndexType Mesh::indexType() const {
    CORRADE_ASSERT(isIndexed(), "GL::Mesh::indexType(): mesh is not indexed", {});
    return _indexType;
}

Mesh& Mesh::addVertexBufferInstanced(
    Buffer& buffer, UnsignedInt divisor, GLintptr offset, GLsizei stride, const DynamicAttribute& attribute) {
    CORRADE_ASSERT(buffer.id(), "GL::Mesh::addVertexBuffer(): empty or moved-out Buffer instance was passed", *this);
    state().bindVertexArray(_id);
    state().bindArrayBuffer(buffer.id());
    const GLint components = GLint(attribute.components());
    const GLenum type = GLenum(attribute.dataType());
    for(UnsignedInt i = 0; i != attribute.vectors(); ++i) {
        const GLuint location = attribute.location() + i;
        glEnableVertexAttribArray(location);
        if(attribute.kind() == DynamicAttribute::Kind::Integral)
            glVertexAttribIPointer(location, components, type, stride, bufferOffset(offset));
        else
            glVertexAttribPointer(location, components, type,
                attribute.kind() == DynamicAttribute::Kind::GenericNormalized, stride, bufferOffset(offset));
        glVertexAttribDivisor(location, divisor);
        offset += components * Implementation::attributeDataTypeSize(type);
    }
    return *this;
}

Mesh& Mesh::setIndexBuffer(Buffer& buffer, GLintptr offset, Magnum::MeshIndexType type) {
    CORRADE_ASSERT(buffer.id(), "GL::Mesh::setIndexBuffer(): empty or moved-out Buffer instance was passed", *this);
    _indexType = meshIndexType(type);
    _indexSize = meshIndexTypeSize(type);
    _indexStart = offset;
    // This binding belongs to the vertex array.
    state().bindVertexArray(_id);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, buffer.id());
    return *this;
}

Mesh& Mesh::own(Buffer&& buffer) {
    arrayAppend(_buffers, Utility::move(buffer));
    return *this;
}

void Mesh::draw(const Implementation::DrawRange& range) {
    state().bindVertexArray(_id);
    const GLenum primitive = GLenum(_primitive);
    if(!isIndexed()) {
        if(range.instanceCount == 1)
            glDrawArrays(primitive, range.baseVertex, range.count);
        else if(!range.baseInstance)
            glDrawArraysInstanced(primitive, range.baseVertex, range.count, range.instanceCount);
        else
            glDrawArraysInstancedBaseInstance(
                primitive, range.baseVertex, range.count, range.instanceCount, range.baseInstance);
        return;
    }

    const GLenum type = GLenum(_indexType);
    const void* const indices = bufferOffset(_indexStart + range.indexOffset * _indexSize);
    if(range.instanceCount == 1)
        glDrawElementsBaseVertex(primitive, range.count, type, indices, range.baseVertex);
    else if(!range.baseInstance)
        glDrawElementsInstancedBaseVertex(primitive, range.count, type, indices, range.instanceCount, range.baseVertex);
    else
        glDrawElementsInstancedBaseVertexBaseInstance(
            primitive, range.count, type, indices, range.instanceCount, range.baseVertex, range.baseInstance);
}

void Mesh::drawSeveral(
    std::size_t size, const UnsignedInt* counts, const UnsignedInt* vertexOffsets, const UnsignedLong* indexOffsets) {
    static_assert(sizeof(UnsignedLong) == sizeof(void*), "offsets are passed as pointers");
    state().bindVertexArray(_id);
    const GLenum primitive = GLenum(_primitive);
    const auto* const sizes = reinterpret_cast<const GLsizei*>(counts);
    const auto* const vertices = reinterpret_cast<const GLint*>(vertexOffsets);
    if(!isIndexed()) {
        glMultiDrawArrays(primitive, vertices, sizes, GLsizei(size));
        return;
    }
    // Where GL finds the first index: counted from the start of the buffer.
    CORRADE_ASSERT(!_indexStart, "GL::AbstractShaderProgram::draw(): the indices have to start with the buffer", );
    const auto* const indices = reinterpret_cast<const void* const*>(indexOffsets);
    if(vertices)
        glMultiDrawElementsBaseVertex(
            primitive, sizes, GLenum(_indexType), indices, GLsizei(size), const_cast<GLint*>(vertices));
    else
        glMultiDrawElements(primitive, sizes, GLenum(_indexType), indices, GLsizei(size));
}

}
