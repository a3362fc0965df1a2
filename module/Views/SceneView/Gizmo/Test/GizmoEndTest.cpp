#include <Magnum/Math/Functions.h>
#include <gmock/gmock.h>
#include <imgui_internal.h>

#include "Data/ProjectSession.h"
#include "GizmoFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelTest;
using testing::HasSubstr;

// Drags that end in another way than by the release of the button.
class GizmoEndTest: public GizmoTest {
protected:
    GizmoEndTest() {
        addObject("a", "", "[0, 0, 0]", "[0.5, 0.5, 0.5, 0.5]", "[1, -2, 1]");
        addObject("below", "a", "[0, 1, 0]");
        addObject("b", "", "[4, -2, 0]");
        // Something to be redone.
        record("/objects/a/translation", "[9, 9, 9]");
        changes().markSaved();
        changes().undoLast();
        host.session.update();
        select({"a"});
    }

    // In the middle of a drag, some pixels from where it began.
    void dragHalf() {
        grab(pointOf(positionOf("a")));
        moveTo(mouse() + Vector2{10.0f, 5.0f});
        moveTo(mouse() + Vector2{30.0f, 7.0f});
        ASSERT_TRUE(isOnTrial());
    }
    // It is over, and stays over while the button is still held and the mouse moves.
    void expectOver() {
        EXPECT_FALSE(isOnTrial());
        const std::string before = document();
        moveTo(mouse() + Vector2{20.0f, 20.0f});
        moveTo(mouse() - Vector2{20.0f, 20.0f});
        EXPECT_EQ(document(), before);
        release();
        EXPECT_EQ(document(), before);
        EXPECT_FALSE(isOnTrial());
    }
};

class CancelTest: public GizmoEndTest, public testing::WithParamInterface<GizmoOperation> {};

TEST_P(CancelTest, asIfItHadNeverBeen) {
    setOperation(GetParam(), GetParam() == GizmoOperation::Scale ? GizmoSpace::Local : GizmoSpace::World);
    const Matrix4 a = worldOf("a"), below = worldOf("below");
    const std::string before = document(), log = undoLog();
    for(const bool byKey: {true, false}) {
        const Vector2 handle = GetParam() == GizmoOperation::Rotate ? Vector2{0.7071f * outerRadius({})} : Vector2{};
        grab(pointOf({}) + handle);
        for(int i = 0; i != 5; ++i) moveTo(mouse() + Vector2{8.0f, -12.0f});
        EXPECT_NE(document(), before);
        if(byKey)
            pressKey(KeyEscape);
        else
            pressRight();
        EXPECT_EQ(document(), before);
        EXPECT_EQ(undoLog(), log);
        EXPECT_TRUE(changes().canRedo());
        EXPECT_TRUE(data().isSelected(objectOf("a")));
        EXPECT_EQ(data().selection().countSet(), 1);
        host.frame();
        expectNear(worldOf("a"), a, 1.0e-6f);
        expectNear(worldOf("below"), below, 1.0e-6f);
        // The right button does not fly.
        EXPECT_FALSE(host.platform.isCursorDisabled);
        expectOver();
        if(!byKey) host.view().mouseReleaseEvent({MouseButton::Right, Vector2i{mouse()}, 0});
        EXPECT_EQ(host.platform.log, "");
    }
    changes().redoLast();
    EXPECT_EQ(documentOf("a", "translation"), "[9,9,9]");
}

INSTANTIATE_TEST_SUITE_P(
    Gizmo, CancelTest, testing::Values(GizmoOperation::Translate, GizmoOperation::Rotate, GizmoOperation::Scale));

class ReleaseTest: public CancelTest {};

// The toolbar is in a window of its own.
TEST_P(ReleaseTest, overAnotherWindow) {
    setOperation(GetParam(), GetParam() == GizmoOperation::Scale ? GizmoSpace::Local : GizmoSpace::World);
    const int before = steps();
    grab(pointOf({}) + (GetParam() == GizmoOperation::Rotate ? Vector2{0.7071f * outerRadius({})} : Vector2{}));
    for(int i = 0; i != 3; ++i) moveTo(mouse() + Vector2{8.0f, -12.0f});
    ASSERT_TRUE(isOnTrial());
    const ImGuiWindow& toolbar = *ImGui::FindWindowByName("##toolbar");
    ASSERT_TRUE(toolbar.Active);
    moveTo({toolbar.Pos.x + 3.0f, toolbar.Pos.y + 3.0f});
    release();
    EXPECT_EQ(steps(), before + 1);
    expectOver();
}

