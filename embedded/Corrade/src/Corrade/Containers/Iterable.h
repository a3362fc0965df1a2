#pragma once

/** A list of objects, wherever they are. */

#include "Corrade/Containers/Reference.h"
#include "Corrade/Containers/StridedArrayView.h"

namespace Corrade {
namespace Containers {

namespace Implementation {

/** How to get from an item of a list to the `T` that it stands for. */
template<class T, class U> struct IterableItem {
    static constexpr bool IsSupported = IsArrayConvertible<U, T>::value;
    static T& get(const void* item) { return *static_cast<U*>(const_cast<void*>(item)); }
};
template<class T, class U> struct IterableItem<T, Reference<U>> {
    static constexpr bool IsSupported = std::is_convertible<U*, T*>::value;
    static T& get(const void* item) { return *static_cast<const Reference<U>*>(item); }
};
template<class T, class U> struct IterableItem<T, const Reference<U>>: IterableItem<T, Reference<U>> {};

}

/**
View on a list of `T`, of a derived type that is equally large, or of references to any derived types: arrays, strided
views, and lists of objects in braces, `f({a, b})`. The list has to stay alive; one in braces does until the end of the full expression.
Access is checked in debug builds.
*/
template<class T> class Iterable {
public:
    using Type = T;
    class Iterator;

    /*implicit*/ Iterable(std::nullptr_t = nullptr) noexcept {}
    /*implicit*/ Iterable(std::initializer_list<Reference<T>> list) noexcept: Iterable{arrayView(list)} {}
    template<class C, class U = typename decltype(stridedArrayView(std::declval<C&&>()))::Type,
        class = std::enable_if_t<Implementation::IterableItem<T, U>::IsSupported>>
    /*implicit*/ Iterable(C&& list) noexcept:
        Iterable{StridedArrayView1D<const void>{list}, Implementation::IterableItem<T, U>::get} {}

    /** The first item of the list: a `T`, a derived type or a reference. */
    const void* data() const { return _data; }
    std::size_t size() const { return _size; }
    /** Bytes between items of the list. */
    std::ptrdiff_t stride() const { return _stride; }
    bool isEmpty() const { return !_size; }

    T& operator[](std::size_t i) const {
        _CORRADE_CONTAINERS_CHECK(
            i < _size, "Iterable::operator[](): index %zu out of range for %zu elements", i, _size);
        return at(i);
    }
    T& front() const {
        _CORRADE_CONTAINERS_CHECK(_size, "Iterable::front(): view is empty");
        return at(0);
    }
    T& back() const {
        _CORRADE_CONTAINERS_CHECK(_size, "Iterable::back(): view is empty");
        return at(_size - 1);
    }
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, _size}; }

private:
    using Accessor = T& (*)(const void*);

    explicit Iterable(const StridedArrayView1D<const void>& list, Accessor accessor) noexcept:
        _data{list.data()}, _size{list.size()}, _stride{list.stride()}, _accessor{accessor} {}

    T& at(std::size_t i) const { return _accessor(static_cast<const char*>(_data) + std::ptrdiff_t(i) * _stride); }

    const void* _data = nullptr;
    std::size_t _size = 0;
    std::ptrdiff_t _stride = 0;
    Accessor _accessor = nullptr;
};

/** Valid as long as the list that it iterates over. */
template<class T> class Iterable<T>::Iterator {
public:
    /*implicit*/ Iterator(const Iterable<T>& list, std::size_t i): _list{list}, _i{i} {}

    T& operator*() const { return _list.at(_i); }
    Iterator& operator++() {
        ++_i;
        return *this;
    }
    bool operator==(const Iterator& other) const { return _i == other._i; }
    bool operator!=(const Iterator& other) const { return _i != other._i; }
    std::ptrdiff_t operator-(const Iterator& other) const { return std::ptrdiff_t(_i - other._i); }

private:
    Iterable<T> _list;
    std::size_t _i;
};

}
}
