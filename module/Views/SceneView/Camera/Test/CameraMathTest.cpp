#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "CameraTestSupport.h"
#include "Views/SceneView/Camera/CameraMath.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using VantrelTest::expectNear;
using VantrelTest::isIdentical;

constexpr DepthRange Depth{0.5f, 100.0f};
// A quarter of a degree and a hundredth of a unit a pixel; two framebuffer pixels per window pixel in x, four in y.
constexpr MouseFactors Factors{0.25f, 0.01f, {2.0f, 4.0f}};

CameraState cameraAt(const Vector3& position, Float pitch = 0.0f, Float yaw = 0.0f) {
    CameraState camera;
    camera.pitch = pitch;
    camera.yaw = yaw;
    camera.transformation = DualQuaternion::from(cameraRotation(camera), position);
    return camera;
}

CameraState orbiting(const Vector3& position, Float distance, Float pitch = 0.0f, Float yaw = 0.0f) {
    CameraState camera = cameraAt(position, pitch, yaw);
    camera.mode = NavigationMode::Orbit;
    camera.orbitDistance = distance;
    return camera;
}

CameraState flying(const char* heldKeys = "") {
    CameraState camera;
    for(const char* key = heldKeys; *key; ++key) pressMovementKey(camera, *key, 0, false, true);
    EXPECT_TRUE(beginFly(camera));
    return camera;
}

Vector3 pivot(const CameraState& camera) {
    return camera.transformation.transformPoint({0.0f, 0.0f, -camera.orbitDistance});
}

bool isUnchanged(const CameraState& a, const CameraState& b) {
    return a.pitch == b.pitch && a.yaw == b.yaw && isIdentical(a.transformation, b.transformation) &&
        a.orbitDistance == b.orbitDistance && a.mode == b.mode && a.flySpeed == b.flySpeed &&
        isIdentical(a.moveDirection, b.moveDirection) && isIdentical(a.flyVelocity, b.flyVelocity);
}

TEST(CameraMathTest, startsIdleAtRest) {
    const CameraState camera;
    EXPECT_EQ(camera.mode, NavigationMode::Idle);
    EXPECT_EQ(camera.flySpeed, 3.0f);
    EXPECT_EQ(camera.flySpeedMin, 0.1f);
    EXPECT_EQ(camera.flySpeedMax, 100.0f);
    EXPECT_EQ(camera.orbitDistance, 3.0f);
    expectNear(camera.moveDirection, {}, 0.0f);
    expectNear(camera.flyVelocity, {}, 0.0f);
}

TEST(CameraMathTest, anglesTurnYawAfterPitch) {
    const Float half = std::sqrt(0.5f);
    const struct {
        Float pitch, yaw;
        Vector3 forward, up;
    } data[]{
        {0.0f, 0.0f, {0.0f, 0.0f, -1.0f}, {0.0f, 1.0f, 0.0f}},
        {0.0f, 90.0f, {-1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}},
        {0.0f, -90.0f, {1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}},
        {90.0f, 0.0f, {0.0f, 1.0f, 0.0f}, {0.0f, 0.0f, 1.0f}},
        {-90.0f, 0.0f, {0.0f, -1.0f, 0.0f}, {0.0f, 0.0f, -1.0f}},
        {45.0f, 90.0f, {-half, half, 0.0f}, {half, half, 0.0f}},
    };
    for(const auto& angles: data) {
        SCOPED_TRACE(std::to_string(angles.pitch) + " " + std::to_string(angles.yaw));
        const Quaternion rotation = cameraRotation(cameraAt({}, angles.pitch, angles.yaw));
        EXPECT_NEAR(rotation.length(), 1.0f, 1.0e-6f);
        expectNear(rotation.transformVector(-Vector3::zAxis()), angles.forward);
        expectNear(rotation.transformVector(Vector3::yAxis()), angles.up);
    }
}

