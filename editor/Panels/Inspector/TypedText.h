#pragma once

#include <optional>

#include "Panels/Inspector/CommonValue.h"
#include "Panels/Inspector/FieldContext.h"
#include "Panels/Inspector/FieldEdit.h"

namespace VantrelEngine {

// Texts that are typed. They count when the field is left, with Enter (of several lines: Ctrl+Enter), Tab or a click
// elsewhere; Escape gives them up.

// What was typed in place of the text, when the field is left.
std::optional<std::string> drawTextInput(
    FieldMemory& memory, const std::string& text, const char* hint, float width, unsigned lines = 1);

std::optional<FieldInput> drawText(FieldMemory& memory, const SchemaKey& key, const CommonValue& common, float width);
// Any value as JSON. What is typed and is none is refused with a reason.
std::optional<FieldInput> drawRaw(FieldMemory& memory, const CommonValue& common, float width, std::string& refusal);

// Of a text of several lines.
constexpr unsigned LongTextLines = 4;

} // namespace VantrelEngine
