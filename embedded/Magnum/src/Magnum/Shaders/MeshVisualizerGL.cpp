#include "Magnum/Shaders/MeshVisualizerGL.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/GL/Texture.h"

namespace Magnum::Shaders {

namespace {

constexpr Int ColorMapUnit = 4;

// What the next stage does not read is dropped by the linker.
constexpr const char* VertexSource = R"(
uniform mat4 transformationMatrix;
uniform mat4 projectionMatrix;
uniform mat3 normalMatrix;
uniform float lineLength;
layout(location = 0) in vec4 position;
layout(location = 5) in vec3 normal;
out vec4 normalTip;

void main() {
    vec4 transformed = transformationMatrix*position;
    gl_Position = projectionMatrix*transformed;
    // Where there is no normal, the line has no length and is not drawn.
    vec3 direction = normalMatrix*normal;
    float squaredLength = dot(direction, direction);
    direction *= squaredLength > 0.0 ? lineLength*inversesqrt(squaredLength) : 0.0;
    normalTip = gl_Position + projectionMatrix*vec4(direction, 0.0);
}
)";

constexpr const char* GeometrySource = R"(
uniform vec2 viewportSize;
uniform float lineWidth;
uniform float smoothness;
layout(triangles) in;
layout(triangle_strip, max_vertices = 15) out;
in vec4 normalTip[3];

// Pixels to the line through each of the edges or, all three the same, to the middle of the line along a normal; times
// the w of the position: this is linear in clip space, hence right also where a triangle is cut by the near plane.
out vec3 scaledDistances;
flat out float isNormal;

// Homogeneous, in pixels from the middle of the viewport.
vec3 inPixels(vec4 clip) { return vec3(clip.xy*viewportSize*0.5, clip.w); }

void emit(vec4 clip, vec3 distances, bool normal) {
    gl_Position = clip;
    isNormal = normal ? 1.0 : 0.0;
    scaledDistances = distances;
    EmitVertex();
}

void emitTriangle() {
    vec3 p[3];
    for(int i = 0; i < 3; ++i) p[i] = inPixels(gl_in[i].gl_Position);
    // From the first corner instead of the middle of the viewport: small triangles stay precise.
    vec2 origin = p[0].xy/p[0].z;
    for(int i = 0; i < 3; ++i) p[i].xy -= origin*p[i].z;
    for(int i = 0; i < 3; ++i) {
        vec3 edge = cross(p[(i + 1)%3], p[(i + 2)%3]);
        vec3 distances = vec3(0.0);
        distances[i] = dot(edge, p[i])/length(edge.xy);
        emit(gl_in[i].gl_Position, distances, false);
    }
    EndPrimitive();
}

void emitNormal(vec4 from, vec4 to) {
    // What is behind the camera has no place in the picture.
    float nearest = 1.0e-4*max(from.w, to.w);
    if(!(nearest > 0.0)) return;
    vec4 whole = to - from;
    if(from.w < nearest) from = to - whole*((to.w - nearest)/whole.w);
    if(to.w < nearest) to = from + whole*((nearest - from.w)/whole.w);

    vec3 a = inPixels(from), b = inPixels(to);
    vec2 along = b.xy/b.z - a.xy/a.z;
    float squaredLength = dot(along, along);
    if(!(squaredLength > 0.0)) return;
    float halfWidth = 0.5*lineWidth;
    #ifndef WIREFRAME
    halfWidth += 0.5*smoothness;
    #endif
    vec4 across = vec4(vec2(-along.y, along.x)*inversesqrt(squaredLength)*halfWidth/(viewportSize*0.5), 0.0, 0.0);
    emit(from + across*from.w, vec3(halfWidth*from.w), true);
    emit(from - across*from.w, vec3(-halfWidth*from.w), true);
    emit(to + across*to.w, vec3(halfWidth*to.w), true);
    emit(to - across*to.w, vec3(-halfWidth*to.w), true);
    EndPrimitive();
}

void main() {
    #ifdef TRIANGLES
    emitTriangle();
    #endif
    #ifdef NORMALS
    for(int i = 0; i < 3; ++i) emitNormal(gl_in[i].gl_Position, normalTip[i]);
    #endif
}
)";

