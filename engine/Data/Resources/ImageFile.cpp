#include "Data/Resources/ImageFile.h"

#include <algorithm>
#include <limits>

#include <Magnum/PixelFormat.h>

#include "Data/Resources/ImageCheck.h"
#include "Data/Resources/StbImage.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

using Bytes = Containers::ArrayView<const unsigned char>;

constexpr int Channels = 4;

bool findSize(Bytes bytes, std::size_t channelSize, Vector2i& imageSize, std::string& reason) {
    int width = 0, height = 0, channels = 0;
    if(!stbi_info_from_memory(bytes.data(), int(bytes.size()), &width, &height, &channels)) {
        reason = "this is not a PNG, JPEG, TGA, BMP or HDR image, or it is damaged or larger than 8192 x 8192 pixels";
        return false;
    }
    imageSize = {width, height};
    const std::size_t size = std::size_t(width) * std::size_t(height) * Channels * channelSize;
    if(width > 0 && height > 0 && width <= MaximumImageEdge && height <= MaximumImageEdge && size <= MaximumImageSize)
        return true;
    reason = "the image has " + std::to_string(width) + " x " + std::to_string(height) + " pixels, too many";
    return false;
}

void release(char* pixels, std::size_t) { stbi_image_free(pixels); }

void turnUpsideDown(char* pixels, std::size_t rowSize, std::size_t rows) {
    for(std::size_t i = 0; i != rows / 2; ++i)
        std::swap_ranges(pixels + i * rowSize, pixels + (i + 1) * rowSize, pixels + (rows - 1 - i) * rowSize);
}

} // namespace

std::optional<Image2D> readImage(Containers::ArrayView<const char> data, std::string& reason) {
    const Bytes bytes{reinterpret_cast<const unsigned char*>(data.data()), data.size()};
    if(bytes.size() > std::size_t(std::numeric_limits<int>::max())) {
        reason = "the file is too large";
        return {};
    }
    if(const char* const problem = whyNotDecodable(bytes)) {
        reason = problem;
        return {};
    }
    const int count = int(bytes.size());
    const bool isHdr = stbi_is_hdr_from_memory(bytes.data(), count);
    const std::size_t channelSize = isHdr ? sizeof(float) : 1;
    Vector2i size;
    if(!findSize(bytes, channelSize, size, reason)) return {};
    if(isHdr && isTruncatedHdr(bytes, size)) {
        reason = "the HDR file is truncated";
        return {};
    }

    int width = 0, height = 0, channels = 0;
    void* const pixels = isHdr
        ? static_cast<void*>(stbi_loadf_from_memory(bytes.data(), count, &width, &height, &channels, Channels))
        : stbi_load_from_memory(bytes.data(), count, &width, &height, &channels, Channels);
    if(!pixels) {
        reason = std::string{"the image is damaged: "} + stbi_failure_reason();
        return {};
    }
    const std::size_t rowSize = std::size_t(width) * Channels * channelSize;
    turnUpsideDown(static_cast<char*>(pixels), rowSize, std::size_t(height));
    return Image2D{isHdr ? PixelFormat::RGBA32F : PixelFormat::RGBA8Unorm, {width, height},
        Containers::Array<char>{static_cast<char*>(pixels), rowSize * std::size_t(height), release}};
}

} // namespace VantrelEngine
