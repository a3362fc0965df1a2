#include "Panels/Keys.h"

#include <imgui.h>

namespace VantrelEngine {

namespace {

bool isPressed(ImGuiKey key) {
#if IMGUI_VERSION_NUM >= 18700
    return ImGui::IsKeyPressed(key, false);
#else
    return ImGui::IsKeyPressed(ImGui::GetKeyIndex(key), false);
#endif
}

} // namespace

bool isEscapePressed() { return isPressed(ImGuiKey_Escape); }

bool isEnterPressed() { return isPressed(ImGuiKey_Enter); }

} // namespace VantrelEngine