TEST(CameraMathTest, windowCenterIsOfWholePixels) {
    const struct {
        Vector2 position, size;
        Vector2i center;
    } data[]{
        {{0.0f, 0.0f}, {640.0f, 480.0f}, {320, 240}},
        {{10.9f, 20.9f}, {101.7f, 50.2f}, {60, 45}},
        {{-3.9f, -200.0f}, {5.0f, 1.9f}, {-1, -200}},
    };
    for(const auto& window: data) {
        const Vector2i center = windowCenter(window.position, window.size);
        EXPECT_EQ(center.x(), window.center.x());
        EXPECT_EQ(center.y(), window.center.y());
    }
}

TEST(CameraMathTest, modesBeginFromIdleAndEndWhereTheyAre) {
    const struct {
        const char* name;
        bool (*change)(CameraState&);
        NavigationMode from, to;
    } data[]{
        {"beginFly", beginFly, NavigationMode::Idle, NavigationMode::Fly},
        {"endFly", endFly, NavigationMode::Fly, NavigationMode::Idle},
        {"beginOrbit", beginOrbit, NavigationMode::Idle, NavigationMode::Orbit},
        {"endOrbit", endOrbit, NavigationMode::Orbit, NavigationMode::Idle},
    };
    for(const auto& change: data)
        for(const NavigationMode mode: {NavigationMode::Idle, NavigationMode::Fly, NavigationMode::Orbit}) {
            SCOPED_TRACE(std::string{change.name} + " from " + std::to_string(int(mode)));
            CameraState camera;
            camera.mode = mode;
            EXPECT_EQ(change.change(camera), mode == change.from);
            EXPECT_EQ(camera.mode, mode == change.from ? change.to : mode);
        }
}

TEST(CameraMathTest, keysMoveAlongTheAxesOfTheCamera) {
    const struct {
        int key;
        Vector3 movement;
    } data[]{
        {'W', {0.0f, 0.0f, -1.0f}},
        {'S', {0.0f, 0.0f, 1.0f}},
        {'A', {-1.0f, 0.0f, 0.0f}},
        {'D', {1.0f, 0.0f, 0.0f}},
        {'Q', {0.0f, 1.0f, 0.0f}},
        {'E', {0.0f, -1.0f, 0.0f}},
        {'F', {}},
        {'w', {}},
        {-1, {}},
    };
    for(const auto& key: data) {
        SCOPED_TRACE(key.key);
        CameraState camera;
        pressMovementKey(camera, key.key, 0, false, true);
        expectNear(camera.moveDirection, key.movement, 0.0f);
        releaseMovementKey(camera, key.key, true);
        expectNear(camera.moveDirection, {}, 0.0f);
    }
}

TEST(CameraMathTest, keysBalanceInEveryModeAndWithoutFocus) {
    const int pressed[]{'W', 'A', 'Q', 'S'}, released[]{'A', 'S', 'W', 'Q'};
    for(const NavigationMode mode: {NavigationMode::Idle, NavigationMode::Fly, NavigationMode::Orbit})
        for(const bool hasFocus: {false, true}) {
            CameraState camera;
            camera.mode = mode;
            for(const int key: pressed) pressMovementKey(camera, key, 0, false, hasFocus);
            pressMovementKey(camera, 'A', 0, true, hasFocus);
            expectNear(camera.moveDirection, {-1.0f, 1.0f, 0.0f}, 0.0f);
            for(const int key: released) releaseMovementKey(camera, key, hasFocus);
            expectNear(camera.moveDirection, {}, 0.0f);
            expectNear(camera.flyVelocity, {}, 0.0f);
        }
}

TEST(CameraMathTest, velocityIsZeroUnlessFlying) {
    for(const NavigationMode mode: {NavigationMode::Idle, NavigationMode::Orbit}) {
        CameraState camera;
        camera.mode = mode;
        pressMovementKey(camera, 'W', ModifierShift, false, true);
        expectNear(camera.flyVelocity, {}, 0.0f);
    }
    CameraState camera = flying("W");
    EXPECT_TRUE(endFly(camera));
    expectNear(camera.flyVelocity, {}, 0.0f);
    expectNear(camera.moveDirection, {0.0f, 0.0f, -1.0f}, 0.0f);
}

