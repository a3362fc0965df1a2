#include "Magnum/Shaders/FlatGL.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/GL/Texture.h"

namespace Magnum::Shaders {

namespace {

constexpr Int TextureUnit = 0;

// What the fragment stage does not read is dropped by the linker.
constexpr const char* VertexSource = R"(
uniform mat4 transformationProjectionMatrix;
uniform mat3 textureMatrix;
layout(location = 0) in vec4 position;
layout(location = 1) in vec2 textureCoordinates;
layout(location = 2) in vec4 vertexColor;
out vec2 interpolatedTextureCoordinates;
out vec4 interpolatedVertexColor;

void main() {
    gl_Position = transformationProjectionMatrix*position;
    interpolatedTextureCoordinates = (textureMatrix*vec3(textureCoordinates, 1.0)).xy;
    interpolatedVertexColor = vertexColor;
}
)";

constexpr const char* FragmentSource = R"(
uniform vec4 color;
uniform sampler2D textureData;
uniform float alphaMask;
uniform uint objectId;
in vec2 interpolatedTextureCoordinates;
in vec4 interpolatedVertexColor;
layout(location = 0) out vec4 fragmentColor;
#ifdef OBJECT_ID
layout(location = 1) out uint fragmentObjectId;
#endif

void main() {
    fragmentColor = color;
    #ifdef TEXTURED
    fragmentColor *= texture(textureData, interpolatedTextureCoordinates);
    #endif
    #ifdef VERTEX_COLOR
    fragmentColor *= interpolatedVertexColor;
    #endif
    #ifdef ALPHA_MASK
    if(fragmentColor.a <= alphaMask) discard;
    #endif
    #ifdef OBJECT_ID
    fragmentObjectId = objectId;
    #endif
}
)";

}

FlatGL3D::FlatGL3D(const Configuration& configuration): _flags{configuration.flags()} {
    CORRADE_ASSERT(!(_flags & Flag::TextureTransformation) || _flags & Flag::Textured,
        "Shaders::FlatGL: texture transformation enabled but the shader is not textured", );

    build({{_flags >= Flag::Textured, "TEXTURED"}, {_flags >= Flag::VertexColor, "VERTEX_COLOR"},
              {_flags >= Flag::AlphaMask, "ALPHA_MASK"}, {_flags >= Flag::ObjectId, "OBJECT_ID"}},
        VertexSource, FragmentSource);
    _transformationProjectionMatrix = initialized("transformationProjectionMatrix", Matrix4{});
    _color = initialized("color", Color4{1.0f});
    _textureMatrix = initialized("textureMatrix", Matrix3{});
    _alphaMask = initialized("alphaMask", 0.5f);
    _objectId = initialized("objectId", 0u);
    initialized("textureData", TextureUnit);
}

FlatGL3D& FlatGL3D::bindTexture(GL::Texture2D& texture) {
    expect({_flags >= Flag::Textured, "FlatGL::bindTexture", "texturing"});
    texture.bind(TextureUnit);
    return *this;
}

}
