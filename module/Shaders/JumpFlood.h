#pragma once

#include <Magnum/Magnum.h>

namespace VantrelEngine::Shaders {

// Arithmetic of a flood in which every pixel learns the closest seed: a few steps in which it asks its neighbours at a
// distance, the spacing, that halves from step to step. Two textures take turns; texture 0 has the seeds.

// Steps that carry a seed as far as the outline is wide, but no farther than across a picture of this size, in pixels:
// none up to a width of less than 2, then one more each time that the whole pixels of the width pass a power of two.
Magnum::Int jumpFloodSteps(const Magnum::Vector2i& size, Magnum::Float width);

// Spacing of a step, in pixels. Expects 0 <= step < steps.
Magnum::UnsignedInt jumpFloodSpacing(Magnum::Int steps, Magnum::Int step);

// The texture, 0 or 1, that has the result of so many steps.
Magnum::Int jumpFloodTexture(Magnum::Int stepsDone);

}
