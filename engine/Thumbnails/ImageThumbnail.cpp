#include "Thumbnails/ImageThumbnail.h"

#include <cmath>

#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Packing.h>
#include <Magnum/PixelFormat.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Pixels of a square of the ground, and its two greys.
constexpr Int SquareEdge = 8;
constexpr Float Light = 0.62f, Dark = 0.42f;

bool isFloat(const SceneImage& image) { return image.pixels->format() == PixelFormat::RGBA32F; }

// The average of the texels between two corners, as they are stored; one at least.
template<class Texel>
Color4 average(const Containers::StridedArrayView2D<const Texel>& texels, const Vector2i& size, const Vector2i& from,
    const Vector2i& to) {
    const Vector2i first = Math::clamp(from, Vector2i{0}, size - Vector2i{1});
    const Vector2i end = Math::min(Math::max(to, first + Vector2i{1}), size);
    Color4 sum{0.0f, 0.0f};
    for(Int y = first.y(); y != end.y(); ++y)
        for(Int x = first.x(); x != end.x(); ++x) {
            const Texel& texel = texels[std::size_t(y)][std::size_t(x)];
            sum += Color4{Float(texel[0]), Float(texel[1]), Float(texel[2]), Float(texel[3])};
        }
    return sum / Float((end - first).product());
}

// Of a grid of so many cells over the image.
Color4 cell(const SceneImage& image, const Vector2i& cells, const Vector2i& index) {
    const Vector2i size = image.pixels->size();
    const auto corner = [&](const Vector2i& of) {
        return Vector2i{Int(Long(of.x()) * size.x() / cells.x()), Int(Long(of.y()) * size.y() / cells.y())};
    };
    const Vector2i from = corner(index), to = corner(index + Vector2i{1});
    if(isFloat(image)) return average<Vector4>(image.pixels->pixels<Vector4>(), size, from, to);
    return average<Color4ub>(image.pixels->pixels<Color4ub>(), size, from, to) / 255.0f;
}

Float screenValue(Float linear) {
    const Float value = Math::clamp(linear, 0.0f, 1.0f);
    return value <= 0.0031308f ? value * 12.92f : 1.055f * std::pow(value, 1.0f / 2.4f) - 0.055f;
}

Color4 screenColor(const SceneImage& image, const Color4& color) {
    if(!isFloat(image)) return color;
    return {screenValue(color.r()), screenValue(color.g()), screenValue(color.b()), Math::clamp(color.a(), 0.0f, 1.0f)};
}

Vector2i fitted(const Vector2i& size, Int edge) {
    const Double factor = Double(edge) / size.max();
    return {Math::max(Int(size.x() * factor + 0.5), 1), Math::max(Int(size.y() * factor + 0.5), 1)};
}

Float ground(const Vector2i& pixel) { return (pixel.x() / SquareEdge + pixel.y() / SquareEdge) % 2 ? Light : Dark; }

} // namespace

ThumbnailPixels imageThumbnail(const SceneImage& image, Int edge) {
    const Vector2i size = fitted(image.pixels->size(), edge), offset = (Vector2i{edge} - size) / 2;
    ThumbnailPixels pixels;
    pixels.reserve(std::size_t(edge) * std::size_t(edge));
    for(Int y = 0; y != edge; ++y)
        for(Int x = 0; x != edge; ++x) {
            const Vector2i pixel{x, y}, inside = pixel - offset;
            Color3 color{ground(pixel)};
            if(inside.min() >= 0 && (inside < size).all()) {
                const Color4 texel = screenColor(image, cell(image, size, inside));
                color = Math::lerp(color, texel.rgb(), texel.a());
            }
            pixels.push_back(Math::pack<Color4ub>(Color4{color, 1.0f}));
        }
    return pixels;
}

SceneImage reducedImage(const SceneImage& image, Int longestEdge) {
    SceneImage reduced;
    reduced.id = image.id;
    reduced.isSrgb = image.isSrgb;
    const Vector2i size = fitted(image.pixels->size(), Math::min(longestEdge, image.pixels->size().max()));
    reduced.header.size = size;
    const std::size_t texelSize = isFloat(image) ? sizeof(Vector4) : sizeof(Color4ub);
    Containers::Array<char> texels{NoInit, std::size_t(size.product()) * texelSize};
    for(Int y = 0; y != size.y(); ++y)
        for(Int x = 0; x != size.x(); ++x) {
            const std::size_t at = std::size_t(y) * std::size_t(size.x()) + std::size_t(x);
            const Color4 color = cell(image, size, {x, y});
            if(isFloat(image))
                reinterpret_cast<Vector4*>(texels.data())[at] = color;
            else
                reinterpret_cast<Color4ub*>(texels.data())[at] = Math::pack<Color4ub>(color);
        }
    reduced.pixels.emplace(image.pixels->format(), size, std::move(texels));
    return reduced;
}

} // namespace VantrelEngine
