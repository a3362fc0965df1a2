// Shadows of the lights: what each light sees, as depth maps side by side in one texture.
//
// First two texels a light that is meant to throw shadows, in the order of the lights: where the records of its maps
// begin, how many there are, and how far a place is moved at least towards the light and along the normal; where the light
// stands, and how far its shadows reach, negative for a sun, whose range begins at the camera. Then a record a map: the
// four rows of the matrix to the texture and the depth in it; the middle of its tile, half of the tile's edge less a margin
// for filters, below 0 where it has none, and the size of a texel in the scene at a fourth coordinate of 1.

uniform samplerBuffer shadowData;
uniform sampler2DShadow shadowMaps;

const int TexelsPerShadowLight = 2;
const int TexelsPerShadowMap = 5;
const int ShadowFaces = 6;
// In which part of its half a map of a sun gives way to the next one.
const float ShadowBlend = 0.16;

// Of a point light, along the positive and the negative axes.
int shadowFace(vec3 way) {
    vec3 size = abs(way);
    if(size.x >= max(size.y, size.z)) return way.x < 0.0 ? 1 : 0;
    if(size.y >= size.z) return way.y < 0.0 ? 3 : 2;
    return way.z < 0.0 ? 5 : 4;
}

// How much of three by three texels around a place lets light through, weighted as a tent: each of four samples between
// texels stands for some of them.
float shadowFiltered(vec3 place) {
    vec2 size = vec2(textureSize(shadowMaps, 0));
    vec2 corner = floor(place.xy*size + 0.5);
    vec2 part = place.xy*size + 0.5 - corner;
    vec2 lowerWeight = 3.0 - 2.0*part, upperWeight = 1.0 + 2.0*part;
    vec2 lower = (corner - 1.5 + (2.0 - part)/lowerWeight)/size;
    vec2 upper = (corner + 0.5 + part/upperWeight)/size;
    return (lowerWeight.x*(lowerWeight.y*textureLod(shadowMaps, vec3(lower, place.z), 0.0) +
                upperWeight.y*textureLod(shadowMaps, vec3(lower.x, upper.y, place.z), 0.0)) +
        upperWeight.x*(lowerWeight.y*textureLod(shadowMaps, vec3(upper.x, lower.y, place.z), 0.0) +
                upperWeight.y*textureLod(shadowMaps, vec3(upper, place.z), 0.0)))/16.0;
}

// Beside the surface that the place is on: by as much as the filter reaches, at its slope to the light. Where the slope is
// not known, it might be any.
vec3 besideSurface(vec3 place, vec3 normal, vec3 direction, vec2 least, float texel) {
    if(dot(normal, normal) == 0.0) return place + direction*max(least.x, 3.0*texel);
    float sine = length(cross(normal, direction));
    return place + direction*max(least.x, 0.5*texel) + normal*max(least.y, 2.2*texel*sine);
}

// How much of a light comes to a place past all that stands between them, from 0 to 1. The direction is that to the light;
// the normal that of the side that is seen, of length 1, or zero where it is not known.
float shadowAt(int light, vec3 place, vec3 normal, vec3 direction) {
    vec4 maps = texelFetch(shadowData, light*TexelsPerShadowLight);
    vec4 lightPlace = texelFetch(shadowData, light*TexelsPerShadowLight + 1);
    int texel = int(maps.x), count = int(maps.y);
    vec3 way = place - (lightPlace.w < 0.0 ? cameraPosition : lightPlace.xyz);
    if(count == ShadowFaces) {
        texel += shadowFace(way)*TexelsPerShadowMap;
        count = 1;
    }
    // The nearest map that has the place; at its edge, more and more of the next one.
    float passed = 0.0, open = 1.0;
    for(; count > 0 && open > 0.0; --count, texel += TexelsPerShadowMap) {
        vec4 row = texelFetch(shadowData, texel + 3), tile = texelFetch(shadowData, texel + 4);
        vec4 beside =
            vec4(besideSurface(place, normal, direction, maps.zw, tile.w*dot(row, vec4(place, 1.0))), 1.0);
        float w = dot(row, beside);
        vec3 mapped = vec3(dot(texelFetch(shadowData, texel), beside), dot(texelFetch(shadowData, texel + 1), beside),
            dot(texelFetch(shadowData, texel + 2), beside))/w;
        // From the middle of the tile, in halves of it.
        vec2 aside = (mapped.xy - tile.xy)/tile.z;
        float part = w > 0.0 && tile.z > 0.0 ? 1.0 : 0.0;
        if(lightPlace.w < 0.0)
            part *= mapped.z < 0.0 || mapped.z > 1.0
                ? 0.0
                : clamp((1.0 - max(abs(aside.x), abs(aside.y)))/ShadowBlend, 0.0, 1.0);
        vec2 inTile = tile.xy + clamp(aside, -1.0, 1.0)*tile.z;
        passed += open*part*shadowFiltered(vec3(inTile, mapped.z));
        open -= open*part;
    }
    return mix(1.0, passed + open, clamp(10.0 - 10.0*length(way)/abs(lightPlace.w), 0.0, 1.0));
}
