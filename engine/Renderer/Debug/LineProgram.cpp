#include "Renderer/Debug/LineProgram.h"

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Version.h>

namespace VantrelEngine {

using namespace Magnum;

LineProgram::LineProgram() {
    GL::Shader vertex{GL::Version::GL330, GL::Shader::Type::Vertex};
    vertex.addSource("layout(location = 0) in vec3 position;\n"
                     "layout(location = 8) in mat4 transformation;\n"
                     "uniform mat4 viewProjection;\n"
                     "void main() { gl_Position = viewProjection*(transformation*vec4(position, 1.0)); }\n");
    GL::Shader fragment{GL::Version::GL330, GL::Shader::Type::Fragment};
    fragment.addSource("uniform vec4 color;\n"
                       "out vec4 fragmentColor;\n"
                       "void main() { fragmentColor = color; }\n");
    CORRADE_INTERNAL_ASSERT_OUTPUT(vertex.compile() && fragment.compile());
    attachShader(vertex);
    attachShader(fragment);
    CORRADE_INTERNAL_ASSERT_OUTPUT(link());
    setLabel("Collider lines");
    _viewProjection = uniformLocation("viewProjection");
    _color = uniformLocation("color");
}

LineProgram& LineProgram::setViewProjection(const Matrix4& matrix) {
    setUniform(_viewProjection, matrix);
    return *this;
}

LineProgram& LineProgram::setColor(const Color4& color) {
    setUniform(_color, color);
    return *this;
}

} // namespace VantrelEngine
