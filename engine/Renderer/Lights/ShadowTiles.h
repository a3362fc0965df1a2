#pragma once

#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// Where a map lies in the atlas, in texels. A size of 0: nowhere.
struct ShadowTile {
    Magnum::Vector2i offset;
    Magnum::Int size = 0;
};

// The smallest edge that a tile is made, and the largest one that the atlas has.
constexpr Magnum::Int SmallestShadowTile = 128, LargestShadowAtlas = 4096;

// Puts square tiles side by side into a square atlas without gaps between them. The sizes are powers of two, from the
// smallest one up to the largest edge, which is a power of two, too. Where there is no room, the largest are halved, of
// equally large ones the first; where all are the smallest and there is still none, the last go nowhere. Returns the edge
// of the atlas, a power of two; 0 where there is no tile. N log N.
Magnum::Int placeShadowTiles(
    Corrade::Containers::ArrayView<const Magnum::Int> sizes, Magnum::Int largestEdge, std::vector<ShadowTile>& tiles);

} // namespace VantrelEngine
