// Meshes of the scene, where their objects stand.

out vec3 worldPosition;
// Zero where the mesh has none: the fragment shader then finds its own.
out vec3 worldNormal;
out vec4 worldTangent;
out vec2 uv;
out vec2 secondUv;
out vec4 vertexColor;
flat out uint material;
flat out uint object;

void main() {
    vec4 place = objectTransformation()*vec4(position, 1.0);
    worldPosition = place.xyz;
#ifdef LAYOUT_NORMAL
    worldNormal = objectNormalTransformation()*normal;
#else
    worldNormal = vec3(0.0);
#endif
#ifdef LAYOUT_TANGENT
    mat3 directions = mat3(objectTransformation());
    // A mirrored object mirrors the side, too.
    worldTangent = vec4(directions*tangent.xyz, determinant(directions) < 0.0 ? -tangent.w : tangent.w);
#else
    worldTangent = vec4(0.0);
#endif
    uv = textureCoordinates;
    secondUv = secondTextureCoordinates;
    vertexColor = color;
    material = materialIndex();
    object = objectIndex();
    gl_Position = viewProjection*place;
}
