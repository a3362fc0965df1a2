#include "Shaders/ShaderResources.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include <Corrade/Containers/Pair.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringIterable.h>
#include <Corrade/Utility/Resource.h>
#include <Magnum/GL/Context.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Shaders/Outline.h"
#include "Support/OffscreenContext.h"

static void unregisterEditorShaders() { CORRADE_RESOURCE_FINALIZE(VantrelEditorShaders) }
static void unregisterEngineShaders() { CORRADE_RESOURCE_FINALIZE(VantrelEngineShaders) }

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine::Shaders;
using testing::ElementsAre;
using testing::ExitedWithCode;
using testing::KilledBySignal;
using testing::Pair;
using Utility::Resource;

struct ShaderResourcesTest: VantrelTest::GlTest {
    void SetUp() override {
        // Registers what an earlier test has taken out.
        loadShader(GL::Shader::Type::Vertex, ShaderGroup::Engine, "FullscreenTriangle.vert");
        loadShader(GL::Shader::Type::Fragment, ShaderGroup::Editor, "OutlineInit.frag");
    }
};
typedef ShaderResourcesTest ShaderResourcesDeathTest;

std::vector<std::string> names(const Resource& group) {
    std::vector<std::string> names;
    for(const Containers::StringView name: group.list()) names.emplace_back(name.data(), name.size());
    return names;
}

std::vector<std::pair<std::string, std::size_t>> sizes(const Resource& group) {
    std::vector<std::pair<std::string, std::size_t>> sizes;
    for(const std::string& name: names(group)) sizes.emplace_back(name, group.getString(name.c_str()).size());
    return sizes;
}

TEST_F(ShaderResourcesTest, filesAndTheirSizes) {
    EXPECT_THAT(sizes(Resource{"VantrelEditorShaders"}),
        ElementsAre(Pair("OutlineDraw.frag", 663), Pair("OutlineInit.frag", 2378), Pair("OutlineStep.frag", 1321)));
    EXPECT_THAT(sizes(Resource{"VantrelEngineShaders"}),
        ElementsAre(Pair("Bloom.frag", 2141), Pair("FullscreenTriangle.vert", 234),
            Pair("IrradianceIBLBaker.frag", 1987), Pair("Overdraw.frag", 136), Pair("SpecularIBLBaker.frag", 3047)));
}

// Without anything in between, a terminator for example.
TEST_F(ShaderResourcesTest, filesFollowEachOther) {
    for(const char* name: {"VantrelEditorShaders", "VantrelEngineShaders"}) {
        const Resource group{name};
        const char* expected = nullptr;
        for(const std::string& file: names(group)) {
            const Containers::StringView text = group.getString(file.c_str());
            EXPECT_TRUE(!expected || text.data() == expected) << file;
            expected = text.end();
        }
    }
}

TEST_F(ShaderResourcesTest, textIsPlainAndWithoutVersion) {
    for(const char* name: {"VantrelEditorShaders", "VantrelEngineShaders"}) {
        const Resource group{name};
        for(const std::string& file: names(group)) {
            const Containers::StringView text = group.getString(file.c_str());
            EXPECT_FALSE(text.contains("#version")) << file;
            EXPECT_TRUE(text.hasSuffix("}\n")) << file;
            for(const char c: text) EXPECT_TRUE(c == '\n' || (c >= ' ' && c <= '~')) << file << ": " << int(c);
        }
    }
}

TEST_F(ShaderResourcesTest, aShaderHasTheVersionAndTheFile) {
    const GL::Shader shader = loadShader(GL::Shader::Type::Fragment, ShaderGroup::Engine, "Overdraw.frag");
    EXPECT_EQ(shader.type(), GL::Shader::Type::Fragment);
    const Containers::StringIterable sources = shader.sources();
    EXPECT_EQ(sources.front(), Containers::StringView{"#version 330\n"});
    EXPECT_EQ(sources.back(), Resource{"VantrelEngineShaders"}.getString("Overdraw.frag"));
}

TEST_F(ShaderResourcesTest, aFileComesAfterWhatTheShaderHas) {
    GL::Shader shader{shaderVersion(), GL::Shader::Type::Fragment};
    shader.addSource("#define FIRST\n");
    addShaderSource(shader, ShaderGroup::Editor, "OutlineDraw.frag");
    std::vector<std::string> sources;
    for(const Containers::StringView source: shader.sources()) sources.emplace_back(source.data(), source.size());
    EXPECT_EQ(std::count(sources.begin(), sources.end(), "#define FIRST\n"), 1);
    EXPECT_EQ(sources.back().substr(0, 9), "// Paints");
}

TEST_F(ShaderResourcesTest, everyProgramRegistersItsGroupsAgain) {
    const auto build = [](auto make, const char* name) {
        unregisterEditorShaders();
        unregisterEngineShaders();
        ASSERT_FALSE(Resource::hasGroup("VantrelEditorShaders"));
        ASSERT_FALSE(Resource::hasGroup("VantrelEngineShaders"));
        EXPECT_TRUE(make().validate().first()) << name;
        EXPECT_TRUE(Resource::hasGroup("VantrelEditorShaders")) << name;
        EXPECT_TRUE(Resource::hasGroup("VantrelEngineShaders")) << name;
    };
    build([] { return OutlineInit{}; }, "OutlineInit");
    build([] { return OutlineStep{}; }, "OutlineStep");
    build([] { return OutlineDraw{}; }, "OutlineDraw");
}

// A process of its own, in which nothing has asked for a shader yet.
TEST(ShaderResourcesLoadDeathTest, bothGroupsAreThereFromTheBeginning) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        std::exit(Resource::hasGroup("VantrelEditorShaders") && Resource::hasGroup("VantrelEngineShaders") ? 7 : 1),
        ExitedWithCode(7), "");
}

TEST_F(ShaderResourcesDeathTest, aFileThatIsNotThere) {
    EXPECT_EXIT(loadShader(GL::Shader::Type::Fragment, ShaderGroup::Editor, "Bloom.frag"), KilledBySignal(SIGABRT),
        "file 'Bloom.frag' was not found in group 'VantrelEditorShaders'");
}

}
