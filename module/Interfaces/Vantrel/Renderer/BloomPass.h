#pragma once

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>

namespace VantrelEngine {

// Parameters of the glow around what is brighter than the screen can show. Values stay when bloom is switched off.
class CORRADE_VISIBILITY_EXPORT BloomPass {
public:
    // Pixels to each side of the blur's middle, 0 to 21.
    BloomPass& setKernelSize(Magnum::Int size);
    // Blurs one after the other, each of half the size of the one before.
    BloomPass& setPassCount(Magnum::Int count);
    // Brightness from which on it glows, and how much of it is added.
    BloomPass& setThreshold(Magnum::Float threshold);
    BloomPass& setIntensity(Magnum::Float intensity);
    // Factor of all brightness before it is brought into the range of the screen.
    BloomPass& setExposure(Magnum::Float exposure);

    Magnum::Int kernelSize() const { return _kernelSize; }
    Magnum::Int passCount() const { return _passCount; }
    Magnum::Float threshold() const { return _threshold; }
    Magnum::Float intensity() const { return _intensity; }
    Magnum::Float exposure() const { return _exposure; }

private:
    Magnum::Int _kernelSize = 0;
    Magnum::Int _passCount = 0;
    Magnum::Float _threshold = 1.0f;
    Magnum::Float _intensity = 1.0f;
    Magnum::Float _exposure = 1.0f;
};

} // namespace VantrelEngine
