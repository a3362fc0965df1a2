#include "Application/RecentFiles.h"

#include <algorithm>
#include <filesystem>

namespace VantrelEngine {

namespace {

void remove(std::vector<std::string>& files, const std::string& file) {
    files.erase(std::remove(files.begin(), files.end(), file), files.end());
}

} // namespace

void removeMissingFile(std::vector<std::string>& files, const std::string& file) {
    std::error_code error;
    if(std::filesystem::status(file, error).type() == std::filesystem::file_type::not_found) remove(files, file);
}

void addRecentFile(std::vector<std::string>& files, const std::string& file) {
    remove(files, file);
    files.insert(files.begin(), file);
    if(files.size() > MaxRecentFiles) files.resize(MaxRecentFiles);
}

} // namespace VantrelEngine
