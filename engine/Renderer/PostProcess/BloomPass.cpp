#include <Corrade/Containers/StringView.h>
#include <Vantrel/Renderer/BloomPass.h>

namespace VantrelEngine::Shaders {

using namespace Magnum;

BloomPass& BloomPass::setKernelSize(UnsignedInt size) {
    _kernelSize = size;
    _program = Bloom{size};
    _program.setLabel("Bloom");
    return *this;
}

BloomPass& BloomPass::setPasses(UnsignedInt passes) {
    _passes = passes;
    return *this;
}

BloomPass& BloomPass::setThreshold(Float threshold) {
    _threshold = threshold;
    return *this;
}

BloomPass& BloomPass::setIntensity(Float intensity) {
    _intensity = intensity;
    return *this;
}

BloomPass& BloomPass::setExposure(Float exposure) {
    _exposure = exposure;
    return *this;
}

Bloom& BloomPass::program() {
    if(!_program.id()) setKernelSize(_kernelSize);
    return _program;
}

} // namespace VantrelEngine::Shaders
