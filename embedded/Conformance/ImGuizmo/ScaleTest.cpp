#include <cmath>

#include <Magnum/Math/Functions.h>

#include "Expect.h"
#include "GizmoWindow.h"

using namespace Magnum;
using namespace Math::Literals;
using GizmoTest::GizmoWindow;
using GizmoTest::near;

namespace {

constexpr Float Rounding = 1.0e-3f;
// Of a mouse that is at a whole pixel, and of the perspective: relative to a factor of one
constexpr Float Unsteady = 0.04f;

class ScaleTest: public testing::TestWithParam<int> {
protected:
    ScaleTest() {
        gizmo.operation = ImGuizmo::SCALE;
        // Of no effect
        gizmo.mode = ImGuizmo::WORLD;
        gizmo.matrix = Before;
    }

    Vector3 axis() const { return Before[std::size_t(GetParam())].xyz().normalized(); }
    Vector3 factors(Float factor) const {
        Vector3 out{1.0f};
        out[std::size_t(GetParam())] = factor;
        return out;
    }
    Vector2 middle() const { return gizmo.project(Before.translation()); }

    const Matrix4 Before = Matrix4::translation({0.5f, -0.25f, 0.125f}) *
        Matrix4::rotation(25.0_degf, Vector3{1.0f, 2.0f, 3.0f}.normalized()) * Matrix4::scaling({1.5f, 0.5f, 2.0f});
    GizmoWindow gizmo;
};

// Twice as far along the axis of its own is twice as long, whatever the mode is.
TEST_P(ScaleTest, factorIsTheRatioOfDistances) {
    const Matrix4 delta = gizmo.drag(gizmo.pixelAt(axis(), 50.0f), gizmo.pixelAt(axis(), 100.0f), 5);
    EXPECT_TRUE(near(delta, Matrix4::scaling(factors(2.0f)), 1.5f * Unsteady));
    EXPECT_TRUE(near(gizmo.matrix, Before * Matrix4::scaling(factors(2.0f)), 3.0f * Unsteady));
}

TEST_P(ScaleTest, snapsTheWholeFactor) {
    gizmo.snap = Vector3{0.25f};
    gizmo.drag(gizmo.pixelAt(axis(), 50.0f), gizmo.pixelAt(axis(), 90.0f), 5);
    EXPECT_TRUE(near(gizmo.matrix, Before * Matrix4::scaling(factors(1.75f)), Rounding));
}

TEST_P(ScaleTest, factorStaysAboveZero) {
    gizmo.drag(gizmo.pixelAt(axis(), 50.0f), gizmo.pixelAt(axis(), -80.0f), 5);
    EXPECT_TRUE(near(gizmo.matrix, Before * Matrix4::scaling(factors(0.001f)), 1.0e-4f));
}

// It is from the lengths that came in, while the factor is of the whole drag: who does not apply it is told the total.
TEST_P(ScaleTest, deltaIsFromTheMatrixThatCameIn) {
    ASSERT_TRUE(gizmo.grab(gizmo.pixelAt(axis(), 50.0f)));
    gizmo.moveTo(gizmo.pixelAt(axis(), 75.0f));
    EXPECT_TRUE(near(gizmo.frame().delta, Matrix4::scaling(factors(1.5f)), Unsteady));
    gizmo.moveTo(gizmo.pixelAt(axis(), 100.0f));
    EXPECT_TRUE(near(gizmo.frame().delta, Matrix4::scaling(factors(2.0f / 1.5f)), Unsteady));
    gizmo.matrix = Before;
    gizmo.moveTo(gizmo.pixelAt(axis(), 125.0f));
    EXPECT_TRUE(near(gizmo.frame().delta, Matrix4::scaling(factors(2.5f)), 2.0f * Unsteady));
}

INSTANTIATE_TEST_SUITE_P(Axes, ScaleTest, testing::Values(0, 1, 2));

TEST_F(ScaleTest, middleScalesAllByPixels) {
    const Matrix4 delta = gizmo.drag(middle(), middle() + Vector2{60.0f, 25.0f}, 6);
    EXPECT_TRUE(near(delta, Matrix4::scaling(Vector3{1.6f}), Rounding));
    EXPECT_TRUE(near(gizmo.matrix, Before * Matrix4::scaling(Vector3{1.6f}), Rounding));
}

TEST_F(ScaleTest, middleGoesNoFurtherThanNearlyNothing) {
    gizmo.drag(middle(), middle() - Vector2{200.0f, 0.0f}, 3);
    EXPECT_TRUE(near(gizmo.matrix, Before * Matrix4::scaling(Vector3{0.001f}), 1.0e-5f));
}

TEST_F(ScaleTest, restChangesNothing) {
    ASSERT_TRUE(gizmo.grab(middle()));
    gizmo.moveTo(middle() + Vector2{40.0f, 0.0f});
    EXPECT_TRUE(gizmo.frame().isChanged);
    const GizmoWindow::Frame rest = gizmo.frame();
    EXPECT_FALSE(rest.isChanged);
    EXPECT_TRUE(near(rest.delta, Matrix4{}, 1.0e-6f));
}

}
