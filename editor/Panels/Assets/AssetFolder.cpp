#include "Panels/Assets/AssetFolder.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <utility>

#include "Import/ImportKinds.h"

namespace VantrelEngine {

namespace fs = std::filesystem;

namespace {

// Seconds between two looks at a folder's time.
constexpr double LookInterval = 1.0;
// A folder that changed so shortly before it was read may have changed again in the same tick of its clock.
constexpr std::chrono::seconds DoubtfulAge{2};

bool isSameLetter(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

bool holds(const std::string& name, const std::string& text) {
    return std::search(name.begin(), name.end(), text.begin(), text.end(), isSameLetter) != name.end();
}

bool passes(const Asset& asset, const AssetFilter& filter) {
    if(asset.kind == AssetKind::Model && !filter.showsModels) return false;
    if(asset.kind == AssetKind::Image && !filter.showsImages) return false;
    return holds(asset.name, filter.text);
}

fs::file_time_type timeOf(const std::string& path) {
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(path, error);
    return error ? fs::file_time_type::min() : time;
}

} // namespace

std::vector<std::size_t> filterAssets(const std::vector<Asset>& assets, const AssetFilter& filter) {
    std::vector<std::size_t> positions;
    for(std::size_t i = 0; i != assets.size(); ++i)
        if(passes(assets[i], filter)) positions.push_back(i);
    return positions;
}

std::vector<PathPart> partsOf(const std::string& path) {
    std::vector<PathPart> parts;
    fs::path whole;
    for(const fs::path& part: fs::path{path}) {
        if(part.empty()) continue;
        whole /= part;
        parts.push_back({part.string(), whole.string()});
    }
    return parts;
}

void AssetFolder::enter(std::string path) {
    _path = std::move(path);
    _assets.clear();
    _error.clear();
    refresh();
}

// One that is being read is read once more when it is there.
void AssetFolder::refresh() {
    if(_work.valid()) {
        _isStale = true;
        return;
    }
    _isStale = false;
    _time = timeOf(_path);
    _isInDoubt = fs::file_time_type::clock::now() - _time < DoubtfulAge;
    _work = std::async(std::launch::async, [path = _path] { return listFolder(path, importedSuffixes()); });
}

bool AssetFolder::update(double now, bool waits) {
    if(_path.empty()) return false;
    if(now >= _nextLook) {
        _nextLook = now + LookInterval;
        if(!_work.valid() && (_isInDoubt || timeOf(_path) != _time)) refresh();
    }
    if(!_work.valid()) return false;
    if(!waits && _work.wait_for(std::chrono::seconds{0}) != std::future_status::ready) return false;
    return take();
}

bool AssetFolder::take() {
    const FolderListing listing = _work.get();
    if(_isStale) {
        refresh();
        return false;
    }
    _error = listing.error;
    _assets.clear();
    for(const std::string& folder: listing.folders) _assets.push_back({folder, AssetKind::Folder});
    for(const std::string& file: listing.files)
        _assets.push_back({file, isModelFile(file) ? AssetKind::Model : AssetKind::Image});
    return true;
}

} // namespace VantrelEngine
