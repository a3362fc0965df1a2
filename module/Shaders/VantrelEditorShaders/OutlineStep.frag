// One step of the jump flood: of the positions that this pixel and its eight neighbours at a
// distance know, it keeps the one that is closest to it. Zero is no position.
//
// The steps halve the distance until it is a pixel: from coarse to fine.

uniform vec4 viewportOffsetSize;
uniform sampler2D positions;
uniform uint spacing;

out vec2 outPosition;

void main() {
    vec2 center = gl_FragCoord.xy;
    ivec2 last = textureSize(positions, 0) - 1;

    vec2 closest = vec2(0.0);
    float closestSquared = 3.402823466e+38;
    // Row by row from below. Of two that are equally far the first one stays.
    for(int y = -1; y <= 1; ++y) {
        for(int x = -1; x <= 1; ++x) {
            ivec2 texel = ivec2(center) + ivec2(x, y)*int(spacing);
            // Neighbours beyond the border are those on it. Outside of the texture a fetch would be undefined.
            texel = clamp(texel, ivec2(0), last);
            vec2 candidate = texelFetch(positions, texel, 0).xy*viewportOffsetSize.zw;
            vec2 offset = candidate - center;
            float squared = dot(offset, offset);
            if(candidate.x != 0.0 && squared < closestSquared) {
                closest = candidate;
                closestSquared = squared;
            }
        }
    }
    outPosition = closest/viewportOffsetSize.zw;
}
