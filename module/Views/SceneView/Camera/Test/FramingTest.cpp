#include <csignal>
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

constexpr Float NaN = std::numeric_limits<Float>::quiet_NaN();

CameraState lookingAlongX(const Vector3& position) {
    CameraState camera;
    camera.yaw = -90.0f;
    camera.transformation = DualQuaternion::from(cameraRotation(camera), position);
    return camera;
}

FramedObjects object(const Vector3& origin, const BoundingSphere& bounds = {}) {
    FramedObjects objects;
    objects.add(origin, bounds);
    return objects;
}

TEST(FramingTest, spheresAreMerged) {
    const struct {
        const char* name;
        BoundingSphere a, b, expected;
    } data[]{
        {"b is empty", {{1, 2, 3}, 4}, {{50, 0, 0}, 1.0e-5f}, {{1, 2, 3}, 4}},
        {"a is empty", {{50, 0, 0}, 1.0e-5f}, {{1, 2, 3}, 4}, {{1, 2, 3}, 4}},
        {"both are empty", {{1, 0, 0}, 0}, {{2, 0, 0}, 1.0e-6f}, {{1, 0, 0}, 0}},
        {"no number counts as empty", {{1, 2, 3}, 4}, {{0, 0, 0}, NaN}, {{1, 2, 3}, 4}},
        {"just above empty", {{0, 0, 0}, 0}, {{2, 0, 0}, 1.1e-5f}, {{2, 0, 0}, 1.1e-5f}},
        {"b in a", {{0, 0, 0}, 5}, {{1, 0, 0}, 2}, {{0, 0, 0}, 5}},
        {"a in b", {{1, 0, 0}, 2}, {{0, 0, 0}, 5}, {{0, 0, 0}, 5}},
        {"touching from inside", {{3, 0, 0}, 2}, {{0, 0, 0}, 5}, {{0, 0, 0}, 5}},
        {"the same", {{3, 1, 0}, 2}, {{3, 1, 0}, 2}, {{3, 1, 0}, 2}},
        {"apart", {{0, 0, 0}, 1}, {{10, 0, 0}, 1}, {{5, 0, 0}, 6}},
        {"apart, of different size", {{0, 0, 0}, 1}, {{0, 10, 0}, 3}, {{0, 6, 0}, 7}},
        {"overlapping", {{0, 0, 0}, 3}, {{0, 0, 4}, 3}, {{0, 0, 2}, 5}},
        {"far beyond the square root of the largest number", {{-1e25f, 0, 0}, 1}, {{1e25f, 0, 0}, 1},
            {{0, 0, 0}, 1e25f}},
    };
    for(const auto& pair: data) {
        SCOPED_TRACE(pair.name);
        const BoundingSphere sphere = merged(pair.a, pair.b);
        const Float tolerance = pair.expected.radius * 1.0e-6f;
        expectNear(sphere.center, pair.expected.center, tolerance);
        EXPECT_NEAR(sphere.radius, pair.expected.radius, tolerance);
    }
}

TEST(FramingTest, spheresAreTransformed) {
    const DualQuaternion quarterTurn =
        DualQuaternion::from(Quaternion::rotation(Rad{Deg{90.0f}}, Vector3::yAxis()), {10.0f, 0.0f, 0.0f});
    const struct {
        Vector3 scaling;
        Float radius;
    } data[]{
        {{1.0f, 1.0f, 1.0f}, 2.0f},
        {{0.5f, 3.0f, 1.0f}, 6.0f},
        {{NaN, 0.25f, 0.5f}, 1.0f},
        {{0.5f, 0.25f, NaN}, 1.0f},
        {{-4.0f, 1.0f, 1.0f}, 2.0f},
    };
    for(const auto& object: data) {
        const BoundingSphere sphere = transformed({{0.0f, 1.0f, 3.0f}, 2.0f}, quarterTurn, object.scaling);
        expectNear(sphere.center, {13.0f, 1.0f, 0.0f});
        EXPECT_NEAR(sphere.radius, object.radius, 1.0e-6f);
    }
}

TEST(FramingTest, theCenterIsTheMeanOfTheOrigins) {
    FramedObjects objects;
    EXPECT_EQ(objects.count(), 0u);
    objects.add({0.0f, 0.0f, 0.0f}, {{0.0f, 0.0f, 0.0f}, 1.0f});
    objects.add({3.0f, 6.0f, 0.0f}, {});
    objects.add({0.0f, 0.0f, -9.0f}, {{100.0f, 0.0f, 0.0f}, 1.0f});
    EXPECT_EQ(objects.count(), 3u);
    expectNear(objects.center(), {1.0f, 2.0f, -3.0f});
    expectNear(objects.bounds().center, {50.0f, 0.0f, 0.0f});
    EXPECT_NEAR(objects.bounds().radius, 51.0f, 1.0e-4f);
}

TEST(FramingDeathTest, noObjectsHaveNoCenter) {
    EXPECT_EXIT(FramedObjects{}.center(), testing::KilledBySignal(SIGABRT), "FramedObjects::center\\(\\)");
}

