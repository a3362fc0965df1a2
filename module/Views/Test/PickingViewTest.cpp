#include <gtest/gtest.h>
#include <imgui_internal.h>

#include "Views/Test/SceneViewFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using VantrelTest::differences;

class PickingViewTest: public VantrelTest::SceneViewFixture {
protected:
    PickingViewTest() {
        addCube("left", "[-1.5, 0, 1.5]");
        addCube("right", "[1.5, 0, -1.5]");
        host.frame();
    }
    void click(const Vector2i& point, unsigned modifiers = 0) {
        hover(point);
        press(MouseButton::Left, modifiers);
        release(MouseButton::Left, modifiers);
    }
    std::string selected() {
        std::string names;
        for(const char* id: {"left", "right"})
            if(data().isSelected(objectOf(id))) names += id;
        return names;
    }

    static constexpr Vector2i Left{80, 138}, Right{240, 138}, Nothing{160, 225};
};

TEST_F(PickingViewTest, clicksSelectWhatIsSeen) {
    click(Left);
    EXPECT_EQ(selected(), "left");
    click(Right, ModifierShift);
    EXPECT_EQ(selected(), "leftright");
    click(Right);
    EXPECT_EQ(selected(), "right");
    click(Nothing);
    EXPECT_EQ(selected(), "");
}

// In the frame after the mouse was over something else already.
TEST_F(PickingViewTest, aClickRightAfterAnItemWasHovered) {
    hover({160, 120});
    ImGui::SetHoveredID(1234);
    ImGui::GetIO().MousePos = {Float(Left.x()), Float(Left.y())};
    host.platform.cursor = Vector2d{Left};
    host.frame();
    press(MouseButton::Left);
    EXPECT_EQ(selected(), "left");
}

TEST_F(PickingViewTest, theBarsOfTheWindowAreNotThePicture) {
    click(Left);
    // Of its title and of its menus, where no item is.
    for(const Vector2i& bar: {Vector2i{200, 8}, Vector2i{200, 28}}) {
        click(bar);
        EXPECT_EQ(selected(), "left");
    }
}

TEST_F(PickingViewTest, tellsWhetherABoxIsArmed) {
    hover(Left);
    pressKey('B');
    EXPECT_TRUE(host.state.isBoxArmed);
    press(MouseButton::Left, ModifierControl | ModifierShift);
    EXPECT_TRUE(host.state.isBoxArmed);
    release(MouseButton::Left);
    EXPECT_FALSE(host.state.isBoxArmed);
    pressKey('B');
    pressKey(256);
    EXPECT_FALSE(host.state.isBoxArmed);
    pressKey('B');
    host.reloadView();
    EXPECT_FALSE(host.state.isBoxArmed);
}

// The host shows a crosshair for what is beyond the cursors of the UI library.
TEST_F(PickingViewTest, theCursorTellsThatABoxIsArmed) {
    hover(Left);
    EXPECT_NE(ImGui::GetMouseCursor(), ImGuiMouseCursor_COUNT);
    pressKey('B');
    host.frame();
    EXPECT_EQ(ImGui::GetMouseCursor(), ImGuiMouseCursor_COUNT);
    press(MouseButton::Left);
    hover(Right);
    EXPECT_EQ(ImGui::GetMouseCursor(), ImGuiMouseCursor_COUNT);
    const auto edge = [] {
        const auto& vertices = ImGui::GetForegroundDrawList()->VtxBuffer;
        return std::count_if(vertices.begin(), vertices.end(),
            [](const ImDrawVert& vertex) { return vertex.col == IM_COL32(255, 0, 153, 204); });
    };
    EXPECT_GT(edge(), 0);
    release(MouseButton::Left);
    host.frame();
    EXPECT_NE(ImGui::GetMouseCursor(), ImGuiMouseCursor_COUNT);
    EXPECT_EQ(edge(), 0);
}

TEST_F(PickingViewTest, withTwicePixels) {
    host.platform.scale = Vector2{2.0f};
    host.resize({321, 241});
    host.frame();
    click(Left);
    EXPECT_EQ(selected(), "left");
    click(Right);
    EXPECT_EQ(selected(), "right");
}

// The framebuffers stay; what is below the mouse is what is seen there.
TEST_F(PickingViewTest, afterAChangeOfTheScaleAlone) {
    host.platform.scale = Vector2{3.0f};
    click(Right);
    EXPECT_EQ(selected(), "right");
    click(Left);
    EXPECT_EQ(selected(), "left");
}

TEST_F(PickingViewTest, theNextFrameShowsTheSelection) {
    hover(Left);
    const Image2D before = host.picture();
    press(MouseButton::Left);
    host.frame();
    EXPECT_GT(differences(before, host.picture()), 100);
}

TEST_F(PickingViewTest, nothingWhileFlyingOrOutside) {
    hover(Left);
    press(MouseButton::Right);
    host.platform.cursor = Vector2d{Left};
    press(MouseButton::Left);
    EXPECT_EQ(selected(), "");
    release(MouseButton::Right);
    hover({-20, 138});
    press(MouseButton::Left);
    EXPECT_EQ(selected(), "");
}

// The mouse was over the picture in the last frame, and went on to a panel before it was pressed.
TEST_F(PickingViewTest, aPressThatIsElsewhereAlready) {
    click(Left);
    hover(Right);
    host.platform.cursor = {330.0, 138.0};
    press(MouseButton::Left);
    release(MouseButton::Left);
    EXPECT_EQ(selected(), "left");
    press(MouseButton::Right);
    EXPECT_FALSE(host.platform.isCursorDisabled);
    release(MouseButton::Right);
}

TEST_F(PickingViewTest, otherButtonsSelectNothing) {
    hover(Left);
    press(MouseButton::Middle);
    release(MouseButton::Middle);
    EXPECT_EQ(selected(), "");
}

TEST_F(PickingViewTest, placesTheSelectedObject) {
    click(Left);
    click(Right, ModifierControl | ModifierShift);
    host.frame();
    EXPECT_EQ(selected(), "left");
    EXPECT_EQ(
        data().scene().main().absoluteTransformation(objectOf("left")).translation(), (Vector3{1.5f, 0.0f, -1.5f}));
    EXPECT_EQ(host.objectAt({80, 240 - 138}), NoObject);
    host.session.changes().undoLast();
    host.frame();
    EXPECT_EQ(host.objectAt({80, 240 - 138}), objectOf("left"));
}

TEST_F(PickingViewTest, whoAsksForAnObjectIsAnswered) {
    host.state.pickRequest.isPending = 1;
    click(Right);
    EXPECT_EQ(selected(), "");
    EXPECT_EQ(host.state.pickRequest.name, "right");
}

} // namespace
