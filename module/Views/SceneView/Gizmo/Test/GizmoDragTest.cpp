#include <Magnum/Math/Functions.h>
#include <gmock/gmock.h>

#include "GizmoFixture.h"
#include "Views/Test/HoldControl.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelTest;
using namespace Math::Literals;

using GizmoDragTest = GizmoTest;

// In the plane z = 0.
constexpr Float PixelsPerUnit = 24.0f;

TEST_F(GizmoDragTest, theObjectFollowsTheMouse) {
    addCube("cube", "[1, -1, 0]");
    select({"cube"});
    const Vector2 start = pointOf(positionOf("cube"));
    ASSERT_EQ(objectAt(start), objectOf("cube"));
    // Not in the very middle of the handle.
    const Vector2 grip{3.0f, -2.0f};
    grab(start + grip);
    for(const Vector2 way: {Vector2{40.0f, 10.0f}, Vector2{-60.0f, 30.0f}, Vector2{-61.0f, 31.0f}}) {
        moveTo(start + grip + way);
        const Vector2 shown = pointOf(positionOf("cube"));
        EXPECT_NEAR(shown.x(), start.x() + way.x(), 0.5f);
        EXPECT_NEAR(shown.y(), start.y() + way.y(), 0.5f);
        // In the frame that took the mouse's way.
        EXPECT_EQ(objectAt(mouse()), objectOf("cube"));
        EXPECT_EQ(objectAt(start - Vector2{0.0f, 8.0f}), NoObject);
        // Panels that were drawn before the view show it then.
        EXPECT_TRUE(host.state.wantsFrame);
    }
    release();
    EXPECT_EQ(documentOf("cube", "scaling"), "[1.0,1.0,1.0]");
    EXPECT_EQ(documentOf("cube", "rotation"), "[0.0,0.0,0.0,1.0]");
    const JsonValue& translation = *data().project().valueByPointer("/objects/cube/translation");
    for(int i = 0; i != 3; ++i) EXPECT_FLOAT_EQ(translation[i].GetFloat(), positionOf("cube")[i]);
}

TEST_F(GizmoDragTest, oneDragIsOneStep) {
    addObject("a");
    select({"a"});
    const std::string before = document();
    const int stepsBefore = steps();
    dragMiddle("a", {120.0f, 60.0f}, 600);
    EXPECT_EQ(steps(), stepsBefore + 1);
    const std::string after = document();
    EXPECT_NE(after, before);
    const Vector3 position = positionOf("a");
    changes().undoLast();
    EXPECT_EQ(document(), before);
    host.frame();
    EXPECT_EQ(positionOf("a"), Vector3{});
    changes().redoLast();
    EXPECT_EQ(document(), after);
    host.frame();
    EXPECT_EQ(positionOf("a"), position);
    // Another drag, and one of another operation, are steps of their own.
    dragMiddle("a", {-20.0f, 0.0f});
    setOperation(GizmoOperation::Scale, GizmoSpace::Local);
    dragMiddle("a", {20.0f, 0.0f});
    EXPECT_EQ(steps(), stepsBefore + 3);
}

// As far in each frame as in the one before, and then not at all.
TEST_F(GizmoDragTest, anEvenMovement) {
    addObject("a");
    select({"a"});
    grab(pointOf({}));
    for(int i = 1; i <= 4; ++i) {
        moveTo(pointOf({}) + Vector2{6.0f * Float(i), 0.0f});
        expectNear(positionOf("a"), {0.25f * Float(i), 0.0f, 0.0f});
    }
    release();
    expectNear(positionOf("a"), {1.0f, 0.0f, 0.0f});
}