TEST(CameraMathTest, heldKeysTakeOffAtFlySpeed) {
    const Float side = 3.0f / std::sqrt(2.0f);
    CameraState camera = flying("WA");
    expectNear(camera.flyVelocity, {-side, 0.0f, -side});
    EXPECT_NEAR(camera.flyVelocity.length(), 3.0f, 1.0e-5f);

    expectNear(flying("WS").flyVelocity, {}, 0.0f);

    // At single speed, even where the key was pressed with Shift.
    CameraState shifted;
    pressMovementKey(shifted, 'D', ModifierShift, false, true);
    EXPECT_TRUE(beginFly(shifted));
    expectNear(shifted.flyVelocity, {3.0f, 0.0f, 0.0f});
}

TEST(CameraMathTest, shiftDoublesThePressAndNoRelease) {
    CameraState camera = flying();
    camera.flySpeed = 5.0f;
    pressMovementKey(camera, 'W', ModifierShift | ModifierAlt, false, true);
    expectNear(camera.flyVelocity, {0.0f, 0.0f, -10.0f});
    pressMovementKey(camera, 'A', ModifierControl, false, true);
    EXPECT_NEAR(camera.flyVelocity.length(), 5.0f, 1.0e-5f);
    // A repeat, of whatever key, computes the velocity again.
    pressMovementKey(camera, 'X', ModifierShift, true, true);
    EXPECT_NEAR(camera.flyVelocity.length(), 10.0f, 1.0e-5f);
    releaseMovementKey(camera, 'A', true);
    expectNear(camera.flyVelocity, {0.0f, 0.0f, -5.0f});
    releaseMovementKey(camera, 'W', true);
    expectNear(camera.flyVelocity, {}, 0.0f);
}

TEST(CameraMathTest, velocityStaysWithoutFocus) {
    CameraState camera = flying("W");
    pressMovementKey(camera, 'D', ModifierShift, false, false);
    expectNear(camera.flyVelocity, {0.0f, 0.0f, -3.0f});
    releaseMovementKey(camera, 'W', false);
    expectNear(camera.flyVelocity, {0.0f, 0.0f, -3.0f});
    expectNear(camera.moveDirection, {1.0f, 0.0f, 0.0f}, 0.0f);
}

TEST(CameraMathTest, aDirectionBelowTheThresholdIsNone) {
    const struct {
        Float squaredLength;
        bool moves;
    } data[]{{0.9e-5f, false}, {1.1e-5f, true}};
    for(const auto& direction: data) {
        CameraState camera;
        camera.moveDirection = {0.0f, std::sqrt(direction.squaredLength), 0.0f};
        EXPECT_TRUE(beginFly(camera));
        expectNear(camera.flyVelocity, {0.0f, direction.moves ? 3.0f : 0.0f, 0.0f});
    }
}

TEST(CameraMathTest, lookTurnsByFactorAndScale) {
    const struct {
        Float pitch, yaw;
        Vector2i travel;
        Float newPitch, newYaw;
    } data[]{
        {10.0f, 20.0f, {8, 16}, 9.0f, 19.0f},
        {10.0f, 20.0f, {-8, -16}, 11.0f, 21.0f},
        {10.0f, 20.0f, {0, 0}, 10.0f, 20.0f},
        // Pitch stops, yaw wraps and keeps its sign.
        {89.0f, 0.0f, {0, -32}, 90.0f, 0.0f},
        {-89.0f, 0.0f, {0, 32}, -90.0f, 0.0f},
        {0.0f, -359.5f, {8, 0}, 0.0f, -0.5f},
        {0.0f, 359.5f, {-8, 0}, 0.0f, 0.5f},
        {0.0f, 0.0f, {4, 0}, 0.0f, -0.5f},
        {0.0f, 0.0f, {2880 * 3 + 8, 0}, 0.0f, -1.0f},
    };
    for(const auto& look: data) {
        CameraState camera = cameraAt({1.0f, 2.0f, 3.0f}, look.pitch, look.yaw);
        camera.mode = NavigationMode::Fly;
        const DualQuaternion before = camera.transformation;
        lookAround(camera, look.travel, Factors);
        EXPECT_EQ(camera.pitch, look.newPitch);
        EXPECT_EQ(camera.yaw, look.newYaw);
        EXPECT_TRUE(isIdentical(camera.transformation, before));
    }
}

