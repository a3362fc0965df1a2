// The inside of letters.

#ifndef MATERIAL_HAS_color
vec4 material_color() { return vec4(1.0); }
#endif

void main() {
    vec4 color = material_color();
    fragmentColor = vec4(screenColor(color.rgb), color.a);
}
