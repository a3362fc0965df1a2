#pragma once

#include <cstdint>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

struct SceneImage;

// The surroundings of a scene, longitude over latitude, as light: linear, without limits but that of a half, rows upwards.
struct EnvironmentPicture {
    // Twice as wide as high, powers of two.
    Magnum::Vector2i size;
    std::vector<Magnum::Color4> texels;
};

// Texels along the longer edge.
constexpr Magnum::Int MinimumEnvironmentWidth = 256, MaximumEnvironmentWidth = 2048;

// What is brighter counts as that bright: a sun that is, in the least picture, still lights everything, and the sums of
// its neighbourhood are numbers that a half can hold.
constexpr Magnum::Float BrightestEnvironment = 30000.0f;

// Of an image, which has pixels. Opacity does not count; what is no number, or less than nothing, is black. Costs a pass
// over all pixels.
EnvironmentPicture environmentPicture(const SceneImage& image);

// As many texels as are wanted, each the average of what it covers.
EnvironmentPicture resized(const EnvironmentPicture& picture, const Magnum::Vector2i& size);

// With all that is much brighter than the average spread over some degrees around it, the same light in all: so that who
// takes few samples does not miss a sun with most of them. Its cost grows with the number of such texels, and with how many
// are that close to one.
EnvironmentPicture withSpreadSuns(const EnvironmentPicture& picture);

// Another number for other texels, to all likelihood; the same on every machine that keeps numbers in the same order.
std::uint64_t contentKey(const EnvironmentPicture& picture);

} // namespace VantrelEngine