constexpr const char* FragmentSource = R"(
uniform vec4 color;
uniform sampler2D colorMap;
uniform vec2 colorMapTransformation;
uniform uint objectId;
uniform vec4 wireframeColor;
uniform float wireframeWidth;
uniform float lineWidth;
uniform float smoothness;
layout(location = 0) out vec4 fragmentColor;

#ifdef LINES
in vec3 scaledDistances;
flat in float isNormal;

// How far out of a line that wide a fragment is, from 0 to 1. A band without width is a step.
float outside(float width, float distance) {
    if(!(smoothness > 0.0)) return distance > 0.5*width ? 1.0 : 0.0;
    return smoothstep(0.5*(width - smoothness), 0.5*(width + smoothness), distance);
}
#endif

void main() {
    #ifdef NORMALS
    if(isNormal == 1.0) {
        // Together with the edges the whole line is as opaque as the middle of an edge.
        #ifdef WIREFRAME
        float transparency = outside(wireframeWidth, 0.0);
        #else
        float transparency = outside(lineWidth, abs(scaledDistances.x)*gl_FragCoord.w);
        #endif
        fragmentColor = vec4(0.0, 0.0, 1.0, 1.0)*(1.0 - transparency);
        return;
    }
    #endif
    fragmentColor = color;
    #ifdef OBJECT_ID
    float coordinate = colorMapTransformation.x + colorMapTransformation.y*float(objectId);
    fragmentColor *= textureLod(colorMap, vec2(coordinate, 0.0), 0.0);
    #endif
    #ifdef WIREFRAME
    vec3 distances = abs(scaledDistances)*gl_FragCoord.w;
    float nearest = min(distances.x, min(distances.y, distances.z));
    fragmentColor = mix(wireframeColor, fragmentColor, outside(wireframeWidth, nearest));
    #endif
}
)";

}

MeshVisualizerGL3D::MeshVisualizerGL3D(const Configuration& configuration): _flags{configuration.flags()} {
    const bool edges = _flags >= Flag::Wireframe, normals = _flags >= Flag::NormalDirection,
               objectId = _flags >= Flag::ObjectId, lines = edges || normals, triangles = edges || objectId;
    CORRADE_ASSERT(
        lines || triangles, "Shaders::MeshVisualizerGL3D: at least one visualization feature has to be enabled", );

    // Without lines there is no need for triangles, and other meshes can be drawn, too.
    build({{edges, "WIREFRAME"}, {normals, "NORMALS"}, {objectId, "OBJECT_ID"}, {lines, "LINES"},
              {triangles, "TRIANGLES"}},
        VertexSource, FragmentSource, lines ? GeometrySource : "");
    _transformationMatrix = initialized("transformationMatrix", Matrix4{});
    _projectionMatrix = initialized("projectionMatrix", Matrix4{});
    _viewportSize = initialized("viewportSize", Vector2{});
    _color = initialized("color", Color4{1.0f});
    _wireframeColor = initialized("wireframeColor", Color4{0.0f});
    _wireframeWidth = initialized("wireframeWidth", 1.0f);
    _normalMatrix = initialized("normalMatrix", Matrix3x3{});
    _lineWidth = initialized("lineWidth", 1.0f);
    _lineLength = initialized("lineLength", 1.0f);
    _smoothness = initialized("smoothness", 2.0f);
    _colorMapTransformation = initialized("colorMapTransformation", Vector2{1.0f / 512.0f, 1.0f / 256.0f});
    _objectId = initialized("objectId", 0u);
    initialized("colorMap", ColorMapUnit);
}

MeshVisualizerGL3D& MeshVisualizerGL3D::bindColorMapTexture(GL::Texture2D& texture) {
    expect({_flags >= Flag::ObjectId, "MeshVisualizerGL::bindColorMapTexture", "object/vertex/primitive ID"});
    texture.bind(ColorMapUnit);
    return *this;
}

}