INSTANTIATE_TEST_SUITE_P(
    Gizmo, ReleaseTest, testing::Values(GizmoOperation::Translate, GizmoOperation::Rotate, GizmoOperation::Scale));

// Nothing is recorded before the mouse moves.
TEST_F(GizmoEndTest, cancelBeforeTheFirstMovement) {
    const std::string log = undoLog();
    grab(pointOf({}));
    pressRight();
    EXPECT_EQ(undoLog(), log);
    EXPECT_FALSE(host.platform.isCursorDisabled);
    expectOver();
    EXPECT_EQ(undoLog(), log);
    // Once it is over, the right button flies again.
    host.view().mouseReleaseEvent({MouseButton::Right, Vector2i{mouse()}, 0});
    pressRight();
    EXPECT_TRUE(host.platform.isCursorDisabled);
}

TEST_F(GizmoEndTest, theMiddleButtonDoesNothing) {
    dragHalf();
    const DualQuaternion camera = data().sceneView->camera;
    host.view().mousePressEvent({MouseButton::Middle, Vector2i{mouse()}, 0});
    host.view().mouseMoveEvent({{30, 30}, 0});
    EXPECT_TRUE(isOnTrial());
    release();
    EXPECT_EQ(saved().camera, camera);
}

// A drag that ends like this stays as far as it came, as a step.
TEST_F(GizmoEndTest, anotherSelection) {
    const int before = steps();
    dragHalf();
    data().selectObject(objectOf("b"), false);
    host.frame();
    EXPECT_EQ(steps(), before + 1);
    EXPECT_EQ(documentOf("b", "translation"), "[4,-2,0]");
    expectOver();
    EXPECT_EQ(documentOf("b", "translation"), "[4,-2,0]");
}

// Chosen by a key, or the same one with other axes.
TEST_F(GizmoEndTest, anotherOperation) {
    int before = steps();
    for(const char key: {'R', 'G', 'G', 'S'}) {
        setOperation(key == 'R' || key == 'S' ? GizmoOperation::Translate : GizmoOperation::Scale,
            key == 'R' || key == 'S' ? GizmoSpace::World : GizmoSpace::Local);
        grab(pointOf(positionOf("a")));
        moveTo(mouse() + Vector2{10.0f, 5.0f});
        ASSERT_TRUE(isOnTrial());
        pressKey(key);
        EXPECT_FALSE(isOnTrial());
        EXPECT_EQ(steps(), ++before) << key;
        expectOver();
    }
    setOperation(GizmoOperation::Translate);
    dragHalf();
    pressKey('G');
    EXPECT_EQ(steps(), ++before);
    expectOver();
}

TEST_F(GizmoEndTest, aBoxIsArmed) {
    const int before = steps();
    dragHalf();
    pressKey('B');
    host.frame();
    EXPECT_FALSE(isOnTrial());
    EXPECT_EQ(steps(), before + 1);
    expectOver();
}

TEST_F(GizmoEndTest, nothingSelected) {
    dragHalf();
    data().selection().clear();
    host.frame();
    EXPECT_FALSE(isOnTrial());
    expectOver();
}

// What others record meanwhile belongs to the step.
TEST_F(GizmoEndTest, theObjectIsDeleted) {
    const int before = steps();
    dragHalf();
    remove("/objects/below");
    remove("/objects/a");
    host.frame();
    EXPECT_FALSE(isOnTrial());
    EXPECT_EQ(objectOf("a"), 0);
    expectOver();
    EXPECT_EQ(steps(), before + 1);
    changes().undoLast();
    EXPECT_EQ(documentOf("a", "translation"), "[0,0,0]");
    EXPECT_EQ(documentOf("below", "translation"), "[0,1,0]");
}

