#pragma once

#include <string>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// Four bytes a pixel, the lowest row first.
struct Picture {
    static constexpr std::size_t PixelSize = 4;

    Magnum::Vector2i size;
    std::vector<char> pixels;
};

// Writes a PNG file, opaque. Returns an empty text, or one line.
std::string writePng(const std::string& file, const Picture& picture);

} // namespace VantrelEngine
