#include "Modules/ModuleLoader.h"

#include <filesystem>

#include <Corrade/Containers/Pointer.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/PluginManager/Manager.hpp>
#include <Corrade/Utility/Debug.h>

#include "Modules/LibraryCheck.h"

namespace VantrelEngine {

using namespace Corrade;
namespace fs = std::filesystem;

struct ModuleLoader::Loaded {
    PluginManager::Manager<AbstractModule> manager;
    // Goes before the library does.
    Containers::Pointer<AbstractModule> module;

    explicit Loaded(const std::string& folder): manager{folder} {}
};

namespace {

// What the manager says about a library that it refuses, as one line.
std::string oneLine(const Containers::String& text) {
    std::string line{text.data(), text.size()};
    while(!line.empty() && line.back() == '\n') line.pop_back();
    for(char& character: line)
        if(character == '\n') character = ' ';
    return line;
}

} // namespace

ModuleLoader::ModuleLoader(std::string file): _file{std::move(file)} {}

ModuleLoader::~ModuleLoader() { unload(); }

AbstractModule* ModuleLoader::module() const { return _loaded ? _loaded->module.get() : nullptr; }

std::string ModuleLoader::load() {
    std::string copy;
    std::string error = copyLibrary(_file, copy);
    if(error.empty()) error = start(copy);
    if(!error.empty()) return _file + ": " + error;
    _copy = copy;
    return {};
}

std::string ModuleLoader::reload(const std::string& file) {
    const std::string& source = file.empty() ? _file : file;
    std::string copy;
    std::string error = copyLibrary(source, copy);
    if(!error.empty()) return source + ": " + error;
    const Containers::Array<char> state = module()->saveState(false);
    unload();
    error = start(copy);
    std::error_code ignored;
    if(error.empty()) {
        fs::remove_all(fs::path{_copy}.parent_path(), ignored);
        _copy = copy;
        _file = source;
    } else {
        fs::remove_all(fs::path{copy}.parent_path(), ignored);
        const std::string old = start(_copy);
        if(!old.empty()) return source + ": " + error + "; and the one before: " + old;
    }
    module()->load();
    module()->restoreState(state);
    return error.empty() ? error : source + ": " + error;
}

// Each copy has a path of its own: a library that is still in memory would be taken for the new one.
std::string ModuleLoader::copyLibrary(const std::string& file, std::string& copy) {
    if(_folder.path().empty()) return "there is no place for a copy of it";
    std::string error = whyNotLoadable(file);
    if(!error.empty()) return error;
    const fs::path folder = fs::path{_folder.path()} / std::to_string(_copyCount++);
    const fs::path target = folder / fs::path{file}.filename();
    std::error_code failure;
    fs::create_directory(folder, failure);
    if(!failure) fs::copy_file(file, target, failure);
    if(failure) return "it cannot be copied: " + failure.message();
    copy = target.string();
    // It may have been written meanwhile.
    error = whyNotLoadable(copy);
    if(!error.empty()) fs::remove_all(folder, failure);
    return error;
}

std::string ModuleLoader::start(const std::string& copy) {
    auto loaded = std::make_unique<Loaded>(_folder.path());
    const std::string name = fs::path{copy}.stem().string();
    Containers::String complaint;
    {
        Utility::Error redirect{&complaint};
        if(loaded->manager.load(copy) & PluginManager::LoadState::Loaded)
            loaded->module = loaded->manager.instantiate(name);
    }
    const std::string line = oneLine(complaint);
    if(!loaded->module) return line.empty() ? "there is no memory for it" : line;
    if(!line.empty()) Utility::Error{} << line.data();
    _loaded = std::move(loaded);
    return {};
}

void ModuleLoader::unload() { _loaded.reset(); }

} // namespace VantrelEngine
