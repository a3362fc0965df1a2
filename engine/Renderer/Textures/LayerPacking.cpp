#include "Renderer/Textures/LayerPacking.h"

#include <algorithm>
#include <numeric>

#include <Magnum/Math/Functions.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

std::vector<std::size_t> highestFirst(const std::vector<Vector2i>& sizes) {
    std::vector<std::size_t> order(sizes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(
        order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return sizes[a].y() > sizes[b].y(); });
    return order;
}

} // namespace

LayerPacking packLayers(const std::vector<Vector2i>& sizes, const Vector2i& layerSize) {
    LayerPacking packing;
    packing.places.resize(sizes.size());
    if(sizes.empty()) return packing;
    Vector2i next;
    Int layer = 0, shelfHeight = 0;
    for(const std::size_t i: highestFirst(sizes)) {
        const Vector2i& size = sizes[i];
        if(next.x() + size.x() > layerSize.x()) {
            next = {0, next.y() + shelfHeight};
            shelfHeight = 0;
        }
        if(next.y() + size.y() > layerSize.y()) {
            next = {};
            shelfHeight = 0;
            ++layer;
        }
        packing.places[i] = {next, layer};
        shelfHeight = std::max(shelfHeight, size.y());
        packing.usedSize = Math::max(packing.usedSize, next + size);
        next.x() += size.x();
    }
    packing.layerCount = layer + 1;
    if(packing.layerCount > 1) packing.usedSize = layerSize;
    return packing;
}

} // namespace VantrelEngine
