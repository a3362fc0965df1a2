// A picture of depths: what is near is dark.

uniform sampler2D depths;

in vec2 uv;

layout(location = 0) out vec4 fragmentColor;

void main() {
    fragmentColor = vec4(vec3(texture(depths, uv).r), 1.0);
}
