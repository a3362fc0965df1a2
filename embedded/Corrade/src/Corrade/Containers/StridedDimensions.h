#pragma once

/** Sizes and strides of multi-dimensional views. */

#include "Corrade/Containers/Containers.h"

#include <utility>

namespace Corrade::Containers {

/** One value for each dimension, zero by default. With one dimension it converts from and to the value. */
template<unsigned dimensions, class T> class StridedDimensions {
public:
    using Type = T;

    constexpr /*implicit*/ StridedDimensions() noexcept: _data{} {}
    template<class... Args,
        class = std::enable_if_t<sizeof...(Args) == dimensions && std::conjunction<std::is_arithmetic<Args>...>::value>>
    constexpr /*implicit*/ StridedDimensions(Args... values) noexcept: _data{T(values)...} {}

    /** Of one dimension only. */
    template<class U, class = std::enable_if_t<dimensions == 1 && std::is_same<U, T>::value>>
    constexpr /*implicit*/ operator U() const {
        return _data[0];
    }

    constexpr T& operator[](std::size_t i) { return _data[i]; }
    constexpr const T& operator[](std::size_t i) const { return _data[i]; }

    constexpr bool operator==(const StridedDimensions& other) const {
        for(unsigned i = 0; i != dimensions; ++i)
            if(_data[i] != other._data[i]) return false;
        return true;
    }
    constexpr bool operator!=(const StridedDimensions& other) const { return !(*this == other); }

    constexpr T* begin() { return _data; }
    constexpr const T* begin() const { return _data; }
    constexpr T* end() { return _data + dimensions; }
    constexpr const T* end() const { return _data + dimensions; }

private:
    T _data[dimensions];
};

}
