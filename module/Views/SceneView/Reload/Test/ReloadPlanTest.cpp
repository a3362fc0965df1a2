#include <initializer_list>
#include <map>
#include <set>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Views/SceneView/Reload/ReloadPlan.h"

namespace {

using namespace VantrelEngine;
using testing::ElementsAre;

using Stage = ReloadStage;
using Cause = ReloadCause;
using Stages = std::set<Stage>;

// What each thing that can change makes run, all in all: the other way round than the plan has it.
const struct {
    Cause cause;
    Stages stages;
} StagesOfCauses[]{
    {Cause::Settings, {Stage::Settings}},
    {Cause::Lights, {Stage::Shadows}},
    {Cause::Images, {Stage::TextureAtlases, Stage::Materials}},
    {Cause::Textures, {Stage::TextureAtlases, Stage::Materials}},
    {Cause::Shaders, {Stage::Pipelines, Stage::Batches, Stage::Draws, Stage::Materials}},
    {Cause::Pipelines, {Stage::Pipelines, Stage::Batches, Stage::Draws, Stage::Materials}},
    {Cause::Meshes, {Stage::Batches, Stage::Draws}},
    {Cause::MeshData, {Stage::Batches, Stage::Draws}},
    {Cause::Draws, {Stage::Draws}},
    {Cause::Materials, {Stage::Materials}},
    {Cause::Fonts, {Stage::Fonts, Stage::Materials}},
    {Cause::Layout, {Stage::Pipelines, Stage::Batches, Stage::Draws, Stage::Materials}},
    {Cause::LightCount, {Stage::Pipelines, Stage::Batches, Stage::Draws, Stage::Materials}},
    {Cause::ShadowLightCount, {Stage::Pipelines, Stage::Batches, Stage::Draws, Stage::Materials}},
    {Cause::Always, {Stage::Physics, Stage::Acknowledge}},
};
constexpr std::size_t CauseCount = sizeof(StagesOfCauses) / sizeof(*StagesOfCauses);
// The last one is no choice.
constexpr unsigned CombinationCount = 1u << (CauseCount - 1);

const std::map<Cause, Aspect> AspectsOfCauses{{Cause::Settings, Aspect::Settings}, {Cause::Lights, Aspect::Lights},
    {Cause::Images, Aspect::Images}, {Cause::Textures, Aspect::Textures}, {Cause::Shaders, Aspect::Shaders},
    {Cause::Pipelines, Aspect::Pipelines}, {Cause::Meshes, Aspect::Meshes}, {Cause::MeshData, Aspect::MeshData},
    {Cause::Draws, Aspect::Draws}, {Cause::Materials, Aspect::Materials}, {Cause::Fonts, Aspect::Fonts}};

// A scene that the view has seen, at some revision, and what of it is told to have changed.
struct Situation {
    Situation() {
        for(int i = 0; i != 1000; ++i) revisions.touch();
        revisions.acknowledge();
        counts = {3, 1};
        seen = seenNow(revisions, counts);
    }

    void change(Cause cause) {
        const auto aspect = AspectsOfCauses.find(cause);
        if(aspect != AspectsOfCauses.end()) revisions.touch(aspect->second);
        if(cause == Cause::Layout) layoutChanged = true;
        if(cause == Cause::LightCount) ++counts.lights;
        if(cause == Cause::ShadowLightCount) --counts.shadowLights;
    }
    ReloadPlan plan(std::size_t fontCount = 5) const {
        return planReload(revisions, seen, counts, layoutChanged, fontCount);
    }

