// Shapes that only who works on the scene sees: filled where the colour shows at all, otherwise the colour of lines. The
// colours are the screen's own.

#ifndef MATERIAL_HAS_color
vec4 material_color() { return vec4(0.0); }
#endif
#ifndef MATERIAL_HAS_wireframeColor
vec4 material_wireframeColor() { return vec4(1.0); }
#endif

void main() {
    vec4 color = material_color();
    if(color.a <= 0.0) color = material_wireframeColor();
    fragmentColor = vec4(shownColor(color.rgb), color.a);
}
