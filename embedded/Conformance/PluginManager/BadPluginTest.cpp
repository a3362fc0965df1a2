#include <Corrade/Containers/Pointer.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/PluginManager/Manager.hpp>
#include <gmock/gmock.h>

#include "AbstractCounter.h"
#include "PluginFolder.h"

using namespace Corrade;
using PluginManager::LoadState;
using testing::StartsWith;

typedef PluginManager::Manager<AbstractCounter> Manager;

namespace {

// Whatever was wrong before, the manager still works.
void expectGoodPluginLoads(Manager& manager) {
    EXPECT_EQ(manager.load(pluginFile("Counter")), LoadState::Loaded);
    Containers::Pointer<AbstractCounter> counter = manager.instantiate("Counter");
    ASSERT_TRUE(counter);
    EXPECT_EQ(counter->next(), 1);
}

struct WrongPlugin {
    const char* plugin;
    LoadState state;
    std::string message;
};

struct WrongPluginTest: testing::TestWithParam<WrongPlugin> {};

TEST_P(WrongPluginTest, isRefused) {
    Manager manager{pluginDirectory()};
    const WrongPlugin& data = GetParam();
    // Not even initialized: nothing on the debug output.
    EXPECT_EQ(outputOf([&] {
        EXPECT_THAT(errorsOf([&] { EXPECT_EQ(manager.load(data.plugin), data.state); }),
            StartsWith("PluginManager::Manager::load(): " + data.message));
    }),
        "");
    EXPECT_EQ(manager.loadState(data.plugin), LoadState::NotLoaded);
    expectGoodPluginLoads(manager);
}

TEST_P(WrongPluginTest, givesNoInstance) {
    Manager manager{pluginDirectory()};
    const WrongPlugin& data = GetParam();
    EXPECT_THAT(errorsOf([&] { EXPECT_FALSE(manager.loadAndInstantiate(data.plugin)); }),
        StartsWith("PluginManager::Manager::load(): " + data.message));
}

TEST_P(WrongPluginTest, isRefusedAsAFile) {
    Manager manager{pluginDirectory()};
    const WrongPlugin& data = GetParam();
    EXPECT_THAT(errorsOf([&] { EXPECT_EQ(manager.load(pluginFile(data.plugin)), data.state); }),
        StartsWith("PluginManager::Manager::load(): " + data.message));
    EXPECT_EQ(manager.loadState(data.plugin), LoadState::NotLoaded);
    expectGoodPluginLoads(manager);
}

INSTANTIATE_TEST_SUITE_P(BadPluginTest, WrongPluginTest,
    testing::Values(WrongPlugin{"OldVersion", LoadState::WrongPluginVersion,
                        "wrong version of plugin OldVersion, expected 7 but got 6\n"},
        WrongPlugin{"OtherInterface", LoadState::WrongInterfaceVersion,
            "wrong interface string of plugin OtherInterface, expected org.vantrel.Conformance.AbstractCounter/1.0 but "
            "got org.vantrel.Conformance.Other/1.0\n"},
        WrongPlugin{"NoVersion", LoadState::LoadFailed,
            "cannot get version of plugin NoVersion: " + pluginFile("NoVersion") +
                ": undefined symbol: pluginVersion\n"},
        WrongPlugin{"NoInterface", LoadState::LoadFailed,
            "cannot get interface string of plugin NoInterface: " + pluginFile("NoInterface") +
                ": undefined symbol: pluginInterface\n"},
        WrongPlugin{"NoInitializer", LoadState::LoadFailed,
            "cannot get initializer of plugin NoInitializer: " + pluginFile("NoInitializer") +
                ": undefined symbol: pluginInitializer\n"},
        WrongPlugin{"NoFinalizer", LoadState::LoadFailed,
            "cannot get finalizer of plugin NoFinalizer: " + pluginFile("NoFinalizer") +
                ": undefined symbol: pluginFinalizer\n"},
        WrongPlugin{"NoInstancer", LoadState::LoadFailed,
            "cannot get instancer of plugin NoInstancer: " + pluginFile("NoInstancer") +
                ": undefined symbol: pluginInstancer\n"},
        // The rest of this one is the linker's mangling of the name.
        WrongPlugin{"Unresolved", LoadState::LoadFailed,
            "cannot load plugin Unresolved from \"" + pluginFile("Unresolved") + "\": " + pluginFile("Unresolved") +
                ": undefined symbol: "}),
    [](const auto& info) { return std::string{info.param.plugin}; });

struct BadFileTest: PluginFolder {
    // Loads the file Broken.so, expected to fail.
    void expectRefused(const std::string& reason) {
        Manager manager{folder()};
        const std::string file = path("Broken.so");
        const std::string message =
            "PluginManager::Manager::load(): cannot load plugin Broken from \"" + file + "\": " + file + ": " + reason;
        for(int i = 0; i != 2; ++i) {
            EXPECT_THAT(
                errorsOf([&] { EXPECT_EQ(manager.load("Broken"), LoadState::LoadFailed); }), StartsWith(message));
            EXPECT_EQ(manager.loadState("Broken"), LoadState::NotLoaded);
        }
        expectGoodPluginLoads(manager);
    }
};

TEST_F(BadFileTest, empty) {
    write("Broken.so", "");
    expectRefused("file too short");
}

TEST_F(BadFileTest, shortText) {
    write("Broken.so", "text\n");
    expectRefused("file too short");
}

TEST_F(BadFileTest, longText) {
    write("Broken.so", std::string(5000, 'x'));
    expectRefused("invalid ELF header");
}

TEST_F(BadFileTest, cutInTheHeader) {
    copyPlugin("Counter", "Broken.so");
    std::filesystem::resize_file(path("Broken.so"), 40);
    expectRefused("file too short");
}

TEST_F(BadFileTest, danglingLink) {
    std::filesystem::create_symlink("nowhere", path("Broken.so"));
    expectRefused("cannot open shared object file");
}

TEST_F(BadFileTest, goneSinceDiscovery) {
    copyPlugin("Counter", "Broken.so");
    Manager manager{folder()};
    std::filesystem::remove(path("Broken.so"));
    const std::string file = path("Broken.so");
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.load("Broken"), LoadState::LoadFailed); }),
        "PluginManager::Manager::load(): cannot load plugin Broken from \"" + file + "\": " + file +
            ": cannot open shared object file: No such file or directory\n");
}

