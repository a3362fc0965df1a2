#include "Renderer/Textures/LayerPacking.h"

#include <random>

#include <Magnum/Math/Range.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Magnum;
using namespace VantrelEngine;

TEST(LayerPackingTest, nothingTakesNoLayer) {
    const LayerPacking packing = packLayers({}, {64, 64});
    EXPECT_EQ(packing.layerCount, 0);
    EXPECT_EQ(packing.usedSize, Vector2i{});
}

TEST(LayerPackingTest, oneUsesItsSize) {
    const LayerPacking packing = packLayers({{10, 20}}, {64, 64});
    EXPECT_EQ(packing.layerCount, 1);
    EXPECT_EQ(packing.usedSize, (Vector2i{10, 20}));
}

TEST(LayerPackingTest, whatFillsLayersLeavesNoGap) {
    const std::vector<Vector2i> quarters(8, Vector2i{32, 32});
    EXPECT_EQ(packLayers(quarters, {64, 64}).layerCount, 2);
    // The wide one is lower than the others, which come first.
    const LayerPacking packing = packLayers({{64, 16}, {32, 48}, {32, 48}}, {64, 64});
    EXPECT_EQ(packing.layerCount, 1);
    EXPECT_EQ(packing.usedSize, (Vector2i{64, 64}));
}

TEST(LayerPackingTest, manyStayInTheirLayersAndApart) {
    std::mt19937 random{7};
    std::uniform_int_distribution<Int> edge{1, 50};
    const Vector2i layerSize{200, 150};
    std::vector<Vector2i> sizes;
    std::size_t area = 0;
    for(std::size_t i = 0; i != 500; ++i) {
        sizes.push_back({edge(random), edge(random)});
        area += std::size_t(sizes.back().product());
    }
    const LayerPacking packing = packLayers(sizes, layerSize);
    ASSERT_EQ(packing.places.size(), sizes.size());
    for(std::size_t i = 0; i != sizes.size(); ++i) {
        const Range2Di rectangle = Range2Di::fromSize(packing.places[i].offset, sizes[i]);
        EXPECT_TRUE((Range2Di{{}, layerSize}.contains(rectangle)));
        EXPECT_LT(packing.places[i].layer, packing.layerCount);
        for(std::size_t j = 0; j != i; ++j) {
            const Range2Di other = Range2Di::fromSize(packing.places[j].offset, sizes[j]);
            ASSERT_FALSE(packing.places[i].layer == packing.places[j].layer && Math::intersects(rectangle, other))
                << i << " and " << j;
        }
    }
    EXPECT_LT(std::size_t(packing.layerCount) * layerSize.product(), area * 4 / 3);
}

} // namespace
