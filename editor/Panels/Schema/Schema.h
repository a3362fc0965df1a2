#pragma once

#include <string_view>

#include "Panels/Schema/SchemaKey.h"

namespace VantrelEngine {

// Every key of a project that the engine knows, a row each, in the order in which they are shown.

// Of each object.
SchemaKeys objectSchema();

struct ComponentSchema {
    const char* type;
    const char* label;
    const char* tip;
    // JSON: the member "type" of a new component.
    const char* initial;
    // From the component on.
    SchemaKeys keys;
};
Corrade::Containers::ArrayView<const ComponentSchema> componentSchemas();
// Null for a type that is not built in.
const ComponentSchema* componentSchema(std::string_view type);

struct SettingsSchema {
    const char* title;
    SchemaKeys keys;
};
// Keys below "settings".
Corrade::Containers::ArrayView<const SettingsSchema> settingsSchema();

// Keys of a resource of a section ("materials"); those that a material gives to its shader are in MaterialSchema.h.
// Empty for a section without resources.
SchemaKeys resourceSchema(std::string_view section);
// Of each element of a shader's "parameters".
SchemaKeys shaderParameterSchema();

} // namespace VantrelEngine
