#include "Application/EditorPanels.h"

#include "Data/ProjectSession.h"

namespace VantrelEngine {

namespace {

// Whether the panel can be drawn without a project.
bool isAboutTheEditor(Panel panel) { return panel == Panel::Log; }

} // namespace

void EditorPanels::draw(const PanelContext& context) {
    if(context.isProjectThere) _problems.update(context.session);
    for(const PanelInfo& info: Panels) {
        if(!_panes.isOpen(info.panel)) continue;
        const bool isShown = _panes.begin(info.panel, context.sizes, badgeOf(info.panel).data());
        if(isShown && (context.isProjectThere || isAboutTheEditor(info.panel))) drawPanel(info.panel, context);
        _panes.end(info.panel);
    }
}

std::string EditorPanels::badgeOf(Panel panel) const {
    return panel == Panel::Problems ? _problems.badge() : std::string{};
}

void EditorPanels::drawPanel(Panel panel, const PanelContext& context) {
    switch(panel) {
    case Panel::Objects: return _outliner.draw(context.session);
    case Panel::Inspector: return;
    case Panel::ProjectSettings: return;
    case Panel::Assets: return;
    case Panel::Resources: return;
    case Panel::History: _step = _history.draw(context.session.steps()); return;
    case Panel::Log: return _log.draw(context.log);
    case Panel::Problems: return _problems.draw(context.session);
    case Panel::Statistics: return;
    }
}

} // namespace VantrelEngine
