#include "Renderer/TexelBuffer.h"

#include <algorithm>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

TexelBuffer::TexelBuffer(GL::BufferTextureFormat format, Containers::StringView label) {
    // A texture without memory cannot be fetched from.
    reserve(256);
    _buffer.setLabel(label);
    _texture.setBuffer(format, _buffer).setLabel(label);
}

bool TexelBuffer::reserve(std::size_t bytes) {
    if(bytes <= _capacity) return true;
    _capacity = std::max(bytes, _capacity * 3 / 2);
    _buffer.setData({nullptr, _capacity}, GL::BufferUsage::DynamicDraw);
    return false;
}

void TexelBuffer::write(std::size_t offset, Containers::ArrayView<const void> data) {
    if(data.isEmpty()) return;
    _buffer.setSubData(GLintptr(offset), data);
    _writtenBytes += data.size();
}

} // namespace VantrelEngine
