#pragma once

/** What views on lists of unknown item types are made of. */

#include "Corrade/Containers/IndexIterator.h"
#include "Corrade/Containers/StridedArrayView.h"

namespace Corrade::Containers::Implementation {

/**
View on a list whose items are turned into an `Item`, a reference or a value, by a function. `Name` gives the name of the
class that assertions print.
*/
template<class Item, class Name> class ErasedList {
public:
    using Iterator = IndexIterator<ErasedList, Item>;

    /** The first item of the list, of a type that only its creator knows. */
    const void* data() const { return _data; }
    std::size_t size() const { return _size; }
    /** Bytes between items of the list. */
    std::ptrdiff_t stride() const { return _stride; }
    bool isEmpty() const { return !_size; }

    Item operator[](std::size_t i) const {
        _CORRADE_CONTAINERS_CHECK(
            i < _size, "%s::operator[](): index %zu out of range for %zu elements", Name::Value, i, _size);
        return at(i);
    }
    Item front() const {
        _CORRADE_CONTAINERS_CHECK(_size, "%s::front(): view is empty", Name::Value);
        return at(0);
    }
    Item back() const {
        _CORRADE_CONTAINERS_CHECK(_size, "%s::back(): view is empty", Name::Value);
        return at(_size - 1);
    }
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, _size}; }

protected:
    using Accessor = Item (*)(const void*);

    constexpr ErasedList() noexcept = default;
    explicit ErasedList(const StridedArrayView1D<const void>& list, Accessor accessor) noexcept:
        _data{list.data()}, _size{list.size()}, _stride{list.stride()}, _accessor{accessor} {}

private:
    friend Iterator;

    Item at(std::size_t i) const { return _accessor(static_cast<const char*>(_data) + std::ptrdiff_t(i) * _stride); }

    const void* _data = nullptr;
    std::size_t _size = 0;
    std::ptrdiff_t _stride = 0;
    Accessor _accessor = nullptr;
};

}
