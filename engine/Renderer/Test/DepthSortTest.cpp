#include "Renderer/Meshes/DepthSort.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include <gmock/gmock.h>

using namespace Magnum;
using namespace VantrelEngine;

namespace {

using testing::ElementsAre;

std::vector<Id> sorted(const std::vector<Float>& depths) {
    std::vector<Id> slots(depths.size());
    std::iota(slots.begin(), slots.end(), Id{0});
    DepthSort sort;
    sort.depths() = depths;
    sort.sort({slots.data(), slots.size()});
    return slots;
}

TEST(DepthSortTest, theFarthestComesFirst) {
    EXPECT_THAT(sorted({}), ElementsAre());
    EXPECT_THAT(sorted({1.0f, 3.0f, 2.0f}), ElementsAre(1, 2, 0));
    constexpr Float Infinity = std::numeric_limits<Float>::infinity();
    EXPECT_THAT(sorted({0.0f, -2.0f, 1e-30f, Infinity, -Infinity, 1e30f, -1e-30f}), ElementsAre(3, 5, 2, 0, 6, 1, 4));
}

TEST(DepthSortTest, whatIsEquallyFarStaysInItsOrder) {
    EXPECT_THAT(sorted({1.0f, 2.0f, 1.0f, 2.0f, 1.0f}), ElementsAre(1, 3, 0, 2, 4));
}

TEST(DepthSortTest, agreesWithASortByComparison) {
    std::mt19937 random{1};
    std::uniform_real_distribution<Float> number{-1000.0f, 1000.0f};
    std::vector<Float> depths(20000);
    for(Float& depth: depths) depth = std::round(number(random) * 4.0f) * (random() % 3 ? 1.0f : 1e-4f);
    std::vector<Id> expected(depths.size());
    std::iota(expected.begin(), expected.end(), Id{0});
    std::stable_sort(expected.begin(), expected.end(), [&](Id a, Id b) { return depths[a] > depths[b]; });
    EXPECT_EQ(sorted(depths), expected);
}

} // namespace
