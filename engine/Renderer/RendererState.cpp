#include <Vantrel/Renderer/RendererState.h>

#include <Magnum/GL/Renderer.h>

namespace VantrelEngine {

using namespace Magnum;

void RendererState::apply() const {
    using GL::Renderer;
    Renderer::disable(Renderer::Feature::ScissorTest);
    Renderer::disable(Renderer::Feature::StencilTest);
    Renderer::setFeature(Renderer::Feature::DepthTest, depthTest);
    // Where two are equally near, the later one is seen, whether depth was drawn before or not.
    Renderer::setDepthFunction(Renderer::DepthFunction::LessOrEqual);
    Renderer::setDepthMask(depthWrite);
    Renderer::setColorMask(colorWrite, colorWrite, colorWrite, colorWrite);
    Renderer::setFeature(Renderer::Feature::FaceCulling, faceCulling);
    Renderer::setFaceCullingMode(Renderer::PolygonFacing::Back);
    Renderer::setFrontFace(Renderer::FrontFace::CounterClockWise);
    Renderer::setFeature(Renderer::Feature::Blending, blending);
    // What is opaque stays so, whatever is drawn over it.
    Renderer::setBlendEquation(Renderer::BlendEquation::Add);
    Renderer::setBlendFunction(Renderer::BlendFunction::SourceAlpha, Renderer::BlendFunction::OneMinusSourceAlpha,
        Renderer::BlendFunction::One, Renderer::BlendFunction::OneMinusSourceAlpha);
}

} // namespace VantrelEngine
