#include "Utils/CheckedMath.h"

#include <limits>

#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Magnum;
using namespace Math::Literals;
using testing::Eq;
using testing::HasSubstr;
using testing::KilledBySignal;
using testing::StartsWith;
using VantrelEngine::invertedRigid;
using VantrelEngine::rotationFromMatrix;

constexpr const char* NotRigid =
    "Math::Matrix4::invertedRigid(): the matrix doesn't represent a rigid transformation:\n";
constexpr const char* NotRotation = "Math::Quaternion::fromMatrix(): the matrix is not a rotation:\n";

TEST(CheckedMathTest, rigidInverseUndoesRotationAndTranslation) {
    const Matrix4 matrix = Matrix4::translation({1.0f, -2.0f, 3.0f}) *
        Matrix4::rotation(37.0_degf, Vector3{1.0f, 2.0f, -0.5f}.normalized());
    const Matrix4 product = invertedRigid(matrix) * matrix;
    for(std::size_t column = 0; column != 4; ++column)
        for(std::size_t row = 0; row != 4; ++row)
            EXPECT_NEAR(product[column][row], column == row ? 1.0f : 0.0f, 1.0e-6f) << column << row;
}

TEST(CheckedMathTest, rigidInverseIsTransposedRotationAndTranslationRotatedBack) {
    const Matrix4 inverted = invertedRigid(Matrix4::translation({1.0f, 2.0f, 3.0f}) * Matrix4::rotationY(90.0_degf));
    EXPECT_EQ(inverted.translation(), (Vector3{3.0f, -2.0f, -1.0f}));
    EXPECT_EQ(inverted.transformVector({1.0f, 0.0f, 0.0f}), (Vector3{0.0f, 0.0f, 1.0f}));
}

TEST(CheckedMathTest, rigidInverseToleratesWhatTheLibraryTolerates) {
    // Squared length 1 + 1.0e-5 is within 2e-5 of 1; 1.001 squared is not (see the death test).
    EXPECT_NO_FATAL_FAILURE(invertedRigid(Matrix4::scaling({1.000005f, 1.0f, 1.0f})));
}

TEST(CheckedMathDeathTest, rigidInverseRejectsScaleShearProjectionAndNan) {
    Matrix4 sheared;
    sheared[1][0] = 0.01f;
    Matrix4 projective;
    projective[3][3] = 2.0f;
    Matrix4 nan;
    nan[0][0] = std::numeric_limits<float>::quiet_NaN();
    for(const Matrix4& matrix: {Matrix4::scaling(Vector3{1.001f}), sheared, projective, nan})
        EXPECT_EXIT(invertedRigid(matrix), KilledBySignal(SIGABRT), StartsWith(NotRigid));
}

TEST(CheckedMathDeathTest, rigidInversePrintsTheMatrix) {
    EXPECT_EXIT(invertedRigid(Matrix4::scaling({2.0f, 1.0f, 1.0f})), KilledBySignal(SIGABRT),
        Eq(std::string{NotRigid} +
            "Matrix(2, 0, 0, 0,\n"
            "       0, 1, 0, 0,\n"
            "       0, 0, 1, 0,\n"
            "       0, 0, 0, 1)\n"));
}

TEST(CheckedMathTest, rotationIsRecovered) {
    for(const auto& [angle, axis]: {std::pair{10.0f, Vector3::xAxis()}, {179.0f, Vector3::yAxis()},
            {-120.0f, Vector3::zAxis()}, {180.0f, Vector3{1.0f, 1.0f, 1.0f}.normalized()}}) {
        const Quaternion expected = Quaternion::rotation(Deg{angle}, axis);
        const Quaternion actual = rotationFromMatrix(expected.toMatrix());
        // q and -q are the same rotation.
        EXPECT_NEAR(std::abs(Math::dot(actual, expected)), 1.0f, 1.0e-5f) << angle;
        EXPECT_TRUE(actual.isNormalized()) << angle;
    }
}

TEST(CheckedMathTest, rotationAcceptsADeterminantWithinTolerance) {
    Matrix3x3 nearly;
    nearly[0][0] = 1.00002f;
    EXPECT_TRUE(rotationFromMatrix(nearly).isNormalized());
}

TEST(CheckedMathDeathTest, rotationRejectsReflectionScaleAndNan) {
    Matrix3x3 reflection, scaled, nan, beyond;
    reflection[0][0] = -1.0f;
    scaled[1][1] = 2.0f;
    nan[2][2] = std::numeric_limits<float>::quiet_NaN();
    beyond[0][0] = 1.00004f;
    for(const Matrix3x3& matrix: {reflection, scaled, nan, beyond})
        EXPECT_EXIT(rotationFromMatrix(matrix), KilledBySignal(SIGABRT), StartsWith(NotRotation));
    EXPECT_EXIT(rotationFromMatrix(reflection), KilledBySignal(SIGABRT),
        HasSubstr("Matrix(-1, 0, 0,\n       0, 1, 0,\n       0, 0, 1)\n"));
}

}
