#pragma once

#include <string>
#include <vector>

#include <assimp/IOSystem.hpp>

#include "Import/Converter/AssetFolder.h"
#include "Import/Converter/Messages.h"

namespace VantrelImport {

// What Assimp sees instead of the file system: the model, and by name the files beside it, all read only. A file that it
// does not get is a warning.
class LibraryFiles: public Assimp::IOSystem {
public:
    // The folder and the messages have to stay.
    explicit LibraryFiles(std::string fileName, std::vector<char> bytes, const AssetFolder& folder, Messages& messages);

    bool Exists(const char* name) const override;
    char getOsSeparator() const override { return '/'; }
    Assimp::IOStream* Open(const char* name, const char* mode) override;
    void Close(Assimp::IOStream* stream) override;
    bool ComparePaths(const char* one, const char* other) const override;

private:
    const std::string _fileName;
    const std::vector<char> _bytes;
    const AssetFolder& _folder;
    Messages& _messages;
};

} // namespace VantrelImport
