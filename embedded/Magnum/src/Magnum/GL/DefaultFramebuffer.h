#pragma once

#include "Magnum/GL/AbstractFramebuffer.h"

namespace Magnum::GL {

// The framebuffer of the window.
class CORRADE_VISIBILITY_EXPORT DefaultFramebuffer: public AbstractFramebuffer {
public:
    // There is only defaultFramebuffer.
    explicit DefaultFramebuffer(): AbstractFramebuffer{Implementation::ObjectName{}, {}} {}

    DefaultFramebuffer& setViewport(const Range2Di& rectangle) {
        AbstractFramebuffer::setViewport(rectangle);
        return *this;
    }
    DefaultFramebuffer& clear(FramebufferClearMask mask) {
        AbstractFramebuffer::clear(mask);
        return *this;
    }

private:
    friend Context;

    // For a new context: takes over the viewport that GL made from the size of the window.
    static void initialize();
};

CORRADE_VISIBILITY_EXPORT extern DefaultFramebuffer defaultFramebuffer;

}
