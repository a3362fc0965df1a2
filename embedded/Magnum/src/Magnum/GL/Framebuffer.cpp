#include "Magnum/GL/Framebuffer.h"

#include <algorithm>

#include "Corrade/Containers/Array.h"
#include "Corrade/Utility/Debug.h"
#include "Magnum/GL/CubeMapTexture.h"
#include "Magnum/GL/DefaultFramebuffer.h"
#include "Magnum/GL/Implementation/State.h"
#include "Magnum/GL/Renderbuffer.h"
#include "Magnum/GL/Texture.h"
#include "Magnum/GL/TextureArray.h"
#include "Magnum/Math/Color.h"

namespace Magnum::GL {

using Implementation::state;

namespace {

Implementation::ObjectName createFramebuffer() {
    GLuint id;
    glGenFramebuffers(1, &id);
    state().bindReadFramebuffer(id);
    return Implementation::ObjectName{id};
}

}

Framebuffer::Framebuffer(const Range2Di& viewport): AbstractFramebuffer{createFramebuffer(), viewport} {}

Framebuffer::~Framebuffer() {
    if(!_id) return;
    Implementation::State& state = Implementation::state();
    if(state.readFramebuffer == _id) state.readFramebuffer = 0;
    if(state.drawFramebuffer == _id) defaultFramebuffer.bind();
    const GLuint id = _id;
    glDeleteFramebuffers(1, &id);
}

Containers::String Framebuffer::label() const { return Implementation::objectLabel(GL_FRAMEBUFFER, _id); }

Framebuffer& Framebuffer::setLabel(Containers::StringView label) {
    Implementation::setObjectLabel(GL_FRAMEBUFFER, _id, label);
    return *this;
}

Framebuffer& Framebuffer::mapForDraw(DrawAttachment attachment) {
    Implementation::DrawFramebufferScope scope{_id};
    glDrawBuffer(GLenum(attachment));
    return *this;
}

Framebuffer& Framebuffer::mapForDraw(std::initializer_list<DrawMapping> attachments) {
    UnsignedInt count = 0;
    for(const DrawMapping& i: attachments) count = std::max(count, i.output + 1);
    Containers::Array<GLenum> buffers{DirectInit, count, GLenum(GL_NONE)};
    for(const DrawMapping& i: attachments) buffers[i.output] = GLenum(i.attachment);
    Implementation::DrawFramebufferScope scope{_id};
    glDrawBuffers(GLsizei(count), buffers.data());
    return *this;
}

Framebuffer& Framebuffer::mapForRead(ColorAttachment attachment) {
    state().bindReadFramebuffer(_id);
    glReadBuffer(GLenum(attachment));
    return *this;
}

// Attachments can be changed through the read binding, which nobody minds.
Framebuffer& Framebuffer::attachRenderbuffer(BufferAttachment attachment, Renderbuffer& renderbuffer) {
    state().bindReadFramebuffer(_id);
    glFramebufferRenderbuffer(GL_READ_FRAMEBUFFER, GLenum(attachment), GL_RENDERBUFFER, renderbuffer.id());
    return *this;
}

Framebuffer& Framebuffer::attachTexture(BufferAttachment attachment, Texture2D& texture, Int level) {
    state().bindReadFramebuffer(_id);
    glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GLenum(attachment), GL_TEXTURE_2D, texture.id(), level);
    return *this;
}

Framebuffer& Framebuffer::attachTextureLayer(
    BufferAttachment attachment, Texture2DArray& texture, Int level, Int layer) {
    state().bindReadFramebuffer(_id);
    glFramebufferTextureLayer(GL_READ_FRAMEBUFFER, GLenum(attachment), texture.id(), level, layer);
    return *this;
}

Framebuffer& Framebuffer::attachCubeMapTexture(
    BufferAttachment attachment, CubeMapTexture& texture, CubeMapCoordinate coordinate, Int level) {
    state().bindReadFramebuffer(_id);
    glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GLenum(attachment), GLenum(coordinate), texture.id(), level);
    return *this;
}

Framebuffer& Framebuffer::detach(BufferAttachment attachment) {
    state().bindReadFramebuffer(_id);
    glFramebufferRenderbuffer(GL_READ_FRAMEBUFFER, GLenum(attachment), GL_RENDERBUFFER, 0);
    return *this;
}

Framebuffer::Status Framebuffer::checkStatus(FramebufferTarget target) {
    if(target == FramebufferTarget::Read) {
        state().bindReadFramebuffer(_id);
        return Status(glCheckFramebufferStatus(GL_READ_FRAMEBUFFER));
    }
    Implementation::DrawFramebufferScope scope{_id};
    return Status(glCheckFramebufferStatus(GL_DRAW_FRAMEBUFFER));
}

Framebuffer& Framebuffer::clearColor(Int drawBuffer, const Color4& color) {
    Implementation::DrawFramebufferScope scope{_id};
    glClearBufferfv(GL_COLOR, drawBuffer, color.data());
    return *this;
}

Framebuffer& Framebuffer::clearColor(Int drawBuffer, const Vector4i& color) {
    Implementation::DrawFramebufferScope scope{_id};
    glClearBufferiv(GL_COLOR, drawBuffer, color.data());
    return *this;
}

Framebuffer& Framebuffer::clearColor(Int drawBuffer, const Vector4ui& color) {
    Implementation::DrawFramebufferScope scope{_id};
    glClearBufferuiv(GL_COLOR, drawBuffer, color.data());
    return *this;
}

Framebuffer& Framebuffer::clearDepth(Float depth) {
    Implementation::DrawFramebufferScope scope{_id};
    glClearBufferfv(GL_DEPTH, 0, &depth);
    return *this;
}

Framebuffer& Framebuffer::clearStencil(Int stencil) {
    Implementation::DrawFramebufferScope scope{_id};
    glClearBufferiv(GL_STENCIL, 0, &stencil);
    return *this;
}

Framebuffer& Framebuffer::clearDepthStencil(Float depth, Int stencil) {
    Implementation::DrawFramebufferScope scope{_id};
    glClearBufferfi(GL_DEPTH_STENCIL, 0, depth, stencil);
    return *this;
}

Debug& operator<<(Debug& debug, Framebuffer::Status value) {
    debug << "GL::Framebuffer::Status" << Debug::nospace;
    switch(value) {
    case Framebuffer::Status::Complete: return debug << "::Complete";
    case Framebuffer::Status::IncompleteAttachment: return debug << "::IncompleteAttachment";
    case Framebuffer::Status::IncompleteMissingAttachment: return debug << "::IncompleteMissingAttachment";
    case Framebuffer::Status::IncompleteDrawBuffer: return debug << "::IncompleteDrawBuffer";
    case Framebuffer::Status::IncompleteReadBuffer: return debug << "::IncompleteReadBuffer";
    case Framebuffer::Status::Unsupported: return debug << "::Unsupported";
    case Framebuffer::Status::IncompleteMultisample: return debug << "::IncompleteMultisample";
    case Framebuffer::Status::IncompleteLayerTargets: return debug << "::IncompleteLayerTargets";
    }
    return debug << "(" << Debug::nospace << Debug::hex << UnsignedInt(value) << Debug::nospace << ")";
}

}
