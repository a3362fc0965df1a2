#include <type_traits>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;
using MathTest::near;
using MathTest::Numbers;

namespace {

static_assert(sizeof(Quaternion) == 16 && std::is_trivially_copyable_v<Quaternion>);
constexpr Quaternion Identity;
static_assert(Identity.scalar() == 1.0f && Identity.vector()[0] == 0.0f);
constexpr Quaternion Some{{1.0f, 2.0f, 3.0f}, 4.0f};
static_assert(Some.xyzw()[0] == 1.0f && Some.xyzw()[3] == 4.0f && Some.wxyz()[0] == 4.0f && Some.wxyz()[3] == 3.0f);
static_assert(Quaternion{Vector3{1.0f, 2.0f, 3.0f}}.scalar() == 0.0f);

const Quaternion Yaw = Quaternion::rotation(90.0_degf, Vector3::yAxis());
const Quaternion Pitch = Quaternion::rotation(30.0_degf, Vector3::xAxis());

TEST(QuaternionTest, partsAreReferences) {
    Quaternion q;
    q.vector().y() = 2.0f;
    q.scalar() = 3.0f;
    EXPECT_SAME(q, (Quaternion{{0.0f, 2.0f, 0.0f}, 3.0f}));
    EXPECT_EQ(reinterpret_cast<const Float*>(&q)[1], 2.0f);
    EXPECT_EQ(reinterpret_cast<const Float*>(&q)[3], 3.0f);
}

TEST(QuaternionTest, arithmetic) {
    const Quaternion other{{5.0f, 6.0f, 7.0f}, 8.0f};
    EXPECT_SAME((Some + other), (Quaternion{{6.0f, 8.0f, 10.0f}, 12.0f}));
    EXPECT_SAME((Some - other), (Quaternion{{-4.0f, -4.0f, -4.0f}, -4.0f}));
    EXPECT_SAME((Some * 2.0f), (Quaternion{{2.0f, 4.0f, 6.0f}, 8.0f}));
    EXPECT_SAME((2.0f * Some), (Some * 2.0f));
    EXPECT_SAME((Some / 2.0f), (Quaternion{{0.5f, 1.0f, 1.5f}, 2.0f}));
    EXPECT_SAME(-Some, (Quaternion{{-1.0f, -2.0f, -3.0f}, -4.0f}));
    EXPECT_SAME((Some * other), (Quaternion{{24.0f, 48.0f, 48.0f}, -6.0f}));
    EXPECT_EQ(Math::dot(Some, other), 70.0f);
    EXPECT_SAME(Quaternion{Math::Quaternion<Double>{Some}}, Some);
}

TEST(QuaternionTest, lengthsAndInverses) {
    EXPECT_EQ(Some.dot(), 30.0f);
    EXPECT_FLOAT_EQ(Some.length(), std::sqrt(30.0f));
    EXPECT_SAME(Some.normalized(), (Some / std::sqrt(30.0f)));
    EXPECT_SAME(Some.conjugated(), (Quaternion{{-1.0f, -2.0f, -3.0f}, 4.0f}));
    EXPECT_SAME((Some * Some.inverted()), Quaternion{});
    EXPECT_SAME((Yaw * Yaw.invertedNormalized()), Quaternion{});
    EXPECT_TRUE((Quaternion{{}, 1.0f + 0.9e-5f}).isNormalized());
    EXPECT_FALSE((Quaternion{{}, 1.0f + 1.1e-5f}).isNormalized());
    EXPECT_FALSE((Quaternion{{}, MathTest::NaN}).isNormalized());
}

// The same rotation, but not the same quaternion
TEST(QuaternionTest, negatedIsNotEqual) {
    EXPECT_FALSE(Yaw == -Yaw);
    EXPECT_TRUE(Yaw != -Yaw);
    EXPECT_SAME(Yaw.toMatrix(), (-Yaw).toMatrix());
}

TEST(QuaternionTest, yawThenPitch) {
    EXPECT_TRUE(near(Yaw.transformVector({0.0f, 0.0f, -1.0f}), Numbers<3>{-1.0, 0.0, 0.0}, 1e-6));
    // The right factor is applied first.
    EXPECT_TRUE(near((Yaw * Pitch).transformVector({0.0f, 0.0f, -1.0f}), Numbers<3>{-std::sqrt(0.75), 0.5, 0.0}, 1e-6));
    EXPECT_SAME((Yaw * Pitch), (Quaternion{{0.1830127f, 0.6830127f, -0.1830127f}, 0.6830127f}));
}

TEST(QuaternionTest, rotationsAgreeWithTheMatrix) {
    MathTest::Random random;
    for(int i = 0; i != 300; ++i) {
        const Vector3 axis = random.direction(), v = random.vector(10.0);
        const Rad angle = random.angle();
        const Quaternion q = Quaternion::rotation(angle, axis);
        const Numbers<9> m = MathTest::rotationReference(Float(angle), axis);
        EXPECT_TRUE(near(q.toMatrix(), m, 2e-6));
        EXPECT_TRUE(near(q.transformVector(v), MathTest::rotated(m, v), 2e-5));
        EXPECT_TRUE(near(q.transformVectorNormalized(v), MathTest::rotated(m, v), 2e-5));
        // The length does not matter.
        EXPECT_TRUE(near((q * 3.0f).transformVector(v), MathTest::rotated(m, v), 2e-5));
    }
}

TEST(QuaternionTest, angleAndAxis) {
    EXPECT_SAME(Deg{Yaw.angle()}, 90.0_degf);
    EXPECT_SAME(Yaw.axis(), Vector3::yAxis());
    // The long way round
    EXPECT_SAME(Deg{(-Yaw).angle()}, 270.0_degf);
    EXPECT_SAME((-Yaw).axis(), -Vector3::yAxis());
    EXPECT_NEAR(Float(Quaternion{}.angle()), 0.0f, 1e-6f);
    EXPECT_TRUE(std::isnan(Quaternion{}.axis().x()));
}

TEST(QuaternionTest, betweenDirections) {
    EXPECT_SAME(
        Quaternion::rotation(Vector3::xAxis(), Vector3::yAxis()), Quaternion::rotation(90.0_degf, Vector3::zAxis()));
    EXPECT_SAME(Quaternion::rotation(Vector3::xAxis(), Vector3::xAxis()), Quaternion{});
    MathTest::Random random;
    for(int i = 0; i != 200; ++i) {
        const Vector3 from = random.direction(), to = random.direction();
        const Quaternion q = Quaternion::rotation(from, to);
        EXPECT_TRUE(near(q.transformVector(from), to, 1e-5));
        // The shortest one turns about an axis perpendicular to both.
        EXPECT_NEAR(Math::dot(q.vector(), from), 0.0f, 1e-5f);
        EXPECT_GE(q.scalar(), 0.0f);
    }
}

TEST(QuaternionTest, betweenOppositeDirections) {
    for(const Vector3& from: {Vector3::xAxis(), Vector3::yAxis(), Vector3::zAxis(), -Vector3::yAxis(),
            Vector3{1.0f, 2.0f, 3.0f}.normalized(), Vector3{0.001f, 1.0f, 0.0f}.normalized()}) {
        const Quaternion q = Quaternion::rotation(from, -from);
        EXPECT_TRUE(q.isNormalized());
        EXPECT_EQ(q.scalar(), 0.0f);
        EXPECT_TRUE(near(q.transformVector(from), -from, 1e-5));
    }
    EXPECT_SAME(Quaternion::rotation(Vector3::xAxis(), -Vector3::xAxis()), Quaternion(-Vector3::zAxis(), 0.0f));
    EXPECT_SAME(Quaternion::rotation(Vector3::yAxis(), -Vector3::yAxis()), Quaternion(Vector3::zAxis(), 0.0f));
}

class FromMatrixTest: public testing::TestWithParam<std::tuple<Vector3, Float>> {};

// Small angles are found by the trace, large ones by the largest element of the diagonal: three more branches.
TEST_P(FromMatrixTest, allBranches) {
    const Vector3 axis = std::get<0>(GetParam()).normalized();
    const Deg angle{std::get<1>(GetParam())};
    const Matrix3x3 m = Matrix4::rotation(angle, axis).rotationScaling();
    const Quaternion q = Quaternion::fromMatrix(m);
    EXPECT_TRUE(q.isNormalized());
    EXPECT_TRUE(near(q.toMatrix(), m, 2e-6));
    // The sign is one that makes either the scalar or the largest component positive.
    const Quaternion expected = Quaternion::rotation(angle, axis);
    EXPECT_NEAR(std::abs(Math::dot(q, expected)), 1.0f, 1e-5f);
    EXPECT_TRUE(q.scalar() > 0.0f || q.vector().max() > 0.5f) << MathTest::printed(q);
}

INSTANTIATE_TEST_SUITE_P(AxesAndAngles, FromMatrixTest,
    testing::Combine(testing::Values(Vector3{1.0f, 0.0f, 0.0f}, Vector3{0.0f, 1.0f, 0.0f}, Vector3{0.0f, 0.0f, 1.0f},
                         Vector3{3.0f, 2.0f, 1.0f}, Vector3{1.0f, 3.0f, 2.0f}, Vector3{1.0f, 2.0f, 3.0f},
                         Vector3{-1.0f, -2.0f, -3.0f}),
        testing::Values(0.0f, 0.1f, 90.0f, 119.0f, 121.0f, 179.0f, 180.0f, 181.0f, 270.0f, 359.0f)));

TEST(QuaternionTest, matrixThereAndBack) {
    MathTest::Random random;
    for(int i = 0; i != 500; ++i) {
        const Quaternion q = random.rotation();
        const Quaternion back = Quaternion::fromMatrix(q.toMatrix());
        EXPECT_TRUE(near(Math::dot(q, back) < 0.0f ? -back : back, q, 2e-6));
    }
}

TEST(QuaternionTest, fromMatrixTakesNearlyARotation) {
    for(const Float error: {2.9e-5f, -2.9e-5f}) {
        Matrix3x3 m;
        m[0][0] += error;
        EXPECT_TRUE(near(Quaternion::fromMatrix(m), Quaternion{}, 2e-5)) << error;
    }
}

struct Euler {
    Float x, y, z;
};

class EulerTest: public testing::TestWithParam<Euler> {};

TEST_P(EulerTest, xFirstZLast) {
    const auto [x, y, z] = GetParam();
    const Quaternion q = Quaternion::rotation(Deg{z}, Vector3::zAxis()) *
        Quaternion::rotation(Deg{y}, Vector3::yAxis()) * Quaternion::rotation(Deg{x}, Vector3::xAxis());
    const auto angles = q.toEuler();
    EXPECT_NEAR(Float(Deg{angles.x()}), x, 0.01f);
    EXPECT_NEAR(Float(Deg{angles.y()}), y, 0.01f);
    EXPECT_NEAR(Float(Deg{angles.z()}), z, 0.01f);
}

INSTANTIATE_TEST_SUITE_P(Angles, EulerTest,
    testing::Values(Euler{0.0f, 0.0f, 0.0f}, Euler{10.0f, 20.0f, 30.0f}, Euler{-170.0f, 45.0f, 100.0f},
        Euler{120.0f, -80.0f, -60.0f}, Euler{5.0f, 85.0f, -175.0f}));

// Where y is a right angle, x and z are about the same axis.
TEST(QuaternionTest, toEulerAtTheGimbalLock) {
    const Quaternion z = Quaternion::rotation(45.0_degf, Vector3::zAxis());
    const auto down = (z * Quaternion::rotation(-90.0_degf, Vector3::yAxis()) * Pitch).toEuler();
    EXPECT_NEAR(Float(Deg{down.x()}), 0.0f, 0.01f);
    EXPECT_NEAR(Float(Deg{down.y()}), -90.0f, 0.05f);
    EXPECT_NEAR(Float(Deg{down.z()}), 75.0f, 0.01f);
    EXPECT_NEAR(Float(Deg{(z * Yaw * Pitch).toEuler().y()}), 90.0f, 0.05f);
}

TEST(QuaternionTest, lerp) {
    const Quaternion middle = Math::lerp(Yaw, Pitch, 0.5f);
    EXPECT_SAME(middle, (Yaw + Pitch).normalized());
    EXPECT_TRUE(Math::lerp(Yaw, Pitch, 0.3f).isNormalized());
    EXPECT_SAME(Math::lerp(Yaw, Pitch, 0.0f), Yaw);
    EXPECT_SAME(Math::lerp(Yaw, Pitch, 1.0f), Pitch);
    EXPECT_SAME(Math::lerp(Yaw, -Pitch, 0.5f), (Yaw - Pitch).normalized());
    EXPECT_SAME(Math::lerpShortestPath(Yaw, -Pitch, 0.5f), -middle);
}

TEST(QuaternionTest, slerpHasConstantSpeed) {
    const Vector3 axis = Vector3{1.0f, -2.0f, 3.0f}.normalized();
    const Quaternion a = Quaternion::rotation(20.0_degf, axis), b = Quaternion::rotation(140.0_degf, axis);
    for(const Float t: {0.0f, 0.1f, 0.25f, 0.5f, 0.9f, 1.0f}) {
        EXPECT_TRUE(near(Math::slerp(a, b, t), Quaternion::rotation(Deg{20.0f + 120.0f * t}, axis), 1e-6)) << t;
        // To the negated end it is the long way: -240 degrees instead of 120.
        EXPECT_TRUE(near(Math::slerp(a, -b, t), Quaternion::rotation(Deg{20.0f - 240.0f * t}, axis), 1e-6)) << t;
        // The shortest path negates the start for it.
        EXPECT_TRUE(near(Math::slerpShortestPath(a, -b, t), -Quaternion::rotation(Deg{20.0f + 120.0f * t}, axis), 1e-6))
            << t;
        EXPECT_SAME(Math::slerpShortestPath(a, b, t), Math::slerp(a, b, t));
    }
}

TEST(QuaternionTest, slerpOfNearlyEqual) {
    for(const Float angle: {0.1f, 1e-2f, 6e-3f, 3e-3f, 1e-3f, 1e-5f, 0.0f}) {
        const Quaternion b = Quaternion::rotation(Rad{angle}, Vector3::xAxis());
        for(const Float t: {0.0f, 0.25f, 1.0f}) {
            EXPECT_TRUE(
                near(Math::slerp(Quaternion{}, b, t), Quaternion::rotation(Rad{angle * t}, Vector3::xAxis()), 1e-6));
            EXPECT_TRUE(near(Math::slerpShortestPath(Quaternion{}, -b, t),
                -Quaternion::rotation(Rad{angle * t}, Vector3::xAxis()), 1e-6));
        }
    }
}

TEST(QuaternionTest, slerpOfOpposite) {
    // There is no direction to take, so it stays.
    EXPECT_SAME(Math::slerp(Yaw, -Yaw, 0.5f), -Yaw);
    EXPECT_SAME(Math::slerpShortestPath(Yaw, -Yaw, 0.5f), -Yaw);
    EXPECT_SAME(Math::slerp(Yaw, Yaw, 0.5f), Yaw);
}

}
