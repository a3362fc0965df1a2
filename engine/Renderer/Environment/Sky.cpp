#include "Renderer/Environment/Sky.h"

#include <string>

#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/Renderer.h>

#include "Renderer/Pipelines/ShaderSources.h"

namespace VantrelEngine {

using namespace Magnum;

Sky::Sky() { _triangle.setCount(3); }

void Sky::draw(const ViewUniforms& view) {
    if(!_program) {
        std::string reason;
        _program = MeshProgram::make(skySources(), reason);
        CORRADE_ASSERT(_program, "Sky:" << reason.c_str(), );
    }
    GL::Renderer::setDepthMask(false);
    _program->setView(view).draw(_triangle);
    GL::Renderer::setDepthMask(true);
}

} // namespace VantrelEngine
