#include <algorithm>
#include <string>

#include <imgui.h>

#include "Data/ProjectSession.h"
#include "Panels/DragSource.h"
#include "Panels/Outliner/OutlinerPanel.h"
#include "Utilities/SelectedObjects.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr const char* ObjectPayload = "DND_OBJECT";

// So near to the upper and lower end rows are scrolled, in rows; and so many a second.
constexpr float ScrollZone = 1.5f;
constexpr float ScrollSpeed = 18.0f;

bool isDragging() {
    const ImGuiPayload* const payload = ImGui::GetDragDropPayload();
    return payload && payload->IsDataType(ObjectPayload);
}

std::string textOf(Containers::StringView text) { return {text.data(), text.size()}; }

// Near the edges of a row it is about its neighbours: they become siblings.
bool isBetweenRows() {
    const float top = ImGui::GetItemRectMin().y, height = ImGui::GetItemRectSize().y;
    const float place = (ImGui::GetIO().MousePos.y - top) / std::max(height, 1.0f);
    return place < 0.25f || place > 0.75f;
}

void drawTarget(bool isBetween) {
    const ImVec2 min = ImGui::GetItemRectMin(), max = ImGui::GetItemRectMax();
    const unsigned color = ImGui::GetColorU32(ImGuiCol_DragDropTarget);
    const float y = ImGui::GetIO().MousePos.y < (min.y + max.y) * 0.5f ? min.y : max.y;
    if(isBetween)
        ImGui::GetWindowDrawList()->AddLine({min.x, y}, {max.x, y}, color, 2.0f);
    else
        ImGui::GetWindowDrawList()->AddRect(min, max, color, 2.0f, 0, 1.5f);
}

} // namespace

// The name of the row travels; with it go all that are selected.
void OutlinerPanel::dragFrom(const EditorData& data, Id object) {
    if(!beginDragSource()) return;
    const Scene& scene = data.scene().main();
    const std::string id = textOf(scene.objectIds.nameOf(object)), name = textOf(shownName(scene, object));
    ImGui::SetDragDropPayload(ObjectPayload, id.data(), id.size() + 1);
    if(_dragged.empty()) _dragged = data.isSelected(object) ? selectedObjects(data) : std::vector<Id>{object};
    const std::size_t others = _dragged.size() - 1;
    ImGui::TextUnformatted(others ? (name + " and " + std::to_string(others) + " more").data() : name.data());
    ImGui::EndDragDropSource();
}

void OutlinerPanel::dropOn(ProjectSession& session, Id target) {
    if(!ImGui::BeginDragDropTarget()) return;
    const ImGuiPayload* const payload = ImGui::AcceptDragDropPayload(
        ObjectPayload, ImGuiDragDropFlags_AcceptBeforeDelivery | ImGuiDragDropFlags_AcceptNoDrawDefaultRect);
    if(payload) {
        const Scene& scene = session.data().scene().main();
        const bool isBetween = target != RootObject && isBetweenRows();
        const Id parent = isBetween ? scene.parent(target) : target;
        _dragged.erase(
            std::remove_if(_dragged.begin(), _dragged.end(), [&](Id object) { return !scene.isValid(object); }),
            _dragged.end());
        const std::string reason = whyNotReparented(scene, _dragged, parent);
        if(reason.empty()) drawTarget(isBetween);
        const std::string where =
            parent == RootObject ? "Move to the root" : "Attach to " + textOf(shownName(scene, parent));
        ImGui::SetTooltip("%s", reason.empty() ? where.data() : reason.data());
        if(payload->IsDelivery()) {
            reparentObjects(session, _dragged, parent);
            _dragged.clear();
        }
    }
    ImGui::EndDragDropTarget();
}

void OutlinerPanel::scrollWhileDragging(SharedState& state) {
    if(!isDragging()) return _dragged.clear();
    const ImVec2 mouse = ImGui::GetIO().MousePos, min = ImGui::GetWindowPos(), size = ImGui::GetWindowSize();
    if(mouse.x < min.x || mouse.x > min.x + size.x || mouse.y < min.y || mouse.y > min.y + size.y) return;
    const float zone = rowHeight() * ScrollZone, way = rowHeight() * ScrollSpeed * ImGui::GetIO().DeltaTime;
    const bool isUp = mouse.y<min.y + zone, isDown = mouse.y> min.y + size.y - zone;
    if(!isUp && !isDown) return;
    ImGui::SetScrollY(std::clamp(ImGui::GetScrollY() + (isUp ? -way : way), 0.0f, ImGui::GetScrollMaxY()));
    // Also while the mouse is still.
    state.wantsFrame = true;
}

} // namespace VantrelEngine
