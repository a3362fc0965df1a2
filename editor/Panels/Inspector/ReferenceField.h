#pragma once

#include <optional>
#include <string>

#include "Panels/Inspector/CommonValue.h"
#include "Panels/Inspector/FieldContext.h"
#include "Panels/Inspector/FieldEdit.h"

namespace VantrelEngine {

// An id of a section, shown by its name and picture, and chosen from a list that can be searched. Resources and objects
// that are dropped on it are taken. "" for none; nothing where it is as it was.
// An object can be pointed at, too. The number of the field tells scripts where its button for that is, see notePlace().
std::optional<std::string> drawReferenceInput(const FieldContext& context, const char* section, const std::string& id,
    const char* mixed, float width, std::size_t pickField, int part = -1);

std::optional<FieldInput> drawReference(
    const FieldContext& context, const SchemaKey& key, const CommonValue& common, float width);

// The name that is shown of a resource or an object; its id where it has none.
std::string displayName(const ProjectFile& file, const char* section, const std::string& id);

} // namespace VantrelEngine
