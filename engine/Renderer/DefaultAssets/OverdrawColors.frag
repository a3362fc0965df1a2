// How often each pixel was drawn, as a colour: green for once, over yellow for five times, to red for ten times and more.

uniform sampler2D counts;

layout(location = 0) out vec4 fragmentColor;

const vec3 Few = vec3(39.0, 174.0, 96.0)/255.0;
const vec3 Several = vec3(1.0, 1.0, 0.0);
const vec3 Many = vec3(1.0, 0.0, 0.0);

void main() {
    float count = texelFetch(counts, ivec2(gl_FragCoord.xy), 0).r;
    vec3 color = mix(mix(Few, Several, min(count/5.0, 1.0)), Many, clamp(count/5.0 - 1.0, 0.0, 1.0));
    // The edge of what was drawn once.
    fragmentColor = vec4(color, min(count, 1.0));
}
