#pragma once

#include "Corrade/Containers/Pointer.h"
#include "Corrade/Containers/StringView.h"
#include "Corrade/PluginManager/AbstractManager.h"

namespace Corrade::PluginManager {

// Manager of the plugins that implement the interface `T`, a class derived from AbstractPlugin with a
// `static Containers::StringView pluginInterface()` on global data. Include Manager.hpp where one is constructed.
template<class T> class Manager: public AbstractManager {
public:
    // Discovers the plugins in `pluginDirectory` (relative to the current directory), or in the first of
    // T::pluginSearchPaths() that exists. A directory that does not exist has no plugins.
    explicit Manager(Containers::StringView pluginDirectory = {});

    // A new instance of a plugin that is loaded. Null if its instancer returned null.
    Containers::Pointer<T> instantiate(Containers::StringView plugin) {
        return Containers::Pointer<T>{static_cast<T*>(instantiateInternal(plugin))};
    }

    // Null if the plugin could not be loaded (a message says why) or its instancer returned null (silent).
    Containers::Pointer<T> loadAndInstantiate(Containers::StringView plugin) {
        return Containers::Pointer<T>{static_cast<T*>(loadAndInstantiateInternal(plugin))};
    }
};

}
