#include "Views/SceneView/Keys/ObjectActions.h"

#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/EditorUtilities/Clipboard.h>
#include <Vantrel/EditorUtilities/Objects.h>
#include <imgui.h>

#include "AssetCompiler.h"

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

void takeOver(VantrelEditor& editor, const StringArray& names) {
    if(!names.size()) return;
    Containers::Array<Containers::StringView> ids{ValueInit, names.size()};
    for(std::size_t i = 0; i != names.size(); ++i) ids[i] = names[i];
    editor.state().assetCompiler->compileObjects(ids, true);
    selectObjects(editor, names, false, true);
}

}

void performOnObjects(KeyAction action, VantrelEditor& editor) {
    switch(action) {
    case KeyAction::DeleteSelected: return deleteSelectedObjects(editor);
    case KeyAction::Copy: return putIntoClipboard(copySelected(editor));
    case KeyAction::CopyTrees: return putIntoClipboard(copySelectedTrees(editor));
    case KeyAction::Paste: return takeOver(editor, paste(editor, clipboardText()));
    case KeyAction::PasteChild: return takeOver(editor, pasteChild(editor, clipboardText()));
    case KeyAction::Duplicate: return takeOver(editor, duplicate(editor));
    case KeyAction::DuplicateTrees: return takeOver(editor, duplicateTrees(editor));
    default: return;
    }
}

} // namespace VantrelEngine
