#pragma once

#include <cstddef>
#include <optional>
#include <utility>

#include "Panels/HistoryPanel.h"
#include "Panels/LogPanel.h"
#include "Panels/Outliner/OutlinerPanel.h"
#include "Panels/Panes.h"
#include "Panels/ProblemsPanel.h"

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

    // Draws all that are open. The panes are laid out.
    void draw(const PanelContext& context);
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
    std::optional<std::size_t> _step;
};

} // namespace VantrelEngine
