#pragma once

#include <optional>

#include "Panels/Inspector/FieldContext.h"
#include "Panels/Inspector/FieldEdit.h"
#include "Panels/Inspector/InspectedGroup.h"

namespace VantrelEngine {

// Draws a group under a header that folds it: a row a key, and for components whether they are active, and what the right
// button offers. Tells what the user changed. A refused input is shown at its field.
std::optional<Edit> drawGroup(const FieldContext& context, const InspectedGroup& group, bool hasReset);

} // namespace VantrelEngine
