// Which of the lights may reach what is seen at a fragment, so that the others cost nothing: those without shadows, and
// apart those with shadows, since a rasteriser in software goes through all of a loop for each light. The picture is cut
// into tiles; there is a bit a light, 32 in a word, for each column of tiles, then for each row of them: a light reaches a
// tile that both say.
//
//    for(int word = 0; word != lightWords(); ++word)
//        for(uint bits = lightsHere(word); bits != 0u; bits &= bits - 1u) { int light = word*32 + lowestBit(bits); ... }

uniform usamplerBuffer lightTiles;

const float LightTileSize = 32.0;

int lightWords() { return (lightCount() + 31)/32; }

uint allLightsHere(int word) {
    ivec2 tiles = ivec2(ceil(viewportSize/LightTileSize));
    ivec2 tile = min(ivec2(gl_FragCoord.xy/LightTileSize), tiles - 1);
    int words = lightWords();
    return texelFetch(lightTiles, tile.x*words + word).x & texelFetch(lightTiles, (tiles.x + tile.y)*words + word).x;
}

#ifdef SHADOWS
// Those with shadows come first.
uint shadowBits(int word) {
    int count = lightsWithShadows() - word*32;
    return count >= 32 ? 0xffffffffu : (1u << uint(max(count, 0))) - 1u;
}

uint lightsHere(int word) { return allLightsHere(word) & ~shadowBits(word); }

int wordsWithShadows() { return (lightsWithShadows() + 31)/32; }

uint lightsWithShadowsHere(int word) { return allLightsHere(word) & shadowBits(word); }
#else
uint lightsHere(int word) { return allLightsHere(word); }
#endif

// By the exponent of what it stands for, as a float.
int lowestBit(uint bits) { return int(floatBitsToUint(float(bits & (~bits + 1u))) >> 23u) - 127; }
