#include <type_traits>

#include <Magnum/Math/Matrix3.h>

#include "Expect.h"

using namespace Magnum;
using MathTest::near;

namespace {

static_assert(sizeof(Matrix2x2) == 16 && sizeof(Matrix3x3) == 36 && sizeof(Matrix3) == 36 && sizeof(Matrix4) == 64);
static_assert(std::is_trivially_copyable_v<Matrix3x3> && std::is_standard_layout_v<Matrix4>);
static_assert(std::is_convertible_v<Matrix3x3, Matrix3> && std::is_convertible_v<Matrix3, Matrix3x3>);
static_assert(std::is_convertible_v<Math::RectangularMatrix<4, 4, Float>, Matrix4>);

constexpr Matrix3x3 Identity;
static_assert(Identity[0][0] == 1.0f && Identity[2][2] == 1.0f && Identity[1][0] == 0.0f);
constexpr Math::RectangularMatrix<2, 3, Float> Empty;
static_assert(Empty[0][0] == 0.0f && Empty[1][2] == 0.0f);

// Columns
const Matrix3x3 A{Vector3{1.0f, 2.0f, 3.0f}, Vector3{4.0f, 5.0f, 6.0f}, Vector3{7.0f, 8.0f, 10.0f}};

TEST(MatrixTest, initialization) {
    EXPECT_SAME(Matrix3x3{}, Matrix3x3{Math::IdentityInit});
    EXPECT_EQ(Matrix3x3(Math::IdentityInit, 3.0f)[1][1], 3.0f);
    EXPECT_EQ(Matrix3x3(Math::IdentityInit, 3.0f)[1][2], 0.0f);
    const Matrix4 zero{Math::ZeroInit};
    for(const Float element: zero.data()) EXPECT_EQ(element, 0.0f);
    EXPECT_SAME(Matrix3{}, Matrix3x3{});
    EXPECT_SAME((Matrix3{{1.0f, 2.0f, 3.0f}, {4.0f, 5.0f, 6.0f}, {7.0f, 8.0f, 10.0f}}), A);
}

TEST(MatrixTest, columnsComeFirst) {
    EXPECT_EQ(A[1][2], 6.0f);
    const Float expected[]{1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f, 7.0f, 8.0f, 10.0f};
    for(std::size_t i = 0; i != 9; ++i) EXPECT_EQ(A.data()[i], expected[i]);
    Matrix3x3 b = A;
    b.data()[3] = -4.0f;
    b[2] = Vector3{};
    b[0][1] += 1.0f;
    EXPECT_SAME(b, (Matrix3x3{Vector3{1.0f, 3.0f, 3.0f}, Vector3{-4.0f, 5.0f, 6.0f}, Vector3{}}));
    EXPECT_SAME(A.row(1), (Vector3{2.0f, 5.0f, 8.0f}));
    EXPECT_SAME(A.diagonal(), (Vector3{1.0f, 5.0f, 10.0f}));
    EXPECT_EQ(A.trace(), 16.0f);
    EXPECT_SAME(A.transposed()[0], A.row(0));
    EXPECT_SAME(A.transposed().transposed(), A);
}

TEST(MatrixTest, rectangular) {
    const Math::RectangularMatrix<2, 3, Float> m{Vector3{1.0f, 2.0f, 3.0f}, Vector3{4.0f, 5.0f, 6.0f}};
    EXPECT_SAME((m * Vector2{1.0f, 2.0f}), (Vector3{9.0f, 12.0f, 15.0f}));
    EXPECT_SAME(m.row(2), (Vector2{3.0f, 6.0f}));
    EXPECT_SAME(m.transposed()[1], (Vector2{2.0f, 5.0f}));
    EXPECT_EQ(m.data()[5], 6.0f);
    EXPECT_EQ((Math::RectangularMatrix<2, 3, Int>{m}[1][2]), 6);
}

TEST(MatrixTest, products) {
    EXPECT_SAME((A * Vector3{1.0f, 2.0f, 3.0f}), (Vector3{30.0f, 36.0f, 45.0f}));
    EXPECT_SAME((A * A)[0], (A * A[0]));
    EXPECT_SAME((A * A)[2], (A * A[2]));
    EXPECT_SAME((A * Matrix3x3{}), A);
    EXPECT_SAME((Matrix3x3{} * A), A);
    EXPECT_SAME((A * 2.0f)[2], (Vector3{14.0f, 16.0f, 20.0f}));
    EXPECT_SAME((2.0f * A), (A * 2.0f));
    // What the left one does is done last.
    const Matrix2x2 scale{Vector2{2.0f, 0.0f}, Vector2{0.0f, 1.0f}}, swap{Vector2{0.0f, 1.0f}, Vector2{1.0f, 0.0f}};
    EXPECT_SAME((scale * swap * Vector2{3.0f, 5.0f}), (Vector2{10.0f, 3.0f}));
    static_assert(std::is_same_v<decltype(Matrix3{} * Matrix3{}), Matrix3>);
    static_assert(std::is_same_v<decltype(Matrix3{} * Vector3{}), Vector3>);
}

TEST(MatrixTest, comparesWithTolerance) {
    Matrix3x3 b = A;
    b[2][2] += 0.0001f;
    EXPECT_TRUE(b == A);
    b[2][2] += 0.001f;
    EXPECT_FALSE(b == A);
    EXPECT_TRUE(b != A);
}

TEST(MatrixTest, determinants) {
    EXPECT_EQ((Matrix2x2{Vector2{1.0f, 2.0f}, Vector2{3.0f, 4.0f}}.determinant()), -2.0f);
    EXPECT_FLOAT_EQ(A.determinant(), -3.0f);
    EXPECT_EQ(
        (Matrix4{{2.0f, 0.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 3.0f, 0.0f}, {0.0f, 5.0f, 0.0f, 0.0f}, {1.0f, 1.0f, 1.0f, 7.0f}}
                .determinant()),
        -210.0f);
}

template<class M> void expectInverse(MathTest::Random& random) {
    for(int i = 0; i != 200; ++i) {
        M m;
        for(Float& element: m.data()) element = Float(random.number(-1.0, 1.0));
        // Far enough from singular for a tight bound
        if(std::abs(m.determinant()) < 0.1f) continue;
        EXPECT_TRUE(near(M{m * m.inverted()}, M{}, 1e-4)) << MathTest::printed(m);
        EXPECT_TRUE(near(M{m.inverted() * m}, M{}, 1e-4)) << MathTest::printed(m);
        EXPECT_NEAR(m.determinant() * m.inverted().determinant(), 1.0f, 1e-3f);
        EXPECT_NEAR(m.transposed().determinant(), m.determinant(), 1e-5f);
    }
}

TEST(MatrixTest, inverses) {
    MathTest::Random random;
    expectInverse<Matrix2x2>(random);
    expectInverse<Matrix3x3>(random);
    expectInverse<Matrix4>(random);
}

TEST(MatrixTest, singularHasNoFiniteInverse) {
    const Matrix4 inverse = Matrix4{Math::ZeroInit}.inverted();
    for(const Float element: inverse.data()) EXPECT_FALSE(std::isfinite(element));
    EXPECT_EQ(Matrix3x3{Math::ZeroInit}.determinant(), 0.0f);
}

TEST(MatrixTest, isOrthogonal) {
    EXPECT_TRUE(Matrix3x3{}.isOrthogonal());
    EXPECT_FALSE(A.isOrthogonal());
    EXPECT_FALSE(Matrix3x3{Math::ZeroInit}.isOrthogonal());
    // A reflection is orthogonal too.
    Matrix3x3 reflection;
    reflection[0][0] = -1.0f;
    EXPECT_TRUE(reflection.isOrthogonal());
    for(const Float sign: {-1.0f, 1.0f}) {
        Matrix3x3 sheared;
        sheared[1][0] = sign * 0.9e-5f;
        EXPECT_TRUE(sheared.isOrthogonal());
        sheared[1][0] = sign * 1.1e-5f;
        EXPECT_FALSE(sheared.isOrthogonal());
        Matrix3x3 scaled;
        scaled[2][2] += sign * 0.9e-5f;
        EXPECT_TRUE(scaled.isOrthogonal());
        scaled[2][2] = 1.0f + sign * 1.1e-5f;
        EXPECT_FALSE(scaled.isOrthogonal());
    }
}

}
