#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// One of the pictures that are computed from the surroundings: longitude over latitude, its first and its last row at the
// poles themselves, so that all texels of such a row are one direction.
struct BakeTarget {
    Magnum::Vector2i size;
    // Of a surface that mirrors the surroundings; negative for one that scatters the light of all of them.
    Magnum::Float roughness;
};

// What a matt surface receives, then what mirrors show, from the clearest one on: each half as large as the one before.
// What is clearer than the first of them is seen in the surroundings themselves. Environment.glsl relies on these.
constexpr BakeTarget BakeTargets[]{{{32, 16}, -1.0f}, {{128, 64}, 0.2f}, {{64, 32}, 0.2f + 0.8f / 3.0f},
    {{32, 16}, 0.2f + 1.6f / 3.0f}, {{16, 8}, 1.0f}};
constexpr std::size_t BakeTargetCount = sizeof(BakeTargets) / sizeof(*BakeTargets);

// Another one whenever the same surroundings would give another result.
constexpr std::uint64_t BakeVersion = 1;

// The texels of all targets one behind the other, RGBA of halves, rows upwards.
typedef std::vector<std::uint16_t> EnvironmentBake;

// Halves of a target, of all of those before it, and of all of them.
constexpr std::size_t bakeTargetLength(std::size_t target) {
    return std::size_t(BakeTargets[target].size.x()) * std::size_t(BakeTargets[target].size.y()) * 4;
}
constexpr std::size_t bakeTargetOffset(std::size_t target) {
    std::size_t offset = 0;
    for(std::size_t i = 0; i != target; ++i) offset += bakeTargetLength(i);
    return offset;
}
constexpr std::size_t BakeLength = bakeTargetOffset(BakeTargetCount);

} // namespace VantrelEngine
