#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VantrelProof {

// RGBA, 8 bits each, highest row first.
struct Picture {
    int width, height;
    std::vector<std::uint8_t> pixels;
};

struct Difference {
    // Of all pixels, those with a channel that is further off than the tolerated step.
    double fraction;
    // Of any channel in any pixel.
    int largest;
};

// Empty if the file is no PNG that can be read.
std::optional<Picture> readPng(const std::string& file);

// False if the file cannot be written.
bool writePng(const std::string& file, const Picture& picture);

// Pictures of the same size.
Difference compare(const Picture& a, const Picture& b, int step);

}
