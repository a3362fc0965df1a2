#include "Application/EditorPanels.h"

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
    for(const PanelInfo& info: Panels) {
        if(!_panes.isOpen(info.panel)) continue;
        const bool isShown = _panes.begin(info.panel, context.sizes);
        if(isShown && (context.isProjectThere || isAboutTheEditor(info.panel))) drawPanel(info.panel, context);
        _panes.end(info.panel);
    }
    if(!context.isProjectThere) return;
    _inspector.fields().endFrame(context.session.changes());
    _settings.fields().endFrame(context.session.changes());
}

std::optional<Magnum::Vector2> EditorPanels::placeOf(std::string_view field, int part) {
    const std::optional<Magnum::Vector2> place = _inspector.fields().placeOf(field, part);
    return place ? place : _settings.fields().placeOf(field, part);
}

void EditorPanels::drawPanel(Panel panel, const PanelContext& context) {
    EditorData& data = context.session.data();
    ChangeManager& changes = context.session.changes();
    switch(panel) {
    case Panel::Objects: return drawObjects(context.session.data());
    case Panel::Inspector: return _inspector.draw(data, changes, context.thumbnails, _inspected);
    case Panel::ProjectSettings: return _settings.draw(data, changes, context.thumbnails);
    case Panel::Assets: return;
    case Panel::Resources: return;
    case Panel::History: _step = _history.draw(context.session.steps()); return;
    case Panel::Log: return _log.draw(context.log);
    case Panel::Problems: return;
    case Panel::Statistics: return;
    }
}

} // namespace VantrelEngine
