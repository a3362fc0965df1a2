#include "Panels/FolderListing.h"

#include <algorithm>
#include <filesystem>

namespace VantrelEngine {

namespace fs = std::filesystem;

namespace {

bool endsWith(const std::string& text, const std::string& suffix) {
    return text.size() >= suffix.size() && text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

} // namespace

FolderListing listFolder(const std::string& path, const std::string& suffix) {
    FolderListing listing;
    std::error_code error;
    fs::directory_iterator entry{path, error};
    for(; !error && entry != fs::directory_iterator{}; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        // What a link without a target leads to is neither.
        std::error_code ignored;
        if(name.empty() || name.front() == '.') continue;
        if(entry->is_directory(ignored))
            listing.folders.push_back(name);
        else if(endsWith(name, suffix) && entry->is_regular_file(ignored))
            listing.files.push_back(name);
    }
    if(error) listing.error = error.message();
    std::sort(listing.folders.begin(), listing.folders.end());
    std::sort(listing.files.begin(), listing.files.end());
    return listing;
}

} // namespace VantrelEngine
