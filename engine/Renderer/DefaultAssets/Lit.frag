// Surfaces between metal and none, of a roughness, under the lights of the scene.

in vec3 worldPosition;
in vec3 worldNormal;
in vec4 worldTangent;
in vec2 uv;
// Where a texture may lie by it.
#ifdef SECOND_UV
in vec2 secondUv;
#else
#define secondUv uv
#endif
in vec4 vertexColor;

// Parameters that a project's shader may lack.
#ifndef MATERIAL_HAS_baseColor
vec4 material_baseColor() { return vec4(1.0); }
#endif
#ifndef MATERIAL_HAS_baseColorTexture
vec4 material_baseColorTexture(vec2 first, vec2 second) { return vec4(1.0); }
#endif
#ifndef MATERIAL_HAS_metalness
float material_metalness() { return 0.0; }
#endif
#ifndef MATERIAL_HAS_roughness
float material_roughness() { return 0.8; }
#endif
#ifndef MATERIAL_HAS_metallicRoughnessTexture
vec4 material_metallicRoughnessTexture(vec2 first, vec2 second) { return vec4(1.0); }
#endif
#ifndef MATERIAL_HAS_normalTexture
bool material_has_normalTexture() { return false; }
vec4 material_normalTexture(vec2 place) { return vec4(0.5, 0.5, 1.0, 1.0); }
vec2 material_place_normalTexture(vec2 first, vec2 second) { return first; }
#endif
#ifndef MATERIAL_HAS_normalScale
float material_normalScale() { return 1.0; }
#endif
#ifndef MATERIAL_HAS_occlusionTexture
vec4 material_occlusionTexture(vec2 first, vec2 second) { return vec4(1.0); }
#endif
#ifndef MATERIAL_HAS_emissiveColor
vec4 material_emissiveColor() { return vec4(0.0); }
#endif
#ifndef MATERIAL_HAS_emissiveTexture
vec4 material_emissiveTexture(vec2 first, vec2 second) { return vec4(1.0); }
#endif
#ifndef MATERIAL_HAS_alphaCutoff
float material_alphaCutoff() { return 0.5; }
#endif

const float Pi = 3.14159265;

// Of the front, whichever side is seen.
vec3 frontNormal() {
    if(dot(worldNormal, worldNormal) > 1.0e-8) return normalize(worldNormal);
    vec3 towardsCamera = normalize(cross(dFdx(worldPosition), dFdy(worldPosition)));
    return gl_FrontFacing ? towardsCamera : -towardsCamera;
}

// To the right and upwards in the texture, along the surface; by the derivatives where the mesh does not say it, which it
// does for textures that lie as its own coordinates do.
mat3 tangentSpace(vec3 normal, vec2 place) {
#ifndef MATERIAL_PLACES_normalTexture
    if(dot(worldTangent.xyz, worldTangent.xyz) > 1.0e-8) {
        vec3 tangent = normalize(worldTangent.xyz - normal*dot(normal, worldTangent.xyz));
        return mat3(tangent, cross(normal, tangent)*worldTangent.w, normal);
    }
#endif
    vec3 alongX = dFdx(worldPosition), alongY = dFdy(worldPosition);
    vec2 uvX = dFdx(place), uvY = dFdy(place);
    vec3 acrossX = cross(alongY, normal), acrossY = cross(normal, alongX);
    vec3 right = acrossX*uvX.x + acrossY*uvY.x;
    vec3 up = acrossX*uvX.y + acrossY*uvY.y;
    float longest = max(dot(right, right), dot(up, up));
    if(longest <= 0.0) return mat3(vec3(0.0), vec3(0.0), normal);
    // Seen from behind, the two directions of the screen lie the other way around the normal.
    float scale = inversesqrt(longest)*sign(dot(cross(alongX, alongY), normal));
    return mat3(right*scale, up*scale, normal);
}

// What bulges out on one side is a dent on the other.
vec3 seenFrom(vec3 normal) {
#ifdef DOUBLE_SIDED
    if(!gl_FrontFacing) return -normal;
#endif
    return normal;
}

vec3 surfaceNormal(vec3 front) {
    vec3 normal = front;
    if(material_has_normalTexture()) {
        vec2 place = material_place_normalTexture(uv, secondUv);
        vec3 bump = material_normalTexture(place).xyz*2.0 - 1.0;
        bump.xy *= material_normalScale();
        normal = normalize(tangentSpace(normal, place)*bump);
    }
    return seenFrom(normal);
}

struct Surface {
    vec3 normal;
    vec3 side; // The normal without bumps
    vec3 toCamera;
    float cosine; // Of the angle between the two
    vec3 diffuse;
    vec3 specular; // Reflected straight ahead
    float roughness;
    // Of the microfacets: their spread, to the fourth power of the roughness, and how much of them the camera sees.
    float spread;
    float seen;
};

