// What holds for whatever camera, matrix and mouse there are.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Vector4.h>
#include <gtest/gtest.h>

#include "Cameras.h"
#include "ImGuizmo/GizmoWindow.h"

using namespace Magnum;
using GizmoTest::GizmoWindow;

namespace {

constexpr ImGuizmo::OPERATION Operations[]{ImGuizmo::TRANSLATE, ImGuizmo::ROTATE, ImGuizmo::SCALE};

bool isFinite(const float* numbers, std::size_t count) {
    return std::all_of(numbers, numbers + count, [](float number) { return std::isfinite(number); });
}

class PropertyTest: public testing::TestWithParam<int> {
protected:
    ~PropertyTest() override {
        gizmo.release();
        gizmo.isShown = true;
        gizmo.frame();
    }

    // In the middle half of the picture.
    Vector2 middle() const {
        const Vector4 clip = gizmo.projection * gizmo.view * Vector4{gizmo.matrix.translation(), 1.0f};
        const Vector2 device{clip.x() / clip.w(), -clip.y() / clip.w()};
        return gizmo.rect.min() + (device * 0.5f + Vector2{0.5f}) * gizmo.rect.size();
    }
    float between(double least, double most) { return float(random.number(least, most)); }
    Vector2 offset(double range) { return {between(-range, range), between(-range, range)}; }

    void anyCamera() {
        const Vector3 from = Vector3{random.direction()} * std::pow(10.0f, between(-1.0, 2.0));
        gizmo.view = GizmoTest::lookingAt(from);
        gizmo.projection = random.whole(0, 2)
            ? GizmoTest::perspective(between(10.0, 120.0))
            : Matrix4::orthographicProjection(Vector2{16.0f, 9.0f} * from.length() * 0.1f, 0.1f, 1.0e4f);
    }
    // Not far beside where the camera looks; of any size, and mirrored.
    void anyMatrix() {
        const float distance = gizmo.view.translation().length();
        Vector3 scaling;
        const float size = std::pow(10.0f, between(-6.0, 6.0));
        for(std::size_t i = 0; i != 3; ++i) scaling[i] = size * between(0.2, 4.0) * (random.whole(0, 2) ? 1.0f : -1.0f);
        gizmo.matrix = Matrix4::translation(Vector3{random.vector(0.1)} * distance) * random.rotation() *
            Matrix4::scaling(scaling);
    }
    void anySettings() {
        gizmo.operation = Operations[random.whole(0, 2)];
        gizmo.mode = ImGuizmo::MODE(random.whole(0, 1));
        // Whole turns are multiples of the angles.
        constexpr float angles[]{1.0f, 7.5f, 30.0f, 180.0f};
        const float step = gizmo.operation == ImGuizmo::ROTATE ? angles[random.whole(0, 3)] : between(0.01, 2.0);
        gizmo.snap = random.whole(0, 1) ? std::optional<Vector3>{Vector3{step}} : std::nullopt;
        gizmo.rect = Range2D::fromSize({between(0.0, 700.0), between(0.0, 300.0)}, {between(500.0, 900.0), 560.0f});
    }
    // Somewhere about the middle; whether there is one.
    bool grabAny() {
        for(int i = 0; i != 60; ++i) {
            gizmo.moveTo(middle() + offset(90.0));
            if(!gizmo.frame().isOver) continue;
            gizmo.press();
            if(gizmo.frame().isUsing) return true;
            gizmo.release();
            gizmo.frame();
        }
        return false;
    }

