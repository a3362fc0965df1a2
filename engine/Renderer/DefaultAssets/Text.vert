// Letters, flat in the space of their object.

out vec2 uv;
flat out uint material;
flat out uint object;

void main() {
    uv = textureCoordinates;
    material = materialIndex();
    object = objectIndex();
    gl_Position = viewProjection*(objectTransformation()*vec4(position, 1.0));
}
