#include "Shaders/JumpFlood.h"

#include <limits>
#include <vector>

#include <Magnum/Math/Vector2.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Magnum;
using namespace VantrelEngine::Shaders;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<UnsignedInt> spacings(const Vector2i& size, Float width) {
    std::vector<UnsignedInt> result;
    const Int steps = jumpFloodSteps(size, width);
    for(Int i = 0; i != steps; ++i) result.push_back(jumpFloodSpacing(steps, i));
    return result;
}

TEST(JumpFloodTest, spacingsHalveFromTheWidthDownToOnePixel) {
    const Vector2i size{640, 480};
    EXPECT_THAT(spacings(size, 2.0f), ElementsAre(1u));
    for(const Float width: {3.0f, 4.0f, 4.99f}) EXPECT_THAT(spacings(size, width), ElementsAre(2u, 1u)) << width;
    for(const Float width: {5.0f, 7.5f, 8.0f}) EXPECT_THAT(spacings(size, width), ElementsAre(4u, 2u, 1u)) << width;
    for(const Float width: {9.0f, 16.0f}) EXPECT_THAT(spacings(size, width), ElementsAre(8u, 4u, 2u, 1u)) << width;
    EXPECT_THAT(spacings(size, 300.0f), ElementsAre(256u, 128u, 64u, 32u, 16u, 8u, 4u, 2u, 1u));
}

TEST(JumpFloodTest, noStepForLessThanTwoPixels) {
    for(const Float width: {-std::numeric_limits<Float>::infinity(), -3.0f, 0.0f, 0.5f, 1.0f, 1.99f})
        EXPECT_THAT(spacings({640, 480}, width), IsEmpty()) << width;
}

TEST(JumpFloodTest, theDiagonalIsFarEnough) {
    // 3, 4, 5
    EXPECT_EQ(jumpFloodSteps({3, 4}, 300.0f), 3);
    EXPECT_EQ(jumpFloodSteps({3, 4}, 4.0f), 2);
    EXPECT_EQ(jumpFloodSteps({1, 1}, 300.0f), 0);
    EXPECT_EQ(jumpFloodSteps({1, 2}, 300.0f), 1);
    EXPECT_EQ(jumpFloodSteps({4096, 4096}, 1.0e30f), 13);
    EXPECT_EQ(jumpFloodSteps({3, 4}, std::numeric_limits<Float>::infinity()), 3);
    EXPECT_EQ(jumpFloodSteps({3, 4}, std::numeric_limits<Float>::quiet_NaN()), 3);
}

TEST(JumpFloodTest, texturesTakeTurns) {
    EXPECT_EQ(jumpFloodTexture(0), 0);
    EXPECT_EQ(jumpFloodTexture(1), 1);
    EXPECT_EQ(jumpFloodTexture(jumpFloodSteps({640, 480}, 4.0f)), 0);
    EXPECT_EQ(jumpFloodTexture(jumpFloodSteps({640, 480}, 5.0f)), 1);
}

}
