#pragma once

#include <string>
#include <vector>

namespace VantrelEngine {

struct FolderListing {
    // Names, in alphabetical order. Without those that begin with a dot.
    std::vector<std::string> folders, files;
    // Empty, or why the folder could not be read.
    std::string error;
};

// The folders of a folder, and the files that end in one of the suffixes, in any case.
FolderListing listFolder(const std::string& path, const std::vector<std::string>& suffixes);

} // namespace VantrelEngine
