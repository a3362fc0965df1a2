#pragma once

#include <string>
#include <vector>

#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

// A text of an imported resource or object that is the id of another one. It may be replaced.
struct Reference {
    const char* section;
    JsonValue* id;
};

// Each text of an entry that refers to another entry, "" excepted. document is the import that the entry is of: its
// pipelines and shaders tell which values of a material are textures.
std::vector<Reference> referencesOf(const JsonValue& document, const std::string& section, JsonValue& entry);

// The values that a material gives to its shader, and the member's name: that of the shader. Null where there are none.
struct MaterialValues {
    JsonValue* name = nullptr;
    JsonValue* values = nullptr;
    const JsonValue* shader = nullptr;
    std::string shaderId;
};
// document has the material's pipeline and its shader.
MaterialValues valuesOfMaterial(const JsonValue& document, JsonValue& material);

// Members by name; null for what is missing or not of that type.
const JsonValue* memberOf(const JsonValue& object, const char* name);
JsonValue* memberOf(JsonValue& object, const char* name);
const JsonValue* entryOf(const JsonValue& document, const char* section, const JsonValue& id);
std::string textOf(const JsonValue& text);
// Empty where there is no such text.
std::string textMember(const JsonValue& object, const char* name);

} // namespace VantrelEngine
