#include <Magnum/Math/Half.h>

#include "Expect.h"

using namespace Magnum;

namespace {

static_assert(sizeof(Half) == 2 && std::is_trivially_copyable_v<Half>);

struct Pattern {
    UnsignedShort bits;
    Float value;
};

class HalfTest: public testing::TestWithParam<Pattern> {};

TEST_P(HalfTest, isReadExactly) {
    const Float value{Half{GetParam().bits}};
    EXPECT_EQ(value, GetParam().value);
    EXPECT_EQ(std::signbit(value), std::signbit(GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(Values, HalfTest,
    testing::Values(Pattern{0x0000, 0.0f}, Pattern{0x8000, -0.0f}, Pattern{0x3c00, 1.0f}, Pattern{0xc080, -2.25f},
        Pattern{0x3555, 0.333251953125f}, Pattern{0x7bff, 65504.0f}, Pattern{0x0400, 0x1p-14f},
        // Denormals
        Pattern{0x0001, 0x1p-24f}, Pattern{0x83ff, -0x1.ff8p-15f}, Pattern{0x7c00, MathTest::Inf},
        Pattern{0xfc00, -MathTest::Inf}));

TEST(HalfTest, allNumbers) {
    for(UnsignedInt bits = 0; bits != 0x7c00; ++bits) {
        const Int exponent = Int(bits >> 10), fraction = Int(bits & 0x3ff);
        const double expected = exponent ? std::ldexp(1024 + fraction, exponent - 25) : std::ldexp(fraction, -24);
        ASSERT_EQ(double(Float(Half(UnsignedShort(bits)))), expected) << bits;
        ASSERT_EQ(double(Float(Half(UnsignedShort(bits | 0x8000)))), -expected) << bits;
    }
    for(UnsignedInt bits: {0x7c01u, 0x7e00u, 0xffffu})
        EXPECT_TRUE(std::isnan(Float(Half(UnsignedShort(bits))))) << bits;
}

}
