#include "Views/SceneView/Gizmo/TransformGizmo.h"

#include <imgui.h>
// The library's own header needs the one above.
#include <ImGuizmo.h>

#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>

#include "ChangeManager.h"
#include "Views/SceneView/Gizmo/GizmoMath.h"
#include "Views/SceneView/ViewCamera.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

ImGuizmo::OPERATION libraryOperation(GizmoOperation operation) {
    switch(operation) {
    case GizmoOperation::Translate: return ImGuizmo::TRANSLATE;
    case GizmoOperation::Rotate: return ImGuizmo::ROTATE;
    case GizmoOperation::Scale: return ImGuizmo::SCALE;
    }
    return ImGuizmo::TRANSLATE;
}

// Length of an axis as a part of the picture's shorter side.
constexpr Float AxisLength = 0.15f;

// The library wants a part of half the longer side.
Float clipSpaceSize(const Vector2i& size) { return 2.0f * AxisLength * Float(size.min()) / Float(size.max()); }

// What the library says of a change is not relied on for translations, which it may tell from those of the frame before:
// it says then that the mouse, moving evenly, moved nothing, and that it moved something when a handle is clicked.
bool hasMoved(GizmoOperation operation, bool isReported, const Matrix4& delta) {
    if(operation != GizmoOperation::Translate) return isReported;
    const Vector3 way = delta.translation();
    return way.x() != 0.0f || way.y() != 0.0f || way.z() != 0.0f;
}

ImGuizmo::MODE libraryMode(GizmoSpace space) { return space == GizmoSpace::Local ? ImGuizmo::LOCAL : ImGuizmo::WORLD; }

}

void TransformGizmo::setOperation(GizmoOperation operation, GizmoSpace space, SharedState& state) {
    endDrag(state);
    releaseHandle();
    _settings.gizmoOperation = operation;
    _settings.gizmoSpace = space;
}

void TransformGizmo::beginFrame() { ImGuizmo::BeginFrame(); }

// Of any operation the library may answer as of two frames before.
bool TransformGizmo::isOver() const { return ImGuizmo::IsOver(libraryOperation(_settings.gizmoOperation)); }

bool TransformGizmo::draw(const GizmoScene& scene) {
    const std::optional<Grip> grip = this->grip(scene.data);
    const bool isOther = grip && _isHeld && grip->key != _heldKey;
    // Others have ended the trial, with what was dragged.
    const bool isTaken = _gizmoInUse && scene.state.changeManager->trial() != Trial::Gesture;
    if(!grip || isOther || isTaken) endDrag(scene.state);
    if(!grip) return false;

    ImGuizmo::SetDrawlist();
    ImGuizmo::SetRect(Float(scene.origin.x()), Float(scene.origin.y()), Float(scene.size.x()), Float(scene.size.y()));
    ImGuizmo::SetGizmoSizeClipSpace(clipSpaceSize(scene.size));
    ViewManager& views = scene.camera.views();
    const Matrix4 view = views.viewTransform(scene.camera.view()).toMatrix();
    Matrix4 matrix = _isHeld && _isSeveral ? Matrix4::translation(_heldPosition) : grip->matrix, delta;
    const bool wasHeld = _isHeld;
    const bool isReported = ImGuizmo::Manipulate(view.data(), views.projectionMatrix(scene.camera.view()).data(),
        libraryOperation(_settings.gizmoOperation), libraryMode(_settings.gizmoSpace), matrix.data(), delta.data(),
        snapSteps());
    // The mouse has not moved yet in the frame that takes a handle.
    const bool isChanged = wasHeld && hasMoved(_settings.gizmoOperation, isReported, delta);
    if(scene.isBusy && !_isHeld) {
        if(ImGuizmo::IsUsing()) releaseHandle();
        return false;
    }
    if(ImGuizmo::IsUsing()) {
        _isHeld = scene.state.isHandleHeld = true;
        _heldKey = grip->key;
        _heldPosition = matrix.translation();
    }
    if(isChanged) record(scene, *grip, delta);
    // Nobody goes along: the handle would go alone.
    if(_recorder && !_recorder->isAnyoneLeft({_objects.data(), _objects.size()})) endDrag(scene.state);
    // The library may not see the button go up where another window is under the mouse.
    if(!ImGuizmo::IsUsing() || !ImGui::GetIO().MouseDown[0]) endDrag(scene.state);
    return isChanged;
}

