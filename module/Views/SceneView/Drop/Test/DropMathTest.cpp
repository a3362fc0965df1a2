#include <cmath>
#include <limits>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Functions.h>
#include <gtest/gtest.h>

#include "Views/SceneView/Drop/DropMath.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using namespace Math::Literals;

constexpr Float Infinity = std::numeric_limits<Float>::infinity();

TEST(DropRectangleTest, keepsAwayFromTheEdges) {
    EXPECT_EQ(dropRectangle({{10.0f, 20.0f}, {110.0f, 220.0f}}), (Range2D{{18.0f, 28.0f}, {102.0f, 212.0f}}));
}

TEST(DropRectangleTest, isNeverInsideOut) {
    for(const Float size: {0.0f, 1.0f, 8.0f, 15.0f, 16.0f}) {
        const Range2D window{{5.0f, 5.0f}, {5.0f + size, 5.0f + size}};
        const Range2D place = dropRectangle(window);
        EXPECT_GE(place.sizeX(), 0.0f) << size;
        EXPECT_GE(place.min().x(), window.min().x()) << size;
        EXPECT_LE(place.max().y(), window.max().y()) << size;
    }
}

std::string textOf(const char* data, std::size_t size, std::string& reason) {
    return payloadText({data, size}, reason).value_or("none");
}

TEST(PayloadTextTest, isWithoutItsZero) {
    std::string reason;
    EXPECT_EQ(textOf("brick", 6, reason), "brick");
    EXPECT_EQ(reason, "");
}

TEST(PayloadTextTest, everythingElseIsRefusedWithAReason) {
    std::string reason;
    EXPECT_EQ(textOf(nullptr, 0, reason), "none");
    EXPECT_EQ(reason, "it has no end");
    EXPECT_EQ(textOf("brick", 5, reason), "none");
    EXPECT_EQ(reason, "it has no end");
    EXPECT_EQ(textOf("", 1, reason), "none");
    EXPECT_EQ(reason, "it is empty");
    EXPECT_EQ(textOf("br\0ck", 6, reason), "none");
    EXPECT_EQ(reason, "it has a zero byte inside");
    const std::string huge(MaxPayloadSize, 'a');
    EXPECT_EQ(textOf(huge.data(), huge.size() + 1, reason), "none");
    EXPECT_EQ(reason, "it is too long");
    EXPECT_EQ(textOf(huge.data() + 1, huge.size(), reason), huge.substr(1));
}

// 2 above the ground and 10 in front of the origin, looking along -z, 100 pixels in square.
DropCamera camera(Float far = 1000.0f) {
    return {Matrix4::translation({0.0f, 2.0f, 10.0f}), Matrix4::perspectiveProjection(90.0_degf, 1.0f, 0.1f, far), far,
        3.0f};
}

Float depthOf(const DropCamera& camera, const Vector3& point) {
    return (camera.projection * camera.transformation.invertedRigid()).transformPoint(point).z() * 0.5f + 0.5f;
}

TEST(DropPlaceTest, pixelsAreMetInTheirMiddle) {
    EXPECT_EQ(clipPosition({0, 0}, {2, 4}), (Vector2{-0.5f, -0.75f}));
    EXPECT_EQ(clipPosition({1, 3}, {2, 4}), (Vector2{0.5f, 0.75f}));
}

TEST(DropPlaceTest, raysBeginInTheCamera) {
    const Ray ray = rayThrough(camera(), {0.0f, 1.0f});
    EXPECT_EQ(ray.origin, (Vector3{0.0f, 2.0f, 10.0f}));
    EXPECT_LT((ray.direction - Vector3{0.0f, 1.0f, -1.0f}.normalized()).length(), 1.0e-5f);
}

TEST(DropPlaceTest, isWhatIsDrawnThere) {
    for(const Float far: {1000.0f, Infinity})
        for(const Vector3& point: {Vector3{0.0f, 2.0f, 0.0f}, Vector3{-2.0f, 5.0f, -7.0f}, Vector3{1.0f, 0.0f, 8.0f}}) {
            const DropCamera from = camera(far);
            const Vector3 clip = (from.projection * from.transformation.invertedRigid()).transformPoint(point);
            const Vector3 place = dropPlace(from, clip.xy(), depthOf(from, point));
            EXPECT_LT((place - point).length(), 0.01f) << far;
            // To much less than a pixel of a large picture.
            const Vector3 back = (from.projection * from.transformation.invertedRigid()).transformPoint(place);
            EXPECT_LT((back.xy() - clip.xy()).length(), 1.0e-5f) << far;
        }
}

