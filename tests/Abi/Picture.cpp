#include "Picture.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <stb/stb_image.h>
#include <stb/stb_image_write.h>

namespace VantrelProof {

std::optional<Picture> readPng(const std::string& file) {
    int width, height;
    const std::unique_ptr<stbi_uc, void (*)(void*)> data{
        stbi_load(file.data(), &width, &height, nullptr, 4), stbi_image_free};
    if(!data) return {};
    return Picture{width, height, {data.get(), data.get() + std::size_t(width) * height * 4}};
}

bool writePng(const std::string& file, const Picture& picture) {
    return stbi_write_png(file.data(), picture.width, picture.height, 4, picture.pixels.data(), picture.width * 4);
}

Difference compare(const Picture& a, const Picture& b, int step) {
    int largest = 0;
    std::size_t different = 0;
    for(std::size_t i = 0; i != a.pixels.size(); i += 4) {
        int pixel = 0;
        for(std::size_t j = i; j != i + 4; ++j) pixel = std::max(pixel, std::abs(a.pixels[j] - b.pixels[j]));
        largest = std::max(largest, pixel);
        different += pixel > step;
    }
    return {double(different) / (double(a.width) * a.height), largest};
}

}
