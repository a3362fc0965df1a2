#pragma once

/** Non-owning views on contiguous memory: a pointer and a size, passed by value. */

#include "Corrade/Containers/Checks.h"
#include "Corrade/Containers/Containers.h"

#include <initializer_list>

namespace Corrade::Containers {

namespace Implementation {

/** Which of our types a view can be made of: those with contiguous data() and size(). Specialised next to them. */
template<class> struct IsContiguous: std::false_type {};
template<class T> struct IsContiguous<ArrayView<T>>: std::true_type {};
template<std::size_t size, class T> struct IsContiguous<StaticArrayView<size, T>>: std::true_type {};

template<class C> using RemoveCvRef = std::remove_cv_t<std::remove_reference_t<C>>;

/** What data() of the container points to, const where the container is; not defined for anything else. */
template<class C, class = std::enable_if_t<IsContiguous<RemoveCvRef<C>>::value>>
using ElementOf = std::remove_pointer_t<decltype(std::declval<std::remove_reference_t<C>&>().data())>;

/** Same size, so that the items are where the view expects them. */
template<class From, class To>
using IsArrayConvertible = std::bool_constant<std::is_convertible<From*, To*>::value && sizeof(From) == sizeof(To)>;

template<class T> struct SizeOf: std::integral_constant<std::size_t, sizeof(T)> {};
template<> struct SizeOf<void>: std::integral_constant<std::size_t, 1> {};
template<> struct SizeOf<const void>: std::integral_constant<std::size_t, 1> {};

}

/**
View on `size()` items of type `T`. Of type `const T` for reading only. A view on a derived type converts to one on the
base if both are equally large. Access and slicing are checked in debug builds. All slices are views on the same memory.
*/
template<class T> class ArrayView {
public:
    using Type = T;

    constexpr /*implicit*/ ArrayView(std::nullptr_t = nullptr) noexcept: _data{}, _size{} {}
    constexpr /*implicit*/ ArrayView(T* data, std::size_t size) noexcept: _data{data}, _size{size} {}
    template<class U, std::size_t size, class = std::enable_if_t<Implementation::IsArrayConvertible<U, T>::value>>
    constexpr /*implicit*/ ArrayView(U (&data)[size]) noexcept: _data{data}, _size{size} {}
    /** Of another view or a container, which has to stay alive. */
    template<class C,
        class = std::enable_if_t<!std::is_same<Implementation::RemoveCvRef<C>, ArrayView<T>>::value &&
            Implementation::IsArrayConvertible<Implementation::ElementOf<C>, T>::value>>
    constexpr /*implicit*/ ArrayView(C&& container) noexcept: _data{container.data()}, _size{container.size()} {}

    /** Whether the data isn't null. */
    constexpr explicit operator bool() const { return _data; }

    constexpr T* data() const { return _data; }
    constexpr std::size_t size() const { return _size; }
    constexpr bool isEmpty() const { return !_size; }

    constexpr T* begin() const { return _data; }
    constexpr T* end() const { return _data + _size; }
    constexpr T& front() const {
        _CORRADE_CONTAINERS_CHECK(_size, "ArrayView::front(): view is empty");
        return _data[0];
    }
    constexpr T& back() const {
        _CORRADE_CONTAINERS_CHECK(_size, "ArrayView::back(): view is empty");
        return _data[_size - 1];
    }
    constexpr T& operator[](std::size_t i) const {
        _CORRADE_CONTAINERS_CHECK(
            i < _size, "ArrayView::operator[](): index %zu out of range for %zu elements", i, _size);
        return _data[i];
    }

    constexpr ArrayView<T> slice(std::size_t begin, std::size_t end) const {
        _CORRADE_CONTAINERS_CHECK_SLICE("ArrayView", begin, end, _size);
        return {_data + begin, end - begin};
    }
    constexpr ArrayView<T> sliceSize(std::size_t begin, std::size_t size) const { return slice(begin, begin + size); }
    template<std::size_t size> constexpr StaticArrayView<size, T> slice(std::size_t begin) const {
        return StaticArrayView<size, T>{slice(begin, begin + size).data()};
    }
    constexpr ArrayView<T> prefix(std::size_t size) const { return slice(0, size); }
    /** From the given item on; a null view for a null pointer. */
    constexpr ArrayView<T> suffix(T* begin) const {
        if(_data && !begin) return {};
        _CORRADE_CONTAINERS_CHECK_POINTER_SLICE("ArrayView", begin - _data, std::ptrdiff_t(_size), _size);
        return {begin, std::size_t(_data + _size - begin)};
    }
    constexpr ArrayView<T> exceptPrefix(std::size_t count) const { return slice(count, _size); }
    constexpr ArrayView<T> exceptSuffix(std::size_t count) const { return slice(0, _size - count); }

private:
    T* _data;
    std::size_t _size;
};

namespace Implementation {

/** What both views on untyped memory have in common; `V` is `void` or `const void`. */
template<class V> class ErasedArrayView {
public:
    using Type = V;

    constexpr /*implicit*/ ErasedArrayView(std::nullptr_t = nullptr) noexcept: _data{}, _size{} {}
    constexpr /*implicit*/ ErasedArrayView(V* data, std::size_t bytes) noexcept: _data{data}, _size{bytes} {}
    template<class U, class = std::enable_if_t<std::is_convertible<U*, V*>::value>>
    constexpr /*implicit*/ ErasedArrayView(U* data, std::size_t count) noexcept:
        _data{data}, _size{count * SizeOf<U>::value} {}
    template<class U, std::size_t size, class = std::enable_if_t<std::is_convertible<U*, V*>::value>>
    constexpr /*implicit*/ ErasedArrayView(U (&data)[size]) noexcept: _data{data}, _size{sizeof(data)} {}
    template<class C, class = std::enable_if_t<std::is_convertible<ElementOf<C>*, V*>::value>>
    constexpr /*implicit*/ ErasedArrayView(C&& container) noexcept:
        _data{container.data()}, _size{container.size() * SizeOf<ElementOf<C>>::value} {}

    constexpr explicit operator bool() const { return _data; }

    constexpr V* data() const { return _data; }
    constexpr std::size_t size() const { return _size; }
    constexpr bool isEmpty() const { return !_size; }

private:
    V* _data;
    std::size_t _size;
};

}

/** View on `size()` bytes of any type. */
template<> class ArrayView<void>: public Implementation::ErasedArrayView<void> {
public:
    using Implementation::ErasedArrayView<void>::ErasedArrayView;
};

/** View on `size()` constant bytes of any type. */
template<> class ArrayView<const void>: public Implementation::ErasedArrayView<const void> {
public:
    using Implementation::ErasedArrayView<const void>::ErasedArrayView;
};

/** View on a number of items that is known when compiling. */
template<std::size_t size_, class T> class StaticArrayView {
public:
    using Type = T;

    constexpr /*implicit*/ StaticArrayView(std::nullptr_t = nullptr) noexcept: _data{} {}
    /** The caller knows that there are enough items. */
    constexpr explicit StaticArrayView(T* data) noexcept: _data{data} {}
    template<class U, class = std::enable_if_t<Implementation::IsArrayConvertible<U, T>::value>>
    constexpr /*implicit*/ StaticArrayView(U (&data)[size_]) noexcept: _data{data} {}
    template<class U, class = std::enable_if_t<Implementation::IsArrayConvertible<U, T>::value>>
    constexpr /*implicit*/ StaticArrayView(StaticArrayView<size_, U> view) noexcept: _data{view.data()} {}
    template<class U, class = std::enable_if_t<Implementation::IsArrayConvertible<U, T>::value>>
    constexpr /*implicit*/ StaticArrayView(StaticArray<size_, U>& array) noexcept: _data{array.data()} {}
    template<class U, class = std::enable_if_t<Implementation::IsArrayConvertible<const U, T>::value>>
    constexpr /*implicit*/ StaticArrayView(const StaticArray<size_, U>& array) noexcept: _data{array.data()} {}

    constexpr explicit operator bool() const { return _data; }

    constexpr T* data() const { return _data; }
    constexpr std::size_t size() const { return size_; }
    constexpr bool isEmpty() const { return !size_; }

    constexpr T* begin() const { return _data; }
    constexpr T* end() const { return _data + size_; }
    constexpr T& front() const { return _data[0]; }
    constexpr T& back() const { return _data[size_ - 1]; }
    constexpr T& operator[](std::size_t i) const {
        _CORRADE_CONTAINERS_CHECK(
            i < size_, "StaticArrayView::operator[](): index %zu out of range for %zu elements", i, size_);
        return _data[i];
    }

private:
    T* _data;
};

template<class T> constexpr ArrayView<T> arrayView(T* data, std::size_t size) { return {data, size}; }
template<std::size_t size, class T> constexpr ArrayView<T> arrayView(T (&data)[size]) { return data; }
/** The list lives until the end of the full expression. */
template<class T> constexpr ArrayView<const T> arrayView(std::initializer_list<T> list) {
    return {list.begin(), list.size()};
}
template<class C> constexpr ArrayView<Implementation::ElementOf<C>> arrayView(C&& container) {
    return {container.data(), container.size()};
}

/**
The same memory as items of another type. The size in bytes has to be divisible by that of the new type; this is checked
in all builds.
*/
template<class U, class C>
ArrayView<U> arrayCast(
    C&& container, std::enable_if_t<Implementation::IsContiguous<Implementation::RemoveCvRef<C>>::value>* = nullptr) {
    using T = Implementation::ElementOf<C>;
    static_assert(std::is_standard_layout<U>::value, "the target type is not standard layout");
    const std::size_t bytes = container.size() * Implementation::SizeOf<T>::value;
    if constexpr(std::is_void<T>::value)
        _CORRADE_CONTAINERS_ASSERT(
            bytes % sizeof(U) == 0, "arrayCast(): can't reinterpret %zu bytes into a %zu-byte type", bytes, sizeof(U));
    else {
        static_assert(std::is_standard_layout<T>::value, "the source type is not standard layout");
        _CORRADE_CONTAINERS_ASSERT(bytes % sizeof(U) == 0,
            "arrayCast(): can't reinterpret %zu %zu-byte items into a %zu-byte type", container.size(), sizeof(T),
            sizeof(U));
    }
    return {
        static_cast<U*>(static_cast<std::conditional_t<std::is_const<T>::value, const void*, void*>>(container.data())),
        bytes / sizeof(U)};
}

}
