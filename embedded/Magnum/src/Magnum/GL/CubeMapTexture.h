#pragma once

#include "Magnum/GL/AbstractTexture.h"

namespace Magnum::GL {

// The faces of a cube map.
enum class CubeMapCoordinate : UnsignedInt {
    PositiveX = GL_TEXTURE_CUBE_MAP_POSITIVE_X,
    NegativeX = GL_TEXTURE_CUBE_MAP_NEGATIVE_X,
    PositiveY = GL_TEXTURE_CUBE_MAP_POSITIVE_Y,
    NegativeY = GL_TEXTURE_CUBE_MAP_NEGATIVE_Y,
    PositiveZ = GL_TEXTURE_CUBE_MAP_POSITIVE_Z,
    NegativeZ = GL_TEXTURE_CUBE_MAP_NEGATIVE_Z
};

// Six square textures, sampled by direction.
class CORRADE_VISIBILITY_EXPORT CubeMapTexture: public Implementation::TextureParameters<CubeMapTexture> {
public:
    explicit CubeMapTexture(): TextureParameters{GL_TEXTURE_CUBE_MAP} {}
    explicit CubeMapTexture(NoCreateT) noexcept: TextureParameters{NoCreate, GL_TEXTURE_CUBE_MAP} {}

    // As in Texture2D. Width and height are the same.
    CubeMapTexture& setStorage(Int levels, TextureFormat format, const Vector2i& size) {
        allocate2D(levels, format, size);
        return *this;
    }
};

}
