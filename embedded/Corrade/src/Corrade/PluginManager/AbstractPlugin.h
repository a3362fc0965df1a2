#pragma once

#include "Corrade/Containers/Containers.h"
#include "Corrade/PluginManager/PluginManager.h"
#include "Corrade/Utility/VisibilityMacros.h"

namespace Corrade::PluginManager {

// Base of all plugin interfaces. An interface derives from it, hides the static functions that differ and inherits the
// constructors; a plugin derives from the interface.
class CORRADE_VISIBILITY_EXPORT AbstractPlugin {
public:
    // Directories to look for plugins in when the manager was given none; the first that exists is used. Relative
    // ones are relative to the folder of the executable.
    static Containers::Array<Containers::String> pluginSearchPaths();

    // Ending of a plugin's file name (".so"). Has to be a view on global data.
    static Containers::StringView pluginSuffix();

    // Ending of the name of the metadata file that accompanies a plugin (".conf"), empty if there are none. Has to be
    // a view on global data.
    static Containers::StringView pluginMetadataSuffix();

    // Called once after a plugin was loaded and once before it is unloaded. Do nothing here.
    static void initialize();
    static void finalize();

    // An instance that no manager knows.
    explicit AbstractPlugin();

    // Registers the instance with `manager`, which must know `plugin` and outlive the instance, unless the latter
    // canBeDeleted().
    explicit AbstractPlugin(AbstractManager& manager, const Containers::StringView& plugin);

    AbstractPlugin(const AbstractPlugin&) = delete;
    // The registration moves along.
    AbstractPlugin(AbstractPlugin&& other);
    AbstractPlugin& operator=(const AbstractPlugin&) = delete;
    AbstractPlugin& operator=(AbstractPlugin&&) = delete;

    virtual ~AbstractPlugin() = 0;

    // Whether unloading the plugin may delete this instance, which then has to live on the heap. False here.
    virtual bool canBeDeleted();

    // Name of the plugin, empty without a manager. Not to be called on a moved-from instance.
    Containers::StringView plugin() const;

    // Null without a manager. Not to be called on a moved-from instance.
    const PluginMetadata* metadata() const;

private:
    Implementation::PluginEntry* _entry{};
    bool _movedOut{};
};

}
