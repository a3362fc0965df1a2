#include "Renderer/Environment/EnvironmentBaker.h"

#include <Magnum/Math/Half.h>
#include <gmock/gmock.h>

#include "Renderer/Environment/Test/SixDirections.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace VantrelTest;

typedef VantrelTest::GlTest EnvironmentBakerTest;

EnvironmentBake bakeOf(const SceneImage& image) {
    EnvironmentBaker baker;
    baker.begin(environmentPicture(image));
    EXPECT_TRUE(baker.advance(0));
    return baker.bake();
}

Color3 texel(const EnvironmentBake& bake, std::size_t target, std::size_t index) {
    const std::uint16_t* const halves = bake.data() + bakeTargetOffset(target) + index * 4;
    return {Float(Half{halves[0]}), Float(Half{halves[1]}), Float(Half{halves[2]})};
}

// The closest one; the first and the last row are the poles.
Color3 texelAt(const EnvironmentBake& bake, std::size_t target, const Vector2& place) {
    const Vector2i size = BakeTargets[target].size;
    const Int x = Math::min(Int(place.x() * size.x()), size.x() - 1);
    const Int y = Int(place.y() * (size.y() - 1) + 0.5f);
    return texel(bake, target, std::size_t(y) * size.x() + x);
}

// A matt surface in an even light sends back what it is, and no mirror shows more than that.
TEST_F(EnvironmentBakerTest, anEvenLightStaysAsItIs) {
    const Color3 light{0.25f, 1.0f, 4.0f};
    const EnvironmentBake bake = bakeOf(evenImage(light));
    for(std::size_t target = 0; target != BakeTargetCount; ++target)
        for(std::size_t i = 0; i != bakeTargetLength(target) / 4; ++i)
            for(std::size_t channel = 0; channel != 3; ++channel)
                ASSERT_NEAR(texel(bake, target, i)[channel] / light[channel], 1.0f, target ? 0.002f : 0.01f)
                    << "target " << target << ", texel " << i;
}

// With light from above only, what is turned away from it by an angle receives the share (1 + cos)/2.
TEST_F(EnvironmentBakerTest, halfASkyIsWhatAnalysisSays) {
    const EnvironmentBake bake =
        bakeOf(imageOf({256, 128}, [](const Vector2& place) { return Color3{place.y() > 0.5f ? 1.0f : 0.0f}; }));
    for(Int y = 0; y != 16; ++y) {
        const Float latitude = (y / 15.0f - 0.5f) * 3.14159265f;
        for(Int x = 0; x != 32; ++x)
            EXPECT_NEAR(texel(bake, 0, std::size_t(y) * 32 + x).r(), (1.0f + std::sin(latitude)) / 2.0f, 0.012f) << y;
    }
}

TEST_F(EnvironmentBakerTest, eachDirectionIsWhereItIsInThePicture) {
    const EnvironmentBake bake = bakeOf(sixDirectionsImage());
    for(std::size_t target = 0; target != BakeTargetCount; ++target)
        for(const SixthOfAll& one: SixDirections) {
            const Color3 color = texelAt(bake, target, one.place);
            for(std::size_t i = 0; i != 3; ++i)
                for(std::size_t j = 0; j != 3; ++j) {
                    const bool isMore = one.color[i] > one.color[j];
                    EXPECT_TRUE(!isMore || color[i] > color[j] + 0.05f) << one.name << ", target " << target;
                }
        }
}

// All texels of the first and the last row are one direction.
TEST_F(EnvironmentBakerTest, polesAreOneColor) {
    const EnvironmentBake bake = bakeOf(sixDirectionsImage());
    for(std::size_t target = 0; target != BakeTargetCount; ++target) {
        const Vector2i size = BakeTargets[target].size;
        for(const Int row: {0, size.y() - 1}) {
            const std::size_t first = std::size_t(row) * size.x();
            for(Int x = 1; x != size.x(); ++x)
                for(std::size_t channel = 0; channel != 3; ++channel)
                    ASSERT_NEAR(texel(bake, target, first + x)[channel], texel(bake, target, first)[channel], 0.005f)
                        << "target " << target << ", row " << row;
        }
    }
}

// A sun that is no larger than a texel lights a matt surface as much as it is, and is not missed by rough mirrors.
TEST_F(EnvironmentBakerTest, aSmallSunIsNeitherLostNorAPattern) {
    const Vector2i size{1024, 512};
    const Float radiance = 20000.0f;
    // The middle of a pixel.
    const Vector2 sun{665.5f / 1024.0f, 384.5f / 512.0f};
    const EnvironmentBake bake = bakeOf(imageOf(
        size, [&](const Vector2& place) { return Color3{(place - sun).length() < 1.0e-4f ? radiance : 0.0f}; }));
    const Float cosine = std::cos((sun.y() - 0.5f) * 3.14159265f);
    const Float solidAngle = 2.0f * 9.8696044f / Float(size.product()) * cosine;
    for(std::size_t i = 0; i != 512; ++i) {
        const Vector2 place{(i % 32 + 0.5f) / 32.0f, Float(i / 32) / 15.0f};
        const Float facing = Math::max(Math::dot(directionAt(place), directionAt(sun)), 0.0f);
        EXPECT_NEAR(texel(bake, 0, i).r(), radiance * solidAngle / 3.14159265f * facing,
            0.04f * radiance * solidAngle / 3.14159265f)
            << i;
    }
    // The farther away from it, the darker, but for a little.
    for(std::size_t target = 1; target != BakeTargetCount; ++target) {
        const Int row = Int(sun.y() * (BakeTargets[target].size.y() - 1) + 0.5f), width = BakeTargets[target].size.x();
        const Int middle = Int(sun.x() * width);
        const auto light = [&](Int away) {
            return texel(bake, target, std::size_t(row) * width + (middle + away) % width).r();
        };
        const Float brightest = Math::max(light(0), light(1));
        EXPECT_GT(brightest, 0.1f) << target;
        for(Int away = 1; away != width / 3; ++away)
            EXPECT_LT(light(away + 1), light(away) + 0.02f * brightest) << "target " << target << ", " << away;
    }
}

TEST_F(EnvironmentBakerTest, rowAfterRowIsTheSame) {
    const SceneImage image = sixDirectionsImage();
    EnvironmentBaker baker;
    EXPECT_FALSE(baker.isUnderWay());
    // One that is given up leaves nothing behind.
    baker.begin(environmentPicture(evenImage(Color3{3.0f})));
    EXPECT_FALSE(baker.advance(1000000));
    baker.begin(environmentPicture(image));
    int steps = 1;
    while(!baker.advance(1000000)) {
        EXPECT_TRUE(baker.isUnderWay());
        ++steps;
    }
    EXPECT_FALSE(baker.isUnderWay());
    EXPECT_GT(steps, 10);
    EXPECT_EQ(baker.bake(), bakeOf(image));
}

} // namespace
