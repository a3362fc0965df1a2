#pragma once

#include <cstdint>
#include <optional>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Math/Vector2.h>
#include <imgui.h>
#include <imgui_internal.h>

// The UI library as the views use it: with docking, or without it, where the editor pins each view to a pane. The only
// place that knows which.
namespace VantrelEngine::UserInterface {

// Flags of windows and of hovering that docking needs.
#ifdef IMGUI_HAS_DOCK
constexpr ImGuiHoveredFlags HoveredInDock = ImGuiHoveredFlags_DockHierarchy;
#else
constexpr ImGuiHoveredFlags HoveredInDock = 0;
#endif

// Opens a window in its pane, where it has one: it cannot be moved, resized or collapsed there, and stays behind what
// floats. Otherwise it stands at a place of its own the first time. As ImGui::Begin(), to be followed by ImGui::End().
bool beginView(const char* name, bool& isOpen, ImGuiWindowFlags flags, const std::optional<Magnum::Range2D>& pane);

// Whether the current window is part of a layout.
bool isDocked(const std::optional<Magnum::Range2D>& pane);

// A GL texture to be shown, which stays the caller's until the UI was drawn. Rows upwards, as the GL has them.
void image(Magnum::UnsignedInt texture, const Magnum::Vector2& size);

// Whole points; somewhere far away for a mouse that is nowhere.
Magnum::Vector2i wholePoint(const ImVec2& place);

// Between the two kinds of vectors.
inline Magnum::Vector2 vector(const ImVec2& v) { return {v.x, v.y}; }
inline ImVec2 vector(const Magnum::Vector2& v) { return {v.x(), v.y()}; }

} // namespace VantrelEngine::UserInterface
