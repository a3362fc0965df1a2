// The surroundings behind everything: a triangle over all of the screen, as far away as can be.

out vec3 towards;

void main() {
    vec2 corner = vec2(float(gl_VertexID == 1), float(gl_VertexID == 2))*4.0 - 1.0;
    mat4 toScene = inverse(viewProjection);
    // Also right where the far plane is infinitely far away, and where all directions are the same.
    vec4 near = toScene*vec4(corner, -1.0, 1.0), far = toScene*vec4(corner, 1.0, 1.0);
    towards = far.xyz*near.w - near.xyz*far.w;
    gl_Position = vec4(corner, 1.0, 1.0);
}
