#pragma once

/** Copying between views. */

#include "Corrade/Containers/StridedArrayView.h"
#include "Corrade/Utility/Assert.h"

#include <cstring>
#include <type_traits>

namespace Corrade::Utility {

namespace Implementation {

template<unsigned dimensions, class T>
void copyItems(const Containers::StridedArrayView<dimensions, const T>& from,
    const Containers::StridedArrayView<dimensions, T>& to) {
    const std::size_t size = Containers::Size<dimensions>(from.size())[0];
    if constexpr(dimensions != 1) {
        for(std::size_t i = 0; i != size; ++i) copyItems<dimensions - 1, T>(from[i], to[i]);
    } else if(from.isContiguous() && to.isContiguous()) {
        if(size) std::memcpy(static_cast<void*>(to.data()), from.data(), size * sizeof(T));
    } else {
        for(std::size_t i = 0; i != size; ++i) to[i] = from[i];
    }
}

/** Prints the size in all dimensions, the innermost being the bytes of an item. */
template<unsigned dimensions> struct CopySize {
    Containers::Size<dimensions> size;
    std::size_t itemSize;
};
template<unsigned dimensions> Debug& operator<<(Debug& debug, const CopySize<dimensions>& value) {
    debug << "{" << Debug::nospace;
    for(const std::size_t i: value.size) debug << i << Debug::nospace << "," << Debug::space;
    return debug << value.itemSize << Debug::nospace << "}";
}

template<unsigned dimensions, class T, class U>
void copyChecked(
    const Containers::StridedArrayView<dimensions, T>& from, const Containers::StridedArrayView<dimensions, U>& to) {
    static_assert(std::is_same<const T, const U>::value && std::is_trivially_copyable<T>::value,
        "copying is between views of the same trivially copyable type");
    const Containers::Size<dimensions> fromSize = from.size();
    const Containers::Size<dimensions> toSize = to.size();
    CORRADE_ASSERT(fromSize == toSize,
        "Utility::copy(): sizes" << (CopySize<dimensions>{fromSize, sizeof(T)}) << "and"
                                 << (CopySize<dimensions>{toSize, sizeof(U)}) << "don't match", );
    copyItems<dimensions, U>(from, to);
}

}

/**
Copies all items between two arrays or views of the same type, size and number of dimensions, which must not overlap. The
type has to be trivially copyable.
*/
template<class From, class To> void copy(const From& from, To&& to) {
    Implementation::copyChecked(Containers::stridedArrayView(from), Containers::stridedArrayView(to));
}

}
