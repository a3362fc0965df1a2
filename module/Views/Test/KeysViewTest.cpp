#include <Corrade/Utility/Debug.h>
#include <gtest/gtest.h>
#include <imgui.h>

#include "Views/Test/SceneViewFixture.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;

constexpr int KeyEscape = 256, KeyDelete = 261, Keypad1 = 321, Keypad3 = 323, Keypad7 = 327;

class KeysViewTest: public VantrelTest::SceneViewFixture {
protected:
    KeysViewTest() {
        addCube("cube");
        addCube("other", "[2, 0, 0]");
        host.frame();
        hover();
    }

    void loseFocus() {
        ImGui::GetIO().MousePos = {-1000.0f, -1000.0f};
        ImGui::SetWindowFocus(nullptr);
        host.frame();
    }
    void hold(int key, unsigned modifiers = 0) { host.view().keyPressEvent({key, modifiers, true}); }
    void select(const char* id) { data().selectObject(objectOf(id), false); }
    std::pair<UnsignedInt, UnsignedInt> gizmo() {
        host.view().saveState(false);
        return {data().sceneView->gizmoOperation, data().sceneView->gizmoSpace};
    }
    std::size_t objectCount() { return data().project().section("objects")->MemberCount(); }
    std::vector<std::string> selected() {
        std::vector<std::string> ids;
        for(std::size_t i = 0; i != data().selection().size(); ++i)
            if(data().isSelected(Id(i))) ids.emplace_back(data().scene().main().objectIds.nameOf(Id(i)).data());
        return ids;
    }
    ChangeManager& changes() { return host.session.changes(); }

    using Ids = std::vector<std::string>;
    using Gizmo = std::pair<UnsignedInt, UnsignedInt>;
};

TEST_F(KeysViewTest, gizmoKeys) {
    constexpr UnsignedInt local = 0, world = 1;
    pressKey('R');
    EXPECT_EQ(gizmo(), (Gizmo{1, world}));
    pressKey('R');
    EXPECT_EQ(gizmo(), (Gizmo{1, local}));
    pressKey('G');
    EXPECT_EQ(gizmo(), (Gizmo{0, world})) << "after another operation";
    pressKey('G');
    EXPECT_EQ(gizmo(), (Gizmo{0, local}));
    hold('G');
    EXPECT_EQ(gizmo(), (Gizmo{0, world})) << "repeats";
    pressKey('S', ModifierShift);
    EXPECT_EQ(gizmo(), (Gizmo{2, local}));
    pressKey('S', ModifierShift);
    EXPECT_EQ(gizmo(), (Gizmo{2, local}));
    pressKey('G', ModifierControl);
    pressKey('R', ModifierAlt);
    EXPECT_EQ(gizmo(), (Gizmo{2, local}));
}

TEST_F(KeysViewTest, nothingButFramingWithoutTheFocus) {
    select("cube");
    loseFocus();
    const Gizmo before = gizmo();
    for(const int key: {int('G'), int('R'), int('S'), KeyDelete}) pressKey(key);
    for(const int key: {int('D'), int('V')}) pressKey(key, ModifierControl);
    EXPECT_EQ(gizmo(), before);
    EXPECT_EQ(objectCount(), 2u);
    const Float yaw = data().cameraYaw;
    pressKey(Keypad3);
    EXPECT_EQ(data().cameraYaw, yaw);
    const Vector3 camera = cameraNow().translation();
    pressKey('F');
    EXPECT_NE(cameraNow().translation(), camera);
}

TEST_F(KeysViewTest, noIdleKeyWhileTheCameraMoves) {
    select("cube");
    press(MouseButton::Middle);
    const Gizmo before = gizmo();
    for(const int key: {int('R'), int('S'), KeyDelete, Keypad7}) pressKey(key);
    EXPECT_EQ(gizmo(), before);
    EXPECT_EQ(objectCount(), 2u);
    EXPECT_NE(data().cameraPitch, -90.0f);
    // Those of the clipboard do.
    pressKey('D', ModifierControl);
    EXPECT_EQ(objectCount(), 3u);
    release(MouseButton::Middle);
}

TEST_F(KeysViewTest, axisViews) {
    const struct {
        int key;
        Float pitch, yaw;
    } cases[]{{Keypad7, -90.0f, 0.0f}, {Keypad1, 0.0f, 0.0f}, {Keypad3, 0.0f, -90.0f}};
    for(const auto& testCase: cases) {
        hold(testCase.key);
        EXPECT_EQ(data().cameraPitch, testCase.pitch);
        EXPECT_EQ(data().cameraYaw, testCase.yaw);
    }
}

