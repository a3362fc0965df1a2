#include "Renderer/PostProcess/SideTarget.h"

#include <utility>

#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Sampler.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// The buffer or texture that the bound framebuffer has its depth in.
struct DepthAttachment {
    GLint type = GL_NONE, name = 0, level = 0;

    static DepthAttachment ofBound() {
        const auto ask = [](GLenum what, GLint& answer) {
            glGetFramebufferAttachmentParameteriv(GL_DRAW_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, what, &answer);
        };
        DepthAttachment depth;
        ask(GL_FRAMEBUFFER_ATTACHMENT_OBJECT_TYPE, depth.type);
        if(depth.type == GL_NONE) return depth;
        ask(GL_FRAMEBUFFER_ATTACHMENT_OBJECT_NAME, depth.name);
        if(depth.type == GL_TEXTURE) ask(GL_FRAMEBUFFER_ATTACHMENT_TEXTURE_LEVEL, depth.level);
        return depth;
    }

    void attachToBound() const {
        if(type == GL_TEXTURE)
            glFramebufferTexture(GL_DRAW_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GLuint(name), level);
        else
            glFramebufferRenderbuffer(GL_DRAW_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, GLuint(name));
    }
};

} // namespace

bool isComplete(GL::Framebuffer& framebuffer) {
    return framebuffer.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete;
}

GL::Texture2D pictureTexture(Containers::StringView label, GL::TextureFormat format, const Vector2i& size) {
    GL::Texture2D texture;
    texture.setMinificationFilter(SamplerFilter::Nearest)
        .setMagnificationFilter(SamplerFilter::Nearest)
        .setWrapping(SamplerWrapping::ClampToEdge)
        .setStorage(1, format, size)
        .setLabel(label);
    return texture;
}

bool SideTarget::begin(GL::AbstractFramebuffer& other) {
    other.bind();
    GLint id = 0;
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &id);
    CORRADE_ASSERT(id, "SideTarget::begin(): the framebuffer of a window shares no depth", false);
    if((id != _other || other.viewport().max() != _size) && !replace(other, id)) return false;
    _drawn.setViewport(other.viewport());
    _drawn.bind();
    _drawn.clearColor(0, Color4{0.0f, 0.0f});
    return true;
}

// Of the other one, which is bound, all that takes long to ask for.
bool SideTarget::replace(GL::AbstractFramebuffer& other, Int id) {
    GLint samples = 0;
    glGetIntegerv(GL_SAMPLES, &samples);
    const DepthAttachment depth = DepthAttachment::ofBound();
    const Vector2i size = other.viewport().max();
    if(size != _size || samples != _samples) create(size, samples);
    _drawn.bind();
    depth.attachToBound();
    const bool isUsable = isComplete(_drawn) && (!_samples || isComplete(_resolved));
    _other = isUsable ? id : 0;
    return isUsable;
}

GL::Texture2D& SideTarget::resolve() {
    if(_samples) GL::AbstractFramebuffer::blit(_drawn, _resolved, {{}, _size}, GL::FramebufferBlit::Color);
    return _texture;
}

void SideTarget::copyTo(GL::Framebuffer& other) {
    GL::AbstractFramebuffer::blit(_samples ? _resolved : _drawn, other, {{}, _size}, other.viewport(),
        GL::FramebufferBlit::Color, GL::FramebufferBlitFilter::Linear);
}

void SideTarget::create(const Vector2i& size, Int samples) {
    _texture = pictureTexture(_label, GL::TextureFormat::RGBA16F, size);
    GL::Framebuffer drawn{{{}, size}};
    drawn.setLabel(_label);
    if(samples) {
        _color = GL::Renderbuffer{};
        _color.setStorageMultisample(samples, GL::RenderbufferFormat::RGBA16F, size);
        _color.setLabel(_label);
        drawn.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _color);
        _resolved = GL::Framebuffer{{{}, size}};
        _resolved.attachTexture(GL::Framebuffer::ColorAttachment{0}, _texture, 0).setLabel(_label);
    } else {
        _color = GL::Renderbuffer{NoCreate};
        _resolved = GL::Framebuffer{NoCreate};
        drawn.attachTexture(GL::Framebuffer::ColorAttachment{0}, _texture, 0);
    }
    _drawn = std::move(drawn);
    _size = size;
    _samples = samples;
}

} // namespace VantrelEngine
