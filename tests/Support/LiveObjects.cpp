#include "Support/LiveObjects.h"

#include <ostream>
#include <tuple>

#include <Magnum/GL/OpenGL.h>

namespace VantrelTest {

namespace {

constexpr GLuint LargestName = 8192;

auto tied(const LiveObjects& o) {
    return std::tie(o.buffers, o.textures, o.framebuffers, o.renderbuffers, o.meshes, o.programs);
}

}

LiveObjects LiveObjects::count() {
    LiveObjects objects;
    for(GLuint name = 1; name <= LargestName; ++name) {
        objects.buffers += glIsBuffer(name);
        objects.textures += glIsTexture(name);
        objects.framebuffers += glIsFramebuffer(name);
        objects.renderbuffers += glIsRenderbuffer(name);
        objects.meshes += glIsVertexArray(name);
        objects.programs += glIsProgram(name);
    }
    return objects;
}

bool LiveObjects::operator==(const LiveObjects& other) const { return tied(*this) == tied(other); }

void PrintTo(const LiveObjects& objects, std::ostream* out) {
    *out << objects.buffers << " buffers, " << objects.textures << " textures, " << objects.framebuffers
         << " framebuffers, " << objects.renderbuffers << " renderbuffers, " << objects.meshes << " meshes, "
         << objects.programs << " programs";
}

} // namespace VantrelTest
