#include "Panels/Outliner/OutlinerRowView.h"

#include <algorithm>

#include <Vantrel/EditorData/EditorData.h>
#include <imgui.h>
#include <imgui_internal.h>

#include "Panels/CutText.h"
#include "Panels/Outliner/OutlinerIcons.h"
#include "Panels/Outliner/OutlinerRows.h"
#include "Panels/TextField.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

// From left to right, window points.
struct RowPlaces {
    float left, fold, icon, name, eye, lock, right;
};

RowPlaces placesOf(std::size_t depth) {
    const float left = ImGui::GetCursorScreenPos().x, width = ImGui::GetContentRegionAvail().x, cell = rowHeight();
    const float right = left + width;
    // Deep ones are not moved any further to the right than there is place for a name.
    const float indentation = std::min(ImGui::GetStyle().IndentSpacing * float(depth), std::max(width * 0.4f, 0.0f));
    const float fold = left + indentation;
    return {left, fold, fold + cell * 0.8f, fold + cell * 1.8f, right - cell * 2.0f, right - cell, right};
}

OutlinerIcon iconOf(const Scene& scene, Id object) {
    struct Rank {
        Scene::ManagerIndex manager;
        OutlinerIcon icon;
    };
    constexpr Rank ranks[]{{Scene::Mesh, OutlinerIcon::Mesh}, {Scene::Light, OutlinerIcon::Light},
        {Scene::View, OutlinerIcon::View}, {Scene::Text, OutlinerIcon::Text}, {Scene::PhysX, OutlinerIcon::Body},
        {Scene::Collision, OutlinerIcon::Body}};
    const auto types = scene.componentTypes(object);
    for(const Rank& rank: ranks)
        if(std::find(types.begin(), types.end(), rank.manager) != types.end()) return rank.icon;
    if(!types.isEmpty()) return OutlinerIcon::Other;
    return scene.firstChild(object) == NoObject ? OutlinerIcon::Empty : OutlinerIcon::Group;
}

RowPart partAt(const RowPlaces& places, float x, bool hasChildren) {
    if(x >= places.lock) return RowPart::Lock;
    if(x >= places.eye) return RowPart::Eye;
    return hasChildren && x >= places.fold && x < places.icon ? RowPart::Fold : RowPart::Body;
}

void drawFold(const RowPlaces& places, float y, bool isFolded) {
    const float size = ImGui::GetFontSize();
    const ImVec2 corner{places.fold + 0.1f * size, y + (rowHeight() - size * 0.7f) * 0.5f};
    ImGui::RenderArrow(ImGui::GetWindowDrawList(), corner, ImGui::GetColorU32(ImGuiCol_TextDisabled),
        isFolded ? ImGuiDir_Right : ImGuiDir_Down, 0.7f);
}

// A mark of its own is bright, one of an ancestor dim; the rest is seen under the mouse.
void drawMark(const ObjectMarks& marks, ObjectMark mark, Id object, float x, float y, bool isHovered) {
    const bool isOwn = marks.isMarked(mark, object);
    const bool isInEffect = mark == ObjectMark::Hidden ? marks.isHidden(object) : marks.isLocked(object);
    if(!isInEffect && !isHovered) return;
    const OutlinerIcon icon = mark == ObjectMark::Hidden ? (isInEffect ? OutlinerIcon::ClosedEye : OutlinerIcon::Eye)
                                                         : (isInEffect ? OutlinerIcon::Lock : OutlinerIcon::OpenLock);
    const unsigned color = ImGui::GetColorU32(isOwn ? ImGuiCol_Text : ImGuiCol_TextDisabled, isInEffect ? 1.0f : 0.7f);
    const float cell = rowHeight();
    drawIcon(
        *ImGui::GetWindowDrawList(), icon, {x + cell * 0.5f, y + cell * 0.5f}, ImGui::GetFontSize() * 0.85f, color);
}

const char* tooltipOf(const ObjectMarks& marks, RowPart part, Id object) {
    if(part == RowPart::Eye)
        return marks.isMarked(ObjectMark::Hidden, object) ? "Show"
            : marks.isHidden(object)                      ? "Hidden with what it is attached to"
                                                          : "Hide";
    return marks.isMarked(ObjectMark::Locked, object) ? "Unlock"
        : marks.isLocked(object)                      ? "Locked with what it is attached to"
                                                      : "Lock: it cannot be selected then";
}

