#pragma once

#include <optional>

#include "Panels/Inspector/CommonValue.h"
#include "Panels/Inspector/FieldContext.h"
#include "Panels/Inspector/FieldEdit.h"

namespace VantrelEngine {

// An array of ids or texts, a line each, with a button that takes it away and one that adds another. Costs the lines
// that are seen.
std::optional<FieldInput> drawListField(
    const FieldContext& context, const SchemaKey& key, const CommonValue& common, float width);

} // namespace VantrelEngine
