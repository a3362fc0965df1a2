#include "Panels/Outliner/OutlinerPanel.h"

#include <algorithm>

#include <imgui.h>
#include <imgui_internal.h>

#include "Data/ProjectSession.h"
#include "Panels/Keys.h"
#include "Panels/TextField.h"
#include "Utilities/SelectedObjects.h"

namespace VantrelEngine {

using namespace Corrade;

void OutlinerPanel::draw(ProjectSession& session) {
    EditorData& data = session.data();
    takeProject(data);
    drawHead(session);
    _rows.update(data.scene().main(), _search);
    followSelection(data);
    const bool hasKeys = ImGui::IsWindowFocused(ImGuiFocusedFlags_ChildWindows) && !ImGui::GetIO().WantTextInput &&
        ImGui::GetCurrentContext()->OpenPopupStack.Size == 0;
    ImGui::BeginChild("##rows");
    if(hasKeys) useKeys(session);
    scrollToRow();
    scrollWhileDragging(session.editor().state());
    drawRows(session);
    drawRest(session);
    ImGui::EndChild();
}

void OutlinerPanel::takeProject(const EditorData& data) {
    if(_projectSeen == data.projectNumber) return;
    _projectSeen = data.projectNumber;
    _rows.forget();
    _search.clear();
    _naming = {};
    _anchor = _cursor = NoObject;
    _selectedSeen = data.firstSelectedObject();
}

void OutlinerPanel::drawHead(ProjectSession& session) {
    const float button = ImGui::GetFrameHeight();
    ImGui::SetNextItemWidth(-button - ImGui::GetStyle().ItemSpacing.x);
    drawTextField("##search", "Search", _search, ImGuiInputTextFlags_AutoSelectAll);
    ImGui::SameLine();
    if(ImGui::Button("+", {button, button})) ImGui::OpenPopup("##add");
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("Add an object");
    if(!ImGui::BeginPopup("##add")) return;
    if(isEscapePressed()) ImGui::CloseCurrentPopup();
    drawAddMenu(session, RootObject);
    ImGui::EndPopup();
}

// Brings into sight what was selected elsewhere, once.
void OutlinerPanel::followSelection(const EditorData& data) {
    const std::optional<Id> selected = data.firstSelectedObject();
    if(selected == _selectedSeen) return;
    _selectedSeen = selected;
    if(!selected) return;
    _rows.reveal(data.scene().main(), *selected);
    _sought = _anchor = _cursor = *selected;
}

void OutlinerPanel::scrollToRow() {
    if(!_sought) return;
    const std::optional<std::size_t> row = _rows.rowOf(*_sought);
    _sought.reset();
    if(!row) return;
    const float top = float(*row) * rowHeight(), height = ImGui::GetWindowHeight();
    if(top < ImGui::GetScrollY() || top + rowHeight() > ImGui::GetScrollY() + height)
        ImGui::SetScrollY(std::max(top - (height - rowHeight()) * 0.5f, 0.0f));
}

void OutlinerPanel::drawRows(ProjectSession& session) {
    if(!_rows.count()) ImGui::TextDisabled(_search.empty() ? "No objects" : "Nothing is called that");
    bool isNamingSeen = false;
    ImGuiListClipper clipper;
    clipper.Begin(int(_rows.count()), rowHeight());
    while(clipper.Step())
        // What a row does may change the rows behind it.
        for(int i = clipper.DisplayStart; i < clipper.DisplayEnd && std::size_t(i) < _rows.count(); ++i) {
            const OutlinerRow row = _rows.row(std::size_t(i));
            isNamingSeen |= row.object == _naming.object;
            drawOneRow(session, row);
        }
    // The field went with its row.
    if(!isNamingSeen) _naming = {};
}

void OutlinerPanel::drawOneRow(ProjectSession& session, const OutlinerRow& row) {
    EditorData& data = session.data();
    const Scene& scene = data.scene().main();
    // Deleted by a row above in this frame.
    if(!scene.isValid(row.object)) return;
    ImGui::PushID(int(row.object));
    // Rows without gaps; their menus have the usual ones.
    ImGui::PushStyleVar(ImGuiStyleVar_ItemSpacing, ImVec2{ImGui::GetStyle().ItemSpacing.x, 0.0f});
    const RowResponse response = drawRow(data, _rows, row, _naming);
    ImGui::PopStyleVar();
    if(_naming.object != row.object) {
        dragFrom(data, row.object);
        dropOn(session, row.object);
        drawRowMenu(session, row.object);
    }
    ImGui::PopID();
    answer(session, row.object, response);
}

void OutlinerPanel::answer(ProjectSession& session, Id object, const RowResponse& response) {
    EditorData& data = session.data();
    if(response.isNamed) renameObject(session, object, _naming.text);
    if(response.isNamingOver) _naming = {};
    if(response.isDoubleClicked) return beginNaming(data, object);
    if(!response.isClicked) return;
    ObjectMarks& marks = data.marks();
    switch(response.part) {
    case RowPart::Fold: return _rows.setFolded(data.scene().main(), object, !_rows.isFolded(object));
    case RowPart::Eye: return marks.setMarked(ObjectMark::Hidden, object, !marks.isMarked(ObjectMark::Hidden, object));
    case RowPart::Lock: return marks.setMarked(ObjectMark::Locked, object, !marks.isMarked(ObjectMark::Locked, object));
    case RowPart::Body: break;
    }
    // Somebody asks for an object.
    ObjectPickRequest& request = session.editor().state().pickRequest;
    if(request.isPending) {
        request.name = data.scene().main().objectIds.nameOf(object);
        return;
    }
    const ImGuiIO& io = ImGui::GetIO();
    select(data, object, io.KeyShift ? Selecting::Range : io.KeyCtrl ? Selecting::Toggle : Selecting::One);
}

// The free place below the rows is the root.
void OutlinerPanel::drawRest(ProjectSession& session) {
    const ImVec2 rest = ImGui::GetContentRegionAvail();
    if(ImGui::InvisibleButton("##rest", {std::max(rest.x, 1.0f), std::max(rest.y, rowHeight())}))
        session.data().selection().clear();
    dropOn(session, RootObject);
    drawRestMenu(session);
    _selectedSeen = session.data().firstSelectedObject();
}

void OutlinerPanel::select(EditorData& data, Id object, Selecting how) {
    const std::optional<std::size_t> from = data.scene().main().isValid(_anchor) ? _rows.rowOf(_anchor) : std::nullopt;
    const std::optional<std::size_t> to = _rows.rowOf(object);
    _cursor = object;
    if(how == Selecting::Range && from && to) {
        data.selection().clear();
        for(std::size_t i = std::min(*from, *to); i <= std::max(*from, *to); ++i)
            data.selectObject(_rows.row(i).object, true);
        return;
    }
    _anchor = object;
    if(how == Selecting::Toggle && data.isSelected(object))
        data.deselectObject(object);
    else
        data.selectObject(object, how == Selecting::Toggle);
}

void OutlinerPanel::selectChildren(EditorData& data) {
    const Scene& scene = data.scene().main();
    const std::vector<Id> parents = selectedObjects(data);
    data.selection().clear();
    for(const Id parent: parents)
        for(Id child = scene.firstChild(parent); child != NoObject; child = scene.nextSibling(child))
            data.selectObject(child, true);
}

void OutlinerPanel::beginNaming(const EditorData& data, Id object) {
    const Containers::StringView name = data.scene().main().objectNames.nameOf(object);
    _naming = {object, {name.data(), name.size()}, true};
    _sought = object;
}

void OutlinerPanel::moveTo(EditorData& data, std::ptrdiff_t row) {
    if(!_rows.count()) return;
    const auto last = std::ptrdiff_t(_rows.count()) - 1;
    const Id object = _rows.row(std::size_t(std::clamp(row, std::ptrdiff_t{0}, last))).object;
    select(data, object, ImGui::GetIO().KeyShift ? Selecting::Range : Selecting::One);
    _sought = object;
}

} // namespace VantrelEngine
