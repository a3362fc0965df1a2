#include <Corrade/Containers/Pointer.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/PluginManager/Manager.hpp>
#include <Corrade/Utility/Path.h>
#include <gmock/gmock.h>

#include "AbstractCounter.h"
#include "PluginFolder.h"

using namespace Corrade;
using namespace Containers::Literals;
using PluginManager::LoadState;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::KilledBySignal;

typedef PluginManager::Manager<AbstractCounter> Manager;

namespace {

template<class T> std::vector<std::string> names(const PluginManager::Manager<T>& manager) {
    std::vector<std::string> out;
    for(const Containers::StringView name: manager.pluginList()) out.push_back(name);
    return out;
}

struct DiscoveryTest: PluginFolder {
    static void SetUpTestSuite() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};
typedef DiscoveryTest DiscoveryDeathTest;

TEST_F(DiscoveryTest, interfaceAndDirectoryAreKept) {
    Manager manager{folder()};
    EXPECT_EQ(std::string{manager.pluginInterface()}, "org.vantrel.Conformance.AbstractCounter/1.0");
    EXPECT_EQ(std::string{manager.pluginDirectory()}, folder());
}

TEST_F(DiscoveryTest, filesWithTheSuffixInOrder) {
    copyPlugin("Counter", "Zeta.so");
    copyPlugin("Counter", "Alpha.so");
    copyPlugin("Counter", "With.Dot.so");
    copyPlugin("Counter", "Library.so.1");
    copyPlugin("Counter", "none");
    write("Notes.txt", "");
    std::filesystem::create_directory(path("Folder.so"));
    Manager manager{folder()};
    EXPECT_THAT(names(manager), ElementsAre("Alpha", "With.Dot", "Zeta"));
    EXPECT_EQ(std::string{manager.loadAndInstantiate("With.Dot")->plugin()}, "With.Dot");
}

TEST_F(DiscoveryTest, missingDirectoryIsEmpty) {
    EXPECT_EQ(errorsOf([&] { EXPECT_THAT(names(Manager{path("missing")}), IsEmpty()); }), "");
}

TEST_F(DiscoveryTest, fileInsteadOfADirectory) {
    write("file", "");
    EXPECT_THAT(errorsOf([&] { EXPECT_THAT(names(Manager{path("file")}), IsEmpty()); }),
        HasSubstr("Utility::Path::list(): can't list " + path("file")));
}

TEST_F(DiscoveryTest, reloadFindsNewAndForgetsMissingFiles) {
    copyPlugin("Counter", "Old.so");
    Manager manager{folder()};
    std::filesystem::remove(path("Old.so"));
    copyPlugin("Counter", "New.so");
    EXPECT_EQ(manager.loadState("New"), LoadState::NotFound);
    manager.reloadPluginDirectory();
    EXPECT_THAT(names(manager), ElementsAre("New"));
    EXPECT_EQ(manager.loadState("Old"), LoadState::NotFound);
    EXPECT_EQ(manager.load("New"), LoadState::Loaded);
}

TEST_F(DiscoveryTest, reloadKeepsLoadedPlugins) {
    copyPlugin("Counter", "Old.so");
    Manager manager{folder()};
    Containers::Pointer<AbstractCounter> counter = manager.loadAndInstantiate("Old");
    std::filesystem::remove(path("Old.so"));
    manager.reloadPluginDirectory();
    EXPECT_EQ(manager.loadState("Old"), LoadState::Loaded);
    EXPECT_EQ(std::string{counter->plugin()}, "Old");
    EXPECT_EQ(counter->next(), 1);
}

TEST_F(DiscoveryTest, anotherDirectory) {
    copyPlugin("Counter", "Kept.so");
    copyPlugin("Counter", "Dropped.so");
    std::filesystem::create_directory(path("other"));
    copyPlugin("Counter", "other/Other.so");
    Manager manager{folder()};
    manager.load("Kept");
    manager.setPluginDirectory(path("other"));
    EXPECT_EQ(std::string{manager.pluginDirectory()}, path("other"));
    EXPECT_THAT(names(manager), ElementsAre("Kept", "Other"));
    EXPECT_EQ(manager.load("Other"), LoadState::Loaded);
}

TEST_F(DiscoveryTest, fileOutsideOfTheDirectory) {
    std::filesystem::create_directory(path("plugins"));
    copyPlugin("Counter", "Outside.so");
    Manager manager{path("plugins")};
    EXPECT_EQ(manager.load(path("Outside.so")), LoadState::Loaded);
    EXPECT_EQ(manager.loadState("Outside"), LoadState::Loaded);
    EXPECT_THAT(names(manager), ElementsAre("Outside"));
    EXPECT_EQ(std::string{manager.instantiate("Outside")->plugin()}, "Outside");
    // By now a name like any other.
    EXPECT_EQ(manager.load("Outside"), LoadState::Loaded);
    EXPECT_EQ(manager.unload("Outside"), LoadState::NotLoaded);
    manager.reloadPluginDirectory();
    EXPECT_EQ(manager.loadState("Outside"), LoadState::NotFound);
}

TEST_F(DiscoveryTest, instanceOfAFile) {
    copyPlugin("Counter", "Outside.so");
    Manager manager{path("plugins")};
    Containers::Pointer<AbstractCounter> counter = manager.loadAndInstantiate(path("Outside.so"));
    ASSERT_TRUE(counter);
    EXPECT_EQ(std::string{counter->plugin()}, "Outside");
}

TEST_F(DiscoveryTest, fileRelativeToTheCurrentDirectory) {
    copyPlugin("Counter", "Outside.so");
    Manager manager{path("plugins")};
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder());
    EXPECT_EQ(manager.load("Outside.so"), LoadState::Loaded);
    std::filesystem::current_path(before);
}

