// What the plugin manager asks a library for. By hand, as a plugin that there is no memory for is no plugin: null.

#include <new>

#include <Corrade/PluginManager/AbstractManager.h>
#include <Corrade/PluginManager/AbstractPlugin.h>
#include <Corrade/Utility/VisibilityMacros.h>

#include "Views/SceneView.h"

using namespace Corrade;

extern "C" {

CORRADE_VISIBILITY_EXPORT int pluginVersion();
CORRADE_VISIBILITY_EXPORT const char* pluginInterface();
CORRADE_VISIBILITY_EXPORT void pluginInitializer();
CORRADE_VISIBILITY_EXPORT void pluginFinalizer();
CORRADE_VISIBILITY_EXPORT void* pluginInstancer(
    PluginManager::AbstractManager& manager, const Containers::StringView& plugin);

int pluginVersion() { return 7; }

const char* pluginInterface() { return VantrelEngine::ModuleInterface; }

void pluginInitializer() { PluginManager::AbstractPlugin::initialize(); }

void pluginFinalizer() { PluginManager::AbstractPlugin::finalize(); }

void* pluginInstancer(PluginManager::AbstractManager& manager, const Containers::StringView& plugin) {
    return new(std::nothrow) VantrelEngine::SceneView{manager, plugin};
}
}