Surface surfaceOf(vec3 baseColor) {
    vec4 texel = material_metallicRoughnessTexture(uv, secondUv);
    float metalness = clamp(material_metalness()*texel.b, 0.0, 1.0);
    Surface surface;
    vec3 front = frontNormal();
    surface.normal = surfaceNormal(front);
    surface.side = seenFrom(front);
    surface.toCamera = normalize(cameraPosition - worldPosition);
    surface.cosine = max(dot(surface.normal, surface.toCamera), 1.0e-3);
    surface.diffuse = baseColor*(1.0 - metalness);
    surface.specular = mix(vec3(0.04), baseColor, metalness);
    // A perfect mirror would show a light as a point too small to be seen.
    surface.roughness = clamp(material_roughness()*texel.g, 0.045, 1.0);
    float slope = surface.roughness*surface.roughness;
    surface.spread = slope*slope;
    surface.seen = sqrt(surface.cosine*surface.cosine*(1.0 - surface.spread) + surface.spread);
    return surface;
}

// Microfacets: how many lie right (GGX), how many are seen and lit (Smith), and how much they reflect (Schlick).
vec3 reflected(Surface surface, vec3 direction) {
    float toLight = dot(surface.normal, direction);
    if(toLight <= 0.0) return vec3(0.0);
    vec3 halfway = normalize(direction + surface.toCamera);
    float aligned = max(dot(surface.normal, halfway), 0.0);

    float lit = surface.cosine*sqrt(toLight*toLight*(1.0 - surface.spread) + surface.spread);
    float visible = toLight*surface.seen + lit;
    float narrowness = aligned*aligned*(surface.spread - 1.0) + 1.0;
    float mirrored = 0.5*surface.spread/(Pi*narrowness*narrowness*visible);
    float grazing = 1.0 - max(dot(direction, halfway), 0.0);
    float square = grazing*grazing;
    vec3 fresnel = mix(surface.specular, vec3(1.0), square*square*grazing);
    return (surface.diffuse*(1.0 - fresnel)/Pi + fresnel*mirrored)*toLight;
}

// How much of an even surrounding is reflected, a fit to the integral: factor and summand of what goes straight ahead.
vec2 surroundingReflection(float roughness, float cosine) {
    vec4 fit = roughness*vec4(-1.0, -0.0275, -0.572, 0.022) + vec4(1.0, 0.0425, 1.04, -0.04);
    float share = min(fit.x*fit.x, exp2(-9.28*cosine))*fit.x + fit.y;
    return vec2(-1.04, 1.04)*share + fit.zw;
}

vec3 ambient(Surface surface) {
    vec3 mirrored = reflect(-surface.toCamera, surface.normal);
    vec3 ahead = mix(mirrored, surface.normal, surface.roughness*surface.roughness);
    vec2 share = surroundingReflection(surface.roughness, surface.cosine);
    vec3 mirror = surface.specular*share.x + share.y;
    // What is mirrored is not scattered.
    return surface.diffuse*(1.0 - mirror)*ambientLight(surface.normal) +
        mirror*surroundingLight(normalize(ahead), surface.roughness);
}

vec3 lit(Surface surface) {
    int count = lightCount();
    vec3 direction, incoming;
#ifndef HAS_ENVIRONMENT
    if(count == 0) {
        workLight(worldPosition, direction, incoming);
        return reflected(surface, direction)*incoming;
    }
#endif
    vec3 sum = vec3(0.0);
#ifdef SHADOWS
    for(int word = 0; word != wordsWithShadows(); ++word)
        for(uint bits = lightsWithShadowsHere(word); bits != 0u; bits &= bits - 1u)
            if(lightAt(word*32 + lowestBit(bits), worldPosition, surface.side, direction, incoming))
                sum += reflected(surface, direction)*incoming;
#endif
    for(int word = 0; word != lightWords(); ++word)
        for(uint bits = lightsHere(word); bits != 0u; bits &= bits - 1u)
            if(lightWithoutShadows(word*32 + lowestBit(bits), worldPosition, direction, incoming))
                sum += reflected(surface, direction)*incoming;
    return sum;
}

void main() {
    vec4 base = material_baseColor()*material_baseColorTexture(uv, secondUv)*vertexColor;
#ifdef MASK_ONLY
    if(base.a < material_alphaCutoff()) discard;
#else
    // Before anything that ends a fragment: textures and the surroundings need their neighbours.
    Surface surface = surfaceOf(base.rgb);
    vec3 emissive = material_emissiveColor().rgb*material_emissiveTexture(uv, secondUv).rgb;
    vec3 surrounding = ambient(surface)*material_occlusionTexture(uv, secondUv).r;
#ifdef ALPHA_MASK
    if(base.a < material_alphaCutoff()) discard;
#endif
    vec3 color = lit(surface) + surrounding + emissive;
#ifdef BLEND
    fragmentColor = vec4(screenColor(toneMapped(color)), base.a);
#else
    fragmentColor = vec4(screenColor(toneMapped(color)), 1.0);
#endif
#endif
}
