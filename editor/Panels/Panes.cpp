#include "Panels/Panes.h"

#include <string>

#include <imgui.h>
#include <imgui_internal.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

Range2D workArea() {
    const ImGuiViewport& viewport = *ImGui::GetMainViewport();
    return Range2D::fromSize({viewport.WorkPos.x, viewport.WorkPos.y}, {viewport.WorkSize.x, viewport.WorkSize.y});
}

// Stays the same window, or tab, whatever the badge.
std::string labelOf(Panel panel, const char* badge) {
    std::string label = infoOf(panel).title;
    if(*badge) label += std::string{" "} + badge;
    return label + "###" + infoOf(panel).title;
}

#ifdef IMGUI_HAS_DOCK

void dockAtFirst(ImGuiID space, const PaneSizes& sizes) {
    const ImVec2 size = ImGui::GetMainViewport()->WorkSize;
    ImGui::DockBuilderRemoveNode(space);
    ImGui::DockBuilderAddNode(space, ImGuiDockNodeFlags_DockSpace);
    ImGui::DockBuilderSetNodeSize(space, size);
    ImGuiID rest = space, panes[3]{};
    panes[0] = ImGui::DockBuilderSplitNode(rest, ImGuiDir_Left, sizes.leftWidth / size.x, nullptr, &rest);
    const float width = size.x - sizes.leftWidth;
    panes[1] = ImGui::DockBuilderSplitNode(rest, ImGuiDir_Right, sizes.rightWidth / width, nullptr, &rest);
    panes[2] = ImGui::DockBuilderSplitNode(rest, ImGuiDir_Down, sizes.bottomHeight / size.y, nullptr, &rest);
    for(const PanelInfo& panel: Panels)
        ImGui::DockBuilderDockWindow(labelOf(panel.panel, "").data(), panes[std::size_t(panel.pane)]);
    ImGui::DockBuilderDockWindow("Scene View", rest);
    ImGui::DockBuilderFinish(space);
}

#else

constexpr ImGuiWindowFlags PinnedFlags = ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoResize |
    ImGuiWindowFlags_NoCollapse | ImGuiWindowFlags_NoBringToFrontOnFocus | ImGuiWindowFlags_NoSavedSettings;

constexpr const char* PaneNames[]{"##left", "##right", "##bottom"};

ImVec2 vector(const Vector2& vector) { return {vector.x(), vector.y()}; }

// Whether the splitter is being dragged.
bool drawSplitter(const char* id, const Range2D& place, ImGuiMouseCursor cursor) {
    if(place.sizeX() <= 0.0f || place.sizeY() <= 0.0f) return false;
    ImGui::SetCursorScreenPos(vector(place.min()));
    ImGui::InvisibleButton(id, vector(place.size()));
    const bool isActive = ImGui::IsItemActive();
    if(!isActive && !ImGui::IsItemHovered()) return false;
    ImGui::SetMouseCursor(cursor);
    ImGui::GetWindowDrawList()->AddRectFilled(vector(place.min()), vector(place.max()),
        ImGui::GetColorU32(isActive ? ImGuiCol_SeparatorActive : ImGuiCol_SeparatorHovered));
    return isActive;
}

// Behind the panes; seen, and reached by the mouse, between them.
void drawSplitters(const Range2D& area, const PanePlaces& places, PaneSizes& sizes) {
    ImGui::SetNextWindowPos(vector(area.min()));
    ImGui::SetNextWindowSize(vector(Math::max(area.size(), Vector2{1.0f})));
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2{0.0f, 0.0f});
    ImGui::PushStyleVar(ImGuiStyleVar_WindowBorderSize, 0.0f);
    ImGui::Begin("##workspace", nullptr, PinnedFlags | ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoNavFocus);
    ImGui::BringWindowToDisplayBack(ImGui::GetCurrentWindow());
    const ImVec2 mouse = ImGui::GetIO().MousePos;
    if(drawSplitter("##left splitter", places.leftSplitter, ImGuiMouseCursor_ResizeEW))
        sizes.leftWidth = Math::max(mouse.x - area.min().x() - SplitterSize * 0.5f, MinPaneWidth);
    if(drawSplitter("##right splitter", places.rightSplitter, ImGuiMouseCursor_ResizeEW))
        sizes.rightWidth = Math::max(area.max().x() - mouse.x - SplitterSize * 0.5f, MinPaneWidth);
    if(drawSplitter("##bottom splitter", places.bottomSplitter, ImGuiMouseCursor_ResizeNS))
        sizes.bottomHeight = Math::max(area.max().y() - mouse.y - SplitterSize * 0.5f, MinPaneHeight);
    ImGui::End();
    ImGui::PopStyleVar(2);
}

