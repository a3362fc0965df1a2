#pragma once

#include <imgui.h>

namespace VantrelTest {

// The key Ctrl, as the UI library sees it from its next frame on.
inline void holdControl(bool isDown) {
#if IMGUI_VERSION_NUM >= 18900
    ImGui::GetIO().AddKeyEvent(ImGuiMod_Ctrl, isDown);
#else
    ImGui::GetIO().KeyCtrl = isDown;
#endif
}

}
