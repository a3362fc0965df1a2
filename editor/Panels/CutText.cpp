#include "Panels/CutText.h"

#include <imgui_internal.h>

namespace VantrelEngine {

void drawCutText(const ImVec2& place, float end, float bottom, std::string_view text) {
    ImDrawList* const list = ImGui::GetWindowDrawList();
    const char* const textEnd = text.data() + text.size();
#if IMGUI_VERSION_NUM >= 19200
    ImGui::RenderTextEllipsis(list, place, {end, bottom}, end, text.data(), textEnd, nullptr);
#else
    ImGui::RenderTextEllipsis(list, place, {end, bottom}, end, end, text.data(), textEnd, nullptr);
#endif
}

} // namespace VantrelEngine