TEST(CameraMathTest, orbitTurnsAboutThePivot) {
    CameraState camera = orbiting({}, 3.0f);
    // 720 pixels are a quarter turn to the right: the camera comes to stand on the pivot's left.
    EXPECT_TRUE(dragOrbit(camera, {720, 0}, 0, Factors, Depth));
    EXPECT_EQ(camera.yaw, -90.0f);
    EXPECT_EQ(camera.pitch, 0.0f);
    expectNear(camera.transformation.translation(), {-3.0f, 0.0f, -3.0f});
    expectNear(camera.transformation.transformVector(-Vector3::zAxis()), {1.0f, 0.0f, 0.0f});
    EXPECT_EQ(camera.orbitDistance, 3.0f);

    // Down over the edge: pitch stops, the camera looks straight down on the pivot.
    EXPECT_TRUE(dragOrbit(camera, {0, 10000}, 0, Factors, Depth));
    EXPECT_EQ(camera.pitch, -90.0f);
    expectNear(camera.transformation.translation(), {0.0f, 3.0f, -3.0f});
    EXPECT_TRUE(dragOrbit(camera, {0, -100000}, 0, Factors, Depth));
    EXPECT_EQ(camera.pitch, 90.0f);
    expectNear(camera.transformation.translation(), {0.0f, -3.0f, -3.0f});
}

TEST(CameraMathTest, thePivotStaysThroughManyDrags) {
    CameraState camera = orbiting({4.0f, -2.0f, 7.0f}, 12.0f, 20.0f, 130.0f);
    const Vector3 before = pivot(camera);
    for(int i = 0; i != 1000; ++i) EXPECT_TRUE(dragOrbit(camera, {i % 37 - 15, i % 23 - 11}, 0, Factors, Depth));
    expectNear(pivot(camera), before, 2.0e-3f);
    EXPECT_TRUE(camera.transformation.isNormalized());
}

TEST(CameraMathTest, shiftPansSoThatTheSceneFollows) {
    const struct {
        Float yaw;
        Vector3 offset;
    } data[]{
        {0.0f, {-0.05f, 0.05f, 0.0f}},
        {90.0f, {0.0f, 0.05f, 0.05f}},
    };
    for(const auto& pan: data) {
        CameraState camera = orbiting({1.0f, 2.0f, 3.0f}, 3.0f, 0.0f, pan.yaw);
        EXPECT_TRUE(dragOrbit(camera, {10, 20}, ModifierShift, Factors, Depth));
        expectNear(camera.transformation.translation(), Vector3{1.0f, 2.0f, 3.0f} + pan.offset);
        EXPECT_EQ(camera.yaw, pan.yaw);
        EXPECT_EQ(camera.orbitDistance, 3.0f);
    }
}

TEST(CameraMathTest, controlDolliesWithinTheDepthRange) {
    const struct {
        Float distance;
        Int travel;
        Float newDistance;
    } data[]{
        // 80 pixels are 5 degrees are five per cent.
        {4.0f, 80, 4.2f},
        {4.0f, -80, 3.8f},
        {4.0f, 0, 4.0f},
        {0.5f, -80, 0.5f},
        {4.0f, -100000, 0.5f},
        {99.0f, 80, 100.0f},
        // Outside before, as framing may leave it.
        {0.2f, 0, 0.5f},
        {300.0f, -80, 100.0f},
    };
    for(const auto& dolly: data) {
        SCOPED_TRACE(dolly.distance);
        CameraState camera = orbiting({1.0f, 2.0f, 3.0f}, dolly.distance, 0.0f, 90.0f);
        const Vector3 before = pivot(camera);
        EXPECT_TRUE(dragOrbit(camera, {55, dolly.travel}, ModifierControl, Factors, Depth));
        EXPECT_NEAR(camera.orbitDistance, dolly.newDistance, 1.0e-5f);
        // Away is backwards, here along x.
        expectNear(camera.transformation.translation(), {1.0f + dolly.newDistance - dolly.distance, 2.0f, 3.0f}, 1e-4f);
        expectNear(pivot(camera), before, 1.0e-4f);
    }
}

