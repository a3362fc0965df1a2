#include "Application/RenderTarget.h"

#include <Corrade/Containers/Array.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/Image.h>
#include <Magnum/PixelFormat.h>

namespace VantrelEngine {

using namespace Magnum;

Picture readPicture(GL::Framebuffer& framebuffer, UnsignedInt attachment) {
    framebuffer.mapForRead(GL::Framebuffer::ColorAttachment{attachment});
    const Vector2i size = framebuffer.viewport().size();
    const Image2D image = framebuffer.read({{}, size}, {PixelFormat::RGBA8Unorm});
    const char* const pixels = image.data().data();
    return {size, {pixels, pixels + std::size_t(size.product()) * Picture::PixelSize}};
}

RenderTarget::RenderTarget(const Vector2i& size): _size{size}, _framebuffer{{{}, size}} {
    _color.setStorage(GL::RenderbufferFormat::RGBA8, size);
    _framebuffer.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _color)
        .mapForDraw(GL::Framebuffer::ColorAttachment{0});
}

} // namespace VantrelEngine
