#include "Views/SceneView/Picking/Picking.h"

#include <map>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/ImageView.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>

#include "Data/ProjectSession.h"
#include "Support/JsonText.h"
#include "Support/OffscreenContext.h"
#include "Views/SceneView/ObjectIdReadback.h"
#include "Views/SceneView/Picking/PickMath.h"
#include "Views/SceneView/ViewFrame.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned ControlShift = ModifierControl | ModifierShift;

// Objects a, b, c and d; a picture of ids of four columns and two rows, a point a pixel. From above:
//
//     a a b -
//     c 0 - -
class PickingTest: public VantrelTest::GlTest {
protected:
    PickingTest() {
        for(const char* id: {"a", "b", "c", "d"}) {
            const std::string path = std::string{"/objects/"} + id;
            JsonDocument object;
            object.Parse((std::string{R"({"parent": "", "name": "shown", "translation": [)"} + char('0' + id[0] - 'a') +
                R"(, 0, 0], "rotation": [0, 0, 0, 1], "scaling": [1, 1, 1], "components": []})")
                             .c_str());
            session.changes().recordWithParents(path.c_str(), object, false);
        }
        session.update();
        ids = {{'a', objectOf("a")}, {'b', objectOf("b")}, {'c', objectOf("c")}, {'-', NoObject}, {'0', RootObject}};
        draw("c0--", "aab-");
    }

    // Rows from below.
    void draw(const std::string& lower, const std::string& upper) {
        std::string pixels;
        for(const char name: lower + upper) {
            const Id id = ids.at(name);
            pixels += {char(id & 0xff), char(id >> 8), '\0', '\xff'};
        }
        texture = GL::Texture2D{};
        texture.setStorage(1, GL::TextureFormat::RGBA8, frame.framebufferSize)
            .setSubImage(0, {},
                ImageView2D{PixelFormat::RGBA8Unorm, frame.framebufferSize,
                    Containers::arrayView(pixels.data(), pixels.size())});
        framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{ObjectIdAttachment}, texture, 0);
    }

    Id objectOf(const char* id) { return session.compiler().objectOf(id); }
    PickTarget target() { return {session.data(), session.editor().state(), framebuffer, frame}; }
    static Vector2i point(const Vector2i& column) { return Vector2i{50, 70} + column; }
    void press(const Vector2i& column, unsigned modifiers = 0) {
        picking.mousePress({MouseButton::Left, point(column), modifiers}, state, target());
    }
    void release(const Vector2i& column, unsigned modifiers = 0) {
        picking.mouseRelease({MouseButton::Left, point(column), modifiers}, target());
    }
    void click(const Vector2i& column, unsigned modifiers = 0) {
        press(column, modifiers);
        release(column);
    }
    void box(const Vector2i& from, const Vector2i& to, unsigned modifiers = 0) {
        picking.armBox();
        press(from);
        release(to, modifiers);
    }
    std::string selected() {
        std::string names;
        for(const char* id: {"a", "b", "c", "d"})
            if(session.data().isSelected(objectOf(id))) names += id;
        return names;
    }
    void select(const std::string& names) {
        session.data().selection().clear();
        for(const char name: names) session.data().selectObject(objectOf(std::string(1, name).c_str()), true);
    }
    std::string document() { return VantrelTest::jsonText(session.data().project().projectFile()); }

    ProjectSession session;
    ViewFrame frame{{50, 70}, {4, 2}, {4, 2}, Vector2{1.0f}};
    GL::Texture2D texture;
    GL::Framebuffer framebuffer{{{}, frame.framebufferSize}};
    std::map<char, Id> ids;
    PressState state{true, false, false, false};
    Picking picking;
};

constexpr Vector2i OnA{0, 0}, OnB{2, 0}, OnC{0, 1}, OnRoot{1, 1}, OnNothing{3, 1};

TEST_F(PickingTest, clickSelectsThatAlone) {
    click(OnA);
    EXPECT_EQ(selected(), "a");
    click(OnB);
    EXPECT_EQ(selected(), "b");
    click(OnB);
    EXPECT_EQ(selected(), "b");
    click(OnNothing);
    EXPECT_EQ(selected(), "");
}

TEST_F(PickingTest, shiftClickTogglesOne) {
    select("cd");
    click(OnA, ModifierShift);
    EXPECT_EQ(selected(), "acd");
    click(OnC, ModifierShift);
    EXPECT_EQ(selected(), "ad");
    click(OnNothing, ModifierShift);
    EXPECT_EQ(selected(), "ad");
}

TEST_F(PickingTest, otherModifiersAreNone) {
    for(const unsigned modifiers: {2u, 4u, 8u, 5u, 7u}) {
        select("cd");
        click(OnA, modifiers);
        EXPECT_EQ(selected(), "a") << modifiers;
    }
}

TEST_F(PickingTest, theRootIsNothing) {
    select("b");
    click(OnRoot, ModifierShift);
    EXPECT_EQ(selected(), "b");
    click(OnRoot);
    EXPECT_EQ(selected(), "");
}

// The picture still shows what is deleted already.
TEST_F(PickingTest, whatIsGoneIsNothing) {
    session.changes().recordChange("/objects/a", nullptr, false);
    session.update();
    click(OnA);
    EXPECT_FALSE(session.data().firstSelectedObject());
}

TEST_F(PickingTest, pressesThatAreNotTheViews) {
    select("d");
    for(const PressState none: {PressState{false, false, false, false}, PressState{true, true, false, false},
            PressState{true, false, false, true}}) {
        state = none;
        click(OnA);
        EXPECT_EQ(selected(), "d");
    }
}

