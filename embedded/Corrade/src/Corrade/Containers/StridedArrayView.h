#pragma once

/** Non-owning views with one to four dimensions and any distance between items. */

#include "Corrade/Containers/ArrayView.h"
#include "Corrade/Containers/IndexIterator.h"
#include "Corrade/Containers/StridedDimensions.h"

namespace Corrade::Containers {

namespace Implementation {

/** `void` with the constness of `T`. */
template<class T> using ErasedOf = std::conditional_t<std::is_const<T>::value, const void, void>;
template<class T> using BytesOf = std::conditional_t<std::is_const<T>::value, const char, char>;

template<unsigned dimensions>
constexpr Stride<dimensions> contiguousStride(const Size<dimensions>& size, std::size_t itemSize) {
    Stride<dimensions> stride;
    std::size_t current = itemSize;
    for(unsigned i = dimensions; i != 0; --i) {
        stride[i - 1] = std::ptrdiff_t(current);
        current *= size[i - 1];
    }
    return stride;
}

constexpr std::size_t distance(std::ptrdiff_t stride) { return std::size_t(stride < 0 ? -stride : stride); }

/** Internal: nothing to check. */
struct UncheckedT {};

/** Pointer, sizes and strides, of which all strided views are made. `V` is `void` or `const void`. */
template<unsigned dimensions, class V> class StridedData {
public:
    /** Of the first item, which isn't the one with the lowest address if a stride is negative. */
    constexpr V* data() const { return _data; }
    /** Number of items in each dimension; a plain number if there is one dimension. */
    constexpr std::conditional_t<dimensions == 1, std::size_t, const Containers::Size<dimensions>&> size() const {
        return _size;
    }
    /** Bytes between items in each dimension; a plain number if there is one dimension. */
    constexpr std::conditional_t<dimensions == 1, std::ptrdiff_t, const Containers::Stride<dimensions>&>
    stride() const {
        return _stride;
    }
    /** For each dimension. */
    constexpr StridedDimensions<dimensions, bool> isEmpty() const {
        StridedDimensions<dimensions, bool> empty;
        for(unsigned i = 0; i != dimensions; ++i) empty[i] = !_size[i];
        return empty;
    }

    /** Whether the data isn't null. */
    constexpr explicit operator bool() const { return _data; }

protected:
    constexpr StridedData() noexcept: _data{} {}
    constexpr StridedData(
        V* data, const Containers::Size<dimensions>& size, const Containers::Stride<dimensions>& stride) noexcept:
        _data{data},
        _size{size}, _stride{stride} {}
    /** Checks that the memory is large enough, without regard to where in it `member` is. */
    constexpr StridedData(ArrayView<const void> data, V* member, const Containers::Size<dimensions>& size,
        const Containers::Stride<dimensions>& stride) noexcept:
        StridedData{member, size, stride} {
        static_cast<void>(data);
        _CORRADE_CONTAINERS_CHECK(fits(data.size()),
            "StridedArrayView: data size %zu is not enough for %s elements of stride %s", data.size(),
            DimensionsText(size.begin(), dimensions).data, DimensionsText(stride.begin(), dimensions).data);
    }

    V* _data;
    Containers::Size<dimensions> _size;
    Containers::Stride<dimensions> _stride;

private:
    constexpr bool fits(std::size_t bytes) const {
        bool fits = true;
        for(unsigned i = 0; i != dimensions; ++i) {
            if(!_size[i]) return true;
            fits = fits && _size[i] * distance(_stride[i]) <= bytes;
        }
        return fits;
    }
};

}

/**
View on items of type `T`, or `const T` for reading only, each `stride()` bytes after the one before. A stride can be
negative or zero. Access by one index gives a view with one dimension less, or the item itself. Access and slicing are
checked in debug builds. Everything that returns a view returns one on the same memory.
*/
template<unsigned dimensions, class T>
class StridedArrayView: public Implementation::StridedData<dimensions, Implementation::ErasedOf<T>> {
    using Base = Implementation::StridedData<dimensions, Implementation::ErasedOf<T>>;
    using Size = Containers::Size<dimensions>;
    using Stride = Containers::Stride<dimensions>;

public:
    using Type = T;
    using ErasedType = Implementation::ErasedOf<T>;
    /** What one index gives. */
    using Element = std::conditional_t<dimensions == 1, T&, StridedArrayView<dimensions - (dimensions > 1), T>>;

