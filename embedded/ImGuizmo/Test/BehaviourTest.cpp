// What the gizmo does beyond what the original promises.

#include <algorithm>
#include <cmath>
#include <csignal>

#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Range.h>
#include <gtest/gtest.h>
#include <imgui_internal.h>

#include "Cameras.h"
#include "ImGuizmo/GizmoWindow.h"

using namespace Magnum;
using namespace Math::Literals;
using GizmoTest::GizmoWindow;

namespace {

class BehaviourTest: public testing::Test {
protected:
    Vector2 middle() const { return gizmo.project(gizmo.matrix.translation()); }
    Vector2 onAxis() const { return gizmo.pixelAt(Vector3::xAxis(), 60.0f); }

    GizmoWindow gizmo;
};

TEST_F(BehaviourTest, hoverShowsInItsOwnFrame) {
    gizmo.frame();
    gizmo.moveTo(onAxis());
    EXPECT_TRUE(gizmo.frame().isOver);
    EXPECT_TRUE(ImGuizmo::IsOver(ImGuizmo::TRANSLATE_X));
    EXPECT_FALSE(ImGuizmo::IsOver(ImGuizmo::TRANSLATE_Y));
    gizmo.moveTo({20.0f, 20.0f});
    EXPECT_FALSE(gizmo.frame().isOver);
}

TEST_F(BehaviourTest, firstFrameCanGrab) {
    gizmo.frame();
    gizmo.moveTo(onAxis());
    gizmo.press();
    EXPECT_TRUE(gizmo.frame().isUsing);
}

// What the mouse was over in the frame before is no longer in the way.
TEST_F(BehaviourTest, anItemThatTheMouseHasLeftKeepsNothing) {
    gizmo.frame();
    ImGui::SetHoveredID(1234);
    gizmo.moveTo(onAxis());
    gizmo.press();
    EXPECT_TRUE(gizmo.frame().isUsing);
}

// Between frames the answer is of the gizmo that is seen; once it is not drawn any more, there is none.
TEST_F(BehaviourTest, gizmoThatIsNotDrawnIsNowhere) {
    for(bool isBehindAllWindows: {false, true}) {
        gizmo.isBehindAllWindows = isBehindAllWindows;
        gizmo.isShown = true;
        gizmo.frame();
        gizmo.moveTo(onAxis());
        gizmo.frame();
        EXPECT_TRUE(ImGuizmo::IsOver());
        gizmo.isShown = false;
        gizmo.frame();
        EXPECT_FALSE(ImGuizmo::IsOver());
    }
}

TEST_F(BehaviourTest, itemUnderTheMouseIsBeforeTheGizmo) {
    gizmo.frame();
    gizmo.moveTo(onAxis());
    EXPECT_TRUE(gizmo.frame().isOver);
    gizmo.content = [] { ImGui::InvisibleButton("item", {1600.0f, 900.0f}); };
    EXPECT_FALSE(gizmo.frame().isOver);
}

TEST_F(BehaviourTest, picturesDoNotLagBehindTheMouse) {
    ASSERT_TRUE(gizmo.grab(middle()));
    const Vector2 to = middle() + Vector2{200.0f, -150.0f};
    gizmo.moveTo(to);
    gizmo.frame();
    EXPECT_TRUE(gizmo.isDrawnAt(to, 8.0f));
    EXPECT_TRUE(gizmo.isDrawnAt(gizmo.pixelAt(Vector3::xAxis(), 78.0f), 8.0f));
}

TEST_F(BehaviourTest, dragEndsWithItsGizmo) {
    ASSERT_TRUE(gizmo.grab(onAxis()));
    gizmo.isShown = false;
    gizmo.frame();
    gizmo.frame();
    EXPECT_FALSE(ImGuizmo::IsUsingAny());
    gizmo.isShown = true;
    EXPECT_FALSE(gizmo.frame().isUsing);
}

TEST_F(BehaviourTest, dragEndsWithItsContext) {
    for(int i = 0; i != 10; ++i) gizmo.frame();
    ASSERT_TRUE(gizmo.grab(onAxis()));
    ImGuiContext* const other = ImGui::CreateContext();
    ImGuizmo::SetImGuiContext(other);
    GizmoTest::prepareContext({100.0f, 100.0f});
    ImGui::NewFrame();
    ImGuizmo::BeginFrame();
    EXPECT_FALSE(ImGuizmo::IsUsingAny());
    ImGui::EndFrame();
    ImGui::DestroyContext(other);
    ImGuizmo::SetImGuiContext(gizmo.context());
}

TEST_F(BehaviourTest, dragEndsWithItsOperation) {
    ASSERT_TRUE(gizmo.grab(onAxis()));
    gizmo.operation = ImGuizmo::ROTATE;
    EXPECT_FALSE(gizmo.frame().isUsing);
}

// A camera that cannot be used for a while, and what it does to a drag
TEST_F(BehaviourTest, badCameraDrawsNothing) {
    ASSERT_TRUE(gizmo.grab(onAxis()));
    const Matrix4 view = gizmo.view, before = gizmo.matrix;
    gizmo.view = Matrix4{Math::ZeroInit};
    for(int i = 0; i != 3; ++i) EXPECT_FALSE(gizmo.frame().isChanged);
    EXPECT_EQ(gizmo.vertices, 0);
    EXPECT_FALSE(ImGuizmo::IsUsing());
    gizmo.view = view;
    EXPECT_FALSE(gizmo.frame().isUsing);
    EXPECT_EQ(gizmo.matrix, before);
}

TEST_F(BehaviourTest, matrixThatIsNotFiniteIsLeftAlone) {
    for(std::size_t column: {0, 3}) {
        gizmo.matrix = {};
        gizmo.matrix[column][0] = Constants::nan();
        EXPECT_FALSE(gizmo.grab({800.0f, 450.0f}));
        EXPECT_EQ(gizmo.vertices, 0);
        EXPECT_TRUE(std::isnan(gizmo.matrix[column][0]));
        gizmo.release();
        gizmo.frame();
    }
}

TEST_F(BehaviourTest, axisKeepsItsSideDuringADrag) {
    const auto isDrawnTo = [&](const Vector3& side) { return gizmo.isDrawnAt(gizmo.pixelAt(side, 78.0f), 8.0f); };
    ASSERT_TRUE(gizmo.grab(onAxis()));
    ASSERT_TRUE(isDrawnTo(Vector3::xAxis()));
    gizmo.view = GizmoTest::lookingAt({-3.0f, 4.0f, 5.0f});
    gizmo.moveTo(middle() + Vector2{30.0f, 20.0f});
    gizmo.frame();
    EXPECT_TRUE(isDrawnTo(Vector3::xAxis()));
    EXPECT_FALSE(isDrawnTo(-Vector3::xAxis()));
    gizmo.release();
    gizmo.frame();
    gizmo.frame();
    EXPECT_FALSE(isDrawnTo(Vector3::xAxis()));
    EXPECT_TRUE(isDrawnTo(-Vector3::xAxis()));
    ImGuizmo::AllowAxisFlip(false);
    gizmo.frame();
    EXPECT_TRUE(isDrawnTo(Vector3::xAxis()));
    ImGuizmo::AllowAxisFlip(true);
}

TEST_F(BehaviourTest, noLengthStaysNoLength) {
    gizmo.matrix = Matrix4::scaling({1.0f, 0.0f, 2.0f});
    gizmo.operation = ImGuizmo::SCALE;
    const Matrix4 delta = gizmo.drag(middle(), middle() + Vector2{50.0f, 0.0f});
    EXPECT_EQ(delta, Matrix4::scaling({1.5f, 1.0f, 1.5f}));
    EXPECT_EQ(gizmo.matrix, Matrix4::scaling({1.5f, 0.0f, 3.0f}));
}

TEST_F(BehaviourTest, resultBeyondAllNumbersIsNone) {
    gizmo.matrix = Matrix4::scaling(Vector3{2.0e38f});
    gizmo.operation = ImGuizmo::SCALE;
    ASSERT_TRUE(gizmo.grab(middle()));
    gizmo.moveTo(middle() + Vector2{300.0f, 0.0f});
    const GizmoWindow::Frame frame = gizmo.frame();
    EXPECT_FALSE(frame.isChanged);
    EXPECT_EQ(frame.delta, Matrix4{});
    EXPECT_EQ(gizmo.matrix, Matrix4::scaling(Vector3{2.0e38f}));
}

TEST_F(BehaviourTest, everyOperationLeavesTheClipRectangles) {
    for(ImGuizmo::OPERATION operation: {ImGuizmo::TRANSLATE, ImGuizmo::ROTATE, ImGuizmo::SCALE})
        for(const Vector3& position: {Vector3{}, Vector3{6.0f, 8.0f, 10.0f}, Vector3{100.0f, 0.0f, 0.0f}}) {
            gizmo.operation = operation;
            gizmo.matrix = Matrix4::translation(position);
            gizmo.frame();
            EXPECT_EQ(gizmo.clipRectangles, 0);
        }
}

TEST_F(BehaviourTest, listBehindAllWindowsReactsWhereThereIsNone) {
    gizmo.isBehindAllWindows = true;
    EXPECT_TRUE(gizmo.grab(onAxis()));
    gizmo.release();
    gizmo.frame();
    gizmo.isCovered = true;
    gizmo.frame();
    EXPECT_FALSE(gizmo.grab(onAxis()));
}

TEST_F(BehaviourTest, mouseOutsideOfThePictureGrabsNothing) {
    gizmo.rect = {{0.0f, 0.0f}, {800.0f, 900.0f}};
    // The middle is just inside of the right edge.
    gizmo.matrix = Matrix4::translation(gizmo.view.inverted().transformVector(Vector3::xAxis(4.05f)));
    EXPECT_FALSE(gizmo.grab({803.0f, 450.0f}));
    gizmo.release();
    gizmo.frame();
    EXPECT_TRUE(gizmo.grab({797.0f, 450.0f}));
}

TEST_F(BehaviourTest, mouseOutsideOfTheWindowGrabsNothing) {
    gizmo.windowSize = {700.0f, 900.0f};
    EXPECT_FALSE(gizmo.grab(middle()));
    gizmo.release();
    gizmo.frame();
    gizmo.windowSize = {1000.0f, 900.0f};
    EXPECT_TRUE(gizmo.grab(middle()));
}

TEST_F(BehaviourTest, joinedOperationsHaveTheHandlesOfBoth) {
    gizmo.operation = ImGuizmo::TRANSLATE | ImGuizmo::ROTATE;
    gizmo.frame();
    gizmo.moveTo(onAxis());
    gizmo.frame();
    EXPECT_TRUE(ImGuizmo::IsOver(ImGuizmo::TRANSLATE_X));
    gizmo.moveTo(middle() + Vector2{1.28f * 80.0f, 0.0f});
    gizmo.frame();
    EXPECT_TRUE(ImGuizmo::IsOver(ImGuizmo::ROTATE_SCREEN));
}

TEST_F(BehaviourTest, idsTellGizmosApart) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    ASSERT_TRUE(gizmo.grab(onAxis()));
    ImGuizmo::SetID(3);
    EXPECT_FALSE(ImGuizmo::IsUsing());
    EXPECT_TRUE(ImGuizmo::IsUsingAny());
    EXPECT_FALSE(ImGuizmo::IsOver());
    ImGuizmo::SetID(-1);
    EXPECT_TRUE(ImGuizmo::IsUsing());
#pragma GCC diagnostic pop
}