TEST_F(GizmoEndTest, oneOfSeveralIsDeleted) {
    select({"a", "b"});
    grab(pointOf((positionOf("a") + positionOf("b")) * 0.5f));
    moveTo(mouse() + Vector2{10.0f, 5.0f});
    remove("/objects/b");
    host.frame();
    host.frame();
    expectOver();
}

TEST_F(GizmoEndTest, theTrialIsTakenByOthers) {
    const std::string before = document();
    dragHalf();
    changes().undoLast();
    EXPECT_EQ(document(), before);
    host.frame();
    expectOver();
    EXPECT_EQ(document(), before);
}

TEST_F(GizmoEndTest, theViewIsClosed) {
    dragHalf();
    host.state.views.isViewOpen(0) = false;
    host.frame();
    EXPECT_FALSE(isOnTrial());
    host.state.views.isViewOpen(0) = true;
    host.frame();
    expectOver();
}

TEST_F(GizmoEndTest, theWindowLosesTheFocus) {
    dragHalf();
    host.view().focusLost();
    EXPECT_FALSE(isOnTrial());
    expectOver();
}

TEST_F(GizmoEndTest, theModuleIsLoadedAgain) {
    const int before = steps();
    dragHalf();
    host.reloadView();
    EXPECT_FALSE(isOnTrial());
    EXPECT_EQ(steps(), before + 1);
    host.frame();
    expectOver();
}

TEST_F(GizmoEndTest, theViewGoesAway) {
    dragHalf();
    host.destroyView();
    EXPECT_FALSE(isOnTrial());
}

TEST_F(GizmoEndTest, anotherProject) {
    dragHalf();
    host.session.startNew();
    host.frame();
    EXPECT_FALSE(isOnTrial());
    EXPECT_FALSE(changes().canUndo());
    expectOver();
}

// The gizmo of what it selects comes to be below the mouse.
TEST_F(GizmoEndTest, aPressThatSelectsMovesNothing) {
    addCube("cube", "[3, 1, 0]");
    select({});
    const std::string before = document();
    dragMiddle("cube", {30.0f, 30.0f});
    EXPECT_TRUE(data().isSelected(objectOf("cube")));
    EXPECT_EQ(document(), before);
    dragMiddle("cube", {30.0f, 30.0f});
    EXPECT_NE(document(), before);
}

// Press and release are heard between two frames, and the mouse goes on.
TEST_F(GizmoEndTest, aShortPressThatSelectsMovesNothing) {
    addCube("cube", "[3, 1, 0]");
    select({});
    const std::string before = document();
    const Vector2 point = pointOf(positionOf("cube"));
    moveTo(point);
    host.frame();
    host.view().mousePressEvent({MouseButton::Left, Vector2i{mouse()}, 0});
    host.view().mouseReleaseEvent({MouseButton::Left, Vector2i{mouse()}, 0});
    ImGui::GetIO().MouseDown[0] = true;
    host.frame();
    ImGui::GetIO().MouseDown[0] = false;
    moveTo(point + Vector2{20.0f, 0.0f});
    EXPECT_TRUE(data().isSelected(objectOf("cube")));
    EXPECT_EQ(document(), before);
}

TEST_F(GizmoEndTest, nothingIsGrabbedWhileFlying) {
    const std::string before = document();
    moveTo(pointOf({}));
    pressRight();
    // The cursor of the window system stays where it is pinned to, so that the camera does not turn.
    const auto point = [&](const Vector2& way) {
        const Vector2 place = Math::round(pointOf({}) + way);
        ImGui::GetIO().MousePos = {place.x(), place.y()};
        host.frame();
    };
    point({});
    ImGui::GetIO().MouseDown[0] = true;
    host.frame();
    point({20.0f, 10.0f});
    EXPECT_EQ(document(), before);
    // The left button is still held when it is over.
    host.view().mouseReleaseEvent({MouseButton::Right, Vector2i{mouse()}, 0});
    point({30.0f, 10.0f});
    point({40.0f, 10.0f});
    EXPECT_EQ(document(), before);
    release();
    EXPECT_EQ(document(), before);
    dragMiddle("a", {30.0f, 30.0f});
    EXPECT_NE(document(), before);
}

}
