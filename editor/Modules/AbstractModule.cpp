#include <Vantrel/Module/AbstractModule.h>

#include <Corrade/Containers/String.h>

namespace VantrelEngine {

using namespace Corrade;

Containers::StringView AbstractModule::pluginInterface() {
    return {ModuleInterface, sizeof(ModuleInterface) - 1,
        Containers::StringViewFlag::Global | Containers::StringViewFlag::NullTerminated};
}

Containers::Array<Containers::String> AbstractModule::pluginSearchPaths() {
    return Containers::Array<Containers::String>{InPlaceInit, {"../lib"}};
}

Containers::StringView AbstractModule::pluginMetadataSuffix() { return {}; }

AbstractModule::AbstractModule(PluginManager::AbstractManager& manager, const Containers::StringView& plugin):
    AbstractPlugin{manager, plugin} {}

AbstractModule::~AbstractModule() = default;

void AbstractModule::load() {}

} // namespace VantrelEngine
