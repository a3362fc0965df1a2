#include "Views/SceneView/Gizmo/DragRecorder.h"

#include <algorithm>
#include <cmath>
#include <string>

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <Vantrel/EngineData/ValueAccess.h>

#include "AssetCompiler.h"
#include "ChangeManager.h"
#include "Views/SceneView/Gizmo/GizmoMath.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Of a scaling that the scene computes with, as the stand-in of zero.
bool hasStandIn(const Vector3& scaling) {
    return std::any_of(
        scaling.data(), scaling.data() + 3, [](Float factor) { return std::abs(factor) == SafeScaling; });
}

// Too large for a float it is infinite, too small zero.
bool isUsableScaling(const Vector3& scaling) {
    return isFinite(scaling) &&
        std::none_of(scaling.data(), scaling.data() + 3, [](Float factor) { return factor == 0.0f; });
}

bool hasZero(const ValueAccess& scaling) {
    for(std::size_t i = 0; i != 3; ++i)
        if(scaling[i].readValue().asFloat(1.0f, JsonObject::WhenMissing::Accept) == 0.0f) return true;
    return false;
}

}

template<class Function> void DragRecorder::forEachDragged(Objects objects, Function&& function) {
    for(const Id object: objects) {
        if(leftOut().isSet(object) || isSimulated(object)) continue;
        const ValueAccess entry = entryOf(object);
        if(entry.exists()) function(object, entry);
    }
}

void DragRecorder::move(const Matrix4& delta, Objects objects) {
    if(!_isFlatKnown) leaveOutFlat(objects);
    forEachDragged(objects, [&](Id object, const ValueAccess& entry) { moveObject(delta, object, entry); });
    sayLeftOut(Reason::Skewed);
}

/* Kept: each object along its own axes, and where it is: sizes are what is chosen, not distances. */
void DragRecorder::scale(const Vector3& factors, Objects objects) {
    forEachDragged(objects, [&](Id object, const ValueAccess& entry) {
        Vector3& scaling = _data.scene().main().localScaling(object);
        const Vector3 scaled = _scalingBefore.try_emplace(object, scaling).first->second * factors;
        if(!isUsableScaling(scaled)) return;
        scaling = scaled;
        recordTransform(object, entry);
    });
}

void DragRecorder::committed() {
    const Scene& scene = _data.scene().main();
    for(const Id object: _written) _state.assetCompiler->setWritten(scene.objectIds.nameOf(object));
    _written.clear();
}

ValueAccess DragRecorder::entryOf(Id object) const {
    return ValueAccess{_data.project()}["objects"][_data.scene().main().objectIds.nameOf(object)];
}

bool DragRecorder::isSimulated(Id object) const {
    if(!_state.isSimulating()) return false;
    const Scene& scene = _data.scene().main();
    const UnsignedByte bodies = scene.componentManagerIndex("physx");
    const Containers::ArrayView<const UnsignedByte> types = scene.componentTypes(object);
    for(std::size_t i = 0; i != types.size(); ++i)
        if(types[i] == bodies && scene.componentManager(bodies)->isActive(scene.components(object)[i])) return true;
    return false;
}

bool DragRecorder::isBelowZero(Id object) const {
    const Scene& scene = _data.scene().main();
    for(Id above = scene.parent(object); above != RootObject; above = scene.parent(above))
        if(hasStandIn(scene.localScaling(above)) && hasZero(entryOf(above)["scaling"])) return true;
    return false;
}

// Known for the whole drag: who is dragged has no ancestor that is.
void DragRecorder::leaveOutFlat(Objects objects) {
    _isFlatKnown = true;
    forEachDragged(objects, [this](Id object, const ValueAccess&) {
        if(isBelowZero(object)) leaveOut(object);
    });
    sayLeftOut(Reason::Flat);
}

void DragRecorder::moveObject(const Matrix4& delta, Id object, const ValueAccess& entry) {
    Scene& scene = _data.scene().main();
    const Id parent = scene.parent(object);
    const Matrix4 local = draggedLocal(
        {scene.absoluteTransformation(parent), scene.absoluteScaling(parent)}, delta, entry.readValue().asTransform());
    if(!isWithoutShear(local)) return leaveOut(object);
    // The document's, whose signs are in the matrix.
    scene.localTransformation(object) = rigidPart(local, entry["scaling"].readValue().asScaling());
    recordTransform(object, entry);
}

void DragRecorder::recordTransform(Id object, const ValueAccess& entry) {
    Scene& scene = _data.scene().main();
    scene.setDirty(object);
    const std::string path = entry.path();
    const Containers::StringView pointer{path.data(), path.size()};
    /* Kept: all three, also where one of them changed, since they are undone together. */
    // A matrix would lose the signs of the scaling, and some of its last digits in each frame.
    const DualQuaternion& local = scene.localTransformation(object);
    _state.changeManager->recordTransform(
        pointer, local.translation(), local.rotation(), scene.localScaling(object), true);
    _written.push_back(object);
}

void DragRecorder::leaveOut(Id object) {
    leftOut().set(object);
    ++_leftOutCount;
    _newlyLeftOut.push_back(object);
}

void DragRecorder::sayLeftOut(Reason reason) {
    if(_newlyLeftOut.empty()) return;
    const std::string first = entryOf(_newlyLeftOut.front()).description();
    Utility::Warning out;
    out << "TransformGizmo::draw():" << first.data();
    if(_newlyLeftOut.size() > 1) out << "and" << _newlyLeftOut.size() - 1 << "more";
    out << (reason == Reason::Flat ? "cannot be moved where a parent is scaled to zero"
                                   : "cannot be turned like this: the scaling of a parent would skew it");
    _newlyLeftOut.clear();
}

} // namespace VantrelEngine
