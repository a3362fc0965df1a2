#pragma once

#include <Corrade/Utility/VisibilityMacros.h>

#include <Vantrel/EngineData/StringArray.h>

namespace VantrelEngine {

class VantrelEditor;

// Removes the selected objects from the document, with all that is below them, as one step of the undo log, which brings
// them back to their places; that locked ones were among those below is told in a line. What names them elsewhere (joints
// of skins, targets of animations) still does. Nothing is done while the log has a group or a trial open. Costs what is
// removed; the scene follows when it is compiled next.
CORRADE_VISIBILITY_EXPORT void deleteSelectedObjects(VantrelEditor& editor);

// Selects the objects of these ids of the document; with additive set, besides those that are selected. An id that no
// object of the scene has is passed over, and told in a line where tellsMissing is set.
CORRADE_VISIBILITY_EXPORT void selectObjects(
    VantrelEditor& editor, const StringArray& names, bool additive, bool tellsMissing);

// What follows when objects came into the document: they are compiled, so that they are in the scene at once, and are the
// selection. Nothing for no names.
CORRADE_VISIBILITY_EXPORT void compileAndSelect(VantrelEditor& editor, const StringArray& names);

} // namespace VantrelEngine
