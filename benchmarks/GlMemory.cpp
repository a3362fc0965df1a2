#include "GlMemory.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <map>

#include <Magnum/GL/OpenGL.h>

namespace VantrelBench {

namespace {

struct FormatSize {
    GLenum format;
    std::uint64_t bytes;
};
constexpr FormatSize FormatSizes[]{{GL_R8, 1}, {GL_R8UI, 1}, {GL_RG8, 2}, {GL_R16, 2}, {GL_R16F, 2}, {GL_R16UI, 2},
    {GL_DEPTH_COMPONENT16, 2}, {GL_RGB8, 3}, {GL_SRGB8, 3}, {GL_DEPTH_COMPONENT24, 4}, {GL_RGBA8, 4},
    {GL_SRGB8_ALPHA8, 4}, {GL_RG16, 4}, {GL_RG16F, 4}, {GL_R32F, 4}, {GL_R32UI, 4}, {GL_R11F_G11F_B10F, 4},
    {GL_RGB10_A2, 4}, {GL_DEPTH24_STENCIL8, 4}, {GL_DEPTH_COMPONENT32F, 4}, {GL_RGB16, 6}, {GL_RGB16F, 6},
    {GL_RGBA16, 8}, {GL_RGBA16F, 8}, {GL_RG32F, 8}, {GL_DEPTH32F_STENCIL8, 8}, {GL_RGB32F, 12}, {GL_RGBA32F, 16}};

// Bytes by object.
typedef std::map<std::uint32_t, std::uint64_t> Objects;

Objects& objectsOf(GlMemory::Kind kind) {
    static Objects kinds[3];
    return kinds[std::size_t(kind)];
}

std::uint64_t sumOf(GlMemory::Kind kind) {
    std::uint64_t sum = 0;
    for(const auto& [object, bytes]: objectsOf(kind)) sum += bytes;
    return sum;
}

}

GlMemory GlMemory::now() { return {sumOf(Kind::Texture), sumOf(Kind::Buffer), sumOf(Kind::Renderbuffer)}; }

void GlMemory::set(Kind kind, std::uint32_t object, std::uint64_t bytes) { objectsOf(kind)[object] = bytes; }

void GlMemory::addLevel(std::uint32_t texture, std::int32_t level, std::uint64_t bytes) {
    std::uint64_t& sum = objectsOf(Kind::Texture)[texture];
    sum = level ? sum + bytes : bytes;
}

void GlMemory::forget(Kind kind, std::int32_t count, const std::uint32_t* objects) {
    for(std::int32_t i = 0; i != count; ++i) objectsOf(kind).erase(objects[i]);
}

std::uint64_t bytesOfTexel(std::uint32_t format) {
    for(const FormatSize& known: FormatSizes)
        if(known.format == format) return known.bytes;
    std::fprintf(stderr, "vantrel-bench: nobody knows how large a texel of the format 0x%x is\n", format);
    std::exit(1);
}

}
