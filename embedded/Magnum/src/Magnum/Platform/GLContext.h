#pragma once

#include <cstdlib>

#include "Magnum/GL/Context.h"

namespace Magnum::Platform {

// Makes Magnum use the GL context that is current, however it came into being.
class GLContext: public GL::Context {
public:
    // For create() or tryCreate() once there is a GL context. The arguments are not used.
    explicit GLContext(NoCreateT): GL::Context{NoCreate} {}
    explicit GLContext(NoCreateT, Int, const char* const*): GL::Context{NoCreate} {}
    explicit GLContext(const Configuration& configuration = Configuration{}): GL::Context{NoCreate} {
        create(configuration);
    }

    // Becomes GL::Context::current(); asserts that there is no other and that this is not done twice. Logs the
    // renderer and the version unless told not to. On failure prints an error and returns false.
    bool tryCreate(const Configuration& configuration = Configuration{}) {
        return GL::Context::tryCreate(configuration);
    }

    // As above, but ends the process on failure.
    void create(const Configuration& configuration = Configuration{}) {
        if(!tryCreate(configuration)) std::exit(1);
    }
};

}
