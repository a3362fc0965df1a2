#include "MaskPicture.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Image.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Range.h>
#include <Magnum/PixelFormat.h>
#include <Magnum/Sampler.h>

namespace VantrelTest {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr unsigned int PositionsUnit = 1;

// In steps of eight bits, as the masks of a renderer have them.
float anyCoverage(std::mt19937& random) { return float(random() % 256) / 255.0f; }

// Nothing is covered on or next to the pixel.
bool isFree(const Mask& mask, const Vector2i& pixel) {
    for(Int y = std::max(pixel.y() - 1, 0); y <= std::min(pixel.y() + 1, mask.size.y() - 1); ++y)
        for(Int x = std::max(pixel.x() - 1, 0); x <= std::min(pixel.x() + 1, mask.size.x() - 1); ++x)
            if(mask.at({x, y}) > 0.0f) return false;
    return true;
}

// Behind the back of the library, which has to find its unit again.
struct PositionsUnitActive {
    PositionsUnitActive() {
        glGetIntegerv(GL_ACTIVE_TEXTURE, &previous);
        glActiveTexture(GL_TEXTURE0 + PositionsUnit);
    }
    ~PositionsUnitActive() { glActiveTexture(GLenum(previous)); }

    GLint previous = 0;
};

}

float Mask::at(const Vector2i& pixel) const { return const_cast<Mask&>(*this).at(pixel); }

Mask emptyMask(const Vector2i& size) { return {size, std::vector<float>(size.product(), 0.0f)}; }

Mask fullMask(const Vector2i& size) { return {size, std::vector<float>(size.product(), 1.0f)}; }

Mask discsMask(const Vector2i& size) {
    Mask mask = emptyMask(size);
    const float extent = float(size.min());
    for(Int y = 0; y != size.y(); ++y)
        for(Int x = 0; x != size.x(); ++x) {
            const Vector2 p{x + 0.5f, y + 0.5f};
            const float large = extent * 0.23f - (p - Vector2{size} * Vector2{0.37f, 0.41f}).length();
            const float small = extent * 0.08f - (p - Vector2{size} * Vector2{0.81f, 0.77f}).length();
            const float covered = std::clamp(std::max(large, small) + 0.5f, 0.0f, 1.0f);
            mask.at({x, y}) = std::round(covered * 255.0f) / 255.0f;
        }
    return mask;
}

Mask dotsMask(const Vector2i& size) {
    Mask mask = emptyMask(size);
    std::mt19937 random{7};
    for(int i = 0; i != size.product() / 50 + 1; ++i) {
        const Vector2i pixel{Int(random() % size.x()), Int(random() % size.y())};
        if(isFree(mask, pixel)) mask.at(pixel) = anyCoverage(random);
    }
    return mask;
}

Mask noiseMask(const Vector2i& size) {
    Mask mask = emptyMask(size);
    std::mt19937 random{11};
    for(float& covered: mask.coverage) covered = anyCoverage(random);
    return mask;
}

OutlineCanvas::OutlineCanvas(const Mask& picture, const Color4& background):
    framebuffer{{{}, picture.size}}, _size{picture.size}, _background{background} {
    mask.setMinificationFilter(SamplerFilter::Nearest)
        .setMagnificationFilter(SamplerFilter::Nearest)
        .setStorage(1, GL::TextureFormat::R32F, _size)
        .setSubImage(0, {},
            ImageView2D{PixelFormat::R32F, _size,
                Containers::ArrayView<const float>{picture.coverage.data(), picture.coverage.size()}});
    color.setStorage(1, GL::TextureFormat::RGBA8, _size);
    framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, color, 0);
}

void OutlineCanvas::draw(VantrelEngine::Shaders::Outline& outline) {
    framebuffer.clearColor(0, _background);
    outline.setViewportSize(_size).setMaskTexture(mask).draw(framebuffer);
}

std::vector<Color4ub> OutlineCanvas::pixels() {
    const Image2D image = framebuffer.read({{}, _size}, Image2D{PixelFormat::RGBA8Unorm});
    const Color4ub* const data = reinterpret_cast<const Color4ub*>(image.data().data());
    return std::vector<Color4ub>(data, data + _size.product());
}

unsigned int boundPositionsId() {
    const PositionsUnitActive active;
    GLint id = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &id);
    return GLuint(id);
}

Vector2i boundPositionsSize() {
    const PositionsUnitActive active;
    Vector2i size;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &size.x());
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &size.y());
    return size;
}

std::vector<Vector2us> boundPositions(const Vector2i& size) {
    const PositionsUnitActive active;
    std::vector<Vector2us> positions(size.product());
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RG, GL_UNSIGNED_SHORT, positions.data());
    return positions;
}

}
