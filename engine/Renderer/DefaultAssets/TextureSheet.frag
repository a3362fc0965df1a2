// A layer of textures, whose transparent parts are dark.

uniform sampler2DArray layers;
uniform int layer;
// Whether what is read is linear light, and to be put into the curve of the screen.
uniform bool isLight;

in vec2 uv;

layout(location = 0) out vec4 fragmentColor;

void main() {
    vec4 texel = texture(layers, vec3(uv, float(layer)));
    vec3 color = clamp(texel.rgb, 0.0, 1.0);
    vec3 curve = mix(1.055*pow(color, vec3(1.0/2.4)) - 0.055, color*12.92, lessThanEqual(color, vec3(0.0031308)));
    fragmentColor = vec4(mix(vec3(0.1), isLight ? curve : color, texel.a), 1.0);
}
