#pragma once

#include <optional>
#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Image.h>

#include "Data/Resources/ImageFileHeader.h"

namespace VantrelEngine {

// A PNG, JPEG, TGA or BMP file as RGBA of 8 bits a channel, a Radiance HDR file as RGBA of 32-bit floats. Rows upwards.
// None, and a reason, where the file cannot be used.
std::optional<Magnum::Image2D> readImage(Corrade::Containers::ArrayView<const char> bytes, std::string& reason);

} // namespace VantrelEngine
