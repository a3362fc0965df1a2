#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"

namespace Magnum::GL {

// Major version times 100 plus minor version times 10.
enum class Version : Int {
    None = 0xFFFF,
    GL210 = 210,
    GL300 = 300,
    GL310 = 310,
    GL320 = 320,
    GL330 = 330,
    GL400 = 400,
    GL410 = 410,
    GL420 = 420,
    GL430 = 430,
    GL440 = 440,
    GL450 = 450,
    GL460 = 460
};

// "OpenGL 3.3"
CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, Version value);

}
