#include "Application/EditorPanels.h"

#include <imgui.h>

#include "Data/ProjectSession.h"
#include "Panels/ObjectList.h"

namespace VantrelEngine {

namespace {

// Whether the panel can be drawn without a project.
bool isAboutTheEditor(Panel panel) { return panel == Panel::Log; }

void drawObjects(EditorData& data) {
    if(const std::optional<ObjectClick> click = drawObjectList(data)) applyClick(data, *click);
}

} // namespace

void EditorPanels::draw(const PanelContext& context) {
    _focused.reset();
    for(const PanelInfo& info: Panels) {
        if(!_panes.isOpen(info.panel)) continue;
        const bool isShown = _panes.begin(info.panel, context.sizes);
        if(isShown && (context.isProjectThere || isAboutTheEditor(info.panel))) drawPanel(info.panel, context);
        if(isShown && ImGui::IsWindowFocused(ImGuiFocusedFlags_ChildWindows)) _focused = info.panel;
        _panes.end(info.panel);
    }
}

void EditorPanels::drawPanel(Panel panel, const PanelContext& context) {
    switch(panel) {
    case Panel::Objects: return drawObjects(context.session.data());
    case Panel::Inspector: return;
    case Panel::ProjectSettings: return;
    case Panel::Assets: return _assets.draw(context.session, context.pictures, context.isReplayed);
    case Panel::Resources: return _resources.draw(context.session, context.thumbnails, _inspected);
    case Panel::History: _step = _history.draw(context.session.steps()); return;
    case Panel::Log: return _log.draw(context.log);
    case Panel::Problems: return;
    case Panel::Statistics: return;
    }
}

} // namespace VantrelEngine
