#include "Panels/Inspector/FieldContext.h"

#include <imgui.h>
#include <imgui_internal.h>

namespace VantrelEngine {

void notePlace(FieldMemory& memory, std::size_t field, int part) {
    const ImVec2 min = ImGui::GetItemRectMin(), max = ImGui::GetItemRectMax();
    notePlace(memory, field, part, (min.x + max.x) * 0.5f, (min.y + max.y) * 0.5f);
}

void notePlace(FieldMemory& memory, std::size_t field, int part, float x, float y) {
    if(ImGui::GetCurrentWindow()->ClipRect.Contains(ImVec2{x, y}))
        memory.places.push_back({field, part, x, y});
    else if(memory.wanted == field)
        ImGui::SetScrollHereY();
    else
        return;
    if(memory.wanted == field) memory.wanted = 0;
}

} // namespace VantrelEngine
