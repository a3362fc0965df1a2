#include <gtest/gtest.h>
#include <imgui.h>
#include <imgui_internal.h>

#include "Views/Test/SceneViewFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using VantrelTest::differences;
using VantrelTest::pixelOf;

// Items of the menu "Debug", from the top.
enum DebugItem {
    TextureAtlasses,
    Objects,
    CollisionShapes,
    Overdraw,
    FreezeCullingFrustum,
    PhysXShapes,
    SimulatePhysX
};

class OverlaysTest: public VantrelTest::SceneViewFixture {
protected:
    void moveTo(const Vector2i& point) {
        ImGui::GetIO().MousePos = {Float(point.x()), Float(point.y())};
        host.frame();
    }
    void clickUi(const Vector2i& point) {
        moveTo(point);
        ImGui::GetIO().MouseDown[0] = true;
        host.frame();
        ImGui::GetIO().MouseDown[0] = false;
        host.frame();
        host.frame();
    }
    static Vector2i placeOf(DebugItem item) { return {130, 52 + 17 * item}; }
    void openMenu() { clickUi({120, 28}); }
    void choose(DebugItem item) {
        openMenu();
        clickUi(placeOf(item));
    }
    bool display(DebugDisplay which) { return host.state.display(which); }

    // None where it is not shown.
    const ImGuiWindow* window(const char* name) {
        const ImGuiWindow* const window = ImGui::FindWindowByName(name);
        return window && window->Active && !window->Hidden ? window : nullptr;
    }
    // As wide as the legend is with this text.
    Float widthOf(const std::string& text) {
        return ImGui::CalcTextSize(text.data()).x + 2 * ImGui::GetStyle().WindowPadding.x;
    }
    bool isLegend(const std::string& text) {
        const ImGuiWindow* const legend = window("##legend");
        return legend && legend->Size.x == widthOf(text);
    }
};

TEST_F(OverlaysTest, debugItemsSwitchTheirDisplays) {
    const struct {
        DebugItem item;
        DebugDisplay display;
    } items[]{{Objects, DebugDisplay::Objects}, {CollisionShapes, DebugDisplay::CollisionShapes},
        {Overdraw, DebugDisplay::Overdraw}, {FreezeCullingFrustum, DebugDisplay::FreezeCullingFrustum},
        {PhysXShapes, DebugDisplay::PhysXShapes}};
    host.frame();
    for(const auto& each: items) {
        choose(each.item);
        for(const auto& other: items) EXPECT_EQ(display(other.display), other.item == each.item) << each.item;
        choose(each.item);
        EXPECT_FALSE(display(each.display)) << each.item;
    }
}

TEST_F(OverlaysTest, textureOverlayIsAWindow) {
    host.frame();
    EXPECT_FALSE(window("Texture Overlay"));
    choose(TextureAtlasses);
    ASSERT_TRUE(window("Texture Overlay"));
    EXPECT_FALSE(window("Texture Overlay")->HasCloseButton);
    choose(TextureAtlasses);
    EXPECT_FALSE(window("Texture Overlay"));
}

// What the user sees stays, and so does what was frozen before the camera went elsewhere.
TEST_F(OverlaysTest, whatWasChosenStaysAfterAReload) {
    record("/objects/sun",
        "{'parent': '', 'name': 'Sun', 'translation': [0, 0, 0], 'rotation': [0, 0, 0, 1], 'scaling': [1, 1, 1], "
        "'components': [{'type': 'light', 'active': true, 'light': {'type': 'sun', 'shadows': true, 'shadowRange': "
        "20}}]}");
    host.frame();
    choose(TextureAtlasses);
    choose(FreezeCullingFrustum);
    const auto saved = [&] {
        host.view().saveState(false);
        return *data().sceneView;
    };
    const SceneViewRecord before = saved();
    EXPECT_TRUE(before.rendererDebug.textureOverlay);
    ASSERT_TRUE(before.frozenShadows);
    EXPECT_EQ(before.frozenShadows->lights.size(), 1);
    data().cameraYaw += 60.0f;
    host.frame();
    host.frame();
    host.reloadView();
    host.frame();
    EXPECT_TRUE(window("Texture Overlay"));
    const SceneViewRecord after = saved();
    EXPECT_TRUE(after.rendererDebug.textureOverlay);
    EXPECT_EQ(after.frozenMatrix, before.frozenMatrix);
    ASSERT_TRUE(after.frozenShadows);
    EXPECT_EQ(after.frozenShadows->lights.size(), 1);
    choose(FreezeCullingFrustum);
    EXPECT_FALSE(saved().frozenShadows);
}

