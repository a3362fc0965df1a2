// The tiles of compressed images that a pixel wants to have in video memory: none, the sky or not, as these images are
// not drawn yet.

void main() { fragmentColor = vec4(0.0); }
