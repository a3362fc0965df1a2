#pragma once

/** An owning array of fixed size. Growing ones are made of it by the functions in GrowableArray.h. */

#include "Corrade/Containers/ArrayView.h"
#include "Corrade/Tags.h"
#include "Corrade/Utility/Move.h"

#include <cstring>
#include <new>

namespace Corrade::Containers {

namespace Implementation {

template<class T, class D> struct IsContiguous<Array<T, D>>: std::true_type {};

/** Copies, moves or else, with braces, constructs in raw memory. */
template<class T, class... Args> void construct(T* where, Args&&... args) {
    if constexpr(std::conjunction<std::bool_constant<sizeof...(Args) == 1>,
                     std::is_same<RemoveCvRef<Args>, T>...>::value)
        new(static_cast<void*>(where)) T(Utility::forward<Args>(args)...);
    else
        new(static_cast<void*>(where)) T{Utility::forward<Args>(args)...};
}

/** Constructs `count` items in raw memory; a plain copy of bytes where the type allows it. */
template<class T> void copyConstruct(const T* from, T* to, std::size_t count) {
    if constexpr(std::is_trivially_copyable<T>::value) {
        if(count) std::memcpy(static_cast<void*>(to), from, count * sizeof(T));
    } else
        for(std::size_t i = 0; i != count; ++i) construct(to + i, from[i]);
}

template<class T> void destroy(T* data, std::size_t count) {
    if constexpr(!std::is_trivially_destructible<T>::value)
        for(std::size_t i = 0; i != count; ++i) data[i].~T();
}

/** Whether new[] alone gives items that may be left uninitialised. */
template<class T> using IsNoInitTrivial = std::is_trivially_default_constructible<T>;

/** Counterpart of allocateNoInit() for the other types. */
template<class T> void noInitDeleter(T* data, std::size_t size) {
    if(!data) return;
    destroy(data, size);
    delete[] reinterpret_cast<char*>(data);
}

template<class T> T* allocateNoInit(std::size_t size) {
    static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__, "over-aligned types need a deleter of their own");
    if(!size) return nullptr;
    if constexpr(IsNoInitTrivial<T>::value)
        return new T[size];
    else
        return reinterpret_cast<T*>(new char[size * sizeof(T)]);
}

struct ArrayAccess;

}

