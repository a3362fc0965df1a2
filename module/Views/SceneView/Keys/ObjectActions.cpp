#include "Views/SceneView/Keys/ObjectActions.h"

#include <Vantrel/EditorUtilities/Clipboard.h>
#include <Vantrel/EditorUtilities/Objects.h>
#include <imgui.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

void putIntoClipboard(const Containers::String& text) {
    if(!text.isEmpty()) ImGui::SetClipboardText(text.data());
}

Containers::StringView clipboardText() {
    // Null where it holds no text.
    const char* const text = ImGui::GetClipboardText();
    return text ? text : "";
}

}

void performOnObjects(KeyAction action, VantrelEditor& editor) {
    switch(action) {
    case KeyAction::DeleteSelected: return deleteSelectedObjects(editor);
    case KeyAction::Copy: return putIntoClipboard(copySelected(editor));
    case KeyAction::CopyTrees: return putIntoClipboard(copySelectedTrees(editor));
    case KeyAction::Paste: return compileAndSelect(editor, paste(editor, clipboardText()));
    case KeyAction::PasteChild: return compileAndSelect(editor, pasteChild(editor, clipboardText()));
    case KeyAction::Duplicate: return compileAndSelect(editor, duplicate(editor));
    case KeyAction::DuplicateTrees: return compileAndSelect(editor, duplicateTrees(editor));
    default: return;
    }
}

} // namespace VantrelEngine
