#include "Magnum/Shaders/PhongGL.h"

#include "Corrade/Containers/String.h"
#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/Format.h"
#include "Magnum/GL/Texture.h"
#include "Magnum/Math/Constants.h"

namespace Magnum::Shaders {

namespace {

enum : Int { DiffuseTextureUnit = 1, NormalTextureUnit = 3 };

// What the fragment stage does not read is dropped by the linker.
constexpr const char* VertexSource = R"(
uniform mat4 transformationMatrix;
uniform mat4 projectionMatrix;
uniform mat3 normalMatrix;
layout(location = 0) in vec4 position;
layout(location = 1) in vec2 textureCoordinates;
layout(location = 3) in vec4 tangent;
layout(location = 5) in vec3 normal;
out vec3 cameraPosition;
out vec3 cameraNormal;
out vec4 cameraTangent;
out vec2 interpolatedTextureCoordinates;

void main() {
    vec4 transformed = transformationMatrix*position;
    gl_Position = projectionMatrix*transformed;
    cameraPosition = transformed.xyz/transformed.w;
    cameraNormal = normalMatrix*normal;
    cameraTangent = vec4(normalMatrix*tangent.xyz, tangent.w);
    interpolatedTextureCoordinates = textureCoordinates;
}
)";

constexpr const char* FragmentSource = R"(
uniform vec4 ambientColor;
uniform float alphaMask;
uniform uint objectId;
layout(location = 0) out vec4 fragmentColor;
#ifdef OBJECT_ID
layout(location = 1) out uint fragmentObjectId;
#endif

#ifdef LIGHTS
uniform vec4 diffuseColor;
uniform vec4 specularColor;
uniform float shininess;
uniform vec4 lightPositions[LIGHTS];
uniform vec3 lightColors[LIGHTS];
uniform vec3 lightSpecularColors[LIGHTS];
uniform float lightRanges[LIGHTS];
uniform sampler2D diffuseTexture;
uniform sampler2D normalTexture;
in vec3 cameraPosition;
in vec3 cameraNormal;
in vec4 cameraTangent;
in vec2 interpolatedTextureCoordinates;
// Zero stays zero, instead of being undefined: such a fragment is not lit.
vec3 direction(vec3 v) {
    float squaredLength = dot(v, v);
    return squaredLength > 0.0 ? v*inversesqrt(squaredLength) : vec3(0.0);
}

vec3 surfaceNormal() {
    vec3 normal = direction(cameraNormal);
    #ifdef NORMAL_TEXTURE
    vec3 tangent = direction(cameraTangent.xyz);
    vec3 bitangent = direction(cross(normal, tangent)*cameraTangent.w);
    vec3 texel = texture(normalTexture, interpolatedTextureCoordinates).xyz*2.0 - vec3(1.0);
    normal = mat3(tangent, bitangent, normal)*direction(texel);
    #endif
    return normal;
}

float attenuation(float distance, float range) {
    if(distance == 0.0) return 1.0;
    float ratio = distance/range;
    ratio *= ratio;
    float window = clamp(1.0 - ratio*ratio, 0.0, 1.0);
    return window*window/(1.0 + distance*distance);
}

vec4 lighting(vec4 diffuse) {
    vec3 normal = surfaceNormal();
    vec3 toCamera = direction(-cameraPosition);
    vec4 sum = vec4(0.0, 0.0, 0.0, diffuse.a);
    for(int i = 0; i < LIGHTS; ++i) {
        vec3 toLight = lightPositions[i].xyz - cameraPosition*lightPositions[i].w;
        float fade = attenuation(length(toLight)*lightPositions[i].w, lightRanges[i]);
        toLight = direction(toLight);
        float intensity = max(dot(normal, toLight), 0.0)*fade;
        sum.rgb += diffuse.rgb*lightColors[i]*intensity;
        // No highlight on a surface that the light does not reach.
        if(intensity > 0.001) {
            float alignment = clamp(dot(toCamera, reflect(-toLight, normal)), 0.0, 1.0);
            sum += vec4(specularColor.rgb*lightSpecularColors[i]*pow(alignment, shininess)*fade, specularColor.a);
        }
    }
    return sum;
}
#endif

void main() {
    fragmentColor = ambientColor;
    #ifdef LIGHTS
    vec4 diffuse = diffuseColor;
    #ifdef DIFFUSE_TEXTURE
    diffuse *= texture(diffuseTexture, interpolatedTextureCoordinates);
    #endif
    fragmentColor += lighting(diffuse);
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

PhongGL::PhongGL(const Configuration& configuration):
    _flags{configuration._flags}, _lightCount{configuration._lightCount} {
    const Containers::String lights = Utility::format("LIGHTS {}", _lightCount);
    build({{_lightCount != 0, lights.data()}, {_flags >= Flag::DiffuseTexture, "DIFFUSE_TEXTURE"},
              {_flags >= Flag::NormalTexture, "NORMAL_TEXTURE"}, {_flags >= Flag::AlphaMask, "ALPHA_MASK"},
              {_flags >= Flag::ObjectId, "OBJECT_ID"}},
        VertexSource, FragmentSource);
    _transformationMatrix = initialized("transformationMatrix", Matrix4{});
    _normalMatrix = initialized("normalMatrix", Matrix3x3{});
    _projectionMatrix = initialized("projectionMatrix", Matrix4{});
    _ambientColor = initialized("ambientColor", Color4{0.0f, 0.0f});
    _diffuseColor = initialized("diffuseColor", Color4{1.0f});
    _specularColor = initialized("specularColor", Color4{1.0f, 0.0f});
    _shininess = initialized("shininess", 80.0f);
    _alphaMask = initialized("alphaMask", 0.5f);
    _objectId = initialized("objectId", 0u);
    initialized("diffuseTexture", DiffuseTextureUnit);
    initialized("normalTexture", NormalTextureUnit);
    _lightPositions = initialized("lightPositions", Vector4{0.0f, 0.0f, 1.0f, 0.0f});
    _lightColors = initialized("lightColors", Color3{1.0f});
    _lightSpecularColors = initialized("lightSpecularColors", Color3{1.0f});
    _lightRanges = initialized("lightRanges", Constants::inf());
    for(UnsignedInt i = 1; i < _lightCount; ++i)
        setLightPosition(i, {0.0f, 0.0f, 1.0f, 0.0f})
            .setLightColor(i, Color3{1.0f})
            .setLightSpecularColor(i, Color3{1.0f})
            .setLightRange(i, Constants::inf());
}

PhongGL& PhongGL::bindDiffuseTexture(GL::Texture2D& texture) {
    expect({_flags >= Flag::DiffuseTexture, "PhongGL::bindDiffuseTexture", "diffuse texture"});
    texture.bind(DiffuseTextureUnit);
    return *this;
}

PhongGL& PhongGL::bindNormalTexture(GL::Texture2D& texture) {
    expect({_flags >= Flag::NormalTexture, "PhongGL::bindNormalTexture", "normal texture"});
    texture.bind(NormalTextureUnit);
    return *this;
}

void PhongGL::expectAll(const char* setter, const std::size_t count) const {
    CORRADE_ASSERT(count == _lightCount,
        "Shaders::PhongGL::" << Utility::Debug::nospace << setter << Utility::Debug::nospace << "(): expected"
                             << _lightCount << "items but got" << count, );
}

Int PhongGL::element(const char* setter, const Int location, const UnsignedInt id) const {
    CORRADE_ASSERT(id < _lightCount,
        "Shaders::PhongGL::" << Utility::Debug::nospace << setter << Utility::Debug::nospace << "(): light ID" << id
                             << "is out of range for" << _lightCount << "lights",
        -1);
    return location + Int(id);
}

}
