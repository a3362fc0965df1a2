#include "Views/SceneView/Overlays/ViewMenu.h"

#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/Renderer/RendererDebug.h>
#include <gmock/gmock.h>

#include "Views/Test/WindowFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using testing::AnyOf;
using testing::ElementsAre;

class ViewMenuTest: public VantrelTest::WindowTest {
protected:
    void draw() override {
        const ViewMenuResult result = drawViewMenu(mode, hasPhysics, state, debug);
        mode = result.mode;
        emptied += result.collisionShapesOff;
        toggled += result.togglesSimulation;
    }

    static constexpr Vector2 RenderType{30.0f, 28.0f}, Debug{120.0f, 28.0f};
    // Of the menu that is open, from the top.
    static Vector2 item(int which) {
        const ImGuiWindow& menu = openPopup();
        return {menu.Pos.x + 30.0f,
            menu.Pos.y + ImGui::GetStyle().WindowPadding.y +
                ImGui::GetTextLineHeightWithSpacing() * (Float(which) + 0.3f)};
    }
    void choose(const Vector2& menu, int which) {
        click(menu);
        click(item(which));
    }
    // What an open menu is drawn with, the mouse on its first item.
    int verticesOf(const Vector2& menu) {
        click(menu);
        moveTo(item(0));
        const int count = openPopup().DrawList->VtxBuffer.Size;
        click({700.0f, 500.0f});
        return count;
    }

    RenderMode mode = RenderMode::Shaded;
    bool hasPhysics = false;
    SharedState state;
    RendererDebug debug;
    int emptied = 0, toggled = 0;
};

TEST_F(ViewMenuTest, renderTypes) {
    click(RenderType);
    std::vector<std::string> lines = written();
    // Some versions of the UI library write what follows behind the last one.
    lines.back() = lines.back().substr(0, lines.back().rfind(" Debug"));
    EXPECT_THAT(lines, ElementsAre("Render Type", "Shaded", "Object ID", "Mesh Visualization"));
    const RenderMode modes[]{RenderMode::Shaded, RenderMode::ObjectId, RenderMode::MeshVisualization};
    click({700.0f, 500.0f});
    for(const int which: {2, 1, 0}) {
        choose(RenderType, which);
        EXPECT_EQ(mode, modes[which]);
    }
}

TEST_F(ViewMenuTest, noRenderTypeHasACheckMark) {
    const int shaded = verticesOf(RenderType);
    for(const RenderMode other: {RenderMode::ObjectId, RenderMode::MeshVisualization}) {
        mode = other;
        EXPECT_EQ(verticesOf(RenderType), shaded);
    }
}

TEST_F(ViewMenuTest, debugItems) {
    click(Debug);
    EXPECT_THAT(written(),
        ElementsAre("Render Type Debug", "Texture Atlasses", "Objects", "Collision Shapes", "Overdraw",
            "Freeze Culling Frustum", "PhysX Shapes", "Simulate PhysX"));
    hasPhysics = true;
    EXPECT_THAT(written().back(), AnyOf("Simulate PhysX Alt + S", "Simulate PhysX ( Alt + S )"));
}

// One more than none; and again none.
TEST_F(ViewMenuTest, debugItemsHaveCheckMarks) {
    hasPhysics = true;
    const int none = verticesOf(Debug);
    debug.textureOverlay = true;
    const int one = verticesOf(Debug);
    EXPECT_GT(one, none);
    debug.textureOverlay = false;
    for(std::size_t which = 0; which != DebugDisplayCount; ++which) {
        state.debugDisplay[which] = 1;
        EXPECT_EQ(verticesOf(Debug), one) << which;
        state.debugDisplay[which] = 0;
    }
    EXPECT_EQ(verticesOf(Debug), none);
}

TEST_F(ViewMenuTest, debugItemsSwitch) {
    choose(Debug, 0);
    EXPECT_TRUE(debug.textureOverlay);
    choose(Debug, 0);
    EXPECT_FALSE(debug.textureOverlay);
    const DebugDisplay displays[]{DebugDisplay::Objects, DebugDisplay::CollisionShapes, DebugDisplay::Overdraw,
        DebugDisplay::FreezeCullingFrustum, DebugDisplay::PhysXShapes};
    for(int which = 0; which != 5; ++which) {
        choose(Debug, which + 1);
        EXPECT_EQ(state.display(displays[which]), 1) << which;
        EXPECT_EQ(std::count(std::begin(state.debugDisplay), std::end(state.debugDisplay), 1), 1) << which;
        choose(Debug, which + 1);
        EXPECT_EQ(state.display(displays[which]), 0) << which;
    }
}

// Not when they are switched on, and with nothing else.
TEST_F(ViewMenuTest, collisionShapesAreTakenAwayWhenTheyAreSwitchedOff) {
    choose(Debug, 2);
    EXPECT_EQ(emptied, 0);
    for(const int other: {0, 1, 3, 4, 5}) {
        choose(Debug, other);
        choose(Debug, other);
    }
    EXPECT_EQ(emptied, 0);
    choose(Debug, 2);
    EXPECT_EQ(emptied, 1);
}

TEST_F(ViewMenuTest, theSimulationIsAskedFor) {
    hasPhysics = true;
    choose(Debug, 6);
    EXPECT_EQ(toggled, 1);
    // Whoever carries it out sets it.
    EXPECT_FALSE(state.isSimulating());
    click(Debug);
    moveTo(item(6));
    EXPECT_FALSE(window("##Tooltip_00"));
}

TEST_F(ViewMenuTest, withoutPhysicsThereIsNoSimulation) {
    click(Debug);
    EXPECT_GT(vertexCount(openPopup(), ImGui::GetColorU32(ImGuiCol_TextDisabled)), 0u);
    const Vector2 simulation = item(6);
    click(simulation);
    EXPECT_EQ(toggled, 0);
    ASSERT_TRUE(window("##Tooltip_00"));
    EXPECT_EQ(written().back(), "PhysX must be enabled in the Project Settings to run simulations");
    // In the open menu, too.
    hasPhysics = true;
    frame();
    frame();
    EXPECT_FALSE(window("##Tooltip_00"));
    click(simulation);
    EXPECT_EQ(toggled, 1);
}

}
