#include <cmath>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Functions.h>
#include <gtest/gtest.h>

#include "Cameras.h"
#include "Implementation/Drag.h"
#include "Implementation/ValueText.h"

using namespace Magnum;
using namespace GizmoTest;
using namespace ImGuizmo::Implementation;

namespace {

typedef Handle::Kind Kind;

constexpr Axes World{Vector3d{1.0, 0.0, 0.0}, Vector3d{0.0, 1.0, 0.0}, Vector3d{0.0, 0.0, 1.0}};
constexpr Double Pi = Math::Constants<Double>::pi();

Matrix4d turn(Double angle, const Vector3d& axis) { return Matrix4d::rotation(Math::Rad<Double>{angle}, axis); }

// A gizmo with the axes of the world, seen by a camera, and a handle of it that is dragged.
class Pull {
public:
    Pull(const Camera& camera, Handle handle, const Vector2d& from, const Matrix4d& matrix = {}): eye{camera} {
        const auto layout = layoutOf(eye, matrix.translation(), World, Vector3d{1.0}, 80.0);
        drag = beginDrag(handle, *layout, eye, matrix, from);
    }
    const Motion& to(const Vector2d& pixel) { return motion = follow(*drag, motion, eye, pixel); }

    Camera eye;
    std::optional<Drag> drag;
    Motion motion;
};

const Camera Slanted = camera(lookingAt({3.0f, 4.0f, 5.0f}), perspective());
const Camera Flat = camera(lookingAt({3.0f, 4.0f, 5.0f}), orthographic());

// The mouse goes along the axis on the screen, and takes the point that it has grabbed with it.
TEST(DragTest, axisStaysUnderTheMouse) {
    for(const Camera& eye: {Slanted, Flat})
        for(int axis = 0; axis != 3; ++axis) {
            const Vector3d unit = World[std::size_t(axis)];
            Pull pull{eye, {Kind::MoveAxis, axis}, *eye.project(unit * 0.3)};
            ASSERT_TRUE(pull.drag);
            for(Double part: {-2.5, 0.3, 1.0, 2.0}) {
                pull.to(*eye.project(unit * part));
                EXPECT_NEAR((pull.motion.displacement - unit * (part - 0.3)).length(), 0.0, 1.0e-6);
            }
        }
}

TEST(DragTest, axisIsNotLeft) {
    Pull pull{Slanted, {Kind::MoveAxis, 0}, *Slanted.project({0.3, 0.0, 0.0})};
    pull.to(*Slanted.project({0.8, 0.4, -0.3}));
    EXPECT_GT(pull.motion.displacement.x(), 0.1);
    EXPECT_EQ(pull.motion.displacement.y(), 0.0);
    EXPECT_EQ(pull.motion.displacement.z(), 0.0);
}

TEST(DragTest, planeStaysUnderTheMouse) {
    Random random;
    for(const Camera& eye: {Slanted, Flat})
        for(int axis = 0; axis != 3; ++axis) {
            Pull pull{eye, {Kind::MovePlane, axis}, {950.0, 480.0}};
            ASSERT_TRUE(pull.drag);
            for(int i = 0; i != 50; ++i) {
                const Vector2d pixel{random.number(500.0, 1300.0), random.number(450.0, 900.0)};
                const Motion before = pull.motion;
                if(pull.to(pixel) == before) continue;
                EXPECT_NEAR(Math::dot(pull.motion.displacement, World[std::size_t(axis)]), 0.0, 1.0e-9);
                EXPECT_NEAR((*eye.project(pull.drag->grabbed + pull.motion.displacement) - pixel).length(), 0.0, 1e-3);
            }
        }
}

TEST(DragTest, middleStaysUnderTheMouse) {
    for(const Camera& eye: {Slanted, Flat}) {
        Pull pull{eye, {Kind::MoveScreen, 0}, {903.0, 499.0}};
        pull.to({1203.0, 299.0});
        EXPECT_NEAR((*eye.project(pull.motion.displacement) - Vector2d{1200.0, 300.0}).length(), 0.0, 1.0e-2);
        EXPECT_NEAR(Math::dot(pull.motion.displacement, eye.forward()), 0.0, 1.0e-9);
    }
}

// Beyond the horizon of its plane it stays where it was.
TEST(DragTest, horizonHoldsTheLastMotion) {
    const Camera low = camera(lookingAt({0.0f, 1.0f, 5.0f}, {0.0f, 1.0f, 0.0f}), perspective());
    Pull pull{low, {Kind::MovePlane, 1}, *low.project({0.2, 0.0, 0.2})};
    ASSERT_TRUE(pull.drag);
    pull.to({900.0, 520.0});
    const Motion last = pull.motion;
    EXPECT_LT(last.displacement.z(), -10.0);
    EXPECT_EQ(pull.to({900.0, 400.0}), last);
    EXPECT_EQ(pull.to({900.0, 50.0}), last);
    EXPECT_NE(pull.to({900.0, 700.0}), last);
}

TEST(DragTest, ringStaysUnderTheMouseForManyTurns) {
    for(int axis = 0; axis != 3; ++axis) {
        const Vector3d unit = World[std::size_t(axis)], from = World[std::size_t((axis + 1) % 3)] * 0.4;
        const auto at = [&](Double angle) { return *Slanted.project(turn(angle, unit).transformVector(from)); };
        Pull pull{Slanted, {Kind::TurnAxis, axis}, at(0.0)};
        ASSERT_TRUE(pull.drag);
        for(Double angle = 0.0; angle < 15.0; angle += 0.5) EXPECT_NEAR(pull.to(at(angle)).angle, angle, 1.0e-6);
        for(Double angle = 14.5; angle > -8.0; angle -= 0.5) EXPECT_NEAR(pull.to(at(angle)).angle, angle, 1.0e-6);
    }
}

// It is a line on the screen then: along it by the radius is an angle of one.
TEST(DragTest, ringSeenEdgeOn) {
    const Camera front = camera(lookingAt({0.0f, 0.0f, 5.0f}), perspective());
    Pull pull{front, {Kind::TurnAxis, 1}, {900.0, 500.0}};
    ASSERT_TRUE(pull.drag);
    EXPECT_NEAR(pull.to({900.0 + 80.0 * RingRadius, 500.0}).angle, 1.0, 1.0e-6);
    EXPECT_NEAR(pull.to({900.0 - 40.0 * RingRadius, 520.0}).angle, -0.5, 1.0e-6);
}

TEST(DragTest, angleAtTheVeryCentreIsNone) {
    EXPECT_FALSE((Pull{Slanted, {Kind::TurnAxis, 1}, *Slanted.project({})}.drag));
    EXPECT_FALSE((Pull{Slanted, {Kind::ScaleAxis, 1}, *Slanted.project({})}.drag));
}

TEST(DragTest, scaleIsTheRatioOfDistances) {
    for(int axis = 0; axis != 3; ++axis) {
        const Vector3d unit = World[std::size_t(axis)];
        Pull pull{Slanted, {Kind::ScaleAxis, axis}, *Slanted.project(unit * 0.4)};
        Vector3d expected{1.0};
        expected[std::size_t(axis)] = 2.5;
        pull.to(*Slanted.project(unit));
        EXPECT_NEAR((pull.motion.factors - expected).length(), 0.0, 1.0e-6);
        expected[std::size_t(axis)] = 0.001;
        EXPECT_NEAR((pull.to(*Slanted.project(-unit)).factors - expected).length(), 0.0, 1.0e-9);
    }
}

TEST(DragTest, mouseThatRestsChangesNothing) {
    for(Kind kind: {Kind::MoveAxis, Kind::MovePlane, Kind::MoveScreen, Kind::TurnAxis, Kind::TurnScreen,
            Kind::ScaleAxis, Kind::ScaleAll})
        for(int axis = 0; axis != 3; ++axis) {
            Pull pull{Slanted, {kind, axis}, {941.0, 472.0}};
            ASSERT_TRUE(pull.drag);
            EXPECT_EQ(pull.to({941.0, 472.0}), Motion{});
        }
}

TEST(SnapTest, steps) {
    Pull pull{Slanted, {Kind::MoveScreen, 0}, {900.0, 500.0}};
    Motion motion;
    motion.displacement = {0.36, -0.74, 5.1};
    const float steps[]{0.25f, 0.5f, 0.0f};
    EXPECT_NEAR((snapped(*pull.drag, motion, steps).displacement - Vector3d{0.25, -0.5, 5.1}).length(), 0.0, 1.0e-12);
    EXPECT_EQ(snapped(*pull.drag, motion, nullptr), motion);
}

TEST(SnapTest, degrees) {
    Pull pull{Slanted, {Kind::TurnAxis, 1}, {950.0, 500.0}};
    ASSERT_TRUE(pull.drag);
    Motion motion;
    motion.angle = 52.0 * Pi / 180.0;
    const float step = 7.5f;
    EXPECT_NEAR(snapped(*pull.drag, motion, &step).angle, 52.5 * Pi / 180.0, 1.0e-9);
}

// Only what is dragged; and not before it moves, though one is no multiple of the step.
TEST(SnapTest, factors) {
    Pull pull{Slanted, {Kind::ScaleAxis, 0}, *Slanted.project({0.4, 0.0, 0.0})};
    const float step = 0.3f;
    EXPECT_EQ(snapped(*pull.drag, {}, &step), Motion{});
    Motion motion;
    motion.factors = {1.6, 1.0, 1.0};
    EXPECT_NEAR((snapped(*pull.drag, motion, &step).factors - Vector3d{1.5, 1.0, 1.0}).length(), 0.0, 1.0e-6);
    motion.factors = {0.1, 1.0, 1.0};
    EXPECT_EQ(snapped(*pull.drag, motion, &step).factors.x(), 0.001);
}

TEST(EditTest, moveIsFromTheMatrixThatCameIn) {
    Pull pull{Slanted, {Kind::MoveScreen, 0}, {900.0, 500.0}};
    Motion motion;
    motion.displacement = {1.0, 2.0, 3.0};
    const Matrix4d moved = Matrix4d::translation({0.5, 0.0, 0.0}) * Matrix4d::scaling({2.0, 0.0, 1.0});
    const Edit edit = edited(*pull.drag, {}, motion, moved);
    EXPECT_EQ(edit.delta, Matrix4d::translation({0.5, 2.0, 3.0}));
    EXPECT_EQ(edit.matrix, Matrix4d::translation({1.0, 2.0, 3.0}) * Matrix4d::scaling({2.0, 0.0, 1.0}));
}

TEST(EditTest, turnIsAboutThePosition) {
    Pull pull{Slanted, {Kind::TurnAxis, 2}, {950.0, 500.0}};
    Motion before, now;
    before.angle = 1.0;
    now.angle = 1.0 + Pi / 2;
    const Matrix4d matrix = Matrix4d::translation({4.0, 1.0, 0.0}) * Matrix4d::scaling({2.0, 3.0, -1.0});
    const Edit edit = edited(*pull.drag, before, now, matrix);
    EXPECT_EQ(edit.delta, Matrix4d::translation({5.0, -3.0, 0.0}) * turn(Pi / 2, Vector3d::zAxis()));
    EXPECT_EQ(edit.matrix, edit.delta * matrix);
    EXPECT_EQ(edit.matrix.translation(), matrix.translation());
}

// Two lengths that are dragged, one that is nothing, and one that somebody else has changed meanwhile
TEST(EditTest, scaleIsOfTheLengthsAtTheBeginning) {
    const Matrix4d start = Matrix4d::scaling({2.0, 0.0, 4.0});
    Pull all{Slanted, {Kind::ScaleAll, 0}, {900.0, 500.0}, start};
    Motion motion;
    motion.factors = Vector3d{1.5};
    const Edit edit = edited(*all.drag, {}, motion, Matrix4d::scaling({2.0, 0.0, 5.0}));
    EXPECT_EQ(edit.delta, Matrix4d::scaling({1.5, 1.0, 1.2}));
    EXPECT_EQ(edit.matrix, Matrix4d::scaling({3.0, 0.0, 6.0}));
    // Somebody else has given it a length.
    EXPECT_EQ(
        edited(*all.drag, {}, motion, Matrix4d::scaling({2.0, 7.0, 4.0})).delta, Matrix4d::scaling({1.5, 1.0, 1.5}));
    Pull one{Slanted, {Kind::ScaleAxis, 0}, *Slanted.project({0.4, 0.0, 0.0}), start};
    motion.factors = {1.5, 1.0, 1.0};
    EXPECT_EQ(
        edited(*one.drag, {}, motion, Matrix4d::scaling({2.0, 7.0, 5.0})).delta, Matrix4d::scaling({1.5, 1.0, 1.0}));
}

TEST(EditTest, mirrorAndShearStay) {
    const Matrix4d start{{-2.0, 0.0, 0.0, 0.0}, {1.0, 1.0, 0.0, 0.0}, {0.0, 0.0, 3.0, 0.0}, {0.0, 0.0, 0.0, 1.0}};
    Pull pull{Slanted, {Kind::ScaleAxis, 1}, *Slanted.project({0.0, 0.4, 0.0}), start};
    Motion motion;
    motion.factors = {1.0, 2.0, 1.0};
    const Matrix4d out = edited(*pull.drag, {}, motion, start).matrix;
    EXPECT_EQ(out[0], start[0]);
    EXPECT_EQ(out[1], start[1] * 2.0);
    EXPECT_EQ(out[2], start[2]);
}

TEST(ValueTextTest, texts) {
    const auto text = [](Handle handle, const Motion& motion) {
        Drag drag;
        drag.handle = handle;
        drag.axes = World;
        return std::string{valueText(drag, motion).data()};
    };
    Motion motion;
    motion.displacement = {1.25, -0.0001, 3.0};
    motion.angle = -Pi / 4;
    motion.factors = {1.5, 2.0, 0.001};
    EXPECT_EQ(text({Kind::MoveAxis, 0}, motion), "X 1.250");
    EXPECT_EQ(text({Kind::MovePlane, 0}, motion), "Y 0.000  Z 3.000");
    EXPECT_EQ(text({Kind::MoveScreen, 0}, motion), "X 1.250  Y 0.000  Z 3.000");
    EXPECT_EQ(text({Kind::TurnAxis, 1}, motion), "Y -45.0\u00b0");
    EXPECT_EQ(text({Kind::TurnScreen, 0}, motion), "-45.0\u00b0");
    EXPECT_EQ(text({Kind::ScaleAxis, 1}, motion), "Y 2.000");
    EXPECT_EQ(text({Kind::ScaleAll, 0}, motion), "1.500");
    // However long they are
    motion.displacement = Vector3d{-1.0e300};
    EXPECT_EQ(text({Kind::MoveScreen, 0}, motion).size(), ValueText{}.size() - 1);
}

}
