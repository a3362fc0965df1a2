#pragma once

#include <string>
#include <string_view>

namespace VantrelImport {

// What an import leaves behind. Functions throw Unusable where something cannot be written.
class OutputFolder {
public:
    // Expects a folder that is there and empty; its path has no slash at the end.
    explicit OutputFolder(std::string path);

    // Writes a file that is named after its contents, once; its name relative to the folder.
    std::string add(const char* data, std::size_t size, const std::string& extension);
    // At last: says that everything is there.
    void finish(std::string_view json);

private:
    std::string _path;
};

} // namespace VantrelImport
