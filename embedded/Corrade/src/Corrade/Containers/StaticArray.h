#pragma once

/** An array whose size is known when compiling, stored in place. */

#include "Corrade/Containers/ArrayView.h"
#include "Corrade/Tags.h"
#include "Corrade/Utility/Move.h"

#include <utility>

namespace Corrade::Containers {

namespace Implementation {
template<std::size_t size, class T> struct IsContiguous<StaticArray<size, T>>: std::true_type {};
}

/** Copyable and movable as far as `T` is. Access is checked in debug builds. */
template<std::size_t size_, class T> class StaticArray {
public:
    using Type = T;

    /** Zeros or default-constructed items. */
    constexpr explicit StaticArray(ValueInitT): _data{} {}
    constexpr /*implicit*/ StaticArray(): _data{} {}
    /** Uninitialised; for types where that is harmless. */
    explicit StaticArray(NoInitT) { static_assert(std::is_trivially_default_constructible<T>::value, ""); }
    /** Every item from the same arguments. */
    template<class... Args>
    constexpr explicit StaticArray(DirectInitT, const Args&... args):
        StaticArray{DirectInit, std::make_index_sequence<size_>{}, args...} {}
    /** As many values as there are items. */
    template<class... Args>
    constexpr explicit StaticArray(InPlaceInitT, Args&&... args): _data{Utility::forward<Args>(args)...} {
        static_assert(sizeof...(Args) == size_, "wrong number of values");
    }
    constexpr explicit StaticArray(InPlaceInitT, const T (&values)[size_]):
        StaticArray{std::make_index_sequence<size_>{}, values} {}
    template<class... Args,
        class =
            std::enable_if_t<sizeof...(Args) == size_ && std::conjunction<std::is_convertible<Args&&, T>...>::value>>
    constexpr /*implicit*/ StaticArray(Args&&... args): _data{Utility::forward<Args>(args)...} {}

    constexpr T* data() { return _data; }
    constexpr const T* data() const { return _data; }
    constexpr std::size_t size() const { return size_; }
    constexpr bool isEmpty() const { return !size_; }

    constexpr T* begin() { return _data; }
    constexpr const T* begin() const { return _data; }
    constexpr T* end() { return _data + size_; }
    constexpr const T* end() const { return _data + size_; }
    constexpr T& front() { return _data[0]; }
    constexpr const T& front() const { return _data[0]; }
    constexpr T& back() { return _data[size_ - 1]; }
    constexpr const T& back() const { return _data[size_ - 1]; }
    constexpr T& operator[](std::size_t i) { return _data[checked(i)]; }
    constexpr const T& operator[](std::size_t i) const { return _data[checked(i)]; }

private:
    template<std::size_t... i, class... Args>
    constexpr explicit StaticArray(DirectInitT, std::index_sequence<i...>, const Args&... args):
        _data{(static_cast<void>(i), T(args...))...} {}

    template<std::size_t... i>
    constexpr explicit StaticArray(std::index_sequence<i...>, const T (&values)[size_]): _data{values[i]...} {}

    static constexpr std::size_t checked(std::size_t i) {
        _CORRADE_CONTAINERS_CHECK(
            i < size_, "StaticArray::operator[](): index %zu out of range for %zu elements", i, size_);
        return i;
    }

    T _data[size_];
};

}