    using Iterator = Implementation::IndexIterator<StridedArrayView, Element>;

    constexpr /*implicit*/ StridedArrayView(std::nullptr_t = nullptr) noexcept {}
    /** Starts at `member`, which is in `data`. */
    constexpr /*implicit*/ StridedArrayView(
        ArrayView<ErasedType> data, T* member, const Size& size, const Stride& stride) noexcept:
        Base{data, member, size, stride} {}
    /** Starts at the beginning of `data`. */
    constexpr /*implicit*/ StridedArrayView(ArrayView<T> data, const Size& size, const Stride& stride) noexcept:
        Base{data, data.data(), size, stride} {}
    /** Without gaps, the last dimension being the one with adjacent items. */
    constexpr /*implicit*/ StridedArrayView(ArrayView<T> data, const Size& size) noexcept:
        StridedArrayView{data, size, Implementation::contiguousStride<dimensions>(size, sizeof(T))} {}
    template<unsigned d = dimensions, class = std::enable_if_t<d == 1>>
    constexpr /*implicit*/ StridedArrayView(T* data, std::size_t size) noexcept:
        Base{data, Size(size), Stride(sizeof(T))} {}
    template<class U, std::size_t size,
        class = std::enable_if_t<dimensions == 1 && size && Implementation::IsArrayConvertible<U, T>::value>>
    constexpr /*implicit*/ StridedArrayView(U (&data)[size]) noexcept:
        Base{static_cast<T*>(data), Size(size), Stride(sizeof(U))} {}
    template<class C, class U = Implementation::ElementOf<C>,
        class = std::enable_if_t<dimensions == 1 && Implementation::IsArrayConvertible<U, T>::value>>
    constexpr /*implicit*/ StridedArrayView(C&& container) noexcept:
        Base{static_cast<T*>(container.data()), Size(container.size()), Stride(sizeof(U))} {}
    /** A view on a derived type converts to one on the base if both are equally large. */
    template<class U,
        class = std::enable_if_t<!std::is_same<U, T>::value && Implementation::IsArrayConvertible<U, T>::value>>
    constexpr /*implicit*/ StridedArrayView(const StridedArrayView<dimensions, U>& other) noexcept:
        Base{static_cast<T*>(static_cast<U*>(other.data())), Size(other.size()), Stride(other.stride())} {}

