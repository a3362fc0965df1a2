// The lights of the scene, what is there without any, and how light becomes a colour of the screen.
//
// A record a light: the light at a distance of 1 and how far it reaches, negative for a sun, that is everywhere; the place
// and a factor of the cosine to the axis; the axis and a summand to that.

uniform samplerBuffer lightData;

const int TexelsPerLight = 3;

int lightCount() { return int(texelFetch(lightData, 0).x); }
// They come first.
int lightsWithShadows() { return int(texelFetch(lightData, 0).y); }

// Falls with the square of the distance, and to nothing at the end of the reach.
float lightFalloff(float squaredDistance, float reach) {
    float part = squaredDistance/(reach*reach);
    float window = max(1.0 - part*part, 0.0);
    // Closer than a centimetre is as bright as there.
    return window*window/max(squaredDistance, 1.0e-4);
}

// Whether a light reaches a place; then the direction to it, and how much light comes from there on a surface across it.
bool lightWithoutShadows(int index, vec3 place, out vec3 direction, out vec3 incoming) {
    int texel = 1 + index*TexelsPerLight;
    vec4 light = texelFetch(lightData, texel);
    incoming = light.rgb;
    if(light.w < 0.0) {
        direction = -texelFetch(lightData, texel + 2).xyz;
        return true;
    }
    vec4 position = texelFetch(lightData, texel + 1);
    vec3 way = position.xyz - place;
    float squaredDistance = dot(way, way);
    direction = way*inversesqrt(max(squaredDistance, 1.0e-12));
    if(squaredDistance >= light.w*light.w) return false;
    vec4 axis = texelFetch(lightData, texel + 2);
    float cone = clamp(dot(-direction, axis.xyz)*position.w + axis.w, 0.0, 1.0);
    incoming *= cone*cone*lightFalloff(squaredDistance, light.w);
    return cone > 0.0;
}

// The same, less what stands in the light's way. The normal is that of the side of the surface that is seen, without
// bumps, of length 1; zero where it is not known, which keeps shadows farther away from what throws them.
bool lightAt(int index, vec3 place, vec3 normal, out vec3 direction, out vec3 incoming) {
    if(!lightWithoutShadows(index, place, direction, incoming)) return false;
#ifdef SHADOWS
    if(index < lightsWithShadows()) incoming *= shadowAt(index, place, normal, direction);
#endif
    return true;
}
bool lightAt(int index, vec3 place, out vec3 direction, out vec3 incoming) {
    return lightAt(index, place, vec3(0.0), direction, incoming);
}

#ifndef HAS_ENVIRONMENT
// What surrounds a scene: a ground, a bright horizon, a sky. More of it where no light was made yet.
const vec3 Ground = vec3(0.060, 0.052, 0.045);
const vec3 Horizon = vec3(0.42, 0.40, 0.37);
const vec3 Sky = vec3(0.13, 0.16, 0.21);

float surroundingFactor() { return lightCount() == 0 ? 1.6 : 1.0; }

// How much of it falls onto a surface with this normal.
vec3 ambientLight(vec3 normal) { return mix(Ground, Sky, 0.5*normal.y + 0.5)*surroundingFactor(); }

// How much of it comes from about this direction; a rougher surface sees more of it at once.
vec3 surroundingLight(vec3 direction, float roughness) {
    float blur = 0.05 + roughness;
    float above = smoothstep(-blur, blur, direction.y);
    vec3 upper = mix(Horizon, 1.5*Sky, smoothstep(0.0, 0.4 + blur, direction.y));
    return mix(mix(Ground, upper, above)*surroundingFactor(), ambientLight(direction), roughness*roughness);
}
#endif

// Where no light was made yet: one that stands behind the camera, above its left shoulder.
void workLight(vec3 place, out vec3 direction, out vec3 incoming) {
    vec3 toCamera = normalize(cameraPosition - place);
    vec3 left = cross(toCamera, vec3(0.0, 1.0, 0.0));
    direction = normalize(toCamera + vec3(0.0, 0.7, 0.0) + 0.7*left);
    incoming = vec3(2.0, 1.94, 1.82);
}

// Keeps colours as they are up to a shoulder, and brings what is brighter below 1, whiter the brighter it is.
vec3 toneMapped(vec3 color) {
    const float Shoulder = 0.6;
    const float Rest = 1.0 - Shoulder;
    float peak = max(color.r, max(color.g, color.b));
    if(peak <= Shoulder) return color;
    float mapped = 1.0 - Rest*Rest/(peak - Shoulder + Rest);
    float whiteness = 1.0 - 1.0/(0.12*(peak - mapped) + 1.0);
    return mix(color*(mapped/peak), vec3(mapped), whiteness);
}

// From linear values to those of the screen.
vec3 screenColor(vec3 color) {
    vec3 clamped = clamp(color, 0.0, 1.0);
    vec3 curve = 1.055*pow(clamped, vec3(1.0/2.4)) - 0.055;
    return mix(curve, clamped*12.92, lessThanEqual(clamped, vec3(0.0031308)));
}
