#include <Corrade/Containers/Pair.h>
#include <Magnum/Math/Color.h>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;
using MathTest::Inf;
using MathTest::NaN;

namespace {

static_assert(Math::min(1, 2) == 1 && Math::max(1, 2) == 2 && Math::clamp(5, 1, 3) == 3);
static_assert(Math::pow<3>(2) == 8 && Math::pow<0>(5.0f) == 1.0f);

TEST(FunctionsTest, minAndMax) {
    EXPECT_EQ(Math::min(2.0f, 3.0f), 2.0f);
    EXPECT_EQ(Math::max(2.0f, 3.0f), 3.0f);
    EXPECT_SAME(Math::min(2.0_degf, 3.0_degf), 2.0_degf);
    EXPECT_SAME(Math::min(Vector2(1.0f, 5.0f), Vector2(2.0f, 4.0f)), Vector2(1.0f, 4.0f));
    EXPECT_SAME(Math::max(Vector2(1.0f, 5.0f), Vector2(2.0f, 4.0f)), Vector2(2.0f, 5.0f));
    EXPECT_SAME(Math::min(Vector2(1.0f, 5.0f), 2.0f), Vector2(1.0f, 2.0f));
    EXPECT_SAME(Math::max(Vector2i(1, 5), 2), Vector2i(2, 5));
    EXPECT_EQ(Math::minmax(3, 1).first(), 1);
    EXPECT_EQ(Math::minmax(3, 1).second(), 3);
    EXPECT_SAME(Math::minmax(Vector2(3.0f, 1.0f), Vector2(2.0f, 5.0f)).first(), Vector2(2.0f, 1.0f));
    EXPECT_SAME(Math::minmax(Vector2(3.0f, 1.0f), Vector2(2.0f, 5.0f)).second(), Vector2(3.0f, 5.0f));
}

// The first argument stays unless the second is better, and nothing is better than NaN.
TEST(FunctionsTest, minAndMaxOfNaN) {
    EXPECT_TRUE(std::isnan(Math::min(NaN, 1.0f)));
    EXPECT_TRUE(std::isnan(Math::max(NaN, 1.0f)));
    EXPECT_EQ(Math::min(1.0f, NaN), 1.0f);
    EXPECT_EQ(Math::max(1.0f, NaN), 1.0f);
    EXPECT_TRUE(Math::isNan(Math::max(Vector2(NaN, 1.0f), Vector2(1.0f, NaN))) == Math::BitVector<2>{1});
}

TEST(FunctionsTest, clamp) {
    EXPECT_EQ(Math::clamp(0.5f, 0.0f, 1.0f), 0.5f);
    EXPECT_EQ(Math::clamp(-0.5f, 0.0f, 1.0f), 0.0f);
    EXPECT_EQ(Math::clamp(1.5f, 0.0f, 1.0f), 1.0f);
    EXPECT_EQ(Math::clamp(Inf, 0.0f, 1.0f), 1.0f);
    EXPECT_SAME(Math::clamp(95.0_degf, 0.0_degf, 90.0_degf), 90.0_degf);
    EXPECT_SAME(Math::clamp(Vector2(5.0f, -5.0f), Vector2(0.0f), Vector2(1.0f)), Vector2(1.0f, 0.0f));
    EXPECT_SAME(Math::clamp(Vector2(5.0f, -5.0f), 0.0f, 1.0f), Vector2(1.0f, 0.0f));
}

// Raised first, lowered then
TEST(FunctionsTest, clampToLimitsInTheWrongOrder) {
    for(const Int value: {0, 1, 2, 5}) EXPECT_EQ(Math::clamp(value, 2, 1), 1) << value;
}

TEST(FunctionsTest, clampOfNaN) {
    EXPECT_TRUE(std::isnan(Math::clamp(NaN, 0.0f, 1.0f)));
    EXPECT_EQ(Math::clamp(0.5f, NaN, 1.0f), 0.5f);
    EXPECT_EQ(Math::clamp(0.5f, 0.0f, NaN), 0.5f);
}

TEST(FunctionsTest, signAndAbs) {
    EXPECT_EQ(Math::sign(-3.0f), -1.0f);
    EXPECT_EQ(Math::sign(0.0f), 0.0f);
    EXPECT_EQ(Math::sign(7), 1);
    EXPECT_EQ(Math::sign(NaN), 0.0f);
    EXPECT_EQ(Math::sign(-3.0_degf), -1.0f);
    EXPECT_SAME(Math::sign(Vector2i(-3, 5)), Vector2i(-1, 1));
    EXPECT_EQ(Math::abs(-3), 3);
    EXPECT_EQ(Math::abs(-3.5f), 3.5f);
    EXPECT_SAME(Math::abs(-3.0_degf), 3.0_degf);
    EXPECT_SAME(Math::abs(Vector2(-1.0f, 2.0f)), Vector2(1.0f, 2.0f));
}

TEST(FunctionsTest, rounding) {
    EXPECT_EQ(Math::floor(-1.5f), -2.0f);
    EXPECT_EQ(Math::ceil(-1.5f), -1.0f);
    EXPECT_EQ(Math::round(-1.5f), -2.0f);
    EXPECT_EQ(Math::round(2.5f), 3.0f);
    EXPECT_EQ(Math::round(0.49999997f), 0.0f);
    EXPECT_SAME(Math::floor(2.5_degf), 2.0_degf);
    EXPECT_SAME(Math::ceil(Vector2(1.2f, -1.2f)), Vector2(2.0f, -1.0f));
    EXPECT_SAME(Math::round(Vector2(1.2f, -1.6f)), Vector2(1.0f, -2.0f));
}

TEST(FunctionsTest, fmodHasTheSignOfTheDividend) {
    EXPECT_EQ(Math::fmod(-370.0f, 360.0f), -10.0f);
    EXPECT_EQ(Math::fmod(370.0f, -360.0f), 10.0f);
    EXPECT_EQ(Math::fmod(725.0f, 360.0f), 5.0f);
    EXPECT_SAME(Math::fmod(Vector2(5.0f, -7.0f), 3.0f), Vector2(2.0f, -1.0f));
    EXPECT_SAME(Math::fmod(Vector2(5.0f, -7.0f), Vector2(3.0f, 4.0f)), Vector2(2.0f, -3.0f));
    EXPECT_TRUE(std::isnan(Math::fmod(1.0f, 0.0f)));
}

TEST(FunctionsTest, lerp) {
    EXPECT_EQ(Math::lerp(2.0f, 5.0f, 0.5f), 3.5f);
    EXPECT_EQ(Math::lerp(2.0f, 5.0f, 0.0f), 2.0f);
    EXPECT_EQ(Math::lerp(2.0f, 5.0f, 1.0f), 5.0f);
    EXPECT_EQ(Math::lerp(2.0f, 4.0f, 1.5f), 5.0f);
    EXPECT_EQ(Math::lerp(3, 8, 0.5f), 5);
    EXPECT_SAME(Math::lerp(10.0_degf, 20.0_degf, 0.25f), 12.5_degf);
    EXPECT_SAME(Math::lerp(Vector2(0.0f), Vector2(2.0f, 4.0f), 0.5f), Vector2(1.0f, 2.0f));
    EXPECT_SAME(Math::lerp(Vector2(0.0f), Vector2(2.0f, 4.0f), Vector2(0.5f, 1.0f)), Vector2(1.0f, 4.0f));
    EXPECT_SAME(Math::lerp(Vector3ub(0, 128, 64), Vector3ub(16, 0, 32), 0.25f), Vector3ub(4, 96, 56));
    EXPECT_SAME(Math::lerp(0xff0000_rgbf, 0x0000ff_rgbf, 0.5f).toHsv().hue, 300.0_degf);
}

TEST(FunctionsTest, lerpInverted) {
    EXPECT_EQ(Math::lerpInverted(2.0f, 5.0f, 3.5f), 0.5f);
    EXPECT_EQ(Math::lerpInverted(2.0f, 4.0f, 5.0f), 1.5f);
    EXPECT_SAME(Math::lerpInverted(Vector2(0.0f), Vector2(2.0f, 4.0f), Vector2(1.0f)), Vector2(0.5f, 0.25f));
}

TEST(FunctionsTest, select) {
    EXPECT_EQ(Math::select(1.0f, 2.0f, 0.999f), 1.0f);
    EXPECT_EQ(Math::select(1.0f, 2.0f, 1.0f), 2.0f);
    EXPECT_SAME(Math::select(Vector2(1.0f), Vector2(2.0f), 1.0f), Vector2(2.0f));
    EXPECT_SAME(Math::select(Vector2(1.0f), Vector2(2.0f), Vector2(0.5f, 1.5f)), Vector2(1.0f, 2.0f));
    EXPECT_SAME(Math::select(Quaternion{}, Quaternion({1.0f, 0.0f, 0.0f}, 0.0f), 0.5f), Quaternion{});
}

TEST(FunctionsTest, powersAndRoots) {
    EXPECT_FLOAT_EQ(Math::pow(2.0f, 0.5f), Constants::sqrt2());
    EXPECT_SAME(Math::pow(Vector2(2.0f, 3.0f), 2.0f), Vector2(4.0f, 9.0f));
    EXPECT_EQ(Math::sqrt(16.0f), 4.0f);
    EXPECT_SAME(Math::sqrt(Vector2(4.0f, 9.0f)), Vector2(2.0f, 3.0f));
    EXPECT_EQ(Math::sqrtInverted(4.0f), 0.5f);
    EXPECT_EQ(Math::sqrtInverted(0.0f), Inf);
    EXPECT_SAME(Math::sqrtInverted(Vector2(4.0f, 16.0f)), Vector2(0.5f, 0.25f));
    EXPECT_FLOAT_EQ(Math::exp(1.0f), 2.71828183f);
    EXPECT_FLOAT_EQ(Math::log(256.0f), 5.54517744f);
}

TEST(FunctionsTest, notFinite) {
    EXPECT_TRUE(Math::isNan(NaN));
    EXPECT_FALSE(Math::isNan(Inf));
    EXPECT_TRUE(Math::isInf(-Inf));
    EXPECT_FALSE(Math::isInf(1.0f));
    EXPECT_TRUE(Math::isNan(Deg{NaN}));
    EXPECT_TRUE(Math::isNan(Vector2(NaN, 1.0f)) == Math::BitVector<2>{1});
    EXPECT_TRUE(Math::isInf(Vector3(1.0f, -Inf, Inf)) == Math::BitVector<3>{6});
}

TEST(FunctionsTest, reflectAndRefract) {
    EXPECT_SAME(Math::reflect(Vector3(1.0f, -1.0f, 0.0f), Vector3::yAxis()), Vector3(1.0f, 1.0f, 0.0f));
    // Straight on, whatever the ratio
    EXPECT_SAME(Math::refract(-Vector3::yAxis(), Vector3::yAxis(), 1.5f), -Vector3::yAxis());
    // sin(out) = eta*sin(in)
    const Float eta = 1.0f / 1.5f, in = 0.7f;
    const Vector3 out = Math::refract(Vector3(std::sin(in), -std::cos(in), 0.0f), Vector3::yAxis(), eta);
    const Float angle = std::asin(eta * std::sin(in));
    EXPECT_SAME(out, Vector3(std::sin(angle), -std::cos(angle), 0.0f));
    // Total reflection
    EXPECT_SAME(Math::refract(Vector3(1.0f, -1.0f, 0.0f).normalized(), Vector3::yAxis(), 1.5f), Vector3{});
}

TEST(FunctionsTest, fmaRoundsOnce) {
    EXPECT_EQ(Math::fma(2.0f, 3.0f, 4.0f), 10.0f);
    EXPECT_SAME(Math::fma(Vector2(2.0f), Vector2(3.0f), Vector2(4.0f, 5.0f)), Vector2(10.0f, 11.0f));
    const Float a = 1.0f + 0x1p-23f;
    EXPECT_EQ(Math::fma(a, a, -(1.0f + 0x1p-22f)), 0x1p-46f);
}

TEST(FunctionsTest, trigonometry) {
    EXPECT_FLOAT_EQ(Math::sin(30.0_degf), 0.5f);
    EXPECT_FLOAT_EQ(Math::sin(0.5_radf), 0.479425539f);
    EXPECT_FLOAT_EQ(Math::cos(60.0_degf), 0.5f);
    EXPECT_FLOAT_EQ(Math::cos(0.5_radf), 0.877582562f);
    EXPECT_FLOAT_EQ(Math::tan(45.0_degf), 1.0f);
    EXPECT_FLOAT_EQ(Math::tan(0.5_radf), 0.546302490f);
    EXPECT_FLOAT_EQ(Math::sincos(30.0_degf).first(), 0.5f);
    EXPECT_FLOAT_EQ(Math::sincos(30.0_degf).second(), 0.866025404f);
    EXPECT_FLOAT_EQ(Math::sincos(0.5_radf).second(), 0.877582562f);
    EXPECT_SAME(Deg{Math::asin(0.5f)}, 30.0_degf);
    EXPECT_SAME(Deg{Math::acos(0.5f)}, 60.0_degf);
    EXPECT_SAME(Deg{Math::atan(1.0f)}, 45.0_degf);
    EXPECT_SAME(Deg{Math::atan(Inf)}, 90.0_degf);
    EXPECT_TRUE(std::isnan(Float(Math::acos(1.1f))));
    // An expression of angles is an angle.
    EXPECT_FLOAT_EQ(Math::sin(15.0_degf * 2.0f), 0.5f);
}

TEST(FunctionsTest, integerFunctions) {
    EXPECT_EQ(Math::log2(1u), 0u);
    EXPECT_EQ(Math::log2(1023u), 9u);
    EXPECT_EQ(Math::log2(1024u), 10u);
    EXPECT_EQ(Math::log2(0xffffffffu), 31u);
    EXPECT_EQ(Math::log(10u, 999u), 2u);
    EXPECT_EQ(Math::log(10u, 1000u), 3u);
    EXPECT_EQ(Math::popcount(0xffu), 8u);
    EXPECT_EQ(Math::popcount(UnsignedLong{0xf00000000000000f}), 8u);
    EXPECT_EQ(Math::div(57, 6).first(), 9);
    EXPECT_EQ(Math::div(57, 6).second(), 3);
    EXPECT_EQ(Math::div(-57, 6).first(), -9);
    EXPECT_EQ(Math::div(-57, 6).second(), -3);
}

}