    SceneRevisions revisions;
    ReloadSeen seen;
    PipelineCounts counts;
    bool layoutChanged = false;
};

Situation changed(std::initializer_list<Cause> causes) {
    Situation situation;
    for(const Cause cause: causes) situation.change(cause);
    return situation;
}

std::vector<Stage> stagesInOrder(const ReloadPlan& plan) {
    std::vector<Stage> stages;
    for(std::size_t i = 0; i != ReloadStageCount; ++i)
        if(plan.runs(Stage(i))) stages.push_back(Stage(i));
    return stages;
}

TEST(ReloadPlanTest, everyCombinationRunsItsStagesForItsCauses) {
    for(unsigned combination = 0; combination != CombinationCount; ++combination) {
        Situation situation;
        std::map<Stage, ReloadCauses> expected;
        for(std::size_t i = 0; i != CauseCount; ++i) {
            const bool isMoved = i + 1 == CauseCount || combination & (1u << i);
            if(!isMoved) continue;
            situation.change(StagesOfCauses[i].cause);
            for(const Stage stage: StagesOfCauses[i].stages) expected[stage] |= StagesOfCauses[i].cause;
        }
        const ReloadPlan plan = situation.plan();
        for(std::size_t i = 0; i != ReloadStageCount; ++i) {
            const Stage stage = Stage(i);
            ASSERT_EQ(std::uint16_t(plan.causes(stage)), std::uint16_t(expected[stage]))
                << "stage " << i << " of combination " << combination;
            ASSERT_EQ(plan.runs(stage), expected.count(stage) && bool(expected[stage]));
        }
    }
}

TEST(ReloadPlanTest, stagesRunInTheirOrder) {
    EXPECT_THAT(stagesInOrder(
                    changed({Cause::Draws, Cause::Fonts, Cause::Shaders, Cause::Images, Cause::Settings, Cause::Lights})
                        .plan()),
        ElementsAre(Stage::Shadows, Stage::Settings, Stage::TextureAtlases, Stage::Pipelines, Stage::Fonts,
            Stage::Batches, Stage::Draws, Stage::Materials, Stage::Physics, Stage::Acknowledge));
    EXPECT_THAT(
        stagesInOrder(changed({Cause::Draws}).plan()), ElementsAre(Stage::Draws, Stage::Physics, Stage::Acknowledge));
}

TEST(ReloadPlanTest, theFirstReloadRunsEveryStage) {
    SceneRevisions revisions;
    const ReloadSeen nothing;
    EXPECT_EQ(nothing.revision, -1);
    EXPECT_TRUE(isReloadDue(revisions, nothing));
    EXPECT_EQ(stagesInOrder(planReload(revisions, nothing, {}, false, 1)).size(), ReloadStageCount);

    // Whatever happened before the view came.
    revisions.touch(Aspect::Materials);
    revisions.touch();
    revisions.acknowledge();
    EXPECT_EQ(stagesInOrder(planReload(revisions, nothing, {}, false, 1)).size(), ReloadStageCount);
}

TEST(ReloadPlanTest, aMovedObjectCostsNoStageOfItsOwn) {
    Situation situation;
    situation.revisions.touch();
    EXPECT_TRUE(isReloadDue(situation.revisions, situation.seen));
    EXPECT_THAT(stagesInOrder(situation.plan()), ElementsAre(Stage::Physics, Stage::Acknowledge));
}

TEST(ReloadPlanTest, nothingIsLeftToDoAfterAReload) {
    Situation situation = changed({Cause::Shaders, Cause::Meshes, Cause::LightCount, Cause::ShadowLightCount});
    EXPECT_TRUE(isReloadDue(situation.revisions, situation.seen));
    situation.revisions.acknowledge();
    situation.seen = seenNow(situation.revisions, situation.counts);
    EXPECT_EQ(situation.seen.revision, std::int32_t(situation.revisions.revision()));
    EXPECT_EQ(situation.seen.counts.lights, 4u);
    EXPECT_EQ(situation.seen.counts.shadowLights, 0u);
    EXPECT_FALSE(isReloadDue(situation.revisions, situation.seen));
    EXPECT_THAT(stagesInOrder(situation.plan()), ElementsAre(Stage::Physics, Stage::Acknowledge));
}

TEST(ReloadPlanTest, aCounterThatWasWrittenOverIsAChange) {
    // A counter that is less than what was seen is one that differs.
    Situation situation;
    situation.revisions.counter(Aspect::Images) -= 7;
    EXPECT_THAT(stagesInOrder(situation.plan()),
        ElementsAre(Stage::TextureAtlases, Stage::Materials, Stage::Physics, Stage::Acknowledge));
}

TEST(ReloadPlanTest, fontsAreMadeFromTheSecondOn) {
    const Situation fonts = changed({Cause::Fonts});
    EXPECT_FALSE(fonts.plan(0).updatesFonts());
    EXPECT_FALSE(fonts.plan(1).updatesFonts());
    EXPECT_TRUE(fonts.plan(2).updatesFonts());
    EXPECT_TRUE(fonts.plan(1).runs(Stage::Fonts));
    EXPECT_FALSE(changed({Cause::Materials}).plan(5).updatesFonts());
}

TEST(ReloadPlanTest, aLayoutThatChangesLateMovesNoEarlierStage) {
    for(unsigned combination = 0; combination != CombinationCount; ++combination) {
        Situation situation;
        for(std::size_t i = 0; i + 1 != CauseCount; ++i)
            if(combination & (1u << i)) situation.change(StagesOfCauses[i].cause);
        const ReloadPlan early = situation.plan();
        situation.layoutChanged = true;
        const ReloadPlan late = situation.plan();
        for(const Stage stage: {Stage::Shadows, Stage::Settings})
            ASSERT_EQ(std::uint16_t(late.causes(stage)), std::uint16_t(early.causes(stage))) << combination;
        ASSERT_TRUE(late.runs(Stage::Pipelines) && late.runs(Stage::Materials)) << combination;
    }
}

TEST(ReloadPlanTest, saysWhy) {
    EXPECT_EQ(describe(Situation{}.plan()), "");
    EXPECT_EQ(describe(changed({Cause::Textures, Cause::Images}).plan()),
        "texture atlases: images, textures\n"
        "materials: images, textures\n");
    EXPECT_EQ(describe(changed({Cause::Settings, Cause::Lights, Cause::Layout, Cause::LightCount,
                                   Cause::ShadowLightCount, Cause::MeshData, Cause::Fonts})
                           .plan()),
        "shadows: lights\n"
        "settings: settings\n"
        "pipelines: vertex layout, number of lights, number of lights with shadows\n"
        "fonts: fonts\n"
        "batches: mesh data, vertex layout, number of lights, number of lights with shadows\n"
        "draws: mesh data, vertex layout, number of lights, number of lights with shadows\n"
        "materials: fonts, vertex layout, number of lights, number of lights with shadows\n");
    EXPECT_EQ(
        describe(changed({Cause::Shaders, Cause::Pipelines, Cause::Meshes, Cause::Draws, Cause::Materials}).plan()),
        "pipelines: shaders, pipelines\n"
        "batches: shaders, pipelines, meshes\n"
        "draws: shaders, pipelines, meshes, draws\n"
        "materials: shaders, pipelines, materials\n");
}

}
