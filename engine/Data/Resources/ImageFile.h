#pragma once

#include <optional>
#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Image.h>

namespace VantrelEngine {

// Pixels on an edge, and bytes of the decoded image: what is larger is refused before it is decoded.
constexpr int MaximumImageEdge = 8192;
constexpr std::size_t MaximumImageSize = std::size_t{256} << 20;

// A PNG, JPEG, TGA or BMP file as RGBA of 8 bits a channel, a Radiance HDR file as RGBA of 32-bit floats. Rows upwards.
// None, and a reason, where the file cannot be used.
std::optional<Magnum::Image2D> readImage(Corrade::Containers::ArrayView<const char> bytes, std::string& reason);

} // namespace VantrelEngine
