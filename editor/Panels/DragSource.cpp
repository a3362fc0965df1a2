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

} // namespace VantrelEngine
