#pragma once

#include <cstddef>
#include <optional>
#include <utility>

#include "Data/Inspected.h"
#include "Panels/HistoryPanel.h"
#include "Panels/InspectorPanel.h"
#include "Panels/LogPanel.h"
#include "Panels/Panes.h"
#include "Panels/SettingsPanel.h"

namespace VantrelEngine {

class Log;
class ProjectSession;
class Thumbnails;

// What the panels show and change.
struct PanelContext {
    ProjectSession& session;
    Log& log;
    Thumbnails& thumbnails;
    PaneSizes& sizes;
    // Not while another project is put in the place of this one.
    bool isProjectThere = true;
};

// The panels about the view, each in its pane.
class EditorPanels {
public:
    Panes& panes() { return _panes; }
    // Where a field of the inspector or the settings is, for scripts: see FieldEditor.
    std::optional<Magnum::Vector2> placeOf(std::string_view field, int part);

    // Draws all that are open. The panes are laid out.
    void draw(const PanelContext& context);
    // How many steps the user wants to be in effect, if that was asked for since the last call.
    std::optional<std::size_t> takeStep() { return std::exchange(_step, {}); }

private:
    void drawPanel(Panel panel, const PanelContext& context);

    Panes _panes;
    HistoryPanel _history;
    LogPanel _log;
    std::optional<std::size_t> _step;
    InspectorPanel _inspector;
    SettingsPanel _settings;
    InspectedResource _inspected;
};

} // namespace VantrelEngine
