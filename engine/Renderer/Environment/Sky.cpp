#include "Renderer/Environment/Sky.h"

#include <string>

#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/Renderer.h>

#include "Renderer/Pipelines/ShaderSources.h"

namespace VantrelEngine {

using namespace Magnum;

Sky::Sky() { _triangle.setCount(3); }

void Sky::draw(const ViewUniforms& view, bool isLinear) {
    std::optional<MeshProgram>& program = _programs[isLinear];
    if(!program) {
        std::string reason;
        program = MeshProgram::make(skySources(isLinear), reason);
        CORRADE_ASSERT(program, "Sky:" << reason.c_str(), );
    }
    GL::Renderer::setDepthMask(false);
    program->setView(view).draw(_triangle);
    GL::Renderer::setDepthMask(true);
}

} // namespace VantrelEngine
