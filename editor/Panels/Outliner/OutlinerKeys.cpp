#include <Vantrel/EditorUtilities/Objects.h>
#include <imgui.h>

#include "Data/ProjectSession.h"
#include "Panels/Keys.h"
#include "Panels/Outliner/OutlinerPanel.h"

namespace VantrelEngine {

void OutlinerPanel::useKeys(ProjectSession& session) {
    EditorData& data = session.data();
    const Scene& scene = data.scene().main();
    const bool hasCursor = _cursor != NoObject && scene.isValid(_cursor);
    const auto row = std::ptrdiff_t(hasCursor ? _rows.rowOf(_cursor).value_or(0) : 0);
    const auto page = std::ptrdiff_t(ImGui::GetWindowHeight() / rowHeight());
    if(isPressedAgain(ImGuiKey_UpArrow)) return moveTo(data, hasCursor ? row - 1 : 0);
    if(isPressedAgain(ImGuiKey_DownArrow)) return moveTo(data, hasCursor ? row + 1 : 0);
    if(isPressedAgain(ImGuiKey_PageUp)) return moveTo(data, row - page);
    if(isPressedAgain(ImGuiKey_PageDown)) return moveTo(data, row + page);
    if(isPressedAgain(ImGuiKey_Home)) return moveTo(data, 0);
    if(isPressedAgain(ImGuiKey_End)) return moveTo(data, std::ptrdiff_t(_rows.count()) - 1);
    if(isPressedAgain(ImGuiKey_Delete)) return deleteSelectedObjects(session.editor());
    if(!hasCursor) return;
    if(isRenamePressed()) return beginNaming(data, _cursor);
    // To the left first what is open closes, to the right what is closed opens.
    const bool hasChildren = scene.firstChild(_cursor) != NoObject, isOpen = hasChildren && !_rows.isFolded(_cursor);
    if(isPressedAgain(ImGuiKey_LeftArrow)) {
        if(isOpen && _search.empty()) return _rows.setFolded(scene, _cursor, true);
        if(const auto above = _rows.rowOf(scene.parent(_cursor))) moveTo(data, std::ptrdiff_t(*above));
    } else if(isPressedAgain(ImGuiKey_RightArrow) && hasChildren) {
        if(!isOpen) return _rows.setFolded(scene, _cursor, false);
        moveTo(data, row + 1);
    }
}

} // namespace VantrelEngine
