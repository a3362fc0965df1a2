#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace VantrelImport {

// What an import leaves behind. Functions throw Unusable where something cannot be written, or where all of it together
// would have more bytes than the maximum.
class OutputFolder {
public:
    // Expects a folder that is there and empty; its path has no slash at the end.
    explicit OutputFolder(std::string path, std::uint64_t maximum);

    // Writes a file that is named after its contents, once; its name relative to the folder.
    std::string add(const char* data, std::size_t size, const std::string& extension);
    // At last: says that everything is there.
    void finish(std::string_view json);

private:
    void write(const std::string& name, const char* data, std::size_t size);

    const std::string _path;
    const std::uint64_t _maximum;
    // What is left of it.
    std::uint64_t _space;
};

} // namespace VantrelImport
