#pragma once

#include <Corrade/Containers/Array.h>
#include <Magnum/Magnum.h>

namespace VantrelEngine::Shaders {

// Arithmetic of the blur of a bloom: weights that fall off as in a row of Pascal's triangle, whose ends, that add next to
// nothing, are left out.

// Beyond it the sum of the coefficients has no room in 32 bits.
constexpr Magnum::UnsignedInt MaxBloomKernelSize = 21;

// Different weights of a kernel of this size: that of the middle and one for each pixel to a side.
Magnum::UnsignedInt bloomWeightCount(Magnum::UnsignedInt kernelSize);

// The middle entries of a row of Pascal's triangle, one a tap from one end of the blur to the other: twice the number of
// weights, less one. Expects a size of at most MaxBloomKernelSize.
Corrade::Containers::Array<Magnum::UnsignedInt> bloomCoefficients(Magnum::UnsignedInt kernelSize);

// Weights from the middle outwards. With all but the first counted twice, they add up to 1. Expects a size of at most
// MaxBloomKernelSize.
Corrade::Containers::Array<Magnum::Double> bloomWeights(Magnum::UnsignedInt kernelSize);

}
