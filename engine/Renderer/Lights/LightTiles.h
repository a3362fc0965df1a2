#pragma once

#include <cstddef>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

struct LightRecord;

// Pixels of the edge of a tile of a picture.
constexpr Magnum::Int LightTileSize = 32;

// Which lights may reach what is seen in which tile of a picture. A bit a light, 32 in a word, for each column of tiles
// from the left, then for each row of tiles from below: a light reaches a tile that both say. The matrix leads from the
// scene's space to clip space, the size is that of the picture in pixels. Costs a step for each light and column and row.
void markLights(const std::vector<LightRecord>& lights, const Magnum::Matrix4& toClip, const Magnum::Vector2i& size,
    std::vector<Magnum::UnsignedInt>& words);

} // namespace VantrelEngine
