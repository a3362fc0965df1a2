#pragma once

#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class EditorData;
struct SharedState;

// Whether something new may be done: the undo log has no group and no trial open.
CORRADE_VISIBILITY_EXPORT bool canEdit(const SharedState& state);

// The scene follows the document, so that what is selected is what is there. Costs what changed since it did.
CORRADE_VISIBILITY_EXPORT EditorData& upToDate(SharedState& state);

// Ids of the document, of objects of the scene.
std::vector<std::string> idsOf(const EditorData& data, const std::vector<Id>& objects);

} // namespace VantrelEngine
