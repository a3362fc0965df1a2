#include <algorithm>

#include <Corrade/Containers/StringStl.h>

#include "Data/Resources/ResourceHandlers.h"
#include "Data/Resources/ShaderParameters.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

void readValues(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry, SceneMaterial& material) {
    const ScenePipeline& pipeline = context.scene.pipelines[material.pipeline];
    const SceneShader& shader = context.scene.shaders[pipeline.shader];
    // The name of the shader is where the values stand.
    context.use(node, entry, ResourceKind::Shader, shader.id);
    const ResourceEntry values = entry.member(shader.name);
    for(const ShaderParameter& parameter: pipeline.parameters) {
        const bool isTexture = parameter.type == ParameterType::Texture;
        material.textures.push_back(
            isTexture ? context.use(node, entry, ResourceKind::Texture, values.text(parameter.name, "")) : Id{0});
        material.values.push_back(
            isTexture ? Vector4{0.0f} : readParameterValue(values, parameter.name, parameter.type, parameter.initial));
    }
}

bool isSame(const std::vector<Vector4>& a, const std::vector<Vector4>& b) {
    // Not with the tolerance of vectors.
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
        [](const Vector4& x, const Vector4& y) { return std::equal(x.data(), x.data() + 4, y.data()); });
}

} // namespace

unsigned compileMaterial(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry) {
    SceneMaterial material;
    material.id = node.id;
    material.name = entry.text("name");
    material.pipeline = context.use(node, entry, ResourceKind::Pipeline, entry.text("pipeline"));
    if(context.scene.pipelines[material.pipeline].shader) readValues(context, node, entry, material);

    SceneMaterial& known = context.scene.materials[node.index];
    unsigned changes = NothingChanged;
    if(material.pipeline != known.pipeline) changes |= ContentsChanged | BindingChanged;
    if(!isSame(material.values, known.values) || material.textures != known.textures) changes |= ContentsChanged;
    known = std::move(material);
    return changes;
}

} // namespace VantrelEngine
