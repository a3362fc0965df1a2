#pragma once

#include <cstdint>
#include <cstring>

#include "Magnum/Math/Math.h"

namespace Magnum::Math {

// Storage of a 16-bit floating-point number (IEEE 754 binary16): to be read only, there is no arithmetic.
class Half {
public:
    constexpr Half(): _bits{} {}
    constexpr explicit Half(std::uint16_t bits): _bits{bits} {}

    // Exact
    explicit operator float() const {
        // Exponent and fraction in their places of a float; the product shifts the exponent by the difference of the
        // two biases and makes denormals normal on the way.
        float result = fromBits(std::uint32_t(_bits & 0x7fff) << 13) * 0x1p112f;
        if((_bits & 0x7c00) == 0x7c00) result = fromBits(0x7f800000 | std::uint32_t(_bits & 0x03ff) << 13);
        return _bits & 0x8000 ? -result : result;
    }

private:
    static float fromBits(std::uint32_t bits) {
        float result;
        std::memcpy(&result, &bits, sizeof(result));
        return result;
    }

    std::uint16_t _bits;
};

}
