#pragma once

#include <string>
#include <vector>

namespace VantrelEngine::Test {

// RGBA pixels, rows from the top down.
std::string pngFile(int width, int height, const std::vector<unsigned char>& pixels);
std::string jpegFile(int width, int height, const std::vector<unsigned char>& pixels);
std::string tgaFile(int width, int height, const std::vector<unsigned char>& pixels);
std::string bmpFile(int width, int height, const std::vector<unsigned char>& pixels);
std::string hdrFile(int width, int height, const std::vector<float>& pixels);

// A PNG file of one colour.
inline std::string pngFile(int width, int height, unsigned char value) {
    return pngFile(width, height, std::vector<unsigned char>(std::size_t(width) * height * 4, value));
}

}
