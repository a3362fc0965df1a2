#include "Vantrel/EditorUtilities/Clipboard.h"

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>

#include "Utilities/ClipOrigin.h"
#include "Utilities/EditState.h"
#include "Utilities/ObjectClip.h"
#include "Utilities/PasteObjects.h"
#include "Utilities/SelectedObjects.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

using Objects = std::vector<Id> (*)(const EditorData&);

JsonDocument copied(VantrelEditor& editor, Objects which) {
    const EditorData& data = upToDate(editor.state());
    return copyObjects(data.project(), idsOf(data, which(data)));
}

Containers::String textOf(VantrelEditor& editor, Objects which) {
    JsonDocument clip = copied(editor, which);
    if(clip["objects"].ObjectEmpty()) return {};
    addOrigin(clip, *editor.state().data);
    return textOfClip(clip);
}

StringArray pasted(VantrelEditor& editor, JsonDocument& clip, ClipSource source, PastePlace place, const char* action) {
    StringArray names;
    const std::string error = pasteObjects(clip, source, place, editor.state(), names);
    if(!error.empty()) Utility::Error{} << action << error.data();
    return names;
}

StringArray pastedText(VantrelEditor& editor, Containers::StringView text, PastePlace place) {
    if(!canEdit(editor.state())) return StringArray{};
    upToDate(editor.state());
    JsonDocument clip;
    const std::string error = readClip({text.data(), text.size()}, clip);
    if(error.empty()) return pasted(editor, clip, ClipSource::Text, place, "Cannot paste:");
    Utility::Error{} << "Cannot paste what is in the clipboard:" << error.data();
    return StringArray{};
}

StringArray duplicated(VantrelEditor& editor, Objects which) {
    if(!canEdit(editor.state())) return StringArray{};
    JsonDocument clip = copied(editor, which);
    return pasted(editor, clip, ClipSource::Project, PastePlace::BesideOriginals, "Cannot duplicate:");
}

} // namespace

Containers::String copySelected(VantrelEditor& editor) { return textOf(editor, selectedObjects); }

Containers::String copySelectedTrees(VantrelEditor& editor) { return textOf(editor, selectedTrees); }

StringArray paste(VantrelEditor& editor, Containers::StringView text) {
    return pastedText(editor, text, PastePlace::BesideOriginals);
}

StringArray pasteChild(VantrelEditor& editor, Containers::StringView text) {
    return pastedText(editor, text, PastePlace::BelowFirstSelected);
}

StringArray duplicate(VantrelEditor& editor) { return duplicated(editor, selectedObjects); }

StringArray duplicateTrees(VantrelEditor& editor) { return duplicated(editor, selectedTrees); }

} // namespace VantrelEngine