TEST_F(OverlaysTest, simulationNeedsPhysics) {
    host.frame();
    openMenu();
    moveTo(placeOf(SimulatePhysX));
    host.frame();
    EXPECT_TRUE(window("##Tooltip_00"));
    clickUi(placeOf(SimulatePhysX));
    EXPECT_FALSE(display(DebugDisplay::SimulatePhysX));
    // The menu goes on being open where nothing can be chosen, and follows the project at once.
    record("/settings/physx/enable", "true");
    moveTo(placeOf(SimulatePhysX));
    host.frame();
    EXPECT_FALSE(window("##Tooltip_00"));
}

TEST_F(OverlaysTest, legendNamesWhatIsBelowTheMouse) {
    addCube("cube");
    record("/objects/cube/name", "'A cube'");
    host.frame();
    moveTo({160, 138});
    EXPECT_TRUE(isLegend("A cube"));
    moveTo({10, 60});
    EXPECT_FALSE(window("##legend"));
    moveTo({-10, 60});
    EXPECT_FALSE(window("##legend"));
}

TEST_F(OverlaysTest, legendIsAtTheBottomLeft) {
    addCube("cube");
    host.frame();
    moveTo({160, 138});
    const ImGuiWindow* const legend = window("##legend");
    ASSERT_TRUE(legend);
    EXPECT_EQ(legend->Pos.x, 0.0f);
    EXPECT_EQ(legend->Pos.y + legend->Size.y, 240.0f);
    EXPECT_EQ(legend->WindowRounding, 0.0f);
    EXPECT_EQ(legend->WindowBorderSize, 0.0f);
}

// Right in the first frame that has it: nothing jumps.
TEST_F(OverlaysTest, legendIsAsWideAsTheNextNameAtOnce) {
    addCube("a", "[-1.5, 0, 1.5]");
    addCube("b", "[1.5, 0, -1.5]");
    record("/objects/a/name", "'A'");
    record("/objects/b/name", "'A name that is longer'");
    host.frame();
    moveTo({80, 138});
    EXPECT_TRUE(isLegend("A"));
    moveTo({240, 138});
    EXPECT_TRUE(isLegend("A name that is longer"));
}

TEST_F(OverlaysTest, longNamesStayInTheView) {
    addCube("cube");
    record("/objects/cube/name", "'" + std::string(200, 'W') + "'");
    host.frame();
    moveTo({160, 138});
    ASSERT_TRUE(window("##legend"));
    EXPECT_EQ(window("##legend")->Size.x, 320.0f);
}

TEST_F(OverlaysTest, overdrawHasAGradientAndASentence) {
    addCube("cube");
    host.frame();
    moveTo({160, 138});
    EXPECT_FALSE(window("##legend_overdraw_gradient"));
    host.state.display(DebugDisplay::Overdraw) = 1;
    host.frame();
    EXPECT_TRUE(isLegend("Color indicates amount of overdraw"));
    const ImGuiWindow* const gradient = window("##legend_overdraw_gradient");
    ASSERT_TRUE(gradient);
    EXPECT_EQ(gradient->Pos.y + gradient->Size.y, window("##legend")->Pos.y);
    // Red, yellow, yellow and green, from above.
    std::vector<ImU32> colors;
    for(const ImDrawVert& vertex: gradient->DrawList->VtxBuffer)
        if(vertex.col == IM_COL32(255, 0, 0, 255) || vertex.col == IM_COL32(255, 255, 0, 255) ||
            vertex.col == IM_COL32(39, 174, 96, 255))
            colors.push_back(vertex.col);
    ASSERT_EQ(colors.size(), 8u);
    EXPECT_EQ(colors[0], IM_COL32(255, 0, 0, 255));
    EXPECT_EQ(colors[7], IM_COL32(39, 174, 96, 255));
    moveTo({-10, -10});
    EXPECT_TRUE(isLegend("Color indicates amount of overdraw"));
}

// Neither covers what is above the view, however small that is.
TEST_F(OverlaysTest, theGradientKeepsToTheLowerHalf) {
    host.state.display(DebugDisplay::Overdraw) = 1;
    for(const Int height: {600, 240, 200}) {
        host.resize({320, height});
        host.frame();
        host.frame();
        const ImGuiWindow* const gradient = window("##legend_overdraw_gradient");
        ASSERT_TRUE(gradient) << height;
        EXPECT_GE(gradient->Pos.y, 38 + (height - 38) / 2 - 1) << height;
    }
    host.resize({320, 120});
    host.frame();
    EXPECT_FALSE(window("##legend_overdraw_gradient"));
    EXPECT_TRUE(window("##legend"));
}