    Element operator[](std::size_t i) const {
        _CORRADE_CONTAINERS_CHECK(
            i < _size[0], "StridedArrayView::operator[](): index %zu out of range for %zu elements", i, _size[0]);
        return at(i);
    }
    /** The item at a position in all dimensions. */
    T& operator[](const Size& i) const;

    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, _size[0]}; }
    Element front() const {
        _CORRADE_CONTAINERS_CHECK(_size[0], "StridedArrayView::front(): view is empty");
        return at(0);
    }
    Element back() const {
        _CORRADE_CONTAINERS_CHECK(_size[0], "StridedArrayView::back(): view is empty");
        return at(_size[0] - 1);
    }

    /** @{ In the first dimension, or in all of them. */
    StridedArrayView slice(std::size_t begin, std::size_t end) const {
        _CORRADE_CONTAINERS_CHECK_SLICE("StridedArrayView", begin, end, _size[0]);
        StridedArrayView out = *this;
        out._data = offset(std::ptrdiff_t(begin) * _stride[0]);
        out._size[0] = end - begin;
        return out;
    }
    StridedArrayView slice(const Size& begin, const Size& end) const;
    StridedArrayView sliceSize(std::size_t begin, std::size_t size) const { return slice(begin, begin + size); }
    StridedArrayView sliceSize(const Size& begin, const Size& size) const {
        Size end;
        for(unsigned i = 0; i != dimensions; ++i) end[i] = begin[i] + size[i];
        return slice(begin, end);
    }
    StridedArrayView prefix(std::size_t size) const { return slice(0, size); }
    StridedArrayView prefix(const Size& size) const { return slice(Size{}, size); }
    StridedArrayView exceptPrefix(std::size_t count) const { return slice(count, _size[0]); }
    StridedArrayView exceptPrefix(const Size& count) const { return slice(count, _size); }
    StridedArrayView exceptSuffix(std::size_t count) const { return slice(0, _size[0] - count); }
    StridedArrayView exceptSuffix(const Size& count) const {
        Size end;
        for(unsigned i = 0; i != dimensions; ++i) end[i] = _size[i] - count[i];
        return slice(Size{}, end);
    }
    /** @} */
    /** One member of each item: `view.slice(&Vertex::position)`. */
    template<class U, class C,
        class = std::enable_if_t<std::is_base_of<C, std::remove_const_t<T>>::value && !std::is_function<U>::value>>
    StridedArrayView<dimensions, std::conditional_t<std::is_const<T>::value, const U, U>> slice(U C::*member) const {
        using View = StridedArrayView<dimensions, std::conditional_t<std::is_const<T>::value, const U, U>>;
        return View{Implementation::UncheckedT{}, _data ? &(static_cast<T*>(_data)->*member) : nullptr, _size, _stride};
    }

    /** @{ Every n-th item, starting at the last one if the step is negative. */
    StridedArrayView every(std::ptrdiff_t step) const {
        Stride steps;
        for(unsigned i = 0; i != dimensions; ++i) steps[i] = i ? 1 : step;
        return every(steps);
    }
    StridedArrayView every(const Stride& step) const;
    /** @} */
    /** With two dimensions exchanged. */
    template<unsigned a, unsigned b> StridedArrayView transposed() const {
        static_assert(a < dimensions && b < dimensions, "dimensions out of range");
        StridedArrayView out = *this;
        out._size[a] = _size[b];
        out._size[b] = _size[a];
        out._stride[a] = _stride[b];
        out._stride[b] = _stride[a];
        return out;
    }
    /** With the opposite order in one dimension. */
    template<unsigned dimension> StridedArrayView flipped() const {
        static_assert(dimension < dimensions, "dimension out of range");
        Stride step;
        for(unsigned i = 0; i != dimensions; ++i) step[i] = i == dimension ? -1 : 1;
        return every(step);
    }
    /** With the only item of one dimension repeated. */
    template<unsigned dimension> StridedArrayView broadcasted(std::size_t size) const {
        static_assert(dimension < dimensions, "dimension out of range");
        _CORRADE_CONTAINERS_CHECK(_size[dimension] == 1,
            "StridedArrayView::broadcasted(): can't broadcast dimension %u with %zu elements", dimension,
            _size[dimension]);
        StridedArrayView out = *this;
        out._size[dimension] = size;
        out._stride[dimension] = 0;
        return out;
    }

    /** Whether there are no gaps between items from the given dimension on. */
    template<unsigned dimension = 0> bool isContiguous() const {
        static_assert(dimension < dimensions, "dimension out of range");
        const Stride contiguous = Implementation::contiguousStride<dimensions>(_size, sizeof(T));
        for(unsigned i = dimension; i != dimensions; ++i)
            if(_stride[i] != contiguous[i]) return false;
        return true;
    }
    /** All items in a row; there must be no gaps. */
    ArrayView<T> asContiguous() const {
        _CORRADE_CONTAINERS_CHECK(isContiguous(), "StridedArrayView::asContiguous(): the view is not contiguous");
        std::size_t size = 1;
        for(const std::size_t i: _size) size *= i;
        return {static_cast<T*>(_data), size};
    }
    /** The given dimension and those behind it in a row; there must be no gaps in those. */
    template<unsigned dimension> StridedArrayView<dimension + 1, T> asContiguous() const;

    /** For the functions of the library: nothing is checked. */
    constexpr explicit StridedArrayView(
        Implementation::UncheckedT, ErasedType* data, const Size& size, const Stride& stride) noexcept:
        Base{data, size, stride} {}