TEST_F(PickingTest, boxSelectsAllThatIsSeenInIt) {
    select("d");
    box({0, 0}, {4, 1});
    EXPECT_EQ(selected(), "ab");
    box({0, 0}, {1, 2});
    EXPECT_EQ(selected(), "ac");
}

TEST_F(PickingTest, boxBackwardsIsTheSame) {
    for(const auto& corners: {std::make_pair(Vector2i{4, 2}, Vector2i{1, 0}), {{1, 0}, {4, 2}}, {{4, 0}, {1, 2}}}) {
        select("c");
        box(corners.first, corners.second);
        EXPECT_EQ(selected(), "ab");
    }
}

TEST_F(PickingTest, shiftBoxAddsAndNeverTakesOut) {
    select("ad");
    box({0, 0}, {4, 2}, ModifierShift);
    EXPECT_EQ(selected(), "abcd");
    box({0, 0}, {4, 2}, ModifierShift | ModifierAlt);
    EXPECT_EQ(selected(), "abcd");
}

TEST_F(PickingTest, boxWithoutPixels) {
    for(const Vector2i& end: {Vector2i{0, 2}, {4, 0}, {0, 0}}) {
        select("b");
        box({0, 0}, end, ModifierShift);
        EXPECT_EQ(selected(), "b");
        box({0, 0}, end);
        EXPECT_EQ(selected(), "");
    }
}

TEST_F(PickingTest, boxBeyondThePicture) {
    box({-100, -100}, {100, 100});
    EXPECT_EQ(selected(), "abc");
    box({4, 0}, {100, 100});
    EXPECT_EQ(selected(), "");
}

TEST_F(PickingTest, anArmedPressSelectsNothing) {
    select("d");
    picking.armBox();
    press(OnA);
    EXPECT_EQ(selected(), "d");
    press(OnA, ControlShift);
    EXPECT_EQ(selected(), "d");
}

TEST_F(PickingTest, eachBoxIsArmedAnew) {
    EXPECT_FALSE(picking.isBoxArmed());
    box({0, 0}, {4, 2});
    EXPECT_FALSE(picking.isBoxArmed());
    press(OnA);
    release({4, 2});
    EXPECT_EQ(selected(), "a");
}

TEST_F(PickingTest, cancelledBoxesSelectNothing) {
    select("d");
    picking.armBox();
    EXPECT_TRUE(picking.isBoxArmed());
    picking.cancelBox();
    EXPECT_FALSE(picking.isBoxArmed());
    picking.armBox();
    press({0, 0});
    picking.cancelBox();
    release({4, 2});
    EXPECT_EQ(selected(), "d");
}

// Whatever the mode is when the button is let go.
TEST_F(PickingTest, aReleaseEndsTheBoxAlsoOutsideAndWhileFlying) {
    picking.armBox();
    press({0, 0});
    state = {false, true, false, false};
    release({4, 2});
    EXPECT_EQ(selected(), "abc");
}

TEST_F(PickingTest, boxFeedback) {
    EXPECT_FALSE(picking.boxFeedback(point({3, 1}), frame));
    picking.armBox();
    ASSERT_TRUE(picking.boxFeedback(point({3, 1}), frame));
    EXPECT_FALSE(picking.boxFeedback(point({3, 1}), frame)->rectangle);
    press({2, 1});
    // Where the picture is when it is drawn.
    frame.origin += Vector2i{10, 20};
    EXPECT_EQ(picking.boxFeedback({61, 95}, frame)->rectangle, (Range2D{{61.0f, 91.0f}, {62.0f, 95.0f}}));
    release({3, 1});
    EXPECT_FALSE(picking.boxFeedback({61, 95}, frame));
}

TEST_F(PickingTest, whoAsksIsAnsweredAndNothingIsSelected) {
    ObjectPickRequest& request = session.editor().state().pickRequest;
    request.isPending = 1;
    select("d");
    click(OnB);
    EXPECT_EQ(request.name, "b");
    EXPECT_EQ(selected(), "d");
    // The first one from below.
    box({0, 0}, {4, 2});
    EXPECT_EQ(request.name, "c");
    EXPECT_EQ(selected(), "d");
    click(OnA, ModifierShift);
    EXPECT_EQ(request.name, "a");
    box({0, 0}, {4, 2}, ModifierShift);
    EXPECT_EQ(request.name, "c");
    EXPECT_EQ(selected(), "d");
    for(const Vector2i& nobody: {OnNothing, OnRoot}) {
        click(nobody);
        EXPECT_EQ(request.name, "c");
        EXPECT_TRUE(request.isPending);
        EXPECT_EQ(selected(), "d");
    }
}

TEST_F(PickingTest, placesTheFirstSelectedObject) {
    select("ad");
    const std::string before = document();
    click(OnB, ControlShift);
    session.update();
    Scene& scene = session.data().scene().main();
    scene.computeAbsoluteTransformations();
    EXPECT_EQ(scene.absoluteTransformation(objectOf("a")).translation(), (Vector3{1.0f, 0.0f, 0.0f}));
    EXPECT_EQ(selected(), "ad");
    session.changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(PickingTest, placesNothingOnNothing) {
    const std::size_t records = session.changes().changes().size();
    select("a");
    click(OnNothing, ControlShift);
    select("");
    click(OnB, ControlShift);
    EXPECT_EQ(session.changes().changes().size(), records);
}

} // namespace
