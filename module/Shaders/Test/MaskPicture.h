#pragma once

#include <vector>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Vector2.h>

#include "Shaders/Outline.h"

namespace VantrelTest {

// How much of each pixel is covered, from 0 to 1, row after row from the bottom.
struct Mask {
    Magnum::Vector2i size;
    std::vector<float> coverage;

    float at(const Magnum::Vector2i& pixel) const;
    float& at(const Magnum::Vector2i& pixel) { return coverage[pixel.y() * size.x() + pixel.x()]; }
};

Mask emptyMask(const Magnum::Vector2i& size);
Mask fullMask(const Magnum::Vector2i& size);
// With soft edges, as from multisampling.
Mask discsMask(const Magnum::Vector2i& size);
// Single pixels of any coverage that do not touch each other.
Mask dotsMask(const Magnum::Vector2i& size);
// Every pixel of any coverage.
Mask noiseMask(const Magnum::Vector2i& size);

// A texture with a mask and a framebuffer to draw the outline into.
class OutlineCanvas {
public:
    explicit OutlineCanvas(const Mask& mask, const Magnum::Color4& background = {0.0f, 0.0f, 0.0f, 1.0f});

    // Gives the outline size and mask and draws it over the background. Width and color are its own.
    void draw(VantrelEngine::Shaders::Outline& outline);

    // Result of the last draw(), eight bits a channel.
    std::vector<Magnum::Color4ub> pixels();

    Magnum::GL::Texture2D mask;
    Magnum::GL::Texture2D color;
    Magnum::GL::Framebuffer framebuffer;

private:
    Magnum::Vector2i _size;
    Magnum::Color4 _background;
};

// The texture that an outline has left bound to the unit of the positions.
unsigned int boundPositionsId();
Magnum::Vector2i boundPositionsSize();
std::vector<Magnum::Vector2us> boundPositions(const Magnum::Vector2i& size);

}
