#pragma once

#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// A closed outline, on a grid of 1024 units to an em: x to the right, y up from the line that text stands on. What is
// inside goes clockwise; a hole goes the other way.
using IconOutline = std::vector<Magnum::Vector2>;

struct IconShape {
    // Below 0xffff.
    char32_t codePoint;
    std::vector<IconOutline> outlines;
};

// A TrueType font of these shapes, whose code points ascend. An em wide each.
std::vector<unsigned char> makeIconFont(const std::vector<IconShape>& shapes);

constexpr int IconEm = 1024;

} // namespace VantrelEngine