// The overdraw is what is seen: a cube is drawn once where it is.
TEST_F(OverlaysTest, overdrawCanBeChosen) {
    addCube("cube");
    host.frame();
    const Image2D before = host.picture();
    choose(Overdraw);
    const Image2D after = host.picture();
    EXPECT_GT(differences(before, after), 1000);
    const Color4ub once = pixelOf(after, after.size() / 2);
    EXPECT_GT(once.g(), once.r());
}

// The draws of them are made as before; there is nothing left to be drawn.
TEST_F(OverlaysTest, collisionShapesGoAwayWhenTheyAreSwitchedOff) {
    addObject("box", "[0, 0, 0]",
        "{'type': 'collision', 'active': true, 'collision': {'collider': 'aabb', 'aabb': {'extents': [1, 1, 1]}, "
        "'groups': 1}}");
    host.frame();
    const Image2D before = host.picture();
    for(int i = 0; i != 2; ++i) {
        choose(CollisionShapes);
        EXPECT_GT(differences(before, host.picture()), 100) << i;
        choose(CollisionShapes);
        EXPECT_EQ(differences(before, host.picture()), 0) << i;
    }
}

// What the camera sees at that moment, each time.
TEST_F(OverlaysTest, cullingIsFrozenAnew) {
    addCube("cube");
    addCube("behind", "[6, 6, 6]");
    host.frame();
    ASSERT_EQ(host.state.statistics.visibleMeshes, 1);
    choose(FreezeCullingFrustum);
    const auto goBack = [this](Int pixels) {
        hover();
        press(MouseButton::Middle);
        host.view().mouseMoveEvent({{0, pixels}, ModifierControl});
        host.view().mouseMoveEvent({{0, pixels}, ModifierControl});
        release(MouseButton::Middle);
        host.frame();
    };
    goBack(2000);
    EXPECT_EQ(host.state.statistics.visibleMeshes, 1);
    choose(FreezeCullingFrustum);
    EXPECT_EQ(host.state.statistics.visibleMeshes, 2);
    choose(FreezeCullingFrustum);
    goBack(-2000);
    EXPECT_EQ(host.state.statistics.visibleMeshes, 2);
    choose(FreezeCullingFrustum);
    EXPECT_EQ(host.state.statistics.visibleMeshes, 1);
}

// Lights that were seen then are gone, or others stand in their place.
TEST_F(OverlaysTest, frozenCullingOutlivesItsLights) {
    const auto addSun = [this](const char* id) {
        addObject(id, "[0, 3, 0]",
            "{'type': 'light', 'active': true, 'light': {'type': 'sun', 'color': [1, 1, 1], 'intensity': 1, "
            "'shadows': true, 'shadowRange': 20, 'shadowTexelSize': 0.1}}");
    };
    addCube("cube");
    addSun("sun");
    addSun("other");
    host.frame();
    host.frame();
    choose(FreezeCullingFrustum);
    for(const char* id: {"/objects/sun", "/objects/other"}) {
        host.session.changes().recordChange(id, nullptr, false);
        host.frame();
        EXPECT_EQ(host.state.statistics.visibleMeshes, 1);
    }
    addCube("third", "[1, 0, 0]");
    addPointLight("lamp", "[0, 2, 0]");
    host.frame();
    EXPECT_EQ(host.state.statistics.visibleMeshes, 2);
    host.session.startNew();
    host.frame();
    EXPECT_EQ(host.state.statistics.visibleMeshes, 0);
}

// As if they were not there.
TEST_F(OverlaysTest, theMouseGoesPastTheLegend) {
    addCube("cube", "[-1, -1.4, 1]");
    record("/objects/cube/scaling", "[3, 3, 3]");
    hover({8, 232});
    for(int i = 0; i != 3; ++i) {
        ASSERT_TRUE(isLegend("cube"));
        ASSERT_LT(window("##legend")->Pos.y, 232.0f);
        host.frame();
    }
    press(MouseButton::Left);
    EXPECT_TRUE(data().isSelected(objectOf("cube")));
}

TEST_F(OverlaysTest, legendIsAwayWhileFlying) {
    addCube("cube");
    hover({160, 138});
    ASSERT_TRUE(window("##legend"));
    press(MouseButton::Right);
    host.frame();
    EXPECT_FALSE(window("##legend"));
    release(MouseButton::Right);
    host.frame();
    EXPECT_TRUE(window("##legend"));
}

} // namespace