TEST(DropPlaceTest, elseTheGroundInFrontOfTheCamera) {
    // 45 degrees down from a height of 2.
    const Vector3 place = dropPlace(camera(), {0.0f, -1.0f}, 1.0f);
    EXPECT_LT((place - Vector3{0.0f, 0.0f, 8.0f}).length(), 1.0e-4f);
    EXPECT_LT((dropPlace(camera(Infinity), {0.0f, -1.0f}, 1.0f) - place).length(), 1.0e-4f);
}

TEST(DropPlaceTest, elseAsFarAsWhatTheCameraTurnsAbout) {
    // Upwards, along the ground, and where the ground is behind the far plane.
    EXPECT_LT((dropPlace(camera(), {0.0f, 0.0f}, 1.0f) - Vector3{0.0f, 2.0f, 7.0f}).length(), 1.0e-4f);
    const Vector3 above = dropPlace(camera(), {0.0f, 1.0f}, 1.0f);
    EXPECT_NEAR((above - Vector3{0.0f, 2.0f, 10.0f}).length(), 3.0f, 1.0e-4f);
    EXPECT_GT(above.y(), 2.0f);
    EXPECT_NEAR((dropPlace(camera(), {0.0f, -0.001f}, 1.0f) - Vector3{0.0f, 2.0f, 10.0f}).length(), 3.0f, 1.0e-4f);
}

TEST(ScreenLineTest, isWhereThePictureShowsIt) {
    const DropCamera from = camera();
    const Matrix4 viewProjection = from.projection * from.transformation.invertedRigid();
    const Range2D rectangle = Range2D::fromSize({100.0f, 50.0f}, {200.0f, 200.0f});
    const auto line = screenLine({0.0f, 2.0f, 0.0f}, {10.0f, 12.0f, 0.0f}, viewProjection, rectangle);
    ASSERT_TRUE(line);
    EXPECT_LT((line->from - Vector2{200.0f, 150.0f}).length(), 0.01f);
    // Upwards on the screen is less.
    EXPECT_LT((line->to - Vector2{300.0f, 50.0f}).length(), 0.01f);
}

TEST(ScreenLineTest, nothingIsSeenOfWhatIsBehindTheCamera) {
    const DropCamera from = camera();
    const Matrix4 viewProjection = from.projection * from.transformation.invertedRigid();
    const Range2D rectangle = Range2D::fromSize({}, {200.0f, 200.0f});
    EXPECT_FALSE(screenLine({0.0f, 2.0f, 11.0f}, {3.0f, 2.0f, 12.0f}, viewProjection, rectangle));
    EXPECT_FALSE(screenLine({0.0f, 2.0f, 10.0f}, {0.0f, 2.0f, 10.0f}, viewProjection, rectangle));
    for(const bool isTurned: {false, true}) {
        const Vector3 inFront{1.0f, 1.0f, 0.0f}, behind{1.0f, 1.0f, 20.0f};
        const auto line =
            screenLine(isTurned ? behind : inFront, isTurned ? inFront : behind, viewProjection, rectangle);
        ASSERT_TRUE(line);
        const Vector2 seen = isTurned ? line->to : line->from, cut = isTurned ? line->from : line->to;
        EXPECT_LT((seen - Vector2{110.0f, 110.0f}).length(), 0.01f);
        EXPECT_TRUE(std::isfinite(cut.x()) && std::isfinite(cut.y()));
        // It leaves the picture to the lower right.
        EXPECT_GT(cut.x(), 200.0f);
        EXPECT_GT(cut.y(), 200.0f);
    }
    // Cut where it leaves the camera's front: half of the way to the side.
    const auto line = screenLine({0.0f, 1.0f, 0.0f}, {5.0f, 1.0f, 20.0f}, viewProjection, rectangle);
    ASSERT_TRUE(line);
    const Vector2 cut = line->to - rectangle.center();
    EXPECT_NEAR(cut.x() / cut.y(), 2.5f, 0.01f);
}

}