// What is dragged is in its place already.
TEST_F(GizmoDragTest, nothingIsCompiled) {
    addObject("a");
    addObject("b");
    select({"a", "b"});
    const std::size_t before = host.session.compiler().compiledObjectCount();
    dragMiddle("a", {60.0f, 0.0f});
    EXPECT_EQ(host.session.compiler().compiledObjectCount(), before);
    expectNear(positionOf("b"), {2.5f, 0.0f, 0.0f});
    changes().undoLast();
    host.frame();
    EXPECT_EQ(host.session.compiler().compiledObjectCount(), before + 2);
    EXPECT_EQ(positionOf("b"), Vector3{});
}

TEST_F(GizmoDragTest, aClickOnAHandleChangesNothing) {
    addObject("a");
    addCube("behind", "[0, 0, -2]");
    select({"a"});
    const std::string before = undoLog();
    click(pointOf({}));
    EXPECT_TRUE(data().isSelected(objectOf("a")));
    EXPECT_FALSE(data().isSelected(objectOf("behind")));
    EXPECT_EQ(undoLog(), before);
    EXPECT_FALSE(isOnTrial());
}

TEST_F(GizmoDragTest, alongAnAxis) {
    addObject("a");
    select({"a"});
    drag(pointOf({}) + Vector2{axisLength() * 0.75f, 0.0f}, {2.0f * PixelsPerUnit, 30.0f});
    expectNear(positionOf("a"), {2.0f, 0.0f, 0.0f});
}

TEST_F(GizmoDragTest, localAxes) {
    addObject("a", "", "[0, 0, 0]", "[0, 0, 0.7071068, 0.7071068]");
    select({"a"});
    setOperation(GizmoOperation::Translate, GizmoSpace::Local);
    // Its y axis points to the left; the world's points up.
    drag(pointOf({}) - Vector2{axisLength() * 0.75f, 0.0f}, {-2.0f * PixelsPerUnit, 30.0f});
    expectNear(worldOf("a"), Matrix4::translation({-2.0f, 0.0f, 0.0f}) * Matrix4::rotationZ(90.0_degf));
}

// The total of the drag is rounded, not the place.
TEST_F(GizmoDragTest, stepsOfTranslation) {
    addObject("a", "", "[0.1, 0, 0]");
    select({"a"});
    const auto dragged = [&] {
        record("/objects/a/translation", "[0.1, 0, 0]");
        host.frame();
        const Vector3 before = positionOf("a");
        drag(pointOf(before) + Vector2{axisLength() * 0.75f, 0.0f}, {31.0f, 0.0f});
        return positionOf("a").x() - before.x();
    };
    EXPECT_NEAR(dragged(), 31.0f / PixelsPerUnit, 1.0e-3f);
    holdControl(true);
    EXPECT_NEAR(dragged(), 1.5f, 1.0e-4f);
    holdControl(false);
    GizmoSettings settings;
    settings.snapTranslationEnabled = true;
    setGizmo(settings);
    EXPECT_NEAR(dragged(), 1.5f, 1.0e-4f);
    // Ctrl does not switch it off.
    holdControl(true);
    EXPECT_NEAR(dragged(), 1.5f, 1.0e-4f);
    holdControl(false);
    settings.snapTranslation = Vector3{1.0f};
    setGizmo(settings);
    EXPECT_NEAR(dragged(), 1.0f, 1.0e-4f);
}

TEST_F(GizmoDragTest, turning) {
    addObject("a", "", "[1, 0, 0]", "[0, 0, 0, 1]", "[1, 2, 3]");
    select({"a"});
    setOperation(GizmoOperation::Rotate);
    const Matrix4 rest = Matrix4::scaling({1.0f, 2.0f, 3.0f}), place = Matrix4::translation({1.0f, 0.0f, 0.0f});
    const Rad angle = turn({1.0f, 0.0f, 0.0f}, 90.0_degf);
    EXPECT_NEAR(Float(angle), Float(Rad{90.0_degf}), 0.02f);
    expectNear(worldOf("a"), place * Matrix4::rotationZ(angle) * rest);
    holdControl(true);
    turn({1.0f, 0.0f, 0.0f}, 50.0_degf);
    holdControl(false);
    expectNear(worldOf("a"), place * Matrix4::rotationZ(angle) * Matrix4::rotationZ(60.0_degf) * rest);
    // What is turned in the document is what is seen, and keeps its size to the last digits of a float.
    const JsonValue& scaling = *data().project().valueByPointer("/objects/a/scaling");
    for(int i = 0; i != 3; ++i) EXPECT_FLOAT_EQ(scaling[i].GetFloat(), Float(i + 1));
}

