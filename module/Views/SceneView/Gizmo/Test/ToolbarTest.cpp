#include <Magnum/Math/Range.h>
#include <gmock/gmock.h>
#include <imgui_internal.h>

#include "GizmoFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelTest;

class ToolbarTest: public GizmoTest {
protected:
    ToolbarTest() {
        host.resize({800, 500});
        host.frame();
        host.frame();
    }

    const ImGuiWindow& toolbar() const { return *ImGui::FindWindowByName("##toolbar"); }
    static Float segment() { return ImGui::GetFrameHeight() + ImGui::GetStyle().FramePadding.x; }
    // Of the items of the row, by how many buttons, gaps between groups and fields are before it.
    Vector2 at(int buttons, int gaps, int fields, Float within = 10.0f) const {
        const ImGuiStyle& style = ImGui::GetStyle();
        return {toolbar().Pos.x + style.WindowPadding.x + Float(buttons) * segment() +
                Float(gaps) * style.ItemSpacing.x + Float(fields) * 64.0f + Float(buttons) + within,
            toolbar().Pos.y + style.WindowPadding.y + ImGui::GetFrameHeight() * 0.5f};
    }
    Vector2 operation(int which) const { return at(which, 0, 0); }
    Vector2 space() const { return at(3, 1, 0); }
    Vector2 snapButton(int which) const { return at(4 + which, 2 + which, which); }
    Vector2 snapField(int which) const { return at(5 + which, 2 + which, which); }
};

TEST_F(ToolbarTest, whereItIs) {
    const ImGuiWindow& view = *ImGui::FindWindowByName("Scene View");
    EXPECT_EQ(toolbar().Flags & 79, 79);
    EXPECT_EQ(toolbar().Pos.x, view.Pos.x);
    EXPECT_EQ(
        toolbar().Pos.y, view.Pos.y + 4.0f * ImGui::GetStyle().FramePadding.y + 2.0f * ImGui::GetTextLineHeight());
    // It is new, and the view still has the focus.
    EXPECT_EQ(ImGui::GetCurrentContext()->NavWindow, &view);
}

TEST_F(ToolbarTest, keepsToASmallView) {
    host.resize({200, 200});
    host.frame();
    host.frame();
    EXPECT_LE(toolbar().Size.x, 200.0f);
    EXPECT_LE(toolbar().Pos.y + toolbar().Size.y, 130.0f);
    host.resize({60, 60});
    host.frame();
    host.frame();
    EXPECT_FALSE(toolbar().Active);
}

TEST_F(ToolbarTest, operations) {
    const auto expectChosen = [&](GizmoOperation operation, GizmoSpace space) {
        const SceneViewRecord record = saved();
        EXPECT_EQ(record.gizmoOperation, UnsignedInt(operation));
        EXPECT_EQ(record.gizmoSpace, UnsignedInt(space));
    };
    expectChosen(GizmoOperation::Translate, GizmoSpace::World);
    click(operation(1));
    expectChosen(GizmoOperation::Rotate, GizmoSpace::World);
    click(operation(2));
    expectChosen(GizmoOperation::Scale, GizmoSpace::Local);
    // Scaling has no other space.
    click(space());
    expectChosen(GizmoOperation::Scale, GizmoSpace::Local);
    click(operation(0));
    expectChosen(GizmoOperation::Translate, GizmoSpace::Local);
    click(space());
    expectChosen(GizmoOperation::Translate, GizmoSpace::World);
    click(space());
    expectChosen(GizmoOperation::Translate, GizmoSpace::Local);
}

// The mouse is still over the button.
TEST_F(ToolbarTest, keysAfterAClick) {
    click(operation(2));
    EXPECT_EQ(saved().gizmoOperation, UnsignedInt(GizmoOperation::Scale));
    host.frame();
    pressKey('R');
    EXPECT_EQ(saved().gizmoOperation, UnsignedInt(GizmoOperation::Rotate));
}

TEST_F(ToolbarTest, stepsStayAfterAReload) {
    click(snapButton(0));
    click(snapButton(2));
    for(int which = 0; which != 3; ++which) {
        grab(snapField(which));
        release();
        host.frame();
        const ImGuiWindow* const list = ImGui::GetCurrentContext()->OpenPopupStack.back().Window;
        moveTo({list->Pos.x + 20.0f, list->Pos.y + 20.0f});
        ImGui::GetIO().MouseWheel = 20.0f;
        host.frame();
        host.frame();
        click({list->Pos.x + 20.0f, list->Pos.y + ImGui::GetStyle().WindowPadding.y + 5.0f});
        host.frame();
        EXPECT_TRUE(ImGui::GetCurrentContext()->OpenPopupStack.empty());
    }
    host.reloadView();
    host.frame();
    const SceneViewRecord record = saved();
    EXPECT_TRUE(record.snapTranslationEnabled);
    EXPECT_FALSE(record.snapRotationEnabled);
    EXPECT_TRUE(record.snapScaleEnabled);
    EXPECT_EQ(record.snapTranslation, Vector3{0.05f});
    EXPECT_EQ(record.snapRotation, 1.0f);
    EXPECT_EQ(record.snapScale, Vector3{0.05f});
}

TEST_F(ToolbarTest, simulationWherePhysicsIs) {
    const Vector2 button = at(7, 5, 3);
    click(button);
    EXPECT_FALSE(host.state.isSimulating());
    record("/settings/physx/enable", "true");
    host.frame();
    host.frame();
    click(button);
    EXPECT_TRUE(host.state.isSimulating());
    click(button);
    EXPECT_FALSE(host.state.isSimulating());
}

TEST_F(ToolbarTest, speedOfFlying) {
    EXPECT_FLOAT_EQ(saved().flySpeed, 3.0f);
    // Behind the icon.
    const Vector2 field = at(7, 6, 3, ImGui::CalcTextSize("\uf03d").x + 20.0f);
    drag(field, {40.0f, 0.0f});
    EXPECT_GT(saved().flySpeed, 5.0f);
    // Elsewhere: a double click would type.
    drag(field + Vector2{20.0f, 0.0f}, {-400.0f, 0.0f});
    EXPECT_FLOAT_EQ(saved().flySpeed, 0.1f);
}

// What is behind it is not picked, whatever of it is clicked.
TEST_F(ToolbarTest, picksNothing) {
    addCube("wall", "[0, 0, -5]", "[100, 100, 0.1]");
    host.frame();
    ASSERT_EQ(objectAt(operation(0) + Vector2{0.0f, 100.0f}), objectOf("wall"));
    for(const Vector2 point: {operation(0), operation(2), space(), snapButton(0), at(7, 5, 3, 25.0f),
            Vector2{toolbar().Pos.x + 2.0f, toolbar().Pos.y + 2.0f}}) {
        click(point);
        EXPECT_EQ(data().selection().countSet(), 0) << point.x();
    }
    click(operation(0) + Vector2{0.0f, 100.0f});
    EXPECT_TRUE(data().isSelected(objectOf("wall")));
}

}
