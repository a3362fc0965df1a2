#pragma once

#include <cstddef>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector2.h>

#include "Renderer/TexelBuffer.h"

namespace VantrelEngine {

struct LightRecord;

// Which lights reach which tile, as markLights() finds it, for shaders: LightTiles.glsl reads what this writes.
class LightTileBuffer {
public:
    // An upload only where something is other than before; returns the bytes of that.
    std::size_t update(
        const std::vector<LightRecord>& lights, const Magnum::Matrix4& toClip, const Magnum::Vector2i& size);
    // To its unit.
    void bind();

private:
    // As uploaded, and as they are now: kept for their memory.
    std::vector<Magnum::UnsignedInt> _words, _next;
    TexelBuffer _buffer{Magnum::GL::BufferTextureFormat::R32UI, "Renderer light tiles"};
};

} // namespace VantrelEngine
