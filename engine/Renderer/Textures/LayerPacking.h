#pragma once

#include <cstddef>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// Rectangles side by side on layers of one size.
struct LayerPacking {
    struct Place {
        Magnum::Vector2i offset;
        Magnum::Int layer;
    };

    // By rectangle.
    std::vector<Place> places;
    Magnum::Int layerCount = 0;
    // What is used of the layers: all of it where there are several.
    Magnum::Vector2i usedSize;
};

// Shelves from the highest rectangle to the lowest. Expects that each of them fits into a layer. As long as there are
// shelves of about the same height, that wastes the ends of shelves and of layers only.
LayerPacking packLayers(const std::vector<Magnum::Vector2i>& sizes, const Magnum::Vector2i& layerSize);

} // namespace VantrelEngine
