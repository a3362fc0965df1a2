#include "Modules/PrivateFolder.h"

#include <cstdlib>
#include <filesystem>

namespace VantrelEngine {

PrivateFolder::PrivateFolder() {
    std::error_code error;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
    if(error) return;
    // The last six characters are replaced.
    std::string name = (temporary / ("vantrel-editor-" + std::string(6, 'X'))).string();
    if(mkdtemp(name.data())) _path = name;
}

PrivateFolder::~PrivateFolder() {
    std::error_code error;
    if(!_path.empty()) std::filesystem::remove_all(_path, error);
}

} // namespace VantrelEngine
