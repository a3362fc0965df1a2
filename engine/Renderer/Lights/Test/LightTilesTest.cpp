#include "Renderer/Lights/LightTiles.h"

#include <random>

#include <Magnum/Math/Angle.h>
#include <gtest/gtest.h>

#include "Renderer/Lights/LightBuffer.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace Math::Literals;

LightRecord light(const Vector3& place, Float reach) { return {{Vector3{1.0f}, reach}, {place, 0.0f}, {}}; }

struct LightTilesTest: testing::Test {
    void mark(const std::vector<LightRecord>& lights) {
        count = lights.size();
        markLights(lights, toClip, size, words);
    }
    bool reaches(std::size_t light, const Vector2i& pixel) const {
        const std::size_t perTile = (count + 31) / 32, columns = std::size_t((size.x() + 31) / 32);
        const auto has = [&](std::size_t tile) { return words[tile * perTile + light / 32] >> light % 32 & 1; };
        return has(std::size_t(pixel.x() / 32)) && has(columns + std::size_t(pixel.y() / 32));
    }

    // Looks along the negative z axis; at a distance of 10 it sees 20 by 10 units.
    Vector2i size{330, 165};
    Matrix4 toClip = Matrix4::perspectiveProjection(90.0_degf, 2.0f, 0.1f, 100.0f);
    std::vector<UnsignedInt> words;
    std::size_t count = 0;
};

TEST_F(LightTilesTest, lightsReachTheTilesThatTheyAreSeenIn) {
    mark({light({0.0f, 0.0f, -10.0f}, 0.5f), light({-9.0f, 4.0f, -10.0f}, 0.5f), light({0.0f, 0.0f, 10.0f}, 5.0f),
        light({0.0f, 0.0f, 1.0f}, 50.0f), light({}, -1.0f)});
    const Vector2i middle{165, 82}, upperLeft{10, 150}, lowerRight{325, 3};
    EXPECT_TRUE(reaches(0, middle));
    EXPECT_FALSE(reaches(0, upperLeft));
    EXPECT_FALSE(reaches(0, lowerRight));
    EXPECT_FALSE(reaches(1, middle));
    EXPECT_TRUE(reaches(1, upperLeft));
    for(const Vector2i& pixel: {middle, upperLeft, lowerRight}) {
        EXPECT_FALSE(reaches(2, pixel)) << "behind the camera";
        EXPECT_TRUE(reaches(3, pixel)) << "all around the camera";
        EXPECT_TRUE(reaches(4, pixel)) << "a sun";
    }
}

TEST_F(LightTilesTest, noPlaceMissesALightThatReachesIt) {
    std::mt19937 random{5};
    const auto number = [&](Float limit) { return std::uniform_real_distribution<Float>{-limit, limit}(random); };
    std::vector<LightRecord> lights;
    for(int i = 0; i != 100; ++i)
        lights.push_back(light({number(20.0f), number(10.0f), -10.0f + number(15.0f)}, 0.3f + std::abs(number(4.0f))));
    mark(lights);
    std::size_t reached = 0, marked = 0;
    for(int i = 0; i != 3000; ++i) {
        const Vector2i pixel{Int(random() % 330), Int(random() % 165)};
        const Float distance = 0.2f + std::abs(number(25.0f));
        const Vector3 place{((Float(pixel.x()) + 0.5f) / 165.0f - 1.0f) * distance,
            ((Float(pixel.y()) + 0.5f) / 82.5f - 1.0f) * 0.5f * distance, -distance};
        for(std::size_t j = 0; j != lights.size(); ++j) {
            marked += reaches(j, pixel);
            if((lights[j].positionAndConeFactor.xyz() - place).length() >= lights[j].incomingAndReach.w()) continue;
            ++reached;
            ASSERT_TRUE(reaches(j, pixel)) << i << " " << j;
        }
    }
    EXPECT_GT(reached, 1000u);
    EXPECT_LT(marked, 3000u * 100u / 3u) << "most lights are elsewhere";
}

} // namespace
