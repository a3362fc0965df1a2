#pragma once

#include <string>

#include <Corrade/Containers/Pointer.h>
#include <Corrade/PluginManager/Manager.h>

#include "AbstractProof.h"

namespace VantrelProof {

// The plugin from loading to unloading, with a close look at what it leaves behind. What is wrong is said on the error
// output.
class PluginSession {
public:
    // An empty directory stands for the one next to the program.
    explicit PluginSession(const std::string& pluginDirectory);

    // False if the plugin cannot be loaded, or does not bring both resource groups, in order.
    bool load();

    // Null if the plugin has none to give.
    Corrade::Containers::Pointer<AbstractProof> instantiate();

    // Without instances. False if anything of the plugin is still there afterwards: a resource group or the library.
    bool unload();

private:
    std::string file() const;

    Corrade::PluginManager::Manager<AbstractProof> _manager;
};

}
