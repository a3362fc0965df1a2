#pragma once

#include <cstdint>

namespace VantrelEngine {

// What shaders have to be able to do for a texture parameter, so that they contain nothing else: as bits, the union over
// all materials.
namespace TextureNeed {

enum : std::uint8_t {
    // There is a texture, even if it is white.
    Any = 1,
    // It lies in this array (ImageStore::Kind).
    Color = 2,
    Data = 4,
    Float = 8,
};

}

typedef std::uint8_t TextureNeeds;

} // namespace VantrelEngine
