#include "Application/RenderTarget.h"

#include <Corrade/Containers/Array.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/Image.h>
#include <Magnum/PixelFormat.h>

#include "Application/CommandLine.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

std::string nameOf(const Vector2i& size) { return std::to_string(size.x()) + "x" + std::to_string(size.y()); }

} // namespace

Picture readPicture(GL::Framebuffer& framebuffer, UnsignedInt attachment) {
    framebuffer.mapForRead(GL::Framebuffer::ColorAttachment{attachment});
    const Vector2i size = framebuffer.viewport().size();
    const Image2D image = framebuffer.read({{}, size}, {PixelFormat::RGBA8Unorm});
    const char* const pixels = image.data().data();
    return {size, {pixels, pixels + std::size_t(size.product()) * Picture::PixelSize}};
}

std::unique_ptr<RenderTarget> RenderTarget::create(const Vector2i& size, std::string& error) {
    const Vector2i most = GL::AbstractFramebuffer::maxViewportSize();
    if(!(size > most).any() && Long(size.x()) * size.y() <= MaxPixelCount) {
        std::unique_ptr<RenderTarget> target{new RenderTarget{size}};
        if(target->_framebuffer.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete)
            return target;
    }
    error = nameOf(size) + " pixels cannot be drawn here: at most " + nameOf(most) + ", and " +
        std::to_string(MaxPixelCount) + " in all";
    return {};
}

RenderTarget::RenderTarget(const Vector2i& size): _size{size}, _framebuffer{{{}, size}} {
    _color.setStorage(GL::RenderbufferFormat::RGBA8, size);
    _framebuffer.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _color)
        .mapForDraw(GL::Framebuffer::ColorAttachment{0});
}

} // namespace VantrelEngine
