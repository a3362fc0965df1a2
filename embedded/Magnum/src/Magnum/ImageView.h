#pragma once

#include <type_traits>

#include "Corrade/Containers/ArrayView.h"
#include "Corrade/Containers/StridedArrayView.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"
#include "Magnum/Math/Vector2.h"
#include "Magnum/PixelStorage.h"

namespace Magnum {

// Pixels in someone else's memory.
template<class T> class CORRADE_VISIBILITY_EXPORT ImageView<2, T> {
    typedef std::conditional_t<std::is_const<T>::value, const void, void> ErasedType;

public:
    // Asserts that the data are large enough for the rows and their padding.
    explicit ImageView(PixelFormat format, const Vector2i& size, Containers::ArrayView<ErasedType> data) noexcept:
        ImageView{PixelStorage{}, format, size, data} {}
    explicit ImageView(PixelStorage storage, PixelFormat format, const Vector2i& size,
        Containers::ArrayView<ErasedType> data) noexcept;

    // A view that may write converts to one that may not.
    template<class U, class = std::enable_if_t<std::is_same<U, char>::value && std::is_same<T, const char>::value>>
    /*implicit*/ ImageView(const ImageView<2, U>& other) noexcept:
        ImageView{other.storage(), other.format(), other.size(), other.data()} {}

    PixelStorage storage() const { return _storage; }
    PixelFormat format() const { return _format; }
    // In bytes.
    UnsignedInt pixelSize() const { return _pixelSize; }
    Vector2i size() const { return _size; }

    // All bytes, with the padding.
    Containers::ArrayView<T> data() const { return _data; }

    // Rows from the first in memory, pixels in a row, bytes of a pixel.
    Containers::StridedArrayView3D<T> pixels() const;
    // Rows and pixels. Asserts that U has the size of a pixel.
    template<class U> auto pixels() const {
        return Containers::arrayCast<2, std::conditional_t<std::is_const<T>::value, const U, U>>(pixels());
    }

private:
    PixelStorage _storage;
    PixelFormat _format;
    UnsignedInt _pixelSize;
    Vector2i _size;
    Containers::ArrayView<T> _data;
};

}
