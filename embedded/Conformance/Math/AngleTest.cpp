#include <type_traits>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Constants.h>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;

namespace {

// Numbers become angles explicitly only, and the other way round; the two units change into each other silently.
static_assert(!std::is_convertible_v<Float, Deg> && std::is_constructible_v<Deg, Float>);
static_assert(!std::is_convertible_v<Deg, Float> && std::is_constructible_v<Float, Deg>);
static_assert(std::is_convertible_v<Deg, Rad> && std::is_convertible_v<Rad, Deg>);
static_assert(!std::is_convertible_v<Math::Deg<Double>, Deg> && std::is_constructible_v<Deg, Math::Deg<Double>>);
static_assert(sizeof(Deg) == sizeof(Float) && std::is_trivially_copyable_v<Deg>);

static_assert(Float(30.0_degf) == 30.0f && Float(1.5_radf) == 1.5f);
static_assert(Double(30.0_deg) == 30.0 && Double(1.5_rad) == 1.5);
static_assert(Float(Deg{}) == 0.0f && Float(Rad{}) == 0.0f);
static_assert(Float(30.0_degf + 15.0_degf) == 45.0f && Float(30.0_degf - 45.0_degf) == -15.0f);
static_assert(Float(-30.0_degf) == -30.0f);
static_assert(Float(30.0_degf * 2.0f) == 60.0f && Float(2.0f * 30.0_degf) == 60.0f && Float(30.0_degf / 4.0f) == 7.5f);
static_assert(90.0_degf / 45.0_degf == 2.0f);
static_assert(1.0_degf < 2.0_degf && 2.0_degf > 1.0_degf && 2.0_degf <= 2.0_degf && 2.0_degf >= 2.0_degf);

TEST(AngleTest, degreesAndRadians) {
    for(const Float degrees: {-720.0f, -90.0f, 0.0f, 0.01f, 30.0f, 180.0f, 359.0f}) {
        EXPECT_FLOAT_EQ(Float(Rad{Deg{degrees}}), Float(Double(degrees) * Math::Constants<Double>::pi() / 180.0));
        EXPECT_FLOAT_EQ(Float(Deg{Rad{Deg{degrees}}}), degrees);
    }
    EXPECT_FLOAT_EQ(Float(Deg{1.0_radf}), 57.2957795f);
    const Rad assigned = 180.0_degf;
    EXPECT_EQ(Float(assigned), Constants::pi());
}

TEST(AngleTest, changesInPlace) {
    Deg angle = 30.0_degf;
    angle += 15.0_degf;
    EXPECT_EQ(Float(angle), 45.0f);
    angle -= 5.0_degf;
    EXPECT_EQ(Float(angle), 40.0f);
    angle *= 2.0f;
    EXPECT_EQ(Float(angle), 80.0f);
    angle /= 16.0f;
    EXPECT_EQ(Float(angle), 5.0f);
}

TEST(AngleTest, comparesWithTolerance) {
    EXPECT_TRUE(30.0_degf == Deg{30.0001f});
    EXPECT_FALSE(30.0_degf != Deg{30.0001f});
    EXPECT_FALSE(30.0_degf == Deg{30.001f});
    EXPECT_TRUE(30.0_degf != Deg{30.001f});
    EXPECT_FALSE(Deg{MathTest::NaN} == Deg{MathTest::NaN});
}

TEST(ConstantsTest, areRoundedToTheType) {
    static_assert(Constants::pi() == 3.14159274f && Constants::piHalf() == 1.57079637f);
    static_assert(Constants::tau() == 6.28318548f && Constants::sqrt2() == 1.41421354f);
    static_assert(Math::Constants<Double>::pi() == 3.141592653589793);
    EXPECT_TRUE(std::isinf(Constants::inf()) && Constants::inf() > 0.0f);
    EXPECT_TRUE(std::isnan(Constants::nan()));
}

struct Comparison {
    Float a, b;
    bool equal;
};

class FuzzyComparisonTest: public testing::TestWithParam<Comparison> {};

// Absolute difference near zero, relative to the sum elsewhere
TEST_P(FuzzyComparisonTest, equals) {
    const auto [a, b, equal] = GetParam();
    EXPECT_EQ(Math::TypeTraits<Float>::equals(a, b), equal);
    EXPECT_EQ(Math::TypeTraits<Float>::equals(b, a), equal);
    EXPECT_EQ(Vector2(1.0f, a) == Vector2(1.0f, b), equal);
    EXPECT_EQ(Vector2(a, 1.0f) != Vector2(b, 1.0f), !equal);
}

INSTANTIATE_TEST_SUITE_P(Values, FuzzyComparisonTest,
    testing::Values(Comparison{0.0f, 0.9e-5f, true}, Comparison{0.0f, 1.1e-5f, false},
        Comparison{-0.4e-5f, 0.5e-5f, true}, Comparison{1e-20f, 3e-20f, true}, Comparison{1.0f, 1.000018f, true},
        Comparison{1.0f, 1.000022f, false}, Comparison{1000.0f, 1000.01f, true}, Comparison{1000.0f, 1000.03f, false},
        Comparison{-1000.0f, -1000.01f, true}, Comparison{1.0f, -1.0f, false},
        Comparison{MathTest::Inf, MathTest::Inf, true}, Comparison{MathTest::Inf, -MathTest::Inf, false},
        Comparison{MathTest::Inf, 1.0f, false}, Comparison{MathTest::NaN, MathTest::NaN, false},
        Comparison{MathTest::NaN, 0.0f, false}));

TEST(TypeTraitsTest, tolerances) {
    EXPECT_EQ(Math::TypeTraits<Float>::epsilon(), 1.0e-5f);
    EXPECT_EQ(Math::TypeTraits<Double>::epsilon(), 1.0e-14);
    EXPECT_TRUE(Math::TypeTraits<Double>::equals(1.0, 1.0 + 1.5e-14));
    EXPECT_FALSE(Math::TypeTraits<Double>::equals(1.0, 1.0 + 3.0e-14));
    EXPECT_TRUE(Math::TypeTraits<Int>::equals(3, 3));
    EXPECT_FALSE(Math::TypeTraits<Int>::equals(3, 4));
}

}
