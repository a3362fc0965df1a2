// Exports written by hand, each of which can be left out, and an instancer that has no memory.

#include <Corrade/Containers/StringView.h>
#include <Corrade/PluginManager/AbstractManager.h>
#include <Corrade/Utility/Debug.h>

using namespace Corrade;

#ifdef WITH_UNRESOLVED_SYMBOL
void vantrelConformanceDefinedNowhere();
#endif

extern "C" {

#ifndef WITHOUT_VERSION
CORRADE_PLUGIN_EXPORT int pluginVersion();
int pluginVersion() { return PLUGIN_VERSION; }
#endif

#ifndef WITHOUT_INTERFACE
CORRADE_PLUGIN_EXPORT const char* pluginInterface();
const char* pluginInterface() { return PLUGIN_INTERFACE; }
#endif

#ifndef WITHOUT_INITIALIZER
CORRADE_PLUGIN_EXPORT void pluginInitializer();
void pluginInitializer() { Utility::Debug{} << "initialized"; }
#endif

#ifndef WITHOUT_FINALIZER
CORRADE_PLUGIN_EXPORT void pluginFinalizer();
void pluginFinalizer() { Utility::Debug{} << "finalized"; }
#endif

#ifndef WITHOUT_INSTANCER
CORRADE_PLUGIN_EXPORT void* pluginInstancer(PluginManager::AbstractManager&, const Containers::StringView&);
void* pluginInstancer(PluginManager::AbstractManager&, const Containers::StringView&) {
#ifdef WITH_UNRESOLVED_SYMBOL
    vantrelConformanceDefinedNowhere();
#endif
    return nullptr;
}
#endif
}
