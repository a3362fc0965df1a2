#pragma once

/** Forward declarations of everything in Corrade::Containers. */

#include <cstddef>
#include <type_traits>

namespace Corrade::Containers {

template<class T> class ArrayView;
template<std::size_t size, class T> class StaticArrayView;

/** The deleter gets the data and the number of items. A null function pointer stands for `delete[]`. */
template<class T, class D = void (*)(T*, std::size_t)> class Array;
template<std::size_t size, class T> class StaticArray;
template<class T> using Array1 = StaticArray<1, T>;
template<class T> using Array2 = StaticArray<2, T>;
template<class T> using Array3 = StaticArray<3, T>;
template<class T> using Array4 = StaticArray<4, T>;

template<unsigned dimensions, class T> class StridedDimensions;
template<unsigned dimensions> using Size = StridedDimensions<dimensions, std::size_t>;
using Size1D = Size<1>;
using Size2D = Size<2>;
using Size3D = Size<3>;
using Size4D = Size<4>;
template<unsigned dimensions> using Stride = StridedDimensions<dimensions, std::ptrdiff_t>;
using Stride1D = Stride<1>;
using Stride2D = Stride<2>;
using Stride3D = Stride<3>;
using Stride4D = Stride<4>;

template<unsigned dimensions, class T> class StridedArrayView;
template<class T> using StridedArrayView1D = StridedArrayView<1, T>;
template<class T> using StridedArrayView2D = StridedArrayView<2, T>;
template<class T> using StridedArrayView3D = StridedArrayView<3, T>;
template<class T> using StridedArrayView4D = StridedArrayView<4, T>;

template<class T,
    typename std::underlying_type<T>::type fullValue =
        typename std::underlying_type<T>::type(~typename std::underlying_type<T>::type(0))>
class EnumSet;

template<class T> class Optional;
template<class T> class Pointer;
template<class T> class Reference;
template<class T> class Iterable;
template<class F, class S> class Pair;
template<class F, class S, class T> class Triple;

enum class StringViewFlag : std::size_t;
using StringViewFlags = EnumSet<StringViewFlag>;
template<class T> class BasicStringView;
using StringView = BasicStringView<const char>;
using MutableStringView = BasicStringView<char>;
class String;
class StringIterable;

}
