#pragma once

#include <Magnum/GL/OpenGL.h>

namespace VantrelEngine {

// While it lives, framebuffers of others may be bound; then those that were bound before are bound again, with their
// viewport. For passes between two of which the caller goes on drawing where it was.
class KeptFramebuffer {
public:
    KeptFramebuffer();
    ~KeptFramebuffer();
    KeptFramebuffer(const KeptFramebuffer&) = delete;
    KeptFramebuffer& operator=(const KeptFramebuffer&) = delete;

private:
    GLint _drawn = 0, _read = 0;
    GLint _viewport[4]{};
};

} // namespace VantrelEngine
