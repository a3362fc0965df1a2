#include "Views/SceneView/Camera/CameraMath.h"

#include <algorithm>
#include <cmath>

#include <Corrade/Utility/Assert.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Vector4.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

enum KeypadKey { KeypadOne = 321, KeypadThree = 323, KeypadSeven = 327 };

constexpr unsigned AllModifiers = ModifierShift | ModifierControl | ModifierAlt | ModifierSuper;

// Without the tolerance of the operator, which would swallow small turns.
bool isIdentical(const Quaternion& a, const Quaternion& b) {
    const Vector4 u = a.xyzw(), v = b.xyzw();
    return std::equal(u.data(), u.data() + 4, v.data());
}

bool isFinite(const Vector3& vector) {
    return std::isfinite(vector.x()) && std::isfinite(vector.y()) && std::isfinite(vector.z());
}

bool changeMode(CameraState& camera, NavigationMode from, NavigationMode to) {
    if(camera.mode != from) return false;
    camera.mode = to;
    return true;
}

// In the camera's axes. The code of a letter's key is its capital.
Vector3 movementOfKey(int key) {
    switch(key) {
    case 'W': return -Vector3::zAxis();
    case 'S': return Vector3::zAxis();
    case 'A': return -Vector3::xAxis();
    case 'D': return Vector3::xAxis();
    /* Kept: Q is up and E is down, where others have it the other way round; hands know it. */
    case 'Q': return Vector3::yAxis();
    case 'E': return -Vector3::yAxis();
    default: return {};
    }
}

void updateFlyVelocity(CameraState& camera, Float speedFactor) {
    const Vector3& direction = camera.moveDirection;
    camera.flyVelocity =
        direction.dot() < ZeroLength ? Vector3{} : direction.normalized() * (camera.flySpeed * speedFactor);
}

void moveBy(CameraState& camera, const Vector3& offset) {
    camera.transformation = DualQuaternion::translation(offset) * camera.transformation;
}

void turnAboutPivot(CameraState& camera, const Vector2i& travel, const MouseFactors& factors) {
    const Vector3 pivotInCamera{0.0f, 0.0f, -camera.orbitDistance};
    const Vector3 pivot = camera.transformation.transformPoint(pivotInCamera);
    lookAround(camera, travel, factors);
    camera.transformation = DualQuaternion::from(cameraRotation(camera), camera.transformation.translation());
    moveBy(camera, pivot - camera.transformation.transformPoint(pivotInCamera));
}

void pan(CameraState& camera, const Vector2i& travel, const MouseFactors& factors) {
    const Quaternion rotation = camera.transformation.rotation();
    const Vector2 way = Vector2{travel} * factors.pan / factors.framebufferScale;
    moveBy(camera,
        rotation.transformVector(Vector3::yAxis()) * way.y() - rotation.transformVector(Vector3::xAxis()) * way.x());
}

// Away from the pivot, or towards it, so that it stays where it is.
bool dolly(CameraState& camera, Float distance, const DepthRange& depth) {
    const Float bounded = Math::clamp(distance, depth.near, depth.far);
    // A far plane at infinity bounds nothing.
    if(!std::isfinite(bounded)) return false;
    moveBy(camera, cameraRotation(camera).transformVector(Vector3::zAxis()) * (bounded - camera.orbitDistance));
    camera.orbitDistance = bounded;
    return true;
}

bool dragDolly(CameraState& camera, const Vector2i& travel, const MouseFactors& factors, const DepthRange& depth) {
    const Float way = Float(travel.y()) * factors.rotation / factors.framebufferScale.y();
    return dolly(camera, camera.orbitDistance + camera.orbitDistance * 0.01f * way, depth);
}

}

Quaternion cameraRotation(const CameraState& camera) {
    return Quaternion::rotation(Rad{Deg{camera.yaw}}, Vector3::yAxis()) *
        Quaternion::rotation(Rad{Deg{camera.pitch}}, Vector3::xAxis());
}

Vector2i windowCenter(const Vector2& position, const Vector2& size) { return Vector2i{position} + Vector2i{size} / 2; }

bool beginFly(CameraState& camera) {
    if(!changeMode(camera, NavigationMode::Idle, NavigationMode::Fly)) return false;
    updateFlyVelocity(camera, 1.0f);
    return true;
}

bool endFly(CameraState& camera) {
    if(!changeMode(camera, NavigationMode::Fly, NavigationMode::Idle)) return false;
    camera.flyVelocity = {};
    return true;
}

bool beginOrbit(CameraState& camera) { return changeMode(camera, NavigationMode::Idle, NavigationMode::Orbit); }

bool endOrbit(CameraState& camera) { return changeMode(camera, NavigationMode::Orbit, NavigationMode::Idle); }

void lookAround(CameraState& camera, const Vector2i& travel, const MouseFactors& factors) {
    const Vector2 degrees = Vector2{travel} * factors.rotation / factors.framebufferScale;
    camera.pitch = Math::clamp(camera.pitch - degrees.y(), -90.0f, 90.0f);
    camera.yaw = std::fmod(camera.yaw - degrees.x(), 360.0f);
}

