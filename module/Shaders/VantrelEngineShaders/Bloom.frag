precision highp float;

// Without constant expressions of arrays, values are made while the program runs.
#ifndef RUNTIME_CONST
#define const
#endif

#ifndef NEW_GLSL
#define in varying
#define fragmentColor gl_FragColor
#else
out lowp vec4 fragmentColor;
#endif

// One program for the three jobs of a bloom: it picks what is bright, blurs it in one direction
// at a time, and puts the outcome over the scene.
//
// Expected in front of this file: the array WEIGHTS, from the centre of the blur outwards, and
// their number KERNEL_SIZE.

in vec2 textureCoordinates;

uniform sampler2D sceneTexture;
uniform sampler2D bloomTexture;

// Luminance above which a pixel of the scene glows.
uniform float threshold;
// How much of the glow is added, and how strongly the sum is exposed.
uniform float bloomIntensity;
uniform float exposure;

// Takes the bright pixels of the scene in place of the bloom so far.
uniform bool mask;
// Blurs along y; along x otherwise.
uniform bool vertical;
// Adds the result to the scene and maps the tones to those that the screen is able to show.
uniform bool blend;

vec3 glow(vec2 coordinates) {
    if(!mask) return texture(bloomTexture, coordinates).rgb;
    vec3 color = texture(sceneTexture, coordinates).rgb;
    float luminance = dot(color, vec3(0.2126, 0.7152, 0.0722));
    return luminance > threshold ? color : vec3(0.0);
}

// The centre once, everything else on both sides.
vec3 blurred() {
    vec2 texel = 1.0/vec2(mask ? textureSize(sceneTexture, 0) : textureSize(bloomTexture, 0));
    vec2 direction = vertical ? vec2(0.0, texel.y) : vec2(texel.x, 0.0);
    vec3 sum = glow(textureCoordinates)*WEIGHTS[0];
    for(int i = 1; i < KERNEL_SIZE; ++i) {
        vec2 offset = direction*float(i);
        sum += glow(textureCoordinates + offset)*WEIGHTS[i];
        sum += glow(textureCoordinates - offset)*WEIGHTS[i];
    }
    return sum;
}

void main() {
    vec3 result = blurred();
    if(blend) {
        vec3 combined = texture(sceneTexture, textureCoordinates).rgb + bloomIntensity*result;
        result = 1.0 - exp(-combined*exposure);
    }
    fragmentColor = vec4(result, 1.0);
}