    GizmoWindow gizmo;
    GizmoTest::Random random{unsigned(GetParam())};
};

// As it was, but for the rounding of each frame.
TEST_P(PropertyTest, thereAndBackIsNowhere) {
    int grabbed = 0;
    for(int i = 0; i != 150; ++i) {
        anyCamera();
        anyMatrix();
        anySettings();
        if(!grabAny()) continue;
        ++grabbed;
        const Matrix4 before = gizmo.matrix;
        const Vector2 start{ImGui::GetIO().MousePos.x, ImGui::GetIO().MousePos.y};
        bool isChanged = false;
        for(int k = 0; k != 8; ++k) {
            gizmo.moveTo(start + offset(300.0));
            isChanged = gizmo.frame().isChanged || isChanged;
        }
        gizmo.moveTo(start);
        gizmo.frame();
        gizmo.release();
        EXPECT_FALSE(gizmo.frame().isChanged);
        const float reach = gizmo.view.translation().length() + before.translation().length();
        for(std::size_t column = 0; column != 4; ++column)
            ASSERT_NEAR((gizmo.matrix[column] - before[column]).length(), 0.0f,
                1.0e-5f * (column == 3 ? 100.0f * reach : before[column].length()))
                << "column " << column << " of gizmo " << i;
    }
    EXPECT_GT(grabbed, 100);
}

// Where the picture is does not matter.
TEST_P(PropertyTest, thePictureMayBeAnywhere) {
    for(int i = 0; i != 40; ++i) {
        anyCamera();
        anyMatrix();
        anySettings();
        gizmo.rect = Range2D::fromSize({}, {640.0f, 480.0f});
        const Matrix4 before = gizmo.matrix;
        if(!grabAny()) continue;
        const Vector2 start{ImGui::GetIO().MousePos.x, ImGui::GetIO().MousePos.y}, way = Math::round(offset(120.0));
        const auto dragged = [&](const Vector2& corner) {
            gizmo.release();
            gizmo.frame();
            gizmo.matrix = before;
            gizmo.rect = Range2D::fromSize(corner, {640.0f, 480.0f});
            EXPECT_TRUE(gizmo.grab(start + corner));
            gizmo.moveTo(start + corner + way);
            gizmo.frame();
            return gizmo.matrix;
        };
        const Matrix4 here = dragged({});
        const Matrix4 there = dragged({311.0f, 97.0f});
        gizmo.release();
        gizmo.frame();
        for(std::size_t column = 0; column != 4; ++column)
            ASSERT_NEAR((there[column] - here[column]).length(), 0.0f, 1.0e-5f * here[column].length()) << i;
    }
}

// Finite numbers of any magnitude, or also none.
class AnyNumbersTest: public PropertyTest {
protected:
    float anyNumber() {
        if(!random.whole(0, 9)) return 0.0f;
        const float number = between(-1.0, 1.0) * std::pow(10.0f, between(-38.0, 38.0));
        return random.whole(0, 3) ? between(-2.0, 2.0) : number;
    }
    float anythingButANumber() {
        constexpr float others[]{std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
            -std::numeric_limits<float>::infinity()};
        return others[random.whole(0, 2)];
    }
    void scramble(Matrix4& matrix) {
        for(int i = random.whole(1, 16); i; --i) matrix.data()[random.whole(0, 15)] = anyNumber();
    }
    void anything() {
        anyCamera();
        anyMatrix();
        anySettings();
        if(!random.whole(0, 2)) scramble(gizmo.view);
        if(!random.whole(0, 2)) scramble(gizmo.projection);
        if(!random.whole(0, 2)) scramble(gizmo.matrix);
        if(!random.whole(0, 4)) gizmo.snap = Vector3{anyNumber(), anyNumber(), anyNumber()};
        if(!random.whole(0, 4)) gizmo.rect = {{anyNumber(), anyNumber()}, {anyNumber(), anyNumber()}};
    }
    void anyMouse() {
        const Vector2 at = middle();
        const bool isUsable = std::abs(at.x()) < 4000.0f && std::abs(at.y()) < 4000.0f;
        gizmo.moveTo((isUsable ? at : Vector2{800.0f, 450.0f}) + offset(random.whole(0, 3) ? 100.0 : 2000.0));
        if(random.whole(0, 1)) gizmo.press();
        if(!random.whole(0, 4)) gizmo.release();
    }
};

TEST_P(AnyNumbersTest, finiteNumbersGiveFiniteOnes) {
    int changed = 0;
    for(int i = 0; i != 400; ++i) {
        anything();
        for(int k = 0; k != 8; ++k) {
            anyMouse();
            const GizmoWindow::Frame frame = gizmo.frame();
            changed += frame.isChanged;
            ASSERT_TRUE(isFinite(gizmo.matrix.data(), 16)) << i;
            ASSERT_TRUE(isFinite(frame.delta.data(), 16)) << i;
            const std::vector<float> drawn = gizmo.lastVertices();
            ASSERT_TRUE(isFinite(drawn.data(), drawn.size())) << i;
            ASSERT_EQ(gizmo.clipRectangles, 0) << i;
        }
    }
    EXPECT_GT(changed, 10);
}

// In the middle of a drag, too; then it goes on.
TEST_P(AnyNumbersTest, whatIsNoNumberChangesNothing) {
    int grabbed = 0;
    for(int i = 0; i != 100; ++i) {
        anyCamera();
        anyMatrix();
        anySettings();
        if(!grabAny()) continue;
        ++grabbed;
        float* const numbers[]{gizmo.view.data() + random.whole(0, 15), gizmo.projection.data() + random.whole(0, 15),
            gizmo.matrix.data() + random.whole(0, 15)};
        for(float* const number: numbers) {
            const float before = *number;
            *number = anythingButANumber();
            const Matrix4 matrix = gizmo.matrix;
            gizmo.moveTo(middle() + offset(100.0));
            const GizmoWindow::Frame frame = gizmo.frame();
            EXPECT_FALSE(frame.isChanged) << i;
            EXPECT_EQ(std::memcmp(&matrix, &gizmo.matrix, sizeof(matrix)), 0) << i;
            EXPECT_EQ(frame.delta, Matrix4{}) << i;
            EXPECT_EQ(gizmo.vertices, 0) << i;
            EXPECT_EQ(gizmo.clipRectangles, 0) << i;
            *number = before;
        }
        gizmo.snap = Vector3{anythingButANumber()};
        gizmo.moveTo(middle() + offset(100.0));
        EXPECT_TRUE(isFinite(gizmo.frame().delta.data(), 16)) << i;
        EXPECT_TRUE(isFinite(gizmo.matrix.data(), 16)) << i;
        gizmo.release();
        gizmo.frame();
    }
    EXPECT_GT(grabbed, 50);
}

INSTANTIATE_TEST_SUITE_P(Seeds, PropertyTest, testing::Values(1, 2, 3, 4));
INSTANTIATE_TEST_SUITE_P(Seeds, AnyNumbersTest, testing::Values(506, 510, 534, 541));

// Two in one frame, each with an id of its own: only the one that was grabbed moves, and knows of it.
TEST(SeveralGizmosTest, oneAtATime) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    GizmoWindow gizmo;
    Matrix4 first = Matrix4::translation({-1.5f, 0.0f, 0.0f});
    gizmo.matrix = Matrix4::translation({1.5f, 0.0f, 0.0f});
    bool isFirstChanged = false, isFirstUsed = false, isFirstOver = false;
    gizmo.content = [&] {
        ImGuizmo::SetID(7);
        ImGuizmo::SetDrawlist();
        ImGuizmo::SetRect(0.0f, 0.0f, 1600.0f, 900.0f);
        isFirstChanged = ImGuizmo::Manipulate(
            gizmo.view.data(), gizmo.projection.data(), ImGuizmo::TRANSLATE, ImGuizmo::WORLD, first.data());
        isFirstUsed = ImGuizmo::IsUsing();
        isFirstOver = ImGuizmo::IsOver();
        ImGuizmo::SetID(3);
    };
    const Matrix4 firstBefore = first, secondBefore = gizmo.matrix;
    const auto drag = [&](const Matrix4& which) {
        gizmo.moveTo(gizmo.project(which.translation()));
        gizmo.frame();
        const GizmoWindow::Frame hovered = gizmo.frame();
        EXPECT_NE(hovered.isOver, isFirstOver);
        gizmo.press();
        gizmo.frame();
        gizmo.moveTo(gizmo.project(which.translation()) + Vector2{40.0f, 20.0f});
        return gizmo.frame();
    };
    GizmoWindow::Frame second = drag(first);
    EXPECT_TRUE(isFirstChanged);
    EXPECT_TRUE(isFirstUsed);
    EXPECT_FALSE(second.isChanged || second.isUsing || second.isOver);
    EXPECT_NE(first, firstBefore);
    EXPECT_EQ(gizmo.matrix, secondBefore);
    gizmo.release();
    gizmo.frame();
    const Matrix4 firstMoved = first;
    second = drag(gizmo.matrix);
    EXPECT_TRUE(second.isChanged && second.isUsing && second.isOver);
    EXPECT_FALSE(isFirstChanged || isFirstUsed || isFirstOver);
    EXPECT_EQ(first, firstMoved);
    EXPECT_NE(gizmo.matrix, secondBefore);
    gizmo.release();
    gizmo.frame();
    ImGuizmo::SetID(-1);
#pragma GCC diagnostic pop
}

}
