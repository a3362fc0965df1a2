#pragma once

#include <optional>

#include "Panels/Inspector/CommonValue.h"
#include "Panels/Inspector/FieldContext.h"
#include "Panels/Inspector/FieldEdit.h"

namespace VantrelEngine {

std::optional<FieldInput> drawTruth(const CommonValue& common);
std::optional<FieldInput> drawChoice(const SchemaKey& key, const CommonValue& common, float width);
// A button a bit.
std::optional<FieldInput> drawFlags(
    FieldMemory& memory, std::size_t field, const SchemaKey& key, const CommonValue& common, float width);

} // namespace VantrelEngine
