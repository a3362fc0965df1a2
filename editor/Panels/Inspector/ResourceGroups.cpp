#include <cstdio>

#include <Vantrel/EditorData/EditorData.h>

#include "Panels/Inspector/InspectedGroups.h"
#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Schema/MaterialSchema.h"
#include "Panels/Schema/Schema.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

using Facts = std::vector<std::pair<std::string, std::string>>;

std::string pointerOf(const InspectedResource& resource) {
    return '/' + resource.kind + '/' + escapedToken(resource.id);
}

std::string titleOf(std::string_view section) {
    // Without the plural.
    if(section == "meshes") return "Mesh";
    std::string title{section.substr(0, section.size() - 1)};
    title.front() = char(title.front() - 'a' + 'A');
    return title;
}

InspectedGroup elementGroup(const std::string& base, const JsonValue& array, rapidjson::SizeType index) {
    InspectedGroup group{InspectedGroup::Kind::Element, "Parameter " + std::to_string(index + 1),
        {base + "/parameters/" + std::to_string(index)}, {&array[index]}};
    group.addKeys(shaderParameterSchema());
    group.addUnknownKeys();
    return group;
}

std::string sizeText(const Vector2i& size) { return std::to_string(size.x()) + " × " + std::to_string(size.y()); }

std::string sizeText(const Vector3& size) {
    char text[64];
    std::snprintf(text, sizeof text, "%.4g × %.4g × %.4g", double(size.x()), double(size.y()), double(size.z()));
    return text;
}

void addMeshFacts(const SceneMesh& mesh, Facts& facts) {
    if(mesh.isPlaceholder) facts.emplace_back("State", "its file cannot be used, a cube stands in for it");
    facts.emplace_back("Vertices", std::to_string(mesh.data->vertexCount()));
    if(mesh.data->isIndexed()) facts.emplace_back("Triangles", std::to_string(mesh.data->indexCount() / 3));
    facts.emplace_back("Size", sizeText(mesh.bounds.size()));
}

void addFacts(const SceneResources& scene, ResourceKind kind, Id index, Facts& facts) {
    switch(kind) {
    case ResourceKind::Image: {
        const SceneImage& image = scene.images[index];
        facts.emplace_back("Pixels", sizeText(image.header.size));
        if(image.pixels && image.pixels->pixelSize() == 16) facts.emplace_back("Range", "high");
        return;
    }
    case ResourceKind::Mesh: return addMeshFacts(scene.meshes[index], facts);
    case ResourceKind::Skin:
        return facts.emplace_back("Joints", std::to_string(scene.skins[index].joints.size())), void();
    case ResourceKind::Animation: {
        const Trade::AnimationData& data = *scene.animations[index].data;
        char text[32];
        std::snprintf(text, sizeof text, "%.3g s", double(data.duration().size()));
        facts.emplace_back("Duration", text);
        facts.emplace_back("Tracks", std::to_string(data.trackCount()));
        return;
    }
    case ResourceKind::Font: return facts.emplace_back("Bytes", std::to_string(scene.fonts[index].data.size())), void();
    case ResourceKind::Texture:
    case ResourceKind::Shader:
    case ResourceKind::Pipeline:
    case ResourceKind::Material: return;
    }
}

} // namespace

std::vector<InspectedGroup> resourceGroups(const ProjectFile& file, const InspectedResource& resource) {
    std::vector<InspectedGroup> groups;
    const SchemaKeys keys = resourceSchema(resource.kind);
    const JsonValue* const value =
        file.member({resource.kind.data(), resource.kind.size()}, {resource.id.data(), resource.id.size()});
    if(keys.isEmpty() || !value) return groups;
    const std::string base = pointerOf(resource);
    InspectedGroup& group = groups.emplace_back(InspectedGroup::Kind::Resource, titleOf(resource.kind),
        std::vector<std::string>{base}, std::vector<const JsonValue*>{value});
    group.type = resource.kind;
    group.addKeys(keys);
    if(resource.kind == "materials") group.addMaterialKeys(MaterialSchema{file, resource.id});
    group.addUnknownKeys();
    const JsonValue* const parameters = resource.kind == "shaders" ? valueBelow(value, "parameters") : nullptr;
    for(rapidjson::SizeType i = 0; parameters && parameters->IsArray() && i != parameters->Size(); ++i)
        groups.push_back(elementGroup(base, *parameters, i));
    return groups;
}

std::vector<std::pair<std::string, std::string>> resourceFacts(EditorData& data, const InspectedResource& resource) {
    Facts facts;
    facts.emplace_back("Id", resource.id);
    const std::size_t kind = resourceKindOf({resource.kind.data(), resource.kind.size()});
    if(kind == ResourceKindCount) return facts;
    const ResourceNode* const node =
        data.scene().resourceMaps().find(ResourceKind(kind), {resource.id.data(), resource.id.size()});
    facts.emplace_back("Used by", std::to_string(node ? node->userCount() : 0));
    if(node && node->index) addFacts(data.scene().resources(), ResourceKind(kind), node->index, facts);
    return facts;
}

std::vector<InspectedGroup> settingsGroups(const ProjectFile& file) {
    std::vector<InspectedGroup> groups;
    const JsonValue* const value = file.section("settings");
    for(const SettingsSchema& schema: settingsSchema()) {
        InspectedGroup& group = groups.emplace_back(InspectedGroup::Kind::Settings, schema.title,
            std::vector<std::string>{"/settings"}, std::vector<const JsonValue*>{value});
        group.addKeys(schema.keys);
        group.type = schema.title;
    }
    if(!value) return groups;
    InspectedGroup others{InspectedGroup::Kind::Settings, "Others", {"/settings"}, {value}};
    std::vector<const char*> known;
    for(const SettingsSchema& schema: settingsSchema())
        for(const SchemaKey& key: schema.keys) known.push_back(key.key);
    others.addUnknownKeys(known);
    if(!others.rows.empty()) groups.push_back(std::move(others));
    return groups;
}

} // namespace VantrelEngine
