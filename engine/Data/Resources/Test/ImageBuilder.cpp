#include "ImageBuilder.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb/stb_image_write.h>

namespace VantrelEngine::Test {

namespace {

void append(void* file, void* data, int size) {
    static_cast<std::string*>(file)->append(static_cast<const char*>(data), std::size_t(size));
}

}

std::string pngFile(int width, int height, const std::vector<unsigned char>& pixels) {
    std::string file;
    stbi_write_png_to_func(append, &file, width, height, 4, pixels.data(), width * 4);
    return file;
}

std::string jpegFile(int width, int height, const std::vector<unsigned char>& pixels) {
    std::string file;
    stbi_write_jpg_to_func(append, &file, width, height, 4, pixels.data(), 95);
    return file;
}

std::string tgaFile(int width, int height, const std::vector<unsigned char>& pixels) {
    std::string file;
    stbi_write_tga_to_func(append, &file, width, height, 4, pixels.data());
    return file;
}

std::string bmpFile(int width, int height, const std::vector<unsigned char>& pixels) {
    std::string file;
    stbi_write_bmp_to_func(append, &file, width, height, 4, pixels.data());
    return file;
}

std::string hdrFile(int width, int height, const std::vector<float>& pixels) {
    std::string file;
    stbi_write_hdr_to_func(append, &file, width, height, 4, pixels.data());
    return file;
}

}
