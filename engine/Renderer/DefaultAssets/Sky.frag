// The surroundings as they are seen.

in vec3 towards;

void main() {
    vec3 direction = normalize(towards);
    // One level does: the sky is seldom seen so small that more than the finest one is.
    float level = clamp(floor(pictureLevel(direction) + 0.5), 0.0, environment.w - 1.0);
    vec3 light = environmentTexel(surroundings, environmentPlace(direction), level)*environment.z;
    fragmentColor = vec4(screenColor(toneMapped(light)), 1.0);
}
