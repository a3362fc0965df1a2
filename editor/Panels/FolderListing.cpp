#include "Panels/FolderListing.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace VantrelEngine {

namespace fs = std::filesystem;

namespace {

bool isSameLetter(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

bool endsWith(const std::string& text, const std::string& suffix) {
    return text.size() >= suffix.size() && std::equal(suffix.rbegin(), suffix.rend(), text.rbegin(), isSameLetter);
}

bool endsWithAny(const std::string& text, const std::vector<std::string>& suffixes) {
    return std::any_of(
        suffixes.begin(), suffixes.end(), [&text](const std::string& suffix) { return endsWith(text, suffix); });
}

} // namespace

FolderListing listFolder(const std::string& path, const std::vector<std::string>& suffixes) {
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
        else if(endsWithAny(name, suffixes) && entry->is_regular_file(ignored))
            listing.files.push_back(name);
    }
    if(error) listing.error = error.message();
    std::sort(listing.folders.begin(), listing.folders.end());
    std::sort(listing.files.begin(), listing.files.end());
    return listing;
}

} // namespace VantrelEngine