TEST_F(BehaviourTest, frameHasToBegin) {
    gizmo.frame();
    ImGui::NewFrame();
    EXPECT_EXIT(ImGuizmo::Manipulate(gizmo.view.data(), gizmo.projection.data(), ImGuizmo::TRANSLATE, ImGuizmo::LOCAL,
                    gizmo.matrix.data()),
        testing::KilledBySignal(SIGABRT), "there was no BeginFrame\\(\\) in this frame");
    ImGui::EndFrame();
}

TEST_F(BehaviourTest, boundsAreNotThere) {
    const float bounds[6]{};
    EXPECT_EXIT(ImGuizmo::Manipulate(gizmo.view.data(), gizmo.projection.data(), ImGuizmo::TRANSLATE, ImGuizmo::LOCAL,
                    gizmo.matrix.data(), nullptr, nullptr, bounds),
        testing::KilledBySignal(SIGABRT), "there are no bounds to edit");
}

// Whatever comes in, what goes out can be drawn and stored.
class FuzzTest: public BehaviourTest, public testing::WithParamInterface<int> {
protected:
    bool isSane() {
        for(float number: gizmo.lastVertices())
            if(!std::isfinite(number)) return false;
        return std::all_of(gizmo.matrix.data(), gizmo.matrix.data() + 16, [](float f) { return std::isfinite(f); }) &&
            gizmo.clipRectangles == 0;
    }

