#include "Data/Scene/AncestryForest.h"

#include <random>
#include <vector>

#include <Vantrel/EngineData/Types.h>
#include <gtest/gtest.h>

namespace {

using VantrelEngine::AncestryForest;
using VantrelEngine::Id;
using VantrelEngine::NoObject;

TEST(AncestryForestTest, knowsWhoIsAboveWhom) {
    // 0 - 1 - 2, 0 - 3
    AncestryForest<Id> forest;
    forest.resize(4);
    forest.link(1, 0);
    forest.link(2, 1);
    forest.link(3, 0);
    EXPECT_TRUE(forest.isAboveOrSame(0, 2));
    EXPECT_TRUE(forest.isAboveOrSame(1, 2));
    EXPECT_TRUE(forest.isAboveOrSame(2, 2));
    EXPECT_FALSE(forest.isAboveOrSame(2, 1));
    EXPECT_FALSE(forest.isAboveOrSame(3, 2));
    EXPECT_FALSE(forest.isAboveOrSame(2, 3));
    EXPECT_FALSE(forest.isAboveOrSame(1, 0));

    forest.cut(1);
    forest.link(1, 3);
    EXPECT_TRUE(forest.isAboveOrSame(3, 2));
    EXPECT_FALSE(forest.isAboveOrSame(2, 3));
}

TEST(AncestryForestTest, nodesThatAreAddedStandAlone) {
    AncestryForest<Id> forest;
    forest.resize(2);
    forest.link(1, 0);
    forest.resize(3);
    EXPECT_EQ(forest.size(), 3u);
    EXPECT_FALSE(forest.isAboveOrSame(2, 1));
    EXPECT_FALSE(forest.isAboveOrSame(1, 2));
    EXPECT_FALSE(forest.isAboveOrSame(0, 2));
    EXPECT_TRUE(forest.isAboveOrSame(2, 2));
    forest.link(2, 1);
    EXPECT_TRUE(forest.isAboveOrSame(1, 2));
    forest.cut(1);
    forest.reset(1);
    forest.reset(2);
    forest.link(2, 0);
    forest.link(1, 2);
    EXPECT_TRUE(forest.isAboveOrSame(2, 1));
}

TEST(AncestryForestTest, agreesWithWalkingUp) {
    constexpr std::size_t count = 60;
    for(unsigned seed = 0; seed != 20; ++seed) {
        std::mt19937 random{seed};
        AncestryForest<Id> forest;
        forest.resize(count);
        std::vector<Id> parents(count, NoObject);
        // From bushes to chains.
        const std::size_t reach = 1 + seed * 3;
        for(std::size_t i = 1; i != count; ++i) {
            parents[i] = Id(i - 1 - random() % std::min(i, reach));
            forest.link(Id(i), parents[i]);
        }
        const auto isAbove = [&](Id above, Id node) {
            while(node != NoObject && node != above) node = parents[node];
            return node == above;
        };
        for(int step = 0; step != 1000; ++step) {
            const Id node = Id(1 + random() % (count - 1));
            const Id other = Id(random() % count);
            ASSERT_EQ(forest.isAboveOrSame(node, other), isAbove(node, other)) << seed << " " << step;
            if(isAbove(node, other)) continue;
            if(parents[node] != NoObject) forest.cut(node);
            parents[node] = NoObject;
            if(random() % 8 == 0) continue;
            forest.link(node, other);
            parents[node] = other;
        }
    }
}

template<class Number> void askAboutAChain(std::size_t count) {
    AncestryForest<Number> forest;
    forest.resize(count);
    for(std::size_t i = 1; i != count; ++i) forest.link(Number(i), Number(i - 1));
    std::mt19937 random{3};
    for(int i = 0; i != 100000; ++i) {
        const Number a = Number(random() % count), b = Number(random() % count);
        ASSERT_EQ(forest.isAboveOrSame(a, b), a <= b);
    }
}

TEST(AncestryForestTest, aLongChainIsNoTrouble) {
    askAboutAChain<Id>(65535);
    askAboutAChain<std::uint32_t>(131072);
}

}
