#include "Panels/Resources/ResourcesPanel.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

#include <Vantrel/EditorUtilities/PayloadTypes.h>
#include <imgui.h>

#include "Data/Inspected.h"
#include "Data/ProjectSession.h"
#include "Panels/CellPictures.h"
#include "Panels/DragSource.h"
#include "Panels/Keys.h"
#include "Panels/OverlappedRow.h"
#include "Utilities/ResourceEdits.h"

namespace VantrelEngine {

using namespace Corrade;

struct ResourcesPanel::Frame {
    ProjectSession& session;
    Thumbnails& thumbnails;
    InspectedResource& inspected;

    const ProjectFile& project() const { return session.data().project(); }
    // Whether the project may be edited here just now.
    bool canEdit() const {
        const ChangeManager& changes = session.changes();
        return changes.trial() == Trial::None && changes.group() < 0 && !session.editor().state().isLocked;
    }
};

namespace {

Containers::StringView view(const std::string& text) { return {text.data(), text.size()}; }

std::optional<Thumbnail> pictureOf(
    const std::string& section, const std::string& id, const ProjectFile& project, Thumbnails& thumbnails) {
    if(section == "materials") return thumbnails.ask(ResourceKind::Material, view(id));
    if(section == "meshes") return thumbnails.ask(ResourceKind::Mesh, view(id));
    if(section == "images") return thumbnails.ask(ResourceKind::Image, view(id));
    if(section != "textures") return {};
    const std::string image = imageOfTexture(project, id);
    return image.empty() ? std::optional<Thumbnail>{} : thumbnails.ask(ResourceKind::Image, view(image));
}

CellIcon iconOf(const std::string& section) {
    if(section == "meshes") return CellIcon::Model;
    return section == "images" || section == "textures" ? CellIcon::Image : CellIcon::Document;
}

// There is no room for all columns.
bool isNarrow() { return ImGui::GetWindowWidth() < ImGui::GetFontSize() * 24.0f; }

float rowHeight() { return ImGui::GetFontSize() * 2.0f; }

// Another number whenever the document may be another one.
std::uint64_t stateOf(ProjectSession& session) {
    return std::uint64_t{session.data().projectNumber} << 32 | session.data().scene().revisions().revision();
}

} // namespace

void ResourcesPanel::draw(ProjectSession& session, Thumbnails& thumbnails, InspectedResource& inspected) {
    const Frame frame{session, thumbnails, inspected};
    drawKinds(frame);
    search(frame);
    drawRows(frame);
}

void ResourcesPanel::drawKinds(const Frame& frame) {
    const float half = (ImGui::GetContentRegionAvail().x - ImGui::GetStyle().ItemSpacing.x) * 0.5f;
    const float width = std::min(ImGui::GetFontSize() * 11.0f, half);
    ImGui::SetNextItemWidth(width);
    ImGui::InputTextWithHint("##search", "Search", _searchField, sizeof _searchField);
    ImGui::SameLine();
    ImGui::SetNextItemWidth(width);
    const auto titleOf = [&frame](const ResourceTab& tab) {
        return std::string{tab.title} + " (" + std::to_string(resourceCount(frame.project(), tab.section)) + ")";
    };
    if(ImGui::BeginCombo("##kind", titleOf(ResourceTabs[_tab]).data(), ImGuiComboFlags_HeightLargest)) {
        for(std::size_t i = 0; i != std::size(ResourceTabs); ++i)
            if(ImGui::Selectable(titleOf(ResourceTabs[i]).data(), i == _tab)) {
                _tab = i;
                _renamed.clear();
                _complaint.clear();
            }
        ImGui::EndCombo();
    }
    if(_complaint.empty()) return;
    ImGui::SameLine();
    ImGui::TextColored({1.0f, 0.48f, 0.42f, 1.0f}, "%s", _complaint.data());
}

void ResourcesPanel::search(const Frame& frame) {
    const std::uint64_t state = stateOf(frame.session);
    if(!_searchField[0] || (_searched == _searchField && _searchedTab == _tab && _searchedState == state)) return;
    _searched = _searchField;
    _searchedTab = _tab;
    _searchedState = state;
    _found = searchResources(frame.project(), section(), _searched);
}

void ResourcesPanel::drawRows(const Frame& frame) {
    constexpr ImGuiTableFlags flags =
        ImGuiTableFlags_ScrollY | ImGuiTableFlags_RowBg | ImGuiTableFlags_Resizable | ImGuiTableFlags_BordersInnerV;
    const std::size_t count = _searchField[0] ? _found.size() : resourceCount(frame.project(), section());
    if(!count) return ImGui::TextDisabled(_searchField[0] ? "Nothing found" : "The project has none");
    const ImGuiTableColumnFlags hidden = isNarrow() ? ImGuiTableColumnFlags_Disabled : 0;
    if(!ImGui::BeginTable("##resources", 3, flags)) return;
    ImGui::TableSetupScrollFreeze(0, 1);
    ImGui::TableSetupColumn("Name", ImGuiTableColumnFlags_WidthStretch, 3.0f);
    ImGui::TableSetupColumn("Id", ImGuiTableColumnFlags_WidthStretch | hidden, 2.0f);
    ImGui::TableSetupColumn("Users", ImGuiTableColumnFlags_WidthFixed, ImGui::GetFontSize() * 4.0f);
    ImGui::TableHeadersRow();
    ImGuiListClipper clipper;
    clipper.Begin(int(count), rowHeight() + ImGui::GetStyle().CellPadding.y * 2.0f);
    while(clipper.Step())
        for(int row = clipper.DisplayStart; row != clipper.DisplayEnd; ++row) {
            const std::size_t i = std::size_t(row);
            const std::size_t position = _searchField[0] ? _found[i] : i;
            // An edit of a row above may have made the section smaller.
            if(position < resourceCount(frame.project(), section())) drawRow(position, frame);
        }
    ImGui::EndTable();
}

void ResourcesPanel::drawRow(std::size_t position, const Frame& frame) {
    const ResourceRow row = resourceAt(frame.project(), section(), position);
    ImGui::TableNextRow(0, rowHeight() + ImGui::GetStyle().CellPadding.y * 2.0f);
    ImGui::PushID(row.id.data());
    ImGui::TableNextColumn();
    drawName(row, frame);
    const float middle = (rowHeight() - ImGui::GetFontSize()) * 0.5f;
    if(ImGui::TableNextColumn()) {
        ImGui::SetCursorPosY(ImGui::GetCursorPosY() + middle);
        ImGui::TextDisabled("%s", row.id.data());
    }
    ImGui::TableNextColumn();
    ImGui::SetCursorPosY(ImGui::GetCursorPosY() + middle);
    ImGui::Text("%zu", usersOf(section(), row.id, frame.session));
    ImGui::PopID();
}

void ResourcesPanel::drawName(const ResourceRow& row, const Frame& frame) {
    const float size = rowHeight();
    const ImVec2 place = ImGui::GetCursorScreenPos();
    const bool isInspected = frame.inspected.kind == section() && frame.inspected.id == row.id;
    if(ImGui::Selectable("##row", isInspected, ImGuiSelectableFlags_SpanAllColumns | OverlappedRow, {0.0f, size}))
        frame.inspected = {section(), row.id};
    if(isInspected && ImGui::IsItemHovered() && ImGui::IsMouseDoubleClicked(ImGuiMouseButton_Left)) beginRename(row);
    drawDragSource(row, frame);
    drawMenu(row, frame);
    const std::optional<Thumbnail> thumbnail = pictureOf(section(), row.id, frame.project(), frame.thumbnails);
    const ImVec2 end{place.x + size, place.y + size};
    if(thumbnail)
        drawThumbnail(*thumbnail, place, end);
    else
        drawIcon(iconOf(section()), place, end);
    const float left = end.x + ImGui::GetStyle().ItemSpacing.x, top = place.y + (size - ImGui::GetFontSize()) * 0.5f;
    if(_renamed != row.id) {
        ImGui::GetWindowDrawList()->AddText(
            {left, top}, ImGui::GetColorU32(ImGuiCol_Text), row.name.data(), row.name.data() + row.name.size());
        return;
    }
    ImGui::SetCursorScreenPos({left, top - ImGui::GetStyle().FramePadding.y});
    ImGui::SetNextItemWidth(-1.0f);
    if(std::exchange(_isRenameNew, false)) ImGui::SetKeyboardFocusHere();
    const bool isEntered = ImGui::InputText("##name", _nameField, sizeof _nameField,
        ImGuiInputTextFlags_EnterReturnsTrue | ImGuiInputTextFlags_AutoSelectAll);
    if(isEntered && _nameField[0] && frame.canEdit()) renameResource(section(), row.id, _nameField, frame.session);
    if(isEntered || ImGui::IsItemDeactivated()) _renamed.clear();
}

void ResourcesPanel::beginRename(const ResourceRow& row) {
    _complaint = whyNotRenamed(section());
    if(!_complaint.empty()) return;
    _renamed = row.id;
    _isRenameNew = true;
    std::snprintf(_nameField, sizeof _nameField, "%s", row.name.data());
}

void ResourcesPanel::drawDragSource(const ResourceRow& row, const Frame& frame) {
    if(!beginDragSource()) return;
    ImGui::SetDragDropPayload(payloadTypeOf(section()), row.id.data(), row.id.size() + 1);
    const std::optional<Thumbnail> thumbnail = pictureOf(section(), row.id, frame.project(), frame.thumbnails);
    drawDragged(thumbnail ? &*thumbnail : nullptr, iconOf(section()), row.name);
    ImGui::EndDragDropSource();
}

void ResourcesPanel::drawMenu(const ResourceRow& row, const Frame& frame) {
    if(!ImGui::BeginPopupContextItem("##resource menu")) return;
    const std::string why = whyNotDeleted(section(), row.id, frame.session);
    const bool canEdit = frame.canEdit();
    if(ImGui::MenuItem("Rename", nullptr, false, canEdit && whyNotRenamed(section()).empty())) beginRename(row);
    if(ImGui::MenuItem("Duplicate", nullptr, false, canEdit)) {
        const std::string copy = duplicateResource(section(), row.id, frame.session);
        if(!copy.empty()) frame.inspected = {section(), copy};
    }
    if(ImGui::MenuItem("Delete", why.empty() ? nullptr : why.data(), false, canEdit && why.empty()))
        _complaint = deleteResource(section(), row.id, frame.session);
    ImGui::Separator();
    if(ImGui::MenuItem("Copy id")) ImGui::SetClipboardText(row.id.data());
    ImGui::EndPopup();
}

} // namespace VantrelEngine
