#include "Panels/Keys.h"

#include <imgui.h>

namespace VantrelEngine {

namespace {

bool isPressed(ImGuiKey key, bool repeats = false) {
#if IMGUI_VERSION_NUM >= 18700
    return ImGui::IsKeyPressed(key, repeats);
#else
    return ImGui::IsKeyPressed(ImGui::GetKeyIndex(key), repeats);
#endif
}

} // namespace

bool isEscapePressed() { return isPressed(ImGuiKey_Escape); }

bool isEnterPressed() { return isPressed(ImGuiKey_Enter); }

bool isBackspacePressed() { return isPressed(ImGuiKey_Backspace); }

ArrowKeys pressedArrows() {
    return {int(isPressed(ImGuiKey_RightArrow, true)) - int(isPressed(ImGuiKey_LeftArrow, true)),
        int(isPressed(ImGuiKey_DownArrow, true)) - int(isPressed(ImGuiKey_UpArrow, true))};
}

} // namespace VantrelEngine
