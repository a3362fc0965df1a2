#pragma once

#include <string>
#include <vector>

namespace VantrelEngine {

constexpr std::size_t MaxRecentFiles = 10;

// Puts a file in front of the list, once. The list keeps MaxRecentFiles.
void addRecentFile(std::vector<std::string>& files, const std::string& file);
// Takes a file out that is not there any more; one that is there stays.
void removeMissingFile(std::vector<std::string>& files, const std::string& file);

} // namespace VantrelEngine
