#include "Magnum/Image.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/ImageView.h"
#include "Magnum/Implementation/ImageProperties.h"
#include "Magnum/PixelFormat.h"

namespace Magnum {

namespace {

void assertDataSize(
    const char* name, const PixelStorage& storage, UnsignedInt pixelSize, const Vector2i& size, std::size_t dataSize) {
    const std::size_t expected = Implementation::imageDataSize(storage, pixelSize, size);
    CORRADE_ASSERT(dataSize >= expected,
        name << Debug::nospace << ": data too small, got" << dataSize << "but expected at least" << expected
             << "bytes", );
}

}

Image2D::Image(PixelStorage storage, PixelFormat format) noexcept:
    _storage{storage}, _format{format}, _pixelSize{pixelFormatSize(format)} {}

Image2D::Image(PixelStorage storage, PixelFormat format, const Vector2i& size, Containers::Array<char>&& data) noexcept:
    _storage{storage}, _format{format}, _pixelSize{pixelFormatSize(format)}, _size{size}, _data{Utility::move(data)} {
    assertDataSize("Image", _storage, _pixelSize, _size, _data.size());
}

Image2D::Image(Image&& other) noexcept:
    _storage{other._storage}, _format{other._format},
    _pixelSize{other._pixelSize}, _size{other._size}, _data{other.release()} {}

Image2D& Image2D::operator=(Image&& other) noexcept {
    Utility::swap(_storage, other._storage);
    Utility::swap(_format, other._format);
    Utility::swap(_pixelSize, other._pixelSize);
    Utility::swap(_size, other._size);
    Utility::swap(_data, other._data);
    return *this;
}

Image2D::operator ImageView2D() const { return ImageView2D{_storage, _format, _size, _data}; }
Image2D::operator MutableImageView2D() { return MutableImageView2D{_storage, _format, _size, _data}; }

Containers::StridedArrayView3D<char> Image2D::pixels() {
    return Implementation::imagePixels(_storage, _pixelSize, _size, data());
}

Containers::StridedArrayView3D<const char> Image2D::pixels() const {
    return Implementation::imagePixels(_storage, _pixelSize, _size, data());
}

Containers::Array<char> Image2D::release() {
    _size = {};
    return Utility::move(_data);
}

template<class T>
ImageView<2, T>::ImageView(
    PixelStorage storage, PixelFormat format, const Vector2i& size, Containers::ArrayView<ErasedType> data) noexcept:
    _storage{storage},
    _format{format}, _pixelSize{pixelFormatSize(format)}, _size{size}, _data{
                                                                           static_cast<T*>(data.data()), data.size()} {
    assertDataSize("ImageView", _storage, _pixelSize, _size, _data.size());
}

template<class T> Containers::StridedArrayView3D<T> ImageView<2, T>::pixels() const {
    return Implementation::imagePixels(_storage, _pixelSize, _size, _data);
}

template class ImageView<2, const char>;
template class ImageView<2, char>;

}
