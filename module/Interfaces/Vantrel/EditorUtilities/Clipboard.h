#pragma once

#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

#include <Vantrel/EngineData/StringArray.h>

namespace VantrelEngine {

class VantrelEditor;

// Objects of the document as text and back. A copy without its parent keeps that parent where the project has it, and
// stands at the root where it has not; its place below it stays. What copies name among each other (parents, joints of
// skins, targets of animations) leads to the new ones; other resources are named, not copied.
//
// What makes objects returns the ids of the new ones, parents first: nothing is compiled or selected yet. It is one step
// of the undo log, and nothing where it is refused, with one line: no objects in the text, a text that no project could
// have, more objects than there is room for, or no objects selected where some are needed. While the log has a group or
// a trial open nothing is done. Everything costs the objects that are copied, and one look at those beside the new ones.

// The selected objects, each without what is below it, unless that is selected, too. Empty where none is.
CORRADE_VISIBILITY_EXPORT Corrade::Containers::String copySelected(VantrelEditor& editor);
// With all that is below them; each object once.
CORRADE_VISIBILITY_EXPORT Corrade::Containers::String copySelectedTrees(VantrelEditor& editor);

// Resources that the text names and the project lacks stay named, and are told, a line each.
CORRADE_VISIBILITY_EXPORT StringArray paste(VantrelEditor& editor, Corrade::Containers::StringView text);
// The same below the selected object of the least id, each with the local transformation of the original.
CORRADE_VISIBILITY_EXPORT StringArray pasteChild(VantrelEditor& editor, Corrade::Containers::StringView text);

// What copying and pasting make, beside the originals.
CORRADE_VISIBILITY_EXPORT StringArray duplicate(VantrelEditor& editor);
CORRADE_VISIBILITY_EXPORT StringArray duplicateTrees(VantrelEditor& editor);

} // namespace VantrelEngine
