#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <VantrelHost/DocumentWriter.h>
#include <gtest/gtest.h>

#include "Application/HeadlessContext.h"
#include "Monkey/Monkey.h"
#include "Project/Generator.h"
#include "Support/TestFolder.h"

namespace VantrelTest {

namespace {

using namespace VantrelEngine;

// Of all scenes together. More of them where the environment says so.
unsigned eventCount() {
    const char* const wish = std::getenv("VANTREL_MONKEY_EVENTS");
    return wish ? unsigned(std::strtoul(wish, nullptr, 10)) : 20000;
}

struct Scene {
    const char* name;
    VantrelTools::Topology topology;
    std::size_t objects;
};

constexpr Scene Scenes[]{{"flat", VantrelTools::Topology::Flat, 40}, {"random", VantrelTools::Topology::Random, 120},
    {"chain", VantrelTools::Topology::Chain, 12}, {"tree", VantrelTools::Topology::Tree, 300}};

// Long runs play each scene again and again from its start.
constexpr unsigned EventsPerRun = 5000;

class MonkeyTest: public testing::TestWithParam<Scene> {
protected:
    MonkeyTest() {
        std::string error;
        context = HeadlessContext::create(error);
        EXPECT_TRUE(context) << error;
        // What the monkey saves, opens and types goes nowhere else.
        setenv("HOME", folder.path("home").data(), 1);
        setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
        setenv("XDG_CACHE_HOME", folder.path("cache").data(), 1);
        setenv("XDG_CONFIG_HOME", folder.path("config").data(), 1);
        std::filesystem::create_directories(folder.path("home"));
        std::filesystem::current_path(folder.path("home"));
    }

    Monkey::Toys toys() {
        VantrelTools::GeneratorOptions options;
        options.count = GetParam().objects;
        options.topology = GetParam().topology;
        options.ids = VantrelTools::IdStyle::Short;
        std::string text;
        EXPECT_EQ(writeDocument(VantrelTools::generateProject(options), text), "");
        folder.write("scene.json", text);
        std::filesystem::copy_file(
            PROJECTS "/Textures/checker.png", folder.path("checker.png"), std::filesystem::copy_options::skip_existing);
        folder.write("broken.png", "no picture");
        return {{MODULE, CONVERTER, {}}, folder.path("scene.json"),
            {folder.path("checker.png"), folder.path("broken.png"), folder.path("missing.glb")}};
    }

    TestFolder folder;
    std::unique_ptr<HeadlessContext> context;
};

TEST_P(MonkeyTest, WhateverItDoesIsUndoneAndBroughtBackAndNothingAborts) {
    ASSERT_TRUE(context);
    const unsigned all = eventCount() / unsigned(std::size(Scenes));
    unsigned seed = 1;
    std::size_t steps = 0, broughtBack = 0;
    for(unsigned played = 0; played < all; played += EventsPerRun, ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Monkey monkey{seed, toys()};
        ASSERT_EQ(monkey.open(), "");
        monkey.play(std::min(EventsPerRun, all - played));
        monkey.rest();
        ASSERT_EQ(monkey.bringBackIn(folder.path("killed-" + std::to_string(seed))), "");
        ASSERT_EQ(monkey.undoAndRedoAll(), "");
        steps += monkey.stepsDone();
        broughtBack += monkey.stepsBroughtBack();
    }
    RecordProperty("steps", int(steps));
    RecordProperty("brought back", int(broughtBack));
    // It gets something done.
    EXPECT_GT(steps, 0u);
    EXPECT_GT(broughtBack, 0u);
}

INSTANTIATE_TEST_SUITE_P(Scenes, MonkeyTest, testing::ValuesIn(Scenes),
    [](const testing::TestParamInfo<Scene>& info) { return std::string{info.param.name}; });

}

}
