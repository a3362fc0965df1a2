#include <cstdlib>

#include <dlfcn.h>

#include <Corrade/Containers/Pointer.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/PluginManager/Manager.hpp>
#include <Corrade/PluginManager/PluginMetadata.h>
#include <Corrade/Utility/Debug.h>
#include <gmock/gmock.h>

#include "AbstractCounter.h"
#include "PluginFolder.h"

using namespace Corrade;
using PluginManager::LoadState;
using testing::HasSubstr;
using testing::KilledBySignal;

typedef PluginManager::Manager<AbstractCounter> Manager;

namespace {

bool isMapped(const std::string& file) {
    void* const library = dlopen(file.data(), RTLD_NOW | RTLD_NOLOAD);
    if(library) dlclose(library);
    return library;
}

TEST(LifecycleTest, version) {
    EXPECT_EQ(CORRADE_PLUGIN_VERSION, 7);
    EXPECT_EQ(int(PluginManager::AbstractManager::Version), 7);
}

TEST(LifecycleTest, roundTrip) {
    Manager manager{pluginDirectory()};
    EXPECT_EQ(manager.loadState("Counter"), LoadState::NotLoaded);
    EXPECT_FALSE(isMapped(pluginFile("Counter")));

    EXPECT_EQ(outputOf([&] { EXPECT_EQ(manager.load("Counter"), LoadState::Loaded); }), "initialized\n");
    EXPECT_EQ(manager.loadState("Counter"), LoadState::Loaded);
    EXPECT_TRUE(isMapped(pluginFile("Counter")));

    Containers::Pointer<AbstractCounter> counter;
    EXPECT_EQ(outputOf([&] { counter = manager.instantiate("Counter"); }), "constructed Counter\n");
    ASSERT_TRUE(counter);
    EXPECT_EQ(counter->next(), 1);
    EXPECT_EQ(counter->next(), 2);
    EXPECT_EQ(std::string{counter->plugin()}, "Counter");
    ASSERT_TRUE(counter->metadata());
    EXPECT_EQ(counter->metadata(), manager.metadata("Counter"));
    EXPECT_EQ(std::string{counter->metadata()->name()}, "Counter");

    EXPECT_EQ(outputOf([&] { counter = nullptr; }), "destructed\n");
    EXPECT_EQ(outputOf([&] { EXPECT_EQ(manager.unload("Counter"), LoadState::NotLoaded); }), "finalized\nunloaded\n");
    EXPECT_EQ(manager.loadState("Counter"), LoadState::NotLoaded);
    EXPECT_FALSE(isMapped(pluginFile("Counter")));
}

TEST(LifecycleTest, loadStateIsTestedAsASet) {
    Manager manager{pluginDirectory()};
    EXPECT_TRUE(manager.load("Counter") & LoadState::Loaded);
    EXPECT_FALSE(manager.loadState("Deletable") & LoadState::Loaded);
    EXPECT_TRUE((LoadState::Used | LoadState::NotFound) & LoadState::Used);
}

TEST(LifecycleTest, loadedTwiceIsInitializedOnce) {
    Manager manager{pluginDirectory()};
    EXPECT_EQ(outputOf([&] {
        EXPECT_EQ(manager.load("Counter"), LoadState::Loaded);
        EXPECT_EQ(manager.load("Counter"), LoadState::Loaded);
    }),
        "initialized\n");
}

TEST(LifecycleTest, loadAndInstantiate) {
    Manager manager{pluginDirectory()};
    auto first = manager.loadAndInstantiate("Counter");
    auto second = manager.loadAndInstantiate("Counter");
    ASSERT_TRUE(first);
    ASSERT_TRUE(second);
    EXPECT_EQ(first->next(), 1);
    EXPECT_EQ(second->next(), 1);
}

TEST(LifecycleTest, loadAgainAfterUnload) {
    Manager manager{pluginDirectory()};
    EXPECT_EQ(outputOf([&] {
        for(int i = 0; i != 3; ++i) {
            EXPECT_EQ(manager.load("Counter"), LoadState::Loaded);
            EXPECT_EQ(manager.unload("Counter"), LoadState::NotLoaded);
        }
    }),
        "initialized\nfinalized\nunloaded\ninitialized\nfinalized\nunloaded\ninitialized\nfinalized\nunloaded\n");
}

TEST(LifecycleTest, managerUnloadsWhatItLoaded) {
    EXPECT_EQ(outputOf([] {
        Manager manager{pluginDirectory()};
        manager.load("Counter");
    }),
        "initialized\nfinalized\nunloaded\n");
    EXPECT_FALSE(isMapped(pluginFile("Counter")));
}

TEST(LifecycleTest, unloadOfWhatIsNotLoadedChangesNothing) {
    Manager manager{pluginDirectory()};
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.unload("Counter"), LoadState::NotLoaded); }), "");
}

TEST(LifecycleTest, unloadOfUnknownPlugin) {
    Manager manager{pluginDirectory()};
    EXPECT_EQ(errorsOf([&] { EXPECT_EQ(manager.unload("Missing"), LoadState::NotFound); }),
        "PluginManager::Manager::unload(): plugin Missing was not found\n");
}

