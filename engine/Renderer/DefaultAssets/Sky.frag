// The surroundings as they are seen.

in vec3 towards;

void main() {
    vec3 direction = normalize(towards);
    // Radians, and texels, from pixel to pixel.
    float angle = max(length(dFdx(direction)), length(dFdy(direction)));
    float texels = angle*0.159154943*float(textureSize(surroundings, 0).x);
    float level = clamp(log2(max(texels, 1.0e-6)), 0.0, environment.w - 1.0);
    fragmentColor = vec4(screenColor(toneMapped(environmentLight(environmentPlace(direction), level))), 1.0);
}
