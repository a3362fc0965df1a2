#include "Magnum/GL/Buffer.h"

#include "Magnum/GL/Implementation/State.h"

namespace Magnum::GL {

using Implementation::state;

// Everything goes through the array target: it is the only one that is neither part of a vertex array nor read by
// draws.
Buffer::Buffer(TargetHint) {
    GLuint id;
    glGenBuffers(1, &id);
    _id = Implementation::ObjectName{id};
    state().bindArrayBuffer(id);
}

Buffer::Buffer(TargetHint hint, Containers::ArrayView<const void> data, BufferUsage usage): Buffer{hint} {
    setData(data, usage);
}

Buffer::~Buffer() {
    if(!_id) return;
    Implementation::State& state = Implementation::state();
    if(state.arrayBuffer == _id) state.arrayBuffer = 0;
    const GLuint id = _id;
    glDeleteBuffers(1, &id);
}

Containers::String Buffer::label() const { return Implementation::objectLabel(GL_BUFFER, _id); }

Buffer& Buffer::setLabel(Containers::StringView label) {
    Implementation::setObjectLabel(GL_BUFFER, _id, label);
    return *this;
}

Buffer& Buffer::setData(Containers::ArrayView<const void> data, BufferUsage usage) {
    state().bindArrayBuffer(_id);
    glBufferData(GL_ARRAY_BUFFER, data.size(), data.data(), GLenum(usage));
    return *this;
}

Buffer& Buffer::setSubData(GLintptr offset, Containers::ArrayView<const void> data) {
    state().bindArrayBuffer(_id);
    glBufferSubData(GL_ARRAY_BUFFER, offset, data.size(), data.data());
    return *this;
}

Int Buffer::size() {
    state().bindArrayBuffer(_id);
    GLint size = 0;
    glGetBufferParameteriv(GL_ARRAY_BUFFER, GL_BUFFER_SIZE, &size);
    return size;
}

Containers::Array<char> Buffer::data() {
    Containers::Array<char> data{NoInit, std::size_t(size())};
    if(!data.isEmpty()) glGetBufferSubData(GL_ARRAY_BUFFER, 0, data.size(), data.data());
    return data;
}

}
