#pragma once

#include "Magnum/GL/GL.h"
#include "Magnum/GL/OpenGL.h"

namespace Magnum::GL {

// What a texel of a buffer is: numbers from 0 to 1, floats, or integers.
enum class BufferTextureFormat : UnsignedInt {
    R8 = GL_R8,
    RG8 = GL_RG8,
    RGBA8 = GL_RGBA8,
    R8UI = GL_R8UI,
    RG8UI = GL_RG8UI,
    RGBA8UI = GL_RGBA8UI,
    R16UI = GL_R16UI,
    RG16UI = GL_RG16UI,
    RGBA16UI = GL_RGBA16UI,
    R32UI = GL_R32UI,
    RG32UI = GL_RG32UI,
    RGBA32UI = GL_RGBA32UI,
    R32I = GL_R32I,
    RG32I = GL_RG32I,
    RGBA32I = GL_RGBA32I,
    R32F = GL_R32F,
    RG32F = GL_RG32F,
    RGBA32F = GL_RGBA32F
};

}
