#include "Magnum/PixelFormat.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/Implementation/EnumDebug.h"

namespace Magnum {

namespace {

constexpr const char* Names[]{"R8Unorm", "RG8Unorm", "RGB8Unorm", "RGBA8Unorm", "R8Snorm", "RG8Snorm", "RGB8Snorm",
    "RGBA8Snorm", "R8Srgb", "RG8Srgb", "RGB8Srgb", "RGBA8Srgb", "R8UI", "RG8UI", "RGB8UI", "RGBA8UI", "R8I", "RG8I",
    "RGB8I", "RGBA8I", "R16Unorm", "RG16Unorm", "RGB16Unorm", "RGBA16Unorm", "R16Snorm", "RG16Snorm", "RGB16Snorm",
    "RGBA16Snorm", "R16UI", "RG16UI", "RGB16UI", "RGBA16UI", "R16I", "RG16I", "RGB16I", "RGBA16I", "R32UI", "RG32UI",
    "RGB32UI", "RGBA32UI", "R32I", "RG32I", "RGB32I", "RGBA32I", "R16F", "RG16F", "RGB16F", "RGBA16F", "R32F", "RG32F",
    "RGB32F", "RGBA32F", "Depth16Unorm", "Depth24Unorm", "Depth32F", "Stencil8UI", "Depth16UnormStencil8UI",
    "Depth24UnormStencil8UI", "Depth32FStencil8UI"};

bool isValid(PixelFormat format) { return format >= PixelFormat::R8Unorm && format <= PixelFormat::Depth32FStencil8UI; }

bool isColor(PixelFormat format) { return format < PixelFormat::Depth16Unorm; }

// Colour formats come in groups of one to four channels.
UnsignedInt channelCount(PixelFormat format) { return (UnsignedInt(format) - 1) % 4 + 1; }

UnsignedInt channelSize(PixelFormat format) {
    if(format < PixelFormat::R16Unorm) return 1;
    if(format < PixelFormat::R32UI) return 2;
    if(format < PixelFormat::R16F) return 4;
    return format < PixelFormat::R32F ? 2 : 4;
}

}

UnsignedInt pixelFormatSize(PixelFormat format) {
    CORRADE_ASSERT(isValid(format), "pixelFormatSize(): invalid format" << format, {});
    if(isColor(format)) return channelCount(format) * channelSize(format);
    switch(format) {
    case PixelFormat::Stencil8UI: return 1;
    case PixelFormat::Depth16Unorm: return 2;
    case PixelFormat::Depth32FStencil8UI: return 8;
    default: return 4;
    }
}

UnsignedInt pixelFormatChannelCount(PixelFormat format) {
    CORRADE_ASSERT(isValid(format), "pixelFormatChannelCount(): invalid format" << format, {});
    CORRADE_ASSERT(isColor(format), "pixelFormatChannelCount(): can't determine channel count of" << format, {});
    return channelCount(format);
}

Debug& operator<<(Debug& debug, PixelFormat value) {
    return Implementation::printEnum(debug, "PixelFormat", Names, 1, value);
}

}
