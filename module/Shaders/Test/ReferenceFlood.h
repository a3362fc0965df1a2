#pragma once

#include <vector>

#include <Magnum/Math/Vector2.h>

#include "MaskPicture.h"

namespace VantrelTest {

// What the outline computes, pixel by pixel on the processor.

// Positions as the textures have them: fractions of the size, of 65535.
typedef std::vector<Magnum::Vector2us> Positions;

Positions referenceSeeds(const Mask& mask);
Positions referenceStep(const Positions& positions, const Magnum::Vector2i& size, int spacing);

// In pixels, x is 0 for none.
Magnum::Vector2 decoded(const Magnum::Vector2us& position, const Magnum::Vector2i& size);

// Share of the outline's color at a pixel, given the position next to it.
float referenceAlpha(const Mask& mask, const Magnum::Vector2i& pixel, const Magnum::Vector2& closest, float width);

// Of all of the seeds the closest one, or zero if there is none that an outline of this width could be painted for.
Magnum::Vector2 exactlyClosest(
    const Positions& seeds, const Magnum::Vector2i& size, const Magnum::Vector2i& pixel, float width);

}
