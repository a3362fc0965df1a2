#include "Views/SceneView/Picking/Picking.h"

#include <Magnum/Math/Functions.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>

#include "Views/SceneView/ObjectIdReadback.h"
#include "Views/SceneView/Picking/PickMath.h"
#include "Views/SceneView/Picking/Placement.h"
#include "Views/SceneView/ViewFrame.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

std::vector<Id> objectsIn(const Range2Di& rectangle, const PickTarget& target) {
    return readObjectIds(target.framebuffer, rectangle, target.data.scene().main());
}

// Who points at nothing goes on being asked.
void answer(ObjectPickRequest& request, const std::vector<Id>& objects, const Scene& scene) {
    if(objects.empty() || objects.front() == RootObject) return;
    request.name = scene.objectIds.nameOf(objects.front());
}

void selectFrom(const Range2Di& rectangle, bool isAdditive, bool toggles, const PickTarget& target) {
    EditorData& data = target.data;
    const std::vector<Id> objects = objectsIn(rectangle, target);
    if(target.state.pickRequest.isPending) return answer(target.state.pickRequest, objects, data.scene().main());
    if(!isAdditive) data.selection().clear();
    for(const Id object: objects)
        if(toggles && data.isSelected(object))
            data.deselectObject(object);
        else
            data.selectObject(object, true);
}

void placeSelected(const Range2Di& pixel, const PickTarget& target) {
    const std::optional<Id> selected = target.data.firstSelectedObject();
    if(!selected) return;
    const std::vector<Id> objects = objectsIn(pixel, target);
    if(!objects.empty()) placeObject(*selected, objects.front(), target.data, *target.state.changeManager);
}

}

bool Picking::mousePress(const MouseEvent& event, const PressState& state, const PickTarget& target) {
    PressState now = state;
    now.isBoxArmed = _boxSelectArmed;
    const Range2Di pixel = pixelBelow(event.position, target.frame);
    switch(pressAction(now, event.modifiers)) {
    case PressAction::None: return false;
    case PressAction::BeginBox:
        _boxSelectDragging = true;
        _boxSelectStart = event.position - target.frame.origin;
        return true;
    case PressAction::Place: placeSelected(pixel, target); return true;
    case PressAction::Select: selectFrom(pixel, isAdditivePress(event.modifiers), true, target); return true;
    }
    return false;
}

void Picking::mouseRelease(const MouseEvent& event, const PickTarget& target) {
    if(!_boxSelectDragging) return;
    const Range2Di box = boxRectangle(_boxSelectStart, event.position - target.frame.origin, target.frame);
    selectFrom(box, event.modifiers & ModifierShift, false, target);
    cancelBox();
}

std::optional<BoxFeedback> Picking::boxFeedback(const Vector2i& mouse, const ViewFrame& frame) const {
    if(!_boxSelectArmed) return {};
    if(!_boxSelectDragging) return BoxFeedback{};
    const Vector2i start = _boxSelectStart + frame.origin;
    return BoxFeedback{Range2D{Vector2{Math::min(start, mouse)}, Vector2{Math::max(start, mouse)}}};
}

} // namespace VantrelEngine
