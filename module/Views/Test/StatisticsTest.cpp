#include "Views/Test/SceneViewFixture.h"

namespace VantrelTest {

namespace {

struct StatisticsTest: SceneViewFixture {
    const FrameStatistics& statistics() { return host.state.statistics; }
    std::uint32_t drawCalls(FramePass pass) { return statistics().pass(pass).drawCalls; }
};

TEST_F(StatisticsTest, TellWhatIsDrawnForTheEditorApartFromTheScene) {
    addCube("a");
    host.frame();
    host.frame();
    const std::uint32_t scene = statistics().drawCalls;
    EXPECT_EQ(drawCalls(FramePass::Scene), scene);
    EXPECT_EQ(drawCalls(FramePass::ObjectIds), 1u);
    EXPECT_EQ(drawCalls(FramePass::Outline), 0u);
    data().selectObject(objectOf("a"), false);
    host.frame();
    EXPECT_EQ(statistics().drawCalls, scene);
    // The mask, its seed, a step at least, and what is blended over the picture.
    EXPECT_GE(drawCalls(FramePass::Outline), 4u);
    data().selection().clear();
    host.frame();
    EXPECT_EQ(drawCalls(FramePass::Outline), 0u);
}

TEST_F(StatisticsTest, TellHowLongEachPassHadTheProcessor) {
    addCube("a");
    host.frame();
    host.frame();
    host.platform.timePerCall = 0.25;
    host.frame();
    // From one look at the clock to the next.
    for(const FramePass pass: {FramePass::Update, FramePass::ObjectIds, FramePass::Shadows, FramePass::Scene,
            FramePass::Outline, FramePass::Overlays})
        EXPECT_EQ(statistics().pass(pass).milliseconds, 250.0f) << int(pass);
    EXPECT_EQ(statistics().pass(FramePass::Reload).milliseconds, 0.0f);
    addCube("b");
    host.frame();
    EXPECT_EQ(statistics().pass(FramePass::Reload).milliseconds, 250.0f);
    EXPECT_EQ(statistics().pass(FramePass::Scene).milliseconds, 250.0f) << "of this frame alone";
}

TEST_F(StatisticsTest, TellTheMemoryOfThePictures) {
    addCube("a");
    host.frame();
    host.frame();
    const auto pixels = std::uint64_t(host.picture().size().product());
    // Four samples of colour, depth and mask; colour, ids, depth and mask.
    EXPECT_EQ(statistics().pictureBytes, pixels * (4 * (4 + 4 + 1) + 4 + 3 + 4 + 1));
    data().selectObject(objectOf("a"), false);
    host.frame();
    // Two textures of places.
    EXPECT_EQ(statistics().pictureBytes, pixels * (48 + 8));
    EXPECT_GT(statistics().uploadedBytes, 0u);
}

} // namespace

} // namespace VantrelTest
