#include "Panels/Keys.h"

#include <cstddef>

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

// F2.
bool isRenameTyped() {
#if IMGUI_VERSION_NUM >= 18700
    return isPressed(ImGuiKey_F2);
#else
    // This version has no name for the key; its state is kept under the window library's number.
    constexpr int F2 = 291;
    return ImGui::IsKeyPressed(F2, false);
#endif
}

} // namespace

bool isEscapePressed() { return isPressed(ImGuiKey_Escape); }

bool isEnterPressed() { return isPressed(ImGuiKey_Enter); }

bool isPressedAgain(int key) { return isPressed(ImGuiKey(key), true); }
bool isKeyTyped(PanelKey key) {
    if(key == PanelKey::Rename) return isRenameTyped();
    constexpr ImGuiKey keys[]{ImGuiKey_UpArrow, ImGuiKey_DownArrow, ImGuiKey_LeftArrow, ImGuiKey_RightArrow,
        ImGuiKey_PageUp, ImGuiKey_PageDown, ImGuiKey_Home, ImGuiKey_End, ImGuiKey_Delete};
    return isPressed(keys[std::size_t(key)], true);
}

} // namespace VantrelEngine
