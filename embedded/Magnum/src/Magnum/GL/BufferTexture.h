#pragma once

#include <cstddef>

#include "Magnum/GL/AbstractTexture.h"

namespace Magnum::GL {

// A buffer as a row of texels, which shaders fetch by number. Whatever is written to the buffer later is seen; the
// buffer has to outlive the texture's use.
class CORRADE_VISIBILITY_EXPORT BufferTexture: public AbstractTexture {
public:
    // Texels that a shader can reach, at least 65536.
    static Int maxSize();

    explicit BufferTexture(): AbstractTexture{GL_TEXTURE_BUFFER} {}
    explicit BufferTexture(NoCreateT) noexcept: AbstractTexture{NoCreate, GL_TEXTURE_BUFFER} {}

    BufferTexture& setLabel(Containers::StringView label) {
        AbstractTexture::setLabel(label);
        return *this;
    }

    // The whole buffer, however large it gets.
    BufferTexture& setBuffer(BufferTextureFormat internalFormat, Buffer& buffer);
};

}
