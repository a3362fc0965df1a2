#include "Renderer/Lights/ShadowTiles.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// In squares of the smallest size.
UnsignedLong area(Int size) {
    const auto edge = UnsignedLong(size / SmallestShadowTile);
    return edge * edge;
}

// Halves the largest until all fit; false where all are as small as they get and do not.
bool shrink(std::vector<ShadowTile>& tiles, UnsignedLong room) {
    UnsignedLong needed = 0;
    for(const ShadowTile& tile: tiles) needed += area(tile.size);
    while(needed > room) {
        const auto largest = std::max_element(
            tiles.begin(), tiles.end(), [](const ShadowTile& a, const ShadowTile& b) { return a.size < b.size; });
        const Int size = largest->size;
        if(size == SmallestShadowTile) return false;
        for(auto i = largest; i != tiles.end() && needed > room; ++i) {
            if(i->size != size) continue;
            needed -= area(size) - area(size / 2);
            i->size = size / 2;
        }
    }
    return true;
}

// Along a curve that fills each square before the next one of its size, tiles that become smaller leave no gaps: every
// second bit of the place along it is that of a coordinate.
Vector2i placeOnCurve(UnsignedLong place) {
    Vector2i result;
    for(Int bit = 0; bit != 31; ++bit) {
        result.x() |= Int(place >> (2 * bit) & 1) << bit;
        result.y() |= Int(place >> (2 * bit + 1) & 1) << bit;
    }
    return result * SmallestShadowTile;
}

Int edgeAround(const std::vector<ShadowTile>& tiles) {
    Int edge = 0;
    for(const ShadowTile& tile: tiles)
        if(tile.size) edge = std::max(edge, (tile.offset + Vector2i{tile.size}).max());
    Int power = edge ? 1 : 0;
    while(power < edge) power *= 2;
    return power;
}

} // namespace

Int placeShadowTiles(Containers::ArrayView<const Int> sizes, Int largestEdge, std::vector<ShadowTile>& tiles) {
    tiles.clear();
    for(const Int size: sizes) tiles.push_back({{}, size});
    const UnsignedLong room = area(largestEdge);
    if(!shrink(tiles, room))
        for(std::size_t i = std::size_t(room); i < tiles.size(); ++i) tiles[i].size = 0;

    std::vector<std::size_t> order(tiles.size());
    std::iota(order.begin(), order.end(), std::size_t{});
    std::stable_sort(
        order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return tiles[a].size > tiles[b].size; });
    UnsignedLong place = 0;
    for(const std::size_t i: order) {
        tiles[i].offset = placeOnCurve(place);
        place += area(tiles[i].size);
    }
    return edgeAround(tiles);
}

} // namespace VantrelEngine
