#include <cmath>

#include <Magnum/Math/Functions.h>

#include "Expect.h"
#include "GizmoWindow.h"

using namespace Magnum;
using namespace Math::Literals;
using GizmoTest::GizmoWindow;
using GizmoTest::near;

namespace {

// Of a float matrix that goes through the arithmetic of the library once a frame
constexpr Float Rounding = 2.0e-4f;
// Of a mouse that is at a whole pixel: several of them at the gizmo, and on the screen
constexpr Float Unsteady = 0.03f, Pixels = 1.5f;

const Vector3 UnitAxes[]{{1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, {0.0f, 0.0f, 1.0f}};

class TranslateTest: public testing::Test {
protected:
    TranslateTest() { gizmo.matrix = Matrix4::translation({0.5f, -0.25f, 0.125f}) * Object; }

    const Matrix4 Object =
        Matrix4::rotation(25.0_degf, Vector3{1.0f, 2.0f, 3.0f}.normalized()) * Matrix4::scaling({1.5f, 0.5f, 2.0f});
    GizmoWindow gizmo;
};

TEST_F(TranslateTest, idleGizmoChangesNothing) {
    const Matrix4 before = gizmo.matrix;
    for(int i = 0; i != 3; ++i) {
        const GizmoWindow::Frame frame = gizmo.frame();
        EXPECT_FALSE(frame.isChanged);
        EXPECT_FALSE(frame.isUsing);
        EXPECT_TRUE(near(frame.delta, Matrix4{}, 0.0f));
    }
    EXPECT_TRUE(near(gizmo.matrix, before, 0.0f));
    EXPECT_GT(gizmo.vertices, 0);
}

TEST_F(TranslateTest, pressAloneMovesNothing) {
    const Matrix4 before = gizmo.matrix;
    ASSERT_TRUE(gizmo.grab(gizmo.pixelAt(UnitAxes[0], 60.0f)));
    gizmo.release();
    EXPECT_FALSE(gizmo.frame().isUsing);
    EXPECT_TRUE(near(gizmo.matrix, before, 1.0e-6f));
}

class AxisTest: public TranslateTest, public testing::WithParamInterface<int> {};

// What was grabbed stays under the mouse that goes along the axis, and nothing else happens to the matrix.
TEST_P(AxisTest, movesAlongAWorldAxis) {
    const Vector3 axis = UnitAxes[GetParam()], start = gizmo.matrix.translation();
    const Vector2 from = gizmo.pixelAt(axis, 60.0f);
    const Vector2 to = gizmo.project(start + axis * (60.0f / gizmo.pixelsPerUnit() + 0.4f));
    const Matrix4 delta = gizmo.drag(from, to);
    EXPECT_TRUE(near(gizmo.matrix.translation(), start + axis * 0.4f, Unsteady));
    EXPECT_TRUE(near(delta, Matrix4::translation(gizmo.matrix.translation() - start), Rounding));
    EXPECT_TRUE(near(gizmo.matrix.rotationScaling(), Object.rotationScaling(), Rounding));
}

TEST_P(AxisTest, movesAlongAnAxisOfItsOwn) {
    gizmo.mode = ImGuizmo::LOCAL;
    const Vector3 axis = Object[std::size_t(GetParam())].xyz().normalized(), start = gizmo.matrix.translation();
    const Vector2 from = gizmo.pixelAt(axis, 60.0f);
    const Vector2 to = gizmo.project(start + axis * (60.0f / gizmo.pixelsPerUnit() - 0.7f));
    const Matrix4 delta = gizmo.drag(from, to);
    EXPECT_TRUE(near(gizmo.matrix.translation(), start - axis * 0.7f, Unsteady));
    EXPECT_TRUE(near(delta, Matrix4::translation(gizmo.matrix.translation() - start), Rounding));
}

TEST_P(AxisTest, movesInAPlane) {
    const Vector3 u = UnitAxes[(GetParam() + 1) % 3], v = UnitAxes[(GetParam() + 2) % 3];
    const Vector3 start = gizmo.matrix.translation(), corner = (u + v) * (0.65f * 80.0f / gizmo.pixelsPerUnit());
    const Vector3 way = u * 0.3f - v * 0.5f;
    gizmo.drag(gizmo.project(start + corner), gizmo.project(start + corner + way));
    EXPECT_TRUE(near(gizmo.matrix.translation(), start + way, Unsteady));
}

TEST_P(AxisTest, snapsAlongTheAxesOfTheMode) {
    gizmo.snap = Vector3{0.25f};
    gizmo.mode = ImGuizmo::LOCAL;
    const Vector3 axis = Object[std::size_t(GetParam())].xyz().normalized(), start = gizmo.matrix.translation();
    const Vector2 from = gizmo.pixelAt(axis, 60.0f);
    gizmo.drag(from, gizmo.project(start + axis * (60.0f / gizmo.pixelsPerUnit() + 0.7f)));
    EXPECT_TRUE(near(gizmo.matrix.translation(), start + axis * 0.75f, Rounding));
}

INSTANTIATE_TEST_SUITE_P(Axes, AxisTest, testing::Values(0, 1, 2));

TEST_F(TranslateTest, middleMovesAcrossTheLineOfSight) {
    const Vector3 start = gizmo.matrix.translation();
    const Vector2 from = gizmo.project(start), to = from + Vector2{90.0f, -40.0f};
    gizmo.drag(from, to);
    const Vector3 way = gizmo.matrix.translation() - start;
    EXPECT_TRUE(near(gizmo.project(gizmo.matrix.translation()), to, Pixels));
    EXPECT_NEAR(gizmo.view.transformVector(way).z(), 0.0f, 1.0e-3f);
}

TEST_F(TranslateTest, stepsThatAreNotPositiveDoNotSnap) {
    gizmo.snap = Vector3{0.0f};
    const Vector3 start = gizmo.matrix.translation();
    const Vector2 from = gizmo.project(start), to = from + Vector2{31.0f, 17.0f};
    gizmo.drag(from, to);
    EXPECT_TRUE(near(gizmo.project(gizmo.matrix.translation()), to, Pixels));
}

TEST_F(TranslateTest, sumOfADragDoesNotDependOnItsFrames) {
    const Matrix4 before = gizmo.matrix;
    const Vector2 from = gizmo.pixelAt(UnitAxes[0], 60.0f), to = from + Vector2{120.0f, 33.0f};
    gizmo.drag(from, to, 1);
    const Matrix4 once = gizmo.matrix;
    gizmo.matrix = before;
    const Matrix4 delta = gizmo.drag(from, to, 30);
    EXPECT_TRUE(near(gizmo.matrix, once, 2.0e-3f));
    EXPECT_TRUE(near(delta * before, once, 2.0e-3f));
}

// The delta is from the matrix that came in: who does not apply it is told all of it again.
TEST_F(TranslateTest, deltaIsFromTheMatrixThatCameIn) {
    const Matrix4 before = gizmo.matrix;
    const Vector2 from = gizmo.project(before.translation());
    ASSERT_TRUE(gizmo.grab(from));
    gizmo.moveTo(from + Vector2{30.0f, 0.0f});
    const Matrix4 first = gizmo.frame().delta;
    gizmo.matrix = before;
    gizmo.moveTo(from + Vector2{60.0f, 0.0f});
    const Matrix4 second = gizmo.frame().delta;
    EXPECT_TRUE(near(second.translation(), first.translation() * 2.0f, Unsteady));
    EXPECT_TRUE(near(gizmo.matrix, second * before, Rounding));
}

// The last way counts, though the button is up already.
TEST_F(TranslateTest, wayOfTheFrameThatLetsGoCounts) {
    const Vector2 from = gizmo.project(gizmo.matrix.translation());
    ASSERT_TRUE(gizmo.grab(from));
    gizmo.moveTo(from + Vector2{50.0f, 20.0f});
    gizmo.release();
    const GizmoWindow::Frame last = gizmo.frame();
    EXPECT_TRUE(last.isChanged);
    EXPECT_FALSE(last.isUsing);
    EXPECT_TRUE(near(gizmo.project(gizmo.matrix.translation()), from + Vector2{50.0f, 20.0f}, Pixels));
}

TEST_F(TranslateTest, deltaNeedNotBeAskedFor) {
    const Vector2 from = gizmo.project(gizmo.matrix.translation());
    ASSERT_TRUE(gizmo.grab(from));
    gizmo.asksForDelta = false;
    gizmo.moveTo(from + Vector2{50.0f, 20.0f});
    gizmo.frame();
    EXPECT_TRUE(near(gizmo.project(gizmo.matrix.translation()), from + Vector2{50.0f, 20.0f}, Pixels));
}

}
