precision highp float;

// Turns a picture of the surroundings, longitude over latitude, into one of what a mirror of a
// given roughness shows of them, by the direction of the reflection. The surface is taken to be
// looked at along its normal, so that normal, view and reflection are one direction.

const float PI = 3.14159265359;
const uint SAMPLE_COUNT = 1024u;

uniform sampler2D environment;
// From 0, a perfect mirror, to 1.
uniform float roughness;

in vec2 textureCoordinates;
out vec4 fragmentColor;

// Left to right once around the y axis, bottom to top from -y to +y.
vec3 directionOf(vec2 coordinates) {
    float longitude = (coordinates.x - 0.5)*2.0*PI;
    float latitude = (coordinates.y - 0.5)*PI;
    return vec3(cos(longitude)*cos(latitude), sin(latitude), sin(longitude)*cos(latitude));
}

vec2 coordinatesOf(vec3 direction) {
    float longitude = atan(direction.z, direction.x);
    float latitude = asin(clamp(direction.y, -1.0, 1.0));
    return vec2(longitude/(2.0*PI), latitude/PI) + 0.5;
}

// Van der Corput sequence: the bits of the index mirrored at the binary point.
float radicalInverse(uint bits) {
    bits = bits << 16u | bits >> 16u;
    bits = (bits & 0x00ff00ffu) << 8u | (bits & 0xff00ff00u) >> 8u;
    bits = (bits & 0x0f0f0f0fu) << 4u | (bits & 0xf0f0f0f0u) >> 4u;
    bits = (bits & 0x33333333u) << 2u | (bits & 0xccccccccu) >> 2u;
    bits = (bits & 0x55555555u) << 1u | (bits & 0xaaaaaaaau) >> 1u;
    return float(bits)/4294967296.0;
}

// Spreads the points evenly over the unit square, the same ones for each pixel: no noise.
vec2 hammersley(uint index) {
    return vec2(float(index)/float(SAMPLE_COUNT), radicalInverse(index));
}

// Half vector around +z, distributed like the microfacets of GGX.
vec3 halfVector(vec2 point) {
    float alpha = roughness*roughness;
    float phi = 2.0*PI*point.x;
    float cosTheta = sqrt((1.0 - point.y)/(1.0 + (alpha*alpha - 1.0)*point.y));
    float sinTheta = sqrt(max(1.0 - cosTheta*cosTheta, 0.0));
    return vec3(cos(phi)*sinTheta, sin(phi)*sinTheta, cosTheta);
}

// Light from below the horizon is not seen. All other light counts by the cosine of its angle to
// the normal; that is not what the integral asks for, but comes closer to it than equal weights, and costs nothing. For a perfect mirror all are the same.
void main() {
    vec3 normal = directionOf(textureCoordinates);
    vec3 up = abs(normal.y) < 0.999 ? vec3(0.0, 1.0, 0.0) : vec3(0.0, 0.0, 1.0);
    vec3 right = normalize(cross(up, normal));
    up = cross(normal, right);

    vec3 sum = vec3(0.0);
    float weights = 0.0;
    for(uint i = 0u; i != SAMPLE_COUNT; ++i) {
        vec3 h = halfVector(hammersley(i));
        vec3 middle = h.x*right + h.y*up + h.z*normal;
        vec3 light = 2.0*dot(normal, middle)*middle - normal;
        float weight = dot(normal, light);
        if(weight > 0.0) {
            sum += textureLod(environment, coordinatesOf(light), 0.0).rgb*weight;
            weights += weight;
        }
    }
    fragmentColor = vec4(sum/weights, 1.0);
}
