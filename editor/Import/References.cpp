#include "Import/References.h"

namespace VantrelEngine {

namespace {

using References = std::vector<Reference>;

void addText(JsonValue& object, const char* key, const char* section, References& references) {
    JsonValue* const id = memberOf(object, key);
    if(id && id->IsString() && id->GetStringLength()) references.push_back({section, id});
}

void addTexts(JsonValue& object, const char* key, const char* section, References& references) {
    JsonValue* const ids = memberOf(object, key);
    if(!ids || !ids->IsArray()) return;
    for(JsonValue& id: ids->GetArray())
        if(id.IsString() && id.GetStringLength()) references.push_back({section, &id});
}

// A reference of a component: in the member of the component's type, or in a member of that.
struct ComponentReference {
    const char* type;
    const char* inner;
    const char* key;
    const char* section;
};

constexpr ComponentReference ComponentReferences[]{{"mesh", nullptr, "mesh", "meshes"},
    {"mesh", nullptr, "material", "materials"}, {"mesh", nullptr, "skin", "skins"},
    {"text", nullptr, "material", "materials"}, {"animation", nullptr, "animation", "animations"},
    {"physx", "convexMesh", "mesh", "meshes"}, {"physx", "triangleMesh", "mesh", "meshes"}};

void addComponent(JsonValue& component, References& references) {
    const std::string type = textMember(component, "type");
    for(const ComponentReference& reference: ComponentReferences) {
        if(type != reference.type) continue;
        JsonValue* values = memberOf(component, reference.type);
        if(values && reference.inner) values = memberOf(*values, reference.inner);
        if(values) addText(*values, reference.key, reference.section, references);
    }
}

void addObject(JsonValue& object, References& references) {
    addText(object, "parent", "objects", references);
    addText(object, "skin", "skins", references);
    JsonValue* const components = memberOf(object, "components");
    if(!components || !components->IsArray()) return;
    for(JsonValue& component: components->GetArray()) addComponent(component, references);
}

void addMaterial(const JsonValue& document, JsonValue& material, References& references) {
    const MaterialValues values = valuesOfMaterial(document, material);
    const JsonValue* const parameters = values.values ? memberOf(*values.shader, "parameters") : nullptr;
    if(parameters && parameters->IsArray())
        for(const JsonValue& parameter: parameters->GetArray())
            if(textMember(parameter, "type") == "texture")
                addText(*values.values, textMember(parameter, "name").data(), "textures", references);
    addText(material, "pipeline", "pipelines", references);
}

} // namespace

const JsonValue* memberOf(const JsonValue& object, const char* name) {
    if(!object.IsObject()) return nullptr;
    const auto found = object.FindMember(name);
    return found == object.MemberEnd() ? nullptr : &found->value;
}

JsonValue* memberOf(JsonValue& object, const char* name) {
    return const_cast<JsonValue*>(memberOf(const_cast<const JsonValue&>(object), name));
}

std::string textOf(const JsonValue& text) {
    return text.IsString() ? std::string{text.GetString(), text.GetStringLength()} : std::string{};
}

std::string textMember(const JsonValue& object, const char* name) {
    const JsonValue* const text = memberOf(object, name);
    return text ? textOf(*text) : std::string{};
}

const JsonValue* entryOf(const JsonValue& document, const char* section, const JsonValue& id) {
    const JsonValue* const entries = memberOf(document, section);
    if(!entries || !entries->IsObject() || !id.IsString()) return nullptr;
    const auto found = entries->FindMember(id);
    return found == entries->MemberEnd() ? nullptr : &found->value;
}

MaterialValues valuesOfMaterial(const JsonValue& document, JsonValue& material) {
    const JsonValue* const pipelineId = memberOf(material, "pipeline");
    const JsonValue* const pipeline = pipelineId ? entryOf(document, "pipelines", *pipelineId) : nullptr;
    const JsonValue* const shaderId = pipeline ? memberOf(*pipeline, "shader") : nullptr;
    const JsonValue* const shader = shaderId ? entryOf(document, "shaders", *shaderId) : nullptr;
    if(!shader || !material.IsObject()) return {};
    const auto member = material.FindMember(textMember(*shader, "name").data());
    if(member == material.MemberEnd() || !member->value.IsObject()) return {};
    return {&member->name, &member->value, shader, textOf(*shaderId)};
}

std::vector<Reference> referencesOf(const JsonValue& document, const std::string& section, JsonValue& entry) {
    References references;
    if(section == "textures") addText(entry, "image", "images", references);
    if(section == "pipelines") addText(entry, "shader", "shaders", references);
    if(section == "materials") addMaterial(document, entry, references);
    if(section == "objects") addObject(entry, references);
    if(section == "skins") addTexts(entry, "joints", "objects", references);
    if(section == "animations") addTexts(entry, "targets", "objects", references);
    return references;
}

} // namespace VantrelEngine
