#include <Corrade/Containers/StringStl.h>

#include "Data/Resources/ResourceHandlers.h"
#include "Data/Resources/ShaderParameters.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Containers::Literals;

namespace {

constexpr Containers::StringView StageNames[]{"mesh"_s, "text"_s, "skinning"_s};
constexpr ShaderStage Stages[]{ShaderStage::Mesh, ShaderStage::Text, ShaderStage::Skinning};

// Empty where the file cannot be had. Files of an asset that is not known here are left to who knows it.
FileLink readSource(const ResourceContext& context, const ResourceEntry& entry, const char* key) {
    const FileLink link = entry.link(key, "default").value_or(FileLink{});
    if(link.file.empty() || !context.files.resolveLink(link)) return link;
    std::string reason;
    if(context.files.read(link, MaximumShaderFileSize, reason)) return link;
    entry.report(link.file + ": " + reason);
    return {};
}

bool isSame(const FileLink& a, const FileLink& b) { return a.asset == b.asset && a.file == b.file; }

} // namespace

unsigned compileShader(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry) {
    SceneShader shader;
    shader.id = node.id;
    shader.name = entry.text("name");
    if(const auto stage = entry.choice("stage", StageNames)) shader.header.stage = Stages[*stage];
    shader.header.variant = std::uint16_t(entry.number("variant", 1, 0));
    shader.vertex = readSource(context, entry, "vertex");
    shader.fragment = readSource(context, entry, "fragment");
    shader.parameters = readParameters(entry);

    SceneShader& known = context.scene.shaders[node.index];
    unsigned changes = NothingChanged;
    if(shader.name != known.name || shader.parameters != known.parameters)
        changes |= ContentsChanged | DependentsChanged;
    if(shader.header.stage != known.header.stage || shader.header.variant != known.header.variant ||
        !isSame(shader.vertex, known.vertex) || !isSame(shader.fragment, known.fragment))
        changes |= ContentsChanged;
    known = std::move(shader);
    return changes;
}

} // namespace VantrelEngine
