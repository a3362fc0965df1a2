#pragma once

#include "Magnum/GL/AbstractTexture.h"

namespace Magnum::GL {

// Layers of two-dimensional textures.
template<> class CORRADE_VISIBILITY_EXPORT TextureArray<2>: public Implementation::TextureParameters<TextureArray<2>> {
public:
    explicit TextureArray(): TextureParameters{GL_TEXTURE_2D_ARRAY} {}
    explicit TextureArray(NoCreateT) noexcept: TextureParameters{NoCreate, GL_TEXTURE_2D_ARRAY} {}

    // As in Texture2D. The third dimension is the number of layers.
    TextureArray& setStorage(Int levels, TextureFormat format, const Vector3i& size) {
        allocate3D(levels, format, size);
        return *this;
    }
};

}
