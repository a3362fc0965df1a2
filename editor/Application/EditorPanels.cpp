#include "Application/EditorPanels.h"

#include <VantrelHost/Thumbnails.h>
#include <imgui.h>

#include "Data/ProjectSession.h"
#include "Panels/StatisticsPanel.h"

namespace VantrelEngine {

namespace {

// Whether the panel can be drawn without a project.
bool isAboutTheEditor(Panel panel) { return panel == Panel::Log; }

void drawStatistics(const PanelContext& context) {
    const SharedState& state = context.session.editor().state();
    const Corrade::Containers::StringView reload = state.lastReload;
    drawStatisticsPanel({state.statistics, context.frameTime, {reload.data(), reload.size()}, context.imports,
        context.thumbnails.isWorkWaiting(), context.thumbnails.drawn(), context.thumbnails.loaded()});
}

} // namespace

void EditorPanels::draw(const PanelContext& context) {
    const InspectedResource before = _inspected;
    _focused.reset();
    if(context.isProjectThere) _problems.update(context.session);
    for(const PanelInfo& info: Panels) {
        if(!_panes.isOpen(info.panel)) continue;
        const bool isShown = _panes.begin(info.panel, context.sizes, badgeOf(info.panel).data());
        if(isShown && (context.isProjectThere || isAboutTheEditor(info.panel))) drawPanel(info.panel, context);
        if(isShown && ImGui::IsWindowFocused(ImGuiFocusedFlags_ChildWindows)) _focused = info.panel;
        _panes.end(info.panel);
    }
    const bool isOther = _inspected.kind != before.kind || _inspected.id != before.id;
    if(isOther && !_inspected.kind.empty()) _panes.bringToFront(Panel::Inspector);
    if(!context.isProjectThere) return;
    _inspector.fields().endFrame(context.session.changes());
    _settings.fields().endFrame(context.session.changes());
    _inspector.fields().updatePick(context.session.editor().state().pickRequest);
}

std::optional<Magnum::Vector2> EditorPanels::placeOf(std::string_view field, int part) {
    const std::optional<Magnum::Vector2> place = _inspector.fields().placeOf(field, part);
    return place ? place : _settings.fields().placeOf(field, part);
}

std::string EditorPanels::badgeOf(Panel panel) const {
    return panel == Panel::Problems ? _problems.badge() : std::string{};
}

void EditorPanels::drawPanel(Panel panel, const PanelContext& context) {
    EditorData& data = context.session.data();
    ChangeManager& changes = context.session.changes();
    switch(panel) {
    case Panel::Objects: return _outliner.draw(context.session);
    case Panel::Inspector: return _inspector.draw(data, changes, context.thumbnails, _inspected);
    case Panel::ProjectSettings: return _settings.draw(data, changes, context.thumbnails, _inspected);
    case Panel::Assets: return _assets.draw(context.session, context.pictures, context.isReplayed);
    case Panel::Resources: return _resources.draw(context.session, context.thumbnails, _inspected);
    case Panel::History: _step = _history.draw(context.session.steps()); return;
    case Panel::Log: return _log.draw(context.log);
    case Panel::Problems: return _problems.draw(context.session, _inspected);
    case Panel::Statistics: return drawStatistics(context);
    }
}

} // namespace VantrelEngine
