#pragma once

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/StridedArrayView.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"
#include "Magnum/Math/Vector2.h"
#include "Magnum/PixelStorage.h"

namespace Magnum {

// Pixels in memory, owned. Movable only; a moved-from or released image has size zero and no data.
template<> class CORRADE_VISIBILITY_EXPORT Image<2> {
public:
    // An empty image: says in which format something that fills it shall do so.
    /*implicit*/ Image(PixelFormat format) noexcept: Image{PixelStorage{}, format} {}
    /*implicit*/ Image(PixelStorage storage, PixelFormat format) noexcept;

    // Asserts that the data are large enough for the rows and their padding.
    explicit Image(PixelFormat format, const Vector2i& size, Containers::Array<char>&& data) noexcept:
        Image{PixelStorage{}, format, size, Utility::move(data)} {}
    explicit Image(
        PixelStorage storage, PixelFormat format, const Vector2i& size, Containers::Array<char>&& data) noexcept;

    Image(Image&& other) noexcept;
    Image& operator=(Image&& other) noexcept;

    /*implicit*/ operator ImageView2D() const;
    /*implicit*/ operator MutableImageView2D();

    PixelStorage storage() const { return _storage; }
    PixelFormat format() const { return _format; }
    // In bytes.
    UnsignedInt pixelSize() const { return _pixelSize; }
    Vector2i size() const { return _size; }

    // All bytes, with the padding.
    Containers::ArrayView<char> data() { return _data; }
    Containers::ArrayView<const char> data() const { return _data; }

    // Rows from the first in memory, pixels in a row, bytes of a pixel.
    Containers::StridedArrayView3D<char> pixels();
    Containers::StridedArrayView3D<const char> pixels() const;
    // Rows and pixels. Asserts that T has the size of a pixel.
    template<class T> Containers::StridedArrayView2D<T> pixels() { return Containers::arrayCast<2, T>(pixels()); }
    template<class T> Containers::StridedArrayView2D<const T> pixels() const {
        return Containers::arrayCast<2, const T>(pixels());
    }

    // Gives the data away.
    Containers::Array<char> release();

private:
    PixelStorage _storage;
    PixelFormat _format;
    UnsignedInt _pixelSize;
    Vector2i _size;
    Containers::Array<char> _data;
};

}
