#pragma once

#include <cstddef>
#include <cstdint>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/BufferTexture.h>
#include <Magnum/GL/BufferTextureFormat.h>

namespace VantrelEngine {

// A row of texels in video memory that grows, and how much was written to it.
class TexelBuffer {
public:
    explicit TexelBuffer(Magnum::GL::BufferTextureFormat format, Corrade::Containers::StringView label);

    // Room for this many bytes. False where the buffer had to grow: then what was in it is lost.
    bool reserve(std::size_t bytes);
    // Bytes, expected to lie in what was reserved.
    void write(std::size_t offset, Corrade::Containers::ArrayView<const void> data);

    void bind(Magnum::Int unit) { _texture.bind(unit); }

    std::uint64_t writtenBytes() const { return _writtenBytes; }

private:
    Magnum::GL::Buffer _buffer;
    Magnum::GL::BufferTexture _texture;
    std::size_t _capacity = 0;
    std::uint64_t _writtenBytes = 0;
};

} // namespace VantrelEngine
