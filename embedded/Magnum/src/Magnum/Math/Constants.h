#pragma once
// Mathematical constants, rounded to the type.

#include <limits>

#include "Magnum/Math/Math.h"

namespace Magnum::Math {

template<class T> struct Constants {
    Constants() = delete;

    static constexpr T pi() { return T(3.141592653589793238L); }
    static constexpr T piHalf() { return T(1.570796326794896619L); }
    static constexpr T tau() { return T(6.283185307179586477L); }
    static constexpr T sqrt2() { return T(1.414213562373095049L); }
    static constexpr T inf() { return std::numeric_limits<T>::infinity(); }
    static constexpr T nan() { return std::numeric_limits<T>::quiet_NaN(); }
};

}
