// First stage of the outline: each masked pixel becomes the seed of a flood, which the steps that
// follow carry on, each one half as far as the one before.
//
// A seed is the position of the closest point of the mask, in pixels divided by the size of the
// viewport. Zero means that there is none, which no masked pixel can be mistaken for: the centre
// of the first one lies at 0.5.

uniform vec4 viewportOffsetSize;
uniform sampler2D mask;

out vec2 outPosition;

// A fetch from outside of a texture is undefined, so the border repeats.
float coverage(ivec2 texel) {
    return texelFetch(mask, clamp(texel, ivec2(0), textureSize(mask, 0) - 1), 0).r;
}

// Sobel filter over the neighbours. Points from where there is more of the mask to where there is
// less of it, that is: out of the shape.
vec2 outwards(ivec2 texel) {
    float bottomLeft = coverage(texel + ivec2(-1, -1));
    float bottom = coverage(texel + ivec2(0, -1));
    float bottomRight = coverage(texel + ivec2(1, -1));
    float left = coverage(texel + ivec2(-1, 0));
    float right = coverage(texel + ivec2(1, 0));
    float topLeft = coverage(texel + ivec2(-1, 1));
    float top = coverage(texel + ivec2(0, 1));
    float topRight = coverage(texel + ivec2(1, 1));
    return vec2(bottomLeft - bottomRight + 2.0*(left - right) + topLeft - topRight,
                bottomLeft - topLeft + 2.0*(bottom - top) + bottomRight - topRight);
}

// The border of the shape runs through a pixel that is covered in part: the seed lies as far
// inside as the pixel is uncovered. Dots and lines thinner than a pixel have no slope that
// could be followed; these are seeds in their own centres.
vec2 edgeSeed(vec2 center, ivec2 texel, float covered) {
    vec2 slope = outwards(texel);
    float squaredLength = dot(slope, slope);
    if(squaredLength < 0.01) return center;
    return center - slope*inversesqrt(squaredLength)*(1.0 - covered);
}

void main() {
    vec2 center = gl_FragCoord.xy;
    ivec2 texel = ivec2(center);
    float covered = coverage(texel);

    // Almost nothing and almost everything count as nothing and everything: the slope of what is
    // left over is little more than rounding.
    vec2 seed;
    if(covered < 0.05) seed = vec2(0.0);
    else if(covered > 0.95) seed = center;
    else seed = edgeSeed(center, texel, covered);
    outPosition = seed/viewportOffsetSize.zw;
}
