#pragma once

/** A list of strings of whatever type. */

#include "Corrade/Containers/StridedArrayView.h"
#include "Corrade/Containers/StringView.h"

namespace Corrade {
namespace Containers {

/**
View on a list of anything that converts to StringView: arrays, views and initializer lists of StringView, String,
`const char*` and others. The list has to stay alive; an initializer list does until the end of the full expression.
Access is checked in debug builds.
*/
class CORRADE_VISIBILITY_EXPORT StringIterable {
public:
    class Iterator;

    /*implicit*/ StringIterable(std::nullptr_t = nullptr) noexcept {}
    /*implicit*/ StringIterable(std::initializer_list<StringView> list) noexcept: StringIterable{arrayView(list)} {}
    template<class C, class U = typename decltype(stridedArrayView(std::declval<C&&>()))::Type,
        class = std::enable_if_t<std::is_convertible<const U&, StringView>::value>>
    /*implicit*/ StringIterable(C&& list) noexcept:
        StringIterable{
            stridedArrayView(list), [](const void* item) { return StringView(*static_cast<const U*>(item)); }} {}

    /** The first item, of a type that only its creator knows. */
    const void* data() const { return _data; }
    std::size_t size() const { return _size; }
    /** Bytes between items. */
    std::ptrdiff_t stride() const { return _stride; }
    bool isEmpty() const { return !_size; }

    StringView operator[](std::size_t i) const {
        _CORRADE_CONTAINERS_CHECK(
            i < _size, "StringIterable::operator[](): index %zu out of range for %zu elements", i, _size);
        return at(i);
    }
    StringView front() const {
        _CORRADE_CONTAINERS_CHECK(_size, "StringIterable::front(): view is empty");
        return at(0);
    }
    StringView back() const {
        _CORRADE_CONTAINERS_CHECK(_size, "StringIterable::back(): view is empty");
        return at(_size - 1);
    }
    inline Iterator begin() const;
    inline Iterator end() const;

private:
    using Accessor = StringView (*)(const void*);

    explicit StringIterable(const StridedArrayView1D<const void>& list, Accessor accessor) noexcept:
        _data{list.data()}, _size{list.size()}, _stride{list.stride()}, _accessor{accessor} {}

    StringView at(std::size_t i) const {
        return _accessor(static_cast<const char*>(_data) + std::ptrdiff_t(i) * _stride);
    }

    const void* _data = nullptr;
    std::size_t _size = 0;
    std::ptrdiff_t _stride = 0;
    Accessor _accessor = nullptr;
};

/** Valid as long as the list that it iterates over. */
class StringIterable::Iterator {
public:
    /*implicit*/ Iterator(const StringIterable& list, std::size_t i): _list{list}, _i{i} {}

    StringView operator*() const { return _list.at(_i); }
    Iterator& operator++() {
        ++_i;
        return *this;
    }
    bool operator==(const Iterator& other) const { return _i == other._i; }
    bool operator!=(const Iterator& other) const { return _i != other._i; }
    std::ptrdiff_t operator-(const Iterator& other) const { return std::ptrdiff_t(_i - other._i); }

private:
    StringIterable _list;
    std::size_t _i;
};

inline StringIterable::Iterator StringIterable::begin() const { return {*this, 0}; }
inline StringIterable::Iterator StringIterable::end() const { return {*this, _size}; }

}
}
