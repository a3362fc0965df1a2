#pragma once

#include <cstddef>
#include <optional>
#include <utility>

#include "Data/Inspected.h"
#include "Panels/Assets/AssetBrowser.h"
#include "Panels/HistoryPanel.h"
#include "Panels/InspectorPanel.h"
#include "Panels/LogPanel.h"
#include "Panels/Outliner/OutlinerPanel.h"
#include "Panels/Panes.h"
#include "Panels/ProblemsPanel.h"
#include "Panels/Resources/ResourcesPanel.h"
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
    AssetPictures pictures;
    PaneSizes& sizes;
    // Not while another project is put in the place of this one.
    bool isProjectThere = true;
    // Nothing is read beside the frames: a run is the same each time.
    bool isReplayed = false;
    // Milliseconds of the last frame; files that are being imported or wait for it.
    double frameTime = 0.0;
    std::size_t imports = 0;
};

// The panels about the view, each in its pane.
class EditorPanels {
public:
    Panes& panes() { return _panes; }
    // Where a field of the inspector or the settings is, for scripts: see FieldEditor.
    std::optional<Magnum::Vector2> placeOf(std::string_view field, int part);

    // Draws all that are open. The panes are laid out.
    void draw(const PanelContext& context);
    // Whether something is read that a panel will show.
    bool isReading() const { return _assets.isReading(); }
    // The panel that has the focus; none where that is elsewhere.
    std::optional<Panel> focused() const { return _focused; }
    // How many steps the user wants to be in effect, if that was asked for since the last call.
    std::optional<std::size_t> takeStep() { return std::exchange(_step, {}); }

private:
    std::string badgeOf(Panel panel) const;
    void drawPanel(Panel panel, const PanelContext& context);

    Panes _panes;
    HistoryPanel _history;
    LogPanel _log;
    OutlinerPanel _outliner;
    ProblemsPanel _problems;
    AssetBrowser _assets;
    ResourcesPanel _resources;
    InspectedResource _inspected;
    std::optional<std::size_t> _step;
    std::optional<Panel> _focused;
    InspectorPanel _inspector;
    SettingsPanel _settings;
};

} // namespace VantrelEngine
