#include "RenderTarget.h"

#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/Math/Range.h>
#include <Magnum/PixelFormat.h>

using namespace Magnum;

namespace VantrelProof {

namespace {

void checkComplete(GL::Framebuffer& framebuffer) {
    CORRADE_INTERNAL_ASSERT(framebuffer.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete);
}

}

RenderTarget::RenderTarget(const Vector2i& size): _size{size}, _multisampled{{{}, size}}, _resolved{{{}, size}} {
    _multisampledColor.setStorageMultisample(4, GL::RenderbufferFormat::RGBA8, size);
    _multisampledDepth.setStorageMultisample(4, GL::RenderbufferFormat::Depth24Stencil8, size);
    _multisampled.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _multisampledColor)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, _multisampledDepth);
    checkComplete(_multisampled);
    _color.setStorage(GL::RenderbufferFormat::RGBA8, size);
    _resolved.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _color);
    checkComplete(_resolved);
}

void RenderTarget::resolve() {
    GL::AbstractFramebuffer::blit(_multisampled, _resolved, {{}, _size}, GL::FramebufferBlit::Color);
}

Image2D RenderTarget::read() { return _resolved.read({{}, _size}, {PixelFormat::RGBA8Unorm}); }

void RenderTarget::copyTo(GL::AbstractFramebuffer& destination) {
    GL::AbstractFramebuffer::blit(_resolved, destination, {{}, _size}, GL::FramebufferBlit::Color);
}

}
