#pragma once

#include <cmath>
#include <string>

#include <Magnum/Math/Color.h>
#include <Magnum/Math/Vector3.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/SceneResources.h>

namespace VantrelTest {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;

// A direction of the scene, where it lies in a picture of longitude over latitude (from the lower left, 0 to 1 each), and
// the colour that the test picture has there.
struct SixthOfAll {
    const char* name;
    Vector3 direction;
    Vector2 place;
    Color3 color;
};
const SixthOfAll SixDirections[]{{"-z, the middle", {0, 0, -1}, {0.5f, 0.5f}, {1, 0, 0}},
    {"+x, right of it", {1, 0, 0}, {0.75f, 0.5f}, {0, 1, 0}}, {"+z, both sides", {0, 0, 1}, {0.0f, 0.5f}, {0, 0, 1}},
    {"-x, left of it", {-1, 0, 0}, {0.25f, 0.5f}, {1, 1, 0}},
    {"+y, the upper edge", {0, 1, 0}, {0.5f, 1.0f}, {0, 1, 1}},
    {"-y, the lower edge", {0, -1, 0}, {0.5f, 0.0f}, {1, 0, 1}}};

// From the lower left of a picture, 0 to 1 each: its middle is -z, its right +x.
inline Vector3 directionAt(const Vector2& place) {
    const Float longitude = (place.x() - 0.5f) * 6.2831853f, latitude = (place.y() - 0.5f) * 3.14159265f;
    return {std::sin(longitude) * std::cos(latitude), std::sin(latitude), -std::cos(longitude) * std::cos(latitude)};
}

// An image of floats, each pixel by its place.
template<class Pixel> SceneImage imageOf(const Vector2i& size, Pixel pixel) {
    Containers::Array<char> data{NoInit, std::size_t(size.product()) * sizeof(Vector4)};
    auto* texels = reinterpret_cast<Vector4*>(data.data());
    for(Int y = 0; y != size.y(); ++y)
        for(Int x = 0; x != size.x(); ++x)
            *texels++ = Vector4{pixel((Vector2{Vector2i{x, y}} + Vector2{0.5f}) / Vector2{size}), 1.0f};
    SceneImage image;
    image.id = "surroundings";
    image.pixels = Image2D{PixelFormat::RGBA32F, size, std::move(data)};
    image.header.size = size;
    image.isSrgb = false;
    image.revision = 1;
    return image;
}

inline SceneImage evenImage(const Color3& color) {
    return imageOf({256, 128}, [&](const Vector2&) { return color; });
}

// Each direction has the colour of the closest of the six.
inline SceneImage sixDirectionsImage() {
    return imageOf({256, 128}, [](const Vector2& place) {
        const SixthOfAll* closest = SixDirections;
        for(const SixthOfAll& one: SixDirections)
            if(Math::dot(one.direction, directionAt(place)) > Math::dot(closest->direction, directionAt(place)))
                closest = &one;
        return closest->color;
    });
}

} // namespace VantrelTest
