// Textures of the scene. Each mip level of an image is a rectangle of a layer, with a margin of one texel that holds what
// comes next where the image repeats.
//
// The table has a record a texture: its first level's record, the number of levels, how it is sampled, and the size of
// the first level in two halves. Record 0, which is no texture, says how many there are. A record of a level: the place
// of its first texel, the layer, and the size.

uniform usamplerBuffer textureTable;
uniform sampler2DArray colorTextures;
uniform sampler2DArray dataTextures;
uniform sampler2DArray floatTextures;

// How a texture is sampled, in bits.
const uint TextureWrapping = 3u;
const uint TextureMirrors = 1u;
const uint TextureClamps = 2u;
const uint TextureIsNearest = 4u;
const uint TextureMixesLevels = 8u;
const uint TextureArray = 48u;
const uint TextureIsData = 16u;
const uint TextureIsFloat = 32u;

// Texels of two levels, each with its layer, and how much of the second is seen.
struct TexturePlace {
    vec3 finer;
    vec3 coarser;
    float part;
};

vec2 textureLevelSize(uint halves) { return vec2(halves & 0xffffu, halves >> 16u); }

// From 0 to 1.
vec2 wrappedPlace(uint mode, vec2 uv) {
    uint wrapping = mode & TextureWrapping;
    if(wrapping == TextureMirrors) return abs(uv - 2.0*floor(uv*0.5 + 0.5));
    if(wrapping == TextureClamps) return clamp(uv, 0.0, 1.0);
    return fract(uv);
}

vec3 levelTexel(uint record, uint mode, vec2 place) {
    uvec4 level = texelFetch(textureTable, int(record));
    vec2 size = textureLevelSize(level.w);
    vec2 texel = place*size;
    if((mode & TextureIsNearest) != 0u) texel = floor(texel) + 0.5;
    // Only what repeats has another texel beyond its edge.
    if((mode & (TextureWrapping | TextureIsNearest)) != 0u) texel = clamp(texel, vec2(0.5), size - 0.5);
    return vec3(vec2(level.xy) + texel, level.z);
}

// False for what is white: texture 0, and one whose image cannot be had. All of a triangle have to come here, as its
// derivatives choose the levels.
bool textureAt(uint index, vec2 uv, out uint mode, out TexturePlace place) {
    vec2 alongX = dFdx(uv);
    vec2 alongY = dFdy(uv);
    if(index >= texelFetch(textureTable, 0).x) return false;
    uvec4 description = texelFetch(textureTable, int(index));
    uint first = description.x;
    uint count = description.y;
    mode = description.z;
    if(count == 0u) return false;

    vec2 size = textureLevelSize(description.w);
    alongX *= size;
    alongY *= size;
    float texels = max(dot(alongX, alongX), dot(alongY, alongY));
    float level = clamp(0.5*log2(max(texels, 1.0)), 0.0, float(count - 1u));
    if((mode & TextureMixesLevels) == 0u) level = floor(level + 0.5);
    uint finer = uint(level);
    vec2 wrapped = wrappedPlace(mode, uv);
    place.finer = levelTexel(first + finer, mode, wrapped);
    place.coarser = levelTexel(first + min(finer + 1u, count - 1u), mode, wrapped);
    place.part = level - float(finer);
    return true;
}

vec4 sampleLevels(sampler2DArray layers, TexturePlace place) {
    vec3 scale = vec3(1.0/vec2(textureSize(layers, 0)), 1.0);
    vec4 color = textureLod(layers, place.finer*scale, 0.0);
    if(place.part == 0.0) return color;
    return mix(color, textureLod(layers, place.coarser*scale, 0.0), place.part);
}

// Of textures that are known to lie in one array.
vec4 sampleColorTexture(uint index, vec2 uv) {
    uint mode;
    TexturePlace place;
    return textureAt(index, uv, mode, place) ? sampleLevels(colorTextures, place) : vec4(1.0);
}
vec4 sampleDataTexture(uint index, vec2 uv) {
    uint mode;
    TexturePlace place;
    return textureAt(index, uv, mode, place) ? sampleLevels(dataTextures, place) : vec4(1.0);
}
vec4 sampleFloatTexture(uint index, vec2 uv) {
    uint mode;
    TexturePlace place;
    return textureAt(index, uv, mode, place) ? sampleLevels(floatTextures, place) : vec4(1.0);
}

// Of any texture.
vec4 sampleTexture(uint index, vec2 uv) {
    uint mode;
    TexturePlace place;
    if(!textureAt(index, uv, mode, place)) return vec4(1.0);
    if((mode & TextureArray) == TextureIsData) return sampleLevels(dataTextures, place);
    if((mode & TextureArray) == TextureIsFloat) return sampleLevels(floatTextures, place);
    return sampleLevels(colorTextures, place);
}
