#include "Renderer/KeptFramebuffer.h"

#include <Magnum/GL/Context.h>

namespace VantrelEngine {

using namespace Magnum;

KeptFramebuffer::KeptFramebuffer() {
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &_drawn);
    glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &_read);
    glGetIntegerv(GL_VIEWPORT, _viewport);
}

KeptFramebuffer::~KeptFramebuffer() {
    GL::Context::current().resetState(GL::Context::State::EnterExternal);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, GLuint(_drawn));
    glBindFramebuffer(GL_READ_FRAMEBUFFER, GLuint(_read));
    glViewport(_viewport[0], _viewport[1], _viewport[2], _viewport[3]);
    GL::Context::current().resetState(GL::Context::State::Framebuffers);
}

} // namespace VantrelEngine
