#include "PluginSession.h"

#include <dlfcn.h>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/PluginManager/Manager.hpp>
#include <Corrade/Utility/Debug.h>
#include <Corrade/Utility/Path.h>
#include <Corrade/Utility/Resource.h>

using namespace Corrade;
using PluginManager::LoadState;

namespace VantrelProof {

namespace {

bool expect(bool condition, const char* complaint) {
    if(!condition) Utility::Error{} << "vantrel-proof:" << complaint;
    return condition;
}

bool hasGroups(bool expected) {
    return Utility::Resource::hasGroup(PaletteGroup) == expected &&
        Utility::Resource::hasGroup(LayoutGroup) == expected;
}

bool isInMemory(const std::string& file) {
    void* const library = dlopen(file.data(), RTLD_NOW | RTLD_NOLOAD);
    if(library) dlclose(library);
    return library;
}

// What a plugin tells about itself while it comes or goes, and what became of it.
template<class F> LoadState listen(F&& f, std::string& told) {
    Containers::String output;
    LoadState state;
    {
        Utility::Debug redirect{&output};
        state = f();
    }
    told = output;
    return state;
}

}

PluginSession::PluginSession(const std::string& pluginDirectory): _manager{pluginDirectory} {}

std::string PluginSession::file() const {
    return Utility::Path::join(_manager.pluginDirectory(), std::string{PluginName} + ".so");
}

bool PluginSession::load() {
    if(!expect(hasGroups(false), "a resource group is known before the plugin is loaded")) return false;
    std::string told;
    if(!(listen([&] { return _manager.load(PluginName); }, told) & LoadState::Loaded)) return false;
    return expect(hasGroups(true), "the plugin did not register its resource groups") &&
        expect(told == "load true false\n", "the resource groups were not registered one after the other");
}

Containers::Pointer<AbstractProof> PluginSession::instantiate() {
    Containers::Pointer<AbstractProof> instance = _manager.instantiate(PluginName);
    expect(!!instance, "the plugin has no memory for an instance");
    return instance;
}

bool PluginSession::unload() {
    std::string told;
    if(listen([&] { return _manager.unload(PluginName); }, told) != LoadState::NotLoaded) return false;
    return expect(told == "unload true false\n", "the resource groups were not removed in reverse order") &&
        expect(hasGroups(false), "a resource group outlives its plugin") &&
        expect(!isInMemory(file()), "the library of the plugin is still in memory");
}

}
