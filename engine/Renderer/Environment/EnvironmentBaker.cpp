#include "Renderer/Environment/EnvironmentBaker.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Image.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Range.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/Renderer/RendererState.h>

#include "Renderer/Environment/EquirectTexture.h"
#include "Renderer/KeptFramebuffer.h"
#include "Shaders/ShaderResources.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Of a texel, by the shaders: directions of two loops of steps of 0.025 over 2 pi and over half of pi; directions of a
// mirror.
constexpr std::size_t ReceivedSamples = 252 * 63, MirroredSamples = 1024;

constexpr Int EnvironmentUnit = 0;

bool isMirror(std::size_t target) { return BakeTargets[target].roughness >= 0.0f; }

std::size_t samplesOfRow(std::size_t target) {
    return std::size_t(BakeTargets[target].size.x()) * (isMirror(target) ? MirroredSamples : ReceivedSamples);
}

// The first and the last row are the poles.
constexpr const char* VertexSource = R"(
uniform float rows;
out vec2 textureCoordinates;
void main() {
    vec2 corner = vec2(float(gl_VertexID == 1), float(gl_VertexID == 2))*4.0 - 1.0;
    textureCoordinates = corner*0.5 + 0.5;
    textureCoordinates.y = (textureCoordinates.y*rows - 0.5)/(rows - 1.0);
    gl_Position = vec4(corner, 0.0, 1.0);
}
)";

class BakerProgram: public GL::AbstractShaderProgram {
public:
    explicit BakerProgram(Containers::StringView file, bool hasRoughness) {
        GL::Shader vertex{Shaders::shaderVersion(), GL::Shader::Type::Vertex};
        vertex.addSource(VertexSource);
        GL::Shader fragment = Shaders::loadShader(GL::Shader::Type::Fragment, Shaders::ShaderGroup::Engine, file);
        CORRADE_INTERNAL_ASSERT_OUTPUT(vertex.compile() && fragment.compile());
        attachShader(vertex);
        attachShader(fragment);
        CORRADE_INTERNAL_ASSERT_OUTPUT(link());
        setUniform(uniformLocation("environment"), EnvironmentUnit);
        _rows = uniformLocation("rows");
        if(hasRoughness) _roughness = uniformLocation("roughness");
    }

    BakerProgram& setTarget(const BakeTarget& target) {
        setUniform(_rows, Float(target.size.y()));
        if(_roughness != -1) setUniform(_roughness, target.roughness);
        return *this;
    }

private:
    Int _rows = -1, _roughness = -1;
};

// So few samples would miss what is small in a picture that is finer than they are: it has twice the texels of the
// target, but not much fewer than there are samples.
Vector2i sourceSize(const BakeTarget& target) {
    const Int width = Math::max(2 * target.size.x(), 64);
    return {width, width / 2};
}

} // namespace

struct EnvironmentBaker::Programs {
    BakerProgram received{"IrradianceIBLBaker.frag", false};
    BakerProgram mirrored{"SpecularIBLBaker.frag", true};
    GL::Mesh triangle{GL::MeshPrimitive::Triangles};
};

EnvironmentBaker::EnvironmentBaker() = default;

EnvironmentBaker::~EnvironmentBaker() = default;

void EnvironmentBaker::begin(EnvironmentPicture picture) {
    if(!_programs) {
        _programs = std::make_unique<Programs>();
        _programs->triangle.setCount(3);
    }
    _picture = std::move(picture);
    _smallPicture = withSpreadSuns(resized(_picture, sourceSize(BakeTargets[1])));
    _bake.assign(BakeLength, 0);
    _target = 0;
    beginTarget();
}

void EnvironmentBaker::cancel() {
    _target = BakeTargetCount;
    _source = {};
    _result = {};
    _picture = {};
    _smallPicture = {};
}

void EnvironmentBaker::beginTarget() {
    _row = 0;
    const BakeTarget& target = BakeTargets[_target];
    const EnvironmentPicture source = resized(_smallPicture, sourceSize(target));
    _source = equirectTexture(1, source.size);
    _source->setSubImage(0, {},
        ImageView2D{PixelFormat::RGBA32F, source.size,
            Containers::ArrayView<const Color4>{source.texels.data(), source.texels.size()}});
    _result = equirectTexture(1, target.size);
}

bool EnvironmentBaker::advance(std::size_t samples) {
    const KeptFramebuffer kept;
    std::size_t taken = 0;
    do {
        const Int rest = BakeTargets[_target].size.y() - _row;
        const std::size_t ofRow = samplesOfRow(_target), left = samples > taken ? samples - taken : 0;
        const Int count = samples ? std::clamp(Int(left / ofRow), 1, rest) : rest;
        drawRows(count);
        taken += std::size_t(count) * ofRow;
        if((_row += count) != BakeTargets[_target].size.y()) continue;
        readTarget();
        if(++_target != BakeTargetCount)
            beginTarget();
        else {
            _source = {};
            _result = {};
        }
    } while(isUnderWay() && (!samples || taken < samples));
    return !isUnderWay();
}

void EnvironmentBaker::drawRows(Int count) {
    const BakeTarget& target = BakeTargets[_target];
    RendererState state;
    state.depthTest = state.depthWrite = state.faceCulling = false;
    state.apply();
    GL::Renderer::enable(GL::Renderer::Feature::ScissorTest);
    GL::Renderer::setScissor({{0, _row}, {target.size.x(), _row + count}});
    GL::Framebuffer framebuffer{{{}, target.size}};
    framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, *_result, 0).bind();
    _source->bind(EnvironmentUnit);
    BakerProgram& program = isMirror(_target) ? _programs->mirrored : _programs->received;
    program.setTarget(target).draw(_programs->triangle);
    RendererState{}.apply();
}

void EnvironmentBaker::readTarget() {
    const Image2D image = _result->image(0, Image2D{PixelFormat::RGBA16F});
    const std::size_t length = bakeTargetLength(_target);
    CORRADE_INTERNAL_ASSERT(image.data().size() == length * sizeof(std::uint16_t));
    std::memcpy(_bake.data() + bakeTargetOffset(_target), image.data().data(), image.data().size());
}

} // namespace VantrelEngine