private:
    friend Iterator;

    using Base::_data;
    using Base::_size;
    using Base::_stride;

    ErasedType* offset(std::ptrdiff_t bytes) const { return static_cast<Implementation::BytesOf<T>*>(_data) + bytes; }

    Element at(std::size_t i) const {
        ErasedType* const data = offset(std::ptrdiff_t(i) * _stride[0]);
        if constexpr(dimensions == 1)
            return *static_cast<T*>(data);
        else {
            Containers::Size<dimensions - 1> size;
            Containers::Stride<dimensions - 1> stride;
            for(unsigned j = 1; j != dimensions; ++j) {
                size[j - 1] = _size[j];
                stride[j - 1] = _stride[j];
            }
            return Element{Implementation::UncheckedT{}, data, size, stride};
        }
    }
};

template<unsigned dimensions, class T> T& StridedArrayView<dimensions, T>::operator[](const Size& i) const {
    std::ptrdiff_t bytes = 0;
    for(unsigned j = 0; j != dimensions; ++j) {
        _CORRADE_CONTAINERS_CHECK(i[j] < _size[j],
            "StridedArrayView::operator[](): index %s out of range for %s elements",
            Implementation::DimensionsText(i.begin(), dimensions).data,
            Implementation::DimensionsText(_size.begin(), dimensions).data);
        bytes += std::ptrdiff_t(i[j]) * _stride[j];
    }
    return *static_cast<T*>(offset(bytes));
}

template<unsigned dimensions, class T>
StridedArrayView<dimensions, T> StridedArrayView<dimensions, T>::slice(const Size& begin, const Size& end) const {
    Size size;
    std::ptrdiff_t bytes = 0;
    for(unsigned i = 0; i != dimensions; ++i) {
        _CORRADE_CONTAINERS_CHECK(begin[i] <= end[i] && end[i] <= _size[i],
            "StridedArrayView::slice(): slice [%s:%s] out of range for %s elements in dimension %u",
            Implementation::DimensionsText(begin.begin(), dimensions).data,
            Implementation::DimensionsText(end.begin(), dimensions).data,
            Implementation::DimensionsText(_size.begin(), dimensions).data, i);
        size[i] = end[i] - begin[i];
        bytes += std::ptrdiff_t(begin[i]) * _stride[i];
    }
    return StridedArrayView{Implementation::UncheckedT{}, offset(bytes), size, _stride};
}

template<unsigned dimensions, class T>
StridedArrayView<dimensions, T> StridedArrayView<dimensions, T>::every(const Stride& step) const {
    Size size;
    Stride stride;
    std::ptrdiff_t bytes = 0;
    for(unsigned i = 0; i != dimensions; ++i) {
        _CORRADE_CONTAINERS_CHECK(step[i], "StridedArrayView::every(): expected a non-zero step, got %s",
            Implementation::DimensionsText(step.begin(), dimensions).data);
        const std::size_t distance = Implementation::distance(step[i]);
        size[i] = (_size[i] + distance - 1) / distance;
        stride[i] = _stride[i] * step[i];
        if(step[i] < 0 && _size[i]) bytes += std::ptrdiff_t(_size[i] - 1) * _stride[i];
    }
    return StridedArrayView{Implementation::UncheckedT{}, offset(bytes), size, stride};
}

