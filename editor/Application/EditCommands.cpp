#include "Application/EditCommands.h"

#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/EditorUtilities/Clipboard.h>
#include <Vantrel/EditorUtilities/Objects.h>
#include <imgui.h>

#include "Utilities/EditState.h"
#include "Utilities/ObjectClip.h"
#include "Utilities/SelectedObjects.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

Containers::StringView clipboardText() {
    // Null where it holds no text.
    const char* const text = ImGui::GetClipboardText();
    return text ? text : "";
}

void putIntoClipboard(const Containers::String& text) {
    if(!text.isEmpty()) ImGui::SetClipboardText(text.data());
}

} // namespace

void performEdit(Command command, VantrelEditor& editor) {
    switch(command) {
    case Command::Copy: return putIntoClipboard(copySelected(editor));
    case Command::CopyTrees: return putIntoClipboard(copySelectedTrees(editor));
    case Command::Paste: return compileAndSelect(editor, paste(editor, clipboardText()));
    case Command::PasteChild: return compileAndSelect(editor, pasteChild(editor, clipboardText()));
    case Command::Duplicate: return compileAndSelect(editor, duplicate(editor));
    case Command::DuplicateTrees: return compileAndSelect(editor, duplicateTrees(editor));
    case Command::Delete: return deleteSelectedObjects(editor);
    case Command::SelectAll: return selectAllObjects(*editor.state().data);
    case Command::SelectNone: return editor.state().data->selection().clear();
    default: return;
    }
}

EditAbilities editAbilities(VantrelEditor& editor, bool clipboardHasObjects) {
    const EditorData& data = *editor.state().data;
    EditAbilities abilities;
    abilities.hasSelection = data.firstSelectedObject().has_value();
    abilities.hasObjects = data.scene().main().size() > 1;
    abilities.canEdit = canEdit(editor.state());
    abilities.clipboardHasObjects = clipboardHasObjects;
    return abilities;
}

bool clipboardHasObjects() {
    const Containers::StringView text = clipboardText();
    return looksLikeClip({text.data(), text.size()});
}

} // namespace VantrelEngine
