// The surroundings of the scene, where it has some: pictures of longitude over latitude whose middle lies in the
// direction of -z, and what is right of it in the direction of +x. Their first and last rows are the poles.

// What a matt surface receives from all of them, by its normal.
uniform sampler2D irradiance;
// They themselves, level after level half as large, and then, level after level again, what mirrors show of them that are
// rougher and rougher, by the direction of the reflection.
uniform sampler2D surroundings;
// Sine and cosine of how far they are turned about +y, the factor of their light, and the first of the levels of mirrors.
uniform vec4 environment;

// Of the first level of mirrors, and how many levels there are from there to a roughness of 1.
const float ClearestRoughness = 0.2;
const float RougherLevels = 3.0;

vec2 environmentPlace(vec3 direction) {
    float x = environment.y*direction.x - environment.x*direction.z;
    float z = environment.x*direction.x + environment.y*direction.z;
    return vec2(atan(x, -z)*0.159154943, atan(direction.y, length(vec2(x, z)))*0.318309886) + 0.5;
}

vec3 environmentTexel(sampler2D picture, vec2 place, float level) {
    float rows = float(textureSize(picture, int(level)).y);
    return textureLod(picture, vec2(place.x, (place.y*(rows - 1.0) + 0.5)/rows), level).rgb;
}

// Between two levels.
vec3 environmentLight(vec2 place, float level) {
    float finer = floor(level);
    vec3 light = mix(environmentTexel(surroundings, place, finer), environmentTexel(surroundings, place, finer + 1.0),
        level - finer);
    return light*environment.z;
}

// The picture whose texels are about as far from each other as the directions of neighbouring pixels: finer ones would
// flicker. Of the finest one it is negative.
float pictureLevel(vec3 direction) {
    float angle = max(length(dFdx(direction)), length(dFdy(direction)));
    return log2(max(angle*0.159154943*float(textureSize(surroundings, 0).x), 1.0e-6));
}

// How much of it falls onto a surface with this normal.
vec3 ambientLight(vec3 normal) { return environmentTexel(irradiance, environmentPlace(normal), 0.0)*environment.z; }

// How much of it comes from about this direction; a rougher surface sees more of it at once. The reflection gets twice as
// wide with each level, and as the square of the roughness.
vec3 surroundingLight(vec3 direction, float roughness) {
    float mirrors = (roughness - ClearestRoughness)*RougherLevels/(1.0 - ClearestRoughness);
    float pictures = 2.0*log2(max(roughness, 0.01)/ClearestRoughness);
    float level = environment.w + (roughness < ClearestRoughness ? pictures : mirrors);
    float finest = clamp(pictureLevel(direction) - 0.5, 0.0, environment.w - 1.0);
    return environmentLight(environmentPlace(direction), max(level, finest));
}
