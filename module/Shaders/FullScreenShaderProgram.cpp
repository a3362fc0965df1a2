#include "Shaders/FullScreenShaderProgram.h"

#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Vector4.h>

#include "Shaders/ShaderResources.h"

using namespace Corrade;
using namespace Magnum;

namespace VantrelEngine::Shaders {

FullScreenShaderProgram::FullScreenShaderProgram(Containers::StringView name, GL::Shader&& fragment) {
    Utility::Debug{} << "Compiling" << name;
    GL::Shader vertex = loadShader(GL::Shader::Type::Vertex, ShaderGroup::Engine, "FullscreenTriangle.vert");

    // Both are on their way before either is waited for. A view without its outline is better than none: a failure is
    // told by the library, and nothing more comes of it.
    vertex.submitCompile();
    fragment.submitCompile();
    static_cast<void>(vertex.checkCompile());
    static_cast<void>(fragment.checkCompile());
    attachShader(vertex);
    attachShader(fragment);
    static_cast<void>(link());
    setLabel(name);
    _mesh.setLabel("Full screen");

    _mesh.setCount(3);
    // Not every fragment shader has it.
    const Utility::Warning silence{nullptr};
    _viewportOffsetSizeUniform = uniformLocation("viewportOffsetSize");
}

FullScreenShaderProgram& FullScreenShaderProgram::setViewportOffsetSize(const Vector2& offset, const Vector2& size) {
    if(_viewportOffsetSizeUniform != -1)
        setUniform(_viewportOffsetSizeUniform, Vector4{offset.x(), offset.y(), size.x(), size.y()});
    return *this;
}

FullScreenShaderProgram& FullScreenShaderProgram::draw() {
    AbstractShaderProgram::draw(_mesh);
    return *this;
}

}
