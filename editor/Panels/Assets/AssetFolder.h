#pragma once

#include <cstdint>
#include <filesystem>
#include <future>
#include <string>
#include <vector>

#include "Panels/FolderListing.h"

namespace VantrelEngine {

enum class AssetKind : std::uint8_t { Folder, Model, Image };

struct Asset {
    std::string name;
    AssetKind kind;
};

// Which of them are shown.
struct AssetFilter {
    // Part of the name, upper and lower case alike.
    std::string text;
    bool showsModels = true;
    bool showsImages = true;

    bool operator==(const AssetFilter& other) const {
        return text == other.text && showsModels == other.showsModels && showsImages == other.showsImages;
    }
};

// Positions of those that pass, in their order. Folders pass by their names alone.
std::vector<std::size_t> filterAssets(const std::vector<Asset>& assets, const AssetFilter& filter);

// The folders of a path from the root on, each with the path to it: "/home/me" gives "/", "home" and "me".
struct PathPart {
    std::string name, path;
};
std::vector<PathPart> partsOf(const std::string& path);

// What of a folder can be imported, read beside the thread that asks, and read again when the folder has changed.
class AssetFolder {
public:
    // An absolute path. What is there of the old one goes.
    void enter(std::string path);
    // Reads it again.
    void refresh();
    // Each frame in which it is seen; seconds. Looks once a second whether the folder has changed, by its time. Waiting, it
    // reads at once, so that a run is the same each time. True where there are others now.
    bool update(double now, bool waits);

    const std::string& path() const { return _path; }
    // Folders first, each in alphabetical order.
    const std::vector<Asset>& assets() const { return _assets; }
    // Why it cannot be read; empty where it can.
    const std::string& error() const { return _error; }
    bool isReading() const { return _work.valid(); }

private:
    bool take();

    std::string _path, _error;
    std::vector<Asset> _assets;
    std::future<FolderListing> _work;
    std::filesystem::file_time_type _time;
    double _nextLook = 0.0;
    bool _isStale = false;
    bool _isInDoubt = false;
};

} // namespace VantrelEngine