// As far as the marks that are seen.
void drawName(
    const RowPlaces& places, float y, Containers::StringView name, unsigned color, bool hasMarks, bool isHovered) {
    const float end = (hasMarks ? places.eye : places.right) - ImGui::GetStyle().ItemInnerSpacing.x;
    const ImVec2 place{places.name, y + (rowHeight() - ImGui::GetFontSize()) * 0.5f};
    const ImVec2 size = ImGui::CalcTextSize(name.data(), name.data() + name.size());
    ImGui::PushStyleColor(ImGuiCol_Text, color);
    drawCutText(place, end, y + rowHeight(), {name.data(), name.size()});
    ImGui::PopStyleColor();
    if(isHovered && places.name + size.x > end) ImGui::SetTooltip("%.*s", int(name.size()), name.data());
}

RowResponse drawNaming(const RowPlaces& places, const ImVec2& start, RowNaming& naming) {
    RowResponse response;
    ImGui::SetCursorScreenPos({places.name, start.y});
    ImGui::SetNextItemWidth(places.eye - places.name);
    ImGui::PushStyleVar(ImGuiStyleVar_FramePadding, ImVec2{2.0f, (rowHeight() - ImGui::GetFontSize()) * 0.5f});
    if(naming.isNew) ImGui::SetKeyboardFocusHere();
    response.isNamed = false;
    drawTextField("##name", "", naming.text, ImGuiInputTextFlags_AutoSelectAll);
    // With Escape it is what it was.
    response.isNamed = response.isNamingOver = ImGui::IsItemDeactivated();
    ImGui::PopStyleVar();
    naming.isNew = false;
    ImGui::SetCursorScreenPos({start.x, start.y + rowHeight()});
    return response;
}

} // namespace

float rowHeight() { return ImGui::GetFontSize() + ImGui::GetStyle().FramePadding.y; }

RowResponse drawRow(const EditorData& data, const OutlinerRows& rows, const OutlinerRow& row, RowNaming& naming) {
    const Scene& scene = data.scene().main();
    const ObjectMarks& marks = data.marks();
    const RowPlaces places = placesOf(row.depth);
    const ImVec2 start = ImGui::GetCursorScreenPos();
    const bool hasChildren = scene.firstChild(row.object) != NoObject, isNamed = naming.object == row.object;

    RowResponse response;
    bool isHovered = false;
    if(isNamed)
        response = drawNaming(places, start, naming);
    else {
        response.isClicked = ImGui::Selectable("##row", data.isSelected(row.object), 0, {0.0f, rowHeight()});
        isHovered = ImGui::IsItemHovered();
        response.part = partAt(places, ImGui::GetIO().MouseClickedPos[0].x, hasChildren);
        response.isDoubleClicked =
            isHovered && response.part == RowPart::Body && ImGui::IsMouseDoubleClicked(ImGuiMouseButton_Left);
        const RowPart hovered = partAt(places, ImGui::GetIO().MousePos.x, hasChildren);
        if(isHovered && (hovered == RowPart::Eye || hovered == RowPart::Lock))
            ImGui::SetTooltip("%s", tooltipOf(marks, hovered, row.object));
    }

    const unsigned color =
        ImGui::GetColorU32(marks.isHidden(row.object) || !row.isMatch ? ImGuiCol_TextDisabled : ImGuiCol_Text);
    if(hasChildren) drawFold(places, start.y, rows.isFolded(row.object));
    drawIcon(*ImGui::GetWindowDrawList(), iconOf(scene, row.object),
        {places.icon + rowHeight() * 0.4f, start.y + rowHeight() * 0.5f}, ImGui::GetFontSize() * 0.8f,
        ImGui::GetColorU32(ImGuiCol_Text, marks.isHidden(row.object) ? 0.35f : 0.65f));
    const RowPart under = partAt(places, ImGui::GetIO().MousePos.x, hasChildren);
    const bool hasMarks = isHovered || marks.isHidden(row.object) || marks.isLocked(row.object);
    if(!isNamed)
        drawName(places, start.y, shownName(scene, row.object), color, hasMarks, isHovered && under == RowPart::Body);
    drawMark(marks, ObjectMark::Hidden, row.object, places.eye, start.y, isHovered);
    drawMark(marks, ObjectMark::Locked, row.object, places.lock, start.y, isHovered);
    return response;
}

} // namespace VantrelEngine
