#include "Renderer/PostProcess/OverdrawDrawing.h"

#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/AbstractFramebuffer.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderer.h>
#include <Vantrel/Renderer/RendererState.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
using namespace Math::Literals;
using GL::Renderer;

namespace {

constexpr Int Several = 5, Many = 10;

// Of the legend, in the curve of the screen.
Color4 colorOf(Int count) {
    const Color4 none = 0x27ae60_rgbf, several = 0xffff00_rgbf, many = 0xff0000_rgbf;
    if(count < Several) return Math::lerp(none, several, Float(count) / Several);
    return Math::lerp(several, many, Float(count - Several) / (Many - Several));
}

bool hasStencil(GL::AbstractFramebuffer& target) {
    target.bind();
    GLint framebuffer = 0, type = GL_NONE;
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &framebuffer);
    glGetFramebufferAttachmentParameteriv(GL_DRAW_FRAMEBUFFER, framebuffer ? GL_STENCIL_ATTACHMENT : GL_STENCIL,
        GL_FRAMEBUFFER_ATTACHMENT_OBJECT_TYPE, &type);
    return type != GL_NONE;
}

void setStencil(Renderer::StencilFunction function, Int count, Renderer::StencilOperation passed) {
    Renderer::setStencilFunction(function, count, ~UnsignedInt{});
    Renderer::setStencilOperation(Renderer::StencilOperation::Keep, Renderer::StencilOperation::Keep, passed);
}

} // namespace

bool OverdrawDrawing::begin(GL::AbstractFramebuffer& target) {
    if(!hasStencil(target)) {
        if(!_isWarned) Utility::Warning{} << "WebGL2Renderer: no overdraw in a framebuffer without stencil";
        _isWarned = true;
        return false;
    }
    Renderer::setClearStencil(0);
    target.clear(GL::FramebufferClear::Stencil);
    setStencil(Renderer::StencilFunction::Always, 0, Renderer::StencilOperation::Increment);
    return true;
}

void OverdrawDrawing::show(GL::AbstractFramebuffer& target) {
    if(!hasStencil(target)) return;
    RendererState state;
    state.depthTest = state.depthWrite = state.faceCulling = false;
    state.apply();
    Renderer::enable(Renderer::Feature::StencilTest);
    for(Int count = 1; count <= Many; ++count) {
        // The last one is that of all higher counts, too.
        setStencil(count == Many ? Renderer::StencilFunction::LessOrEqual : Renderer::StencilFunction::Equal, count,
            Renderer::StencilOperation::Keep);
        _program.setColor(colorOf(count)).draw();
    }
    setStencil(Renderer::StencilFunction::Always, 0, Renderer::StencilOperation::Keep);
    RendererState{}.apply();
}

} // namespace VantrelEngine
