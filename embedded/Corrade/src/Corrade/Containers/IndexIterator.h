#pragma once

#include <cstddef>

namespace Corrade::Containers::Implementation {

/** Position in a view whose items are given by `at()`. Keeps a copy of the view. */
template<class View, class Item> class IndexIterator {
public:
    /*implicit*/ IndexIterator(const View& view, std::size_t i): _view{view}, _i{i} {}

    Item operator*() const { return _view.at(_i); }
    IndexIterator& operator++() {
        ++_i;
        return *this;
    }
    IndexIterator operator+(std::ptrdiff_t count) const { return {_view, _i + count}; }
    std::ptrdiff_t operator-(const IndexIterator& other) const { return std::ptrdiff_t(_i - other._i); }
    bool operator==(const IndexIterator& other) const { return _i == other._i; }
    bool operator!=(const IndexIterator& other) const { return _i != other._i; }

private:
    View _view;
    std::size_t _i;
};

}