TEST(FramingTest, theDistanceFillsFourFifthsOfTheField) {
    const struct {
        Float radius, fov;
        Vector2i viewport;
        Float distance;
    } data[]{
        // tan(36 deg) = 0.7265425
        {1.0f, 90.0f, {100, 100}, 1.3763819f},
        {1.0f, 90.0f, {100, 300}, 1.3763819f},
        {1.0f, 90.0f, {200, 100}, 2.7527638f},
        {2.5f, 90.0f, {1600, 900}, 6.1172529f},
        // tan(24 deg) = 0.4452287
        {1.0f, 60.0f, {100, 100}, 2.2460368f},
        {1.0f, 60.0f, {400, 100}, 8.9841471f},
        {0.0f, 90.0f, {200, 100}, 3.0f},
        {1.0e-5f, 90.0f, {200, 100}, 3.0f},
        {1.1e-5f, 90.0f, {100, 100}, 1.5140201e-5f},
    };
    for(const auto& view: data)
        EXPECT_NEAR(framingDistance(view.radius, view.fov, view.viewport), view.distance, view.distance * 2.0e-6f);
}

TEST(FramingTest, anObjectWithoutBoundsIsSeenFromThreeUnits) {
    CameraState camera = lookingAlongX({40.0f, 50.0f, 60.0f});
    camera.orbitDistance = 17.0f;
    EXPECT_TRUE(frameObjects(camera, object({5.0f, 1.0f, 2.0f}), 90.0f, {200, 100}, {}));
    expectNear(camera.transformation.translation(), {2.0f, 1.0f, 2.0f});
    EXPECT_EQ(camera.orbitDistance, 3.0f);
    EXPECT_EQ(camera.yaw, -90.0f);
    expectNear(camera.transformation.transformPoint({0.0f, 0.0f, -3.0f}), {5.0f, 1.0f, 2.0f});
    // And stays there.
    EXPECT_FALSE(advanceCamera(camera, 0.016));
}

TEST(FramingTest, theDistanceUsesTheBoundsTheCenterDoesNot) {
    CameraState camera = lookingAlongX({});
    const FramedObjects objects = object({5.0f, 1.0f, 2.0f}, {{5.0f, 9.0f, 2.0f}, 2.0f});
    EXPECT_TRUE(frameObjects(camera, objects, 90.0f, {100, 100}, {}));
    EXPECT_NEAR(camera.orbitDistance, 2.7527638f, 1.0e-5f);
    expectNear(camera.transformation.translation(), {5.0f - 2.7527638f, 1.0f, 2.0f});
}

TEST(FramingTest, thePlaceIsInTheSpaceOfTheParent) {
    CameraState camera;
    const DualQuaternion parent =
        DualQuaternion::from(Quaternion::rotation(Rad{Deg{90.0f}}, Vector3::yAxis()), {1.0f, 0.0f, 0.0f});
    EXPECT_TRUE(frameObjects(camera, object({0.0f, 7.0f, 0.0f}), 90.0f, {100, 100}, parent));
    // It looks along the negative x axis of the scene, from (3, 7, 0).
    expectNear(camera.transformation.translation(), {0.0f, 7.0f, 2.0f});
    expectNear((parent * camera.transformation).transformPoint({0.0f, 0.0f, -3.0f}), {0.0f, 7.0f, 0.0f});
}

TEST(FramingTest, anglesThatChangedInThisFrameCount) {
    CameraState camera = lookingAlongX({40.0f, 50.0f, 60.0f});
    EXPECT_TRUE(showAxisView(camera, 327, 0));
    EXPECT_TRUE(frameObjects(camera, object({5.0f, 1.0f, 2.0f}), 90.0f, {200, 100}, {}));
    advanceCamera(camera, 0.016);
    expectNear(camera.transformation.translation(), {5.0f, 4.0f, 2.0f});
    expectNear(camera.transformation.transformVector(-Vector3::zAxis()), {0.0f, -1.0f, 0.0f});
}

TEST(FramingTest, framesInEveryMode) {
    for(const NavigationMode mode: {NavigationMode::Idle, NavigationMode::Fly, NavigationMode::Orbit}) {
        CameraState camera;
        camera.mode = mode;
        EXPECT_TRUE(frameObjects(camera, object({5.0f, 1.0f, 2.0f}), 90.0f, {200, 100}, {}));
        expectNear(camera.transformation.translation(), {5.0f, 1.0f, 5.0f});
        EXPECT_EQ(camera.mode, mode);
    }
}

TEST(FramingTest, theCameraStaysWhereThereIsNowhereToGo) {
    const struct {
        const char* name;
        FramedObjects objects;
    } data[]{
        {"no objects", {}},
        {"origin that is no number", object({NaN, 0.0f, 0.0f})},
        {"bounds beyond all numbers", object({}, {{}, std::numeric_limits<Float>::infinity()})},
    };
    for(const auto& selection: data) {
        SCOPED_TRACE(selection.name);
        CameraState camera = lookingAlongX({40.0f, 50.0f, 60.0f});
        camera.orbitDistance = 17.0f;
        const DualQuaternion before = camera.transformation;
        EXPECT_FALSE(frameObjects(camera, selection.objects, 90.0f, {200, 100}, {}));
        EXPECT_TRUE(isIdentical(camera.transformation, before));
        EXPECT_EQ(camera.orbitDistance, 17.0f);
    }
}

}
