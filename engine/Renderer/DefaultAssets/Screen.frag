// A picture whose tones are mapped, still linear, over what was there before the scene. To be blended with the factors
// one and one minus alpha.

// The picture, and in the alpha of the scene how much of each pixel is covered.
uniform sampler2D picture;
uniform sampler2D scene;

layout(location = 0) out vec4 fragmentColor;

void main() {
    ivec2 pixel = ivec2(gl_FragCoord.xy);
    vec3 linear = clamp(texelFetch(picture, pixel, 0).rgb, 0.0, 1.0);
    vec3 curve = 1.055*pow(linear, vec3(1.0/2.4)) - 0.055;
    vec3 color = mix(curve, linear*12.92, lessThanEqual(linear, vec3(0.0031308)));

    // Where nothing of the scene is, its glow adds to the background, which shines through the less the brighter it is.
    float seen = 1.0 - texelFetch(scene, pixel, 0).a;
    fragmentColor = vec4(color, 1.0 - seen*(1.0 - max(color.r, max(color.g, color.b))));
}
