#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Data/Resources/FolderResource.h"

namespace VantrelImport {

// The files beside a model, and nothing else: names that are absolute, have a scheme or lead out of the folder, by ".."
// or by symbolic links, and what is no regular file, are refused.
class AssetFolder {
public:
    explicit AssetFolder(const std::string& folder): _files{folder} {}

    // A file by its name in the model; backslashes separate folders, too. None, and a reason that continues "NAME: ".
    std::optional<std::vector<char>> read(std::string_view name, std::string& reason) const;
    // The file that the user chose, whatever its name is.
    std::optional<std::vector<char>> readModel(const std::string& fileName, std::string& reason) const;

private:
    std::optional<std::vector<char>> readPath(const std::string& path, std::string& reason) const;

    VantrelEngine::FolderResource _files;
};

// The bytes that a URI's percent signs stand for. A sign without two digits behind it stays.
std::string percentDecoded(std::string_view uri);

// Of "data:TYPE;base64,TEXT". None for any other URI, or where the text is damaged.
std::optional<std::vector<char>> dataOfUri(std::string_view uri);

} // namespace VantrelImport
