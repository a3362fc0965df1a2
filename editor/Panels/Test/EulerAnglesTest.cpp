#include <cmath>
#include <random>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix3.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>
#include <gtest/gtest.h>

#include "Panels/Inspector/EulerAngles.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Of the matrices' elements, which are floats.
constexpr Float Near = 2.0e-6f;

Matrix3x3 matrixOf(const QuaternionNumbers& q) {
    return Quaternion{{Float(q[0]), Float(q[1]), Float(q[2])}, Float(q[3])}.normalized().toMatrix();
}

Float distance(const Matrix3x3& a, const Matrix3x3& b) {
    Float largest = 0.0f;
    for(std::size_t i = 0; i != 3; ++i)
        for(std::size_t j = 0; j != 3; ++j) largest = std::max(largest, std::abs(a[i][j] - b[i][j]));
    return largest;
}

TEST(EulerAnglesTest, TurnAboutXThenYThenZ) {
    const Matrix4 expected =
        Matrix4::rotationZ(Deg{30.0f}) * Matrix4::rotationY(Deg{-50.0f}) * Matrix4::rotationX(Deg{110.0f});
    EXPECT_LT(distance(matrixOf(quaternionFromAngles({110.0, -50.0, 30.0})), expected.rotation()), Near);
}

TEST(EulerAnglesTest, ComeBackAsTheyWere) {
    std::mt19937 random{3};
    std::uniform_real_distribution<double> around{-179.9, 179.9}, up{-89.9, 89.9};
    for(int i = 0; i != 20000; ++i) {
        const EulerAngles angles{around(random), up(random), around(random)};
        const EulerAngles back = anglesFromQuaternion(quaternionFromAngles(angles));
        for(std::size_t axis = 0; axis != 3; ++axis) ASSERT_NEAR(back[axis], angles[axis], 2.0e-5) << i << ' ' << axis;
    }
}

TEST(EulerAnglesTest, AreThoseOfAnyQuaternion) {
    std::mt19937 random{5};
    std::normal_distribution<double> number;
    for(int i = 0; i != 20000; ++i) {
        QuaternionNumbers q{number(random), number(random), number(random), number(random)};
        // Short ones and long ones are the same rotation.
        const double factor = std::pow(10.0, number(random) * 3.0);
        const Matrix3x3 expected = matrixOf(q);
        for(double& part: q) part *= factor;
        ASSERT_LT(distance(matrixOf(quaternionFromAngles(anglesFromQuaternion(q))), expected), 1.0e-5f) << i;
    }
}

TEST(EulerAnglesTest, StraightUpAndDownIsTheSameRotation) {
    for(const double up: {90.0, -90.0})
        for(double x = -170.0; x <= 170.0; x += 17.0)
            for(double z = -170.0; z <= 170.0; z += 34.0) {
                const QuaternionNumbers q = quaternionFromAngles({x, up, z});
                const EulerAngles angles = anglesFromQuaternion(q);
                EXPECT_EQ(angles[1], up);
                EXPECT_EQ(angles[2], 0.0);
                EXPECT_LT(distance(matrixOf(quaternionFromAngles(angles)), matrixOf(q)), Near) << x << ' ' << z;
            }
}

TEST(EulerAnglesTest, NearlyStraightUpIsTheSameRotation) {
    for(double from = 1.0; from > 1.0e-9; from *= 0.3) {
        const QuaternionNumbers q = quaternionFromAngles({20.0, 90.0 - from, 50.0});
        EXPECT_LT(distance(matrixOf(quaternionFromAngles(anglesFromQuaternion(q))), matrixOf(q)), 5.0e-6f) << from;
    }
}

TEST(EulerAnglesTest, NoRotationWhereThereIsNone) {
    const EulerAngles none{0.0, 0.0, 0.0};
    EXPECT_EQ(anglesFromQuaternion({0.0, 0.0, 0.0, 0.0}), none);
    EXPECT_EQ(anglesFromQuaternion({0.0, 0.0, 0.0, INFINITY}), none);
    EXPECT_EQ(anglesFromQuaternion({0.0, 0.0, 0.0, 1.0e300}), none);
}

TEST(TypedAnglesTest, StayAsTheyWereTypedWhileTheQuaternionIsTheirs) {
    TypedAngles typed;
    const EulerAngles angles{0.0, 100.0, 0.0};
    const QuaternionNumbers q = quaternionFromAngles(angles);
    EXPECT_EQ(typed.anglesOf("a", q), (EulerAngles{180.0, 80.0, 180.0}));
    typed.remember("a", angles, q);
    EXPECT_EQ(typed.anglesOf("a", q), angles);
    EXPECT_EQ(typed.anglesOf("b", q), (EulerAngles{180.0, 80.0, 180.0}));
    EXPECT_EQ(typed.anglesOf("a", {0.0, 0.0, 0.0, 1.0}), (EulerAngles{0.0, 0.0, 0.0}));
    typed.clear();
    EXPECT_NE(typed.anglesOf("a", q), angles);
}

} // namespace

} // namespace VantrelEngine
