#include "Renderer/Textures/TextureLayers.h"

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Format.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/Sampler.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

Vector3i TextureLayers::maximumSize() {
    GLint edge = 0, layers = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &edge);
    glGetIntegerv(GL_MAX_ARRAY_TEXTURE_LAYERS, &layers);
    return {edge, edge, layers};
}

void TextureLayers::resize(const Vector3i& size) {
    if(size == _size) return;
    _size = size;
    _texture = {};
    if(!size.z()) return;
    _texture.emplace();
    _texture->setMinificationFilter(SamplerFilter::Linear)
        .setMagnificationFilter(SamplerFilter::Linear)
        .setWrapping(SamplerWrapping::ClampToEdge)
        .setStorage(1, _format, size)
        .setLabel(Utility::format("Renderer texture layers in unit {}", _unit));
}

void TextureLayers::write(const Range2Di& rectangle, Int layer, Containers::ArrayView<const Color4ub> texels) {
    CORRADE_INTERNAL_ASSERT(texels.size() == std::size_t(rectangle.size().product()));
    write(rectangle, layer, texels.data(), GL_UNSIGNED_BYTE);
}

void TextureLayers::write(const Range2Di& rectangle, Int layer, Containers::ArrayView<const Color4> texels) {
    CORRADE_INTERNAL_ASSERT(texels.size() == std::size_t(rectangle.size().product()));
    write(rectangle, layer, texels.data(), GL_FLOAT);
}

// The library writes whole arrays only.
void TextureLayers::write(const Range2Di& rectangle, Int layer, const void* texels, UnsignedInt type) {
    CORRADE_INTERNAL_ASSERT(_texture && layer < _size.z() && (rectangle.max() <= _size.xy()).all());
    GL::Context::current().resetState(GL::Context::State::EnterExternal);
    glActiveTexture(GLenum(GL_TEXTURE0 + _unit));
    glBindTexture(GL_TEXTURE_2D_ARRAY, _texture->id());
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    glTexSubImage3D(GL_TEXTURE_2D_ARRAY, 0, rectangle.left(), rectangle.bottom(), layer, rectangle.sizeX(),
        rectangle.sizeY(), 1, GL_RGBA, type, texels);
    GL::Context::current().resetState(GL::Context::State::Textures | GL::Context::State::PixelStorage);
}

void TextureLayers::bind() {
    // Without layers there is no texture that would sample them, whatever else is bound there.
    if(_texture) _texture->bind(_unit);
}

} // namespace VantrelEngine
