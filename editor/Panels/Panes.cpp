#include "Panels/Panes.h"

#include <imgui.h>
#include <imgui_internal.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

Range2D workArea() {
    const ImGuiViewport& viewport = *ImGui::GetMainViewport();
    return Range2D::fromSize({viewport.WorkPos.x, viewport.WorkPos.y}, {viewport.WorkSize.x, viewport.WorkSize.y});
}

#ifdef IMGUI_HAS_DOCK

void dockAtFirst(ImGuiID space, const PaneSizes& sizes) {
    const ImVec2 size = ImGui::GetMainViewport()->WorkSize;
    ImGui::DockBuilderRemoveNode(space);
    ImGui::DockBuilderAddNode(space, ImGuiDockNodeFlags_DockSpace);
    ImGui::DockBuilderSetNodeSize(space, size);
    ImGuiID rest = space, list = 0, log = 0;
    list = ImGui::DockBuilderSplitNode(rest, ImGuiDir_Left, sizes.listWidth / size.x, nullptr, &rest);
    log = ImGui::DockBuilderSplitNode(rest, ImGuiDir_Down, sizes.logHeight / size.y, nullptr, &rest);
    ImGui::DockBuilderDockWindow("Objects", list);
    ImGui::DockBuilderDockWindow("Log", log);
    ImGui::DockBuilderDockWindow("Scene View", rest);
    ImGui::DockBuilderFinish(space);
}

#else

constexpr ImGuiWindowFlags PinnedFlags = ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoResize |
    ImGuiWindowFlags_NoCollapse | ImGuiWindowFlags_NoBringToFrontOnFocus | ImGuiWindowFlags_NoSavedSettings;

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
    if(drawSplitter("##list splitter", places.listSplitter, ImGuiMouseCursor_ResizeEW))
        sizes.listWidth = Math::max(mouse.x - area.min().x() - SplitterSize * 0.5f, MinListWidth);
    if(drawSplitter("##log splitter", places.logSplitter, ImGuiMouseCursor_ResizeNS))
        sizes.logHeight = Math::max(area.max().y() - mouse.y - SplitterSize * 0.5f, MinLogHeight);
    ImGui::End();
    ImGui::PopStyleVar(2);
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
}

bool Panes::begin(const char* title, bool* isOpen, const Range2D& place) {
    ImGui::SetNextWindowSize({place.sizeX(), place.sizeY()}, ImGuiCond_FirstUseEver);
    return ImGui::Begin(title, isOpen);
}

void Panes::place(EditorState& views, unsigned view) const { views.pane(view) = {}; }

#else

void Panes::layOut(PaneSizes& sizes) {
    const Range2D area = workArea();
    _places = placePanes(area, sizes);
    drawSplitters(area, _places, sizes);
}

bool Panes::begin(const char* title, bool* isOpen, const Range2D& place) {
    ImGui::SetNextWindowPos(vector(place.min()));
    ImGui::SetNextWindowSize(vector(Math::max(place.size(), Vector2{1.0f})));
    return ImGui::Begin(title, isOpen, PinnedFlags);
}

void Panes::place(EditorState& views, unsigned view) const { views.pane(view) = _places.view; }

#endif

void Panes::end() { ImGui::End(); }

} // namespace VantrelEngine
