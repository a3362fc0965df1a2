#include "Magnum/GL/Implementation/State.h"

#include "Magnum/GL/Extensions.h"

namespace Magnum::GL::Implementation {

namespace {

std::size_t textureUnitCount() {
    GLint count = 0;
    glGetIntegerv(GL_MAX_COMBINED_TEXTURE_IMAGE_UNITS, &count);
    return count;
}

}

State::State(const Context& context):
    separateShaderObjects{context.isExtensionSupported<Extensions::ARB::separate_shader_objects>()},
    textureStorage{context.isExtensionSupported<Extensions::ARB::texture_storage>()},
    anisotropicFilter{context.isExtensionSupported<Extensions::EXT::texture_filter_anisotropic>()},
    debug{context.isExtensionSupported<Extensions::KHR::debug>()},
    parallelShaderCompile{context.isExtensionSupported<Extensions::KHR::parallel_shader_compile>()},
    _textures{ValueInit, textureUnitCount()} {}

void State::useProgram(GLuint id) {
    if(program == id) return;
    program = id;
    glUseProgram(id);
}

void State::bindVertexArray(GLuint id) {
    if(vertexArray == id) return;
    vertexArray = id;
    glBindVertexArray(id);
}

void State::bindArrayBuffer(GLuint id) {
    if(arrayBuffer == id) return;
    arrayBuffer = id;
    glBindBuffer(GL_ARRAY_BUFFER, id);
}

void State::bindRenderbuffer(GLuint id) {
    if(renderbuffer == id) return;
    renderbuffer = id;
    glBindRenderbuffer(GL_RENDERBUFFER, id);
}

void State::bindReadFramebuffer(GLuint id) {
    if(readFramebuffer == id) return;
    readFramebuffer = id;
    glBindFramebuffer(GL_READ_FRAMEBUFFER, id);
}

void State::bindDrawFramebuffer(GLuint id) {
    if(drawFramebuffer == id) return;
    drawFramebuffer = id;
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, id);
}

void State::setViewport(const Range2Di& rectangle) {
    if(_viewport == rectangle) return;
    _viewport = rectangle;
    glViewport(rectangle.left(), rectangle.bottom(), rectangle.sizeX(), rectangle.sizeY());
}

void State::setActiveUnit(Int unit) {
    if(_activeUnit == unit) return;
    _activeUnit = unit;
    glActiveTexture(GL_TEXTURE0 + unit);
}

void State::bindTexture(Int unit, GLenum target, GLuint id) {
    TextureBinding& binding = _textures[unit];
    if(binding.target == target && binding.id == id) return;
    setActiveUnit(unit);
    binding.target = target;
    binding.id = id;
    glBindTexture(target, id);
}

void State::unbindTexture(Int unit) {
    TextureBinding& binding = _textures[unit];
    if(!binding.id) return;
    setActiveUnit(unit);
    if(binding.id != Unknown)
        glBindTexture(binding.target, 0);
    else
        for(const GLenum target: {GL_TEXTURE_2D, GL_TEXTURE_2D_ARRAY, GL_TEXTURE_BUFFER, GL_TEXTURE_CUBE_MAP})
            glBindTexture(target, 0);
    binding = {0, 0};
}

void State::activateTexture(GLenum target, GLuint id) {
    if(_activeUnit != -1 && _textures[_activeUnit].target == target && _textures[_activeUnit].id == id) return;
    // The last unit is the one least likely to be drawn with.
    const Int unit = Int(_textures.size()) - 1;
    setActiveUnit(unit);
    bindTexture(unit, target, id);
}

void State::unbindPixelBuffers() {
    if(_pixelBuffersUnbound) return;
    _pixelBuffersUnbound = true;
    glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
}

void State::usePackStorage(const PixelStorage& storage) {
    unbindPixelBuffers();
    if(_packKnown && _pack == storage) return;
    _packKnown = true;
    _pack = storage;
    glPixelStorei(GL_PACK_ALIGNMENT, storage.alignment());
    glPixelStorei(GL_PACK_ROW_LENGTH, storage.rowLength());
    glPixelStorei(GL_PACK_SKIP_PIXELS, storage.skip().x());
    glPixelStorei(GL_PACK_SKIP_ROWS, storage.skip().y());
}

void State::useUnpackStorage(const PixelStorage& storage) {
    unbindPixelBuffers();
    if(_unpackKnown && _unpack == storage) return;
    _unpackKnown = true;
    _unpack = storage;
    glPixelStorei(GL_UNPACK_ALIGNMENT, storage.alignment());
    glPixelStorei(GL_UNPACK_ROW_LENGTH, storage.rowLength());
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, storage.skip().x());
    glPixelStorei(GL_UNPACK_SKIP_ROWS, storage.skip().y());
}

void State::forgetTexture(GLuint id) {
    for(TextureBinding& binding: _textures)
        if(binding.id == id) binding = {};
}

void State::reset(Context::States states) {
    if(states & Context::State::Buffers) {
        arrayBuffer = Unknown;
        _pixelBuffersUnbound = false;
    }
    if(states & Context::State::UnbindPixelBuffer) unbindPixelBuffers();
    if(states & Context::State::Framebuffers) {
        readFramebuffer = drawFramebuffer = renderbuffer = Unknown;
        _viewport = {{}, Vector2i{-1}};
    }
    if(states & Context::State::Meshes) vertexArray = Unknown;
    if(states & Context::State::MeshVao) bindVertexArray(0);
    if(states & Context::State::PixelStorage) _packKnown = _unpackKnown = false;
    if(states & Context::State::Shaders) program = Unknown;
    if(states & Context::State::Textures) {
        _activeUnit = -1;
        for(TextureBinding& binding: _textures) binding = {};
    }
}

DrawFramebufferScope::DrawFramebufferScope(GLuint id): _state(state()) {
    if(_state.drawFramebuffer == State::Unknown) {
        GLint bound = 0;
        glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &bound);
        _state.drawFramebuffer = bound;
    }
    _previous = _state.drawFramebuffer;
    _state.bindDrawFramebuffer(id);
}

}