template<unsigned dimensions, class T>
template<unsigned dimension>
StridedArrayView<dimension + 1, T> StridedArrayView<dimensions, T>::asContiguous() const {
    _CORRADE_CONTAINERS_CHECK(isContiguous<dimension>(),
        "StridedArrayView::asContiguous(): the view is not contiguous from dimension %u", dimension);
    Containers::Size<dimension + 1> size;
    Containers::Stride<dimension + 1> stride;
    for(unsigned i = 0; i != dimension; ++i) {
        size[i] = _size[i];
        stride[i] = _stride[i];
    }
    size[dimension] = 1;
    for(unsigned i = dimension; i != dimensions; ++i) size[dimension] *= _size[i];
    stride[dimension] = sizeof(T);
    return StridedArrayView<dimension + 1, T>{Implementation::UncheckedT{}, _data, size, stride};
}

namespace Implementation {

/** What both untyped views have in common; `V` is `void` or `const void`. */
template<unsigned dimensions, class V> class ErasedStridedArrayView: public StridedData<dimensions, V> {
    using Base = StridedData<dimensions, V>;
    using Size = Containers::Size<dimensions>;
    using Stride = Containers::Stride<dimensions>;

public:
    using Type = V;
    using ErasedType = V;

    constexpr /*implicit*/ ErasedStridedArrayView(std::nullptr_t = nullptr) noexcept {}
    constexpr /*implicit*/ ErasedStridedArrayView(
        ArrayView<V> data, V* member, const Size& size, const Stride& stride) noexcept:
        Base{data, member, size, stride} {}
    constexpr /*implicit*/ ErasedStridedArrayView(ArrayView<V> data, const Size& size, const Stride& stride) noexcept:
        Base{data, data.data(), size, stride} {}
    template<class U, std::size_t size, class = std::enable_if_t<dimensions == 1 && std::is_convertible<U*, V*>::value>>
    constexpr /*implicit*/ ErasedStridedArrayView(U (&data)[size]) noexcept:
        Base{data, Size(size), Stride(sizeof(U))} {}
    template<class C, class U = ElementOf<C>,
        class = std::enable_if_t<dimensions == 1 && !std::is_void<U>::value && std::is_convertible<U*, V*>::value>>
    constexpr /*implicit*/ ErasedStridedArrayView(C&& container) noexcept:
        Base{container.data(), Size(container.size()), Stride(sizeof(U))} {}
    template<class U, class = std::enable_if_t<!std::is_same<U, V>::value && std::is_convertible<U*, V*>::value>>
    constexpr /*implicit*/ ErasedStridedArrayView(const StridedArrayView<dimensions, U>& other) noexcept:
        Base{other.data(), Size(other.size()), Stride(other.stride())} {}
};

}

/** View on items of any type, to be given one by arrayCast(). */
template<unsigned dimensions>
class StridedArrayView<dimensions, void>: public Implementation::ErasedStridedArrayView<dimensions, void> {
public:
    using Implementation::ErasedStridedArrayView<dimensions, void>::ErasedStridedArrayView;
};

/** View on constant items of any type, to be given one by arrayCast(). */
template<unsigned dimensions>
class StridedArrayView<dimensions, const void>: public Implementation::ErasedStridedArrayView<dimensions, const void> {
public:
    using Implementation::ErasedStridedArrayView<dimensions, const void>::ErasedStridedArrayView;
};

template<class T, std::size_t size> constexpr StridedArrayView1D<T> stridedArrayView(T (&data)[size]) { return data; }
/** The list lives until the end of the full expression. */
template<class T> constexpr StridedArrayView1D<const T> stridedArrayView(std::initializer_list<T> list) {
    return arrayView(list);
}
template<class C> constexpr StridedArrayView1D<Implementation::ElementOf<C>> stridedArrayView(C&& container) {
    return container;
}
template<unsigned dimensions, class T>
constexpr StridedArrayView<dimensions, T> stridedArrayView(const StridedArrayView<dimensions, T>& view) {
    return view;
}