TEST(CameraMathTest, otherModifiersDragNothing) {
    for(unsigned modifiers = 0; modifiers != 16; ++modifiers) {
        const CameraState before = orbiting({1.0f, 2.0f, 3.0f}, 4.0f);
        CameraState camera = before;
        const bool means = modifiers == 0 || modifiers == ModifierShift || modifiers == ModifierControl;
        EXPECT_EQ(dragOrbit(camera, {100, 100}, modifiers, Factors, Depth), means) << modifiers;
        EXPECT_EQ(isUnchanged(camera, before), !means) << modifiers;
    }
    // Num lock and caps lock are none of ours.
    CameraState camera = orbiting({}, 4.0f);
    EXPECT_TRUE(dragOrbit(camera, {10, 20}, ModifierShift | 16 | 32, Factors, Depth));
    expectNear(camera.transformation.translation(), {-0.05f, 0.05f, 0.0f});
}

TEST(CameraMathTest, nothingIsDraggedInOtherModes) {
    for(const NavigationMode mode: {NavigationMode::Idle, NavigationMode::Fly})
        for(const unsigned modifiers: {0u, unsigned(ModifierShift), unsigned(ModifierControl)}) {
            CameraState before = orbiting({1.0f, 2.0f, 3.0f}, 4.0f);
            before.mode = mode;
            CameraState camera = before;
            EXPECT_FALSE(dragOrbit(camera, {100, 100}, modifiers, Factors, Depth));
            EXPECT_TRUE(isUnchanged(camera, before));
        }
}

TEST(CameraMathTest, scrollWhileFlyingChangesTheSpeed) {
    const struct {
        Float speed, steps, newSpeed;
    } data[]{
        {3.0f, 1.0f, 3.1f},
        {3.0f, -1.0f, 2.9f},
        {3.0f, 0.5f, 3.05f},
        {0.15f, -1.0f, 0.1f},
        {0.1f, -50.0f, 0.1f},
        {99.95f, 1.0f, 100.0f},
        {100.0f, 1.0f, 100.0f},
    };
    for(const auto& scroll: data)
        for(const bool isHovered: {false, true}) {
            CameraState camera = flying("D");
            camera.flySpeed = scroll.speed;
            pressMovementKey(camera, 'X', ModifierShift, true, true);
            const DualQuaternion before = camera.transformation;
            EXPECT_FALSE(scrollCamera(camera, scroll.steps, isHovered, Depth));
            EXPECT_NEAR(camera.flySpeed, scroll.newSpeed, 1.0e-5f);
            // Without the doubling of Shift.
            expectNear(camera.flyVelocity, {scroll.newSpeed, 0.0f, 0.0f});
            EXPECT_TRUE(isIdentical(camera.transformation, before));
            EXPECT_EQ(camera.orbitDistance, 3.0f);
        }
    CameraState resting = flying();
    EXPECT_FALSE(scrollCamera(resting, 1.0f, true, Depth));
    expectNear(resting.flyVelocity, {}, 0.0f);
}

