#pragma once

#include <cstddef>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class ProjectSession;

// Undoes or redoes until so many steps are in effect, at most as many as there are, compiles what that changed, and
// selects what was selected when the last step that was undone began, or the last that was redone was over: of it what is
// there. Costs the changes on the way. Aborts while a group is open; not to be called during a trial.
CORRADE_VISIBILITY_EXPORT void goToStep(ProjectSession& session, std::size_t position);

// Selects what was selected when the last step in effect was over, or where none is, when the first one began. For a log
// that was brought back, whose changes are compiled.
void selectAsAfterSteps(ProjectSession& session);

} // namespace VantrelEngine
