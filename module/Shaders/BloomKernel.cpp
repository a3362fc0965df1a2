#include "Shaders/BloomKernel.h"

using namespace Corrade;
using namespace Magnum;

namespace VantrelEngine::Shaders {

UnsignedInt bloomWeightCount(UnsignedInt kernelSize) { return kernelSize / 2 + 1; }

Containers::Array<UnsignedInt> bloomCoefficients(UnsignedInt kernelSize) {
    const UnsignedInt count = bloomWeightCount(kernelSize);
    const UnsignedInt leftOut = count / 2 + 1;
    const UnsignedInt row = 2 * (count + count / 2);
    Containers::Array<UnsignedInt> coefficients{ValueInit, 2 * std::size_t{count} - 1};
    // Each entry of a row is the one before times a fraction, without a remainder.
    UnsignedLong entry = 1;
    for(UnsignedInt i = 0; i != leftOut + coefficients.size(); ++i) {
        if(i >= leftOut) coefficients[i - leftOut] = UnsignedInt(entry);
        entry = entry * (row - i) / (i + 1);
    }
    return coefficients;
}

Containers::Array<Double> bloomWeights(UnsignedInt kernelSize) {
    const Containers::Array<UnsignedInt> coefficients = bloomCoefficients(kernelSize);
    UnsignedInt sum = 0;
    for(const UnsignedInt coefficient: coefficients) sum += coefficient;

    Containers::Array<Double> weights{ValueInit, bloomWeightCount(kernelSize)};
    const std::size_t middle = weights.size() - 1;
    for(std::size_t i = 0; i != weights.size(); ++i) weights[i] = Double(coefficients[middle - i]) / Double(sum);
    return weights;
}

}
