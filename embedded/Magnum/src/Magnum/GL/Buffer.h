#pragma once

#include <initializer_list>

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/ArrayView.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/Implementation/ObjectName.h"
#include "Magnum/GL/OpenGL.h"
#include "Magnum/Tags.h"

namespace Magnum::GL {

// How often the data change and are used: once, rarely, often.
enum class BufferUsage : UnsignedInt {
    StreamDraw = GL_STREAM_DRAW,
    StreamRead = GL_STREAM_READ,
    StaticDraw = GL_STATIC_DRAW,
    StaticRead = GL_STATIC_READ,
    DynamicDraw = GL_DYNAMIC_DRAW,
    DynamicRead = GL_DYNAMIC_READ
};

// Memory of the GPU for vertices and indices.
class CORRADE_VISIBILITY_EXPORT Buffer {
public:
    // What the buffer is for. A hint for GL variants where it matters; here any buffer can be used for anything.
    enum class TargetHint : UnsignedInt { Array = GL_ARRAY_BUFFER, ElementArray = GL_ELEMENT_ARRAY_BUFFER };

    explicit Buffer(TargetHint hint = TargetHint::Array);
    explicit Buffer(
        TargetHint hint, Containers::ArrayView<const void> data, BufferUsage usage = BufferUsage::StaticDraw);
    template<class T>
    explicit Buffer(TargetHint hint, std::initializer_list<T> data, BufferUsage usage = BufferUsage::StaticDraw):
        Buffer{hint, Containers::arrayView(data), usage} {}
    explicit Buffer(NoCreateT) noexcept {}
    Buffer(Buffer&&) noexcept = default;
    Buffer& operator=(Buffer&&) noexcept = default;
    ~Buffer();

    UnsignedInt id() const { return _id; }
    Containers::String label() const;
    Buffer& setLabel(Containers::StringView label);

    // Replaces size and contents. A null view with a size leaves the contents undefined.
    Buffer& setData(Containers::ArrayView<const void> data, BufferUsage usage = BufferUsage::StaticDraw);
    template<class T> Buffer& setData(std::initializer_list<T> data, BufferUsage usage = BufferUsage::StaticDraw) {
        return setData(Containers::arrayView(data), usage);
    }
    // Overwrites a part. The offset is in bytes; the data have to fit.
    Buffer& setSubData(GLintptr offset, Containers::ArrayView<const void> data);

    // In bytes. This and data() wait for the GPU.
    Int size();
    Containers::Array<char> data();

private:
    Implementation::ObjectName _id;
};

}
