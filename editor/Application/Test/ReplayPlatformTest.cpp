#include "Application/ReplayPlatform.h"

#include <gtest/gtest.h>

namespace VantrelEngine {

namespace {

using namespace Magnum;

TEST(ReplayPlatformTest, TimeGoesByAFrameAtATime) {
    ReplayPlatform platform{{10, 10}, 1.0f};
    EXPECT_EQ(platform.now(), 0.0);
    for(int i = 0; i != 60; ++i) platform.advance();
    EXPECT_EQ(platform.now(), 1.0);
}

TEST(ReplayPlatformTest, FramebufferHasAPixelAtLeast) {
    ReplayPlatform platform{{1, 3}, 0.25f};
    EXPECT_EQ(platform.framebufferSize(), (Vector2i{1, 1}));
    platform.setScale(1.5f);
    platform.resize({100, 31});
    EXPECT_EQ(platform.framebufferSize(), (Vector2i{150, 47}));
    EXPECT_EQ(platform.framebufferScale(), Vector2{1.5f});
}

TEST(ReplayPlatformTest, CursorComesBackFromWhereItWasDisabled) {
    ReplayPlatform platform{{100, 100}, 1.0f};
    platform.moveTo({10.0, 20.0});
    EXPECT_FALSE(platform.takeWarp()) << "the script's own move";
    platform.setCursorDisabled(true);
    platform.setCursorPosition({50, 50});
    EXPECT_EQ(platform.takeWarp(), (Vector2d{50.0, 50.0}));
    EXPECT_FALSE(platform.takeWarp());
    platform.setCursorDisabled(true);
    platform.setCursorDisabled(false);
    EXPECT_EQ(platform.cursorPosition(), (Vector2d{10.0, 20.0}));
    EXPECT_EQ(platform.takeWarp(), (Vector2d{10.0, 20.0}));
    platform.setCursorDisabled(false);
    EXPECT_FALSE(platform.takeWarp());
}

} // namespace

} // namespace VantrelEngine
