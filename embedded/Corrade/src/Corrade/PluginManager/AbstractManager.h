#pragma once

#include "Corrade/Containers/Containers.h"
#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Containers/Pointer.h"
#include "Corrade/PluginManager/PluginManager.h"
#include "Corrade/Utility/Utility.h"
#include "Corrade/Utility/VisibilityMacros.h"

namespace Corrade::PluginManager {

// Result of loading or unloading, or the state a plugin is in. Loaded covers plugins linked into the executable, too:
// test with `load(x) & LoadState::Loaded`.
enum class LoadState : unsigned short {
    NotFound = 1 << 0,
    WrongPluginVersion = 1 << 1,
    WrongInterfaceVersion = 1 << 2,
    WrongMetadataFile = 1 << 3,
    UnresolvedDependency = 1 << 4,
    LoadFailed = 1 << 5,
    Static = 1 << 6,
    Loaded = (1 << 7) | Static,
    NotLoaded = 1 << 8,
    UnloadFailed = 1 << 9,
    Required = 1 << 10,
    Used = 1 << 11
};

typedef Containers::EnumSet<LoadState> LoadStates;
CORRADE_ENUMSET_OPERATORS(LoadStates)

CORRADE_VISIBILITY_EXPORT Utility::Debug& operator<<(Utility::Debug& debug, LoadState value);

// The version of the plugin entry points, see AbstractManager::Version.
#define CORRADE_PLUGIN_VERSION 7

// Finds, loads and unloads the plugins of one interface, and knows their instances. Everything that can be wrong with
// a plugin ends in a LoadState and one line on the error output that says what. Not thread-safe.
class CORRADE_VISIBILITY_EXPORT AbstractManager {
public:
    // Version of the five functions that a plugin exports with C linkage, and that are looked up in this order:
    // int pluginVersion(), const char* pluginInterface(), void pluginInitializer(), void pluginFinalizer(),
    // void* pluginInstancer(AbstractManager&, const Containers::StringView&).
    static const int Version;

    AbstractManager(const AbstractManager&) = delete;
    AbstractManager& operator=(const AbstractManager&) = delete;

    Containers::StringView pluginInterface() const;

    // As given to the constructor, or the search path that was found; empty if there was none.
    Containers::StringView pluginDirectory() const;

    // Forgets what is not loaded and looks into another directory.
    void setPluginDirectory(Containers::StringView directory);

    // Looks into the directory again: new files are found, missing ones forgotten. Loaded plugins stay as they are.
    void reloadPluginDirectory();

    // Names in alphabetical order.
    Containers::Array<Containers::StringView> pluginList() const;

    // Null if there is no such plugin.
    PluginMetadata* metadata(Containers::StringView plugin);

    // NotFound, NotLoaded, WrongMetadataFile or Loaded.
    LoadState loadState(Containers::StringView plugin) const;

    // Loads a plugin of the directory by its name, or from a file if the argument ends in the plugin suffix (relative
    // to the current directory). A plugin that is there already is Loaded by name, but a file of its name is Used.
    // Symbols are resolved at once and are visible to libraries that are loaded later.
    LoadState load(Containers::StringView plugin);

    // Deletes all instances that allow it, calls the finalizer and removes the library from the process. With an
    // instance that does not allow it everything stays as it is and the result is Used.
    LoadState unload(Containers::StringView plugin);

protected:
    explicit AbstractManager(Containers::StringView pluginInterface,
        Containers::ArrayView<const Containers::String> searchPaths, Containers::StringView pluginSuffix,
        Containers::StringView metadataSuffix, Containers::StringView pluginDirectory);

    // Unloads everything. Aborts if an instance does not allow it: its code would be gone while it lives.
    ~AbstractManager();

    // Null if the plugin's instancer has no memory. The plugin has to be loaded.
    void* instantiateInternal(Containers::StringView plugin);

    void* loadAndInstantiateInternal(Containers::StringView plugin);

private:
    friend AbstractPlugin;

    struct State;

    // Null if there is no such plugin.
    Implementation::PluginEntry* find(Containers::StringView plugin);

    Containers::Pointer<State> _state;
};

}

#define CORRADE_PLUGIN_EXPORT CORRADE_VISIBILITY_EXPORT

#ifdef CORRADE_DYNAMIC_PLUGIN
// The five exports of a plugin, once in a library and outside of any namespace. `name` is not used in a dynamic plugin:
// the file name is what counts.
#define CORRADE_PLUGIN_REGISTER(name, className, interface_)                                                           \
    extern "C" {                                                                                                       \
    CORRADE_PLUGIN_EXPORT int pluginVersion();                                                                         \
    CORRADE_PLUGIN_EXPORT const char* pluginInterface();                                                               \
    CORRADE_PLUGIN_EXPORT void pluginInitializer();                                                                    \
    CORRADE_PLUGIN_EXPORT void pluginFinalizer();                                                                      \
    CORRADE_PLUGIN_EXPORT void* pluginInstancer(                                                                       \
        Corrade::PluginManager::AbstractManager& manager, const Corrade::Containers::StringView& plugin);              \
    int pluginVersion() { return CORRADE_PLUGIN_VERSION; }                                                             \
    const char* pluginInterface() { return interface_; }                                                               \
    void pluginInitializer() { className::initialize(); }                                                              \
    void pluginFinalizer() { className::finalize(); }                                                                  \
    void* pluginInstancer(                                                                                             \
        Corrade::PluginManager::AbstractManager& manager, const Corrade::Containers::StringView& plugin) {             \
        return new className{manager, plugin};                                                                         \
    }                                                                                                                  \
    }
#endif