    Matrix4 anyMatrix() {
        const float range = std::pow(10.0f, float(random.number(-3.0, 4.0)));
        Matrix4 out =
            Matrix4::translation(Vector3{random.vector(random.whole(0, 5) ? 2.0 : 1.0e4)}) * random.rotation();
        switch(random.whole(0, 4)) {
        case 0: return out * Matrix4::scaling(Vector3{random.vector(range)});
        case 1: return out * Matrix4::scaling({0.0f, 1.0f, float(random.whole(0, 1))});
        case 2: return Matrix4{Math::ZeroInit} * out;
        case 3:
            for(std::size_t i = 0; i != 12; ++i) out.data()[i] = float(random.number(-1.0, 1.0));
            return out;
        default: return out;
        }
    }

    void anyCamera() {
        gizmo.view = GizmoTest::lookingAt(Vector3{random.vector(9.0)}, Vector3{random.vector(3.0)});
        gizmo.projection = random.whole(0, 3)
            ? GizmoTest::perspective(float(random.number(1.0, 175.0)))
            : Matrix4::orthographicProjection(Vector2{float(random.number(0.01, 100.0))}, 0.1f, 100.0f);
        if(!random.whole(0, 20)) gizmo.view = Matrix4::scaling(Vector3{0.0f});
    }

