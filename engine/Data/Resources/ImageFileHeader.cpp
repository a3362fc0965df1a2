#include "Data/Resources/ImageFileHeader.h"

#include <cstdlib>
#include <cstring>
#include <limits>

#include "Data/Resources/ImageCheck.h"
#include "Data/Resources/StbImage.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

using Bytes = Containers::ArrayView<const unsigned char>;

bool beginsWith(Bytes bytes, const char* text) {
    const std::size_t size = std::strlen(text);
    return bytes.size() >= size && std::memcmp(bytes.data(), text, size) == 0;
}

// TGA files have nothing to know them by.
ImageFormat formatOf(Bytes bytes) {
    if(beginsWith(bytes, "\x89PNG")) return ImageFormat::Png;
    if(beginsWith(bytes, "\xff\xd8")) return ImageFormat::Jpeg;
    if(beginsWith(bytes, "BM")) return ImageFormat::Bmp;
    return stbi_is_hdr_from_memory(bytes.data(), int(bytes.size())) ? ImageFormat::Hdr : ImageFormat::Tga;
}

bool findSize(Bytes bytes, ImageFileHeader& header, std::string& reason) {
    int width = 0, height = 0, channels = 0;
    if(!stbi_info_from_memory(bytes.data(), int(bytes.size()), &width, &height, &channels)) {
        reason = "this is not a PNG, JPEG, TGA, BMP or HDR image, or it is damaged or larger than 8192 x 8192 pixels";
        return false;
    }
    // Negative in BMP files whose rows go downwards.
    if(height > -MaximumImageEdge) height = std::abs(height);
    header.size = {width, height};
    const std::size_t size = std::size_t(width) * std::size_t(height) * pixelSize(header.format);
    if(width > 0 && height > 0 && width <= MaximumImageEdge && height <= MaximumImageEdge && size <= MaximumImageSize)
        return true;
    reason = "the image has " + std::to_string(width) + " x " + std::to_string(height) + " pixels, too many";
    return false;
}

} // namespace

std::optional<ImageFileHeader> readImageFileHeader(Containers::ArrayView<const char> data, std::string& reason) {
    const Bytes bytes{reinterpret_cast<const unsigned char*>(data.data()), data.size()};
    if(bytes.size() > std::size_t(std::numeric_limits<int>::max())) {
        reason = "the file is too large";
        return {};
    }
    if(const char* const problem = whyNotDecodable(bytes)) {
        reason = problem;
        return {};
    }
    ImageFileHeader header{formatOf(bytes), {}};
    if(!findSize(bytes, header, reason)) return {};
    if(header.format == ImageFormat::Hdr && isTruncatedHdr(bytes, header.size)) {
        reason = "the HDR file is truncated";
        return {};
    }
    return header;
}

} // namespace VantrelEngine
