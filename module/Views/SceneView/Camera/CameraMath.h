#pragma once

#include <cstddef>
#include <cstdint>

#include <Magnum/Magnum.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector3.h>
#include <Vantrel/Module/InputEvents.h>

// The camera of the view as numbers: it is told what the user did and says where it stands. It knows no window, no
// cursor and no scene. Everything is constant time.
//
// The camera looks along its negative z axis, x is to the right, y up. Its orientation is the two angles; the rotation
// of its transformation follows them at the next advanceCamera().
namespace VantrelEngine {

// Lengths up to this, and squared lengths below it, count as zero.
constexpr Magnum::Float ZeroLength = 1.0e-5f;

enum class NavigationMode : std::uint8_t { Idle = 0, Fly = 1, Orbit = 2 };

struct CameraState {
    Magnum::Float pitch = 0.0f; // degrees, [-90, 90]; upwards is positive
    Magnum::Float yaw = 0.0f;   // degrees, (-360, 360); to the left is positive
    // In the space of the camera's parent, a unit dual quaternion.
    Magnum::DualQuaternion transformation;
    // From the camera to the pivot in front of it, scene units.
    Magnum::Float orbitDistance = 3.0f;

    NavigationMode mode = NavigationMode::Idle;
    // Sum of the movement keys that are held, in the camera's axes.
    Magnum::Vector3 moveDirection;
    // Scene units per second, in the camera's axes; zero unless flying.
    Magnum::Vector3 flyVelocity;
    // Scene units per second.
    Magnum::Float flySpeed = 3.0f;
    Magnum::Float flySpeedMin = 0.1f;
    Magnum::Float flySpeedMax = 100.0f;
};

// What a way of the mouse is worth.
struct MouseFactors {
    Magnum::Float rotation; // degrees a pixel
    Magnum::Float pan;      // scene units a pixel
    // Framebuffer pixels per window pixel, above 0.
    Magnum::Vector2 framebufferScale{1.0f};
};

// Near and far plane, scene units. The far one may be at infinity.
struct DepthRange {
    Magnum::Float near;
    Magnum::Float far;
};

// Yaw about the y axis after pitch about the x axis.
Magnum::Quaternion cameraRotation(const CameraState& camera);

// Where the cursor is pinned to while flying. Window pixels; position and size are cut to whole ones first.
Magnum::Vector2i windowCenter(const Magnum::Vector2& position, const Magnum::Vector2& size);

// A mode begins only where none is on, and ends only where it is that mode: false where nothing happens. Keys that are
// held when the camera takes off move it at once, at single speed.
bool beginFly(CameraState& camera);
bool endFly(CameraState& camera);
bool beginOrbit(CameraState& camera);
bool endOrbit(CameraState& camera);

// Look around while flying: the travel of the cursor away from the centre, in pixels, x to the right and y down.
// Changes the angles only.
void lookAround(CameraState& camera, const Magnum::Vector2i& travel, const MouseFactors& factors);

// The mouse moved by some pixels, x to the right and y down, while orbiting. Without a modifier it turns the camera
// about the pivot, with Shift alone it moves the camera so that the scene follows the mouse, with Ctrl alone it changes
// the distance to the pivot, within the depth range. False where nothing was done: in another mode, or with other
// modifiers.
bool dragOrbit(CameraState& camera, const Magnum::Vector2i& travel, unsigned modifiers, const MouseFactors& factors,
    const DepthRange& depth);

// The wheel was turned by some steps, away from the user is positive. While flying it changes the speed, by 0.1 a step;
// else, over the picture, the distance to the pivot, by ten per cent a step and within the depth range. Whether the
// transformation changed.
bool scrollCamera(CameraState& camera, Magnum::Float steps, bool isHovered, const DepthRange& depth);

// A key went down or up: W and S move forwards and back, A and D to the left and right, Q and E up and down. They are
// counted in every mode, so that each press and its release balance; repeats are not counted. While flying, and with
// the focus, the velocity is computed again; a press with Shift doubles it, a release never does.
void pressMovementKey(CameraState& camera, int key, unsigned modifiers, bool isRepeat, bool hasFocus);
void releaseMovementKey(CameraState& camera, int key, bool hasFocus);

// Keys 7, 1 and 3 of the keypad look from above, from the front and from the side. The camera stays where it is. False,
// and nothing happens, for another key, unless idle, and with Ctrl or Alt.
bool showAxisView(CameraState& camera, int key, unsigned modifiers);

// One frame: brings the rotation up to the angles and flies on for so many seconds. Whether the transformation changed;
// a camera at rest keeps it to the bit.
bool advanceCamera(CameraState& camera, Magnum::Double seconds);

// A sphere of a radius of at most 1e-5 is empty: it contains nothing, whatever its centre.
struct BoundingSphere {
    Magnum::Vector3 center;
    Magnum::Float radius = 0.0f;

    bool isEmpty() const { return !(radius > ZeroLength); }
};

// The smallest sphere around both.
BoundingSphere merged(const BoundingSphere& a, const BoundingSphere& b);

// From an object's space to the scene's, given the absolute transformation and scaling of the object. The radius grows
// by the largest component of the scaling; those that are not a number are skipped.
BoundingSphere transformed(const BoundingSphere& sphere, const Magnum::DualQuaternion& absoluteTransformation,
    const Magnum::Vector3& absoluteScaling);

// What is framed: objects with their origins and bounds in the scene's space.
class FramedObjects {
public:
    void add(const Magnum::Vector3& origin, const BoundingSphere& bounds);

    std::size_t count() const { return _count; }
    const BoundingSphere& bounds() const { return _bounds; }
    // Mean of the origins. There must be an object.
    Magnum::Vector3 center() const;

private:
    Magnum::Vector3d _originSum;
    std::size_t _count = 0;
    BoundingSphere _bounds;
};

// From how far, in scene units, a sphere of this radius fills four fifths of the field of view: the horizontal one, in
// degrees, or in a picture that is wider than high the vertical one that belongs to it. 3 for an empty sphere. Sizes
// are at least one pixel.
Magnum::Float framingDistance(Magnum::Float radius, Magnum::Float fov, const Magnum::Vector2i& viewportSize);

// Backs off from the centre of the objects along the direction of view, as far as their bounds need, and makes the
// centre the pivot. The absolute transformation of the camera's parent is a unit dual quaternion. Without objects, or
// where the place would not be finite, nothing happens: false.
bool frameObjects(CameraState& camera, const FramedObjects& objects, Magnum::Float fov,
    const Magnum::Vector2i& viewportSize, const Magnum::DualQuaternion& parentTransformation);

} // namespace VantrelEngine
