#include "Renderer/Textures/ImageStore.h"

#include <algorithm>

#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Renderer/TextureUnits.h"
#include "Renderer/Textures/MipLevels.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr Int Margin = 1;
constexpr Int MinimumLayerEdge = 16;
// The margins of this many images beside each other are added to a layer, so that what fits without them fits.
constexpr Int TexelsPerMargin = 64;
// Bytes of the layers of one kind.
constexpr std::size_t MaximumMemory = std::size_t{4} << 30;
constexpr std::size_t LargestTexelSize = 8;

Vector2i padded(const Vector2i& size) { return size + Vector2i{2 * Margin}; }

std::size_t area(const Vector2i& size) { return std::size_t(size.x()) * std::size_t(size.y()); }

ImageStore::Kind kindOf(const SceneImage& image) {
    if(image.pixels->format() == PixelFormat::RGBA32F) return ImageStore::Float;
    return image.isSrgb ? ImageStore::Color : ImageStore::Data;
}

std::vector<Vector2i> storedSizes(const Vector2i& size, Int halvings) {
    std::vector<Vector2i> sizes = mipSizes(size);
    sizes.erase(sizes.begin(), sizes.begin() + halvings);
    return sizes;
}

} // namespace

ImageStore::ImageStore():
    _maximum{TextureLayers::maximumSize()}, _layers{TextureLayers{
                                                        GL::TextureFormat::SRGB8Alpha8, TextureUnit::ColorTextures},
                                                TextureLayers{GL::TextureFormat::RGBA8, TextureUnit::DataTextures},
                                                TextureLayers{GL::TextureFormat::RGBA16F, TextureUnit::FloatTextures}} {
    setLayerSize(Vector2i{4096});
}

void ImageStore::setLayerSize(const Vector2i& size) {
    _nextLayerSize = Math::clamp(size, Vector2i{MinimumLayerEdge}, _maximum.xy() - Vector2i{2 * Margin});
    if(_images.empty()) _layerSize = _nextLayerSize;
}

void ImageStore::clear() {
    _images.clear();
    _positions.clear();
    _reservedTexels = 0;
    _count = 0;
    _layerSize = _nextLayerSize;
}

Vector2i ImageStore::paddedLayerSize() const {
    const Vector2i margins = Math::max(_layerSize / TexelsPerMargin, Vector2i{2 * Margin});
    return Math::min(_layerSize + margins, _maximum.xy());
}

Int ImageStore::maximumLayerCount() const {
    const std::size_t count = MaximumMemory / (area(paddedLayerSize()) * LargestTexelSize);
    return Int(Math::clamp(count, std::size_t{1}, std::size_t(_maximum.z())));
}

bool ImageStore::reserve(Id image, const Vector2i& size) {
    if(size.min() <= 0) return false;
    Image reserved;
    reserved.size = size;
    while(((size / (1 << reserved.halvings)) > _layerSize).any()) ++reserved.halvings;
    std::size_t texels = 0;
    for(const Vector2i& level: storedSizes(size, reserved.halvings)) texels += area(padded(level));
    if(_reservedTexels + texels > area(paddedLayerSize()) * std::size_t(maximumLayerCount())) {
        Utility::Warning{} << "TextureAtlas: there is no room for image" << image << "of" << size.x() << "x" << size.y()
                           << "pixels";
        return false;
    }
    _reservedTexels += texels;
    if(_positions.size() <= image) _positions.resize(image + 1);
    _images.push_back(reserved);
    _positions[image] = _images.size();
    return true;
}

void ImageStore::set(std::size_t index, const SceneImage& image) {
    if(index >= _images.size() || !image.pixels) return;
    Image& reserved = _images[index];
    CORRADE_ASSERT(image.pixels->size() == reserved.size, "TextureAtlas: an image of another size was reserved", );
    if(!reserved.image) ++_count;
    reserved.image = &image;
}

void ImageStore::keepOnly(const std::vector<bool>& kept) {
    for(std::size_t i = 0; i != _positions.size(); ++i)
        if(_positions[i] && (i >= kept.size() || !kept[i])) _images[_positions[i] - 1].image = nullptr;
}

void ImageStore::prepare() {
    _records.clear();
    for(const Kind kind: {Color, Data, Float}) placeAll(kind);
}

void ImageStore::placeAll(Kind kind) {
    std::vector<Vector2i> sizes;
    for(const Image& image: _images)
        if(image.image && kindOf(*image.image) == kind)
            for(const Vector2i& size: storedSizes(image.size, image.halvings)) sizes.push_back(padded(size));
    const LayerPacking packing = packLayers(sizes, paddedLayerSize());
    _layers[kind].resize({packing.usedSize, std::min(packing.layerCount, maximumLayerCount())});
    const LayerPacking::Place* places = packing.places.data();
    for(Image& image: _images) {
        if(!image.image || kindOf(*image.image) != kind) continue;
        image.levels.kind = kind;
        upload(image, places);
        places += mipSizes(image.size).size() - image.halvings;
    }
}

void ImageStore::upload(Image& image, const LayerPacking::Place* places) {
    const std::size_t count = mipSizes(image.size).size() - image.halvings;
    // Gaps can take what the sum of the areas seemed to leave.
    if(std::any_of(places, places + count, [&](const auto& place) { return place.layer >= maximumLayerCount(); })) {
        Utility::Warning{} << "TextureAtlas: there is no room for image" << image.image->id.data();
        return;
    }
    if(image.halvings)
        Utility::Warning{} << "TextureAtlas: image" << image.image->id.data() << "of" << image.size.x() << "x"
                           << image.size.y() << "pixels is made smaller: a layer has" << _layerSize.x() << "x"
                           << _layerSize.y();
    image.levels.first = _records.size();
    image.levels.count = count;
    MipLevels texels{*image.image->pixels, image.image->isSrgb};
    for(Int i = 0; i != image.halvings; ++i) texels.halve();
    TextureLayers& layers = _layers[image.levels.kind];
    for(std::size_t i = 0; i != count; ++i) {
        if(i) texels.halve();
        const LayerPacking::Place& place = places[i];
        const Range2Di rectangle = Range2Di::fromSize(place.offset, padded(texels.size()));
        if(texels.isFloat())
            layers.write(rectangle, place.layer, texels.floatsWithMargin());
        else
            layers.write(rectangle, place.layer, texels.bytesWithMargin());
        const Vector2ui size{texels.size()};
        _records.push_back({UnsignedInt(place.offset.x() + Margin), UnsignedInt(place.offset.y() + Margin),
            UnsignedInt(place.layer), size.x() | size.y() << 16});
    }
}

ImageStore::Levels ImageStore::levels(Id image) const {
    const std::size_t position = image < _positions.size() ? _positions[image] : 0;
    return position ? _images[position - 1].levels : Levels{};
}

void ImageStore::bind() {
    for(TextureLayers& layers: _layers) layers.bind();
}

} // namespace VantrelEngine
