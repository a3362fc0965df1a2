#include "Panels/Schema/MaterialSchema.h"

#include <cctype>

#include <Vantrel/EngineData/ProjectFile.h>

#include "Panels/Inspector/JsonPlace.h"

namespace VantrelEngine {

namespace {

const JsonValue* memberOf(const JsonValue* object, const char* key) {
    if(!object || !object->IsObject()) return nullptr;
    const auto member = object->FindMember(key);
    return member == object->MemberEnd() ? nullptr : &member->value;
}

std::string textOf(const JsonValue* value) {
    return value && value->IsString() ? std::string{value->GetString(), value->GetStringLength()} : std::string{};
}

const JsonValue* resource(const ProjectFile& file, const char* section, std::string_view id) {
    return id.empty() ? nullptr : file.member(section, {id.data(), id.size()});
}

// "baseColorTexture" -> "Base color texture".
std::string labelOf(const std::string& name) {
    std::string label;
    for(const char c: name) {
        if(std::isupper(static_cast<unsigned char>(c)) && !label.empty()) label += ' ';
        label += label.empty() ? char(std::toupper(static_cast<unsigned char>(c)))
                               : char(std::tolower(static_cast<unsigned char>(c)));
    }
    return label;
}

} // namespace

MaterialSchema::MaterialSchema(const ProjectFile& file, std::string_view material) {
    const std::string pipeline = textOf(memberOf(resource(file, "materials", material), "pipeline"));
    const std::string shaderId = textOf(memberOf(resource(file, "pipelines", pipeline), "shader"));
    const JsonValue* const shader = resource(file, "shaders", shaderId);
    _shader = textOf(memberOf(shader, "name"));
    if(_shader.empty()) return;
    if(textOf(memberOf(shader, "stage")) == "text")
        _keys.push_back(SchemaKey{
            keep(escapedToken(_shader) + "/font"), "Font", KeyKind::Reference, R"("")", "Whose letters are drawn."}
                            .from("fonts"));
    const JsonValue* const parameters = memberOf(shader, "parameters");
    if(!parameters || !parameters->IsArray()) return;
    for(const JsonValue& parameter: parameters->GetArray()) addParameter(parameter);
}

void MaterialSchema::addParameter(const JsonValue& parameter) {
    const std::string name = textOf(memberOf(&parameter, "name")), type = textOf(memberOf(&parameter, "type"));
    if(name.empty()) return;
    const char* const key = keep(escapedToken(_shader) + '/' + escapedToken(name));
    for(const SchemaKey& known: _keys)
        if(std::string_view{known.key} == key) return;
    const char* const label = keep(labelOf(name));
    const JsonValue* const initial = memberOf(&parameter, "default");
    const auto initialOr = [&](bool isUsable, const char* other) {
        return isUsable ? keep(jsonText(*initial)) : other;
    };
    if(type == "texture")
        _keys.push_back(SchemaKey{key, label, KeyKind::Reference, R"("")", ""}.from("textures"));
    else if(type == "float")
        _keys.push_back({key, label, KeyKind::Number, initialOr(initial && initial->IsNumber(), "0"), ""});
    else if(type == "color" || type == "vector") {
        const bool isUsable = initial && initial->IsArray() && (initial->Size() == 3 || initial->Size() == 4);
        const SchemaKey row{key, label, type == "color" ? KeyKind::Color : KeyKind::Vector,
            initialOr(isUsable, "[0, 0, 0, 1]"), type == "color" ? "Linear." : ""};
        _keys.push_back(row.of(4));
    }
}

} // namespace VantrelEngine
