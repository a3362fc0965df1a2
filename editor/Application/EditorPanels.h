#pragma once

#include <cstddef>
#include <optional>
#include <utility>

#include "Data/Inspected.h"
#include "Panels/Assets/AssetBrowser.h"
#include "Panels/HistoryPanel.h"
#include "Panels/LogPanel.h"
#include "Panels/Panes.h"
#include "Panels/Resources/ResourcesPanel.h"

namespace VantrelEngine {

class FilePictures;
class Log;
class ProjectSession;
class Thumbnails;

// What the panels show and change.
struct PanelContext {
    ProjectSession& session;
    Log& log;
    Thumbnails& thumbnails;
    FilePictures& pictures;
    PaneSizes& sizes;
    // Not while another project is put in the place of this one.
    bool isProjectThere = true;
    // Nothing is read beside the frames: a run is the same each time.
    bool isReplayed = false;
};

// The panels about the view, each in its pane.
class EditorPanels {
public:
    Panes& panes() { return _panes; }

    // Draws all that are open. The panes are laid out.
    void draw(const PanelContext& context);
    // Whether something is read that a panel will show.
    bool isReading() const { return _assets.isReading(); }
    // The panel that has the focus; none where that is elsewhere.
    std::optional<Panel> focused() const { return _focused; }
    // How many steps the user wants to be in effect, if that was asked for since the last call.
    std::optional<std::size_t> takeStep() { return std::exchange(_step, {}); }

private:
    void drawPanel(Panel panel, const PanelContext& context);

    Panes _panes;
    HistoryPanel _history;
    LogPanel _log;
    AssetBrowser _assets;
    ResourcesPanel _resources;
    InspectedResource _inspected;
    std::optional<std::size_t> _step;
    std::optional<Panel> _focused;
};

} // namespace VantrelEngine