TEST_F(BadFileTest, directoryIsNoPlugin) {
    std::filesystem::create_directory(path("Broken.so"));
    Manager manager{folder()};
    EXPECT_TRUE(manager.pluginList().isEmpty());
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.load("Broken"), LoadState::NotFound); }),
        "PluginManager::Manager::load(): plugin Broken is not static and was not found in " + folder() + "\n");
}

TEST_F(BadFileTest, missingFileByPath) {
    Manager manager{folder()};
    const std::string file = path("Missing.so");
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.load(file), LoadState::LoadFailed); }),
        "PluginManager::Manager::load(): cannot load plugin Missing from \"" + file + "\": " + file +
            ": cannot open shared object file: No such file or directory\n");
    EXPECT_EQ(manager.loadState("Missing"), LoadState::NotFound);
    expectGoodPluginLoads(manager);
}

TEST_F(BadFileTest, missingByName) {
    Manager manager{folder()};
    const std::string message =
        "PluginManager::Manager::load(): plugin Missing is not static and was not found in " + folder() + "\n";
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.load("Missing"), LoadState::NotFound); }), message);
    EXPECT_EQ(errorsOf([&] { EXPECT_FALSE(manager.loadAndInstantiate("Missing")); }), message);
    EXPECT_EQ(manager.loadState("Missing"), LoadState::NotFound);
    EXPECT_FALSE(manager.metadata("Missing"));
}

// A plugin that was replaced by a good one works the next time.
TEST_F(BadFileTest, repairedFileLoads) {
    write("Broken.so", "not yet");
    Manager manager{folder()};
    errorsOf([&] { EXPECT_EQ(manager.load("Broken"), LoadState::LoadFailed); });
    copyPlugin("Counter", "Broken.so");
    EXPECT_EQ(manager.load("Broken"), LoadState::Loaded);
    EXPECT_EQ(std::string{manager.instantiate("Broken")->plugin()}, "Broken");
}

}
