#pragma once

#include "Corrade/Containers/Array.h"
#include "Magnum/GL/Context.h"
#include "Magnum/GL/OpenGL.h"
#include "Magnum/Math/Range.h"
#include "Magnum/PixelStorage.h"

namespace Magnum::GL::Implementation {

// What is bound in GL. The functions do nothing when GL is in the state already.
struct State {
    // A name that GL gives to no object: it is not known what is bound.
    static constexpr GLuint Unknown = ~GLuint{};

    explicit State(const Context& context);

    void useProgram(GLuint id);
    void bindVertexArray(GLuint id);
    void bindArrayBuffer(GLuint id);
    void bindRenderbuffer(GLuint id);
    void bindReadFramebuffer(GLuint id);
    void bindDrawFramebuffer(GLuint id);
    void setViewport(const Range2Di& rectangle);
    void bindTexture(Int unit, GLenum target, GLuint id);
    void unbindTexture(Int unit);
    // Makes glTex...() calls on the target affect this texture.
    void activateTexture(GLenum target, GLuint id);
    // Makes glReadPixels() and the like write to memory in this layout.
    void usePackStorage(const PixelStorage& storage);
    // Makes glTexSubImage2D() and the like read memory in this layout.
    void useUnpackStorage(const PixelStorage& storage);

    // GL unbinds an object when it is deleted.
    void forgetTexture(GLuint id);

    void reset(Context::States states);

    const bool separateShaderObjects;
    const bool textureStorage;
    const bool anisotropicFilter;
    const bool debug;
    const bool parallelShaderCompile;

    GLuint program = Unknown;
    GLuint vertexArray = Unknown;
    GLuint arrayBuffer = Unknown;
    GLuint renderbuffer = Unknown;
    GLuint readFramebuffer = Unknown;
    GLuint drawFramebuffer = Unknown;

private:
    struct TextureBinding {
        GLenum target = 0;
        GLuint id = Unknown;
    };

    void setActiveUnit(Int unit);
    void unbindPixelBuffers();

    Range2Di _viewport{{}, Vector2i{-1}};
    Int _activeUnit = -1;
    // One a unit: what was bound last, and to which target.
    Containers::Array<TextureBinding> _textures;
    bool _pixelBuffersUnbound = false;
    bool _packKnown = false;
    bool _unpackKnown = false;
    PixelStorage _pack;
    PixelStorage _unpack;
};

// Of the current context.
inline State& state() { return Context::current().state(); }

// Binds a framebuffer for drawing, and what was bound before again at the end of the scope.
class DrawFramebufferScope {
public:
    explicit DrawFramebufferScope(GLuint id);
    ~DrawFramebufferScope() { _state.bindDrawFramebuffer(_previous); }
    DrawFramebufferScope(const DrawFramebufferScope&) = delete;
    DrawFramebufferScope& operator=(const DrawFramebufferScope&) = delete;

private:
    State& _state;
    GLuint _previous;
};

}
