#pragma once
// Comparison of numbers: floating-point ones compare with a tolerance, all others exactly.

#include <type_traits>

#include "Magnum/Math/Math.h"

namespace Magnum::Math {

template<class T> struct TypeTraits {
    static constexpr bool equals(T a, T b) { return a == b; }
};

namespace Implementation {

template<class T> struct TypeTraitsFloatingPoint {
    // Absolute difference near zero, relative to the sum of the magnitudes elsewhere. Infinities equal themselves,
    // NaNs equal nothing.
    static bool equals(T a, T b) {
        if(a == b) return true;
        const T absA = a < T(0) ? -a : a, absB = b < T(0) ? -b : b;
        const T difference = a < b ? b - a : a - b;
        if(a == T(0) || b == T(0) || difference < TypeTraits<T>::epsilon())
            return difference < TypeTraits<T>::epsilon();
        return difference / (absA + absB) < TypeTraits<T>::epsilon();
    }
};

// The number type behind T: T itself, or what a unit is measured in.
template<class T> struct UnderlyingType { using Type = T; };
template<template<class> class Derived, class T> struct UnderlyingType<Unit<Derived, T>> { using Type = T; };
template<class T> struct UnderlyingType<Deg<T>> { using Type = T; };
template<class T> struct UnderlyingType<Rad<T>> { using Type = T; };
template<class T> using UnderlyingTypeOf = typename UnderlyingType<T>::Type;

// Numbers and units, as opposed to vectors and everything else made of several of them.
template<class T> using EnableIfScalar = std::enable_if_t<std::is_arithmetic_v<UnderlyingTypeOf<T>>>;

// Keeps a parameter from taking part in the deduction of T, so that what is passed converts to it.
template<class T> struct NonDeduced { using Type = T; };
template<class T> using NonDeducedT = typename NonDeduced<T>::Type;

}

template<> struct TypeTraits<float>: Implementation::TypeTraitsFloatingPoint<float> {
    static constexpr float epsilon() { return 1.0e-5f; }
};
template<> struct TypeTraits<double>: Implementation::TypeTraitsFloatingPoint<double> {
    static constexpr double epsilon() { return 1.0e-14; }
};

namespace Implementation {

// Whether the square of a length is that of a unit length: twice the tolerance of the length itself.
template<class T> bool isNormalizedSquared(T lengthSquared) {
    const T difference = lengthSquared - T(1);
    return (difference < T(0) ? -difference : difference) < T(2) * TypeTraits<T>::epsilon();
}

}

}
