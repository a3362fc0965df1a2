#pragma once
// A few bits: the result of comparing two vectors component by component.

#include <cstdint>

#include "Corrade/Utility/Debug.h"
#include "Magnum/Math/Math.h"

namespace Magnum::Math {

template<std::size_t size> class BitVector {
    static_assert(size && size <= 8, "one byte is enough for the components of a vector");

public:
    constexpr BitVector(): _bits{} {}
    // Bit 0 is the lowest; what is beyond the size is ignored.
    constexpr BitVector(std::uint8_t bits): _bits(bits & Mask) {}

    constexpr bool operator[](std::size_t i) const { return (_bits >> i) & 1; }

    bool all() const { return _bits == Mask; }
    bool any() const { return _bits; }
    bool none() const { return !_bits; }
    explicit operator bool() const { return all(); }

    friend bool operator==(BitVector a, BitVector b) { return a._bits == b._bits; }
    friend bool operator!=(BitVector a, BitVector b) { return a._bits != b._bits; }

private:
    static constexpr std::uint8_t Mask = 0xff >> (8 - size);

    std::uint8_t _bits;
};

template<std::size_t size>
Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, const BitVector<size>& value) {
    using Corrade::Utility::Debug;
    debug << "BitVector(0b" << Debug::nospace;
    for(std::size_t i = size; i--;) debug << (value[i] ? "1" : "0") << Debug::nospace;
    return debug << ")";
}

}
