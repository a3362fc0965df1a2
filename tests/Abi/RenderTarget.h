#pragma once

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelProof {

// Something to draw into with four samples a pixel, and something to resolve it into.
class RenderTarget {
public:
    // Aborts if the combination of formats is not supported.
    explicit RenderTarget(const Magnum::Vector2i& size);

    Magnum::Vector2i size() const { return _size; }
    Magnum::GL::Framebuffer& multisampled() { return _multisampled; }

    // Averages the samples.
    void resolve();
    // RGBA, lowest row first; resolve() first.
    Magnum::Image2D read();
    // As large as this; resolve() first.
    void copyTo(Magnum::GL::AbstractFramebuffer& destination);

private:
    Magnum::Vector2i _size;
    Magnum::GL::Renderbuffer _multisampledColor, _multisampledDepth, _color;
    Magnum::GL::Framebuffer _multisampled, _resolved;
};

}
