#pragma once

#include <string>

#include "Vantrel/EngineData/ResourceManager.h"

namespace VantrelEngine {

// Why the text does not name a file below a folder, in words that continue "NAME: "; null where it does. It is not
// empty, relative, with "/" as the separator, without ".." and without a scheme or drive in front.
const char* whyNoFileName(Corrade::Containers::StringView file);

// Regular files below a folder. Symbolic links are followed as long as they stay in the folder.
class FolderResource: public Resource {
public:
    explicit FolderResource(std::string folder): _folder{std::move(folder)} {}

    std::optional<Corrade::Containers::Array<char>> get(
        Corrade::Containers::StringView file, std::size_t limit, std::string& reason) const override;

private:
    // The path without symbolic links; empty, and a reason, where it leads out of the folder or nowhere.
    std::string resolve(const std::string& file, std::string& reason) const;

    std::string _folder;
};

} // namespace VantrelEngine
