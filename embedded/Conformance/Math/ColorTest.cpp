#include <type_traits>

#include <Magnum/Math/Color.h>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;

namespace {

static_assert(sizeof(Color3) == 12 && sizeof(Color4) == 16 && sizeof(Color3ub) == 3 && sizeof(Color4ub) == 4);
static_assert(std::is_trivially_copyable_v<Color4>);
static_assert(std::is_convertible_v<Vector3, Color3> && std::is_convertible_v<Vector4, Color4>);
static_assert(std::is_convertible_v<Color3, Color4> && !std::is_convertible_v<Float, Color4>);
static_assert(!std::is_convertible_v<Color4ub, Color4>);

constexpr Color4ub Bytes = 0x01a2fF40_rgba;
static_assert(Bytes.r() == 0x01 && Bytes.g() == 0xa2 && Bytes.b() == 0xff && Bytes.a() == 0x40);
constexpr Color3ub Opaque = 0x01a2ff_rgb;
static_assert(Opaque.r() == 0x01 && Opaque.g() == 0xa2 && Opaque.b() == 0xff);
constexpr Color3 Green = 0xaaffaa_rgbf;
static_assert(Green.g() == 1.0f && Green.r() == Green.b() && Green.r() > 0.66666f && Green.r() < 0.66667f);
constexpr Color4 Wire = 0xaaffaa80_rgbaf;
static_assert(Wire.g() == 1.0f && Wire.a() > 0.50196f && Wire.a() < 0.50197f);
static_assert(Color4{0.25f}.r() == 0.25f && Color4{0.25f}.a() == 1.0f && Color4{0.25f, 0.5f}.a() == 0.5f);
static_assert(Color4{0.1f, 0.2f, 0.3f}.a() == 1.0f && Color4ub{1, 2, 3}.a() == 255);
static_assert(Color4{Color3{1.0f, 2.0f, 3.0f}}.a() == 1.0f && Color4{Color3{1.0f}, 0.5f}.a() == 0.5f);
static_assert(Color4{}.a() == 0.0f && Color3{}.r() == 0.0f);

TEST(ColorTest, channelsAreReferences) {
    Color4 color = 0xff800040_rgbaf;
    color.r() = 0.5f;
    color.a() = 1.0f;
    color.rgb() *= 2.0f;
    EXPECT_SAME(color, (Color4{1.0f, 256.0f / 255.0f, 0.0f, 1.0f}));
    color.xyz() = Color3::blue();
    EXPECT_SAME(color, Color4::blue());
    const Color4 constant = color;
    EXPECT_SAME(constant.rgb(), Color3::blue());
    Color3 three{0.1f, 0.2f, 0.3f};
    three.g() += 1.0f;
    three.b() = 0.0f;
    EXPECT_SAME(three, (Color3{0.1f, 1.2f, 0.0f}));
}

TEST(ColorTest, arithmeticKeepsTheType) {
    static_assert(std::is_same_v<decltype(Color3{} * 2.0f + Vector3{}), Color3>);
    static_assert(std::is_same_v<decltype(0.5f * Color4{}), Color4>);
    EXPECT_SAME((0x204060_rgb * 1.5f), 0x306090_rgb);
    EXPECT_SAME((Color3{0.1f, 0.2f, 0.3f} * 2.0f), (Color3{0.2f, 0.4f, 0.6f}));
}

TEST(ColorTest, namedColours) {
    EXPECT_SAME(Color3::red(), (Color3{1.0f, 0.0f, 0.0f}));
    EXPECT_SAME(Color3::green(0.5f), (Color3{0.0f, 0.5f, 0.0f}));
    EXPECT_SAME(Color3::blue(), (Color3{0.0f, 0.0f, 1.0f}));
    EXPECT_SAME(Color3::cyan(), (Color3{0.0f, 1.0f, 1.0f}));
    EXPECT_SAME(Color3::magenta(0.25f), (Color3{1.0f, 0.25f, 1.0f}));
    EXPECT_SAME(Color3::yellow(), (Color3{1.0f, 1.0f, 0.0f}));
    EXPECT_SAME(Color4::red(0.5f, 0.25f), (Color4{0.5f, 0.0f, 0.0f, 0.25f}));
    EXPECT_SAME(Color4::green(), (Color4{0.0f, 1.0f, 0.0f, 1.0f}));
    EXPECT_SAME(Color4::cyan(0.75f), (Color4{0.75f, 1.0f, 1.0f, 1.0f}));
    EXPECT_SAME(Color4::magenta(), (Color4{1.0f, 0.0f, 1.0f, 1.0f}));
    EXPECT_SAME(Color4::yellow(0.5f, 0.0f), (Color4{1.0f, 1.0f, 0.5f, 0.0f}));
    EXPECT_SAME(Color3ub::red(), 0xff0000_rgb);
    EXPECT_SAME(Color4ub::cyan(), 0x00ffffff_rgba);
}

TEST(ColorTest, srgbThereAndBack) {
    for(UnsignedInt i = 0; i != 256; ++i) {
        const UnsignedInt srgb = i << 16 | (255 - i) << 8 | (i ^ 0x55);
        EXPECT_EQ(Color3::fromSrgbInt(srgb).toSrgbInt(), srgb);
        EXPECT_EQ(Color4::fromSrgbAlphaInt(srgb << 8 | i).toSrgbAlphaInt(), srgb << 8 | i);
        const double v = i / 255.0;
        EXPECT_NEAR(Color3::fromSrgbInt(i).b(), v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4), 1e-6);
    }
}

