#pragma once

#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class EditorData;

// The selected objects of the scene as it is compiled, in the order in which descendants follow their ancestors. Costs
// what is selected, and a step for every 64 ids.
CORRADE_VISIBILITY_EXPORT std::vector<Id> selectedObjects(const EditorData& data);
// Those of them with no selected object above.
std::vector<Id> topSelectedObjects(const EditorData& data);
// Those and all below them.
std::vector<Id> selectedTrees(const EditorData& data);

// Selects every object that is not locked. Costs the size of the scene.
CORRADE_VISIBILITY_EXPORT void selectAllObjects(EditorData& data);

} // namespace VantrelEngine
