#include "Renderer/Pipelines/MeshProgram.h"

#include <sstream>
#include <utility>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Version.h>

#include "Renderer/Pipelines/ShaderSources.h"
#include "Renderer/TextureUnits.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Takes what the GL prints, of which only the first line of the compiler is worth telling.
class Messages {
public:
    std::string firstOfCompiler() const {
        std::istringstream lines{_stream.str()};
        std::string line;
        // A headline comes before.
        std::getline(lines, line);
        std::getline(lines, line);
        return line;
    }

private:
    std::ostringstream _stream;
    Utility::Error _errors{&_stream};
    Utility::Warning _warnings{&_stream};
};

Containers::StringView view(const std::string& text) { return {text.data(), text.size()}; }

GL::Shader shader(
    GL::Shader::Type type, const std::string& prefix, const std::string& source, const std::string& suffix) {
    GL::Shader shader{GL::Version::GL330, type};
    for(const std::string* const piece: {&prefix, &source, &suffix}) shader.addSource(view(*piece));
    return shader;
}

bool isCompiled(GL::Shader& shader, const char* stage, std::string& reason) {
    const Messages messages;
    if(shader.checkCompile()) return true;
    reason = std::string{"the "} + stage + " shader does not compile: " + messages.firstOfCompiler();
    return false;
}

} // namespace

std::optional<MeshProgram> MeshProgram::make(const ShaderSources& sources, std::string& reason) {
    GL::Shader vertex = shader(GL::Shader::Type::Vertex, sources.vertexPrefix, sources.vertex, sources.vertexSuffix);
    GL::Shader fragment =
        shader(GL::Shader::Type::Fragment, sources.fragmentPrefix, sources.fragment, sources.fragmentSuffix);
    vertex.submitCompile();
    fragment.submitCompile();
    if(!isCompiled(vertex, "vertex", reason) || !isCompiled(fragment, "fragment", reason)) return {};

    MeshProgram program;
    program.attachShader(vertex);
    program.attachShader(fragment);
    const Messages messages;
    if(!program.link()) {
        reason = "the shaders do not go together: " + messages.firstOfCompiler();
        return {};
    }
    program.findUniforms();
    return program;
}

void MeshProgram::findUniforms() {
    // A program need not have all of them.
    _viewProjection = uniformLocation("viewProjection");
    _cameraPosition = uniformLocation("cameraPosition");
    _viewportSize = uniformLocation("viewportSize");
    _materialStride = uniformLocation("materialStride");
    _firstInstance = uniformLocation("firstInstance");
    _color = uniformLocation("oneColor");
    _environment = uniformLocation("environment");
    for(const SamplerUnit& sampler: SamplerUnits)
        if(const Int location = uniformLocation(sampler.name); location != -1) setUniform(location, sampler.unit);
}

MeshProgram& MeshProgram::setView(const ViewUniforms& view) {
    if(view.number == _viewNumber) return *this;
    _viewNumber = view.number;
    if(_viewProjection != -1) setUniform(_viewProjection, view.viewProjection);
    if(_cameraPosition != -1) setUniform(_cameraPosition, view.cameraPosition);
    if(_viewportSize != -1) setUniform(_viewportSize, view.viewportSize);
    if(_materialStride != -1) setUniform(_materialStride, view.materialStride);
    if(_environment != -1) setUniform(_environment, view.environment);
    return *this;
}

MeshProgram& MeshProgram::setFirstInstance(Int instance) {
    if(_firstInstance != -1) setUniform(_firstInstance, instance);
    return *this;
}

MeshProgram& MeshProgram::setColor(const Color4& color) {
    if(_color != -1) setUniform(_color, color);
    return *this;
}

} // namespace VantrelEngine
