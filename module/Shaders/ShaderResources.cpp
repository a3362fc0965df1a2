#include "Shaders/ShaderResources.h"

#include <Corrade/Utility/Resource.h>
#include <Magnum/GL/Context.h>

using namespace Corrade;
using namespace Magnum;

namespace VantrelEngine::Shaders {

namespace {

Containers::StringView groupName(ShaderGroup group) {
    return group == ShaderGroup::Editor ? "VantrelEditorShaders" : "VantrelEngineShaders";
}

}

GL::Version shaderVersion() { return GL::Context::current().supportedVersion({GL::Version::GL330}); }

void addShaderSource(GL::Shader& shader, ShaderGroup group, Containers::StringView file) {
    const Containers::StringView name = groupName(group);
    const bool isMissing = !Utility::Resource::hasGroup(name);
    if(isMissing) registerShaderGroup(group);
    shader.addSource(Utility::Resource{name}.getString(file));
    if(isMissing) releaseShaderGroup(group);
}

GL::Shader loadShader(GL::Shader::Type type, ShaderGroup group, Containers::StringView file) {
    GL::Shader shader{shaderVersion(), type};
    addShaderSource(shader, group, file);
    return shader;
}

}
