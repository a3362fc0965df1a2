#include <Vantrel/Renderer/BloomPass.h>

#include <algorithm>

namespace VantrelEngine {

using namespace Magnum;

BloomPass& BloomPass::setKernelSize(Int size) {
    _kernelSize = std::clamp(size, 0, 21);
    return *this;
}

BloomPass& BloomPass::setPassCount(Int count) {
    _passCount = std::max(count, 0);
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

} // namespace VantrelEngine