TEST_F(GizmoDragTest, stepsOfTurning) {
    addObject("a");
    select({"a"});
    GizmoSettings settings;
    settings.gizmoOperation = GizmoOperation::Rotate;
    settings.snapRotationEnabled = true;
    settings.snapRotation = 90.0f;
    setGizmo(settings);
    turn({}, 70.0_degf);
    expectNear(worldOf("a"), Matrix4::rotationZ(90.0_degf));
    // Ctrl does not switch it off.
    holdControl(true);
    turn({}, 70.0_degf);
    holdControl(false);
    expectNear(worldOf("a"), Matrix4::rotationZ(180.0_degf));
}

TEST_F(GizmoDragTest, whatIsMirroredTurnsWithTheMouse) {
    addObject("a", "", "[0, 0, 0]", "[0, 0, 0.3826834, 0.9238795]", "[-1, 2, 1]");
    select({"a"});
    const Matrix4 before = worldOf("a");
    setOperation(GizmoOperation::Rotate, GizmoSpace::Local);
    expectNear(worldOf("a"), Matrix4::rotationZ(turn({}, 60.0_degf)) * before);
}

TEST_F(GizmoDragTest, scaling) {
    addObject("a", "", "[0, 0, 0]", "[0, 0, 0, 1]", "[1, 2, 3]");
    addObject("b", "", "[2, 0, 0]", "[0, 0, 0, 1]", "[-1, 1, 2]");
    setOperation(GizmoOperation::Scale, GizmoSpace::Local);
    select({"a"});
    // A hundredth for each pixel.
    dragMiddle("a", {50.0f, 0.0f}, 50);
    expectNear(scalingOf("a"), {1.5f, 3.0f, 4.5f});
    // Several: the factor once, not once a frame, and each where it is.
    select({"a", "b"});
    drag(pointOf({1.0f, 0.0f, 0.0f}), {100.0f, 0.0f}, 50);
    expectNear(scalingOf("a"), {3.0f, 6.0f, 9.0f});
    expectNear(scalingOf("b"), {-2.0f, 2.0f, 4.0f});
    expectNear(positionOf("b"), {2.0f, 0.0f, 0.0f});
    const JsonValue& scaling = *data().project().valueByPointer("/objects/b/scaling");
    EXPECT_FLOAT_EQ(scaling[0].GetFloat(), scalingOf("b").x());
    // A second drag begins at one again.
    drag(pointOf({1.0f, 0.0f, 0.0f}), {-50.0f, 0.0f}, 20);
    expectNear(scalingOf("a"), {1.5f, 3.0f, 4.5f});
}

TEST_F(GizmoDragTest, stepsOfScaling) {
    addObject("a");
    select({"a"});
    GizmoSettings settings;
    settings.gizmoOperation = GizmoOperation::Scale;
    settings.gizmoSpace = GizmoSpace::Local;
    settings.snapScaleEnabled = true;
    settings.snapScale = Vector3{0.5f};
    setGizmo(settings);
    dragMiddle("a", {130.0f, 0.0f});
    expectNear(scalingOf("a"), Vector3{2.5f});
    settings.snapScaleEnabled = false;
    setGizmo(settings);
    dragMiddle("a", {20.0f, 0.0f});
    expectNear(scalingOf("a"), Vector3{3.0f});
    holdControl(true);
    dragMiddle("a", {30.0f, 0.0f});
    holdControl(false);
    expectNear(scalingOf("a"), Vector3{4.5f});
}

