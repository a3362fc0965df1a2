#include "Thumbnails/FileBytes.h"

#include <fstream>

namespace VantrelEngine {

std::vector<char> fileBytes(const std::string& path, std::size_t most) {
    std::ifstream file{path, std::ios::binary | std::ios::ate};
    const std::streamoff size = file ? std::streamoff(file.tellg()) : -1;
    if(size <= 0 || std::size_t(size) > most) return {};
    std::vector<char> bytes(std::size_t(size), '\0');
    file.seekg(0);
    if(!file.read(bytes.data(), size)) return {};
    return bytes;
}

} // namespace VantrelEngine
