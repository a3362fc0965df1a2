#include "Magnum/GL/TextureFormat.h"

#include <iterator>

#include "Corrade/Containers/Array.h"
#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/Debug.h"
#include "Magnum/GL/Implementation/PixelTransfer.h"
#include "Magnum/Image.h"
#include "Magnum/Implementation/ImageProperties.h"
#include "Magnum/PixelFormat.h"

namespace Magnum::GL {

namespace {

struct FormatInfo {
    GLenum transferType;
    // For one to four channels.
    GLenum storage[4];
    bool integer;
};

// The color formats in the order of PixelFormat, four a line.
constexpr FormatInfo ColorFormats[]{{GL_UNSIGNED_BYTE, {GL_R8, GL_RG8, GL_RGB8, GL_RGBA8}, false},
    {GL_BYTE, {GL_R8_SNORM, GL_RG8_SNORM, GL_RGB8_SNORM, GL_RGBA8_SNORM}, false},
    {GL_UNSIGNED_BYTE, {GL_SR8_EXT, GL_SRG8_EXT, GL_SRGB8, GL_SRGB8_ALPHA8}, false},
    {GL_UNSIGNED_BYTE, {GL_R8UI, GL_RG8UI, GL_RGB8UI, GL_RGBA8UI}, true},
    {GL_BYTE, {GL_R8I, GL_RG8I, GL_RGB8I, GL_RGBA8I}, true},
    {GL_UNSIGNED_SHORT, {GL_R16, GL_RG16, GL_RGB16, GL_RGBA16}, false},
    {GL_SHORT, {GL_R16_SNORM, GL_RG16_SNORM, GL_RGB16_SNORM, GL_RGBA16_SNORM}, false},
    {GL_UNSIGNED_SHORT, {GL_R16UI, GL_RG16UI, GL_RGB16UI, GL_RGBA16UI}, true},
    {GL_SHORT, {GL_R16I, GL_RG16I, GL_RGB16I, GL_RGBA16I}, true},
    {GL_UNSIGNED_INT, {GL_R32UI, GL_RG32UI, GL_RGB32UI, GL_RGBA32UI}, true},
    {GL_INT, {GL_R32I, GL_RG32I, GL_RGB32I, GL_RGBA32I}, true},
    {GL_HALF_FLOAT, {GL_R16F, GL_RG16F, GL_RGB16F, GL_RGBA16F}, false},
    {GL_FLOAT, {GL_R32F, GL_RG32F, GL_RGB32F, GL_RGBA32F}, false}};

constexpr GLenum Channels[]{GL_RED, GL_RG, GL_RGB, GL_RGBA};
constexpr GLenum IntegerChannels[]{GL_RED_INTEGER, GL_RG_INTEGER, GL_RGB_INTEGER, GL_RGBA_INTEGER};

struct DepthFormatInfo {
    Implementation::PixelTransfer transfer;
    GLenum storage;
};

// The formats that follow. GL has no storage for 16-bit depth with stencil.
constexpr DepthFormatInfo DepthFormats[]{{{GL_DEPTH_COMPONENT, GL_UNSIGNED_SHORT}, GL_DEPTH_COMPONENT16},
    {{GL_DEPTH_COMPONENT, GL_UNSIGNED_INT}, GL_DEPTH_COMPONENT24},
    {{GL_DEPTH_COMPONENT, GL_FLOAT}, GL_DEPTH_COMPONENT32F}, {{GL_STENCIL_INDEX, GL_UNSIGNED_BYTE}, GL_STENCIL_INDEX8},
    {{}, GL_NONE}, {{GL_DEPTH_STENCIL, GL_UNSIGNED_INT_24_8}, GL_DEPTH24_STENCIL8},
    {{GL_DEPTH_STENCIL, GL_FLOAT_32_UNSIGNED_INT_24_8_REV}, GL_DEPTH32F_STENCIL8}};

constexpr std::size_t ColorCount = std::size(ColorFormats) * 4;
constexpr std::size_t FormatCount = ColorCount + std::size(DepthFormats);
static_assert(std::size_t(PixelFormat::Depth32FStencil8UI) == FormatCount, "the tables have a row for each format");

Implementation::PixelTransfer transferAt(std::size_t index) {
    if(index >= ColorCount) return DepthFormats[index - ColorCount].transfer;
    const FormatInfo& info = ColorFormats[index / 4];
    // By a pointer: indexing the conditional itself gives the first element under -fsanitize with gcc 12.
    const GLenum* const channels = info.integer ? IntegerChannels : Channels;
    return {channels[index % 4], info.transferType};
}

GLenum storageAt(std::size_t index) {
    if(index >= ColorCount) return DepthFormats[index - ColorCount].storage;
    return ColorFormats[index / 4].storage[index % 4];
}

}

TextureFormat textureFormat(Magnum::PixelFormat format) {
    const std::size_t index = std::size_t(format) - 1;
    CORRADE_ASSERT(index < FormatCount, "GL::textureFormat(): invalid format" << format, {});
    const GLenum storage = storageAt(index);
    CORRADE_ASSERT(
        storage != GL_NONE, "GL::textureFormat(): format" << format << "is not supported on this target", {});
    return TextureFormat(storage);
}

Implementation::PixelTransfer Implementation::pixelTransfer(PixelFormat format) {
    return transferAt(std::size_t(format) - 1);
}

Implementation::PixelTransfer Implementation::pixelTransfer(TextureFormat format) {
    for(std::size_t i = 0; i != FormatCount; ++i)
        if(storageAt(i) == GLenum(format)) return transferAt(i);
    // What is not in the tables is packed or compressed color.
    return {GL_RGBA, GL_UNSIGNED_BYTE};
}

void Implementation::resizeImage(Image2D& image, const Vector2i& size) {
    const PixelStorage storage = image.storage();
    const PixelFormat format = image.format();
    const std::size_t needed = Magnum::Implementation::imageDataSize(storage, image.pixelSize(), size);
    Containers::Array<char> data = image.release();
    if(data.size() < needed) data = Containers::Array<char>{NoInit, needed};
    image = Image2D{storage, format, size, Utility::move(data)};
}

}
