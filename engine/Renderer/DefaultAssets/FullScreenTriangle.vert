// One triangle without vertex data, over all of the screen.

out vec2 uv;

void main() {
    // -1, 3, -1 and -1, -1, 3.
    vec2 corner = vec2(float(gl_VertexID == 1), float(gl_VertexID == 2))*4.0 - 1.0;
    uv = corner*0.5 + 0.5;
    gl_Position = vec4(corner, 0.0, 1.0);
}
