#include "Magnum/GL/Renderbuffer.h"

#include "Magnum/GL/Implementation/State.h"
#include "Magnum/GL/RenderbufferFormat.h"

namespace Magnum::GL {

using Implementation::state;

Int Renderbuffer::maxSamples() {
    GLint samples = 0;
    glGetIntegerv(GL_MAX_SAMPLES, &samples);
    return samples;
}

Renderbuffer::Renderbuffer() {
    GLuint id;
    glGenRenderbuffers(1, &id);
    _id = Implementation::ObjectName{id};
    state().bindRenderbuffer(id);
}

Renderbuffer::~Renderbuffer() {
    if(!_id) return;
    Implementation::State& state = Implementation::state();
    if(state.renderbuffer == _id) state.renderbuffer = 0;
    const GLuint id = _id;
    glDeleteRenderbuffers(1, &id);
}

Containers::String Renderbuffer::label() const { return Implementation::objectLabel(GL_RENDERBUFFER, _id); }

Renderbuffer& Renderbuffer::setLabel(Containers::StringView label) {
    Implementation::setObjectLabel(GL_RENDERBUFFER, _id, label);
    return *this;
}

void Renderbuffer::setStorage(RenderbufferFormat format, const Vector2i& size) {
    state().bindRenderbuffer(_id);
    glRenderbufferStorage(GL_RENDERBUFFER, GLenum(format), size.x(), size.y());
}

void Renderbuffer::setStorageMultisample(Int samples, RenderbufferFormat format, const Vector2i& size) {
    state().bindRenderbuffer(_id);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, GLenum(format), size.x(), size.y());
}

}