// Of the panels of one pane that are open.
bool isFirst(Panel panel, const PaneSizes& sizes) {
    for(const PanelInfo& other: Panels)
        if(other.pane == infoOf(panel).pane && sizes[other.panel]) return other.panel == panel;
    return false;
}

// The tab that is shown into sight; the library does so only when another one is chosen.
void seekShownTab() {
    ImGuiTabBar& tabs = *ImGui::GetCurrentContext()->CurrentTabBar;
    if(!tabs.NextSelectedTabId) tabs.NextSelectedTabId = tabs.SelectedTabId;
}

bool isLast(Panel panel, const PaneSizes& sizes) {
    for(const PanelInfo& other: Panels)
        if(other.pane == infoOf(panel).pane && sizes[other.panel] && other.panel > panel) return false;
    return true;
}

#endif

} // namespace

#ifdef IMGUI_HAS_DOCK

void Panes::layOut(PaneSizes& sizes) {
    const ImGuiID space = ImGui::GetID("##workspace");
    // It is known when this is not the first frame, or when it was remembered.
    if(_isReset || !ImGui::DockBuilderGetNode(space)) dockAtFirst(space, sizes);
    _isReset = false;
    ImGui::DockSpaceOverViewport(space);
    _places = placePanes(workArea(), sizes);
    _sizes = sizes;
}

bool Panes::begin(Panel panel, PaneSizes& sizes, const char* badge) {
    const Range2D& place = _places.of(infoOf(panel).pane);
    ImGui::SetNextWindowSize({place.sizeX(), place.sizeY()}, ImGuiCond_FirstUseEver);
    if(_front == panel) {
        ImGui::SetNextWindowFocus();
        _front.reset();
    }
    return ImGui::Begin(labelOf(panel, badge).data(), &sizes[panel]);
}

void Panes::end(Panel) { ImGui::End(); }

void Panes::place(EditorState& views, unsigned view) const { views.pane(view) = {}; }

#else

void Panes::layOut(PaneSizes& sizes) {
    const Range2D area = workArea();
    _places = placePanes(area, sizes);
    drawSplitters(area, _places, sizes);
    _sizes = sizes;
}

bool Panes::begin(Panel panel, PaneSizes& sizes, const char* badge) {
    const PanelInfo& info = infoOf(panel);
    if(isFirst(panel, _sizes)) {
        const Range2D& place = _places.of(info.pane);
        ImGui::SetNextWindowPos(vector(place.min()));
        ImGui::SetNextWindowSize(vector(Math::max(place.size(), Vector2{1.0f})));
        _isPaneShown =
            ImGui::Begin(PaneNames[std::size_t(info.pane)], nullptr, PinnedFlags | ImGuiWindowFlags_NoTitleBar) &&
            ImGui::BeginTabBar("##panels", ImGuiTabBarFlags_FittingPolicyScroll);
        const TabRoom room{place.sizeX(), ImGui::GetFontSize()};
        TabRoom& before = _tabRooms[std::size_t(info.pane)];
        if(_isPaneShown && room != before) seekShownTab();
        if(_isPaneShown) before = room;
    }
    const ImGuiTabItemFlags flags = _front == panel ? ImGuiTabItemFlags_SetSelected : ImGuiTabItemFlags_None;
    if(_front == panel) _front.reset();
    _isPanelShown = _isPaneShown && ImGui::BeginTabItem(labelOf(panel, badge).data(), &sizes[panel], flags);
    return _isPanelShown && ImGui::BeginChild(info.key);
}

void Panes::end(Panel panel) {
    if(_isPanelShown) {
        ImGui::EndChild();
        ImGui::EndTabItem();
    }
    if(!isLast(panel, _sizes)) return;
    if(_isPaneShown) ImGui::EndTabBar();
    ImGui::End();
}

void Panes::place(EditorState& views, unsigned view) const { views.pane(view) = _places.view; }

#endif

} // namespace VantrelEngine
