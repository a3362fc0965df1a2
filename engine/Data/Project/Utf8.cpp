#include "Data/Project/Utf8.h"

#include <cstddef>

namespace VantrelEngine {

namespace {

// What a character of several bytes may look like, by its first byte: the range of the second byte, and how many bytes
// follow in all. Those behind the second are 80 to BF.
struct Sequence {
    unsigned char firstBegin, firstEnd, secondBegin, secondEnd;
    std::size_t following;
};
constexpr Sequence Sequences[]{{0xc2, 0xdf, 0x80, 0xbf, 1}, {0xe0, 0xe0, 0xa0, 0xbf, 2}, {0xe1, 0xec, 0x80, 0xbf, 2},
    {0xed, 0xed, 0x80, 0x9f, 2}, {0xee, 0xef, 0x80, 0xbf, 2}, {0xf0, 0xf0, 0x90, 0xbf, 3}, {0xf1, 0xf3, 0x80, 0xbf, 3},
    {0xf4, 0xf4, 0x80, 0x8f, 3}};

bool isBetween(char c, unsigned char begin, unsigned char end) {
    return static_cast<unsigned char>(c) >= begin && static_cast<unsigned char>(c) <= end;
}

// Bytes of the character that the text begins with, 0 where it is none.
std::size_t characterSize(std::string_view text) {
    for(const Sequence& sequence: Sequences) {
        if(!isBetween(text[0], sequence.firstBegin, sequence.firstEnd)) continue;
        if(text.size() <= sequence.following || !isBetween(text[1], sequence.secondBegin, sequence.secondEnd)) return 0;
        for(std::size_t i = 2; i <= sequence.following; ++i)
            if(!isBetween(text[i], 0x80, 0xbf)) return 0;
        return sequence.following + 1;
    }
    return 0;
}

} // namespace

bool isUtf8(std::string_view text) {
    for(std::size_t i = 0; i != text.size();) {
        const std::size_t size = isBetween(text[i], 0, 0x7f) ? 1 : characterSize(text.substr(i));
        if(!size) return false;
        i += size;
    }
    return true;
}

} // namespace VantrelEngine
