#include <Magnum/Math/Color.h>
#include <Magnum/Math/Packing.h>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;

namespace {

TEST(PackingTest, bytesToNumbers) {
    for(UnsignedInt i = 0; i != 256; ++i) {
        const Float value = Math::unpack<Float>(UnsignedByte(i));
        EXPECT_FLOAT_EQ(value, Float(i / 255.0));
        EXPECT_EQ(Math::pack<UnsignedByte>(value), i);
    }
}

TEST(PackingTest, shortsThereAndBack) {
    UnsignedInt different = 0;
    for(UnsignedInt i = 0; i != 65536; ++i)
        different += Math::pack<UnsignedShort>(Math::unpack<Float>(UnsignedShort(i))) != i;
    EXPECT_EQ(different, 0u);
}

// The lowest number of a signed type is one more than the range.
TEST(PackingTest, signedNumbers) {
    EXPECT_EQ(Math::unpack<Float>(Byte(127)), 1.0f);
    EXPECT_EQ(Math::unpack<Float>(Byte(0)), 0.0f);
    EXPECT_EQ(Math::unpack<Float>(Byte(-127)), -1.0f);
    EXPECT_EQ(Math::unpack<Float>(Byte(-128)), -1.0f);
    EXPECT_EQ(Math::pack<Byte>(-1.0f), -127);
    EXPECT_EQ(Math::pack<Byte>(1.0f), 127);
    EXPECT_EQ(Math::pack<Short>(1.0f), 32767);
    for(Int i = -127; i != 128; ++i) EXPECT_EQ(Math::pack<Byte>(Math::unpack<Float>(Byte(i))), i);
}

TEST(PackingTest, roundsToNearest) {
    EXPECT_EQ(Math::pack<UnsignedByte>(0.0019f), 0);
    EXPECT_EQ(Math::pack<UnsignedByte>(0.0020f), 1);
    EXPECT_EQ(Math::pack<UnsignedByte>(0.5f), 128);
    EXPECT_EQ(Math::pack<UnsignedByte>(0.999f), 255);
    EXPECT_EQ(Math::pack<Byte>(-0.5f), -64);
    EXPECT_EQ(Math::pack<UnsignedShort>(0.5f), 32768);
}

TEST(PackingTest, thirtyTwoBitsNeedDoubles) {
    EXPECT_EQ(Math::pack<UnsignedInt>(1.0), 0xffffffffu);
    EXPECT_EQ(Math::unpack<Double>(UnsignedInt(0xffffffff)), 1.0);
}

TEST(PackingTest, vectorsAndColours) {
    EXPECT_SAME(
        Math::unpack<Color4>(Color4ub(0xaa, 0xff, 0, 0x80)), (Color4{2.0f / 3.0f, 1.0f, 0.0f, 128.0f / 255.0f}));
    EXPECT_SAME(Math::unpack<Vector3>(Vector3b(-128, 0, 127)), Vector3(-1.0f, 0.0f, 1.0f));
    EXPECT_SAME(Math::pack<Color4ub>(Color4{0.1f, 0.2f, 0.5f, 1.0f}), 0x1a3380ff_rgba);
    EXPECT_SAME(Math::pack<Vector3b>(Vector3(-1.0f, 0.5f, 1.0f)), Vector3b(-127, 64, 127));
    EXPECT_EQ(Math::unpack<Color3>(0x33b27f_rgb).toSrgbInt(), Math::unpack<Color4>(0x33b27f40_rgba).rgb().toSrgbInt());
}

}
