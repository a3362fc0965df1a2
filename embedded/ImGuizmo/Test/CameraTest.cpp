#include <cmath>
#include <limits>

#include <Magnum/Math/Constants.h>
#include <gtest/gtest.h>

#include "Cameras.h"

using namespace Magnum;
using namespace GizmoTest;

namespace {

const Matrix4 OffCentre = Matrix4::translation({0.25f, -0.5f, 0.0f}) * perspective();
const Matrix4 Infinite = Matrix4::perspectiveProjection(Deg{60.0f}, 16.0f / 9.0f, 0.1f, Constants::inf());

class CameraTest: public testing::TestWithParam<Matrix4> {};

// There and back is the same pixel, to far less than one.
TEST_P(CameraTest, pixelOfThePointThatIsSeenAtAPixel) {
    Random random;
    int seen = 0;
    for(int i = 0; i != 500; ++i) {
        const Camera eye = camera(lookingAt(Vector3{random.vector(20.0)}, Vector3{random.vector(2.0)}), GetParam());
        const Vector2d pixel{random.number(100.0, 1700.0), random.number(50.0, 950.0)};
        const auto point = eye.pointOnPlane(pixel, random.vector(3.0), random.direction());
        if(!point) continue;
        const auto back = eye.project(*point);
        if(!back) continue;
        ++seen;
        EXPECT_NEAR((*back - pixel).length(), 0.0, 1.0e-4);
    }
    EXPECT_GT(seen, 250);
}

TEST_P(CameraTest, unitsPerPixelIsWhatIsSeen) {
    const Camera eye = camera(lookingAt({0.0f, 0.0f, 8.0f}), GetParam());
    const Vector3d point{0.5, -0.25, 1.0};
    const Vector2d way = *eye.project(point + Vector3d{0.1, 0.0, 0.0}) - *eye.project(point);
    EXPECT_NEAR(way.length() * eye.unitsPerPixel(point), 0.1, 1.0e-6);
}

INSTANTIATE_TEST_SUITE_P(Projections, CameraTest, testing::Values(perspective(), orthographic(), Infinite, OffCentre));

TEST(CameraTest, middleOfTheRectangle) {
    for(const Matrix4& projection: {perspective(), orthographic(), Infinite}) {
        const Camera eye = camera(lookingAt({3.0f, 4.0f, 5.0f}), projection);
        EXPECT_NEAR((*eye.project({}) - Vector2d{900.0, 500.0}).length(), 0.0, 1.0e-3);
    }
}

TEST(CameraTest, towardTheEye) {
    const Matrix4 view = lookingAt({0.0f, 0.0f, 5.0f});
    EXPECT_NEAR((camera(view, perspective()).towardEye({3.0, 0.0, 1.0}) - Vector3d{-0.6, 0.0, 0.8}).length(), 0, 1e-6);
    EXPECT_NEAR((camera(view, orthographic()).towardEye({3.0, 0.0, 1.0}) - Vector3d::zAxis()).length(), 0, 1e-6);
}

TEST(CameraTest, behindTheEye) {
    const Camera eye = camera(lookingAt({0.0f, 0.0f, 5.0f}), perspective());
    EXPECT_FALSE(eye.project({0.0, 0.0, 5.0}));
    EXPECT_FALSE(eye.project({0.0, 0.0, 7.0}));
    EXPECT_FALSE(eye.pointOnPlane({900.0, 500.0}, {0.0, 0.0, 7.0}, Vector3d::zAxis()));
    // Without perspective there is no eye to be behind of.
    const Camera flat = camera(lookingAt({0.0f, 0.0f, 5.0f}), orthographic());
    EXPECT_TRUE(flat.project({0.0, 0.0, 7.0}));
    EXPECT_TRUE(flat.pointOnPlane({900.0, 500.0}, {0.0, 0.0, 7.0}, Vector3d::zAxis()));
}

TEST(CameraTest, farBesideThePicture) {
    const Camera eye = camera(lookingAt({0.0f, 0.0f, 5.0f}), perspective());
    EXPECT_TRUE(eye.project({1.0e3, 0.0, 0.0}));
    EXPECT_FALSE(eye.project({1.0e30, 0.0, 0.0}));
    EXPECT_FALSE(eye.project({0.0, -1.0e30, 0.0}));
}

// The ground from one above it: the horizon is in the middle.
TEST(CameraTest, horizon) {
    const Camera eye = camera(lookingAt({0.0f, 1.0f, 0.0f}, {0.0f, 1.0f, -1.0f}), perspective());
    const Vector3d ground{0.0, 0.0, -10.0};
    EXPECT_TRUE(eye.pointOnPlane({900.0, 900.0}, ground, Vector3d::yAxis()));
    EXPECT_FALSE(eye.pointOnPlane({900.0, 500.01}, ground, Vector3d::yAxis()));
    EXPECT_FALSE(eye.pointOnPlane({900.0, 500.0}, ground, Vector3d::yAxis()));
    EXPECT_FALSE(eye.pointOnPlane({900.0, 300.0}, ground, Vector3d::yAxis()));
}

TEST(CameraTest, whatCannotBeUsed) {
    const auto isUsed = [](const Matrix4& view, const Matrix4& projection, const Rect& rect) {
        return Camera::create(view.data(), projection.data(), rect).has_value();
    };
    constexpr Double nan = std::numeric_limits<Double>::quiet_NaN();
    EXPECT_TRUE(isUsed({}, perspective(), Screen));
    EXPECT_FALSE(isUsed(Matrix4::scaling({1.0f, 0.0f, 1.0f}), perspective(), Screen));
    EXPECT_FALSE(isUsed(Matrix4::translation(Vector3{Constants::nan()}), perspective(), Screen));
    EXPECT_FALSE(isUsed({}, Matrix4{Math::ZeroInit}, Screen));
    EXPECT_FALSE(isUsed({}, Matrix4::translation(Vector3{Constants::inf()}), Screen));
    EXPECT_FALSE(isUsed({}, perspective(), Rect{{0.0, 0.0}, {0.0, 900.0}}));
    EXPECT_FALSE(isUsed({}, perspective(), Rect{{0.0, 0.0}, {1600.0, -1.0}}));
    EXPECT_FALSE(isUsed({}, perspective(), Rect{{nan, 0.0}, {1600.0, 900.0}}));
    // Pictures that no screen shows, whose lines could not be drawn
    EXPECT_TRUE(isUsed({}, perspective(), Rect{{-500.0, 9000.0}, {1.0, 1.0}}));
    EXPECT_FALSE(isUsed({}, perspective(), Rect{{0.0, 0.0}, {1.0e-20, 900.0}}));
    EXPECT_FALSE(isUsed({}, perspective(), Rect{{0.0, 0.0}, {1600.0, 1.0e21}}));
    EXPECT_FALSE(isUsed({}, perspective(), Rect{{0.0, -1.0e21}, {1600.0, 900.0}}));
}

}
