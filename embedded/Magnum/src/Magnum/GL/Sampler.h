#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/OpenGL.h"
#include "Magnum/Sampler.h"

namespace Magnum::GL {

enum class SamplerFilter : UnsignedInt { Nearest = GL_NEAREST, Linear = GL_LINEAR };

// GL has one enumerator for each combination of filters: the bitwise or of these two.
enum class SamplerMipmap : UnsignedInt {
    Base = 0,
    Nearest = GL_NEAREST_MIPMAP_NEAREST & ~GL_NEAREST,
    Linear = GL_NEAREST_MIPMAP_LINEAR & ~GL_NEAREST
};

enum class SamplerWrapping : UnsignedInt {
    Repeat = GL_REPEAT,
    MirroredRepeat = GL_MIRRORED_REPEAT,
    ClampToEdge = GL_CLAMP_TO_EDGE,
    ClampToBorder = GL_CLAMP_TO_BORDER,
    MirrorClampToEdge = GL_MIRROR_CLAMP_TO_EDGE
};

// Whether sampling a depth texture gives the depth or the result of a comparison with it.
enum class SamplerCompareMode : UnsignedInt { None = GL_NONE, CompareRefToTexture = GL_COMPARE_REF_TO_TEXTURE };

enum class SamplerCompareFunction : UnsignedInt {
    Never = GL_NEVER,
    Always = GL_ALWAYS,
    Less = GL_LESS,
    LessOrEqual = GL_LEQUAL,
    Equal = GL_EQUAL,
    NotEqual = GL_NOTEQUAL,
    GreaterOrEqual = GL_GEQUAL,
    Greater = GL_GREATER
};

// GL values of generic ones. Assert that the value is one of the enumerators.
CORRADE_VISIBILITY_EXPORT SamplerFilter samplerFilter(Magnum::SamplerFilter filter);
CORRADE_VISIBILITY_EXPORT SamplerMipmap samplerMipmap(Magnum::SamplerMipmap mipmap);
CORRADE_VISIBILITY_EXPORT SamplerWrapping samplerWrapping(Magnum::SamplerWrapping wrapping);

}
