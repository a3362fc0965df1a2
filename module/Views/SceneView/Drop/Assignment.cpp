#include "Views/SceneView/Drop/Assignment.h"

#include <algorithm>

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EngineData/ProjectFile.h>

#include "ChangeManager.h"
#include "Utils/PointerToken.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

const JsonValue* memberOf(const JsonValue* object, Containers::StringView key) {
    if(!object || !object->IsObject()) return nullptr;
    const auto found = object->FindMember(JsonValue{rapidjson::StringRef(key.data(), rapidjson::SizeType(key.size()))});
    return found == object->MemberEnd() ? nullptr : &found->value;
}

// Empty where there is no such text.
Containers::StringView textOf(const JsonValue* object, const char* key) {
    const JsonValue* const text = memberOf(object, key);
    return text && text->IsString() ? Containers::StringView{text->GetString(), text->GetStringLength()}
                                    : Containers::StringView{};
}

// Positions of the components of a type; those that are no objects have none.
std::vector<rapidjson::SizeType> componentsOf(
    const ProjectFile& project, Containers::StringView object, Containers::StringView type) {
    std::vector<rapidjson::SizeType> positions;
    const JsonValue* const components = memberOf(project.member("objects", object), "components");
    if(!components || !components->IsArray()) return positions;
    for(rapidjson::SizeType i = 0; i != components->Size(); ++i)
        if(textOf(&(*components)[i], "type") == type) positions.push_back(i);
    return positions;
}

const JsonValue* meshMember(const ProjectFile& project, Containers::StringView object, rapidjson::SizeType position) {
    return memberOf(&(*memberOf(project.member("objects", object), "components"))[position], "mesh");
}

JsonValue textValue(Containers::StringView text, ProjectFile& project) {
    return JsonValue{text.data(), rapidjson::SizeType(text.size()), project.allocator()};
}

// Null for a pipeline that is not compiled or takes none.
const ShaderParameter* firstTexture(EditorData& data, Containers::StringView pipeline) {
    const ResourceNode* const node = data.scene().resourceMaps().find(ResourceKind::Pipeline, pipeline);
    if(!node || !node->index) return nullptr;
    const std::vector<ShaderParameter>& parameters = data.scene().resources().pipelines[node->index].parameters;
    const auto found = std::find_if(parameters.begin(), parameters.end(),
        [](const ShaderParameter& parameter) { return parameter.type == ParameterType::Texture; });
    return found == parameters.end() ? nullptr : &*found;
}

// Where a material has its first texture; empty where its pipeline takes none.
std::string texturePlace(EditorData& data, Containers::StringView material) {
    const ProjectFile& project = data.project();
    const JsonValue* const entry = project.member("materials", material);
    const Containers::StringView pipeline = textOf(entry, "pipeline");
    const ShaderParameter* const parameter = pipeline.isEmpty() ? nullptr : firstTexture(data, pipeline);
    if(!parameter) return {};
    const Containers::StringView shader = textOf(project.member("pipelines", pipeline), "shader");
    const Containers::StringView name = textOf(project.member("shaders", shader), "name");
    const JsonValue* const values = memberOf(entry, name);
    // What is no object takes no value.
    if(values && !values->IsObject()) return {};
    return "/materials/" + pointerToken(material) + '/' + pointerToken(name) + '/' +
        pointerToken({parameter->name.data(), parameter->name.size()});
}

}

bool hasComponent(const ProjectFile& project, Containers::StringView object, Containers::StringView type) {
    return !componentsOf(project, object, type).empty();
}

bool assignMaterial(
    ProjectFile& project, ChangeManager& changes, Containers::StringView object, Containers::StringView material) {
    const std::int32_t before = changes.lastChange();
    const std::string components = "/objects/" + pointerToken(object) + "/components/";
    changes.beginGroup();
    for(const rapidjson::SizeType i: componentsOf(project, object, "mesh")) {
        const JsonValue* const mesh = meshMember(project, object, i);
        if(mesh && !mesh->IsObject()) continue;
        const std::string path = components + std::to_string(i) + "/mesh/material";
        changes.recordWithParents({path.data(), path.size()}, textValue(material, project), false);
    }
    changes.commit();
    /* Kept: also where there were some. */
    Utility::Error{} << "Cannot set material on object without mesh component!";
    return changes.lastChange() != before;
}

std::vector<std::string> texturePlaces(EditorData& data, Containers::StringView object) {
    std::vector<std::string> places;
    for(const rapidjson::SizeType i: componentsOf(data.project(), object, "mesh")) {
        const Containers::StringView material = textOf(meshMember(data.project(), object, i), "material");
        std::string place = material.isEmpty() ? std::string{} : texturePlace(data, material);
        if(!place.empty()) places.push_back(std::move(place));
    }
    return places;
}

bool assignTexture(
    EditorData& data, ChangeManager& changes, Containers::StringView object, Containers::StringView texture) {
    const std::int32_t before = changes.lastChange();
    changes.beginGroup();
    for(const std::string& place: texturePlaces(data, object))
        changes.recordWithParents({place.data(), place.size()}, textValue(texture, data.project()), false);
    changes.commit();
    return changes.lastChange() != before;
}

} // namespace VantrelEngine
