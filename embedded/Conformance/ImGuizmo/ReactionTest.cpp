#include <imgui.h>
#include <imgui_internal.h>

#include "Expect.h"
#include "GizmoWindow.h"

using namespace Magnum;
using namespace Math::Literals;
using GizmoTest::GizmoWindow;
using GizmoTest::near;

namespace {

static_assert(ImGuizmo::TRANSLATE_X == 1 && ImGuizmo::TRANSLATE_Y == 2 && ImGuizmo::TRANSLATE_Z == 4);
static_assert(ImGuizmo::ROTATE_X == 8 && ImGuizmo::ROTATE_Y == 16 && ImGuizmo::ROTATE_Z == 32);
static_assert(ImGuizmo::ROTATE_SCREEN == 64);
static_assert(ImGuizmo::SCALE_X == 128 && ImGuizmo::SCALE_Y == 256 && ImGuizmo::SCALE_Z == 512);
static_assert(ImGuizmo::TRANSLATE == 7 && ImGuizmo::ROTATE == 120 && ImGuizmo::SCALE == 896);
static_assert(ImGuizmo::LOCAL == 0 && ImGuizmo::WORLD == 1);
static_assert(ImGuizmo::DIRECTION_X == 0 && ImGuizmo::PLANE_X == 3 && ImGuizmo::SELECTION == 6);
static_assert(ImGuizmo::INACTIVE == 7 && ImGuizmo::ROTATION_USING_FILL == 11 && ImGuizmo::TEXT == 13);

class ReactionTest: public testing::Test {
protected:
    Vector2 middle() const { return gizmo.project(gizmo.matrix.translation()); }
    // Where an axis is and the middle is not
    Vector2 onAxis() const { return gizmo.pixelAt(Vector3::xAxis(), 60.0f); }

    GizmoWindow gizmo;
};

TEST_F(ReactionTest, mouseOverAHandle) {
    EXPECT_FALSE(gizmo.frame().isOver);
    gizmo.moveTo(onAxis());
    gizmo.frame();
    EXPECT_TRUE(gizmo.frame().isOver);
    EXPECT_TRUE(ImGuizmo::IsOver(ImGuizmo::TRANSLATE));
    EXPECT_FALSE(ImGuizmo::IsOver(ImGuizmo::ROTATE));
    EXPECT_FALSE(ImGuizmo::IsUsing());
    gizmo.moveTo({20.0f, 20.0f});
    gizmo.frame();
    EXPECT_FALSE(gizmo.frame().isOver);
}

TEST_F(ReactionTest, dragLastsWhileTheButtonIsDown) {
    ASSERT_TRUE(gizmo.grab(onAxis()));
    EXPECT_TRUE(ImGuizmo::IsUsingAny());
    // Far away from any handle
    gizmo.moveTo({200.0f, 800.0f});
    EXPECT_TRUE(gizmo.frame().isUsing);
    gizmo.release();
    EXPECT_FALSE(gizmo.frame().isUsing);
    EXPECT_FALSE(ImGuizmo::IsUsingAny());
}

TEST_F(ReactionTest, pressBesideTheHandlesGrabsNone) {
    EXPECT_FALSE(gizmo.grab({200.0f, 800.0f}));
    // With the button down already
    gizmo.moveTo(onAxis());
    gizmo.frame();
    EXPECT_FALSE(gizmo.frame().isUsing);
}

TEST_F(ReactionTest, otherButtonsGrabNothing) {
    gizmo.moveTo(onAxis());
    gizmo.frame();
    gizmo.frame();
    gizmo.press(1);
    gizmo.frame();
    EXPECT_FALSE(gizmo.frame().isUsing);
}

TEST_F(ReactionTest, disablingEndsADrag) {
    ASSERT_TRUE(gizmo.grab(onAxis()));
    ImGuizmo::Enable(false);
    ImGuizmo::Enable(true);
    EXPECT_FALSE(ImGuizmo::IsUsing());
    const Matrix4 before = gizmo.matrix;
    gizmo.moveTo(onAxis() + Vector2{50.0f, 0.0f});
    EXPECT_FALSE(gizmo.frame().isChanged);
    EXPECT_FALSE(gizmo.frame().isUsing);
    EXPECT_TRUE(near(gizmo.matrix, before, 0.0f));
}

TEST_F(ReactionTest, disabledGizmoIsDrawnAndDoesNotReact) {
    ImGuizmo::Enable(false);
    EXPECT_FALSE(gizmo.grab(onAxis()));
    EXPECT_GT(gizmo.vertices, 0);
    ImGuizmo::Enable(true);
}

TEST_F(ReactionTest, itemBeforeItKeepsTheMouse) {
    gizmo.content = [] {
        ImGui::SetCursorPos({0.0f, 0.0f});
        ImGui::InvisibleButton("item", {1600.0f, 900.0f});
    };
    EXPECT_FALSE(gizmo.grab(onAxis()));
}

TEST_F(ReactionTest, itemInUseKeepsTheMouse) {
    gizmo.content = [] {
        const ImGuiID item = ImGui::GetID("item");
        ImGui::SetActiveID(item, ImGui::GetCurrentWindow());
        ImGui::KeepAliveID(item);
    };
    EXPECT_FALSE(gizmo.grab(onAxis()));
}

TEST_F(ReactionTest, otherWindowUponItKeepsTheMouse) {
    gizmo.isCovered = true;
    gizmo.frame();
    EXPECT_FALSE(gizmo.grab(onAxis()));
}

class BehindTest: public ReactionTest, public testing::WithParamInterface<ImGuizmo::OPERATION> {};

TEST_P(BehindTest, neitherDrawsNorReacts) {
    gizmo.operation = GetParam();
    const Vector2 where = onAxis();
    // As far on the other side of the eye: seen at the same pixel by who divides by a negative number
    gizmo.matrix = Matrix4::translation({6.0f, 8.0f, 10.0f});
    for(const Vector2& pixel: {where, middle(), onAxis()}) {
        EXPECT_FALSE(gizmo.grab(pixel));
        EXPECT_EQ(gizmo.vertices, 0);
        gizmo.release();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Operations, BehindTest, testing::Values(ImGuizmo::TRANSLATE, ImGuizmo::ROTATE, ImGuizmo::SCALE));

}
