#include "Panels/PaneLayout.h"

#include <random>

#include <gtest/gtest.h>

namespace VantrelEngine {

namespace {

using namespace Magnum;

const Range2D Area{{0.0f, 20.0f}, {1000.0f, 720.0f}};

PaneSizes sizes(Float left, Float right, Float bottom) { return {left, right, bottom, {}}; }

PaneSizes withPanes(PaneSizes sizes, bool hasLeft, bool hasRight, bool hasBottom) {
    sizes[Panel::Objects] = hasLeft;
    sizes[Panel::Inspector] = hasRight;
    sizes[Panel::Log] = hasBottom;
    return sizes;
}

TEST(PaneLayoutTest, PanesAreSideBySide) {
    const PanePlaces places = placePanes(Area, withPanes(sizes(200.0f, 250.0f, 150.0f), true, true, true));
    EXPECT_EQ(places.left, (Range2D{{0.0f, 20.0f}, {200.0f, 720.0f}}));
    EXPECT_EQ(places.leftSplitter, (Range2D{{200.0f, 20.0f}, {205.0f, 720.0f}}));
    EXPECT_EQ(places.view, (Range2D{{205.0f, 20.0f}, {745.0f, 565.0f}}));
    EXPECT_EQ(places.rightSplitter, (Range2D{{745.0f, 20.0f}, {750.0f, 720.0f}}));
    EXPECT_EQ(places.right, (Range2D{{750.0f, 20.0f}, {1000.0f, 720.0f}}));
    EXPECT_EQ(places.bottomSplitter, (Range2D{{205.0f, 565.0f}, {745.0f, 570.0f}}));
    EXPECT_EQ(places.bottom, (Range2D{{205.0f, 570.0f}, {745.0f, 720.0f}}));
    EXPECT_EQ(places.of(Pane::Left), places.left);
    EXPECT_EQ(places.of(Pane::Right), places.right);
    EXPECT_EQ(places.of(Pane::Bottom), places.bottom);
}

TEST(PaneLayoutTest, WhatIsNotShownLeavesItsPlaceToTheView) {
    const PaneSizes all = sizes(300.0f, 200.0f, 150.0f);
    EXPECT_EQ(placePanes(Area, withPanes(all, false, false, false)).view, Area);
    EXPECT_EQ(placePanes(Area, withPanes(all, false, false, true)).view, (Range2D{{0.0f, 20.0f}, {1000.0f, 565.0f}}));
    EXPECT_EQ(placePanes(Area, withPanes(all, false, true, false)).view, (Range2D{{0.0f, 20.0f}, {795.0f, 720.0f}}));
    const PanePlaces places = placePanes(Area, withPanes(all, true, false, false));
    EXPECT_EQ(places.view, (Range2D{{305.0f, 20.0f}, {1000.0f, 720.0f}}));
    EXPECT_EQ(places.bottom, Range2D{});
    EXPECT_EQ(places.bottomSplitter, Range2D{});
    EXPECT_EQ(places.right, Range2D{});
}

TEST(PaneLayoutTest, APaneIsThereForAnyOfItsPanels) {
    for(const PanelInfo& panel: Panels) {
        PaneSizes sizes;
        sizes.isOpen = {};
        for(const Pane pane: {Pane::Left, Pane::Right, Pane::Bottom}) EXPECT_FALSE(sizes.has(pane));
        sizes[panel.panel] = true;
        for(const Pane pane: {Pane::Left, Pane::Right, Pane::Bottom})
            EXPECT_EQ(sizes.has(pane), pane == panel.pane) << panel.title;
        EXPECT_EQ(infoOf(panel.panel).title, panel.title) << "they stand in their order";
    }
}

TEST(PaneLayoutTest, Limits) {
    const struct {
        const char* name;
        Float width, height, expectedWidth, expectedHeight;
    } cases[]{{"least", 1.0f, 1.0f, MinPaneWidth, MinPaneHeight},
        {"most", 5000.0f, 5000.0f, 1000.0f - 5.0f - MinViewSize, 700.0f - 5.0f - MinViewSize},
        {"as wished", 400.0f, 300.0f, 400.0f, 300.0f}};
    for(const auto& testCase: cases) {
        const PaneSizes wish = sizes(testCase.width, testCase.width, testCase.height);
        const PanePlaces left = placePanes(Area, withPanes(wish, true, false, true));
        EXPECT_EQ(left.left.sizeX(), testCase.expectedWidth) << testCase.name;
        EXPECT_EQ(left.bottom.sizeY(), testCase.expectedHeight) << testCase.name;
        EXPECT_EQ(placePanes(Area, withPanes(wish, false, true, true)).right.sizeX(), testCase.expectedWidth)
            << testCase.name;
    }
}

TEST(PaneLayoutTest, LargerTextMakesThemLargerInProportion) {
    const Range2D wide{{0.0f, 0.0f}, {3000.0f, 2000.0f}};
    const PaneSizes all = withPanes(sizes(200.0f, 250.0f, 150.0f), true, true, true);
    for(const Float scale: {1.0f, 2.0f, 3.0f}) {
        const PanePlaces places = placePanes(wide, all, scale);
        EXPECT_FLOAT_EQ(places.left.sizeX(), 200.0f * scale);
        EXPECT_FLOAT_EQ(places.right.sizeX(), 250.0f * scale);
        EXPECT_FLOAT_EQ(places.bottom.sizeY(), 150.0f * scale);
    }
    // The least of each, too.
    const PanePlaces least = placePanes(wide, withPanes(sizes(1.0f, 1.0f, 1.0f), true, true, true), 3.0f);
    EXPECT_FLOAT_EQ(least.left.sizeX(), MinPaneWidth * 3.0f);
    EXPECT_FLOAT_EQ(least.bottom.sizeY(), MinPaneHeight * 3.0f);
}

TEST(PaneLayoutTest, WhereThereIsNoRoomTheViewKeepsItsPartAndTheOthersShareTheRest) {
    const PanePlaces places = placePanes(Area, withPanes(sizes(200.0f, 300.0f, 250.0f), true, true, true), 3.0f);
    EXPECT_FLOAT_EQ(places.view.sizeX(), 1000.0f * MinViewPart);
    EXPECT_FLOAT_EQ(places.view.sizeY(), 700.0f * MinViewPart);
    EXPECT_FLOAT_EQ(places.left.sizeX(), 590.0f * 0.4f);
    EXPECT_FLOAT_EQ(places.right.sizeX(), 590.0f * 0.6f);
}

TEST(PaneLayoutTest, ADraggedSplitterIsWhereTheMouseIsAndNothingElseMoves) {
    for(const Float scale: {1.0f, 2.0f}) {
        const PaneSizes before = withPanes(sizes(200.0f, 250.0f, 150.0f), true, true, true);
        const PanePlaces old = placePanes(Area, before, scale);
        const PanePlaces left = placePanes(Area, draggedSizes(Area, before, scale, Pane::Left, 370.0f), scale);
        // Of larger text the most is less than that.
        const Float room = scale > 1.0f ? 590.0f : 790.0f;
        const Float expected = Math::min(367.5f, Math::max(room - old.right.sizeX(), MinPaneWidth * scale));
        EXPECT_NEAR(left.left.sizeX(), expected, 0.01f) << scale;
        EXPECT_NEAR(left.right.sizeX(), old.right.sizeX(), 0.01f) << scale;
        EXPECT_EQ(left.bottom.sizeY(), old.bottom.sizeY());
        const PanePlaces bottom = placePanes(Area, draggedSizes(Area, before, scale, Pane::Bottom, 400.0f), scale);
        EXPECT_NEAR(bottom.bottomSplitter.center().y(), 400.0f, 0.01f) << scale;
        EXPECT_EQ(bottom.left, old.left);
    }
    const PaneSizes before = withPanes(sizes(200.0f, 250.0f, 150.0f), true, true, true);
    const PanePlaces right = placePanes(Area, draggedSizes(Area, before, 1.0f, Pane::Right, 600.0f));
    EXPECT_NEAR(right.rightSplitter.center().x(), 600.0f, 0.01f);
    // Beyond what the view keeps, and beyond the window.
    EXPECT_NEAR(placePanes(Area, draggedSizes(Area, before, 1.0f, Pane::Right, 100.0f)).right.sizeX(), 590.0f, 0.01f);
    EXPECT_EQ(placePanes(Area, draggedSizes(Area, before, 1.0f, Pane::Right, 5000.0f)).right.sizeX(), MinPaneWidth);
}

TEST(PaneLayoutTest, NothingIsNegativeOrOutsideHoweverSmallTheWindow) {
    std::mt19937 random{7};
    std::uniform_real_distribution<Float> length{-50.0f, 600.0f};
    for(int i = 0; i != 2000; ++i) {
        const Range2D area = Range2D::fromSize({0.0f, 20.0f}, {length(random), length(random)});
        const PanePlaces places = placePanes(area,
            withPanes(sizes(length(random), length(random), length(random)), i % 2, i % 5, i % 3), Float(1 + i % 4));
        const Range2D whole{area.min(), Math::max(area.min(), area.max())};
        for(const Range2D& place: {places.left, places.right, places.view, places.bottom, places.leftSplitter,
                places.rightSplitter, places.bottomSplitter}) {
            ASSERT_GE(place.sizeX(), 0.0f) << i;
            ASSERT_GE(place.sizeY(), 0.0f) << i;
            if(place == Range2D{}) continue;
            ASSERT_GE(place.min().x(), whole.min().x()) << i;
            ASSERT_GE(place.min().y(), whole.min().y()) << i;
            ASSERT_LE(place.max().x(), whole.max().x()) << i;
            ASSERT_LE(place.max().y(), whole.max().y()) << i;
        }
        ASSERT_NEAR(places.left.sizeX() + places.leftSplitter.sizeX() + places.view.sizeX() +
                places.rightSplitter.sizeX() + places.right.sizeX(),
            whole.sizeX(), 1.0e-3f)
            << i;
        ASSERT_NEAR(places.bottom.sizeY() + places.bottomSplitter.sizeY() + places.view.sizeY(), whole.sizeY(), 1.0e-3f)
            << i;
    }
}

} // namespace

} // namespace VantrelEngine
