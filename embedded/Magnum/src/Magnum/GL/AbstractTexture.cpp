#include "Magnum/GL/AbstractTexture.h"

#include <algorithm>

#include "Magnum/GL/Implementation/PixelTransfer.h"
#include "Magnum/GL/Implementation/State.h"
#include "Magnum/Math/Color.h"

namespace Magnum::GL {

using Implementation::state;

namespace {

GLint swizzleChannel(char channel) {
    switch(channel) {
    case 'r': return GL_RED;
    case 'g': return GL_GREEN;
    case 'b': return GL_BLUE;
    case 'a': return GL_ALPHA;
    case '1': return GL_ONE;
    default: return GL_ZERO;
    }
}

}

void AbstractTexture::unbind(Int unit) { state().unbindTexture(unit); }

AbstractTexture::AbstractTexture(GLenum target): _target{target} {
    GLuint id;
    glGenTextures(1, &id);
    _id = Implementation::ObjectName{id};
    activate();
}

AbstractTexture::~AbstractTexture() {
    if(!_id) return;
    state().forgetTexture(_id);
    const GLuint id = _id;
    glDeleteTextures(1, &id);
}

Containers::String AbstractTexture::label() const { return Implementation::objectLabel(GL_TEXTURE, _id); }

void AbstractTexture::bind(Int unit) { state().bindTexture(unit, _target, _id); }

void AbstractTexture::activate() { state().activateTexture(_target, _id); }

void AbstractTexture::setLabel(Containers::StringView label) { Implementation::setObjectLabel(GL_TEXTURE, _id, label); }

void AbstractTexture::setParameter(GLenum name, GLint value) {
    activate();
    glTexParameteri(_target, name, value);
}

void AbstractTexture::setMinificationFilter(SamplerFilter filter, SamplerMipmap mipmap) {
    setParameter(GL_TEXTURE_MIN_FILTER, GLint(filter) | GLint(mipmap));
}

void AbstractTexture::setWrapping(SamplerWrapping wrapping) {
    setParameter(GL_TEXTURE_WRAP_S, GLint(wrapping));
    setParameter(GL_TEXTURE_WRAP_T, GLint(wrapping));
}

void AbstractTexture::setBorderColor(const Color4& color) {
    activate();
    glTexParameterfv(_target, GL_TEXTURE_BORDER_COLOR, color.data());
}

void AbstractTexture::setMaxAnisotropy(Float anisotropy) {
    if(!state().anisotropicFilter) return;
    activate();
    glTexParameterf(_target, GL_TEXTURE_MAX_ANISOTROPY_EXT, anisotropy);
}

void AbstractTexture::setSwizzle(const char (&channels)[4]) {
    GLint values[4];
    for(int i = 0; i != 4; ++i) values[i] = swizzleChannel(channels[i]);
    activate();
    glTexParameteriv(_target, GL_TEXTURE_SWIZZLE_RGBA, values);
}

void AbstractTexture::allocate2D(Int levels, TextureFormat format, const Vector2i& size) {
    activate();
    if(state().textureStorage) {
        glTexStorage2D(_target, levels, GLenum(format), size.x(), size.y());
        return;
    }
    const bool cube = _target == GL_TEXTURE_CUBE_MAP;
    const GLenum first = cube ? GLenum(GL_TEXTURE_CUBE_MAP_POSITIVE_X) : _target;
    const Implementation::PixelTransfer transfer = Implementation::pixelTransfer(format);
    for(Int level = 0; level != levels; ++level)
        for(GLenum face = 0; face != (cube ? 6 : 1); ++face)
            glTexImage2D(first + face, level, GLint(format), std::max(size.x() >> level, 1),
                std::max(size.y() >> level, 1), 0, transfer.format, transfer.type, nullptr);
    // As with immutable storage, the texture is complete with the levels it has.
    setParameter(GL_TEXTURE_MAX_LEVEL, levels - 1);
}

void AbstractTexture::allocate3D(Int levels, TextureFormat format, const Vector3i& size) {
    activate();
    if(state().textureStorage) {
        glTexStorage3D(_target, levels, GLenum(format), size.x(), size.y(), size.z());
        return;
    }
    const Implementation::PixelTransfer transfer = Implementation::pixelTransfer(format);
    // The layers of an array do not get fewer.
    for(Int level = 0; level != levels; ++level)
        glTexImage3D(_target, level, GLint(format), std::max(size.x() >> level, 1), std::max(size.y() >> level, 1),
            size.z(), 0, transfer.format, transfer.type, nullptr);
    setParameter(GL_TEXTURE_MAX_LEVEL, levels - 1);
}

void AbstractTexture::generateMipmap() {
    activate();
    glGenerateMipmap(_target);
}

}
