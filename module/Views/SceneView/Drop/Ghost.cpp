#include "Views/SceneView/Drop/Ghost.h"

#include <Vantrel/EditorData/ViewPointer.h>

#include "Views/SceneView/Drop/DropMath.h"
#include "Views/UserInterface.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Seen on light and on dark ground.
constexpr ImU32 EdgeColor = IM_COL32(255, 255, 255, 235);
constexpr ImU32 ShadeColor = IM_COL32(0, 0, 0, 150);
constexpr Float EdgeWidth = 1.5f;
constexpr Float ShadeWidth = 3.5f;

Vector3 corner(const Range3D& box, UnsignedInt i) {
    return {i & 1 ? box.max().x() : box.min().x(), i & 2 ? box.max().y() : box.min().y(),
        i & 4 ? box.max().z() : box.min().z()};
}

void drawEdges(const Range3D& box, const ViewPointer& pointer, ImU32 color, Float width) {
    const Matrix4 viewProjection = pointer.projection * pointer.view;
    for(UnsignedInt from = 0; from != 8; ++from)
        for(UnsignedInt axis = 1; axis != 8; axis <<= 1) {
            if(from & axis) continue;
            const auto line =
                screenLine(corner(box, from), corner(box, from | axis), viewProjection, pointer.rectangle);
            if(!line) continue;
            ImGui::GetWindowDrawList()->AddLine(
                UserInterface::vector(line->from), UserInterface::vector(line->to), color, width);
        }
}

}

Range3D ghostBox(const std::optional<Range3D>& bounds, const Vector3& place) {
    const Range3D box = bounds.value_or(Range3D{{-0.5f, 0.0f, -0.5f}, {0.5f, 1.0f, 0.5f}});
    const Vector3 foot{box.center().x(), box.min().y(), box.center().z()};
    return box.translated(place - foot);
}

void drawGhost(const Range3D& box, const ViewPointer& pointer) {
    ImGui::PushClipRect(
        UserInterface::vector(pointer.rectangle.min()), UserInterface::vector(pointer.rectangle.max()), true);
    drawEdges(box, pointer, ShadeColor, ShadeWidth);
    drawEdges(box, pointer, EdgeColor, EdgeWidth);
    ImGui::PopClipRect();
}

} // namespace VantrelEngine
