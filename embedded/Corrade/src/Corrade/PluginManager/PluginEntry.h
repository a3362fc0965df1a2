#pragma once

#include <vector>

#include "Corrade/Containers/StringView.h"
#include "Corrade/PluginManager/AbstractManager.h"
#include "Corrade/PluginManager/PluginMetadata.h"

namespace Corrade::PluginManager::Implementation {

// The functions of a library, in the order in which they are looked up.
struct PluginFunctions {
    int (*version)();
    const char* (*interface)();
    void (*initializer)();
    void (*finalizer)();
    void* (*instancer)(AbstractManager&, const Containers::StringView&);
};

// One plugin that a manager knows. Stays where it is, instances point to it.
struct PluginEntry {
    explicit PluginEntry(Containers::StringView name): metadata{name} {}

    PluginMetadata metadata;
    LoadState state = LoadState::NotLoaded;
    // Both only while loaded.
    void* library{};
    PluginFunctions functions{};
    std::vector<AbstractPlugin*> instances;
};

}
