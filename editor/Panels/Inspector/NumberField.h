#pragma once

#include <optional>

#include "Panels/Inspector/CommonValue.h"
#include "Panels/Inspector/FieldContext.h"
#include "Panels/Inspector/FieldEdit.h"

namespace VantrelEngine {

// Numbers that are dragged, or typed after a click. What is typed counts when the field is left, with Enter, Tab or
// a click elsewhere; Escape gives it up.

// All numbers of a key side by side in the width, window points.
std::optional<FieldInput> drawNumbers(
    FieldMemory& memory, std::size_t field, const SchemaKey& key, const CommonValue& common, float width);

// How much a pixel of the mouse's way changes a value: a power of ten, or half a degree.
double dragStep(const SchemaKey& key, double value);

} // namespace VantrelEngine
