#pragma once

#include "Data/Inspected.h"
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

    // Draws all that are open. The panes are laid out.
    void draw(const PanelContext& context);

private:
    void drawPanel(Panel panel, const PanelContext& context);

    Panes _panes;
    LogPanel _log;
    InspectorPanel _inspector;
    SettingsPanel _settings;
    InspectedResource _inspected;
};

} // namespace VantrelEngine
