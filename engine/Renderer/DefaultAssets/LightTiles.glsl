// Which of the lights without shadows may reach what is seen at a fragment, so that the others cost nothing. The picture
// is cut into tiles; there is a bit a light, 32 in a word, for each column of tiles, then for each row of them: a light
// reaches a tile that both say.
//
//    for(int word = 0; word != lightWords(); ++word)
//        for(uint bits = lightsHere(word); bits != 0u; bits &= bits - 1u) { int light = word*32 + lowestBit(bits); ... }

uniform usamplerBuffer lightTiles;

const float LightTileSize = 32.0;

int lightWords() { return (lightCount() + 31)/32; }

uint lightsHere(int word) {
    ivec2 tiles = ivec2(ceil(viewportSize/LightTileSize));
    ivec2 tile = min(ivec2(gl_FragCoord.xy/LightTileSize), tiles - 1);
    int words = lightWords();
    return texelFetch(lightTiles, tile.x*words + word).x & texelFetch(lightTiles, (tiles.x + tile.y)*words + word).x;
}

// By the exponent of what it stands for, as a float.
int lowestBit(uint bits) { return int(floatBitsToUint(float(bits & (~bits + 1u))) >> 23u) - 127; }
