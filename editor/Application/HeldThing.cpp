#include "Application/HeldThing.h"

#include <utility>

#include <imgui.h>

namespace VantrelEngine {

void HeldThing::take(std::string type, std::string text) {
    _type = std::move(type);
    _text = std::move(text);
}

void HeldThing::draw() {
    if(!ImGui::IsMouseDown(ImGuiMouseButton_Left)) _type.clear();
    constexpr ImGuiDragDropFlags flags = ImGuiDragDropFlags_SourceExtern | ImGuiDragDropFlags_SourceNoPreviewTooltip;
    if(_type.empty() || !ImGui::BeginDragDropSource(flags)) return;
    ImGui::SetDragDropPayload(_type.data(), _text.data(), _text.size() + 1);
    ImGui::EndDragDropSource();
}

} // namespace VantrelEngine
