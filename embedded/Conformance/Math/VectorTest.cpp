#include <type_traits>

#include <Corrade/Containers/Pair.h>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;
using MathTest::Inf;
using MathTest::NaN;

namespace {

static_assert(sizeof(Vector2) == 8 && sizeof(Vector3) == 12 && sizeof(Vector4) == 16 && sizeof(Vector3ub) == 3);
static_assert(std::is_trivially_copyable_v<Vector3> && std::is_standard_layout_v<Vector4>);
static_assert(Vector3::Size == 3 && std::is_same_v<Vector3i::Type, Int>);

// One number is spread explicitly only, another component type is converted explicitly only.
static_assert(!std::is_convertible_v<Float, Vector3> && std::is_constructible_v<Vector3, Float>);
static_assert(!std::is_convertible_v<Vector3, Vector3i> && std::is_constructible_v<Vector3i, Vector3>);
static_assert(!std::is_convertible_v<Vector3i, Vector3> && std::is_constructible_v<Vector3, Vector3i>);
static_assert(std::is_convertible_v<Math::Vector<3, Float>, Vector3>);

constexpr Vector3 A{1.0f, 2.5f, -3.0f};
static_assert(A.x() == 1.0f && A.y() == 2.5f && A.z() == -3.0f && A[1] == 2.5f);
constexpr Vector3 Zero;
static_assert(Zero[0] == 0.0f && Zero[1] == 0.0f && Zero[2] == 0.0f);
constexpr Vector4 Spread{7.0f};
static_assert(Spread[0] == 7.0f && Spread[3] == 7.0f);
constexpr Vector4 Extended{A, 4.0f};
static_assert(Extended.z() == -3.0f && Extended.w() == 4.0f);
constexpr Vector3 FromTwo{Vector2{1.0f, 2.0f}, 3.0f};
static_assert(FromTwo[1] == 2.0f && FromTwo[2] == 3.0f);
constexpr Vector3i Truncated{Vector3{1.9f, -1.9f, 0.99f}};
static_assert(Truncated[0] == 1 && Truncated[1] == -1 && Truncated[2] == 0);
constexpr Vector3 Sum = A + Vector3{1.0f}, Difference = A - Vector3{1.0f}, Negative = -A;
static_assert(Sum[2] == -2.0f && Difference[0] == 0.0f && Negative[1] == -2.5f);
constexpr Vector3 Twice = 2.0f * A, Half = A / 2.0f, Product = A * A, Quotient = A / A, Inverse = 1.0f / A;
static_assert(Twice[1] == 5.0f && Half[1] == 1.25f && Product[2] == 9.0f && Quotient[2] == 1.0f && Inverse[0] == 1.0f);
constexpr Vector3 Flipped = A.flipped();
static_assert(Flipped[0] == -3.0f && Flipped[2] == 1.0f);

TEST(VectorTest, componentsAreReferences) {
    Vector4 v{1.0f, 2.0f, 3.0f, 4.0f};
    v.x() = 10.0f;
    v.w() += 1.0f;
    EXPECT_EQ(v[0], 10.0f);
    EXPECT_EQ(v[3], 5.0f);
    v.xy() = Vector2{-1.0f, -2.0f};
    EXPECT_SAME(v, (Vector4{-1.0f, -2.0f, 3.0f, 5.0f}));
    v.xyz() *= 2.0f;
    EXPECT_SAME(v, (Vector4{-2.0f, -4.0f, 6.0f, 5.0f}));
    v.xyz().xy() += Vector2{1.0f};
    EXPECT_EQ(v[0] + v[1], -4.0f);
    Vector3 w{1.0f, 2.0f, 3.0f};
    w.xy() = w.xy().flipped();
    EXPECT_SAME(w, (Vector3{2.0f, 1.0f, 3.0f}));
    Float(&data)[3] = w.data();
    data[2] = 9.0f;
    EXPECT_EQ(w.z(), 9.0f);
}

TEST(VectorTest, valuesOfConstantVectors) {
    const Vector4 v{1.0f, 2.0f, 3.0f, 4.0f};
    EXPECT_SAME(v.xyz(), (Vector3{1.0f, 2.0f, 3.0f}));
    EXPECT_SAME(v.xy(), (Vector2{1.0f, 2.0f}));
    EXPECT_EQ(v.data()[3], 4.0f);
}

// The operators give back the type of their left side, so that its own members are there.
TEST(VectorTest, operatorsKeepTheType) {
    const Vector3 a{1.0f, 2.0f, 3.0f};
    static_assert(std::is_same_v<decltype(a + a), Vector3> && std::is_same_v<decltype(2.0f * a), Vector3>);
    static_assert(std::is_same_v<decltype(-a), Vector3> && std::is_same_v<decltype(a.normalized()), Vector3>);
    EXPECT_EQ((a * 2).z(), 6.0f);
    EXPECT_EQ((a / 2).z(), 1.5f);
    EXPECT_EQ((2 * a).xy().y(), 4.0f);
    EXPECT_EQ(a.resized(1.0f).xy().x(), a.normalized().x());
    EXPECT_EQ(a.projected(a).xy().x(), 1.0f);
}

TEST(VectorTest, changesInPlace) {
    Vector3 v{1.0f, 2.0f, 3.0f};
    v += Vector3{1.0f};
    v -= Vector3{0.0f, 0.0f, 1.0f};
    v *= 2.0f;
    v *= Vector3{1.0f, 2.0f, 1.0f};
    v /= 4;
    v /= Vector3{1.0f, 1.0f, 3.0f};
    EXPECT_SAME(v, (Vector3{1.0f, 3.0f, 0.5f}));
    Vector2i i{3, 5};
    i *= 1.5f;
    EXPECT_SAME(i, (Vector2i{4, 7}));
    i /= 2.0f;
    EXPECT_SAME(i, (Vector2i{2, 3}));
}

TEST(VectorTest, integers) {
    EXPECT_SAME((Vector2i{7, -7} % 2), (Vector2i{1, -1}));
    EXPECT_SAME((Vector2i{7, -7} % Vector2i{3, 2}), (Vector2i{1, -1}));
    EXPECT_SAME((Vector2i{7, -7} / 2), (Vector2i{3, -3}));
    EXPECT_SAME((Vector2i{6, 5} & Vector2i{3}), (Vector2i{2, 1}));
    EXPECT_SAME((Vector2i{6, 5} | Vector2i{1, 2}), (Vector2i{7, 7}));
    EXPECT_SAME((Vector2i{1, 2} << 3), (Vector2i{8, 16}));
    EXPECT_SAME((Vector2i{16, 9} >> 2), (Vector2i{4, 2}));
    EXPECT_SAME((Vector3ub{200, 100, 0} + Vector3ub{100, 100, 1}), (Vector3ub{44, 200, 1}));
    EXPECT_FALSE((Vector2i{1, 2} == Vector2i{1, 3}));
}

// The factor is not cut off first.
TEST(VectorTest, integersByFloatingPointNumbers) {
    EXPECT_SAME((Vector3i{3, 4, -3} * 1.5f), (Vector3i{4, 6, -4}));
    EXPECT_SAME((1.5f * Vector3i{3, 4, -3}), (Vector3i{4, 6, -4}));
    EXPECT_SAME((Vector3i{3, 4, -3} / 1.5f), (Vector3i{2, 2, -2}));
    EXPECT_SAME((Vector2i{3, 5} * Vector2{1.5f, 0.5f}), (Vector2i{4, 2}));
    EXPECT_SAME((Vector2i{3, 5} / Vector2{1.5f, 0.5f}), (Vector2i{2, 10}));
}

TEST(VectorTest, comparisonPerComponent) {
    const Vector3 a{1.0f, 2.0f, 3.0f}, b{1.0f, 3.0f, 2.0f};
    EXPECT_TRUE((a < b) == Math::BitVector<3>{2});
    EXPECT_TRUE((a <= b) == Math::BitVector<3>{3});
    EXPECT_TRUE((a > b) == Math::BitVector<3>{4});
    EXPECT_TRUE((a >= b) == Math::BitVector<3>{5});
    EXPECT_TRUE((a < b)[1]);
    EXPECT_FALSE((a < b)[0]);
    EXPECT_TRUE((a < b).any());
    EXPECT_FALSE((a < b).all());
    EXPECT_FALSE(bool(a < b));
    EXPECT_TRUE((a < a).none());
    EXPECT_TRUE((a <= a).all());
    EXPECT_TRUE(bool(a <= a));
    // Exactly, unlike equality
    EXPECT_TRUE((Vector2{1.0f} < Vector2{1.000001f}).all());
    EXPECT_TRUE((Vector2{1.0f} == Vector2{1.000001f}));
    // NaN is in no order to anything.
    EXPECT_TRUE((Vector2{NaN, 1.0f} < Vector2{1.0f, 2.0f}) == Math::BitVector<2>{2});
    EXPECT_TRUE((Vector2{NaN, 1.0f} >= Vector2{1.0f, 2.0f}).none());
}

TEST(VectorTest, bitsBeyondTheSizeDoNotCount) {
    EXPECT_TRUE(Math::BitVector<2>{3}.all());
    EXPECT_FALSE(Math::BitVector<2>{1}.all());
    EXPECT_FALSE(Math::BitVector<2>{}.any());
    EXPECT_TRUE(Math::BitVector<2>{1} != Math::BitVector<2>{2});
}

TEST(VectorTest, lengths) {
    const Vector3 v{2.0f, 3.0f, 6.0f};
    EXPECT_EQ(v.dot(), 49.0f);
    EXPECT_EQ(v.length(), 7.0f);
    EXPECT_FLOAT_EQ(v.lengthInverted(), 1.0f / 7.0f);
    EXPECT_SAME(v.normalized(), (Vector3{2.0f / 7.0f, 3.0f / 7.0f, 6.0f / 7.0f}));
    EXPECT_SAME(v.resized(14.0f), (Vector3{4.0f, 6.0f, 12.0f}));
    EXPECT_SAME((Vector3{1.0f, 2.0f, 3.0f}.projected({0.0f, 2.0f, 0.0f})), (Vector3{0.0f, 2.0f, 0.0f}));
}

TEST(VectorTest, zeroCannotBeNormalized) {
    const Vector3 v = Vector3{}.normalized();
    EXPECT_TRUE(std::isnan(v.x()) && std::isnan(v.y()) && std::isnan(v.z()));
}

TEST(VectorTest, isNormalizedWithinTwiceTheTolerance) {
    for(const Float error: {0.0f, 0.9e-5f, -0.9e-5f})
        EXPECT_TRUE((Vector2{1.0f + error, 0.0f}).isNormalized()) << error;
    for(const Float error: {1.1e-5f, -1.1e-5f, 1.0f, -1.0f, NaN, Inf})
        EXPECT_FALSE((Vector2{1.0f + error, 0.0f}).isNormalized()) << error;
}

TEST(VectorTest, isZeroWithTolerance) {
    EXPECT_TRUE(Vector3{}.isZero());
    EXPECT_TRUE(Vector3{0.9e-5f}.isZero());
    EXPECT_FALSE((Vector3{0.0f, 0.0f, -1.1e-5f}).isZero());
    EXPECT_TRUE(Vector2i{}.isZero());
    EXPECT_FALSE((Vector2i{0, 1}).isZero());
}

TEST(VectorTest, reductions) {
    const Vector4i v{3, -1, 2, 5};
    EXPECT_EQ(v.sum(), 9);
    EXPECT_EQ(v.product(), -30);
    EXPECT_EQ(v.min(), -1);
    EXPECT_EQ(v.max(), 5);
    EXPECT_EQ(v.minmax().first(), -1);
    EXPECT_EQ(v.minmax().second(), 5);
}

TEST(VectorTest, minAndMaxSkipNaN) {
    for(const Vector2& v: {Vector2{NaN, 2.0f}, Vector2{2.0f, NaN}}) {
        EXPECT_EQ(v.min(), 2.0f);
        EXPECT_EQ(v.max(), 2.0f);
        EXPECT_EQ(v.minmax().first(), 2.0f);
        EXPECT_EQ(v.minmax().second(), 2.0f);
    }
    EXPECT_TRUE(std::isnan((Vector2{NaN, NaN}).min()));
    EXPECT_TRUE(std::isnan((Vector2{NaN, NaN}).max()));
    EXPECT_EQ((Vector3{NaN, 5.0f, NaN}).max(), 5.0f);
    EXPECT_EQ((Vector3{NaN, Inf, -Inf}).min(), -Inf);
}

TEST(VectorTest, axesAndScales) {
    static_assert(Vector3::xAxis()[0] == 1.0f && Vector3::yAxis(2.0f)[1] == 2.0f && Vector3::zAxis()[2] == 1.0f);
    EXPECT_SAME(Vector3::yAxis(2.0f), (Vector3{0.0f, 2.0f, 0.0f}));
    EXPECT_SAME(Vector3::xScale(2.0f), (Vector3{2.0f, 1.0f, 1.0f}));
    EXPECT_SAME(Vector3::yScale(2.0f), (Vector3{1.0f, 2.0f, 1.0f}));
    EXPECT_SAME(Vector3::zScale(2.0f), (Vector3{1.0f, 1.0f, 2.0f}));
    EXPECT_FLOAT_EQ((Vector2{16.0f, 9.0f}.aspectRatio()), 16.0f / 9.0f);
}

TEST(VectorTest, dotAndCross) {
    EXPECT_EQ(Math::dot(Vector3{1.0f, 2.0f, 3.0f}, Vector3{4.0f, 5.0f, 6.0f}), 32.0f);
    EXPECT_EQ(Math::dot(Vector2i{1, 2}, Vector2i{3, 4}), 11);
    EXPECT_SAME(Math::cross(Vector3::xAxis(), Vector3::yAxis()), Vector3::zAxis());
    EXPECT_SAME(Math::cross(Vector3{1.0f, 2.0f, 3.0f}, Vector3{-4.0f, 5.0f, 6.0f}), (Vector3{-3.0f, -18.0f, 13.0f}));
    static_assert(std::is_same_v<decltype(Math::cross(Vector3{}, Vector3{})), Vector3>);
}

TEST(VectorTest, angles) {
    EXPECT_SAME(Deg{Math::angle(Vector3::xAxis(), Vector3::yAxis())}, 90.0_degf);
    EXPECT_SAME(Deg{Math::angle(Vector3::xAxis(), -Vector3::xAxis())}, 180.0_degf);
    // Rounding errors do not make NaNs of it.
    EXPECT_EQ(Float(Math::angle(Vector3{1.0f, 0.0f, 0.0f}, Vector3{1.000005f, 0.0f, 0.0f})), 0.0f);
    MathTest::Random random;
    for(int i = 0; i != 200; ++i) {
        const Vector3 a = random.direction(), b = random.direction();
        double cosine = 0;
        for(std::size_t j = 0; j != 3; ++j) cosine += double(a[j]) * double(b[j]);
        EXPECT_NEAR(Float(Math::angle(a, b)), std::acos(cosine), 1e-5) << i;
    }
}

}
