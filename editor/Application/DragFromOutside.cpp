#include "Application/DragFromOutside.h"

#include <imgui.h>
#include <imgui_internal.h>

namespace VantrelEngine {

void dragFromOutside(const std::string& type, const std::string& text) {
    // One that began in a panel goes on: its tooltip would be closed here.
    const ImGuiContext& context = *ImGui::GetCurrentContext();
    if(context.DragDropActive && !(context.DragDropSourceFlags & ImGuiDragDropFlags_SourceExtern)) return;
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