/**
The same items as another type that isn't larger than the distance between them. This and the casts below are checked in
all builds.
*/
template<class U, unsigned dimensions, class T>
StridedArrayView<dimensions, U> arrayCast(const StridedArrayView<dimensions, T>& view) {
    const Stride<dimensions> stride = view.stride();
    for(const std::ptrdiff_t i: stride)
        _CORRADE_CONTAINERS_ASSERT(!i || sizeof(U) <= Implementation::distance(i),
            "arrayCast(): can't fit a %zu-byte type into a stride of %td", sizeof(U), i);
    return StridedArrayView<dimensions, U>{Implementation::UncheckedT{}, view.data(), view.size(), stride};
}

/** Each item as `count` adjacent ones of another type, in one more dimension. */
template<unsigned newDimensions, class U, unsigned dimensions, class T>
StridedArrayView<newDimensions, U> arrayCast(const StridedArrayView<dimensions, T>& view, std::size_t count) {
    static_assert(newDimensions == dimensions + 1, "there has to be one more dimension");
    const Size<dimensions> previousSize = view.size();
    const Stride<dimensions> previousStride = view.stride();
    Size<newDimensions> size;
    Stride<newDimensions> stride;
    for(unsigned i = 0; i != dimensions; ++i) {
        _CORRADE_CONTAINERS_ASSERT(
            !previousStride[i] || count * sizeof(U) <= Implementation::distance(previousStride[i]),
            "arrayCast(): can't fit %zu %zu-byte items into a stride of %td", count, sizeof(U), previousStride[i]);
        size[i] = previousSize[i];
        stride[i] = previousStride[i];
    }
    size[dimensions] = count;
    stride[dimensions] = sizeof(U);
    return StridedArrayView<newDimensions, U>{Implementation::UncheckedT{}, view.data(), size, stride};
}

/**
With one more dimension, each item as several adjacent ones of a smaller type. With one less, each row of the last
dimension as one item of the same size.
*/
template<unsigned newDimensions, class U, unsigned dimensions, class T>
StridedArrayView<newDimensions, U> arrayCast(const StridedArrayView<dimensions, T>& view) {
    if constexpr(newDimensions > dimensions)
        return arrayCast<newDimensions, U>(view, sizeof(T) / sizeof(U));
    else {
        static_assert(newDimensions + 1 == dimensions, "there has to be one more or one less dimension");
        const std::size_t lastSize = view.size()[newDimensions] * sizeof(T);
        const std::ptrdiff_t lastStride = view.stride()[newDimensions];
        for(unsigned i = 0; i != newDimensions; ++i)
            _CORRADE_CONTAINERS_ASSERT(!view.stride()[i] || sizeof(U) <= Implementation::distance(view.stride()[i]),
                "arrayCast(): can't fit a %zu-byte type into a stride of %td", sizeof(U), view.stride()[i]);
        _CORRADE_CONTAINERS_ASSERT(lastStride == std::ptrdiff_t(sizeof(T)),
            "arrayCast(): last dimension needs to be contiguous in order to be flattened, expected stride %zu but got "
            "%td",
            sizeof(T), lastStride);
        _CORRADE_CONTAINERS_ASSERT(lastSize == sizeof(U),
            "arrayCast(): last dimension needs to have byte size equal to new type size in order to be flattened, "
            "expected %zu but got %zu",
            sizeof(U), lastSize);
        Size<newDimensions> size;
        Stride<newDimensions> stride;
        for(unsigned i = 0; i != newDimensions; ++i) {
            size[i] = view.size()[i];
            stride[i] = view.stride()[i];
        }
        return arrayCast<U>(StridedArrayView<newDimensions, typename StridedArrayView<dimensions, T>::ErasedType>{
            {view.data(), ~std::size_t{}}, size, stride});
    }
}

}
