#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace VantrelEngine {

// The panels about the view, in the order in which they stand in their panes and in the menu.
enum class Panel : std::uint8_t {
    Objects,
    Inspector,
    ProjectSettings,
    Assets,
    Resources,
    History,
    Log,
    Problems,
    Statistics
};
constexpr std::size_t PanelCount = 9;

// Where a panel is at first, or always where windows are not docked. Panels of one pane are tabs in it.
enum class Pane : std::uint8_t { Left, Right, Bottom };

struct PanelInfo {
    Panel panel;
    // Shown to the user, and the name of its window.
    const char* title;
    // In the settings.
    const char* key;
    Pane pane;
};

constexpr std::array<PanelInfo, PanelCount> Panels{
    {{Panel::Objects, "Objects", "objects", Pane::Left}, {Panel::Inspector, "Inspector", "inspector", Pane::Right},
        {Panel::ProjectSettings, "Project Settings", "projectSettings", Pane::Right},
        {Panel::Assets, "Assets", "assets", Pane::Bottom}, {Panel::Resources, "Resources", "resources", Pane::Bottom},
        {Panel::History, "History", "history", Pane::Bottom}, {Panel::Log, "Log", "log", Pane::Bottom},
        {Panel::Problems, "Problems", "problems", Pane::Bottom},
        {Panel::Statistics, "Statistics", "statistics", Pane::Bottom}}};

constexpr const PanelInfo& infoOf(Panel panel) { return Panels[std::size_t(panel)]; }

} // namespace VantrelEngine
