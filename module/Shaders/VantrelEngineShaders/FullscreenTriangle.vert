out vec2 textureCoordinates;

// Covers all the pixels
void main() {
    vec2 corner = vec2(gl_VertexID == 2 ? 3 : -1, gl_VertexID == 1 ? -3 : 1);
    textureCoordinates = corner*0.5 + 0.5;
    gl_Position = vec4(corner, 0.0, 1.0);
}
