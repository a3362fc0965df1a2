#include <Corrade/Containers/StringStl.h>
#include <Magnum/Math/Color.h>
#include <Magnum/PixelFormat.h>

#include "Data/Resources/ImageFile.h"
#include "Data/Resources/ResourceHandlers.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Containers::Literals;
using namespace Magnum;

namespace {

constexpr Containers::StringView ColorSpaces[]{"srgb"_s, "linear"_s};

// Nobody takes this for the picture that was meant.
Image2D placeholder() {
    constexpr int Edge = 8;
    Containers::Array<char> data{NoInit, Edge * Edge * sizeof(Color4ub)};
    auto* const pixels = reinterpret_cast<Color4ub*>(data.data());
    for(int y = 0; y != Edge; ++y)
        for(int x = 0; x != Edge; ++x)
            pixels[y * Edge + x] = (x + y) % 2 ? Color4ub{0, 0, 0, 255} : Color4ub{255, 0, 255, 255};
    return Image2D{PixelFormat::RGBA8Unorm, {Edge, Edge}, std::move(data)};
}

bool loadPixels(ResourceContext& context, const ResourceNode& node, const ResourceEntry& entry) {
    SceneImage& image = context.scene.images[node.index];
    const std::optional<FileLink> link = entry.link("file", "");
    const ResourceSource source{link.value_or(FileLink{}), {}};
    if(context.sources.isCurrent(node, source)) return false;

    std::optional<Image2D> pixels;
    if(link) pixels = context.load(entry, *link, MaximumImageFileSize, readImage);
    const bool wasPlaceholder = image.pixels && !context.sources.has(node);
    if(!pixels && wasPlaceholder) return false;
    context.sources.set(node, pixels ? source : ResourceSource{});
    image.pixels = pixels ? std::move(*pixels) : placeholder();
    image.header.size = image.pixels->size();
    image.revision = ++context.imageRevision;
    return true;
}

} // namespace

unsigned compileImage(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry) {
    entry.text("name");
    bool isChanged = loadPixels(context, node, entry);
    SceneImage& image = context.scene.images[node.index];
    const bool isSrgb =
        entry.choice("colorSpace", ColorSpaces, 0) == 0 && image.pixels->format() == PixelFormat::RGBA8Unorm;
    if(image.isSrgb != isSrgb) {
        image.isSrgb = isSrgb;
        image.revision = ++context.imageRevision;
        isChanged = true;
    }
    return isChanged ? ContentsChanged : NothingChanged;
}

} // namespace VantrelEngine
