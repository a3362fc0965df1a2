#include "Thumbnails/ThumbnailFiles.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "Data/Resources/StbImage.h"
#include "Thumbnails/ContentHash.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
namespace fs = std::filesystem;

namespace {

constexpr int Channels = 4;

std::string fileOf(const std::string& folder, std::uint64_t content, Int edge) {
    char name[48];
    std::snprintf(name, sizeof(name), "%016llx-%d.png", static_cast<unsigned long long>(content), edge);
    return folder + "/" + name;
}

std::uint64_t sumOf(const std::string& bytes) {
    ContentHash hash;
    hash.add(std::string_view{bytes});
    return hash.value();
}

// The picture without the number behind it; empty where the two do not belong together.
std::string checked(std::string bytes) {
    std::uint64_t sum = 0;
    if(bytes.size() <= sizeof(sum)) return {};
    std::memcpy(&sum, bytes.data() + bytes.size() - sizeof(sum), sizeof(sum));
    bytes.resize(bytes.size() - sizeof(sum));
    return sumOf(bytes) == sum ? std::move(bytes) : std::string{};
}

// Files have the highest row first.
ThumbnailPixels upsideDown(const ThumbnailPixels& pixels, Int edge) {
    ThumbnailPixels result;
    result.reserve(pixels.size());
    for(Int y = edge; y-- != 0;)
        result.insert(result.end(), pixels.begin() + y * edge, pixels.begin() + (y + 1) * edge);
    return result;
}

} // namespace

ThumbnailPixels readThumbnail(const std::string& folder, std::uint64_t content, Int edge) {
    if(folder.empty()) return {};
    std::ifstream stream{fileOf(folder, content, edge), std::ios::binary};
    const std::string bytes = checked({std::istreambuf_iterator<char>{stream}, {}});
    if(bytes.empty()) return {};
    int width = 0, height = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> data{
        stbi_load_from_memory(
            reinterpret_cast<const stbi_uc*>(bytes.data()), int(bytes.size()), &width, &height, nullptr, Channels),
        stbi_image_free};
    if(!data || width != edge || height != edge) return {};
    ThumbnailPixels pixels(std::size_t(edge) * std::size_t(edge));
    std::memcpy(pixels.data(), data.get(), pixels.size() * sizeof(Color4ub));
    return upsideDown(pixels, edge);
}

void writeThumbnail(const std::string& folder, std::uint64_t content, Int edge, const ThumbnailPixels& pixels) {
    if(folder.empty()) return;
    const ThumbnailPixels rows = upsideDown(pixels, edge);
    std::string bytes;
    const auto append = [](void* text, void* data, int size) {
        static_cast<std::string*>(text)->append(static_cast<const char*>(data), std::size_t(size));
    };
    stbi_write_png_to_func(append, &bytes, edge, edge, Channels, rows.data(), edge * Channels);
    const std::uint64_t sum = sumOf(bytes);
    bytes.append(reinterpret_cast<const char*>(&sum), sizeof(sum));

    std::error_code error;
    fs::create_directories(folder, error);
    const std::string file = fileOf(folder, content, edge), fresh = file + ".new";
    {
        std::ofstream stream{fresh, std::ios::binary | std::ios::trunc};
        stream << bytes;
        if(!stream.flush()) return;
    }
    fs::rename(fresh, file, error);
}

void tidyThumbnails(const std::string& folder, std::size_t most) {
    if(folder.empty()) return;
    std::error_code error;
    std::vector<std::pair<fs::file_time_type, fs::path>> files;
    for(fs::directory_iterator file{folder, error}; !error && file != fs::directory_iterator{}; file.increment(error))
        files.emplace_back(fs::last_write_time(file->path(), error), file->path());
    if(files.size() <= most) return;
    std::sort(files.begin(), files.end());
    files.resize(files.size() - most);
    for(const auto& file: files) fs::remove(file.second, error);
}

} // namespace VantrelEngine
