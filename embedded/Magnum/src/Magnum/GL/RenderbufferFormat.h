#pragma once

#include "Magnum/GL/GL.h"
#include "Magnum/GL/OpenGL.h"

namespace Magnum::GL {

// What can be rendered to on every implementation. Three-channel formats can not.
enum class RenderbufferFormat : UnsignedInt {
    R8 = GL_R8,
    RG8 = GL_RG8,
    RGBA8 = GL_RGBA8,
    SRGB8Alpha8 = GL_SRGB8_ALPHA8,
    RGB10A2 = GL_RGB10_A2,
    R16 = GL_R16,
    RG16 = GL_RG16,
    RGBA16 = GL_RGBA16,
    R16F = GL_R16F,
    RG16F = GL_RG16F,
    RGBA16F = GL_RGBA16F,
    R11FG11FB10F = GL_R11F_G11F_B10F,
    R32F = GL_R32F,
    RG32F = GL_RG32F,
    RGBA32F = GL_RGBA32F,
    R16UI = GL_R16UI,
    R32UI = GL_R32UI,
    DepthComponent16 = GL_DEPTH_COMPONENT16,
    DepthComponent24 = GL_DEPTH_COMPONENT24,
    DepthComponent32F = GL_DEPTH_COMPONENT32F,
    Depth24Stencil8 = GL_DEPTH24_STENCIL8,
    Depth32FStencil8 = GL_DEPTH32F_STENCIL8
};

}
