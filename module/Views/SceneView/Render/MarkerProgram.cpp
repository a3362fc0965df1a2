#include "Views/SceneView/Render/MarkerProgram.h"

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Version.h>

namespace VantrelEngine {

using namespace Magnum;

MarkerProgram::MarkerProgram() {
    GL::Shader vertex{GL::Version::GL330, GL::Shader::Type::Vertex};
    vertex.addSource("layout(location = 0) in vec3 position;\n"
                     "layout(location = 2) in vec4 color;\n"
                     "layout(location = 3) in vec4 idColor;\n"
                     "layout(location = 8) in mat4 transformation;\n"
                     "uniform bool showsIds;\n"
                     "flat out vec4 markerColor;\n"
                     "void main() {\n"
                     "    gl_Position = transformation*vec4(position, 1.0);\n"
                     "    markerColor = showsIds ? idColor : color;\n"
                     "}\n");
    GL::Shader fragment{GL::Version::GL330, GL::Shader::Type::Fragment};
    fragment.addSource("flat in vec4 markerColor;\n"
                       "out vec4 fragmentColor;\n"
                       "void main() { fragmentColor = markerColor; }\n");
    CORRADE_INTERNAL_ASSERT_OUTPUT(vertex.compile() && fragment.compile());
    attachShader(vertex);
    attachShader(fragment);
    CORRADE_INTERNAL_ASSERT_OUTPUT(link());
    setLabel("SceneView markers");
    _showsIds = uniformLocation("showsIds");
}

MarkerProgram& MarkerProgram::setShowsIds(bool showsIds) {
    setUniform(_showsIds, Int{showsIds});
    return *this;
}

} // namespace VantrelEngine
