#pragma once

#include <string>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

#include "Panels/PaneLayout.h"

namespace VantrelEngine {

// What the editor remembers of its user.
struct Settings {
    // 1 to 3.
    Magnum::Float fontScale = 1.0f;
    // Window points.
    Magnum::Vector2i windowSize{1440, 900};
    PaneSizes panes;
    // Where windows are docked, as the UI library writes it; empty where it does not dock.
    std::string docking;
    // Absolute paths, the latest first.
    std::vector<std::string> recentFiles;
};

// The file of the user's settings; empty where the user has no home.
std::string settingsFile();
// The user's folder for what can be made again; empty where the user has no home.
std::string cacheFolder();
// Where pictures of resources are kept; empty where the user has no home.
std::string thumbnailFolder();

// Where it is kept what is hidden and locked in projects ($XDG_DATA_HOME or ~/.local/share); empty without a home.
std::string marksFolder();

// What the file does not have, or has out of range, is as it is in the argument. A file that is not there is none; one
// that cannot be read or understood gives one line.
Settings readSettings(const std::string& file, Settings settings = {});
// Makes the folder, too. Returns an empty text, or one line.
std::string writeSettings(const std::string& file, const Settings& settings);

} // namespace VantrelEngine
