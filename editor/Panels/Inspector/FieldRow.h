#pragma once

#include <optional>
#include <string>

#include "Panels/Inspector/FieldContext.h"
#include "Panels/Inspector/FieldEdit.h"
#include "Panels/Inspector/InspectedGroup.h"

namespace VantrelEngine {

// Where fields are in the panel, window points.
struct RowLayout {
    float label = 0.0f;
    float field = 0.0f;
    // Of a field below its label.
    float whole = 0.0f;
    // Whether a key that stands there gets a button that takes it away.
    bool hasReset = false;

    explicit RowLayout(float width, bool hasReset);
};

// One key: its label on the left, its field on the right, or below where the pane is too narrow for its numbers. Rows
// out of sight cost their height.
std::optional<FieldInput> drawRow(
    const FieldContext& context, const InspectedGroup& group, std::size_t row, const RowLayout& layout);

// Shows why the last input of a field was refused.
void showRefusal(FieldMemory& memory, std::size_t field, std::string reason);

} // namespace VantrelEngine