TEST(CameraMathTest, scrollDolliesByATenthAStep) {
    const struct {
        Float distance, steps, newDistance;
    } data[]{
        {5.0f, 1.0f, 4.5f},
        {5.0f, -1.0f, 5.5f},
        {5.0f, 0.5f, 4.75f},
        {5.0f, 2.0f, 4.0f},
        {0.52f, 1.0f, 0.5f},
        {5.0f, 100.0f, 0.5f},
        {95.0f, -1.0f, 100.0f},
        {5.0f, -1000.0f, 100.0f},
    };
    for(const auto& scroll: data)
        for(const NavigationMode mode: {NavigationMode::Idle, NavigationMode::Orbit}) {
            SCOPED_TRACE(scroll.steps);
            CameraState camera = orbiting({1.0f, 2.0f, 3.0f}, scroll.distance, 0.0f, -90.0f);
            camera.mode = mode;
            const Vector3 before = pivot(camera);
            EXPECT_TRUE(scrollCamera(camera, scroll.steps, true, Depth));
            EXPECT_NEAR(camera.orbitDistance, scroll.newDistance, 1.0e-5f);
            // Closer is forwards, here along x.
            expectNear(
                camera.transformation.translation(), {1.0f + scroll.distance - scroll.newDistance, 2.0f, 3.0f}, 1e-4f);
            expectNear(pivot(camera), before, 1.0e-4f);
        }
}

TEST(CameraMathTest, scrollBesideThePictureDoesNothing) {
    for(const NavigationMode mode: {NavigationMode::Idle, NavigationMode::Orbit}) {
        CameraState before = orbiting({1.0f, 2.0f, 3.0f}, 5.0f);
        before.mode = mode;
        CameraState camera = before;
        EXPECT_FALSE(scrollCamera(camera, 1.0f, false, Depth));
        EXPECT_TRUE(isUnchanged(camera, before));
    }
}

TEST(CameraMathTest, theDistanceStaysFiniteWhereTheFarPlaneIsNot) {
    CameraState camera = orbiting({}, 5.0f);
    const DepthRange depth{0.1f, std::numeric_limits<Float>::infinity()};
    EXPECT_TRUE(scrollCamera(camera, -1.0f, true, depth));
    EXPECT_NEAR(camera.orbitDistance, 5.5f, 1.0e-5f);
    for(int i = 0; i != 100; ++i) scrollCamera(camera, -1000.0f, true, depth);
    EXPECT_TRUE(std::isfinite(camera.orbitDistance));
    EXPECT_GT(camera.orbitDistance, 1.0e30f);
    EXPECT_TRUE(std::isfinite(camera.transformation.translation().z()));
    EXPECT_FALSE(scrollCamera(camera, -1000.0f, true, depth));
}

TEST(CameraMathTest, theFarPlaneWinsOverTheNearOne) {
    CameraState camera = orbiting({}, 5.0f);
    EXPECT_TRUE(scrollCamera(camera, 1.0f, true, {50.0f, 20.0f}));
    EXPECT_EQ(camera.orbitDistance, 20.0f);
}

TEST(CameraMathTest, theKeypadLooksAlongTheAxes) {
    const struct {
        int key;
        Float pitch, yaw;
        Vector3 forward;
    } data[]{
        {327, -90.0f, 0.0f, {0.0f, -1.0f, 0.0f}},
        {321, 0.0f, 0.0f, {0.0f, 0.0f, -1.0f}},
        {323, 0.0f, -90.0f, {1.0f, 0.0f, 0.0f}},
    };
    for(const auto& view: data)
        for(const unsigned modifiers: {0u, unsigned(ModifierShift), unsigned(ModifierSuper)}) {
            CameraState camera = cameraAt({1.0f, 2.0f, 3.0f}, 12.0f, 34.0f);
            EXPECT_TRUE(showAxisView(camera, view.key, modifiers));
            EXPECT_EQ(camera.pitch, view.pitch);
            EXPECT_EQ(camera.yaw, view.yaw);
            EXPECT_TRUE(advanceCamera(camera, 0.016));
            expectNear(camera.transformation.translation(), {1.0f, 2.0f, 3.0f});
            expectNear(camera.transformation.transformVector(-Vector3::zAxis()), view.forward);
        }
}

