#pragma once

#include <cstdint>
#include <string>

namespace VantrelEngine::Test {

inline void appendBig(std::string& bytes, std::uint32_t value, int size = 4) {
    for(int i = size; i-- != 0;) bytes += char(value >> 8 * i & 255);
}

// Two tables of 8 bytes behind the list; offsets count from that many bytes before.
inline std::string fontFile(const std::string& signature, std::uint32_t before = 0) {
    std::string bytes = signature;
    appendBig(bytes, 2, 2);
    bytes += std::string(6, '\0');
    for(std::uint32_t i = 0; i != 2; ++i) {
        bytes += i ? "head" : "cmap";
        appendBig(bytes, 0);
        appendBig(bytes, before + 44 + i * 8);
        appendBig(bytes, 8);
    }
    return bytes + "contents" + "of both.";
}

// The same font several times.
inline std::string fontCollection(std::uint32_t count) {
    std::string bytes = "ttcf";
    appendBig(bytes, 0x00010000);
    appendBig(bytes, count);
    for(std::uint32_t i = 0; i != count; ++i) appendBig(bytes, 12 + count * 4);
    return bytes + fontFile(std::string{"\0\1\0\0", 4}, 12 + count * 4);
}

}
