#include "Panels/PaneLayout.h"

#include <random>

#include <gtest/gtest.h>

namespace VantrelEngine {

namespace {

using namespace Magnum;

const Range2D Area{{0.0f, 20.0f}, {1000.0f, 720.0f}};

PaneSizes sizes(Float listWidth, Float logHeight, bool hasList = true, bool hasLog = true) {
    return {listWidth, logHeight, hasList, hasLog};
}

TEST(PaneLayoutTest, PanesAreSideBySide) {
    const PanePlaces places = placePanes(Area, sizes(300.0f, 150.0f));
    EXPECT_EQ(places.list, (Range2D{{0.0f, 20.0f}, {300.0f, 720.0f}}));
    EXPECT_EQ(places.listSplitter, (Range2D{{300.0f, 20.0f}, {305.0f, 720.0f}}));
    EXPECT_EQ(places.view, (Range2D{{305.0f, 20.0f}, {1000.0f, 565.0f}}));
    EXPECT_EQ(places.logSplitter, (Range2D{{305.0f, 565.0f}, {1000.0f, 570.0f}}));
    EXPECT_EQ(places.log, (Range2D{{305.0f, 570.0f}, {1000.0f, 720.0f}}));
}

TEST(PaneLayoutTest, WhatIsNotShownLeavesItsPlaceToTheView) {
    EXPECT_EQ(placePanes(Area, sizes(300.0f, 150.0f, false, false)).view, Area);
    EXPECT_EQ(placePanes(Area, sizes(300.0f, 150.0f, false, true)).view, (Range2D{{0.0f, 20.0f}, {1000.0f, 565.0f}}));
    const PanePlaces places = placePanes(Area, sizes(300.0f, 150.0f, true, false));
    EXPECT_EQ(places.view, (Range2D{{305.0f, 20.0f}, {1000.0f, 720.0f}}));
    EXPECT_EQ(places.log, Range2D{});
    EXPECT_EQ(places.logSplitter, Range2D{});
}

TEST(PaneLayoutTest, Limits) {
    const struct {
        const char* name;
        Float listWidth, logHeight, width, height;
    } cases[]{{"least", 1.0f, 1.0f, MinListWidth, MinLogHeight},
        {"most", 5000.0f, 5000.0f, 1000.0f - 5.0f - MinViewSize, 700.0f - 5.0f - MinViewSize},
        {"as wished", 400.0f, 300.0f, 400.0f, 300.0f}};
    for(const auto& testCase: cases) {
        const PanePlaces places = placePanes(Area, sizes(testCase.listWidth, testCase.logHeight));
        EXPECT_EQ(places.list.sizeX(), testCase.width) << testCase.name;
        EXPECT_EQ(places.log.sizeY(), testCase.height) << testCase.name;
    }
}

TEST(PaneLayoutTest, NothingIsNegativeOrOutsideHoweverSmallTheWindow) {
    std::mt19937 random{7};
    std::uniform_real_distribution<Float> length{-50.0f, 600.0f};
    for(int i = 0; i != 2000; ++i) {
        const Range2D area = Range2D::fromSize({0.0f, 20.0f}, {length(random), length(random)});
        const PanePlaces places = placePanes(area, sizes(length(random), length(random), i % 2, i % 3));
        const Range2D whole{area.min(), Math::max(area.min(), area.max())};
        for(const Range2D& place: {places.list, places.view, places.log, places.listSplitter, places.logSplitter}) {
            ASSERT_GE(place.sizeX(), 0.0f) << i;
            ASSERT_GE(place.sizeY(), 0.0f) << i;
            if(place == Range2D{}) continue;
            ASSERT_GE(place.min().x(), whole.min().x()) << i;
            ASSERT_GE(place.min().y(), whole.min().y()) << i;
            ASSERT_LE(place.max().x(), whole.max().x()) << i;
            ASSERT_LE(place.max().y(), whole.max().y()) << i;
        }
        ASSERT_FLOAT_EQ(places.list.sizeX() + places.listSplitter.sizeX() + places.view.sizeX(), whole.sizeX()) << i;
        ASSERT_NEAR(places.log.sizeY() + places.logSplitter.sizeY() + places.view.sizeY(), whole.sizeY(), 1.0e-3f) << i;
    }
}

} // namespace

} // namespace VantrelEngine
