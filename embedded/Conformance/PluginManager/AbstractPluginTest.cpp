#include <type_traits>

#include <Corrade/Containers/Pointer.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/PluginManager/Manager.hpp>
#include <Corrade/PluginManager/PluginMetadata.h>
#include <gmock/gmock.h>

#include "AbstractCounter.h"
#include "PluginFolder.h"

using namespace Corrade;
using PluginManager::AbstractPlugin;
using PluginManager::LoadState;
using testing::HasSubstr;
using testing::KilledBySignal;

typedef PluginManager::Manager<AbstractCounter> Manager;

namespace {

struct LocalCounter: AbstractCounter {
    using AbstractCounter::AbstractCounter;
    // Inherited constructors do not cover this one.
    explicit LocalCounter() = default;
    int next() override { return 42; }
};

struct AbstractPluginTest: testing::Test {
    static void SetUpTestSuite() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};
typedef AbstractPluginTest AbstractPluginDeathTest;

TEST_F(AbstractPluginTest, defaults) {
    EXPECT_EQ(std::string{AbstractPlugin::pluginSuffix()}, ".so");
    EXPECT_EQ(std::string{AbstractPlugin::pluginMetadataSuffix()}, ".conf");
    EXPECT_TRUE(AbstractPlugin::pluginSearchPaths().isEmpty());
    AbstractPlugin::initialize();
    AbstractPlugin::finalize();
}

TEST_F(AbstractPluginTest, moves) {
    EXPECT_FALSE(std::is_copy_constructible<AbstractCounter>::value);
    EXPECT_FALSE(std::is_copy_assignable<AbstractCounter>::value);
    EXPECT_TRUE(std::is_move_constructible<LocalCounter>::value);
    EXPECT_FALSE(std::is_move_assignable<LocalCounter>::value);
    EXPECT_TRUE(std::has_virtual_destructor<AbstractPlugin>::value);
}

TEST_F(AbstractPluginTest, withoutManager) {
    LocalCounter counter;
    EXPECT_EQ(std::string{counter.plugin()}, "");
    EXPECT_FALSE(counter.metadata());
    EXPECT_FALSE(counter.canBeDeleted());
}

TEST_F(AbstractPluginTest, registersItself) {
    Manager manager{pluginDirectory()};
    manager.load("Counter");
    errorsOf([&] {
        LocalCounter counter{manager, "Counter"};
        EXPECT_EQ(std::string{counter.plugin()}, "Counter");
        EXPECT_EQ(manager.unload("Counter"), LoadState::Used);
    });
    EXPECT_EQ(manager.unload("Counter"), LoadState::NotLoaded);
}

TEST_F(AbstractPluginTest, registrationMovesAlong) {
    Manager manager{pluginDirectory()};
    manager.load("Counter");
    errorsOf([&] {
        Containers::Pointer<LocalCounter> first{new LocalCounter{manager, "Counter"}};
        LocalCounter second{std::move(*first)};
        first = nullptr;
        EXPECT_EQ(std::string{second.plugin()}, "Counter");
        EXPECT_EQ(manager.unload("Counter"), LoadState::Used);
    });
    EXPECT_EQ(manager.unload("Counter"), LoadState::NotLoaded);
}

TEST_F(AbstractPluginTest, withoutManagerMoves) {
    LocalCounter first;
    LocalCounter second{std::move(first)};
    EXPECT_EQ(std::string{second.plugin()}, "");
    EXPECT_FALSE(second.metadata());
}

TEST_F(AbstractPluginDeathTest, movedFromHasNoName) {
    LocalCounter first;
    LocalCounter second{std::move(first)};
    EXPECT_EXIT(first.plugin(), KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::AbstractPlugin::plugin(): can't be called on a moved-out plugin\n"));
    EXPECT_EXIT(first.metadata(), KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::AbstractPlugin::metadata(): can't be called on a moved-out plugin\n"));
}

TEST_F(AbstractPluginDeathTest, pluginHasToBeKnown) {
    Manager manager{pluginDirectory()};
    EXPECT_EXIT((LocalCounter{manager, "Missing"}), KilledBySignal(SIGABRT),
        HasSubstr("PluginManager::AbstractPlugin::AbstractPlugin(): attempt to register instance of plugin not known "
                  "to given manager\n"));
}

}
