#pragma once
// Between floating-point numbers from 0 to 1 (-1 to 1 for signed types) and the whole range of an integer type.

#include "Magnum/Math/Functions.h"

namespace Magnum::Math {

namespace Implementation {

template<class FloatingPoint, class Integral> FloatingPoint unpackNumber(Integral value) {
    constexpr FloatingPoint largest = FloatingPoint(std::numeric_limits<Integral>::max());
    // The smallest signed number lies beyond -1.
    if constexpr(std::is_signed_v<Integral>)
        return Math::max(FloatingPoint(value) / largest, FloatingPoint(-1));
    else
        return FloatingPoint(value) / largest;
}
template<class Integral, class FloatingPoint> Integral packNumber(FloatingPoint value) {
    return Integral(std::round(value * FloatingPoint(std::numeric_limits<Integral>::max())));
}

}

// A number or a vector (or colour) of them
template<class FloatingPoint, class Integral> FloatingPoint unpack(const Integral& value) {
    if constexpr(std::is_arithmetic_v<Integral>)
        return Implementation::unpackNumber<FloatingPoint>(value);
    else
        return Implementation::each(
            [](auto v) { return Implementation::unpackNumber<typename FloatingPoint::Type>(v); }, value);
}

// To the nearest integer. Expects values inside the range.
template<class Integral, class FloatingPoint> Integral pack(const FloatingPoint& value) {
    if constexpr(std::is_arithmetic_v<FloatingPoint>)
        return Implementation::packNumber<Integral>(value);
    else
        return Implementation::each(
            [](auto v) { return Implementation::packNumber<typename Integral::Type>(v); }, value);
}

}
