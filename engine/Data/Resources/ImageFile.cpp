#include "Data/Resources/ImageFile.h"

#include <algorithm>

#include <Magnum/PixelFormat.h>

#include "Data/Resources/StbImage.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr int Channels = 4;

void release(char* pixels, std::size_t) { stbi_image_free(pixels); }

void turnUpsideDown(char* pixels, std::size_t rowSize, std::size_t rows) {
    for(std::size_t i = 0; i != rows / 2; ++i)
        std::swap_ranges(pixels + i * rowSize, pixels + (i + 1) * rowSize, pixels + (rows - 1 - i) * rowSize);
}

} // namespace

std::optional<Image2D> readImage(Containers::ArrayView<const char> data, std::string& reason) {
    const std::optional<ImageFileHeader> header = readImageFileHeader(data, reason);
    if(!header) return {};
    const auto* const bytes = reinterpret_cast<const unsigned char*>(data.data());
    const int count = int(data.size());
    const bool isHdr = header->format == ImageFormat::Hdr;
    int width = 0, height = 0, channels = 0;
    void* const pixels = isHdr
        ? static_cast<void*>(stbi_loadf_from_memory(bytes, count, &width, &height, &channels, Channels))
        : stbi_load_from_memory(bytes, count, &width, &height, &channels, Channels);
    if(!pixels) {
        reason = std::string{"the image is damaged: "} + stbi_failure_reason();
        return {};
    }
    const std::size_t rowSize = std::size_t(width) * pixelSize(header->format);
    turnUpsideDown(static_cast<char*>(pixels), rowSize, std::size_t(height));
    return Image2D{isHdr ? PixelFormat::RGBA32F : PixelFormat::RGBA8Unorm, {width, height},
        Containers::Array<char>{static_cast<char*>(pixels), rowSize * std::size_t(height), release}};
}

} // namespace VantrelEngine
