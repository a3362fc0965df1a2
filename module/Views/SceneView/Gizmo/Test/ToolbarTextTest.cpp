#include <gmock/gmock.h>

#include "Views/SceneView/Gizmo/Toolbar.h"
#include "Views/Test/WindowFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using testing::ElementsAre;

// What the toolbar says, and how it shows what is chosen.
class ToolbarTextTest: public VantrelTest::WindowTest {
protected:
    ToolbarTextTest() {
        frame();
        frame();
    }
    void draw() override {
        const ToolbarResult result = drawToolbar(state, {{0.0f, 0.0f}, {800.0f, 600.0f}});
        state.gizmo = result.gizmo;
        state.flySpeed = result.flySpeed;
        isChoiceHovered = result.isChoiceHovered;
        toggled += result.togglesSimulation;
    }

    const ImGuiWindow& toolbar() { return *window("##toolbar"); }
    static Float segment() { return ImGui::GetFrameHeight() + ImGui::GetStyle().FramePadding.x; }
    // By how many buttons, gaps between groups and fields are before it.
    Vector2 at(int buttons, int gaps, int fields) {
        const ImGuiStyle& style = ImGui::GetStyle();
        return {toolbar().Pos.x + style.WindowPadding.x + Float(buttons) * (segment() + 1.0f) +
                Float(gaps) * style.ItemSpacing.x + Float(fields) * 64.0f + 10.0f,
            toolbar().Pos.y + style.WindowPadding.y + ImGui::GetFrameHeight() * 0.5f};
    }
    Vector2 operation(int which) { return at(which, 0, 0); }
    Vector2 space() { return at(3, 1, 0); }
    Vector2 snapButton(int which) { return at(4 + which, 2 + which, which); }
    Vector2 snapField(int which) { return at(5 + which, 2 + which, which); }
    Vector2 afterSnaps() { return at(7, 5, 3); }

    std::vector<std::string> tooltipAt(const Vector2& point) {
        moveTo(point);
        if(!window("##Tooltip_00")) return {};
        std::vector<std::string> lines = written();
        // What stands in the fields before it is said, too.
        lines.erase(std::remove_if(lines.begin(), lines.end(),
                        [](const std::string& line) { return line.find_last_of("0123456789") + 1 == line.size(); }),
            lines.end());
        return lines;
    }
    static std::size_t vertices(const ImGuiWindow& window, ImGuiCol colour, Float alpha) {
        return vertexCount(window, ImGui::GetColorU32(colour, alpha));
    }

    ToolbarState state{{}, 3.0f, 0.1f, 1000.0f, true, false};
    bool isChoiceHovered = false;
    int toggled = 0;
};

TEST_F(ToolbarTextTest, tooltips) {
    EXPECT_THAT(tooltipAt(operation(0)), ElementsAre("Translation Gizmo (G)"));
    EXPECT_THAT(tooltipAt(operation(1)), ElementsAre("Rotation Gizmo (R)"));
    EXPECT_THAT(tooltipAt(operation(2)), ElementsAre("Scaling Gizmo (S)", "(Only local space)"));
    EXPECT_THAT(tooltipAt(space()), ElementsAre("Toggle between World and Local Space", "(G-G or R-R)"));
    EXPECT_THAT(tooltipAt(snapButton(0)), ElementsAre("Snap translation (Hold Ctrl)"));
    EXPECT_THAT(tooltipAt(snapField(1)), ElementsAre("Snap rotation (Hold Ctrl)"));
    EXPECT_THAT(tooltipAt(snapButton(2)), ElementsAre("Snap scaling (Hold Ctrl)"));
    EXPECT_THAT(tooltipAt(afterSnaps()), ElementsAre("Simulate PhysX (Alt + s)"));
    EXPECT_THAT(tooltipAt(at(8, 7, 3)), ElementsAre("Camera fly speed"));
    // Also where it cannot be used.
    state.gizmo.gizmoOperation = GizmoOperation::Scale;
    EXPECT_THAT(tooltipAt(space()), ElementsAre("Toggle between World and Local Space", "(G-G or R-R)"));
}

