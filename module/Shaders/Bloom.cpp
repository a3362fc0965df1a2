#include "Shaders/Bloom.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Version.h>

#include "Shaders/BloomKernel.h"
#include "Shaders/ShaderResources.h"
#include "Utils/Assert.h"
#include "Utils/StringWriter.h"

using namespace Corrade;
using namespace Magnum;

namespace VantrelEngine::Shaders {

namespace {

constexpr Int SceneUnit = 0;
constexpr Int BloomUnit = 2;

// Constants of the program, so that the compiler can unroll the blur.
StringWriter weightsSource(UnsignedInt kernelSize) {
    const Containers::Array<Double> weights = bloomWeights(kernelSize);
    StringWriter source{128};
    source.format("highp float WEIGHTS[{}] = float[] (", weights.size());
    for(std::size_t i = 0; i + 1 < weights.size(); ++i) source.format("{:.10}, ", weights[i]);
    source.format("{:.10});\n", weights.back());
    return source;
}

StringWriter sizeSource(UnsignedInt kernelSize) {
    StringWriter source;
    source.format("#define KERNEL_SIZE {}\n", bloomWeightCount(kernelSize));
    return source;
}

}

Bloom::Bloom(UnsignedInt kernelSize) {
    const GL::Version version = shaderVersion();
    CORRADE_ASSERT(kernelSize <= MaxBloomKernelSize, "Bloom::Bloom(): Kernel size too big", );
    const StringWriter weights = weightsSource(kernelSize), size = sizeSource(kernelSize);
    MAGNUM_ASSERT_GL_VERSION_SUPPORTED(version);

    GL::Shader vert = loadShader(GL::Shader::Type::Vertex, ShaderGroup::Engine, "FullscreenTriangle.vert");
    GL::Shader frag{version, GL::Shader::Type::Fragment};
    frag.addSource("#define NEW_GLSL\n").addSource(weights.text()).addSource(size.text());
    addShaderSource(frag, ShaderGroup::Engine, "Bloom.frag");

    // Both are on their way before either is waited for.
    vert.submitCompile();
    frag.submitCompile();
    VANTREL_ASSERT(vert.checkCompile(), "Shaders/Bloom", 116);
    VANTREL_ASSERT(frag.checkCompile(), "Shaders/Bloom", 117);
    attachShader(vert);
    attachShader(frag);
    VANTREL_ASSERT(link(), "Shaders/Bloom", 121);

    // A blur of one pixel has no direction: the compiler leaves that uniform out, and it need not be told of.
    const Utility::Warning silence{nullptr};
    _exposureUniform = uniformLocation("exposure");
    _thresholdUniform = uniformLocation("threshold");
    _verticalUniform = uniformLocation("vertical");
    _maskUniform = uniformLocation("mask");
    _blendUniform = uniformLocation("blend");
    _bloomIntensityUniform = uniformLocation("bloomIntensity");
    setUniform(uniformLocation("sceneTexture"), SceneUnit);
    setUniform(uniformLocation("bloomTexture"), BloomUnit);
}

Bloom& Bloom::setExposure(Float exposure) {
    setUniform(_exposureUniform, exposure);
    return *this;
}

Bloom& Bloom::setThreshold(Float threshold) {
    setUniform(_thresholdUniform, threshold);
    return *this;
}

Bloom& Bloom::setVertical(bool vertical) {
    setUniform(_verticalUniform, Int(vertical));
    return *this;
}

Bloom& Bloom::setBloomIntensity(Float intensity) {
    setUniform(_bloomIntensityUniform, intensity);
    return *this;
}

Bloom& Bloom::setBlend(bool blend) {
    setUniform(_blendUniform, Int(blend));
    return *this;
}

Bloom& Bloom::setMask(bool mask) {
    setUniform(_maskUniform, Int(mask));
    return *this;
}

}
