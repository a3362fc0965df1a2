#include "Renderer/PostProcess/OverdrawProgram.h"

#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/Shader.h>

#include "Shaders/ShaderResources.h"

namespace VantrelEngine {

using namespace Magnum;

OverdrawProgram::OverdrawProgram() {
    using Shaders::ShaderGroup;
    GL::Shader vertex = Shaders::loadShader(GL::Shader::Type::Vertex, ShaderGroup::Engine, "FullscreenTriangle.vert");
    GL::Shader fragment = Shaders::loadShader(GL::Shader::Type::Fragment, ShaderGroup::Engine, "Overdraw.frag");
    CORRADE_INTERNAL_ASSERT_OUTPUT(vertex.compile() && fragment.compile());
    attachShader(vertex);
    attachShader(fragment);
    CORRADE_INTERNAL_ASSERT_OUTPUT(link());
    _colorUniform = uniformLocation("color");
    setLabel("Overdraw");
    _triangle.setCount(3).setLabel("Overdraw");
}

OverdrawProgram& OverdrawProgram::setColor(const Color4& color) {
    setUniform(_colorUniform, color);
    return *this;
}

} // namespace VantrelEngine