bool dragOrbit(CameraState& camera, const Vector2i& travel, unsigned modifiers, const MouseFactors& factors,
    const DepthRange& depth) {
    if(camera.mode != NavigationMode::Orbit) return false;
    switch(modifiers & AllModifiers) {
    case 0: turnAboutPivot(camera, travel, factors); return true;
    case ModifierShift: pan(camera, travel, factors); return true;
    case ModifierControl: return dragDolly(camera, travel, factors, depth);
    default: return false;
    }
}

bool scrollCamera(CameraState& camera, Float steps, bool isHovered, const DepthRange& depth) {
    if(camera.mode == NavigationMode::Fly) {
        camera.flySpeed = Math::clamp(camera.flySpeed + steps * 0.1f, camera.flySpeedMin, camera.flySpeedMax);
        updateFlyVelocity(camera, 1.0f);
        return false;
    }
    return isHovered && dolly(camera, camera.orbitDistance - camera.orbitDistance * 0.1f * steps, depth);
}

void pressMovementKey(CameraState& camera, int key, unsigned modifiers, bool isRepeat, bool hasFocus) {
    if(!isRepeat) camera.moveDirection += movementOfKey(key);
    if(hasFocus && camera.mode == NavigationMode::Fly)
        updateFlyVelocity(camera, modifiers & ModifierShift ? 2.0f : 1.0f);
}

void releaseMovementKey(CameraState& camera, int key, bool hasFocus) {
    camera.moveDirection -= movementOfKey(key);
    /* Kept: never doubled, so that a camera slows down when one of its keys is let go while Shift is held. */
    if(hasFocus && camera.mode == NavigationMode::Fly) updateFlyVelocity(camera, 1.0f);
}

bool showAxisView(CameraState& camera, int key, unsigned modifiers) {
    if(camera.mode != NavigationMode::Idle || modifiers & (ModifierControl | ModifierAlt)) return false;
    switch(key) {
    case KeypadSeven: camera.pitch = -90.0f, camera.yaw = 0.0f; return true;
    case KeypadOne: camera.pitch = 0.0f, camera.yaw = 0.0f; return true;
    case KeypadThree: camera.pitch = 0.0f, camera.yaw = -90.0f; return true;
    default: return false;
    }
}

bool advanceCamera(CameraState& camera, Double seconds) {
    const Quaternion rotation = cameraRotation(camera);
    const Vector3 offset = rotation.transformVector(camera.flyVelocity) * Float(seconds);
    // The translation of a dual quaternion is computed, and rounded: taken out and put back for nothing, it creeps.
    if(offset.dot() == 0.0f && isIdentical(rotation, camera.transformation.rotation())) return false;
    camera.transformation = DualQuaternion::from(rotation, camera.transformation.translation() + offset);
    return true;
}

BoundingSphere merged(const BoundingSphere& a, const BoundingSphere& b) {
    if(b.isEmpty()) return a;
    if(a.isEmpty()) return b;
    const Vector3d way = Vector3d{b.center} - Vector3d{a.center};
    const Double ra = a.radius, rb = b.radius;
    if((ra - rb) * (ra - rb) >= way.dot()) return rb > ra ? b : a;
    const Double distance = way.length(), radius = (ra + distance + rb) * 0.5;
    return {a.center + Vector3{way * ((radius - ra) / distance)}, Float(radius)};
}

BoundingSphere transformed(
    const BoundingSphere& sphere, const DualQuaternion& absoluteTransformation, const Vector3& absoluteScaling) {
    /* Kept: the scaling does not move the centre. Only the distance of the camera depends on it, and only where the
       bounds of a mesh lie off its origin. */
    return {absoluteTransformation.transformPoint(sphere.center), sphere.radius * absoluteScaling.max()};
}

void FramedObjects::add(const Vector3& origin, const BoundingSphere& bounds) {
    _originSum += Vector3d{origin};
    ++_count;
    _bounds = merged(_bounds, bounds);
}

Vector3 FramedObjects::center() const {
    CORRADE_ASSERT(_count != 0, "FramedObjects::center(): there is no object", {});
    return Vector3{_originSum / Double(_count)};
}

Float framingDistance(Float radius, Float fov, const Vector2i& viewportSize) {
    if(BoundingSphere{{}, radius}.isEmpty()) return 3.0f;
    Rad angle = Rad{Deg{fov}} * 0.8f;
    if(viewportSize.x() > viewportSize.y())
        angle = 2.0f * Rad{std::atan(Math::tan(angle * 0.5f) * Float(viewportSize.y()) / Float(viewportSize.x()))};
    return radius / Math::tan(angle * 0.5f);
}

bool frameObjects(CameraState& camera, const FramedObjects& objects, Float fov, const Vector2i& viewportSize,
    const DualQuaternion& parentTransformation) {
    if(objects.count() == 0) return false;
    const Float distance = framingDistance(objects.bounds().radius, fov, viewportSize);
    // Where the angles have changed in this frame, the rotation of the transformation is that of the last one.
    const Quaternion rotation = cameraRotation(camera);
    const Vector3 backwards = (parentTransformation.rotation() * rotation).transformVector(Vector3::zAxis());
    const Vector3 position = parentTransformation.inverted().transformPoint(objects.center() + backwards * distance);
    if(!isFinite(position)) return false;
    camera.transformation = DualQuaternion::from(rotation, position);
    camera.orbitDistance = distance;
    return true;
}

} // namespace VantrelEngine
