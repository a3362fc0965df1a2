#pragma once

#include <cstddef>

#include "Corrade/Containers/StridedArrayView.h"
#include "Magnum/Math/Vector2.h"
#include "Magnum/PixelStorage.h"

namespace Magnum::Implementation {

// Bytes from one row to the next.
inline std::size_t imageRowStride(const PixelStorage& storage, UnsignedInt pixelSize, const Vector2i& size) {
    const std::size_t row = std::size_t(storage.rowLength() ? storage.rowLength() : size.x()) * pixelSize;
    const std::size_t alignment = storage.alignment();
    return (row + alignment - 1) / alignment * alignment;
}

// Bytes that an image of this size takes: all rows at full stride, plus what is skipped in the outermost direction
// that skips anything. A row length is taken to cover the pixels that are skipped in front of a row.
inline std::size_t imageDataSize(const PixelStorage& storage, UnsignedInt pixelSize, const Vector2i& size) {
    const std::size_t stride = imageRowStride(storage, pixelSize, size);
    std::size_t skipped = storage.skip().z() * stride * size.y();
    if(!skipped) skipped = storage.skip().y() * stride;
    if(!skipped && !storage.rowLength()) skipped = storage.skip().x() * pixelSize;
    return skipped + (size.x() ? stride * size.y() : 0);
}

// Rows, pixels and bytes of a pixel; T is char or const char. No strides when there are no pixels.
template<class T>
Containers::StridedArrayView3D<T> imagePixels(
    const PixelStorage& storage, UnsignedInt pixelSize, const Vector2i& size, Containers::ArrayView<T> data) {
    const std::size_t stride = imageRowStride(storage, pixelSize, size);
    T* const first = data.data() + storage.skip().y() * stride + storage.skip().x() * pixelSize;
    return {data, first, {std::size_t(size.y()), std::size_t(size.x()), pixelSize},
        {std::ptrdiff_t(stride), std::ptrdiff_t(pixelSize), 1}};
}

}
