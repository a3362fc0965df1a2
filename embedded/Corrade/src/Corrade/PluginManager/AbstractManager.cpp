#include "Corrade/PluginManager/AbstractManager.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <utility>

#include <dlfcn.h>

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/Optional.h"
#include "Corrade/Containers/String.h"
#include "Corrade/PluginManager/AbstractPlugin.h"
#include "Corrade/PluginManager/LibraryFile.h"
#include "Corrade/PluginManager/PluginEntry.h"
#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/Debug.h"
#include "Corrade/Utility/Path.h"

namespace Corrade::PluginManager {

using Containers::String;
using Containers::StringView;
using Implementation::PluginEntry;
using Implementation::PluginFunctions;
using Utility::Debug;
using Utility::Error;
namespace Path = Utility::Path;

Debug& operator<<(Debug& debug, LoadState value) {
    switch(value) {
#define _c(value)                                                                                                      \
    case LoadState::value: return debug << "PluginManager::LoadState::" #value;
        _c(NotFound) _c(WrongPluginVersion) _c(WrongInterfaceVersion) _c(WrongMetadataFile) _c(UnresolvedDependency)
            _c(LoadFailed) _c(Static) _c(Loaded) _c(NotLoaded) _c(UnloadFailed) _c(Required) _c(Used)
#undef _c
    }
    return debug << "PluginManager::LoadState(" << Debug::nospace << Debug::hex << static_cast<unsigned short>(value)
                 << Debug::nospace << ")";
}

namespace {

struct Bytewise {
    using is_transparent = void;
    bool operator()(StringView a, StringView b) const { return a < b; }
};

typedef std::map<String, Containers::Pointer<PluginEntry>, Bytewise> Entries;

// Closes the library unless told to keep it.
class Library {
public:
    explicit Library(const char* file): _handle{dlopen(file, RTLD_NOW | RTLD_GLOBAL)} {}
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() {
        if(_handle) dlclose(_handle);
    }

    explicit operator bool() const { return _handle; }
    void* release() { return std::exchange(_handle, nullptr); }

    template<class Function> bool get(Function& function, const char* symbol, const char* what, StringView plugin) {
        function = reinterpret_cast<Function>(dlsym(_handle, symbol));
        if(!function)
            Error{} << "PluginManager::Manager::load(): cannot get" << what << "of plugin" << plugin << Debug::nospace
                    << ":" << dlerror();
        return function;
    }

private:
    void* _handle;
};

LoadState checkedFunctions(Library& library, StringView plugin, StringView expectedInterface, PluginFunctions& out) {
    if(!library.get(out.version, "pluginVersion", "version", plugin)) return LoadState::LoadFailed;
    if(const int version = out.version(); version != AbstractManager::Version) {
        Error{} << "PluginManager::Manager::load(): wrong version of plugin" << plugin << Debug::nospace << ", expected"
                << AbstractManager::Version << "but got" << version;
        return LoadState::WrongPluginVersion;
    }
    if(!library.get(out.interface, "pluginInterface", "interface string", plugin)) return LoadState::LoadFailed;
    if(const StringView interface = out.interface(); interface != expectedInterface) {
        Error{} << "PluginManager::Manager::load(): wrong interface string of plugin" << plugin << Debug::nospace
                << ", expected" << expectedInterface << "but got" << interface;
        return LoadState::WrongInterfaceVersion;
    }
    if(!library.get(out.initializer, "pluginInitializer", "initializer", plugin) ||
        !library.get(out.finalizer, "pluginFinalizer", "finalizer", plugin) ||
        !library.get(out.instancer, "pluginInstancer", "instancer", plugin))
        return LoadState::LoadFailed;
    return LoadState::Loaded;
}

LoadState cannotLoad(StringView plugin, StringView file, StringView reason) {
    Error{} << "PluginManager::Manager::load(): cannot load plugin" << plugin << "from \"" << Debug::nospace << file
            << Debug::nospace << "\":" << reason;
    return LoadState::LoadFailed;
}

LoadState loadFile(PluginEntry& entry, const String& file, StringView interface) {
    const StringView plugin = entry.metadata.name();
    if(Implementation::isTruncatedLibrary(file.data())) return cannotLoad(plugin, file, file + ": file too short");
    Library library{file.data()};
    if(!library) return cannotLoad(plugin, file, dlerror());
    PluginFunctions functions;
    if(const LoadState state = checkedFunctions(library, plugin, interface, functions); state != LoadState::Loaded)
        return state;

    functions.initializer();
    entry.library = library.release();
    entry.functions = functions;
    return entry.state = LoadState::Loaded;
}

LoadState notReady(const PluginEntry& entry) {
    Error{} << "PluginManager::Manager::load(): plugin" << entry.metadata.name()
            << "is not ready to load:" << entry.state;
    return entry.state;
}

// The dynamic linker looks for a name without directories somewhere else.
String absolute(StringView path) {
    std::error_code error;
    const auto result = std::filesystem::absolute({path.begin(), path.end()}, error);
    return error ? String{path} : String{result.c_str()};
}

// The first that exists, as an absolute path.
String firstExisting(Containers::ArrayView<const String> searchPaths) {
    const Containers::Optional<String> executable = Path::executableLocation();
    for(const String& searchPath: searchPaths) {
        String directory = executable ? Path::join(Path::path(*executable), searchPath) : searchPath;
        if(Path::isDirectory(directory)) return directory;
    }
    Utility::Warning{} << "PluginManager::Manager: none of the plugin search paths in" << searchPaths
                       << "exists and pluginDirectory was not set, skipping plugin discovery";
    return {};
}

void checkGlobal(StringView view, const char* function) {
    CORRADE_ASSERT(view.flags() & Containers::StringViewFlag::Global,
        "PluginManager::AbstractPlugin::" << Debug::nospace << function << Debug::nospace
                                          << "(): returned view is not global:" << view, );
}

}

struct AbstractManager::State {
    StringView interface, suffix, metadataSuffix;
    String directory;
    Entries entries;

