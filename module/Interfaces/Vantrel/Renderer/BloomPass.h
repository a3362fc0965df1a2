#pragma once

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>

#include "Shaders/Bloom.h"

namespace VantrelEngine::Shaders {

// Parameters of the glow around what is bright, and the program that makes it. They stay when bloom is switched off. With
// the GL context of the renderer that it belongs to.
class CORRADE_VISIBILITY_EXPORT BloomPass {
public:
    // Pixels that the glow is mixed from along each axis, of a picture of half the size; at most 21, which the program
    // asserts. Builds the program anew, also for the size that it has.
    BloomPass& setKernelSize(Magnum::UnsignedInt size);
    // How often it is blurred along both axes; without, nothing glows. More than 64 are as 64.
    BloomPass& setPasses(Magnum::UnsignedInt passes);
    // Brightness above which it glows, and how much of it is added.
    BloomPass& setThreshold(Magnum::Float threshold);
    BloomPass& setIntensity(Magnum::Float intensity);
    // Factor of all brightness before it is brought into the range of the screen.
    BloomPass& setExposure(Magnum::Float exposure);

    Magnum::UnsignedInt kernelSize() const { return _kernelSize; }
    Magnum::UnsignedInt passes() const { return _passes; }
    Magnum::Float threshold() const { return _threshold; }
    Magnum::Float intensity() const { return _intensity; }
    Magnum::Float exposure() const { return _exposure; }

    // Built by now, at the latest.
    Bloom& program();

private:
    Bloom _program{Magnum::NoCreate};
    Magnum::UnsignedInt _passes = 0;
    Magnum::Float _exposure = 1.0f;
    Magnum::Float _threshold = 1.0f;
    Magnum::Float _intensity = 1.0f;
    Magnum::UnsignedInt _kernelSize = 0;
};

} // namespace VantrelEngine::Shaders
