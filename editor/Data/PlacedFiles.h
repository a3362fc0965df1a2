#pragma once

#include <string>
#include <vector>

namespace VantrelEngine {

// Copies files into a folder, all of them or none: what was written goes again with the object unless it is kept. A file
// that is there already with the same bytes is left as it is, and one with others, too, which is an error. A copy has its
// name only when it is whole and on the disk.
class PlacedFiles {
public:
    explicit PlacedFiles(std::string folder): _folder{std::move(folder)} {}
    ~PlacedFiles();
    PlacedFiles(const PlacedFiles&) = delete;
    PlacedFiles& operator=(const PlacedFiles&) = delete;

    // Copies a regular file. The name is relative to the folder, with "/", and leads out of it by no means; folders on the
    // way are made. Returns an empty text, or one line with the name in front.
    std::string add(const std::string& source, const std::string& name);
    void keep();

private:
    std::string place(int source, const std::string& name);
    std::string makeFolders(const std::string& name, std::string& folder);
    std::string write(int source, const std::string& path);

    std::string _folder;
    // In the order in which they were made.
    std::vector<std::string> _files, _folders;
};

// The path without symbolic links of a file below a folder; empty where there is none, or where it leads out of it.
std::string pathInside(const std::string& folder, const std::string& name);

} // namespace VantrelEngine
