#include "Magnum/GL/Texture.h"

#include "Magnum/GL/Implementation/PixelTransfer.h"
#include "Magnum/GL/Implementation/State.h"
#include "Magnum/Image.h"
#include "Magnum/ImageView.h"

namespace Magnum::GL {

Vector2i Texture<2>::maxSize() {
    GLint size = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &size);
    return Vector2i{size};
}

using Implementation::state;

Texture2D& Texture2D::setSubImage(Int level, const Vector2i& offset, const ImageView2D& image) {
    state().useUnpackStorage(image.storage());
    activate();
    const Implementation::PixelTransfer transfer = Implementation::pixelTransfer(image.format());
    glTexSubImage2D(_target, level, offset.x(), offset.y(), image.size().x(), image.size().y(), transfer.format,
        transfer.type, image.data().data());
    return *this;
}

Vector2i Texture2D::imageSize(Int level) {
    activate();
    Vector2i size;
    glGetTexLevelParameteriv(_target, level, GL_TEXTURE_WIDTH, &size.x());
    glGetTexLevelParameteriv(_target, level, GL_TEXTURE_HEIGHT, &size.y());
    return size;
}

Image2D Texture2D::image(Int level, Image2D&& image) {
    Implementation::resizeImage(image, imageSize(level));
    state().usePackStorage(image.storage());
    const Implementation::PixelTransfer transfer = Implementation::pixelTransfer(image.format());
    glGetTexImage(_target, level, transfer.format, transfer.type, image.data().data());
    return Utility::move(image);
}

}
