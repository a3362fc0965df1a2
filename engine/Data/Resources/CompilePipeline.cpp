#include <cctype>
#include <tuple>

#include <Corrade/Containers/StringStl.h>

#include "Data/Resources/ResourceHandlers.h"
#include "Data/Resources/ShaderParameters.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

bool isIdentifier(const std::string& text) {
    for(const char c: text)
        if(!std::isalnum(static_cast<unsigned char>(c)) && c != '_') return false;
    return !text.empty() && !std::isdigit(static_cast<unsigned char>(text[0]));
}

std::vector<std::string> readFeatures(const ResourceEntry& entry) {
    std::vector<std::string> features;
    for(std::string& feature: entry.has("features") ? entry.texts("features") : std::vector<std::string>{}) {
        if(isIdentifier(feature))
            features.push_back(std::move(feature));
        else if(!feature.empty())
            entry.report("features", "has \"" + feature + "\", which a shader cannot define");
    }
    return features;
}

std::uint32_t readFlags(const ResourceEntry& entry) {
    static constexpr struct {
        const char* key;
        PipelineHeader::Flag flag;
        bool missing;
    } Flags[]{{"doubleSided", PipelineHeader::DoubleSided, false}, {"depthTest", PipelineHeader::DepthTest, true},
        {"depthWrite", PipelineHeader::DepthWrite, true}, {"blend", PipelineHeader::Blend, false},
        {"alphaMask", PipelineHeader::AlphaMask, false}};
    std::uint32_t flags = 0;
    for(const auto& flag: Flags)
        if(entry.boolean(flag.key, flag.missing)) flags |= flag.flag;
    return flags;
}

auto settings(const ScenePipeline& pipeline) {
    return std::tie(pipeline.name, pipeline.shader, pipeline.header.flags, pipeline.header.order, pipeline.features);
}

} // namespace

unsigned compilePipeline(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry) {
    ScenePipeline pipeline;
    pipeline.id = node.id;
    pipeline.name = entry.text("name");
    pipeline.shader = context.use(node, entry, ResourceKind::Shader, entry.text("shader"));
    pipeline.features = readFeatures(entry);
    pipeline.header.flags = readFlags(entry);
    pipeline.header.order = std::uint8_t(entry.number("order", 255, 0));
    pipeline.parameters = context.scene.shaders[pipeline.shader].parameters;

    ScenePipeline& known = context.scene.pipelines[node.index];
    unsigned changes = NothingChanged;
    // Materials look for their values under the name of the shader.
    if(pipeline.shader != known.shader || pipeline.parameters != known.parameters)
        changes |= ContentsChanged | DependentsChanged;
    if(settings(pipeline) != settings(known)) changes |= ContentsChanged;
    known = std::move(pipeline);
    return changes;
}

} // namespace VantrelEngine
