// The surroundings as they are seen.

in vec3 towards;

void main() {
    vec3 direction = normalize(towards);
    float level = clamp(pictureLevel(direction), 0.0, environment.w - 1.0);
    fragmentColor = vec4(screenColor(toneMapped(environmentLight(environmentPlace(direction), level))), 1.0);
}