/**
Owns `size()` items on the heap; move-only. A deleter that is a null function pointer stands for `delete[]`; any other is
called with data and size when the array goes away, even if there are no items. Access is checked in debug builds.
*/
template<class T, class D> class Array {
public:
    using Type = T;
    using Deleter = D;

    /*implicit*/ Array(std::nullptr_t = nullptr) noexcept: _data{}, _size{}, _deleter{} {}
    /** Zeros or default-constructed items. */
    explicit Array(ValueInitT, std::size_t size): _data{size ? new T[size]() : nullptr}, _size{size}, _deleter{} {}
    /** Uninitialised memory: types with constructors have to be constructed in it before the array goes away. */
    explicit Array(NoInitT, std::size_t size);
    /** Every item from the same arguments. */
    template<class... Args> explicit Array(DirectInitT, std::size_t size, const Args&... args): Array{NoInit, size} {
        for(std::size_t i = 0; i != size; ++i) Implementation::construct(_data + i, args...);
    }
    /** Copies of the items. */
    explicit Array(InPlaceInitT, ArrayView<const T> list): Array{NoInit, list.size()} {
        Implementation::copyConstruct(list.data(), _data, _size);
    }
    explicit Array(InPlaceInitT, std::initializer_list<T> list): Array{InPlaceInit, arrayView(list)} {}
    /** Takes ownership. */
    explicit Array(T* data, std::size_t size, D deleter = {}) noexcept:
        _data{data}, _size{size}, _deleter{Utility::move(deleter)} {}

    Array(Array<T, D>&& other) noexcept:
        _data{other._data}, _size{other._size}, _deleter{Utility::move(other._deleter)} {
        other.forget();
    }
    Array<T, D>& operator=(Array<T, D>&& other) noexcept {
        Utility::swap(_data, other._data);
        Utility::swap(_size, other._size);
        Utility::swap(_deleter, other._deleter);
        return *this;
    }
    ~Array() { callDeleter(); }

    /** Whether the data isn't null. */
    explicit operator bool() const { return _data; }

    T* data() { return _data; }
    const T* data() const { return _data; }
    std::size_t size() const { return _size; }
    bool isEmpty() const { return !_size; }
    D deleter() const { return _deleter; }
    /** Gives the data up without calling the deleter; ask for size and deleter first. */
    T* release() {
        T* const data = _data;
        forget();
        return data;
    }

    T* begin() { return _data; }
    const T* begin() const { return _data; }
    T* end() { return _data + _size; }
    const T* end() const { return _data + _size; }
    T& front() { return const_cast<T&>(static_cast<const Array&>(*this).front()); }
    const T& front() const {
        _CORRADE_CONTAINERS_CHECK(_size, "Array::front(): array is empty");
        return _data[0];
    }
    T& back() { return const_cast<T&>(static_cast<const Array&>(*this).back()); }
    const T& back() const {
        _CORRADE_CONTAINERS_CHECK(_size, "Array::back(): array is empty");
        return _data[_size - 1];
    }
    T& operator[](std::size_t i) { return const_cast<T&>(static_cast<const Array&>(*this)[i]); }
    const T& operator[](std::size_t i) const {
        _CORRADE_CONTAINERS_CHECK(i < _size, "Array::operator[](): index %zu out of range for %zu elements", i, _size);
        return _data[i];
    }

    /* Views on parts, with the same rules as in ArrayView */
    ArrayView<T> slice(std::size_t begin, std::size_t end) { return view().slice(begin, end); }
    ArrayView<const T> slice(std::size_t begin, std::size_t end) const { return view().slice(begin, end); }
    ArrayView<T> sliceSize(std::size_t begin, std::size_t size) { return view().sliceSize(begin, size); }
    ArrayView<const T> sliceSize(std::size_t begin, std::size_t size) const { return view().sliceSize(begin, size); }
    template<std::size_t size> StaticArrayView<size, T> slice(std::size_t begin) {
        return view().template slice<size>(begin);
    }
    template<std::size_t size> StaticArrayView<size, const T> slice(std::size_t begin) const {
        return view().template slice<size>(begin);
    }
    ArrayView<T> prefix(std::size_t size) { return view().prefix(size); }
    ArrayView<const T> prefix(std::size_t size) const { return view().prefix(size); }
    ArrayView<T> suffix(T* begin) { return view().suffix(begin); }
    ArrayView<const T> suffix(const T* begin) const { return view().suffix(begin); }
    ArrayView<T> exceptPrefix(std::size_t count) { return view().exceptPrefix(count); }
    ArrayView<const T> exceptPrefix(std::size_t count) const { return view().exceptPrefix(count); }
    ArrayView<T> exceptSuffix(std::size_t count) { return view().exceptSuffix(count); }
    ArrayView<const T> exceptSuffix(std::size_t count) const { return view().exceptSuffix(count); }

private:
    friend Implementation::ArrayAccess;

    ArrayView<T> view() { return {_data, _size}; }
    ArrayView<const T> view() const { return {_data, _size}; }

    void forget() {
        _data = nullptr;
        _size = 0;
        _deleter = D{};
    }

    void callDeleter() {
        if constexpr(std::is_pointer<D>::value) {
            if(!_deleter) {
                delete[] _data;
                return;
            }
        }
        _deleter(_data, _size);
    }

    T* _data;
    std::size_t _size;
    D _deleter;
};

template<class T, class D>
Array<T, D>::Array(NoInitT, std::size_t size): _data{Implementation::allocateNoInit<T>(size)}, _size{size}, _deleter{} {
    static_assert(std::is_same<D, void (*)(T*, std::size_t)>::value, "can't use a custom deleter here");
    if constexpr(!Implementation::IsNoInitTrivial<T>::value) _deleter = Implementation::noInitDeleter<T>;
}

/** An array with copies of the items. */
template<class T> Array<T> array(std::initializer_list<T> list) { return Array<T>{InPlaceInit, list}; }

}
