#include "Import/Converter/Images.h"

#include <algorithm>

#include "Data/Resources/ImageFile.h"
#include "Import/Converter/Text.h"

namespace VantrelImport {

namespace {

const char* extensionFor(VantrelEngine::ImageFormat format) {
    switch(format) {
    case VantrelEngine::ImageFormat::Png: return "png";
    case VantrelEngine::ImageFormat::Jpeg: return "jpg";
    case VantrelEngine::ImageFormat::Tga: return "tga";
    case VantrelEngine::ImageFormat::Bmp: return "bmp";
    case VantrelEngine::ImageFormat::Hdr: return "hdr";
    }
    return "";
}

} // namespace

bool isImageExtension(const std::string& extension) {
    static constexpr const char* Extensions[]{"png", "jpg", "jpeg", "tga", "bmp", "hdr"};
    return std::find(std::begin(Extensions), std::end(Extensions), extension) != std::end(Extensions);
}

std::optional<ImageData> usableImage(std::string name, std::vector<char> bytes, std::string& reason) {
    const Corrade::Containers::ArrayView<const char> view{bytes.data(), bytes.size()};
    const auto header = VantrelEngine::readImageFileHeader(view, reason);
    // What lies behind a header can only be told by decoding it.
    if(!header || !VantrelEngine::readImage(view, reason)) return {};
    return ImageData{std::move(name), extensionFor(header->format), std::move(bytes)};
}

int addImage(Model& model, std::string name, std::vector<char> bytes, Messages& messages) {
    std::string reason;
    auto image = usableImage(name, std::move(bytes), reason);
    if(!image) {
        messages.warn("image " + quoted(name) + " is left out: " + reason);
        return Nothing;
    }
    model.images.push_back(std::move(*image));
    return int(model.images.size()) - 1;
}

} // namespace VantrelImport
