#include "Renderer/PostProcess/BloomDrawing.h"

#include <limits>

#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Sampler.h>
#include <Vantrel/Renderer/RendererState.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr Int SceneUnit = 0;
constexpr Int BloomUnit = 2;

// More take longer than anyone waits for a frame.
constexpr UnsignedInt MaxPasses = 64;

GL::Framebuffer framebufferOf(GL::Texture2D& texture, const Vector2i& size) {
    GL::Framebuffer framebuffer{{{}, size}};
    framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, texture, 0).setLabel("Bloom");
    return framebuffer;
}

// The blur has half the pixels of the picture along each axis: a glow that is twice as wide for a quarter of the work. Each
// of them is the mean of four pixels of the picture, so that small highlights do not flicker.
Vector2i blurredSize(const Vector2i& size) { return (size + Vector2i{1}) / 2; }

GL::Texture2D texture(const Vector2i& size) { return pictureTexture("Bloom", GL::TextureFormat::RGBA16F, size); }

// Between texels only where there are more pixels than these: it takes several times as long.
void setFilter(GL::Texture2D& texture, SamplerFilter filter) {
    texture.setMinificationFilter(filter).setMagnificationFilter(filter);
}

} // namespace

BloomDrawing::Pictures::Pictures(const Vector2i& size):
    size{size}, blurred{texture(blurredSize(size)), texture(blurredSize(size))}, mapped{texture(size)},
    blurredFb{framebufferOf(blurred[0], blurredSize(size)), framebufferOf(blurred[1], blurredSize(size))},
    mappedFb{framebufferOf(mapped, size)} {}

BloomDrawing::BloomDrawing(): _screen{"Screen.frag"} {
    _screen.setTextureUnit("scene", SceneUnit).setTextureUnit("picture", BloomUnit);
    _triangle.setCount(3);
}

void BloomDrawing::forget(Id view) {
    if(view < _views.size()) _views[view] = nullptr;
}

bool BloomDrawing::begin(Id view, GL::AbstractFramebuffer& target) {
    if(view >= _views.size()) _views.resize(std::size_t{view} + 1);
    if(!_views[view]) _views[view] = std::make_unique<View>();
    View& drawn = *_views[view];
    const Vector2i size = target.viewport().max();
    if(!drawn.pictures || drawn.pictures->size != size) {
        drawn.pictures = std::make_unique<Pictures>(size);
        for(GL::Framebuffer* const one:
            {&drawn.pictures->blurredFb[0], &drawn.pictures->blurredFb[1], &drawn.pictures->mappedFb})
            if(!isComplete(*one)) return false;
    }
    return drawn.scene.begin(target);
}

void BloomDrawing::end(Id view, Shaders::BloomPass& pass, GL::AbstractFramebuffer& target) {
    View& drawn = *_views[view];
    GL::Texture2D& scene = drawn.scene.resolve();
    RendererState state;
    state.depthTest = state.depthWrite = state.faceCulling = false;
    state.apply();
    blur(pass, drawn, scene);
    toScreen(*drawn.pictures, target);
    RendererState{}.apply();
}

// The first blur takes bright pixels only, and the last one is that of the outcome: as many along x as along y, and none
// besides.
void BloomDrawing::blur(Shaders::BloomPass& pass, View& view, GL::Texture2D& scene) {
    Shaders::Bloom& program = pass.program();
    Pictures& pictures = *view.pictures;
    const UnsignedInt passes = Math::min(pass.passes(), MaxPasses);
    program.setExposure(pass.exposure());
    if(!passes) return mapTones(program, pictures, scene);
    view.scene.copyTo(pictures.blurredFb[1]);
    program.setThreshold(pass.threshold()).setBloomIntensity(pass.intensity());
    for(UnsignedInt i = 0; i != passes; ++i) blurOnce(program, pictures, scene, i == 0, i + 1 == passes);
}

void BloomDrawing::blurOnce(
    Shaders::Bloom& program, Pictures& pictures, GL::Texture2D& scene, bool isFirst, bool isLast) {
    // At first this is the scene, in the size of the blur.
    pictures.blurred[1].bind(isFirst ? SceneUnit : BloomUnit);
    pictures.blurredFb[0].bind();
    program.setMask(isFirst).setVertical(false).setBlend(false).draw(_triangle);

    scene.bind(SceneUnit);
    pictures.blurred[0].bind(BloomUnit);
    (isLast ? pictures.mappedFb : pictures.blurredFb[1]).bind();
    if(isLast) setFilter(pictures.blurred[0], SamplerFilter::Linear);
    program.setMask(false).setVertical(true).setBlend(isLast).draw(_triangle);
    if(isLast) setFilter(pictures.blurred[0], SamplerFilter::Nearest);
}

// Nothing is above the largest number: a bloom of nothing is added.
void BloomDrawing::mapTones(Shaders::Bloom& program, Pictures& pictures, GL::Texture2D& scene) {
    scene.bind(SceneUnit);
    // Not what is drawn into, which is there since the last frame.
    pictures.blurred[0].bind(BloomUnit);
    pictures.mappedFb.bind();
    program.setThreshold(std::numeric_limits<Float>::max()).setBloomIntensity(0.0f);
    program.setMask(true).setVertical(false).setBlend(true).draw(_triangle);
}

void BloomDrawing::toScreen(Pictures& pictures, GL::AbstractFramebuffer& target) {
    target.bind();
    GL::Renderer::enable(GL::Renderer::Feature::Blending);
    GL::Renderer::setBlendFunction(GL::Renderer::BlendFunction::One, GL::Renderer::BlendFunction::OneMinusSourceAlpha);
    pictures.mapped.bind(BloomUnit);
    _screen.draw();
}

} // namespace VantrelEngine
