#pragma once

#include <string>

namespace VantrelEngine {

// A folder of this process alone, among the temporary files; gone with all that is in it when the object goes.
class PrivateFolder {
public:
    PrivateFolder();
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    // Empty where none could be made.
    const std::string& path() const { return _path; }

private:
    std::string _path;
};

} // namespace VantrelEngine