TEST(ColorTest, srgb) {
    const Color3 linear{0.0331048f, 0.445201f, 0.212231f};
    EXPECT_SAME(0x33b27f_srgbf, linear);
    EXPECT_SAME(Color3::fromSrgb(Vector3{0.2f, 178.0f / 255.0f, 127.0f / 255.0f}), linear);
    EXPECT_SAME(linear.toSrgb(), Vector3(0.2f, 178.0f / 255.0f, 127.0f / 255.0f));
    EXPECT_SAME(Color4::fromSrgb(Vector3{0.2f, 178.0f / 255.0f, 127.0f / 255.0f}, 0.5f), Color4(linear, 0.5f));
    EXPECT_SAME(Color4::fromSrgbInt(0x33b27f), Color4(linear, 1.0f));
    // Alpha is linear everywhere.
    const Color4 transparent{linear, 64.0f / 255.0f};
    EXPECT_SAME(Color4::fromSrgbAlphaInt(0x33b27f40), transparent);
    EXPECT_SAME(Color4::fromSrgbAlpha(transparent.toSrgbAlpha()), transparent);
    EXPECT_EQ(transparent.toSrgbAlpha().w(), 64.0f / 255.0f);
}

struct Hsv {
    Float hue, saturation, value;
    Color3 color;
};

class HsvTest: public testing::TestWithParam<Hsv> {};

TEST_P(HsvTest, toColour) {
    const Hsv& p = GetParam();
    for(const Float turns: {-720.0f, -360.0f, 0.0f, 360.0f}) {
        EXPECT_TRUE(MathTest::near(Color3::fromHsv({Deg{p.hue + turns}, p.saturation, p.value}), p.color, 1e-5))
            << turns;
        EXPECT_TRUE(MathTest::near(
            Color4::fromHsv({Deg{p.hue + turns}, p.saturation, p.value}, 0.5f), Color4{p.color, 0.5f}, 1e-5))
            << turns;
    }
}
TEST_P(HsvTest, fromColour) {
    const Hsv& p = GetParam();
    const auto hsv = p.color.toHsv();
    EXPECT_NEAR(Float(hsv.hue), p.hue, 1e-3f);
    EXPECT_NEAR(hsv.saturation, p.saturation, 1e-5f);
    EXPECT_NEAR(hsv.value, p.value, 1e-5f);
    EXPECT_SAME((Color4{p.color, 0.5f}.toHsv().hue), hsv.hue);
}

INSTANTIATE_TEST_SUITE_P(Colours, HsvTest,
    testing::Values(Hsv{0.0f, 1.0f, 1.0f, {1.0f, 0.0f, 0.0f}}, Hsv{30.0f, 1.0f, 1.0f, {1.0f, 0.5f, 0.0f}},
        Hsv{60.0f, 1.0f, 1.0f, {1.0f, 1.0f, 0.0f}}, Hsv{90.0f, 1.0f, 1.0f, {0.5f, 1.0f, 0.0f}},
        Hsv{120.0f, 1.0f, 1.0f, {0.0f, 1.0f, 0.0f}}, Hsv{180.0f, 1.0f, 1.0f, {0.0f, 1.0f, 1.0f}},
        Hsv{210.0f, 0.5f, 0.8f, {0.4f, 0.6f, 0.8f}}, Hsv{240.0f, 1.0f, 0.5f, {0.0f, 0.0f, 0.5f}},
        Hsv{300.0f, 1.0f, 1.0f, {1.0f, 0.0f, 1.0f}}, Hsv{330.0f, 1.0f, 1.0f, {1.0f, 0.0f, 0.5f}},
        // No colour: hue 0; black: saturation 0 as well
        Hsv{0.0f, 0.0f, 0.25f, {0.25f, 0.25f, 0.25f}}, Hsv{0.0f, 0.0f, 0.0f, {0.0f, 0.0f, 0.0f}}));

}