TEST_F(DiscoveryTest, pathWithoutSuffixIsAName) {
    copyPlugin("Counter", "Counter.so");
    Manager manager{folder()};
    const std::string name = path("Counter");
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.load(name), LoadState::NotFound); }),
        "PluginManager::Manager::load(): plugin " + name + " is not static and was not found in " + folder() + "\n");
}

TEST_F(DiscoveryTest, fileOfTheSameNameConflicts) {
    copyPlugin("Counter", "Counter.so");
    Manager manager{folder()};
    const auto load = [&] { EXPECT_EQ(manager.load(pluginFile("Counter")), LoadState::Used); };
    const std::string message =
        "PluginManager::load(): Counter.so conflicts with currently loaded plugin of the same name\n";
    manager.load("Counter");
    EXPECT_EQ(errorsOf(load), message);
    // Even if it is the very same.
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.load(path("Counter.so")), LoadState::Used); }), message);
    EXPECT_EQ(errorsOf([&] { EXPECT_FALSE(manager.loadAndInstantiate(path("Counter.so"))); }), message);
    EXPECT_EQ(manager.loadState("Counter"), LoadState::Loaded);
    manager.unload("Counter");
    EXPECT_EQ(manager.load(pluginFile("Counter")), LoadState::Loaded);
}

struct Searching: AbstractCounter {
    static Containers::Array<Containers::String> pluginSearchPaths() {
        return Containers::Array<Containers::String>{InPlaceInit, {"nowhere", RELATIVE_PLUGIN_DIRECTORY, "/"}};
    }
};

TEST_F(DiscoveryTest, firstSearchPathThatExists) {
    PluginManager::Manager<Searching> manager;
    EXPECT_TRUE(std::filesystem::equivalent(std::string{manager.pluginDirectory()}, PLUGIN_DIRECTORY));
    EXPECT_EQ(manager.loadState("Counter"), LoadState::NotLoaded);
}

TEST_F(DiscoveryTest, givenDirectoryComesBeforeSearchPaths) {
    PluginManager::Manager<Searching> manager{folder()};
    EXPECT_EQ(std::string{manager.pluginDirectory()}, folder());
    EXPECT_THAT(names(manager), IsEmpty());
}

struct Lost: AbstractCounter {
    static Containers::Array<Containers::String> pluginSearchPaths() {
        return Containers::Array<Containers::String>{InPlaceInit, {"nowhere", "/no/where"}};
    }
};

TEST_F(DiscoveryTest, noSearchPathExists) {
    EXPECT_EQ(errorsOf([] {
        PluginManager::Manager<Lost> manager;
        EXPECT_EQ(std::string{manager.pluginDirectory()}, "");
        EXPECT_THAT(names(manager), IsEmpty());
    }),
        "PluginManager::Manager: none of the plugin search paths in {nowhere, /no/where} exists and pluginDirectory "
        "was "
        "not set, skipping plugin discovery\n");
}

