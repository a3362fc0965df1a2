#include "Application/RecentFiles.h"

#include <algorithm>

namespace VantrelEngine {

void removeRecentFile(std::vector<std::string>& files, const std::string& file) {
    files.erase(std::remove(files.begin(), files.end(), file), files.end());
}

void addRecentFile(std::vector<std::string>& files, const std::string& file) {
    removeRecentFile(files, file);
    files.insert(files.begin(), file);
    if(files.size() > MaxRecentFiles) files.resize(MaxRecentFiles);
}

} // namespace VantrelEngine