    String fileOf(StringView plugin) const { return Path::join(directory, plugin + suffix); }
    LoadState discoveredState(StringView file) const;
    void discover();
    LoadState loadPath(StringView path);
    PluginEntry& add(StringView plugin);
};

// `file` is the library; what is checked is that its metadata are next to it.
LoadState AbstractManager::State::discoveredState(StringView file) const {
    if(!metadataSuffix) return LoadState::NotLoaded;
    const String metadata = file.exceptSuffix(suffix) + metadataSuffix;
    if(Path::exists(metadata)) return LoadState::NotLoaded;
    Error{} << "PluginManager::Manager:" << metadata << "was not found";
    return LoadState::WrongMetadataFile;
}

PluginEntry& AbstractManager::State::add(StringView plugin) {
    return *entries.emplace(plugin, Containers::pointer<PluginEntry>(plugin)).first->second;
}

void AbstractManager::State::discover() {
    for(auto i = entries.begin(); i != entries.end();)
        i = i->second->state == LoadState::Loaded ? std::next(i) : entries.erase(i);

    if(!directory || !Path::exists(directory)) return;
    const auto files = Path::list(directory, Path::ListFlag::SkipDirectories | Path::ListFlag::SortAscending);
    if(!files) return;
    for(const String& file: *files) {
        if(!file.hasSuffix(suffix)) continue;
        const StringView plugin = file.exceptSuffix(suffix);
        if(entries.find(plugin) == entries.end()) add(plugin).state = discoveredState(Path::join(directory, file));
    }
}

LoadState AbstractManager::State::loadPath(StringView path) {
    const StringView filename = Path::filename(path);
    const StringView plugin = filename.exceptSuffix(suffix);
    const auto found = entries.find(plugin);
    if(found != entries.end() && found->second->state == LoadState::Loaded) {
        Error{} << "PluginManager::load():" << filename << "conflicts with currently loaded plugin of the same name";
        return LoadState::Used;
    }

    const String file = absolute(path);
    PluginEntry& entry = found != entries.end() ? *found->second : add(plugin);
    entry.state = discoveredState(file);
    const LoadState result = entry.state == LoadState::NotLoaded ? loadFile(entry, file, interface) : notReady(entry);
    // A file that was not loaded leaves no trace.
    if(result != LoadState::Loaded && found == entries.end()) entries.erase(entries.find(plugin));
    return result;
}

const int AbstractManager::Version = CORRADE_PLUGIN_VERSION;

AbstractManager::AbstractManager(StringView pluginInterface, Containers::ArrayView<const String> searchPaths,
    StringView pluginSuffix, StringView metadataSuffix, StringView pluginDirectory):
    _state{InPlaceInit} {
    checkGlobal(pluginInterface, "pluginInterface");
    checkGlobal(pluginSuffix, "pluginSuffix");
    checkGlobal(metadataSuffix, "pluginMetadataSuffix");
    CORRADE_ASSERT(pluginDirectory || !searchPaths.isEmpty(),
        "PluginManager::Manager: either pluginDirectory has to be set or T::pluginSearchPaths() is expected to have at "
        "least one entry", );
    _state->interface = pluginInterface;
    _state->suffix = pluginSuffix;
    _state->metadataSuffix = metadataSuffix;
    setPluginDirectory(pluginDirectory ? String{pluginDirectory} : firstExisting(searchPaths));
}

AbstractManager::~AbstractManager() {
    for(auto& i: _state->entries) {
        if(i.second->state != LoadState::Loaded) continue;
        const LoadState state = unload(i.first);
        CORRADE_ASSERT(state == LoadState::NotLoaded,
            "PluginManager::Manager: cannot unload plugin" << i.first << "on manager destruction:" << state, );
    }
}

StringView AbstractManager::pluginInterface() const { return _state->interface; }

StringView AbstractManager::pluginDirectory() const { return _state->directory; }

void AbstractManager::setPluginDirectory(StringView directory) {
    _state->directory = directory;
    reloadPluginDirectory();
}

void AbstractManager::reloadPluginDirectory() { _state->discover(); }

Containers::Array<StringView> AbstractManager::pluginList() const {
    Containers::Array<StringView> names{ValueInit, _state->entries.size()};
    std::transform(_state->entries.begin(), _state->entries.end(), names.begin(),
        [](const Entries::value_type& i) { return StringView{i.first}; });
    return names;
}

PluginEntry* AbstractManager::find(StringView plugin) {
    const auto found = _state->entries.find(plugin);
    return found == _state->entries.end() ? nullptr : found->second.get();
}

PluginMetadata* AbstractManager::metadata(StringView plugin) {
    PluginEntry* const entry = find(plugin);
    return entry ? &entry->metadata : nullptr;
}

LoadState AbstractManager::loadState(StringView plugin) const {
    const auto found = _state->entries.find(plugin);
    return found == _state->entries.end() ? LoadState::NotFound : found->second->state;
}

LoadState AbstractManager::load(StringView plugin) {
    if(plugin.hasSuffix(_state->suffix)) return _state->loadPath(plugin);
    PluginEntry* const entry = find(plugin);
    if(!entry) {
        Error{} << "PluginManager::Manager::load(): plugin" << plugin << "is not static and was not found in"
                << _state->directory;
        return LoadState::NotFound;
    }
    if(entry->state == LoadState::Loaded) return LoadState::Loaded;
    if(entry->state != LoadState::NotLoaded) return notReady(*entry);
    return loadFile(*entry, _state->fileOf(plugin), _state->interface);
}

LoadState AbstractManager::unload(StringView plugin) {
    PluginEntry* const entry = find(plugin);
    if(!entry) {
        Error{} << "PluginManager::Manager::unload(): plugin" << plugin << "was not found";
        return LoadState::NotFound;
    }
    if(entry->state != LoadState::Loaded) return entry->state;
    for(AbstractPlugin* instance: entry->instances) {
        if(instance->canBeDeleted()) continue;
        Error{} << "PluginManager::Manager::unload(): plugin" << plugin
                << "has a live instance which cannot be automatically deleted";
        return LoadState::Used;
    }

    // Each takes itself off the list.
    while(!entry->instances.empty()) delete entry->instances.back();
    entry->functions.finalizer();
    entry->functions = {};
    entry->state = LoadState::NotLoaded;
    if(dlclose(std::exchange(entry->library, nullptr)) != 0) {
        Error{} << "PluginManager::Manager::unload(): cannot unload plugin" << plugin << Debug::nospace << ":"
                << dlerror();
        return LoadState::UnloadFailed;
    }
    return entry->state;
}

void* AbstractManager::instantiateInternal(StringView plugin) {
    PluginEntry* const entry = find(plugin);
    CORRADE_ASSERT(entry && entry->state == LoadState::Loaded,
        "PluginManager::Manager::instantiate(): plugin" << plugin << "is not loaded", nullptr);
    return entry->functions.instancer(*this, entry->metadata.name());
}

void* AbstractManager::loadAndInstantiateInternal(StringView plugin) {
    if(!(load(plugin) & LoadState::Loaded)) return nullptr;
    // A path stands for the plugin of that file.
    return instantiateInternal(
        plugin.hasSuffix(_state->suffix) ? Path::filename(plugin).exceptSuffix(_state->suffix) : plugin);
}

}
