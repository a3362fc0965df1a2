#include "PluginFolder.h"

#include <fstream>

#include <unistd.h>

namespace fs = std::filesystem;

Corrade::Containers::StringView pluginDirectory() { return PLUGIN_DIRECTORY; }

std::string pluginFile(const std::string& plugin) { return PLUGIN_DIRECTORY "/" + plugin + ".so"; }

PluginFolder::PluginFolder():
    _folder{fs::temp_directory_path() /
        ("vantrel-plugins-" + std::to_string(getpid()) + "-" +
            testing::UnitTest::GetInstance()->current_test_info()->name())} {
    fs::create_directories(_folder);
}

PluginFolder::~PluginFolder() { fs::remove_all(_folder); }

void PluginFolder::copyPlugin(const std::string& plugin, const std::string& file) const {
    fs::copy_file(pluginFile(plugin), _folder / file, fs::copy_options::overwrite_existing);
}

void PluginFolder::write(const std::string& file, const std::string& contents) const {
    std::ofstream{_folder / file, std::ios::binary} << contents;
}
