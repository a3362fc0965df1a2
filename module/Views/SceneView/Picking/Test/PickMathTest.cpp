#include "Views/SceneView/Picking/PickMath.h"

#include <Vantrel/Module/InputEvents.h>
#include <gtest/gtest.h>

#include "Views/SceneView/ViewFrame.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;

constexpr unsigned ControlShift = ModifierControl | ModifierShift;

PressState hovered() {
    PressState state;
    state.isHovered = true;
    return state;
}

TEST(PickMathTest, plainPressSelects) {
    for(const unsigned modifiers: {0u, 1u, 2u, 4u, 8u, 5u, 7u, 11u, 15u})
        EXPECT_EQ(pressAction(hovered(), modifiers), PressAction::Select) << modifiers;
}

TEST(PickMathTest, onlyControlAndShiftPlace) {
    EXPECT_EQ(pressAction(hovered(), ControlShift), PressAction::Place);
    EXPECT_EQ(pressAction(hovered(), ControlShift | ModifierAlt), PressAction::Select);
    EXPECT_EQ(pressAction(hovered(), ControlShift | ModifierSuper), PressAction::Select);
}

TEST(PickMathTest, aHandleKeepsWhatWouldSelect) {
    PressState state = hovered();
    state.isOverHandle = true;
    EXPECT_EQ(pressAction(state, 0), PressAction::None);
    EXPECT_EQ(pressAction(state, ModifierShift), PressAction::None);
    EXPECT_EQ(pressAction(state, ControlShift), PressAction::Place);
    state.isBoxArmed = true;
    EXPECT_EQ(pressAction(state, 0), PressAction::BeginBox);
}

TEST(PickMathTest, aBoxGoesBeforeAllElse) {
    PressState state = hovered();
    state.isBoxArmed = true;
    for(const unsigned modifiers: {0u, 1u, ControlShift})
        EXPECT_EQ(pressAction(state, modifiers), PressAction::BeginBox) << modifiers;
}

TEST(PickMathTest, nothingOutsideOrWhileFlying) {
    for(const bool isArmed: {false, true})
        for(const unsigned modifiers: {0u, 1u, ControlShift}) {
            PressState outside;
            outside.isBoxArmed = isArmed;
            EXPECT_EQ(pressAction(outside, modifiers), PressAction::None);
            PressState flying = hovered();
            flying.isBoxArmed = isArmed;
            flying.isFlying = true;
            EXPECT_EQ(pressAction(flying, modifiers), PressAction::None);
        }
}

TEST(PickMathTest, onlyShiftAloneAdds) {
    EXPECT_TRUE(isAdditivePress(ModifierShift));
    for(const unsigned modifiers: {0u, 2u, 3u, 5u, 9u}) EXPECT_FALSE(isAdditivePress(modifiers)) << modifiers;
}

TEST(PickMathTest, boxesInAnyDirection) {
    const ViewFrame frame{{100, 200}, {40, 30}, {40, 30}, Vector2{1.0f}};
    const Range2Di box{{5, 8}, {25, 28}};
    EXPECT_EQ(boxRectangle({5, 2}, {25, 22}, frame), box);
    EXPECT_EQ(boxRectangle({25, 22}, {5, 2}, frame), box);
    EXPECT_EQ(boxRectangle({25, 2}, {5, 22}, frame), box);
}

TEST(PickMathTest, boxesInPixels) {
    const ViewFrame twice{{}, {40, 30}, {80, 60}, Vector2{2.0f}};
    EXPECT_EQ(boxRectangle({5, 2}, {25, 22}, twice), (Range2Di{{10, 16}, {50, 56}}));
    const ViewFrame odd{{}, {3, 3}, {4, 4}, Vector2{1.5f}};
    EXPECT_EQ(boxRectangle({1, 1}, {3, 2}, odd), (Range2Di{{1, 1}, {4, 2}}));
}

TEST(PickMathTest, boxesWithoutPixels) {
    const ViewFrame frame{{}, {40, 30}, {40, 30}, Vector2{1.0f}};
    EXPECT_EQ(boxRectangle({5, 2}, {5, 22}, frame).size(), (Vector2i{0, 20}));
    EXPECT_EQ(boxRectangle({5, 2}, {25, 2}, frame).size(), (Vector2i{20, 0}));
}

} // namespace