TEST(LifecycleTest, liveInstanceKeepsThePluginLoaded) {
    Manager manager{pluginDirectory()};
    auto first = manager.loadAndInstantiate("Counter");
    auto second = manager.instantiate("Counter");
    const auto unload = [&] { EXPECT_EQ(manager.unload("Counter"), LoadState::Used); };
    const std::string message = "PluginManager::Manager::unload(): plugin Counter has a live instance which cannot be "
                                "automatically deleted\n";
    EXPECT_EQ(errorsOf(unload), message);
    EXPECT_EQ(manager.loadState("Counter"), LoadState::Loaded);
    EXPECT_EQ(second->next(), 1);
    first = nullptr;
    EXPECT_EQ(errorsOf(unload), message);
    second = nullptr;
    EXPECT_EQ(manager.unload("Counter"), LoadState::NotLoaded);
}

TEST(LifecycleTest, deletableInstancesAreDeletedOnUnload) {
    Manager manager{pluginDirectory()};
    manager.load("Deletable");
    // The manager takes care of them.
    (void)manager.instantiate("Deletable").release();
    (void)manager.instantiate("Deletable").release();
    EXPECT_EQ(outputOf([&] { EXPECT_EQ(manager.unload("Deletable"), LoadState::NotLoaded); }),
        "destructed\ndestructed\nfinalized\nunloaded\n");
}

TEST(LifecycleTest, deletableInstancesAreDeletedWithTheManager) {
    EXPECT_EQ(outputOf([] {
        Manager manager{pluginDirectory()};
        (void)manager.loadAndInstantiate("Deletable").release();
    }),
        "initialized\nconstructed Deletable\ndestructed\nfinalized\nunloaded\n");
}

TEST(LifecycleTest, nullInstanceIsSilent) {
    Manager manager{pluginDirectory()};
    EXPECT_EQ(errorsOf([&] {
        EXPECT_FALSE(manager.loadAndInstantiate("NullInstancer"));
        EXPECT_FALSE(manager.instantiate("NullInstancer"));
    }),
        "");
    EXPECT_EQ(manager.loadState("NullInstancer"), LoadState::Loaded);
    EXPECT_EQ(manager.unload("NullInstancer"), LoadState::NotLoaded);
}

TEST(LifecycleTest, managersLoadIndependently) {
    Manager first{pluginDirectory()}, second{pluginDirectory()};
    first.load("Counter");
    EXPECT_EQ(second.loadState("Counter"), LoadState::NotLoaded);
    second.load("Counter");
    EXPECT_EQ(first.unload("Counter"), LoadState::NotLoaded);
    EXPECT_EQ(second.loadState("Counter"), LoadState::Loaded);
    EXPECT_TRUE(second.instantiate("Counter"));
}

TEST(LifecycleTest, stateNames) {
    const struct {
        LoadState state;
        int value;
        const char* text;
    } data[]{{LoadState::NotFound, 1, "NotFound"}, {LoadState::WrongPluginVersion, 2, "WrongPluginVersion"},
        {LoadState::WrongInterfaceVersion, 4, "WrongInterfaceVersion"},
        {LoadState::WrongMetadataFile, 8, "WrongMetadataFile"},
        {LoadState::UnresolvedDependency, 16, "UnresolvedDependency"}, {LoadState::LoadFailed, 32, "LoadFailed"},
        {LoadState::Static, 64, "Static"}, {LoadState::Loaded, 192, "Loaded"}, {LoadState::NotLoaded, 256, "NotLoaded"},
        {LoadState::UnloadFailed, 512, "UnloadFailed"}, {LoadState::Required, 1024, "Required"},
        {LoadState::Used, 2048, "Used"}};
    for(const auto& i: data) {
        EXPECT_EQ(int(i.state), i.value);
        Containers::String text;
        Utility::Debug{&text, Utility::Debug::Flag::NoNewlineAtTheEnd} << i.state;
        EXPECT_EQ(std::string{text}, std::string{"PluginManager::LoadState::"} + i.text);
    }
    Containers::String text;
    Utility::Debug{&text, Utility::Debug::Flag::NoNewlineAtTheEnd} << LoadState(4096);
    EXPECT_EQ(std::string{text}, "PluginManager::LoadState(0x1000)");
}

struct LifecycleDeathTest: testing::Test {
    static void SetUpTestSuite() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(LifecycleDeathTest, instanceOutlivesTheManager) {
    const auto outlive = [] {
        Containers::Pointer<AbstractCounter> counter;
        Manager manager{pluginDirectory()};
        counter = manager.loadAndInstantiate("Counter");
    };
    EXPECT_EXIT(outlive(), KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::Manager::unload(): plugin Counter has a live instance which cannot be automatically "
                  "deleted\n"
                  "PluginManager::Manager: cannot unload plugin Counter on manager destruction: "
                  "PluginManager::LoadState::Used\n"));
}

// In a process of its own: who asks for a symbol this way keeps its library for ever.
TEST_F(LifecycleDeathTest, symbolsAreVisibleToEverybody) {
    const auto look = [](const char* plugin) {
        Manager manager{pluginDirectory()};
        if(plugin) manager.load(plugin);
        std::_Exit(dlsym(RTLD_DEFAULT, "pluginVersion") ? 1 : 0);
    };
    EXPECT_EXIT(look(nullptr), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(look("Counter"), testing::ExitedWithCode(1), "");
}

TEST_F(LifecycleDeathTest, instantiateNeedsALoadedPlugin) {
    EXPECT_EXIT(Manager{pluginDirectory()}.instantiate("Counter"), KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::Manager::instantiate(): plugin Counter is not loaded\n"));
    EXPECT_EXIT(Manager{pluginDirectory()}.instantiate("Missing"), KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::Manager::instantiate(): plugin Missing is not loaded\n"));
}

}
