#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// Pixels on an edge, and bytes of the decoded image: what is larger is refused before it is decoded.
constexpr int MaximumImageEdge = 8192;
constexpr std::size_t MaximumImageSize = std::size_t{256} << 20;

enum class ImageFormat { Png, Jpeg, Tga, Bmp, Hdr };

// Bytes of a pixel as it is decoded: RGBA of 8 bits a channel, of 32-bit floats for HDR.
constexpr std::size_t pixelSize(ImageFormat format) { return format == ImageFormat::Hdr ? 16 : 4; }

struct ImageFileHeader {
    ImageFormat format;
    Magnum::Vector2i size;
};

// Everything that is checked before an image is decoded. None, and a reason, where it must not be. Linear.
std::optional<ImageFileHeader> readImageFileHeader(
    Corrade::Containers::ArrayView<const char> bytes, std::string& reason);

} // namespace VantrelEngine