TEST_F(DiscoveryDeathTest, neitherDirectoryNorSearchPaths) {
    EXPECT_EXIT(Manager{}, KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::Manager: either pluginDirectory has to be set or T::pluginSearchPaths() is expected "
                  "to have at least one entry\n"));
}

struct OtherSuffix: AbstractCounter {
    static Containers::StringView pluginSuffix() { return ".vantrel"_s; }
};

TEST_F(DiscoveryTest, suffixOfTheInterface) {
    copyPlugin("Counter", "Mine.vantrel");
    copyPlugin("Counter", "Other.so");
    PluginManager::Manager<OtherSuffix> manager{folder()};
    EXPECT_THAT(names(manager), ElementsAre("Mine"));
    EXPECT_EQ(manager.load("Mine"), LoadState::Loaded);
}

struct WithMetadata: AbstractCounter {
    static Containers::StringView pluginMetadataSuffix() { return ".conf"_s; }
};

TEST_F(DiscoveryTest, metadataFileIsRequired) {
    copyPlugin("Counter", "With.so");
    write("With.conf", "");
    copyPlugin("Counter", "Without.so");
    const std::string discovery = "PluginManager::Manager: " + path("Without.conf") + " was not found\n";
    const std::string notReady = "PluginManager::Manager::load(): plugin Without is not ready to load: "
                                 "PluginManager::LoadState::WrongMetadataFile\n";
    EXPECT_EQ(errorsOf([&] {
        PluginManager::Manager<WithMetadata> manager{folder()};
        EXPECT_THAT(names(manager), ElementsAre("With", "Without"));
        EXPECT_EQ(manager.loadState("Without"), LoadState::WrongMetadataFile);
        EXPECT_EQ(manager.load("Without"), LoadState::WrongMetadataFile);
        EXPECT_FALSE(manager.loadAndInstantiate("Without"));
        EXPECT_EQ(manager.unload("Without"), LoadState::WrongMetadataFile);
        EXPECT_EQ(manager.load("With"), LoadState::Loaded);
    }),
        discovery + notReady + notReady);
}

TEST_F(DiscoveryTest, metadataFileIsRequiredOutsideOfTheDirectory) {
    copyPlugin("Counter", "With.so");
    write("With.conf", "");
    copyPlugin("Counter", "Without.so");
    PluginManager::Manager<WithMetadata> manager{path("plugins")};
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.load(path("Without.so")), LoadState::WrongMetadataFile); }),
        "PluginManager::Manager: " + path("Without.conf") +
            " was not found\n"
            "PluginManager::Manager::load(): plugin Without is not ready to load: "
            "PluginManager::LoadState::WrongMetadataFile\n");
    EXPECT_EQ(manager.loadState("Without"), LoadState::NotFound);
    EXPECT_EQ(manager.load(path("With.so")), LoadState::Loaded);
}

TEST_F(DiscoveryTest, metadataFileIsFoundAfterReload) {
    copyPlugin("Counter", "Plugin.so");
    errorsOf([&] {
        PluginManager::Manager<WithMetadata> manager{folder()};
        write("Plugin.conf", "");
        EXPECT_EQ(manager.load("Plugin"), LoadState::WrongMetadataFile);
        manager.reloadPluginDirectory();
        EXPECT_EQ(manager.load("Plugin"), LoadState::Loaded);
    });
}

// On the stack, not in the program's data.
const Containers::String NotGlobal = "not global";
struct LocalInterface: AbstractCounter {
    static Containers::StringView pluginInterface() { return NotGlobal; }
};
struct LocalSuffix: AbstractCounter {
    static Containers::StringView pluginSuffix() { return NotGlobal; }
};
struct LocalMetadataSuffix: AbstractCounter {
    static Containers::StringView pluginMetadataSuffix() { return NotGlobal; }
};

TEST_F(DiscoveryDeathTest, stringsOfTheInterfaceHaveToBeGlobal) {
    EXPECT_EXIT(PluginManager::Manager<LocalInterface>{folder()}, KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::AbstractPlugin::pluginInterface(): returned view is not global: not global\n"));
    EXPECT_EXIT(PluginManager::Manager<LocalSuffix>{folder()}, KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::AbstractPlugin::pluginSuffix(): returned view is not global: not global\n"));
    EXPECT_EXIT(PluginManager::Manager<LocalMetadataSuffix>{folder()}, KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::AbstractPlugin::pluginMetadataSuffix(): returned view is not global: not global\n"));
}

}
