#pragma once

#include <cstdint>

namespace VantrelBench {

// Bytes that were asked of the GL, by what they are for, in the formats that were asked for: what a driver pads, copies or
// keeps for itself comes on top.
struct GlMemory {
    std::uint64_t textures = 0, buffers = 0, renderbuffers = 0;

    // Of all objects that are there now, as far as they were made while calls are counted (see countGlCalls()).
    static GlMemory now();

    // What the counting hears. Objects by their names in the GL; one that gets other memory gives up what it had.
    enum class Kind { Texture, Buffer, Renderbuffer };
    static void set(Kind kind, std::uint32_t object, std::uint64_t bytes);
    // A level more, of an object whose levels are made one by one; level 0 begins anew.
    static void addLevel(std::uint32_t texture, std::int32_t level, std::uint64_t bytes);
    static void forget(Kind kind, std::int32_t count, const std::uint32_t* objects);
};

// Of a texel of a sized format. Ends the program with a line for a format that nobody used before.
std::uint64_t bytesOfTexel(std::uint32_t format);

}
