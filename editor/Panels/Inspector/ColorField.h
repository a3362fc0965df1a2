#pragma once

#include <optional>

#include "Panels/Inspector/NumberField.h"

namespace VantrelEngine {

// A colour as a patch, as the screen shows it, and its numbers, as they are stored. A click on the patch opens a wheel;
// what is brighter than 1 keeps its brightness there.
std::optional<FieldInput> drawColor(
    FieldMemory& memory, std::size_t field, const SchemaKey& key, const CommonValue& common, float width);

// A linear number as one of the screen, and back; beyond 1, too.
float screenNumber(float linear);
float linearNumber(float screen);

} // namespace VantrelEngine
