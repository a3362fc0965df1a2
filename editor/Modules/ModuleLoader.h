#pragma once

#include <memory>
#include <string>

#include <Corrade/Containers/Array.h>
#include <Vantrel/Module/AbstractModule.h>

#include "Modules/PrivateFolder.h"

namespace VantrelEngine {

// Loads a module's library and, when it was built anew, loads it again while the editor runs.
//
// What is loaded is a copy of the file: the file can be written at any time. A copy that works is kept until another one
// works, so that the view goes on with it when the new one cannot be loaded.
class ModuleLoader {
public:
    // The library's file; its name without the suffix is the module's. The GL context is current until the loader is gone.
    explicit ModuleLoader(std::string file);
    ~ModuleLoader();
    ModuleLoader(const ModuleLoader&) = delete;
    ModuleLoader& operator=(const ModuleLoader&) = delete;

    // Null before load(), and where nothing could be loaded.
    AbstractModule* module() const;
    const std::string& file() const { return _file; }

    // Loads the library; the module is to be initialised by the caller. Returns an empty text, or one line with the file
    // and the reason.
    std::string load();
    // Saves the state, loads the library again and restores the state; from another file where one is given, whose name is
    // the same. Returns an empty text, or one line: the module is the old one then, with its state. Releases of what is
    // held are sent before, by the caller.
    std::string reload(const std::string& file = {});
    // Deletes the module and unloads the library.
    void unload();
    // Where the next load() looks.
    void setFile(std::string file) { _file = std::move(file); }

private:
    struct Loaded;

    std::string copyLibrary(const std::string& file, std::string& copy);
    std::string start(const std::string& copy);

    std::string _file;
    PrivateFolder _folder;
    // Of the copy that works.
    std::string _copy;
    unsigned _copyCount = 0;
    std::unique_ptr<Loaded> _loaded;
};

} // namespace VantrelEngine
