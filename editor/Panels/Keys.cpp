#include "Panels/Keys.h"

#include <imgui.h>

namespace VantrelEngine {

namespace {

bool isPressed(ImGuiKey key, bool isRepeated = false) {
#if IMGUI_VERSION_NUM >= 18700
    return ImGui::IsKeyPressed(key, isRepeated);
#else
    return ImGui::IsKeyPressed(ImGui::GetKeyIndex(key), isRepeated);
#endif
}

} // namespace

bool isEscapePressed() { return isPressed(ImGuiKey_Escape); }

bool isEnterPressed() { return isPressed(ImGuiKey_Enter); }

bool isPressedAgain(int key) { return isPressed(ImGuiKey(key), true); }

} // namespace VantrelEngine
