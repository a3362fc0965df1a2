#include "Magnum/GL/BufferTexture.h"

#include "Magnum/GL/Buffer.h"

namespace Magnum::GL {

Int BufferTexture::maxSize() {
    GLint size = 0;
    glGetIntegerv(GL_MAX_TEXTURE_BUFFER_SIZE, &size);
    return size;
}

BufferTexture& BufferTexture::setBuffer(BufferTextureFormat internalFormat, Buffer& buffer) {
    activate();
    glTexBuffer(GL_TEXTURE_BUFFER, GLenum(internalFormat), buffer.id());
    return *this;
}

}
