#include "Application/Picture.h"

#include <cstdio>

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace VantrelEngine {

std::string writePng(const std::string& file, const Picture& picture) {
    const int width = picture.size.x(), height = picture.size.y();
    const std::size_t rowSize = std::size_t(width) * 3;
    std::vector<unsigned char> rows(rowSize * std::size_t(height));
    for(int y = 0; y != height; ++y) {
        const char* const from =
            picture.pixels.data() + std::size_t(height - 1 - y) * std::size_t(width) * Picture::PixelSize;
        unsigned char* const to = rows.data() + std::size_t(y) * rowSize;
        for(int x = 0; x != width; ++x)
            for(int channel = 0; channel != 3; ++channel)
                to[x * 3 + channel] = static_cast<unsigned char>(from[x * int(Picture::PixelSize) + channel]);
    }
    std::FILE* const stream = std::fopen(file.data(), "wb");
    if(!stream) return file + ": the picture cannot be written";
    const auto write = [](void* context, void* data, int size) {
        std::fwrite(data, 1, std::size_t(size), static_cast<std::FILE*>(context));
    };
    stbi_write_png_to_func(write, stream, width, height, 3, rows.data(), int(rowSize));
    const bool isWritten = !std::ferror(stream);
    return (std::fclose(stream) == 0) && isWritten ? std::string{} : file + ": the picture cannot be written";
}

} // namespace VantrelEngine
