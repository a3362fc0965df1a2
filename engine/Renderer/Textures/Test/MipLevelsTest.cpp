#include "Renderer/Textures/MipLevels.h"

#include <initializer_list>

#include <Magnum/PixelFormat.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using testing::ElementsAre;
using testing::ElementsAreArray;

template<class T> Image2D imageOf(PixelFormat format, const Vector2i& size, std::initializer_list<T> texels) {
    Containers::Array<char> data{NoInit, texels.size() * sizeof(T)};
    std::copy_n(reinterpret_cast<const char*>(texels.begin()), data.size(), data.data());
    return Image2D{format, size, std::move(data)};
}

Image2D bytesOf(const Vector2i& size, std::initializer_list<Color4ub> texels) {
    return imageOf(PixelFormat::RGBA8Unorm, size, texels);
}

constexpr Color4ub Black{0, 0, 0, 255}, White{255, 255, 255, 255}, Red{255, 0, 0, 255}, Blue{0, 0, 255, 255};

// The first texel, which has a row and a column of margin in front.
Color4ub firstOf(const MipLevels& level) { return level.bytesWithMargin()[std::size_t(level.size().x()) + 3]; }

TEST(MipLevelsTest, sizesHalveDownToOne) {
    EXPECT_THAT(mipSizes({8, 8}), ElementsAre(Vector2i{8, 8}, Vector2i{4, 4}, Vector2i{2, 2}, Vector2i{1, 1}));
    EXPECT_THAT(mipSizes({5, 2}), ElementsAre(Vector2i{5, 2}, Vector2i{2, 1}, Vector2i{1, 1}));
    EXPECT_THAT(mipSizes({1, 1}), ElementsAre(Vector2i{1, 1}));
}

TEST(MipLevelsTest, marginIsTheOppositeEdge) {
    const Image2D image = bytesOf({2, 2}, {Red, Blue, Black, White});
    const auto texels = MipLevels(image, true).bytesWithMargin();
    EXPECT_THAT(std::vector<Color4ub>(texels.begin(), texels.end()),
        ElementsAreArray(
            {White, Black, White, Black, Blue, Red, Blue, Red, White, Black, White, Black, Blue, Red, Blue, Red}));
}

TEST(MipLevelsTest, averagesAreThoseOfLight) {
    const Image2D image = bytesOf({2, 1}, {Black, White});
    MipLevels color{image, true}, data{image, false};
    color.halve();
    data.halve();
    // Half of the light is not half of the value on the screen's curve.
    EXPECT_EQ(firstOf(color), (Color4ub{188, 188, 188, 255}));
    EXPECT_EQ(firstOf(data), (Color4ub{128, 128, 128, 255}));
}

TEST(MipLevelsTest, oddEdgesCountByArea) {
    const Image2D image =
        bytesOf({5, 1}, {{0, 0, 0, 255}, {50, 0, 0, 255}, {100, 0, 0, 255}, {150, 0, 0, 255}, {250, 0, 0, 255}});
    MipLevels level{image, false};
    level.halve();
    // Each has two and a half of the five.
    const auto texels = level.bytesWithMargin();
    EXPECT_EQ(int(texels[5].r()), int((0 + 50 + 100 / 2) / 2.5f + 0.5f));
    EXPECT_EQ(int(texels[6].r()), int((100 / 2 + 150 + 250) / 2.5f + 0.5f));
}

TEST(MipLevelsTest, whatCannotBeSeenDoesNotBleed) {
    const Image2D image = bytesOf({2, 1}, {{255, 0, 0, 255}, {0, 255, 0, 0}});
    MipLevels level{image, true};
    level.halve();
    const Color4ub texel = firstOf(level);
    EXPECT_EQ(int(texel.r()), 255);
    EXPECT_LT(int(texel.g()), 12);
    EXPECT_EQ(int(texel.a()), 128);
}

TEST(MipLevelsTest, whatCannotBeSeenKeepsItsColor) {
    const Image2D image = bytesOf({2, 1}, {{200, 30, 10, 0}, {200, 30, 10, 0}});
    MipLevels level{image, true};
    level.halve();
    EXPECT_EQ(firstOf(level), (Color4ub{200, 30, 10, 0}));
}

TEST(MipLevelsTest, evenColorsStayAsTheyAre) {
    for(const bool isSrgb: {false, true})
        for(Int value = 0; value != 256; ++value) {
            const Color4ub texel(
                UnsignedByte(value), UnsignedByte(255 - value), UnsignedByte(value), UnsignedByte(value));
            const Image2D image = bytesOf({3, 2}, {texel, texel, texel, texel, texel, texel});
            MipLevels level{image, isSrgb};
            level.halve();
            level.halve();
            EXPECT_EQ(level.size(), (Vector2i{1, 1}));
            EXPECT_EQ(firstOf(level), texel) << isSrgb;
        }
}

TEST(MipLevelsTest, floatsAverageAndFitIntoHalves) {
    const Image2D image =
        imageOf<Color4>(PixelFormat::RGBA32F, {2, 1}, {{4.0f, 0.0f, 1.0e6f, 1.0f}, {8.0f, 1.0f, 0.0f, 1.0f}});
    MipLevels level{image, false};
    EXPECT_TRUE(level.isFloat());
    EXPECT_EQ(level.floatsWithMargin()[5].b(), 65504.0f);
    level.halve();
    EXPECT_EQ(level.floatsWithMargin()[4], (Color4{6.0f, 0.5f, 65504.0f, 1.0f}));
}

} // namespace
