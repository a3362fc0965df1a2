#pragma once

#include "Magnum/Magnum.h"

// How a texture is sampled, independently of the graphics API.

namespace Magnum {

enum class SamplerFilter : UnsignedInt { Nearest, Linear };

// Base: only the largest level is used.
enum class SamplerMipmap : UnsignedInt { Base, Nearest, Linear };

enum class SamplerWrapping : UnsignedInt { Repeat, MirroredRepeat, ClampToEdge, ClampToBorder, MirrorClampToEdge };

}
