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

// Of a pane without a panel that is open, too, something is left to dock into.
float partOf(float size, float whole) { return Math::clamp(size / Math::max(whole, 1.0f), 0.05f, 0.95f); }

// What is docked beside the view becomes larger or smaller; the view has the rest.
void scaleDocked(ImGuiDockNode* node, float factor) {
    if(!node) return;
    if(!node->IsCentralNode()) node->SizeRef = {node->SizeRef.x * factor, node->SizeRef.y * factor};
    for(ImGuiDockNode* const child: node->ChildNodes) scaleDocked(child, factor);
}

void dockAtFirst(ImGuiID space, const PanePlaces& places) {
    const ImVec2 size = ImGui::GetMainViewport()->WorkSize;
    ImGui::DockBuilderRemoveNode(space);
    ImGui::DockBuilderAddNode(space, ImGuiDockNodeFlags_DockSpace);
    ImGui::DockBuilderSetNodeSize(space, size);
    ImGuiID rest = space, panes[3]{};
    panes[0] = ImGui::DockBuilderSplitNode(rest, ImGuiDir_Left, partOf(places.left.sizeX(), size.x), nullptr, &rest);
    const float width = size.x - places.left.sizeX();
    panes[1] = ImGui::DockBuilderSplitNode(rest, ImGuiDir_Right, partOf(places.right.sizeX(), width), nullptr, &rest);
    panes[2] = ImGui::DockBuilderSplitNode(rest, ImGuiDir_Down, partOf(places.bottom.sizeY(), size.y), nullptr, &rest);
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
void drawSplitters(const Range2D& area, const PanePlaces& places, PaneSizes& sizes, Float scale) {
    ImGui::SetNextWindowPos(vector(area.min()));
    ImGui::SetNextWindowSize(vector(Math::max(area.size(), Vector2{1.0f})));
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2{0.0f, 0.0f});
    ImGui::PushStyleVar(ImGuiStyleVar_WindowBorderSize, 0.0f);
    ImGui::Begin("##workspace", nullptr, PinnedFlags | ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoNavFocus);
    ImGui::BringWindowToDisplayBack(ImGui::GetCurrentWindow());
    const ImVec2 mouse = ImGui::GetIO().MousePos;
    if(drawSplitter("##left splitter", places.leftSplitter, ImGuiMouseCursor_ResizeEW))
        sizes = draggedSizes(area, sizes, scale, Pane::Left, mouse.x);
    if(drawSplitter("##right splitter", places.rightSplitter, ImGuiMouseCursor_ResizeEW))
        sizes = draggedSizes(area, sizes, scale, Pane::Right, mouse.x);
    if(drawSplitter("##bottom splitter", places.bottomSplitter, ImGuiMouseCursor_ResizeNS))
        sizes = draggedSizes(area, sizes, scale, Pane::Bottom, mouse.y);
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

// Of those that have no room some are cut: a list has them all.
ImGuiTabBarFlags tabFlags(bool hasRoom) {
    return ImGuiTabBarFlags_FittingPolicyScroll |
        (hasRoom ? 0 : ImGuiTabBarFlags_TabListPopupButton | ImGuiTabBarFlags_NoTabListScrollingButtons);
}

// Whether the tabs of the bar that is drawn fit beside each other.
bool hasRoomForTabs() {
    const ImGuiTabBar& bar = *ImGui::GetCurrentContext()->CurrentTabBar;
    const ImGuiWindow& window = *ImGui::GetCurrentWindow();
    float width = 0.0f;
    for(const ImGuiTabItem& tab: bar.Tabs) width += tab.ContentWidth + ImGui::GetStyle().ItemInnerSpacing.x;
    return width <= window.WorkRect.GetWidth();
}

bool isLast(Panel panel, const PaneSizes& sizes) {
    for(const PanelInfo& other: Panels)
        if(other.pane == infoOf(panel).pane && sizes[other.panel] && other.panel > panel) return false;
    return true;
}

#endif

} // namespace

#ifdef IMGUI_HAS_DOCK

void Panes::layOut(PaneSizes& sizes, Float scale) {
    const ImGuiID space = ImGui::GetID("##workspace");
    _places = placePanes(workArea(), sizes, scale);
    // It is known when this is not the first frame, or when it was remembered.
    if(_isReset || !ImGui::DockBuilderGetNode(space))
        dockAtFirst(space, _places);
    else if(_scale > 0.0f && scale != _scale)
        scaleDocked(ImGui::DockBuilderGetNode(space), scale / _scale);
    _isReset = false;
    _scale = scale;
    ImGui::DockSpaceOverViewport(space);
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

void Panes::layOut(PaneSizes& sizes, Float scale) {
    const Range2D area = workArea();
    _places = placePanes(area, sizes, scale);
    drawSplitters(area, _places, sizes, scale);
    _scale = scale;
    _sizes = sizes;
}

bool Panes::begin(Panel panel, PaneSizes& sizes, const char* badge) {
    const PanelInfo& info = infoOf(panel);
    if(isFirst(panel, _sizes)) {
        const Range2D& place = _places.of(info.pane);
        ImGui::SetNextWindowPos(vector(place.min()));
        ImGui::SetNextWindowSize(vector(Math::max(place.size(), Vector2{1.0f})));
        TabRoom& before = _tabRooms[std::size_t(info.pane)];
        _isPaneShown =
            ImGui::Begin(PaneNames[std::size_t(info.pane)], nullptr, PinnedFlags | ImGuiWindowFlags_NoTitleBar) &&
            ImGui::BeginTabBar("##panels", tabFlags(before.isEnough));
        const TabRoom room{place.sizeX(), ImGui::GetFontSize(), before.isEnough};
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
    if(_isPaneShown) _tabRooms[std::size_t(infoOf(panel).pane)].isEnough = hasRoomForTabs();
    if(_isPaneShown) ImGui::EndTabBar();
    ImGui::End();
}

void Panes::place(EditorState& views, unsigned view) const { views.pane(view) = _places.view; }

#endif

} // namespace VantrelEngine
