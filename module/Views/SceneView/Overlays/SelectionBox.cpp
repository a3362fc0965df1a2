#include "Views/SceneView/Overlays/SelectionBox.h"

#include "Views/UserInterface.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr ImU32 BoxColor = IM_COL32(255, 0, 153, 204);

}

void drawSelectionBox(const std::optional<Range2D>& box) {
    ImGui::SetMouseCursor(ImGuiMouseCursor_COUNT);
    if(!box) return;
    ImGui::GetForegroundDrawList()->AddRect(
        UserInterface::vector(box->min()), UserInterface::vector(box->max()), BoxColor);
}

} // namespace VantrelEngine
