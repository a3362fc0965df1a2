#pragma once

#include <imgui.h>

namespace VantrelEngine {

// Of a selectable: what is drawn over it may be used. Versions of the UI library name it differently.
#if IMGUI_VERSION_NUM >= 18967
constexpr ImGuiSelectableFlags OverlappedRow = ImGuiSelectableFlags_AllowOverlap;
#else
constexpr ImGuiSelectableFlags OverlappedRow = ImGuiSelectableFlags_AllowItemOverlap;
#endif

} // namespace VantrelEngine