TEST_F(ToolbarTextTest, stepsToChooseFrom) {
    const std::vector<std::string> steps[]{
        {"0.05", "0.1", "0.125", "0.25", "0.5", "1", "1.25", "1.5", "2", "3", "5", "10", "25"},
        {"1", "2", "5", "7.5", "10", "15", "30", "90", "180"}, {"0.05", "0.1", "0.2", "0.3", "0.5", "1"}};
    for(int which = 0; which != 3; ++which) {
        SCOPED_TRACE(which);
        int row = 0;
        for(const std::string& step: steps[which]) {
            click(snapField(which));
            ImGuiWindow& list = openPopup();
            // Items are made one after the other, whether they are seen or not.
            ImGui::SetScrollY(&list, ImGui::GetTextLineHeightWithSpacing() * Float(row));
            frame();
            frame();
            const Float top = list.Pos.y + ImGui::GetStyle().WindowPadding.y - list.Scroll.y;
            click({list.Pos.x + 20.0f, top + ImGui::GetTextLineHeightWithSpacing() * (Float(row) + 0.3f)});
            EXPECT_EQ(written()[std::size_t(which)], step);
            ++row;
        }
    }
    EXPECT_EQ(state.gizmo.snapTranslation, Vector3{25.0f});
    EXPECT_EQ(state.gizmo.snapRotation, 180.0f);
    EXPECT_EQ(state.gizmo.snapScale, Vector3{1.0f});
}

TEST_F(ToolbarTextTest, atFirst) {
    EXPECT_EQ(state.gizmo.snapTranslation, Vector3{0.5f});
    EXPECT_EQ(state.gizmo.snapRotation, 30.0f);
    EXPECT_EQ(state.gizmo.snapScale, Vector3{0.1f});
    EXPECT_FALSE(state.gizmo.snapTranslationEnabled || state.gizmo.snapRotationEnabled || state.gizmo.snapScaleEnabled);
    EXPECT_EQ(state.gizmo.gizmoOperation, GizmoOperation::Translate);
    EXPECT_THAT(written(), ElementsAre("0.5", "30", "0.1", "\uf03d 3.000"));
}

// What is not chosen is paler: two operations of three, and steps that are off.
TEST_F(ToolbarTextTest, whatIsOffIsPale) {
    const auto pale = [this] {
        moveAway();
        frame();
        frame();
        return vertices(toolbar(), ImGuiCol_Text, 0.6f);
    };
    // An icon of the stand-in font is one character, of four vertices.
    EXPECT_EQ(pale(), 5u * 4u);
    for(bool* const each:
        {&state.gizmo.snapTranslationEnabled, &state.gizmo.snapRotationEnabled, &state.gizmo.snapScaleEnabled}) {
        *each = true;
        EXPECT_EQ(pale(), 4u * 4u);
        *each = false;
    }
    for(const GizmoOperation each: {GizmoOperation::Rotate, GizmoOperation::Scale}) {
        state.gizmo.gizmoOperation = each;
        // That of the space is disabled while scaling.
        EXPECT_EQ(pale(), (each == GizmoOperation::Scale ? 6u : 5u) * 4u);
    }
}

// Half of what is behind the window is seen, and nothing through what is in it.
TEST_F(ToolbarTextTest, theWindowIsHalfTransparent) {
    ImVec4 background = ImGui::GetStyle().Colors[ImGuiCol_WindowBg];
    background.w *= 0.5f;
    EXPECT_GT(vertexCount(toolbar(), ImGui::ColorConvertFloat4ToU32(background)), 0u);
    EXPECT_GT(vertices(toolbar(), ImGuiCol_Text, 1.0f), 0u);
}

TEST_F(ToolbarTextTest, theButtonOfARunningSimulation) {
    constexpr ImU32 running = IM_COL32(255, 0, 145, 199), hovered = IM_COL32(255, 0, 145, 255);
    EXPECT_EQ(vertexCount(toolbar(), running), 0u);
    state.isSimulating = true;
    frame();
    EXPECT_GT(vertexCount(toolbar(), running), 0u);
    EXPECT_EQ(vertexCount(toolbar(), hovered), 0u);
    moveTo(afterSnaps());
    EXPECT_GT(vertexCount(toolbar(), hovered), 0u);
    click(afterSnaps());
    EXPECT_EQ(toggled, 1);
    state.hasPhysics = false;
    frame();
    frame();
    EXPECT_EQ(vertexCount(toolbar(), hovered) + vertexCount(toolbar(), running), 0u);
}

TEST_F(ToolbarTextTest, tellsThatAChoiceIsHovered) {
    for(const Vector2& point: {operation(0), operation(1), operation(2), space()}) {
        moveTo(point);
        EXPECT_TRUE(isChoiceHovered) << point.x();
    }
    state.gizmo.gizmoOperation = GizmoOperation::Scale;
    moveTo(space());
    EXPECT_TRUE(isChoiceHovered);
    for(const Vector2& point: {snapButton(0), snapField(1), afterSnaps(), Vector2{400.0f, 300.0f}}) {
        moveTo(point);
        EXPECT_FALSE(isChoiceHovered) << point.x();
    }
}

}
