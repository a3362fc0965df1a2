#pragma once

#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

#include "ChangeManager.h"

namespace VantrelEngine {

class ProjectFile;

// What a person calls a step of the undo log: "Move 3 objects", "Change base colour of Bricks", "Rename Table to Desk",
// "Set bloom intensity". Tells of what the step is about in the first place, by the names that are shown; the project is
// as it is after the step. Costs a step for each change. A line, not empty.
CORRADE_VISIBILITY_EXPORT std::string stepName(
    Corrade::Containers::ArrayView<const Change> changes, const ProjectFile& project);

// The same of an object, by its id, that was put where another one is: its changes alone are those of a drag.
CORRADE_VISIBILITY_EXPORT std::string placementName(Corrade::Containers::StringView object, const ProjectFile& project);

} // namespace VantrelEngine
