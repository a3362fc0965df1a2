#include "Views/SceneView/Camera/CameraNavigation.h"

#include <Vantrel/EditorData/EditorData.h>

#include "Views/SceneView/Camera/SceneBounds.h"
#include "Views/SceneView/ViewCamera.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr Vector3 FirstPosition{3.0f, 3.0f, 3.0f};

DepthRange depthRange(const ViewCamera& camera) { return {camera.near(), camera.far()}; }

}

void CameraNavigation::reset(EditorData& data, ViewCamera& camera) {
    restore(data, camera, DualQuaternion::translation(FirstPosition), FirstPosition.length(), CameraState{}.flySpeed);
}

void CameraNavigation::restore(
    EditorData& data, ViewCamera& camera, const DualQuaternion& transformation, Float orbitDistance, Float flySpeed) {
    // Keys that are held now will be released.
    const Vector3 moveDirection = _state.moveDirection;
    _state = {};
    _state.moveDirection = moveDirection;
    _state.transformation = transformation;
    _state.orbitDistance = orbitDistance;
    _state.flySpeed = flySpeed;
    _state.pitch = data.cameraPitch;
    _state.yaw = data.cameraYaw;
    advanceCamera(_state, 0.0);
    write(data, camera);
}

void CameraNavigation::setFlySpeed(Float speed) {
    _state.flySpeed = Math::clamp(speed, _state.flySpeedMin, _state.flySpeedMax);
}

CameraNavigation::Change CameraNavigation::mousePress(const MouseEvent& event, bool isHovered) {
    if(!isHovered) return Change::None;
    if(event.button == MouseButton::Right && beginFly(_state)) {
        _savedCursorPosition = event.position;
        return Change::FlyBegan;
    }
    return event.button == MouseButton::Middle && beginOrbit(_state) ? Change::OrbitBegan : Change::None;
}

CameraNavigation::Change CameraNavigation::mouseRelease(const MouseEvent& event) {
    if(event.button == MouseButton::Right && endFly(_state)) return Change::FlyEnded;
    return event.button == MouseButton::Middle && endOrbit(_state) ? Change::OrbitEnded : Change::None;
}

void CameraNavigation::mouseMove(
    const MouseMoveEvent& event, bool isHovered, const MouseFactors& factors, EditorData& data, ViewCamera& camera) {
    if(!isHovered && _state.mode != NavigationMode::Fly) return;
    read(data, camera);
    if(dragOrbit(_state, event.relativePosition, event.modifiers, factors, depthRange(camera))) write(data, camera);
}

void CameraNavigation::mouseScroll(
    const MouseScrollEvent& event, bool isHovered, EditorData& data, ViewCamera& camera) {
    read(data, camera);
    if(scrollCamera(_state, event.offset.y(), isHovered, depthRange(camera))) write(data, camera);
}

void CameraNavigation::keyPress(const KeyEvent& event, bool hasFocus) {
    pressMovementKey(_state, event.key, event.modifiers, event.isRepeated, hasFocus);
}

void CameraNavigation::showAxisView(const KeyEvent& event, EditorData& data) {
    if(VantrelEngine::showAxisView(_state, event.key, event.modifiers)) write(data);
}

void CameraNavigation::keyRelease(const KeyEvent& event, bool hasFocus) {
    releaseMovementKey(_state, event.key, hasFocus);
}

CameraNavigation::Change CameraNavigation::endMode() {
    if(endFly(_state)) return Change::FlyEnded;
    return endOrbit(_state) ? Change::OrbitEnded : Change::None;
}

bool CameraNavigation::frameSelection(EditorData& data, ViewCamera& camera, Middle middle) {
    Scene& scene = data.scene().main();
    FramedObjects objects;
    if(data.firstSelectedObject()) scene.computeAbsoluteTransformations();
    for(const SelectedBounds& selected: boundsOfSelection(data)) {
        // What has its meshes in common with another one is in the middle of those once.
        if(middle == Middle::Meshes && selected.isWithinOther) continue;
        const bool isAboutMeshes = middle == Middle::Meshes && !selected.bounds.isEmpty();
        const Vector3 origin = scene.absoluteTransformation(selected.object).translation();
        objects.add(isAboutMeshes ? selected.bounds.center : origin, selected.bounds);
    }
    camera.scene().computeAbsoluteTransformation(camera.object());
    read(data, camera);
    const DualQuaternion parent = camera.scene().absoluteTransformation(camera.scene().parent(camera.object()));
    if(!frameObjects(_state, objects, camera.fov(), camera.viewportSize(), parent)) return false;
    write(data, camera);
    return true;
}

void CameraNavigation::advance(EditorData& data, ViewCamera& camera, Double seconds) {
    read(data, camera);
    if(advanceCamera(_state, seconds)) write(data, camera);
}

void CameraNavigation::look(const Vector2i& travel, const MouseFactors& factors, EditorData& data) {
    _state.pitch = data.cameraPitch;
    _state.yaw = data.cameraYaw;
    lookAround(_state, travel, factors);
    write(data);
}

void CameraNavigation::read(const EditorData& data, const ViewCamera& camera) {
    _state.pitch = data.cameraPitch;
    _state.yaw = data.cameraYaw;
    _state.transformation = camera.transformation();
}

void CameraNavigation::write(EditorData& data) const {
    data.cameraPitch = _state.pitch;
    data.cameraYaw = _state.yaw;
}

void CameraNavigation::write(EditorData& data, ViewCamera& camera) const {
    write(data);
    camera.setTransformation(_state.transformation);
}

} // namespace VantrelEngine
