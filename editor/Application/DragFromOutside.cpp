#include "Application/DragFromOutside.h"

#include <imgui.h>
#include <imgui_internal.h>

namespace VantrelEngine {

void dragFromOutside(const std::string& type, const std::string& text) {
    constexpr ImGuiDragDropFlags flags = ImGuiDragDropFlags_SourceExtern | ImGuiDragDropFlags_SourceNoPreviewTooltip;
    if(!ImGui::BeginDragDropSource(flags)) return;
    ImGui::SetDragDropPayload(type.data(), text.data(), text.size() + 1);
    ImGui::EndDragDropSource();
    // The item that the drag began with; it is let go of when this is not called any more.
    const ImGuiID source = ImHashStr("drag from outside");
    if(ImGui::GetActiveID() != source) ImGui::SetActiveID(source, nullptr);
    ImGui::KeepAliveID(source);
}

} // namespace VantrelEngine