TEST(CameraMathTest, theKeypadIsIgnoredWhereItMeansNothing) {
    const struct {
        int key;
        unsigned modifiers;
        NavigationMode mode;
    } data[]{
        {327, ModifierControl, NavigationMode::Idle},
        {321, ModifierAlt, NavigationMode::Idle},
        {323, ModifierShift | ModifierAlt, NavigationMode::Idle},
        {327, 0, NavigationMode::Fly},
        {321, 0, NavigationMode::Orbit},
        {'7', 0, NavigationMode::Idle},
        {322, 0, NavigationMode::Idle},
    };
    for(const auto& press: data) {
        CameraState before = cameraAt({}, 12.0f, 34.0f);
        before.mode = press.mode;
        CameraState camera = before;
        EXPECT_FALSE(showAxisView(camera, press.key, press.modifiers));
        EXPECT_TRUE(isUnchanged(camera, before));
    }
}

TEST(CameraMathTest, aFrameFliesInTheDirectionOfTheAngles) {
    const struct {
        Float pitch, yaw;
        const char* keys;
        Double seconds;
        Vector3 way;
    } data[]{
        {0.0f, 0.0f, "W", 0.5, {0.0f, 0.0f, -1.5f}},
        {0.0f, 90.0f, "W", 0.5, {-1.5f, 0.0f, 0.0f}},
        {-90.0f, 0.0f, "W", 2.0, {0.0f, -6.0f, 0.0f}},
        {0.0f, 90.0f, "D", 1.0, {0.0f, 0.0f, -3.0f}},
        {0.0f, 0.0f, "Q", 0.1, {0.0f, 0.3f, 0.0f}},
        {0.0f, 0.0f, "W", 0.0, {}},
    };
    for(const auto& flight: data) {
        SCOPED_TRACE(flight.keys);
        CameraState camera = flying(flight.keys);
        camera.pitch = flight.pitch;
        camera.yaw = flight.yaw;
        camera.transformation = DualQuaternion::translation({10.0f, 20.0f, 30.0f});
        advanceCamera(camera, flight.seconds);
        expectNear(camera.transformation.translation(), Vector3{10.0f, 20.0f, 30.0f} + flight.way, 1.0e-5f);
        expectNear(camera.transformation.transformVector(-Vector3::zAxis()),
            cameraRotation(camera).transformVector(-Vector3::zAxis()));
        EXPECT_TRUE(camera.transformation.isNormalized());
    }
}

TEST(CameraMathTest, theTransformationFollowsSmallTurns) {
    CameraState camera = cameraAt({1.0f, 2.0f, 3.0f}, 10.0f, 20.0f);
    const Vector3 before = camera.transformation.transformVector(-Vector3::zAxis());
    // Each is less than the tolerance of comparisons in the math library.
    for(int i = 0; i != 1000; ++i) {
        camera.yaw += 5.0e-4f;
        EXPECT_TRUE(advanceCamera(camera, 0.016));
    }
    const Vector3 after = camera.transformation.transformVector(-Vector3::zAxis());
    EXPECT_NEAR((after - before).length(), 0.5f * 3.14159f / 180.0f * std::cos(10.0f * 3.14159f / 180.0f), 1.0e-4f);
    expectNear(camera.transformation.translation(), {1.0f, 2.0f, 3.0f}, 1.0e-3f);
}

TEST(CameraMathTest, aCameraAtRestStaysToTheBit) {
    for(const NavigationMode mode: {NavigationMode::Idle, NavigationMode::Fly, NavigationMode::Orbit}) {
        CameraState camera = cameraAt({123.4f, -56.7f, 8910.1f}, -35.264f, 45.0f);
        camera.mode = mode;
        const CameraState before = camera;
        for(int frame = 0; frame != 600; ++frame) {
            if(mode == NavigationMode::Fly) lookAround(camera, {}, Factors);
            EXPECT_FALSE(advanceCamera(camera, 1.0 / 60.0));
        }
        EXPECT_TRUE(isUnchanged(camera, before));
    }
}

}
