#include "Panels/DragSource.h"

#include <imgui.h>
#include <imgui_internal.h>

namespace VantrelEngine {

bool beginDragSource() {
    const ImGuiContext& context = *ImGui::GetCurrentContext();
    const bool isFromOutside =
        context.DragDropActive && (context.DragDropSourceFlags & ImGuiDragDropFlags_SourceExtern);
    return !isFromOutside && ImGui::BeginDragDropSource();
}

// Its source is let go of, too, or it would be dragged again while the button is held.
bool giveUpDrag() {
    if(!ImGui::GetDragDropPayload()) return false;
    ImGui::ClearDragDrop();
    ImGui::ClearActiveID();
    return true;
}

} // namespace VantrelEngine
