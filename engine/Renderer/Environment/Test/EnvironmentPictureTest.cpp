#include "Renderer/Environment/EnvironmentPicture.h"

#include <algorithm>
#include <chrono>
#include <limits>

#include <gmock/gmock.h>

#include "Renderer/Environment/Test/SixDirections.h"

namespace {

using namespace VantrelTest;

// Of all directions alike.
Color3 averageOf(const EnvironmentPicture& picture) {
    Math::Vector3<Double> sum;
    Double area = 0.0;
    for(Int y = 0; y != picture.size.y(); ++y) {
        const Double share = std::cos(((y + 0.5) / picture.size.y() - 0.5) * 3.14159265358979);
        for(Int x = 0; x != picture.size.x(); ++x)
            sum += Math::Vector3<Double>{picture.texels[std::size_t(y) * picture.size.x() + x].rgb()} * share;
        area += share * picture.size.x();
    }
    return Color3{Vector3{sum / area}};
}

Color4 texelAt(const EnvironmentPicture& picture, const Vector2i& texel) {
    return picture.texels[std::size_t(texel.y()) * picture.size.x() + texel.x()];
}

TEST(EnvironmentPictureTest, isTwiceAsWideAsHighWithinBounds) {
    const auto size = [](const Vector2i& of) {
        return environmentPicture(imageOf(of, [](const Vector2&) { return Color3{1.0f}; })).size;
    };
    EXPECT_EQ(size({1, 1}), (Vector2i{256, 128}));
    EXPECT_EQ(size({511, 700}), (Vector2i{256, 128}));
    EXPECT_EQ(size({512, 256}), (Vector2i{512, 256}));
    EXPECT_EQ(size({2100, 30}), (Vector2i{2048, 1024}));
    EXPECT_EQ(size({4096, 2}), (Vector2i{2048, 1024}));
}

TEST(EnvironmentPictureTest, keepsTheLightOfAnySize) {
    for(const Vector2i& size: {Vector2i{3, 2}, Vector2i{300, 150}, Vector2i{1000, 100}, Vector2i{2500, 7}}) {
        const SceneImage image = imageOf(size, [](const Vector2& place) {
            return Color3{place.x(), 1.0f - place.y(), 0.5f};
        });
        const Color3 average = averageOf(environmentPicture(image));
        EXPECT_NEAR(average.r(), 0.5f, 0.002f) << size.x();
        EXPECT_NEAR(average.g(), 0.5f, 0.002f) << size.x();
        EXPECT_NEAR(average.b(), 0.5f, 0.002f) << size.x();
    }
}

TEST(EnvironmentPictureTest, isNothingThatCannotBeLight) {
    constexpr Float Infinity = std::numeric_limits<Float>::infinity();
    const SceneImage image = imageOf({256, 128}, [](const Vector2& place) {
        return place.x() < 0.5f ? Color3{std::numeric_limits<Float>::quiet_NaN(), -1.0f, 1.0e9f}
                                : Color3{Infinity, -Infinity, 2.0f};
    });
    const EnvironmentPicture picture = environmentPicture(image);
    EXPECT_EQ(texelAt(picture, {0, 0}), (Color4{0.0f, 0.0f, BrightestEnvironment, 1.0f}));
    EXPECT_EQ(texelAt(picture, {255, 127}), (Color4{BrightestEnvironment, 0.0f, 2.0f, 1.0f}));
}

TEST(EnvironmentPictureTest, readsBytesInTheirCurve) {
    SceneImage image;
    Containers::Array<char> data{ValueInit, 4};
    data[0] = char(255), data[1] = char(188), data[3] = char(0);
    image.pixels = Image2D{PixelFormat::RGBA8Unorm, {1, 1}, std::move(data)};
    const Color4 inCurve = texelAt(environmentPicture(image), {100, 50});
    EXPECT_NEAR(inCurve.r(), 1.0f, 1.0e-5f);
    EXPECT_NEAR(inCurve.g(), 0.503f, 1.0e-3f);
    EXPECT_EQ(inCurve.b(), 0.0f);
    image.isSrgb = false;
    EXPECT_NEAR(texelAt(environmentPicture(image), {100, 50}).g(), 188.0f / 255.0f, 1.0e-5f);
}

TEST(EnvironmentPictureTest, anotherPixelHasAnotherKey) {
    SceneImage image = sixDirectionsImage();
    const std::uint64_t key = contentKey(environmentPicture(image));
    EXPECT_EQ(contentKey(environmentPicture(sixDirectionsImage())), key);
    auto* const texels = reinterpret_cast<Vector4*>(image.pixels->data().data());
    for(const std::size_t i: {0, 1, 256 * 128 - 1}) {
        texels[i].y() += 0.001f;
        EXPECT_NE(contentKey(environmentPicture(image)), key) << i;
        texels[i].y() -= 0.001f;
    }
    std::swap(texels[64 * 256 + 64], texels[64 * 256 + 128]);
    EXPECT_NE(contentKey(environmentPicture(image)), key);
}

TEST(EnvironmentPictureTest, spreadSunsKeepTheirLightAndTheirPlace) {
    for(const Vector2i& sun: {Vector2i{100, 64}, Vector2i{0, 90}, Vector2i{7, 127}, Vector2i{200, 1}}) {
        EnvironmentPicture picture = environmentPicture(evenImage(Color3{0.5f}));
        picture.texels[std::size_t(sun.y()) * 256 + sun.x()] = {5000.0f, 4000.0f, 3000.0f, 1.0f};
        const EnvironmentPicture spread = withSpreadSuns(picture);
        const Color3 before = averageOf(picture), after = averageOf(spread);
        for(std::size_t i = 0; i != 3; ++i) EXPECT_NEAR(after[i] / before[i], 1.0f, 1.0e-3f) << sun.y();
        Color4 brightest{0.0f};
        Vector2i at;
        for(Int y = 0; y != 128; ++y)
            for(Int x = 0; x != 256; ++x)
                if(texelAt(spread, {x, y}).r() > brightest.r()) brightest = texelAt(spread, at = {x, y});
        EXPECT_LT(brightest.r(), 500.0f) << sun.y();
        const Vector2 size{256.0f, 128.0f}, half{0.5f};
        EXPECT_GT(
            Math::dot(directionAt((Vector2{at} + half) / size), directionAt((Vector2{sun} + half) / size)), 0.999f)
            << sun.y();
    }
}

// At the poles a sun is close to thousands of texels, and all texels may be suns: which get how much is found out once a row.
TEST(EnvironmentPictureTest, aRowOfSunsCostsAsManyTimesLessThanItHas) {
    constexpr Int Row = 124;
    const EnvironmentPicture dark = environmentPicture(evenImage(Color3{0.01f}));
    const auto secondsFor = [&](Int suns) {
        EnvironmentPicture picture = dark;
        for(Int x = 0; x != suns; ++x) picture.texels[std::size_t(Row * 256 + x)] = Color4{1000.0f};
        double least = 1.0e9;
        for(int i = 0; i != 5; ++i) {
            const auto start = std::chrono::steady_clock::now();
            const EnvironmentPicture spread = withSpreadSuns(picture);
            const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
            least = std::min(least, took.count());
            EXPECT_LT(texelAt(spread, {0, Row}).r(), 900.0f) << "it was a sun";
        }
        return least;
    };
    const double one = secondsFor(1), all = secondsFor(256);
    RecordProperty("timesOfOne", int(all / one));
    EXPECT_LT(all, one * 30.0);
}

TEST(EnvironmentPictureTest, withoutASunNothingIsSpread) {
    const EnvironmentPicture picture = environmentPicture(sixDirectionsImage());
    EXPECT_EQ(contentKey(withSpreadSuns(picture)), contentKey(picture));
}

} // namespace
