#pragma once

#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/Tags.h>

namespace VantrelEngine::Shaders {

// The program of a bloom, for three jobs: it picks what is bright out of a scene, blurs it along one axis at a time, and
// puts the outcome over the scene and maps the tones. Which one is a matter of its switches. To be drawn over the whole
// viewport with three vertices and no buffers; expects the scene in texture unit 0 and the bloom so far in unit 2. To be
// used with the current GL context only.
class Bloom: public Magnum::GL::AbstractShaderProgram {
public:
    // A program with as many taps along an axis as the size, or one more where it is even. Aborts with a message for a
    // size above 21, and where the GL does not take the program.
    explicit Bloom(Magnum::UnsignedInt kernelSize);

    // None yet: to be assigned to.
    explicit Bloom(Magnum::NoCreateT) noexcept: AbstractShaderProgram{Magnum::NoCreate} {}

    // Factor of the brightness before the tones are mapped.
    Bloom& setExposure(Magnum::Float exposure);
    // Luminance above which a pixel of the scene glows.
    Bloom& setThreshold(Magnum::Float threshold);
    // Blurs along y instead of x.
    Bloom& setVertical(bool vertical);
    // Factor of the bloom that is added to the scene.
    Bloom& setBloomIntensity(Magnum::Float intensity);
    // Adds the blurred bloom to the scene and maps the tones; otherwise the blurred bloom is the result.
    Bloom& setBlend(bool blend);
    // Blurs the bright pixels of the scene instead of the bloom so far.
    Bloom& setMask(bool mask);

private:
    Magnum::Int _exposureUniform = -1;
    Magnum::Int _thresholdUniform = -1;
    Magnum::Int _verticalUniform = -1;
    Magnum::Int _bloomIntensityUniform = -1;
    Magnum::Int _blendUniform = -1;
    Magnum::Int _maskUniform = -1;
};

}
