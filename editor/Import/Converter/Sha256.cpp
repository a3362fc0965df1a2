#include "Import/Converter/Sha256.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace VantrelImport {

namespace {

constexpr std::size_t BlockSize = 64;

using State = std::array<std::uint32_t, 8>;

// FIPS 180-4, section 4.2.2.
constexpr std::uint32_t RoundConstants[64]{0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1,
    0x923f82a4, 0xab1c5ed5, 0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7,
    0xc19bf174, 0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967, 0x27b70a85,
    0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85, 0xa2bfe8a1, 0xa81a664b,
    0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070, 0x19a4c116, 0x1e376c08, 0x2748774c,
    0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3, 0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208,
    0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t turned(std::uint32_t value, unsigned bits) { return value >> bits | value << (32 - bits); }

// Section 6.2.2.
void addBlock(State& state, const unsigned char* block) {
    std::uint32_t words[64];
    for(std::size_t i = 0; i != 16; ++i)
        words[i] = std::uint32_t{block[4 * i]} << 24 | std::uint32_t{block[4 * i + 1]} << 16 |
            std::uint32_t{block[4 * i + 2]} << 8 | block[4 * i + 3];
    for(std::size_t i = 16; i != 64; ++i) {
        const std::uint32_t a = words[i - 15], b = words[i - 2];
        words[i] = words[i - 16] + (turned(a, 7) ^ turned(a, 18) ^ a >> 3) + words[i - 7] +
            (turned(b, 17) ^ turned(b, 19) ^ b >> 10);
    }
    State s = state;
    for(std::size_t i = 0; i != 64; ++i) {
        const std::uint32_t first = s[7] + (turned(s[4], 6) ^ turned(s[4], 11) ^ turned(s[4], 25)) +
            ((s[4] & s[5]) ^ (~s[4] & s[6])) + RoundConstants[i] + words[i];
        const std::uint32_t second =
            (turned(s[0], 2) ^ turned(s[0], 13) ^ turned(s[0], 22)) + ((s[0] & s[1]) ^ (s[0] & s[2]) ^ (s[1] & s[2]));
        s = {first + second, s[0], s[1], s[2], s[3] + first, s[4], s[5], s[6]};
    }
    for(std::size_t i = 0; i != state.size(); ++i) state[i] += s[i];
}

} // namespace

std::string sha256(const char* data, std::size_t size) {
    State state{0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a, 0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    const auto* const bytes = reinterpret_cast<const unsigned char*>(data);
    const std::size_t whole = size / BlockSize * BlockSize;
    for(std::size_t i = 0; i != whole; i += BlockSize) addBlock(state, bytes + i);

    // The rest, a bit, zeros, and the size in bits at the end of a block.
    unsigned char end[2 * BlockSize]{};
    const std::size_t rest = size - whole;
    if(rest) std::memcpy(end, bytes + whole, rest);
    end[rest] = 0x80;
    const std::size_t endSize = rest < BlockSize - 8 ? BlockSize : 2 * BlockSize;
    for(std::size_t i = 0; i != 8; ++i)
        end[endSize - 1 - i] = static_cast<unsigned char>(std::uint64_t{size} * 8 >> 8 * i);
    for(std::size_t i = 0; i != endSize; i += BlockSize) addBlock(state, end + i);

    std::string digits;
    for(const std::uint32_t word: state)
        for(int shift = 28; shift >= 0; shift -= 4) digits += "0123456789abcdef"[word >> shift & 15];
    return digits;
}

} // namespace VantrelImport
