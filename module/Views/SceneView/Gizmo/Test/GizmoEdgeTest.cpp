#include <cmath>

#include <Magnum/GL/Framebuffer.h>
#include <gmock/gmock.h>
#include <imgui_internal.h>

#include "GizmoFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelTest;
using testing::HasSubstr;

// Scenes and views in which handles have no good place, and objects that cannot be taken along.
using GizmoEdgeTest = GizmoTest;

std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for(std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + 1)) ++found;
    return found;
}

TEST_F(GizmoEdgeTest, behindTheCameraThereIsNoHandle) {
    addObject("behind", "", "[0, 0, 20]");
    addObject("there", "", "[0, 0, 10]");
    for(const char* id: {"behind", "there"}) {
        select({id});
        const std::string before = document();
        for(const GizmoOperation operation:
            {GizmoOperation::Translate, GizmoOperation::Rotate, GizmoOperation::Scale}) {
            setOperation(operation);
            drag(pointOf({}), {30.0f, 30.0f});
        }
        EXPECT_EQ(document(), before) << id;
    }
}

TEST_F(GizmoEdgeTest, anObjectWithoutSize) {
    addObject("flat", "", "[0, 0, 0]", "[0, 0, 0, 1]", "[0, 1, -0.0]");
    select({"flat"});
    dragMiddle("flat", {24.0f, 0.0f});
    expectNear(positionOf("flat"), {1.0f, 0.0f, 0.0f});
    EXPECT_EQ(documentOf("flat", "scaling"), "[0.0,1.0,0.0]");
    setOperation(GizmoOperation::Rotate);
    turn(positionOf("flat"), Deg{30.0f});
    EXPECT_EQ(documentOf("flat", "scaling"), "[0.0,1.0,0.0]");
    setOperation(GizmoOperation::Scale, GizmoSpace::Local);
    dragMiddle("flat", {100.0f, 0.0f});
    const JsonValue& scaling = *data().project().valueByPointer("/objects/flat/scaling");
    EXPECT_FLOAT_EQ(scaling[1].GetFloat(), 2.0f);
    for(int i = 0; i != 3; ++i) EXPECT_TRUE(std::isfinite(scaling[i].GetFloat()));
}

// What no float can hold is not taken, and nothing is missing when the mouse comes back.
TEST_F(GizmoEdgeTest, tooLargeAndBack) {
    addObject("huge", "", "[0, 0, 0]", "[0, 0, 0, 1]", "[1, 2e38, 1]");
    addObject("small", "", "[0, 0, 0]", "[0, 0, 0, 1]", "[2, 2, 2]");
    setOperation(GizmoOperation::Scale, GizmoSpace::Local);
    select({"huge", "small"});
    // A hundredth for each pixel. Outside of the view not every library follows the mouse.
    grab(pointOf({}));
    for(const float way: {60.0f, 150.0f, 200.0f}) moveTo(pointOf({}) + Vector2{way, 0.0f});
    expectNear(scalingOf("huge"), {1.6f, 3.2e38f, 1.6f});
    expectNear(scalingOf("small"), Vector3{6.0f});
    moveTo(pointOf({}) + Vector2{50.0f, 0.0f});
    release();
    expectNear(scalingOf("huge"), {1.5f, 3.0e38f, 1.5f});
    expectNear(scalingOf("small"), Vector3{3.0f});
}

// One line for all of them, and none for each frame.
TEST_F(GizmoEdgeTest, belowAParentWithoutSize) {
    addObject("flat", "", "[0, 0, 0]", "[0, 0, 0, 1]", "[1, 0, 1]");
    addObject("a", "flat");
    addObject("b", "flat");
    addObject("free");
    select({"a", "b", "free"});
    const std::string a = documentOf("a", "translation");
    testing::internal::CaptureStderr();
    drag(pointOf({}), {24.0f, 0.0f});
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(said, "TransformGizmo::draw(): objects/a and 1 more cannot be moved where a parent is scaled to zero\n");
    EXPECT_EQ(documentOf("a", "translation"), a);
    EXPECT_EQ(positionOf("a"), Vector3{});
    expectNear(positionOf("free"), {1.0f, 0.0f, 0.0f});
    // Its own size can be changed.
    setOperation(GizmoOperation::Scale, GizmoSpace::Local);
    select({"a"});
    dragMiddle("a", {100.0f, 0.0f});
    expectNear(scalingOf("a"), Vector3{2.0f});
}

// The handle would move, and jump back where the mouse rests.
TEST_F(GizmoEdgeTest, whereNobodyGoesAlongTheHandleIsLetGo) {
    addObject("flat", "", "[0, 0, 0]", "[0, 0, 0, 1]", "[1, 0, 1]");
    addObject("a", "flat");
    select({"a"});
    testing::internal::CaptureStderr();
    grab(pointOf({}));
    EXPECT_TRUE(host.state.isHandleHeld);
    moveTo(pointOf({}) + Vector2{24.0f, 0.0f});
    EXPECT_FALSE(host.state.isHandleHeld);
    moveTo(pointOf({}) + Vector2{48.0f, 0.0f});
    EXPECT_FALSE(host.state.isHandleHeld);
    release();
    EXPECT_EQ(count(testing::internal::GetCapturedStderr(), "cannot be moved"), 1);
    EXPECT_EQ(positionOf("a"), Vector3{});
    // The next one is another drag.
    addObject("free");
    select({"free"});
    dragMiddle("free", {24.0f, 0.0f});
    expectNear(positionOf("free"), {1.0f, 0.0f, 0.0f});
}

