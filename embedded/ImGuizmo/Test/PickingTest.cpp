#include <gtest/gtest.h>

#include "Cameras.h"
#include "Implementation/Picking.h"

using namespace Magnum;
using namespace GizmoTest;
using namespace ImGuizmo::Implementation;

namespace {

typedef Handle::Kind Kind;

constexpr Axes World{Vector3d{1.0, 0.0, 0.0}, Vector3d{0.0, 1.0, 0.0}, Vector3d{0.0, 0.0, 1.0}};

Layout layout(const Camera& eye, Double pixels = 80.0) {
    return layoutOf(eye, {}, World, longerSides(eye, {}, World, pixels), pixels).value();
}
Vector2d onLine(const Layout& layout, std::size_t axis, Double part) {
    return layout.centre + (layout.lines[axis].end - layout.centre) * part;
}
Vector2d across(const Layout& layout, std::size_t axis, Double pixels) {
    const Vector2d way = (layout.lines[axis].end - layout.centre).normalized();
    return Vector2d{-way.y(), way.x()} * pixels;
}

TEST(PickingTest, distanceToALine) {
    EXPECT_DOUBLE_EQ(distanceToLine({3.0, 4.0}, {0.0, 0.0}, {10.0, 0.0}), 4.0);
    EXPECT_DOUBLE_EQ(distanceToLine({-3.0, 4.0}, {0.0, 0.0}, {10.0, 0.0}), 5.0);
    EXPECT_DOUBLE_EQ(distanceToLine({13.0, 4.0}, {0.0, 0.0}, {10.0, 0.0}), 5.0);
    EXPECT_DOUBLE_EQ(distanceToLine({3.0, 4.0}, {0.0, 0.0}, {0.0, 0.0}), 5.0);
}

TEST(PickingTest, insideOfAQuad) {
    const std::array<Vector2d, 4> quad{Vector2d{0.0, 0.0}, {4.0, 1.0}, {5.0, 5.0}, {1.0, 4.0}};
    const std::array<Vector2d, 4> reversed{quad[3], quad[2], quad[1], quad[0]};
    for(const auto& corners: {quad, reversed}) {
        EXPECT_TRUE(isInside(corners, {2.5, 2.5}));
        EXPECT_TRUE(isInside(corners, {4.0, 1.0}));
        EXPECT_FALSE(isInside(corners, {3.0, 0.5}));
        EXPECT_FALSE(isInside(corners, {6.0, 6.0}));
    }
}

class OperationTest: public testing::TestWithParam<int> {
protected:
    const Camera eye = camera(lookingAt({3.0f, 4.0f, 5.0f}), perspective());
    const Layout seen = layout(eye);
    const int axis = GetParam();
    const std::size_t index = std::size_t(axis);
};

TEST_P(OperationTest, axesWithinTwelvePixels) {
    for(Double part: {0.3, 0.6, 1.0}) {
        const Vector2d pixel = onLine(seen, index, part);
        EXPECT_EQ(handleAt(seen, ImGuizmo::TRANSLATE, pixel), (Handle{Kind::MoveAxis, axis}));
        EXPECT_EQ(handleAt(seen, ImGuizmo::SCALE, pixel), (Handle{Kind::ScaleAxis, axis}));
        EXPECT_FALSE(handleAt(seen, ImGuizmo::ROTATE, pixel).isMove());
    }
    const Vector2d tip = onLine(seen, index, 1.0);
    EXPECT_EQ(handleAt(seen, ImGuizmo::SCALE, tip + across(seen, index, 11.5)), (Handle{Kind::ScaleAxis, axis}));
    EXPECT_FALSE(handleAt(seen, ImGuizmo::SCALE, tip + across(seen, index, 12.5)));
}

TEST_P(OperationTest, planesBeforeAxesThatAreNotClose) {
    const auto& corners = seen.quads[index].corners;
    const Vector2d middle = (corners[0] + corners[1] + corners[2] + corners[3]) * 0.25;
    EXPECT_EQ(handleAt(seen, ImGuizmo::TRANSLATE, middle), (Handle{Kind::MovePlane, axis}));
    EXPECT_FALSE(handleAt(seen, ImGuizmo::OPERATION(ImGuizmo::TRANSLATE_X << axis), middle).kind == Kind::MovePlane);
}

TEST_P(OperationTest, ringsWithinEightPixelsOnTheirNearHalf) {
    const Layout::Ring& ring = seen.rings[index];
    int front = 0, alone = 0;
    for(std::size_t i = 0; i != Layout::RingPoints; ++i) {
        const Handle found = handleAt(seen, ImGuizmo::OPERATION(ImGuizmo::ROTATE_X << axis), ring.points[i]);
        front += ring.isFront[i];
        alone += found == Handle{Kind::TurnAxis, axis};
        if(ring.isFront[i] && ring.isFront[(i + 1) % Layout::RingPoints]) {
            EXPECT_EQ(found, (Handle{Kind::TurnAxis, axis}));
        }
    }
    // Half of it, and what is close to the ends
    EXPECT_GT(front, 30);
    EXPECT_LT(alone, 48);
}

INSTANTIATE_TEST_SUITE_P(Axes, OperationTest, testing::Values(0, 1, 2));

TEST(PickingTest, middle) {
    const Layout seen = layout(camera(lookingAt({3.0f, 4.0f, 5.0f}), perspective()));
    EXPECT_EQ(handleAt(seen, ImGuizmo::TRANSLATE, seen.centre + Vector2d{9.5, -9.5}), (Handle{Kind::MoveScreen, 0}));
    EXPECT_EQ(handleAt(seen, ImGuizmo::SCALE, seen.centre), (Handle{Kind::ScaleAll, 0}));
    EXPECT_FALSE(handleAt(seen, ImGuizmo::ROTATE, seen.centre));
    // It needs all axes.
    EXPECT_NE(handleAt(seen, ImGuizmo::TRANSLATE_X, seen.centre).kind, Kind::MoveScreen);
}

TEST(PickingTest, outerRing) {
    const Layout seen = layout(camera(lookingAt({3.0f, 4.0f, 5.0f}), perspective()));
    const Vector2d pixel = seen.centre + Vector2d{80.0 * OuterRingRadius, 0.0};
    EXPECT_EQ(handleAt(seen, ImGuizmo::ROTATE_SCREEN, pixel), (Handle{Kind::TurnScreen, 0}));
    EXPECT_FALSE(handleAt(seen, ImGuizmo::ROTATE_SCREEN, pixel + Vector2d{8.5, 0.0}));
    EXPECT_FALSE(handleAt(seen, ImGuizmo::ROTATE_SCREEN, pixel - Vector2d{8.5, 0.0}));
}

// Seen end-on, an axis cannot be told from the middle, and a plane seen edge-on not from an axis.
TEST(PickingTest, endOnAndEdgeOn) {
    const Layout seen = layout(camera(lookingAt({0.0f, 0.0f, 5.0f}), perspective()));
    EXPECT_EQ(seen.lines[2].alpha, 0.0);
    EXPECT_EQ(seen.quads[0].alpha, 0.0);
    EXPECT_EQ(seen.lines[0].alpha, 1.0);
    EXPECT_EQ(seen.quads[2].alpha, 1.0);
    EXPECT_FALSE(handleAt(seen, ImGuizmo::TRANSLATE_Z, seen.centre));
    EXPECT_EQ(handleAt(seen, ImGuizmo::SCALE, onLine(seen, 0, 0.5)), (Handle{Kind::ScaleAxis, 0}));
}

TEST(LayoutTest, sameSizeHoweverFarAway) {
    for(Float distance: {0.5f, 5.0f, 90.0f}) {
        const Layout seen = layout(camera(lookingAt({0.0f, 0.0f, distance}), perspective()));
        EXPECT_NEAR((seen.lines[0].end - seen.centre).length(), 80.0, 0.01);
        EXPECT_NEAR((seen.lines[1].end - seen.centre).length(), 80.0, 0.01);
    }
}

TEST(LayoutTest, sizeOfAnAxis) {
    EXPECT_DOUBLE_EQ(axisPixels({{}, {1920.0, 1080.0}}, 0.1), 96.0);
    EXPECT_DOUBLE_EQ(axisPixels({{}, {600.0, 2000.0}}, 0.1), 100.0);
    EXPECT_DOUBLE_EQ(axisPixels({{}, {800.0, 600.0}}, 0.1), 64.0);
    EXPECT_DOUBLE_EQ(axisPixels({{}, {800.0, 600.0}}, 0.3), 120.0);
    EXPECT_DOUBLE_EQ(axisPixels({{}, {100.0, 60.0}}, 0.1), 18.0);
}

// Nothing of it may come behind the eye.
TEST(LayoutTest, widestAngle) {
    const Camera eye = camera(lookingAt({1.0f, 2.0f, 2.0f}), perspective(170.0f));
    const Layout seen = layout(eye);
    for(const Layout::Ring& ring: seen.rings)
        for(const Vector2d& point: ring.points) EXPECT_NE(point, seen.centre);
    EXPECT_LT(seen.pixels, 80.0);
}

TEST(LayoutTest, nothingWhereNothingIsSeen) {
    const Camera eye = camera(lookingAt({0.0f, 0.0f, 5.0f}), perspective());
    EXPECT_TRUE(layoutOf(eye, {0.0, 0.0, 0.0}, World, Vector3d{1.0}, 80.0));
    EXPECT_FALSE(layoutOf(eye, {0.0, 0.0, 6.0}, World, Vector3d{1.0}, 80.0));
    EXPECT_FALSE(layoutOf(eye, {100.0, 0.0, 0.0}, World, Vector3d{1.0}, 80.0));
}

TEST(LayoutTest, longerSides) {
    EXPECT_EQ(longerSides(camera(lookingAt({-3.0f, 4.0f, -5.0f}), perspective()), {}, World, 80.0),
        (Vector3d{-1.0, 1.0, -1.0}));
    EXPECT_EQ(longerSides(camera(lookingAt({-3.0f, 4.0f, -5.0f}), orthographic()), {}, World, 80.0), Vector3d{1.0});
}

}
