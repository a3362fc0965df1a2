#pragma once

#include <cstdint>

namespace VantrelBench {

struct GlCalls {
    std::uint64_t all = 0;
    std::uint64_t clears = 0, blits = 0;
    // Shaders that were compiled and programs that were linked.
    std::uint64_t builds = 0;
    // That were given to buffers.
    std::uint64_t uploadedBytes = 0;

    // Since the counting began. Zero before.
    static GlCalls soFar();
};

GlCalls operator-(const GlCalls& a, const GlCalls& b);

// Counts the calls of the program and its modules from now on; what they allocate is NotOurs. False where the GL is not loaded in a way that lets it.
bool countGlCalls();

}