// The smallest scaling that the scene computes with is not zero where the document says so.
TEST_F(GizmoEdgeTest, aSmallParentIsNoFlatOne) {
    addObject("small", "", "[0, 0, 0]", "[0, 0, 0, 1]", "[0.0001, 0.0001, 0.0001]");
    addObject("a", "small");
    select({"a"});
    dragMiddle("a", {24.0f, 0.0f});
    expectNear(positionOf("a"), {1.0f, 0.0f, 0.0f});
}

TEST_F(GizmoEdgeTest, aSkewedOneStaysAndOthersTurn) {
    addObject("parent", "", "[0, 0, 0]", "[0, 0, 0, 1]", "[3, 1, 1]");
    addObject("skewed", "parent");
    addObject("free");
    select({"skewed", "free"});
    setOperation(GizmoOperation::Rotate);
    const std::string before = documentOf("skewed", "rotation");
    testing::internal::CaptureStderr();
    const Rad angle = turn({}, Deg{60.0f}, 60);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(count(said, "TransformGizmo::draw(): objects/skewed cannot be turned like this"), 1) << said;
    EXPECT_EQ(documentOf("skewed", "rotation"), before);
    expectNear(worldOf("free"), Matrix4::rotationZ(angle));
    // Said again for another drag.
    testing::internal::CaptureStderr();
    turn({}, Deg{10.0f}, 3);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("objects/skewed cannot be turned"));
}

TEST_F(GizmoEdgeTest, whatIsSimulatedIsLeftAlone) {
    addObject("body");
    addObject("asleep");
    addObject("free");
    Scene& scene = data().scene().main();
    scene.bodies.activate(scene.bodies.addComponent(objectOf("body")));
    scene.bodies.addComponent(objectOf("asleep"));
    select({"body", "asleep", "free"});
    host.state.display(DebugDisplay::SimulatePhysX) = 1;
    drag(pointOf({}), {24.0f, 0.0f});
    EXPECT_EQ(positionOf("body"), Vector3{});
    expectNear(positionOf("asleep"), {1.0f, 0.0f, 0.0f});
    expectNear(positionOf("free"), {1.0f, 0.0f, 0.0f});
    // A body at rest is an object as others are.
    host.state.display(DebugDisplay::SimulatePhysX) = 0;
    select({"body"});
    dragMiddle("body", {24.0f, 0.0f});
    expectNear(positionOf("body"), {1.0f, 0.0f, 0.0f});
}

TEST_F(GizmoEdgeTest, aViewOfOnePoint) {
    addObject("a");
    select({"a"});
    const std::string before = document();
    for(const Range2D pane: {Range2D{{}, {1.0f, 1.0f}}, Range2D{{5.0f, 5.0f}, {5.0f, 5.0f}}}) {
        host.state.views.pane(0) = pane;
        host.frame();
        for(const Vector2 point: {Vector2{0.0f}, Vector2{5.0f}, Vector2{20.0f, 40.0f}}) drag(point, {3.0f, 3.0f}, 2);
        EXPECT_EQ(document(), before);
    }
    EXPECT_GE(host.state.sceneViewFramebuffer->viewport().size().min(), 1);
}

// Neither drawn nor dragged; what is below the handle is selected by the box.
TEST_F(GizmoEdgeTest, noGizmoWhileABoxIsArmed) {
    addCube("cube", "[0, 0, 0]");
    addObject("a");
    select({"a"});
    const auto vertices = [] { return ImGui::FindWindowByName("Scene View")->DrawList->VtxBuffer.Size; };
    moveTo(pointOf({}));
    const int with = vertices();
    pressKey('B');
    host.frame();
    const int without = vertices();
    EXPECT_LT(without, with - 50);
    const std::string before = document();
    drag(pointOf({}) - Vector2{4.0f}, {30.0f, 30.0f});
    EXPECT_EQ(document(), before);
    EXPECT_TRUE(data().isSelected(objectOf("cube")));
    // With the box it is over.
    host.frame();
    EXPECT_GT(vertices(), without + 50);
}

// A child of a selected object is passed over also where nothing else is selected.
TEST_F(GizmoEdgeTest, aParentAndItsChildOnly) {
    addObject("parent", "", "[1, 0, 0]");
    addObject("child", "parent", "[0, 3, 0]");
    select({"parent", "child"});
    dragMiddle("parent", {24.0f, 0.0f});
    expectNear(positionOf("parent"), {2.0f, 0.0f, 0.0f});
    expectNear(positionOf("child"), {2.0f, 3.0f, 0.0f});
}

}
