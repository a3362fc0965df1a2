#include <Corrade/Containers/StringStl.h>
#include <Corrade/PluginManager/Manager.hpp>
#include <gmock/gmock.h>

#include "AbstractCounter.h"
#include "PluginFolder.h"

using namespace Corrade;
using PluginManager::LoadState;

typedef PluginManager::Manager<AbstractCounter> Manager;

namespace {

struct TruncatedLibraryTest: PluginFolder {};

// The dynamic linker would be killed by SIGBUS for most of these.
TEST_F(TruncatedLibraryTest, isRefusedWherever) {
    copyPlugin("Counter", "Counter.so");
    const std::string file = path("Counter.so");
    const std::string message =
        "PluginManager::Manager::load(): cannot load plugin Counter from \"" + file + "\": " + file;
    int refused = 0;
    for(std::uintmax_t size = std::filesystem::file_size(file); size > 64; size = size * 3 / 4) {
        copyPlugin("Counter", "Counter.so");
        std::filesystem::resize_file(file, size);
        Manager manager{folder()};
        const std::string errors = errorsOf([&] {
            const LoadState state = manager.load("Counter");
            EXPECT_TRUE(state == LoadState::Loaded || state == LoadState::LoadFailed);
            refused += state == LoadState::LoadFailed;
        });
        if(manager.loadState("Counter") != LoadState::Loaded) {
            EXPECT_EQ(errors, message + ": file too short\n") << size;
        }
    }
    EXPECT_GE(refused, 10);
}

TEST_F(TruncatedLibraryTest, completeOneLoadsAfterwards) {
    copyPlugin("Counter", "Counter.so");
    std::filesystem::resize_file(path("Counter.so"), 5000);
    Manager manager{folder()};
    errorsOf([&] { EXPECT_EQ(manager.load("Counter"), LoadState::LoadFailed); });
    copyPlugin("Counter", "Counter.so");
    EXPECT_EQ(manager.load("Counter"), LoadState::Loaded);
}

}
