#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"

namespace Magnum {

// Channels and type of one pixel. Unorm and Snorm: integers that stand for numbers in [0, 1] and [-1, 1].
enum class PixelFormat : UnsignedInt {
    R8Unorm = 1,
    RG8Unorm,
    RGB8Unorm,
    RGBA8Unorm,
    R8Snorm,
    RG8Snorm,
    RGB8Snorm,
    RGBA8Snorm,
    R8Srgb,
    RG8Srgb,
    RGB8Srgb,
    RGBA8Srgb,
    R8UI,
    RG8UI,
    RGB8UI,
    RGBA8UI,
    R8I,
    RG8I,
    RGB8I,
    RGBA8I,
    R16Unorm,
    RG16Unorm,
    RGB16Unorm,
    RGBA16Unorm,
    R16Snorm,
    RG16Snorm,
    RGB16Snorm,
    RGBA16Snorm,
    R16UI,
    RG16UI,
    RGB16UI,
    RGBA16UI,
    R16I,
    RG16I,
    RGB16I,
    RGBA16I,
    R32UI,
    RG32UI,
    RGB32UI,
    RGBA32UI,
    R32I,
    RG32I,
    RGB32I,
    RGBA32I,
    R16F,
    RG16F,
    RGB16F,
    RGBA16F,
    R32F,
    RG32F,
    RGB32F,
    RGBA32F,

    Depth16Unorm,
    // In 32 bits.
    Depth24Unorm,
    Depth32F,
    Stencil8UI,
    // In 32 bits.
    Depth16UnormStencil8UI,
    Depth24UnormStencil8UI,
    // In 64 bits.
    Depth32FStencil8UI
};

// Block compression, 4 by 4 pixels a block.
enum class CompressedPixelFormat : UnsignedInt {
    Bc1RGBUnorm = 1,
    Bc1RGBSrgb,
    Bc1RGBAUnorm,
    Bc1RGBASrgb,
    Bc2RGBAUnorm,
    Bc2RGBASrgb,
    Bc3RGBAUnorm,
    Bc3RGBASrgb
};

// In bytes. Asserts that the format is one of the enumerators.
CORRADE_VISIBILITY_EXPORT UnsignedInt pixelFormatSize(PixelFormat format);
// 1 to 4. Asserts that the format is one of the enumerators and neither a depth nor a stencil format.
CORRADE_VISIBILITY_EXPORT UnsignedInt pixelFormatChannelCount(PixelFormat format);

CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, PixelFormat value);

}
