#include "Views/SceneView/Picking/PickMath.h"

#include <Magnum/Math/Functions.h>
#include <Vantrel/Module/InputEvents.h>

#include "Views/SceneView/ViewFrame.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

Int whole(Float coordinate) { return Int(Math::clamp(coordinate, -1.0e6f, 1.0e6f)); }

Vector2i corner(const Vector2i& point, const ViewFrame& frame) {
    const Vector2 pixels = Vector2{point} * frame.pixelsPerPoint;
    return {whole(pixels.x()), whole(frame.framebufferSize.y() - pixels.y())};
}

}

PressAction pressAction(const PressState& state, unsigned modifiers) {
    if(!state.isHovered || state.isFlying) return PressAction::None;
    if(state.isBoxArmed) return PressAction::BeginBox;
    if(modifiers == (ModifierControl | ModifierShift)) return PressAction::Place;
    return state.isOverHandle ? PressAction::None : PressAction::Select;
}

/* Kept: Shift with other modifiers does not add here, but at the end of a box it does. */
bool isAdditivePress(unsigned modifiers) { return modifiers == ModifierShift; }

Range2Di boxRectangle(const Vector2i& a, const Vector2i& b, const ViewFrame& frame) {
    const Vector2i first = corner(a, frame), second = corner(b, frame);
    return {Math::min(first, second), Math::max(first, second)};
}

} // namespace VantrelEngine
