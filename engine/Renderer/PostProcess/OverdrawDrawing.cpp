#include "Renderer/PostProcess/OverdrawDrawing.h"

#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Range.h>
#include <Vantrel/Renderer/RendererState.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr Int CountsUnit = 0;

} // namespace

OverdrawDrawing::OverdrawDrawing(): _colors{"OverdrawColors.frag"} { _colors.setTextureUnit("counts", CountsUnit); }

void OverdrawDrawing::begin(Id view, GL::AbstractFramebuffer& target) {
    if(view >= _counts.size()) _counts.resize(std::size_t{view} + 1);
    if(!_counts[view]) _counts[view] = std::make_unique<SideTarget>("Overdraw", SideTarget::Channels::One);
    _counts[view]->begin(target);
    GL::Renderer::setBlendFunction(GL::Renderer::BlendFunction::One, GL::Renderer::BlendFunction::One);
}

void OverdrawDrawing::show(Id view, GL::AbstractFramebuffer& target) {
    if(view >= _counts.size() || !_counts[view]) return;
    _counts[view]->resolve().bind(CountsUnit);
    target.bind();
    RendererState state;
    state.depthTest = state.depthWrite = state.faceCulling = false;
    state.blending = true;
    state.apply();
    _colors.draw();
    RendererState{}.apply();
}

} // namespace VantrelEngine