// None where nothing is selected, or what is selected is nowhere.
std::optional<TransformGizmo::Grip> TransformGizmo::grip(EditorData& data) {
    Scene& scene = data.scene().main();
    const std::size_t count = data.selection().countSet();
    if(!count) return {};
    scene.computeAbsoluteTransformations();
    _isSeveral = count > 1;
    Matrix4 matrix;
    UnsignedLong gesture = 0;
    if(_isSeveral) {
        _objects = _topmost.find(scene, data.selection());
        matrix = Matrix4::translation(meanPosition(data));
        gesture = gestureKey({_objects.data(), _objects.size()});
    } else {
        const Id object = *data.firstSelectedObject();
        _objects.assign(1, object);
        // Without sizes, as that of several: the library can compute neither with those that are all but zero nor turn
        // what is mirrored the way that the mouse goes.
        matrix = scene.absoluteTransformation(object).toMatrix();
        gesture = object;
    }
    if(!isFinite(matrix)) return {};
    return Grip{groupKey(_settings.gizmoOperation, _settings.gizmoSpace, gesture), matrix};
}

Vector3 TransformGizmo::meanPosition(const EditorData& data) const {
    Vector3d sum;
    for(const Id object: _objects) sum += Vector3d{data.scene().main().absoluteTransformation(object).translation()};
    return Vector3{sum / Double(_objects.size())};
}

/* Kept: Ctrl never switches steps off; a hand that holds it wants steps. */
const Float* TransformGizmo::snapSteps() const {
    const bool isControlHeld = ImGui::GetIO().KeyCtrl;
    switch(_settings.gizmoOperation) {
    case GizmoOperation::Translate:
        return _settings.snapTranslationEnabled || isControlHeld ? _settings.snapTranslation.data() : nullptr;
    case GizmoOperation::Rotate:
        return _settings.snapRotationEnabled || isControlHeld ? &_settings.snapRotation : nullptr;
    case GizmoOperation::Scale:
        return _settings.snapScaleEnabled || isControlHeld ? _settings.snapScale.data() : nullptr;
    }
    return nullptr;
}

void TransformGizmo::record(const GizmoScene& scene, const Grip& grip, const Matrix4& delta) {
    ChangeManager& changes = *scene.state.changeManager;
    if(!_recorder) {
        changes.beginTrial(Trial::Gesture);
        _recorder.emplace(scene.data, scene.state);
    }
    changes.beginGroup(grip.key, _gizmoInUse);
    _gizmoInUse = true;
    if(_settings.gizmoOperation == GizmoOperation::Scale)
        // The library's delta is the total of the drag, since the matrix carries no size.
        _recorder->scale(axisLengths(delta), {_objects.data(), _objects.size()});
    else
        _recorder->move(delta, {_objects.data(), _objects.size()});
    changes.commit();
    _recorder->committed();
}

void TransformGizmo::releaseHandle() {
    ImGuizmo::Enable(false);
    ImGuizmo::Enable(true);
}

void TransformGizmo::endDrag(SharedState& state) {
    if(_isHeld) releaseHandle();
    if(_gizmoInUse && state.changeManager->trial() == Trial::Gesture) state.changeManager->keepTrial();
    _recorder.reset();
    _isHeld = _gizmoInUse = state.isHandleHeld = false;
}

void TransformGizmo::cancelDrag(SharedState& state) {
    if(_gizmoInUse && state.changeManager->trial() == Trial::Gesture) state.changeManager->dropTrial();
    _gizmoInUse = false;
    endDrag(state);
}

} // namespace VantrelEngine
