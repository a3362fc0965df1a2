#include "Magnum/Shaders/VertexColorGL.h"

namespace Magnum::Shaders {

namespace {

constexpr const char* VertexSource = R"(
uniform mat4 transformationProjectionMatrix;
layout(location = 0) in vec4 position;
layout(location = 2) in vec4 color;
out vec4 interpolatedColor;

void main() {
    gl_Position = transformationProjectionMatrix*position;
    interpolatedColor = color;
}
)";

constexpr const char* FragmentSource = R"(
in vec4 interpolatedColor;
layout(location = 0) out vec4 fragmentColor;
void main() { fragmentColor = interpolatedColor; }
)";

}

VertexColorGL3D::VertexColorGL3D() {
    build({}, VertexSource, FragmentSource);
    _transformationProjectionMatrix = initialized("transformationProjectionMatrix", Matrix4{});
}

}
