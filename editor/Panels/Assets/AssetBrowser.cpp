#include "Panels/Assets/AssetBrowser.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include <Vantrel/EditorUtilities/LoadFile.h>
#include <Vantrel/EditorUtilities/PayloadTypes.h>
#include <VantrelHost/FilePictures.h>
#include <imgui.h>

#include "Data/ProjectSession.h"
#include "Panels/CellPictures.h"
#include "Panels/DragSource.h"
#include "Panels/Keys.h"

namespace VantrelEngine {

namespace fs = std::filesystem;

struct AssetBrowser::Frame {
    ProjectSession& session;
    const AssetPictures& pictures;
};

namespace {

std::string folderOf(const ProjectSession& session) {
    if(!session.path().empty()) return fs::path{session.path()}.parent_path().string();
    const char* const home = std::getenv("HOME");
    return home && *home ? home : "/";
}

CellIcon iconOf(AssetKind kind) {
    switch(kind) {
    case AssetKind::Folder: return CellIcon::Folder;
    case AssetKind::Model: return CellIcon::Model;
    case AssetKind::Image: break;
    }
    return CellIcon::Image;
}

std::optional<Thumbnail> pictureOf(const Asset& asset, const std::string& path, const AssetPictures& pictures) {
    if(asset.kind == AssetKind::Folder) return {};
    return (asset.kind == AssetKind::Image ? pictures.images : pictures.models).ask(path);
}

void forget(const AssetPictures& pictures) {
    pictures.images.forget();
    pictures.models.forget();
}

void drawPicture(const std::optional<Thumbnail>& thumbnail, AssetKind kind, const ImVec2& min, float size) {
    const ImVec2 max{min.x + size, min.y + size};
    if(thumbnail)
        drawThumbnail(*thumbnail, min, max);
    else
        drawIcon(iconOf(kind), min, max);
}

// In heights of the text.
constexpr float FilterWidth = 11.0f;

float checkboxWidth(const char* label) {
    return ImGui::GetFrameHeight() + ImGui::GetStyle().ItemInnerSpacing.x + ImGui::CalcTextSize(label).x;
}

// The next item, of this width, stands beside the last one where there is room for it.
void stayOnLine(float width) {
    const float right = ImGui::GetWindowPos().x + ImGui::GetWindowContentRegionMax().x;
    if(ImGui::GetItemRectMax().x + ImGui::GetStyle().ItemSpacing.x + width <= right) ImGui::SameLine();
}

float partSpacing() { return ImGui::GetStyle().ItemSpacing.x * 0.5f; }

float partWidth(const char* name) {
    return ImGui::CalcTextSize(name).x + ImGui::GetStyle().FramePadding.x * 2.0f + partSpacing();
}

// As many of them, from the end, as there is room for beside "Project" and "...".
std::vector<PathPart> lastParts(std::vector<PathPart> parts, float width) {
    float used = partWidth("Project") + partWidth("...") + partSpacing();
    std::size_t first = parts.size();
    while(first && (used += partWidth(parts[first - 1].name.data())) <= width) --first;
    return {parts.begin() + std::ptrdiff_t(std::min(first, parts.size())), parts.end()};
}

void import(const std::string& path, ProjectSession& session) {
    loadFile({path.data(), path.size()}, session.editor(), LoadMode::Import, false);
}

} // namespace

void AssetBrowser::draw(ProjectSession& session, const AssetPictures& pictures, bool waits) {
    const Frame frame{session, pictures};
    follow(session);
    if(_folder.update(ImGui::GetTime(), waits)) {
        forget(pictures);
        // The filter that nothing has been through yet.
        _filtered.text = '\n';
    }
    drawBar(frame);
    if(!(_filtered == _filter)) showFiltered();
    drawCells(frame);
    if(!_wish.empty()) enter(std::exchange(_wish, {}));
}

// The one that was selected stays so, wherever it is now.
void AssetBrowser::showFiltered() {
    _filtered = _filter;
    _shown = filterAssets(_folder.assets(), _filter);
    _selected.reset();
    for(std::size_t i = 0; i != _shown.size(); ++i)
        if(_folder.assets()[_shown[i]].name == _selectedName) _selected = i;
}

void AssetBrowser::select(std::size_t position) {
    _selected = position;
    _selectedName = _folder.assets()[_shown[position]].name;
}

void AssetBrowser::follow(const ProjectSession& session) {
    const std::string folder = folderOf(session);
    if(folder == _project) return;
    _project = folder;
    enter(folder);
}

void AssetBrowser::enter(const std::string& folder) {
    _folder.enter(folder);
    _shown.clear();
    _selected.reset();
    _selectedName.clear();
    _filtered.text = '\n';
    _filter.text.clear();
    _filterField[0] = '\0';
}

void AssetBrowser::drawBar(const Frame& frame) {
    const Asset* const asset = selected();
    const bool isFile = asset && asset->kind != AssetKind::Folder;
    ImGui::BeginDisabled(!isFile);
    if(ImGui::Button("Import") && isFile) import(pathOf(*asset), frame.session);
    ImGui::EndDisabled();
    ImGui::SameLine();
    if(ImGui::Button(_isGrid ? "List" : "Grid")) _isGrid = !_isGrid;
    stayOnLine(ImGui::GetFontSize() * FilterWidth);
    drawFilter();
    drawPath();
}

void AssetBrowser::drawFilter() {
    ImGui::SetNextItemWidth(ImGui::GetFontSize() * FilterWidth);
    if(ImGui::InputTextWithHint("##filter", "Filter by name", _filterField, sizeof _filterField))
        _filter.text = _filterField;
    stayOnLine(checkboxWidth("Models"));
    ImGui::Checkbox("Models", &_filter.showsModels);
    stayOnLine(checkboxWidth("Images"));
    ImGui::Checkbox("Images", &_filter.showsImages);
}

void AssetBrowser::drawPath() {
    if(ImGui::SmallButton("Project")) _wish = _project;
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("%s", _project.data());
    for(const PathPart& part: lastParts(partsOf(_folder.path()), ImGui::GetContentRegionAvail().x)) {
        ImGui::SameLine(0.0f, partSpacing());
        ImGui::PushID(part.path.data());
        if(ImGui::SmallButton(part.name.data())) _wish = part.path;
        ImGui::PopID();
    }
    ImGui::SameLine();
    if(ImGui::SmallButton("...")) {
        std::snprintf(_pathField, sizeof _pathField, "%s", _folder.path().data());
        ImGui::OpenPopup("##path");
    }
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("Another folder, by its path");
    if(!ImGui::BeginPopup("##path")) return;
    ImGui::SetNextItemWidth(ImGui::GetFontSize() * 30.0f);
    if(ImGui::IsWindowAppearing()) ImGui::SetKeyboardFocusHere();
    if(ImGui::InputText("Folder", _pathField, sizeof _pathField, ImGuiInputTextFlags_EnterReturnsTrue) &&
        _pathField[0]) {
        std::error_code error;
        _wish = fs::absolute(_pathField, error).lexically_normal().string();
        ImGui::CloseCurrentPopup();
    }
    ImGui::EndPopup();
}

void AssetBrowser::drawCells(const Frame& frame) {
    ImGui::BeginChild("##assets");
    if(!_folder.error().empty()) ImGui::TextWrapped("%s: %s", _folder.path().data(), _folder.error().data());
    if(_shown.empty() && _folder.error().empty())
        ImGui::TextDisabled("%s", _folder.isReading() ? "Reading ..." : "Nothing here that can be imported");
    const CellGrid grid = gridOf(ImGui::GetFontSize() * 5.0f);
    const int columns = _isGrid ? grid.columns : 1;
    moveByKeys(columns, frame);
    ImGuiListClipper clipper;
    const float rowHeight = _isGrid ? grid.cellSize.y : ImGui::GetFontSize() * 1.5f;
    clipper.Begin((int(_shown.size()) + columns - 1) / columns, rowHeight + ImGui::GetStyle().ItemSpacing.y);
    while(clipper.Step())
        for(int row = clipper.DisplayStart; row != clipper.DisplayEnd; ++row)
            for(int column = 0; column != columns; ++column) {
                const std::size_t position = std::size_t(row) * std::size_t(columns) + std::size_t(column);
                if(position >= _shown.size()) break;
                if(column) ImGui::SameLine();
                ImGui::PushID(int(position));
                if(_isGrid)
                    drawCell(position, frame);
                else
                    drawRow(position, frame);
                ImGui::PopID();
            }
    if(_scrollsToSelected && _selected)
        ImGui::SetScrollFromPosY(ImGui::GetCursorStartPos().y - ImGui::GetScrollY() +
                (float(*_selected / std::size_t(columns)) + 0.5f) * (rowHeight + ImGui::GetStyle().ItemSpacing.y),
            0.5f);
    _scrollsToSelected = false;
    ImGui::EndChild();
}

void AssetBrowser::drawCell(std::size_t position, const Frame& frame) {
    const Asset& asset = _folder.assets()[_shown[position]];
    const CellGrid grid = gridOf(ImGui::GetFontSize() * 5.0f);
    const ImVec2 padding = ImGui::GetStyle().FramePadding, place = ImGui::GetCursorScreenPos();
    ImGui::Selectable("##cell", _selected == position, ImGuiSelectableFlags_AllowDoubleClick, grid.cellSize);
    touch(position, frame);
    const ImVec2 picture{place.x + padding.x, place.y + padding.y};
    drawPicture(pictureOf(asset, pathOf(asset), frame.pictures), asset.kind, picture, grid.pictureSize);
    const std::string name = elided(asset.name, grid.pictureSize);
    const float width = ImGui::CalcTextSize(name.data()).x;
    ImGui::GetWindowDrawList()->AddText({place.x + (grid.cellSize.x - width) * 0.5f, picture.y + grid.pictureSize},
        ImGui::GetColorU32(ImGuiCol_Text), name.data());
}

void AssetBrowser::drawRow(std::size_t position, const Frame& frame) {
    const Asset& asset = _folder.assets()[_shown[position]];
    const float height = ImGui::GetFontSize() * 1.5f;
    const ImVec2 place = ImGui::GetCursorScreenPos();
    ImGui::Selectable("##row", _selected == position, ImGuiSelectableFlags_AllowDoubleClick, {0.0f, height});
    touch(position, frame);
    drawPicture(pictureOf(asset, pathOf(asset), frame.pictures), asset.kind, place, height);
    ImGui::GetWindowDrawList()->AddText(
        {place.x + height + ImGui::GetStyle().ItemSpacing.x, place.y + (height - ImGui::GetFontSize()) * 0.5f},
        ImGui::GetColorU32(ImGuiCol_Text), asset.name.data());
}

// What the mouse does to the cell that was the last item.
void AssetBrowser::touch(std::size_t position, const Frame& frame) {
    const Asset& asset = _folder.assets()[_shown[position]];
    const bool isHovered = ImGui::IsItemHovered();
    if(isHovered && (ImGui::IsMouseClicked(ImGuiMouseButton_Left) || ImGui::IsMouseClicked(ImGuiMouseButton_Right)))
        select(position);
    if(isHovered && ImGui::IsMouseDoubleClicked(ImGuiMouseButton_Left)) open(asset, frame);
    if(asset.kind != AssetKind::Folder && beginDragSource()) {
        const std::string path = pathOf(asset);
        ImGui::SetDragDropPayload(FilePayloadType, path.data(), path.size() + 1);
        const std::optional<Thumbnail> thumbnail = pictureOf(asset, path, frame.pictures);
        drawDragged(thumbnail ? &*thumbnail : nullptr, iconOf(asset.kind), asset.name);
        ImGui::EndDragDropSource();
    } else if(isHovered)
        ImGui::SetTooltip("%s", asset.name.data());
    drawMenu(position, frame);
}

void AssetBrowser::drawMenu(std::size_t position, const Frame& frame) {
    if(!ImGui::BeginPopupContextItem("##asset menu")) return;
    const Asset& asset = _folder.assets()[_shown[position]];
    const std::string path = pathOf(asset);
    if(ImGui::MenuItem(asset.kind == AssetKind::Folder ? "Open" : "Import")) open(asset, frame);
    if(ImGui::MenuItem("Copy path")) ImGui::SetClipboardText(path.data());
    if(ImGui::MenuItem("Refresh")) {
        _folder.refresh();
        forget(frame.pictures);
    }
    ImGui::Separator();
    ImGui::TextDisabled("%s", path.data());
    ImGui::EndPopup();
}

void AssetBrowser::moveByKeys(int columns, const Frame& frame) {
    if(!ImGui::IsWindowFocused() || ImGui::GetIO().WantTextInput) return;
    if(isPressedAgain(ImGuiKey_Backspace)) _wish = fs::path{_folder.path()}.parent_path().string();
    if(_shown.empty()) return;
    const long right = long(isPressedAgain(ImGuiKey_RightArrow)) - long(isPressedAgain(ImGuiKey_LeftArrow));
    const long down = long(isPressedAgain(ImGuiKey_DownArrow)) - long(isPressedAgain(ImGuiKey_UpArrow));
    if(right || down) {
        const long last = long(_shown.size()) - 1, now = _selected ? long(*_selected) : -1;
        const long next = _selected ? now + right * (columns > 1) + down * columns : 0;
        if(next >= 0 && next <= last) select(std::size_t(next));
        _scrollsToSelected = true;
    }
    if(const Asset* const asset = isEnterPressed() ? selected() : nullptr) open(*asset, frame);
}

void AssetBrowser::open(const Asset& asset, const Frame& frame) {
    if(asset.kind == AssetKind::Folder)
        _wish = pathOf(asset);
    else
        import(pathOf(asset), frame.session);
}

std::string AssetBrowser::pathOf(const Asset& asset) const { return (fs::path{_folder.path()} / asset.name).string(); }

const Asset* AssetBrowser::selected() const {
    return _selected && *_selected < _shown.size() ? &_folder.assets()[_shown[*_selected]] : nullptr;
}

} // namespace VantrelEngine
