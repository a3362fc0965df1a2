#pragma once

#include <memory>
#include <string>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderbuffer.h>

#include "Application/Picture.h"

namespace VantrelEngine {

// The pixels of a framebuffer's attachment; its viewport is all of it.
Picture readPicture(Magnum::GL::Framebuffer& framebuffer, Magnum::UnsignedInt attachment);

// What a window's framebuffer would be.
class RenderTarget {
public:
    // Pixels, above 0. Null, and one line, where there are more than MaxPixelCount, or than this machine draws.
    static std::unique_ptr<RenderTarget> create(const Magnum::Vector2i& size, std::string& error);

    Magnum::Vector2i size() const { return _size; }
    Magnum::GL::Framebuffer& framebuffer() { return _framebuffer; }
    Picture read() { return readPicture(_framebuffer, 0); }

private:
    explicit RenderTarget(const Magnum::Vector2i& size);

    Magnum::Vector2i _size;
    Magnum::GL::Renderbuffer _color;
    Magnum::GL::Framebuffer _framebuffer;
};

} // namespace VantrelEngine
