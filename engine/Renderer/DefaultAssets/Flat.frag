// One colour, whatever light there is.

in vec2 uv;
// Where a texture may lie by it.
#ifdef SECOND_UV
in vec2 secondUv;
#else
#define secondUv uv
#endif
in vec4 vertexColor;

// Parameters that a project's shader may lack.
#ifndef MATERIAL_HAS_color
vec4 material_color() { return vec4(1.0); }
#endif
#ifndef MATERIAL_HAS_colorTexture
vec4 material_colorTexture(vec2 first, vec2 second) { return vec4(1.0); }
#endif
#ifndef MATERIAL_HAS_alphaCutoff
float material_alphaCutoff() { return 0.5; }
#endif

void main() {
    vec4 color = material_color()*material_colorTexture(uv, secondUv)*vertexColor;
#ifdef ALPHA_MASK
    if(color.a < material_alphaCutoff()) discard;
#endif
#ifdef BLEND
    fragmentColor = vec4(screenColor(color.rgb), color.a);
#else
    fragmentColor = vec4(screenColor(color.rgb), 1.0);
#endif
}
