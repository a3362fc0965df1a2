#include "Modules/EventDelivery.h"

#include <gtest/gtest.h>

#include "Modules/ModuleLoader.h"
#include "Modules/Test/RecorderSupport.h"

namespace VantrelEngine {

namespace {

using namespace Magnum;

constexpr int W = 87, A = 65;

class EventDeliveryTest: public testing::Test {
protected:
    EventDeliveryTest() {
        heard([&] { EXPECT_EQ(loader.load(), ""); });
        delivery.setModule(loader.module());
    }

    ~EventDeliveryTest() override {
        heard([&] { loader.unload(); });
    }

    std::string press(MouseButton button, bool isForModule = true) {
        return heard([&] { delivery.pressButton({button, {10, 20}, 0}, isForModule); });
    }
    std::string release(MouseButton button) {
        return heard([&] { delivery.releaseButton({button, {11, 21}, 0}); });
    }
    std::string key(int key, bool isForModule = true, bool isRepeated = false) {
        return heard([&] { delivery.pressKey({key, 0, isRepeated}, isForModule); });
    }
    std::string keyUp(int key) {
        return heard([&] { delivery.releaseKey({key, 0, false}); });
    }

    ModuleLoader loader{RECORDER};
    EventDelivery delivery;
};

TEST_F(EventDeliveryTest, ReleaseOfAButtonFollowsItsPress) {
    EXPECT_EQ(press(MouseButton::Right), "recorder: press 1 10 20 0\n");
    EXPECT_TRUE(delivery.isButtonHeld());
    EXPECT_EQ(release(MouseButton::Right), "recorder: release 1 11 21 0\n");
    EXPECT_FALSE(delivery.isButtonHeld());
    EXPECT_EQ(release(MouseButton::Right), "") << "once";
}

TEST_F(EventDeliveryTest, ReleaseOfAButtonThatWasPressedElsewhereIsNotDelivered) {
    EXPECT_EQ(press(MouseButton::Left, false), "");
    EXPECT_EQ(release(MouseButton::Left), "");
    EXPECT_EQ(release(MouseButton::Middle), "") << "never pressed";
}

TEST_F(EventDeliveryTest, ButtonsAreIndependent) {
    press(MouseButton::Right);
    EXPECT_EQ(press(MouseButton::Left), "recorder: press 0 10 20 0\n");
    EXPECT_EQ(release(MouseButton::Right), "recorder: release 1 11 21 0\n");
    EXPECT_EQ(release(MouseButton::Left), "recorder: release 0 11 21 0\n");
}

TEST_F(EventDeliveryTest, ReleaseOfAKeyFollowsItsPressWhereverTheFocusIs) {
    EXPECT_EQ(key(W), "recorder: key 87 0 false\n");
    EXPECT_EQ(key(A, false), "");
    EXPECT_EQ(keyUp(W), "recorder: keyup 87 0 false\n");
    EXPECT_EQ(keyUp(A), "");
}

TEST_F(EventDeliveryTest, RepeatsFollowTheirPress) {
    EXPECT_EQ(key(W, true, true), "") << "the press went elsewhere";
    key(W);
    EXPECT_EQ(key(W, false, true), "recorder: key 87 0 true\n");
    EXPECT_EQ(key(W), "") << "pressed already";
}

TEST_F(EventDeliveryTest, ReleaseAllLeavesNothingHeld) {
    press(MouseButton::Right), key(W), key(A);
    EXPECT_EQ(heard([&] {
        delivery.releaseAll({1, 2});
    }),
        "recorder: focus lost\nrecorder: keyup 65 0 false\nrecorder: keyup 87 0 false\nrecorder: release 1 1 2 0\n");
    EXPECT_EQ(keyUp(W) + keyUp(A) + release(MouseButton::Right), "") << "the late ones go nowhere";
    EXPECT_EQ(heard([&] { delivery.releaseAll({1, 2}); }), "");
}

// Before the releases, which the user did not mean; also where nothing is held.
TEST_F(EventDeliveryTest, LosingTheFocusIsToldFirst) {
    key(W);
    EXPECT_EQ(heard([&] { delivery.loseFocus({}); }), "recorder: focus lost\nrecorder: keyup 87 0 false\n");
    EXPECT_EQ(heard([&] { delivery.loseFocus({}); }), "recorder: focus lost\n");
}

TEST_F(EventDeliveryTest, NothingHappensWithoutAModule) {
    press(MouseButton::Left);
    delivery.setModule(nullptr);
    EXPECT_EQ(release(MouseButton::Left) + press(MouseButton::Left) + key(W) + keyUp(W), "");
    EXPECT_EQ(heard([&] {
        delivery.move({{1, 1}, 0});
        delivery.scroll({{0.0f, 1.0f}, 0});
        delivery.loseFocus({});
    }),
        "");
}

TEST_F(EventDeliveryTest, MovesAndScrollsAreDelivered) {
    EXPECT_EQ(heard([&] { delivery.move({{3, -4}, 1}); }), "recorder: move 3 -4 1\n");
    EXPECT_EQ(heard([&] { delivery.scroll({{0.0f, 2.0f}, 2}); }), "recorder: scroll 2 2\n");
}

} // namespace

} // namespace VantrelEngine
