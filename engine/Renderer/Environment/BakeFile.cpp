#include "Renderer/Environment/BakeFile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <utility>
#include <vector>

namespace VantrelEngine {

namespace fs = std::filesystem;

namespace {

constexpr const char* Extension = ".light";

// In front of the halves; in the order of the machine, as a cache stays where it is.
struct Header {
    char magic[8]{'V', 'L', 'I', 'G', 'H', 'T', 0, 0};
    std::uint64_t version = BakeVersion;
    std::uint64_t key = 0;
    std::uint64_t sum = 0;
};

// Fletcher's, with 64 bits: tells halves that were swapped or zeroed, too.
std::uint64_t checkSum(const EnvironmentBake& bake) {
    std::uint64_t sum = 1, sums = 0;
    for(const std::uint16_t half: bake) sums += sum += half;
    return sums << 20 ^ sum;
}

fs::path pathOf(const std::string& folder, std::uint64_t key) {
    char name[17];
    std::snprintf(name, sizeof(name), "%016llx", static_cast<unsigned long long>(key));
    return fs::path{folder} / (std::string{name} + Extension);
}

// What cannot be found out or removed stays.
void removeOldest(const std::string& folder) {
    std::vector<std::pair<fs::file_time_type, fs::path>> files;
    std::error_code error;
    for(fs::directory_iterator i{folder, error}, end; !error && i != end; i.increment(error)) {
        std::error_code noTime;
        const fs::file_time_type time = fs::last_write_time(i->path(), noTime);
        if(!noTime && i->path().extension() == Extension) files.emplace_back(time, i->path());
    }
    if(files.size() <= MaximumBakeFiles) return;
    std::sort(files.begin(), files.end());
    files.resize(files.size() - MaximumBakeFiles);
    for(const auto& file: files) fs::remove(file.second, error);
}

bool writeFile(const fs::path& path, const Header& header, const EnvironmentBake& bake) {
    std::ofstream stream{path, std::ios::binary};
    stream.write(reinterpret_cast<const char*>(&header), sizeof(header));
    stream.write(reinterpret_cast<const char*>(bake.data()), std::streamsize(bake.size() * sizeof(bake[0])));
    stream.close();
    return bool(stream);
}

} // namespace

std::optional<EnvironmentBake> readBake(const std::string& folder, std::uint64_t key) {
    const fs::path path = pathOf(folder, key);
    Header header;
    EnvironmentBake bake(BakeLength);
    std::ifstream stream{path, std::ios::binary};
    stream.read(reinterpret_cast<char*>(&header), sizeof(header));
    stream.read(reinterpret_cast<char*>(bake.data()), std::streamsize(bake.size() * sizeof(bake[0])));
    if(!stream || stream.peek() != std::ifstream::traits_type::eof()) return {};
    const bool isRight = !std::memcmp(header.magic, Header{}.magic, sizeof(header.magic)) &&
        header.version == BakeVersion && header.key == key && header.sum == checkSum(bake);
    if(!isRight) return {};
    std::error_code error;
    fs::last_write_time(path, fs::file_time_type::clock::now(), error);
    return bake;
}

std::string writeBake(const std::string& folder, std::uint64_t key, const EnvironmentBake& bake) {
    std::error_code error;
    fs::create_directories(folder, error);
    if(error) return error.message();
    const fs::path path = pathOf(folder, key);
    const fs::path unfinished = path.string() + "." + std::to_string(std::random_device{}()) + ".part";
    Header header;
    header.key = key;
    header.sum = checkSum(bake);
    if(!writeFile(unfinished, header, bake))
        error = std::make_error_code(std::errc::io_error);
    else
        fs::rename(unfinished, path, error);
    if(error) {
        std::error_code ignored;
        fs::remove(unfinished, ignored);
        return error.message();
    }
    removeOldest(folder);
    return {};
}

} // namespace VantrelEngine
