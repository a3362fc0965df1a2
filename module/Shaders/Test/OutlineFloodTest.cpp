// The outline against the same steps, and against exact distances, on the processor.

#include <algorithm>
#include <cstdlib>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MaskPicture.h"
#include "ReferenceFlood.h"
#include "Shaders/JumpFlood.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine::Shaders;
using namespace VantrelTest;

struct Kind {
    const char* name;
    Mask (*make)(const Vector2i&);
};

const Kind Kinds[]{
    {"empty", emptyMask}, {"full", fullMask}, {"discs", discsMask}, {"dots", dotsMask}, {"noise", noiseMask}};

struct FloodTest: GlTest {
    static void SetUpTestSuite() {
        GlTest::SetUpTestSuite();
        outline = std::make_unique<Outline>();
    }
    static void TearDownTestSuite() {
        outline.reset();
        GlTest::TearDownTestSuite();
    }

    static std::unique_ptr<Outline> outline;
};

std::unique_ptr<Outline> FloodTest::outline;

bool isWithinOneUnit(const Vector2us& a, const Vector2us& b) {
    return std::abs(a.x() - b.x()) <= 1 && std::abs(a.y() - b.y()) <= 1;
}

int differences(const Positions& a, const Positions& b) {
    int count = 0;
    for(std::size_t i = 0; i != a.size(); ++i) count += !isWithinOneUnit(a[i], b[i]);
    return count;
}

struct Drawn {
    Positions seeds;
    Positions positions;
    std::vector<Color4ub> pixels;
};

// In white over black.
Drawn draw(Outline& outline, const Mask& mask, float width) {
    OutlineCanvas canvas{mask};
    Drawn drawn;
    canvas.draw(outline.setWidth(1.0f));
    drawn.seeds = boundPositions(mask.size);
    canvas.draw(outline.setWidth(width));
    drawn.positions = boundPositions(mask.size);
    drawn.pixels = canvas.pixels();
    return drawn;
}

struct SizeTest: FloodTest, testing::WithParamInterface<Vector2i> {};

TEST_P(SizeTest, everyPixelIsThatOfTheReference) {
    const Vector2i size = GetParam();
    for(const Kind& kind: Kinds)
        for(const float width: {0.5f, 1.0f, 1.5f, 2.0f, 3.0f, 4.0f, 5.0f, 8.5f, 17.0f, 64.0f, 300.0f}) {
            SCOPED_TRACE(std::string{kind.name} + ", width " + std::to_string(width));
            const Mask mask = kind.make(size);
            const Drawn drawn = draw(*outline, mask, width);
            EXPECT_EQ(differences(drawn.seeds, referenceSeeds(mask)), 0);

            Positions expected = drawn.seeds;
            const int steps = jumpFloodSteps(size, width);
            for(int i = 0; i != steps; ++i) expected = referenceStep(expected, size, jumpFloodSpacing(steps, i));
            EXPECT_EQ(differences(drawn.positions, expected), 0);

            int different = 0;
            for(Int i = 0; i != size.product(); ++i) {
                const Vector2i pixel{i % size.x(), i / size.x()};
                const float alpha = referenceAlpha(mask, pixel, decoded(expected[i], size), width);
                different += std::abs(int(drawn.pixels[i].r()) - int(std::lround(alpha * 255.0f))) > 1;
            }
            EXPECT_EQ(different, 0);
        }
}

std::string sizeName(const testing::TestParamInfo<Vector2i>& info) {
    return std::to_string(info.param.x()) + "x" + std::to_string(info.param.y());
}

INSTANTIATE_TEST_SUITE_P(, SizeTest,
    testing::Values(Vector2i{1, 1}, Vector2i{1, 2}, Vector2i{7, 1}, Vector2i{3, 3}, Vector2i{17, 31}, Vector2i{64, 64},
        Vector2i{101, 37}, Vector2i{128, 127}),
    sizeName);

struct ExactTest: FloodTest, testing::WithParamInterface<Kind> {};

// Whole widths: the flood reaches as many pixels as a width has, without its fraction. With a width of 1 there is no
// flood: an edge pixel does not learn that a neighbour's position, moved to the border of the shape, is closer.
TEST_P(ExactTest, mostPixelsHaveTheExactDistance) {
    struct Case {
        Vector2i size;
        float width;
    } cases[]{{{256, 256}, 0.0f}, {{256, 256}, 2.0f}, {{256, 256}, 4.0f}, {{255, 131}, 5.0f}, {{256, 256}, 8.0f},
        {{256, 256}, 16.0f}, {{90, 60}, 33.0f}, {{64, 64}, 300.0f}};
    for(const Case& c: cases) {
        SCOPED_TRACE(
            std::to_string(c.size.x()) + "x" + std::to_string(c.size.y()) + ", width " + std::to_string(c.width));
        const Mask mask = GetParam().make(c.size);
        const Drawn drawn = draw(*outline, mask, c.width);
        int different = 0;
        for(Int i = 0; i != c.size.product(); ++i) {
            const Vector2i pixel{i % c.size.x(), i / c.size.x()};
            const Vector2 closest = exactlyClosest(drawn.seeds, c.size, pixel, c.width);
            const float alpha = referenceAlpha(mask, pixel, closest, c.width);
            different += std::abs(int(drawn.pixels[i].r()) - int(std::lround(alpha * 255.0f))) > 1;
        }
        EXPECT_LE(different, c.size.product() * 0.002);
    }
}

INSTANTIATE_TEST_SUITE_P(
    , ExactTest, testing::ValuesIn(Kinds), [](const auto& info) { return std::string{info.param.name}; });

}
