#include "Renderer/Pipelines/DrawParameters.h"

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Version.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

bool hasDrawParameters() {
    if(!GL::Context::current().isExtensionSupported<GL::Extensions::ARB::shader_draw_parameters>()) return false;
    const Utility::Error noError{nullptr};
    const Utility::Warning noWarning{nullptr};
    GL::Shader shader{GL::Version::GL330, GL::Shader::Type::Vertex};
    shader.addSource(DrawParametersSource).addSource("void main() { gl_Position = vec4(float(RANGE_NUMBER)); }\n");
    return shader.compile();
}

} // namespace VantrelEngine
