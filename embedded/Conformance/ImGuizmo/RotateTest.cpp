#include <algorithm>
#include <cmath>

#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Functions.h>

#include "Expect.h"
#include "GizmoWindow.h"

using namespace Magnum;
using namespace Math::Literals;
using GizmoTest::GizmoWindow;
using GizmoTest::near;

namespace {

constexpr Float Rounding = 1.0e-3f;
// Of a mouse that is at a whole pixel, somewhere at a ring
constexpr Float Unsteady = 0.025f;
// Where the rings of an axis of 80 pixels are
constexpr Float Ring = 96.0f;

class RotateTest: public testing::TestWithParam<int> {
protected:
    RotateTest() {
        gizmo.operation = ImGuizmo::ROTATE;
        gizmo.matrix = Before;
    }

    // The nearest point of a ring, and where it is seen after it has been turned.
    Vector3 nearest(const Vector3& axis) const {
        const Vector3 eye = gizmo.view.inverted().translation() - Before.translation();
        return (eye - axis * Math::dot(eye, axis)).normalized();
    }
    Vector2 pixel(const Vector3& axis, Rad angle) const {
        return gizmo.pixelAt(Matrix4::rotation(angle, axis).transformVector(nearest(axis)), Ring);
    }
    Matrix4 turn(const Vector3& axis, Rad angle) const {
        return Matrix4::translation(Before.translation()) * Matrix4::rotation(angle, axis) *
            Matrix4::translation(-Before.translation());
    }

    const Matrix4 Before = Matrix4::translation({0.5f, -0.25f, 0.125f}) *
        Matrix4::rotation(25.0_degf, Vector3{1.0f, 2.0f, 3.0f}.normalized()) * Matrix4::scaling({1.5f, 0.5f, 2.0f});
    GizmoWindow gizmo;
};

const Vector3 UnitAxes[]{{1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, {0.0f, 0.0f, 1.0f}};

// The point of the ring that was grabbed stays under the mouse; position and lengths stay.
TEST_P(RotateTest, turnsAboutAWorldAxisThroughItsPosition) {
    const Vector3 axis = UnitAxes[GetParam()];
    const Matrix4 delta = gizmo.drag(pixel(axis, 0.0_degf), pixel(axis, 40.0_degf), 8);
    EXPECT_TRUE(near(delta, turn(axis, 40.0_degf), Unsteady));
    EXPECT_TRUE(near(gizmo.matrix, turn(axis, 40.0_degf) * Before, 2.0f * Unsteady));
}

TEST_P(RotateTest, turnsAboutAnAxisOfItsOwn) {
    gizmo.mode = ImGuizmo::LOCAL;
    const Vector3 axis = Before[std::size_t(GetParam())].xyz().normalized();
    const Matrix4 delta = gizmo.drag(pixel(axis, 0.0_degf), pixel(axis, -35.0_degf), 8);
    EXPECT_TRUE(near(delta, turn(axis, -35.0_degf), Unsteady));
}

TEST_P(RotateTest, snapsTheWholeAngle) {
    gizmo.snap = Vector3{15.0f, 0.0f, 0.0f};
    const Vector3 axis = UnitAxes[GetParam()];
    gizmo.drag(pixel(axis, 0.0_degf), pixel(axis, 41.0_degf), 9);
    EXPECT_TRUE(near(gizmo.matrix, turn(axis, 45.0_degf) * Before, 2.0f * Rounding));
}

TEST_P(RotateTest, deltaIsOfOneFrame) {
    const Vector3 axis = UnitAxes[GetParam()];
    ASSERT_TRUE(gizmo.grab(pixel(axis, 0.0_degf)));
    gizmo.moveTo(pixel(axis, 20.0_degf));
    gizmo.frame();
    gizmo.moveTo(pixel(axis, 30.0_degf));
    const GizmoWindow::Frame frame = gizmo.frame();
    EXPECT_TRUE(frame.isChanged);
    EXPECT_TRUE(near(frame.delta, turn(axis, 10.0_degf), Unsteady));
    const GizmoWindow::Frame rest = gizmo.frame();
    EXPECT_FALSE(rest.isChanged);
    EXPECT_TRUE(near(rest.delta, Matrix4{}, 1.0e-6f));
}

INSTANTIATE_TEST_SUITE_P(Axes, RotateTest, testing::Values(0, 1, 2));

// More than half a turn, and back
TEST_F(RotateTest, goesOnBeyondHalfATurn) {
    // From above, the ring is seen whole.
    gizmo.view = Matrix4::lookAt({0.5f, 8.0f, 0.4f}, Before.translation(), Vector3::zAxis()).inverted();
    const Vector3 axis = UnitAxes[1];
    ASSERT_TRUE(gizmo.grab(pixel(axis, 0.0_degf)));
    for(int degrees = 10; degrees <= 250; degrees += 10) {
        gizmo.moveTo(pixel(axis, Deg{Float(degrees)}));
        gizmo.frame();
    }
    EXPECT_TRUE(near(gizmo.matrix, turn(axis, 250.0_degf) * Before, 3.0f * Unsteady));
    for(int degrees = 240; degrees >= -30; degrees -= 10) {
        gizmo.moveTo(pixel(axis, Deg{Float(degrees)}));
        gizmo.frame();
    }
    EXPECT_TRUE(near(gizmo.matrix, turn(axis, -30.0_degf) * Before, 3.0f * Unsteady));
}

// The angle on the screen that is farthest from where the other rings end at the outer one.
Rad outerRingAngle(const GizmoWindow& gizmo) {
    const auto distanceToEnds = [&](Rad angle) {
        Float out = 10.0f;
        for(const Vector3& axis: UnitAxes) {
            // A ring ends where it is seen from the side: across its axis on the screen.
            const Vector3 way = gizmo.view.transformVector(axis);
            const Float end = std::atan2(way.x(), -way.y());
            out = std::min(out, std::abs(std::remainder(Float(angle) - end, Constants::pi())));
        }
        return out;
    };
    Rad best;
    for(int degrees = 0; degrees != 360; degrees += 3)
        if(distanceToEnds(Deg{Float(degrees)}) > distanceToEnds(best)) best = Deg{Float(degrees)};
    return best;
}

// About the line of sight: as far as the mouse goes round on the screen.
TEST_F(RotateTest, outerRingTurnsOnTheScreen) {
    const Vector2 centre = gizmo.project(Before.translation());
    const auto at = [&](Rad angle) { return centre + Vector2{std::cos(Float(angle)), -std::sin(Float(angle))} * Ring; };
    const Rad start = outerRingAngle(gizmo);
    const Matrix4 delta = gizmo.drag(at(start), at(start + Rad{30.0_degf}), 6);
    const Vector3 toEye{gizmo.view[0][2], gizmo.view[1][2], gizmo.view[2][2]};
    EXPECT_TRUE(near(delta, turn(toEye, 30.0_degf), 2.0f * Unsteady));
}

}
