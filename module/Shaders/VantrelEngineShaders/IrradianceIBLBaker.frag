precision highp float;

// Turns a picture of the surroundings, longitude over latitude, into one of the light that a
// matt surface receives from them, by the direction that the surface faces.

const float PI = 3.14159265359;
// Distance of two samples in both angles, in radians.
const float STEP = 0.025;

uniform sampler2D environment;

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

// Samples the half of the sphere around the normal, ring after ring of the same distance to it.
// The rings get longer towards the horizon, but have as many samples each: the sine in the weight
// makes up for that. What remains to be done is to take the mean, and scale it by pi.
void main() {
    vec3 normal = directionOf(textureCoordinates);
    vec3 up = abs(normal.y) < 0.999 ? vec3(0.0, 1.0, 0.0) : vec3(0.0, 0.0, 1.0);
    vec3 right = normalize(cross(up, normal));
    up = cross(normal, right);

    vec3 sum = vec3(0.0);
    float count = 0.0;
    for(float phi = 0.0; phi < 2.0*PI; phi += STEP) {
        vec3 side = cos(phi)*right + sin(phi)*up;
        for(float theta = 0.0; theta < 0.5*PI; theta += STEP) {
            vec3 direction = cos(theta)*normal + sin(theta)*side;
            // Cosine of the incidence times the share of the sphere.
            float weight = 0.5*sin(2.0*theta);
            sum += textureLod(environment, coordinatesOf(direction), 0.0).rgb*weight;
            count += 1.0;
        }
    }
    fragmentColor = vec4(PI*sum/count, 1.0);
}