// The child follows by itself, and stands in the document as it did.
TEST_F(GizmoDragTest, aParentTakesItsChildAlong) {
    addObject("parent");
    addObject("child", "parent", "[0, 1, 0]");
    addObject("other", "", "[2, 0, 0]");
    select({"child", "parent", "other"});
    const std::string child = documentOf("child", "translation");
    // About the mean of the topmost.
    drag(pointOf({1.0f, 0.0f, 0.0f}), {3.0f * PixelsPerUnit, 0.0f});
    expectNear(positionOf("parent"), {3.0f, 0.0f, 0.0f});
    expectNear(positionOf("child"), {3.0f, 1.0f, 0.0f});
    expectNear(positionOf("other"), {5.0f, 0.0f, 0.0f});
    EXPECT_EQ(documentOf("child", "translation"), child);
}

// Whatever those of the objects are; one alone has its own.
TEST_F(GizmoDragTest, severalHaveTheAxesOfTheWorld) {
    for(const char* id: {"a", "b"}) addObject(id, "", "[0, 0, 0]", "[0, 0, 0.3826834, 0.9238795]");
    setOperation(GizmoOperation::Translate, GizmoSpace::Local);
    const Vector2 onAxis{axisLength() * 0.75f, 0.0f}, way{24.0f, 0.0f};
    select({"a", "b"});
    drag(pointOf({}) + onAxis, way + Vector2{0.0f, -40.0f});
    for(const char* id: {"a", "b"}) expectNear(positionOf(id), {1.0f, 0.0f, 0.0f});
    select({"a"});
    const Vector2 alongIts = (onAxis + Vector2{0.0f, -onAxis.x()}) * 0.7071f;
    drag(pointOf(positionOf("a")) + alongIts, {48.0f, 0.0f});
    expectNear(positionOf("a"), {2.0f, 1.0f, 0.0f}, 0.02f);
}

TEST_F(GizmoDragTest, severalTurnAboutTheirMean) {
    addObject("a", "", "[-1, 0, 0]");
    addObject("b", "", "[1, 0, 0]", "[0.7071068, 0, 0, 0.7071068]", "[-2, 1, 1]");
    select({"a", "b"});
    setOperation(GizmoOperation::Rotate);
    const Matrix4 a = worldOf("a"), b = worldOf("b");
    const Matrix4 delta = Matrix4::rotationZ(turn({}, 60.0_degf));
    expectNear(worldOf("a"), delta * a);
    expectNear(worldOf("b"), delta * b);
    EXPECT_EQ(documentOf("b", "scaling"), "[-2.0,1.0,1.0]");
}

struct Family {
    const char* name;
    const char *rotation, *scaling;
    const char *childRotation, *childScaling;
    bool isSkewed;
};

class FamilyTest: public GizmoTest, public testing::WithParamInterface<Family> {
protected:
    void add() {
        const Family& family = GetParam();
        addObject("parent", "", "[1, 0, -1]", family.rotation, family.scaling);
        addObject("child", "parent", "[0, 0, 0]", family.childRotation, family.childScaling);
        addObject("below", "child", "[0.5, 1, 0]", "[0.5, 0.5, 0.5, 0.5]", "[1, 1, 1]");
        select({"child"});
    }
    // What is in the document is what is in the scene.
    void expectCompiledTheSame() {
        const Matrix4 child = worldOf("child"), below = worldOf("below");
        host.session.compiler().setAllPending();
        host.session.update();
        expectNear(worldOf("child"), child);
        expectNear(worldOf("below"), below);
    }
};

TEST_P(FamilyTest, moves) {
    add();
    const Matrix4 child = worldOf("child"), below = worldOf("below");
    dragMiddle("child", {40.0f, -25.0f}, 40);
    // Farther from the camera by 1 than where a unit has its pixels.
    const Matrix4 way = Matrix4::translation(Vector3{40.0f, 25.0f, 0.0f} / PixelsPerUnit * 1.1f);
    expectNear(worldOf("child"), way * child, 1.0e-3f);
    expectNear(worldOf("below"), way * below, 1.0e-3f);
    expectCompiledTheSame();
}

