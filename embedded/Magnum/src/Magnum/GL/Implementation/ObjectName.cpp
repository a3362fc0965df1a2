#include "Magnum/GL/Implementation/ObjectName.h"

#include "Magnum/GL/Implementation/State.h"

namespace Magnum::GL::Implementation {

void setObjectLabel(UnsignedInt type, UnsignedInt id, Containers::StringView label) {
    if(state().debug) glObjectLabel(type, id, GLsizei(label.size()), label.data() ? label.data() : "");
}

Containers::String objectLabel(UnsignedInt type, UnsignedInt id) {
    if(!state().debug) return {};
    GLsizei size = 0;
    glGetObjectLabel(type, id, 0, &size, nullptr);
    Containers::String label{NoInit, std::size_t(size)};
    // The terminator is written too.
    if(size) glGetObjectLabel(type, id, size + 1, nullptr, label.data());
    return label;
}

}
