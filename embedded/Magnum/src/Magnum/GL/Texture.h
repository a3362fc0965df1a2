#pragma once

#include "Magnum/GL/AbstractTexture.h"

namespace Magnum::GL {

// Two-dimensional texture.
template<> class CORRADE_VISIBILITY_EXPORT Texture<2>: public Implementation::TextureParameters<Texture<2>> {
public:
    // The largest that there can be.
    static Vector2i maxSize();

    explicit Texture(): TextureParameters{GL_TEXTURE_2D} {}
    explicit Texture(NoCreateT) noexcept: TextureParameters{NoCreate, GL_TEXTURE_2D} {}

    // For good: neither size nor format can be changed later. The contents are undefined.
    Texture& setStorage(Int levels, TextureFormat format, const Vector2i& size) {
        allocate2D(levels, format, size);
        return *this;
    }
    // Replaces pixels. The storage has to be there.
    Texture& setSubImage(Int level, const Vector2i& offset, const ImageView2D& image);
    // Fills all levels below the base level from it.
    Texture& generateMipmap() {
        AbstractTexture::generateMipmap();
        return *this;
    }

    // Zero without storage.
    Vector2i imageSize(Int level);
    // Waits for the GPU and reads a whole level, in the format and layout of the image. Memory of the image is kept if
    // there is enough.
    Image2D image(Int level, Image2D&& image);
};

}
