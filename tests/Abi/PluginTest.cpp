#include <fstream>
#include <new>
#include <sstream>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/PluginManager/Manager.hpp>
#include <Corrade/Utility/Resource.h>
#include <gmock/gmock.h>

#include "Command.h"
#include "PluginSession.h"

using namespace Corrade;
using namespace VantrelProof;
using PluginManager::LoadState;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

namespace {

bool outOfMemory = false;

}

// Used by the plugin, too.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return outOfMemory ? nullptr : ::operator new(size);
}

namespace {

template<class F> std::string errorsOf(F&& f) {
    testing::internal::CaptureStderr();
    f();
    return testing::internal::GetCapturedStderr();
}

bool isMapped() {
    std::ifstream maps{"/proc/self/maps"};
    std::stringstream contents;
    contents << maps.rdbuf();
    return contents.str().find(PluginName) != std::string::npos;
}

std::vector<std::string> symbols(const std::string& arguments) {
    const CommandResult result = run(NM " --dynamic --format=posix " + arguments + " " PLUGIN_FILE);
    EXPECT_EQ(result.exitCode, 0) << result.output;
    std::vector<std::string> names;
    std::istringstream lines{result.output};
    for(std::string line; std::getline(lines, line);) names.push_back(line.substr(0, line.find(' ')));
    return names;
}

struct PluginTest: FolderTest {
    void TearDown() override { outOfMemory = false; }
};

TEST_F(PluginTest, exportsFiveFunctionsAndNothingElse) {
    EXPECT_THAT(symbols("--defined-only"),
        UnorderedElementsAre(
            "pluginVersion", "pluginInterface", "pluginInitializer", "pluginFinalizer", "pluginInstancer"));
}

TEST_F(PluginTest, needsNoWindowLibrary) {
    const CommandResult libraries = run(READELF " --dynamic " PLUGIN_FILE);
    EXPECT_EQ(libraries.exitCode, 0);
    EXPECT_THAT(libraries.output, HasSubstr("(NEEDED)"));
    EXPECT_THAT(libraries.output, Not(HasSubstr("glfw")));
    for(const std::string& symbol: symbols("--undefined-only")) {
        EXPECT_THAT(symbol, Not(HasSubstr("glfw")));
        EXPECT_THAT(symbol, Not(HasSubstr("GlfwApplication")));
    }
}

TEST_F(PluginTest, interfaceNamesTheModule) {
    EXPECT_THAT(std::string{AbstractProof::pluginInterface()}, EndsWith("AbstractModule/1.1"));
    EXPECT_THAT(std::string{AbstractProof::pluginInterface()}, testing::StartsWith("org.vantrel."));
}

TEST_F(PluginTest, bringsItsResourcesAndTakesThemAway) {
    PluginSession session{PLUGIN_DIRECTORY};
    EXPECT_EQ(errorsOf([&] {
        EXPECT_FALSE(Utility::Resource::hasGroup(PaletteGroup));
        EXPECT_TRUE(session.load());
        EXPECT_TRUE(Utility::Resource::hasGroup(PaletteGroup));
        EXPECT_TRUE(Utility::Resource::hasGroup(LayoutGroup));
        EXPECT_THAT(std::string{Utility::Resource{PaletteGroup}.getString("palette.txt")}, HasSubstr("\nsphere "));
        EXPECT_TRUE(isMapped());
        EXPECT_TRUE(session.instantiate());
        EXPECT_TRUE(session.unload());
        EXPECT_FALSE(Utility::Resource::hasGroup(PaletteGroup));
        EXPECT_FALSE(Utility::Resource::hasGroup(LayoutGroup));
        EXPECT_FALSE(isMapped());
    }),
        "");
}

TEST_F(PluginTest, leavesNothingBehindAfterFiftyTimes) {
    PluginSession session{PLUGIN_DIRECTORY};
    for(int i = 0; i != 50; ++i) {
        ASSERT_TRUE(session.load());
        ASSERT_TRUE(session.instantiate());
        ASSERT_TRUE(session.unload());
        ASSERT_FALSE(isMapped());
    }
}

TEST_F(PluginTest, liveInstanceIsReported) {
    PluginSession session{PLUGIN_DIRECTORY};
    ASSERT_TRUE(session.load());
    {
        const Containers::Pointer<AbstractProof> proof = session.instantiate();
        EXPECT_EQ(errorsOf([&] { EXPECT_FALSE(session.unload()); }),
            "PluginManager::Manager::unload(): plugin VantrelProofPlugin has a live instance which cannot be "
            "automatically deleted\n");
    }
    EXPECT_TRUE(session.unload());
}

TEST_F(PluginTest, withoutMemoryThereIsNoInstance) {
    PluginManager::Manager<AbstractProof> manager{PLUGIN_DIRECTORY};
    EXPECT_EQ(errorsOf([&] {
        outOfMemory = true;
        EXPECT_FALSE(manager.loadAndInstantiate(PluginName));
        outOfMemory = false;
    }),
        "");
    EXPECT_EQ(manager.loadState(PluginName), LoadState::Loaded);
    EXPECT_TRUE(manager.instantiate(PluginName));
    EXPECT_EQ(manager.unload(PluginName), LoadState::NotLoaded);
}

TEST_F(PluginTest, withoutMemoryTheProgramSaysSo) {
    PluginSession session{PLUGIN_DIRECTORY};
    ASSERT_TRUE(session.load());
    outOfMemory = true;
    EXPECT_EQ(errorsOf([&] { EXPECT_FALSE(session.instantiate()); }),
        "vantrel-proof: the plugin has no memory for an instance\n");
    outOfMemory = false;
    EXPECT_TRUE(session.unload());
}

TEST_F(PluginTest, missingPlugin) {
    PluginSession session{path("")};
    EXPECT_THAT(errorsOf([&] { EXPECT_FALSE(session.load()); }),
        HasSubstr("PluginManager::Manager::load(): plugin VantrelProofPlugin is not static and was not found in "));
}

TEST_F(PluginTest, brokenPlugin) {
    std::ofstream{path("VantrelProofPlugin.so")} << "no library";
    {
        PluginSession session{path("")};
        EXPECT_THAT(errorsOf([&] { EXPECT_FALSE(session.load()); }),
            HasSubstr("PluginManager::Manager::load(): cannot load plugin VantrelProofPlugin from "));
    }
    PluginSession session{PLUGIN_DIRECTORY};
    EXPECT_TRUE(session.load());
    EXPECT_TRUE(session.unload());
}

TEST_F(PluginTest, pluginOfAnotherInterface) {
    struct AbstractOther: PluginManager::AbstractPlugin {
        static Containers::StringView pluginInterface() {
            using namespace Containers::Literals;
            return "org.vantrel.proof.AbstractOther/1.0"_s;
        }
        static Containers::StringView pluginMetadataSuffix() { return {}; }
        using AbstractPlugin::AbstractPlugin;
    };
    PluginManager::Manager<AbstractOther> manager{PLUGIN_DIRECTORY};
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.load(PluginName), LoadState::WrongInterfaceVersion); }),
        "PluginManager::Manager::load(): wrong interface string of plugin VantrelProofPlugin, expected "
        "org.vantrel.proof.AbstractOther/1.0 but got org.vantrel.proof.AbstractModule/1.1\n");
    EXPECT_FALSE(isMapped());
    EXPECT_FALSE(Utility::Resource::hasGroup(PaletteGroup));
}

}
