#include "Shaders/Outline.h"

#include <utility>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Format.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Sampler.h>

#include "Shaders/JumpFlood.h"
#include "Shaders/ShaderResources.h"
#include "Utils/Assert.h"

using namespace Corrade;
using namespace Magnum;

namespace VantrelEngine::Shaders {

namespace {

constexpr Int MaskUnit = 0;
constexpr Int PositionsUnit = 1;

GL::Shader fragmentShader(Containers::StringView file) {
    return loadShader(GL::Shader::Type::Fragment, ShaderGroup::Editor, file);
}

}

OutlineInit::OutlineInit(): FullScreenShaderProgram{"OutlineInit", fragmentShader("OutlineInit.frag")} {
    setUniform(uniformLocation("mask"), MaskUnit);
}

OutlineStep::OutlineStep(): FullScreenShaderProgram{"OutlineStep", fragmentShader("OutlineStep.frag")} {
    setUniform(uniformLocation("positions"), PositionsUnit);
    _spacingUniform = uniformLocation("spacing");
}

OutlineStep& OutlineStep::setSpacing(UnsignedInt spacing) {
    setUniform(_spacingUniform, spacing);
    return *this;
}

OutlineDraw::OutlineDraw(): FullScreenShaderProgram{"OutlineDraw", fragmentShader("OutlineDraw.frag")} {
    setUniform(uniformLocation("mask"), MaskUnit);
    setUniform(uniformLocation("positions"), PositionsUnit);
    _widthUniform = uniformLocation("width");
    _colorUniform = uniformLocation("color");
}

OutlineDraw& OutlineDraw::setWidth(Float width) {
    setUniform(_widthUniform, width);
    return *this;
}

OutlineDraw& OutlineDraw::setColor(const Color4& color) {
    setUniform(_colorUniform, color);
    return *this;
}

Outline::Outline() = default;

Outline& Outline::setViewportSize(const Vector2i& vp) {
    VANTREL_ASSERT(vp.product() != 0, "Shaders/Outline", 140);
    if(vp == _viewportSize) return *this;
    for(Int i = 0; i != 2; ++i) createPositions(vp, i);
    _viewportSize = vp;
    return *this;
}

void Outline::createPositions(const Vector2i& size, Int index) {
    GL::Texture2D texture;
    texture.setMinificationFilter(SamplerFilter::Nearest)
        .setMagnificationFilter(SamplerFilter::Nearest)
        .setWrapping(SamplerWrapping::ClampToEdge)
        .setStorage(1, GL::TextureFormat::RG16, size)
        .setLabel(Utility::format("Outline FB texture {}", index));
    GL::Framebuffer fb{{{}, size}};
    fb.attachTexture(GL::Framebuffer::ColorAttachment{0}, texture, 0).setLabel(Utility::format("Outline FB {}", index));
    VANTREL_ASSERT(
        fb.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete, "Shaders/Outline", 159);
    _positions[index] = std::move(texture);
    _offscreenFb[index] = std::move(fb);
}

Outline& Outline::setMaskTexture(GL::Texture2D& mask) {
    _mask = &mask;
    return *this;
}

Outline& Outline::setWidth(Float width) {
    _width = width;
    return *this;
}

Outline& Outline::setColor(const Color4& color) {
    _color = color;
    return *this;
}

void Outline::draw(GL::AbstractFramebuffer& target) {
    VANTREL_ASSERT(_offscreenFb[0].id(), "Shaders/Outline", 194);
    if(_width <= 0.0f) return;
    CORRADE_ASSERT(_mask, "Outline::draw(): no mask texture was set", );

    const Vector2 size{_viewportSize};
    seed(size);
    const Int last = flood(size);
    composite(target, _positions[last]);
}

UnsignedInt Outline::drawCalls() const {
    // The seed and what is blended over the target come on top.
    return _width > 0.0f ? UnsignedInt(jumpFloodSteps(_viewportSize, _width)) + 2 : 0;
}

void Outline::seed(const Vector2& size) {
    _offscreenFb[0].bind();
    _mask->bind(MaskUnit);
    _init.setViewportOffsetSize({}, size).draw();
}

Int Outline::flood(const Vector2& size) {
    _step.setViewportOffsetSize({}, size);
    const Int steps = jumpFloodSteps(_viewportSize, _width);
    for(Int i = 0; i != steps; ++i) {
        _offscreenFb[jumpFloodTexture(i + 1)].bind();
        _positions[jumpFloodTexture(i)].bind(PositionsUnit);
        _step.setSpacing(jumpFloodSpacing(steps, i)).draw();
    }
    return jumpFloodTexture(steps);
}

void Outline::composite(GL::AbstractFramebuffer& target, GL::Texture2D& positions) {
    target.setViewport({{}, _viewportSize});
    target.bind();
    GL::Renderer::disable(GL::Renderer::Feature::DepthTest);
    GL::Renderer::enable(GL::Renderer::Feature::Blending);
    GL::Renderer::setBlendFunction(
        GL::Renderer::BlendFunction::SourceAlpha, GL::Renderer::BlendFunction::OneMinusSourceAlpha);
    GL::Renderer::setBlendEquation(GL::Renderer::BlendEquation::Add, GL::Renderer::BlendEquation::Add);

    _mask->bind(MaskUnit);
    positions.bind(PositionsUnit);
    _draw.setViewportOffsetSize({}, Vector2{_viewportSize});
    _draw.setWidth(_width).setColor(_color).draw();

    GL::Renderer::disable(GL::Renderer::Feature::Blending);
    GL::Renderer::enable(GL::Renderer::Feature::DepthTest);
}

}
