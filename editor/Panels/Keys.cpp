#include "Panels/Keys.h"

#include <imgui.h>

namespace VantrelEngine {

namespace {

bool isPressed(ImGuiKey key, bool isRepeated) {
#if IMGUI_VERSION_NUM >= 18700
    return ImGui::IsKeyPressed(key, isRepeated);
#else
    return ImGui::IsKeyPressed(ImGui::GetKeyIndex(key), isRepeated);
#endif
}

} // namespace

bool isEscapePressed() { return isPressed(ImGuiKey_Escape, false); }

bool isEnterPressed() { return isPressed(ImGuiKey_Enter, false); }

bool isPressedAgain(int key) { return isPressed(ImGuiKey(key), true); }

bool isRenamePressed() {
#if IMGUI_VERSION_NUM >= 18700
    return isPressed(ImGuiKey_F2, false);
#else
    // This version has no name for the key; its state is kept under the window library's number.
    constexpr int F2 = 291;
    return ImGui::IsKeyPressed(F2, false);
#endif
}

} // namespace VantrelEngine
