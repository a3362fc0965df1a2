#include "Renderer/Lights/ShadowTiles.h"

#include <gmock/gmock.h>

#include "Renderer/VectorView.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using testing::ElementsAre;

struct ShadowTilesTest: testing::Test {
    Int place(const std::vector<Int>& sizes, Int largest = LargestShadowAtlas) {
        return placeShadowTiles(vectorView(sizes), largest, tiles);
    }
    std::vector<Int> sizes() const {
        std::vector<Int> result;
        for(const ShadowTile& tile: tiles) result.push_back(tile.size);
        return result;
    }
    // Each texel of the atlas, in squares of the smallest size, belongs to one tile at most.
    void expectApart(Int edge) const {
        const Int columns = edge / SmallestShadowTile;
        std::vector<int> owners(std::size_t(columns * columns));
        for(const ShadowTile& tile: tiles)
            for(Int y = tile.offset.y(); y != tile.offset.y() + tile.size; y += SmallestShadowTile)
                for(Int x = tile.offset.x(); x != tile.offset.x() + tile.size; x += SmallestShadowTile) {
                    ASSERT_TRUE(x < edge && y < edge);
                    ASSERT_EQ(owners[std::size_t(y / SmallestShadowTile * columns + x / SmallestShadowTile)]++, 0);
                }
    }

    std::vector<ShadowTile> tiles;
};

TEST_F(ShadowTilesTest, theAtlasIsAsLargeAsItHasToBe) {
    EXPECT_EQ(place({}), 0);
    EXPECT_EQ(place({128}), 128);
    EXPECT_EQ(place({128, 128}), 256);
    EXPECT_EQ(place({512, 1024}), 2048);
    EXPECT_EQ(place({1024, 1024, 1024, 1024}), 2048);
    EXPECT_EQ(place({1024, 1024, 1024, 1024, 128}), 4096);
}

TEST_F(ShadowTilesTest, tilesLieApartAndKeepTheirSizes) {
    const std::vector<Int> wanted{128, 2048, 256, 256, 128, 1024, 512, 128, 128, 128, 1024};
    expectApart(place(wanted));
    EXPECT_EQ(sizes(), wanted);
    EXPECT_EQ(tiles[1].offset, Vector2i{});
    // A full one.
    expectApart(place({128, 128, 256, 128, 512, 256, 256, 128}, 1024));
}

TEST_F(ShadowTilesTest, theLargestAreHalvedWhereThereIsNoRoom) {
    expectApart(place({1024, 1024, 256, 1024, 1024, 1024}, 2048));
    EXPECT_THAT(sizes(), ElementsAre(512, 512, 256, 1024, 1024, 1024));
    expectApart(place({2048, 2048, 2048, 2048, 2048}, 2048));
    EXPECT_THAT(sizes(), ElementsAre(512, 512, 1024, 1024, 1024));
}

TEST_F(ShadowTilesTest, theLastGoNowhereWhereAllAreSmall) {
    std::vector<Int> wanted(70, 256);
    EXPECT_EQ(place(wanted, 1024), 1024);
    expectApart(1024);
    for(std::size_t i = 0; i != tiles.size(); ++i) EXPECT_EQ(tiles[i].size, i < 64 ? 128 : 0) << i;
}

} // namespace
