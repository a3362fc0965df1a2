#include "Magnum/GL/DefaultFramebuffer.h"

#include "Magnum/GL/Implementation/State.h"

namespace Magnum::GL {

DefaultFramebuffer defaultFramebuffer;

void DefaultFramebuffer::initialize() {
    GLint viewport[4]{};
    glGetIntegerv(GL_VIEWPORT, viewport);
    defaultFramebuffer._viewport = Range2Di::fromSize({viewport[0], viewport[1]}, {viewport[2], viewport[3]});
    // Nothing else can be bound in a context that nobody has used. If somebody has, this undoes it.
    defaultFramebuffer.bind();
}

}
