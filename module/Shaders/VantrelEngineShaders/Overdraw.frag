uniform vec4 viewportOffsetSize;
uniform vec4 color;

out vec4 outColor;

void main() {
    outColor = color; // Blending counts them
}