TEST_P(FamilyTest, turns) {
    add();
    setOperation(GizmoOperation::Rotate);
    const Matrix4 child = worldOf("child");
    const Vector3 place = child.translation();
    const std::string before = document(), log = undoLog();
    testing::internal::CaptureStderr();
    const Rad angle = turn(place, 40.0_degf);
    const std::string said = testing::internal::GetCapturedStderr();
    if(GetParam().isSkewed) {
        EXPECT_EQ(document(), before);
        EXPECT_EQ(undoLog(), log);
        EXPECT_EQ(said,
            "TransformGizmo::draw(): objects/child cannot be turned like this: the scaling of a parent would skew "
            "it\n");
        return;
    }
    EXPECT_EQ(said, "");
    const Matrix4 delta = Matrix4::translation(place) * Matrix4::rotationZ(angle) * Matrix4::translation(-place);
    expectNear(worldOf("child"), delta * child, 1.0e-3f);
    expectCompiledTheSame();
}

TEST_P(FamilyTest, scales) {
    add();
    setOperation(GizmoOperation::Scale, GizmoSpace::Local);
    const Vector3 scaling = scalingOf("child");
    const Matrix4 child = worldOf("child");
    dragMiddle("child", {100.0f, 0.0f}, 25);
    expectNear(scalingOf("child"), scaling * 2.0f);
    expectNear(worldOf("child"), child * Matrix4::scaling(Vector3{2.0f}), 1.0e-3f);
    expectCompiledTheSame();
}

const Family Families[]{{"plain", "[0, 0, 0, 1]", "[1, 1, 1]", "[0, 0, 0, 1]", "[1, 1, 1]", false},
    {"turned", "[0.5, 0.5, 0.5, 0.5]", "[2, 2, 2]", "[0, 0.7071068, 0, 0.7071068]", "[1, 3, 0.5]", false},
    {"mirrored", "[0, 0, 0.3826834, 0.9238795]", "[-2, 2, 2]", "[0.5, 0.5, 0.5, 0.5]", "[1, 1, 1]", false},
    {"mirroredChild", "[0, 0, 0.3826834, 0.9238795]", "[1, 1, 1]", "[0.5, 0.5, 0.5, 0.5]", "[1, -1, 2]", false},
    {"mirroredTwice", "[0, 0.6, 0, 0.8]", "[1, 1, 1]", "[0.1825742, 0.3651484, 0.5477226, 0.7302967]", "[-1, -2, 1]",
        false},
    {"mirroredThrice", "[0, 0.6, 0, 0.8]", "[-1, -1, -1]", "[0.5, 0.5, 0.5, 0.5]", "[-1, -2, -1]", false},
    {"along", "[0, 0, 0, 1]", "[3, 3, 0.25]", "[0, 0, 0, 1]", "[1, 2, 1]", false},
    {"skewed", "[0, 0, 0, 1]", "[3, 1, 1]", "[0, 0, 0, 1]", "[1, 1, 1]", true},
    {"skewedMirror", "[0, 0, 0.3826834, 0.9238795]", "[-3, 1, 0.5]", "[0.5, 0.5, 0.5, 0.5]", "[1, -2, 1]", true},
    {"tiny", "[0, 0, 0, 1]", "[0.001, 0.001, 0.001]", "[0, 0, 0, 1]", "[500, 1000, 1000]", false},
    {"tinier", "[0, 0, 0, 1]", "[1, 1, 1]", "[0, 0, 0, 1]", "[1e-22, 1, 1e-25]", false}};

INSTANTIATE_TEST_SUITE_P(Gizmo, FamilyTest, testing::ValuesIn(Families),
    [](const testing::TestParamInfo<Family>& info) { return std::string{info.param.name}; });

}
