#include "Magnum/GL/Renderer.h"

#include "Corrade/Utility/Debug.h"
#include "Magnum/Math/Color.h"
#include "Magnum/Math/Range.h"

namespace Magnum::GL {

void Renderer::enable(Feature feature) { glEnable(GLenum(feature)); }
void Renderer::disable(Feature feature) { glDisable(GLenum(feature)); }
void Renderer::setFeature(Feature feature, bool enabled) { enabled ? enable(feature) : disable(feature); }

void Renderer::setClearColor(const Color4& color) { glClearColor(color.r(), color.g(), color.b(), color.a()); }
void Renderer::setClearDepth(Float depth) { glClearDepth(depth); }
void Renderer::setClearStencil(Int stencil) { glClearStencil(stencil); }

void Renderer::setBlendFunction(BlendFunction source, BlendFunction destination) {
    glBlendFunc(GLenum(source), GLenum(destination));
}

void Renderer::setBlendFunction(
    BlendFunction sourceRgb, BlendFunction destinationRgb, BlendFunction sourceAlpha, BlendFunction destinationAlpha) {
    glBlendFuncSeparate(GLenum(sourceRgb), GLenum(destinationRgb), GLenum(sourceAlpha), GLenum(destinationAlpha));
}

void Renderer::setBlendEquation(BlendEquation equation) { glBlendEquation(GLenum(equation)); }

void Renderer::setBlendEquation(BlendEquation rgb, BlendEquation alpha) {
    glBlendEquationSeparate(GLenum(rgb), GLenum(alpha));
}

void Renderer::setFaceCullingMode(PolygonFacing mode) { glCullFace(GLenum(mode)); }
void Renderer::setFrontFace(FrontFace mode) { glFrontFace(GLenum(mode)); }
void Renderer::setDepthFunction(DepthFunction function) { glDepthFunc(GLenum(function)); }
void Renderer::setDepthMask(bool allow) { glDepthMask(allow); }
void Renderer::setColorMask(bool red, bool green, bool blue, bool alpha) { glColorMask(red, green, blue, alpha); }
void Renderer::setPolygonOffset(Float factor, Float units) { glPolygonOffset(factor, units); }

void Renderer::setScissor(const Range2Di& rectangle) {
    glScissor(rectangle.left(), rectangle.bottom(), rectangle.sizeX(), rectangle.sizeY());
}

void Renderer::setLineWidth(Float width) { glLineWidth(width); }

void Renderer::setStencilFunction(StencilFunction function, Int reference, UnsignedInt mask) {
    glStencilFunc(GLenum(function), reference, mask);
}

void Renderer::setStencilOperation(
    StencilOperation stencilFail, StencilOperation depthFail, StencilOperation depthPass) {
    glStencilOp(GLenum(stencilFail), GLenum(depthFail), GLenum(depthPass));
}

void Renderer::setStencilMask(UnsignedInt allowedBits) { glStencilMask(allowedBits); }

void Renderer::flush() { glFlush(); }
void Renderer::finish() { glFinish(); }

Renderer::Error Renderer::error() { return Error(glGetError()); }

Debug& operator<<(Debug& debug, Renderer::Error value) {
    debug << "GL::Renderer::Error" << Debug::nospace;
    switch(value) {
    case Renderer::Error::NoError: return debug << "::NoError";
    case Renderer::Error::InvalidEnum: return debug << "::InvalidEnum";
    case Renderer::Error::InvalidValue: return debug << "::InvalidValue";
    case Renderer::Error::InvalidOperation: return debug << "::InvalidOperation";
    case Renderer::Error::InvalidFramebufferOperation: return debug << "::InvalidFramebufferOperation";
    case Renderer::Error::OutOfMemory: return debug << "::OutOfMemory";
    case Renderer::Error::StackUnderflow: return debug << "::StackUnderflow";
    case Renderer::Error::StackOverflow: return debug << "::StackOverflow";
    }
    return debug << "(" << Debug::nospace << Debug::hex << UnsignedInt(value) << Debug::nospace << ")";
}

}
