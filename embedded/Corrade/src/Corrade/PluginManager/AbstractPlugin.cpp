#include "Corrade/PluginManager/AbstractPlugin.h"

#include <algorithm>

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/String.h"
#include "Corrade/PluginManager/PluginEntry.h"
#include "Corrade/Utility/Assert.h"

namespace Corrade::PluginManager {

using namespace Containers::Literals;

Containers::Array<Containers::String> AbstractPlugin::pluginSearchPaths() { return {}; }

Containers::StringView AbstractPlugin::pluginSuffix() { return ".so"_s; }

Containers::StringView AbstractPlugin::pluginMetadataSuffix() { return ".conf"_s; }

void AbstractPlugin::initialize() {}

void AbstractPlugin::finalize() {}

AbstractPlugin::AbstractPlugin() = default;

AbstractPlugin::AbstractPlugin(AbstractManager& manager, const Containers::StringView& plugin):
    _entry{manager.find(plugin)} {
    CORRADE_ASSERT(_entry,
        "PluginManager::AbstractPlugin::AbstractPlugin(): attempt to register instance of plugin not known to given "
        "manager", );
    _entry->instances.push_back(this);
}

AbstractPlugin::AbstractPlugin(AbstractPlugin&& other): _entry{other._entry}, _movedOut{other._movedOut} {
    if(_entry) std::replace(_entry->instances.begin(), _entry->instances.end(), &other, this);
    other._entry = nullptr;
    other._movedOut = true;
}

AbstractPlugin::~AbstractPlugin() {
    if(!_entry) return;
    auto& instances = _entry->instances;
    instances.erase(std::find(instances.begin(), instances.end(), this));
}

bool AbstractPlugin::canBeDeleted() { return false; }

Containers::StringView AbstractPlugin::plugin() const {
    CORRADE_ASSERT(!_movedOut, "PluginManager::AbstractPlugin::plugin(): can't be called on a moved-out plugin", {});
    return _entry ? _entry->metadata.name() : Containers::StringView{};
}

const PluginMetadata* AbstractPlugin::metadata() const {
    CORRADE_ASSERT(!_movedOut, "PluginManager::AbstractPlugin::metadata(): can't be called on a moved-out plugin", {});
    return _entry ? &_entry->metadata : nullptr;
}

}
