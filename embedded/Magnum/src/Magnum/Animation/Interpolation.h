#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"
#include "Magnum/Math/DualQuaternion.h"
#include "Magnum/Math/Functions.h"
#include "Magnum/Math/Quaternion.h"

namespace Magnum::Animation {

// How a value between two keys follows from theirs. There is no function for Spline and Custom here.
enum class Interpolation : UnsignedByte { Constant, Linear, Spline, Custom };

// What a value before the first key, or from the last one on, is.
enum class Extrapolation : UnsignedByte {
    // The two nearest keys go on.
    Extrapolated,
    // The value of the nearest key.
    Constant,
    DefaultConstructed
};

CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, Interpolation value);
CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, Extrapolation value);

// The value at t, where 0 is that of a and 1 that of b.
template<class V, class R = V> using Interpolator = R (*)(const V& a, const V& b, Float t);

namespace Implementation {

template<class V> V constant(const V& a, const V& b, Float t) { return t < 1.0f ? a : b; }

template<class V> V linear(const V& a, const V& b, Float t) { return Math::lerp(a, b, t); }
template<> inline Quaternion linear(const Quaternion& a, const Quaternion& b, Float t) {
    return Math::slerpShortestPath(a, b, t);
}
template<> inline DualQuaternion linear(const DualQuaternion& a, const DualQuaternion& b, Float t) {
    return Math::sclerpShortestPath(a, b, t);
}

// Asserts that the interpolation is one of the two that have a function; true if it is the linear one.
CORRADE_VISIBILITY_EXPORT bool isLinear(Interpolation interpolation);

}

// Rotations and rigid transformations are interpolated along the shorter way. Asserts that the interpolation is
// Constant or Linear.
template<class V> Interpolator<V> interpolatorFor(Interpolation interpolation) {
    return Implementation::isLinear(interpolation) ? Implementation::linear<V> : Implementation::constant<V>;
}

}