    void anyMouse() {
        const bool isNear = random.whole(0, 3);
        const Vector2 somewhere{float(random.number(-50.0, 1700.0)), float(random.number(-50.0, 950.0))};
        const Vector2 at = middle();
        const bool isUsable = std::abs(at.x()) < 2000.0f && std::abs(at.y()) < 2000.0f;
        gizmo.moveTo(isNear && isUsable
                ? at + Vector2{float(random.number(-100.0, 100.0)), float(random.number(-100.0, 100.0))}
                : somewhere);
        if(!random.whole(0, 2)) gizmo.press();
        if(!random.whole(0, 9)) gizmo.release();
    }

    void anySettings() {
        constexpr ImGuizmo::OPERATION operations[]{ImGuizmo::TRANSLATE, ImGuizmo::ROTATE, ImGuizmo::SCALE};
        gizmo.operation =
            random.whole(0, 5) ? operations[random.whole(0, 2)] : ImGuizmo::OPERATION(random.whole(0, 1023));
        gizmo.mode = ImGuizmo::MODE(random.whole(0, 1));
        gizmo.snap = {};
        if(random.whole(0, 1)) gizmo.snap = Vector3{float(random.number(-0.5, 3.0))};
        gizmo.rect = random.whole(0, 5) ? Range2D{{}, {1600.0f, 900.0f}}
                                        : Range2D::fromSize(Vector2{float(random.number(-10.0, 900.0))},
                                              Vector2{float(random.number(-5.0, 700.0))});
    }

    GizmoTest::Random random{unsigned(GetParam())};
};

TEST_P(FuzzTest, staysFinite) {
    int changed = 0;
    for(int i = 0; i != 3000; ++i) {
        if(!random.whole(0, 40)) gizmo.matrix = anyMatrix();
        if(!random.whole(0, 60)) anyCamera();
        if(!random.whole(0, 30)) anySettings();
        anyMouse();
        const GizmoWindow::Frame frame = gizmo.frame();
        changed += frame.isChanged;
        ASSERT_TRUE(isSane()) << "frame " << i;
        for(int k = 0; k != 16; ++k) ASSERT_TRUE(std::isfinite(frame.delta.data()[k])) << "frame " << i;
    }
    // It has done something.
    EXPECT_GT(changed, 50);
    gizmo.release();
    gizmo.frame();
}

INSTANTIATE_TEST_SUITE_P(Seeds, FuzzTest, testing::Values(1, 2, 3));

}
