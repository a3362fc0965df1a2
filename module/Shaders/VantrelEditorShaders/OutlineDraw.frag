// Paints what lies within the width of the mask, but not the mask itself.
// Its last pixel outwards fades away.

uniform vec4 viewportOffsetSize;
uniform sampler2D mask;
uniform sampler2D positions;
uniform float width;
uniform vec4 color;

out vec4 outColor;

void main() {
    ivec2 texel = ivec2(gl_FragCoord.xy);
    vec2 nearest = texelFetch(positions, texel, 0).xy*viewportOffsetSize.zw;
    outColor = vec4(0.0);
    if(nearest.x != 0.0) {
        float coverage = texelFetch(mask, texel, 0).r;
        float reach = clamp(width - distance(nearest, gl_FragCoord.xy), 0.0, 1.0);
        outColor = vec4(color.rgb, color.a*(1.0 - coverage)*reach);
    }
}
