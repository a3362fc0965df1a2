#pragma once

#include "Corrade/Containers/String.h"
#include "Corrade/Containers/StringView.h"
#include "Corrade/PluginManager/PluginManager.h"

namespace Corrade::PluginManager {

// What a manager knows about one plugin without loading it. Owned by the manager.
class PluginMetadata {
public:
    PluginMetadata(const PluginMetadata&) = delete;
    PluginMetadata& operator=(const PluginMetadata&) = delete;

    // File name without directory and suffix. Valid as long as the manager knows the plugin.
    Containers::StringView name() const { return _name; }

private:
    friend Implementation::PluginEntry;

    explicit PluginMetadata(Containers::StringView name): _name{name} {}

    Containers::String _name;
};

}