TEST_F(KeysViewTest, whatIsDuplicatedIsThereAndSelectedAtOnce) {
    select("cube");
    pressKey('D', ModifierControl);
    EXPECT_NE(objectOf("cube-2"), RootObject);
    EXPECT_EQ(selected(), (Ids{"cube-2"}));
    hold('D', ModifierControl);
    pressKey('D', ModifierControl | ModifierAlt);
    EXPECT_EQ(objectCount(), 3u);
    host.frame();
    EXPECT_EQ(selected(), (Ids{"cube-2"})) << "and stays";
    changes().undoLast();
    EXPECT_EQ(objectCount(), 2u);
}

TEST_F(KeysViewTest, copiedAndPastedThroughTheClipboard) {
    record("/objects/other/parent", "'cube'");
    host.frame();
    select("cube");
    ImGui::SetClipboardText("kept");
    pressKey('C', ModifierControl | ModifierAlt);
    hold('C', ModifierControl);
    EXPECT_STREQ(ImGui::GetClipboardText(), "kept");
    pressKey('C', ModifierControl);
    const std::string alone = ImGui::GetClipboardText();
    pressKey('C', ModifierControl | ModifierShift);
    const std::string trees = ImGui::GetClipboardText();
    EXPECT_EQ(alone.find("\"other\""), std::string::npos);
    EXPECT_NE(trees.find("\"other\""), std::string::npos);
    EXPECT_EQ(objectCount(), 2u);

    pressKey('V', ModifierControl);
    EXPECT_EQ(selected(), (Ids{"cube-2", "other-2"}));
    select("cube-2");
    pressKey('V', ModifierControl | ModifierShift);
    EXPECT_EQ(selected(), (Ids{"cube-3", "other-3"}));
    const Scene& scene = data().scene().main();
    EXPECT_EQ(scene.parent(objectOf("cube-3")), objectOf("cube-2"));
    EXPECT_EQ(scene.parent(objectOf("other-3")), objectOf("cube-3"));
}

TEST_F(KeysViewTest, deletingRepeatsAndIsGivenUpDuringATrial) {
    select("cube");
    changes().beginTrial(Trial::Preview);
    pressKey(KeyDelete);
    pressKey('D', ModifierControl);
    changes().dropTrial();
    EXPECT_EQ(objectCount(), 2u);
    pressKey(KeyDelete);
    EXPECT_EQ(objectCount(), 1u);
    select("other");
    hold(KeyDelete);
    EXPECT_EQ(objectCount(), 0u);
    host.frame();
    changes().undoLast();
    changes().undoLast();
    EXPECT_EQ(objectCount(), 2u);
}

TEST_F(KeysViewTest, theBoxIsArmedAndGivenUp) {
    const auto drag = [this] {
        hover({310, 200});
        press(MouseButton::Left);
        hover({5, 90});
        release(MouseButton::Left);
    };
    pressKey('B');
    drag();
    EXPECT_EQ(selected().size(), 2u);
    data().selection().clear();
    pressKey('B');
    pressKey(KeyEscape);
    drag();
    EXPECT_NE(selected().size(), 2u);
}

TEST_F(KeysViewTest, theSimulationWantsItsSetting) {
    pressKey('S', ModifierAlt);
    EXPECT_FALSE(host.state.isSimulating());
    record("/settings/physx/enable", "true");
    const Gizmo before = gizmo();
    Utility::Debug silence{nullptr};
    pressKey('S', ModifierAlt);
    EXPECT_TRUE(host.state.isSimulating());
    hold('S', ModifierAlt);
    EXPECT_TRUE(host.state.isSimulating());
    Scene& scene = data().scene().main();
    scene.localTransformation(objectOf("other")) = DualQuaternion::translation({0.0f, -5.0f, 0.0f});
    scene.setDirty(objectOf("other"));
    pressKey('S', ModifierAlt);
    EXPECT_FALSE(host.state.isSimulating());
    scene.computeAbsoluteTransformations();
    EXPECT_EQ(scene.absoluteTransformation(objectOf("other")).translation(), (Vector3{2.0f, 0.0f, 0.0f}));
    EXPECT_EQ(gizmo(), before);
}

} // namespace
