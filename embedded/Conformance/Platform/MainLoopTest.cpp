#include "RecordingApplication.h"

#include <chrono>
#include <thread>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Ticking: RecordingApplication {
    int ticks = 0;

private:
    void tickEvent() override { ++ticks; }
};

TEST(MainLoopTest, drawsOnceWithoutBeingAsked) {
    RecordingApplication app;
    EXPECT_TRUE(app.mainLoopIteration());
    EXPECT_THAT(app.takeEvents(), ElementsAre("draw"));
}

TEST(MainLoopTest, drawsAgainOnlyWhenAsked) {
    Ticking app;
    app.mainLoopIteration();
    app.takeEvents();
    EXPECT_TRUE(app.mainLoopIteration());
    EXPECT_THAT(app.takeEvents(), IsEmpty());
    app.redraw();
    EXPECT_TRUE(app.mainLoopIteration());
    EXPECT_THAT(app.takeEvents(), ElementsAre("draw"));
}

TEST(MainLoopTest, redrawInsideOfDrawIsForTheNextIteration) {
    RecordingApplication app;
    app.onDraw = [&] { app.redraw(); };
    app.mainLoopIteration();
    EXPECT_THAT(app.takeEvents(), ElementsAre("draw"));
    app.mainLoopIteration();
    EXPECT_THAT(app.takeEvents(), ElementsAre("draw"));
}

TEST(MainLoopTest, ticksInEveryIteration) {
    Ticking app;
    for(int i = 0; i != 3; ++i) app.mainLoopIteration();
    EXPECT_EQ(app.ticks, 3);
}

// With nothing to do the process sleeps instead of turning in circles.
TEST(MainLoopTest, waitsForAnEventWhenIdle) {
    RecordingApplication app;
    app.mainLoopIteration();
    std::thread waker{[] {
        std::this_thread::sleep_for(std::chrono::milliseconds{200});
        glfwPostEmptyEvent();
    }};
    const auto begin = std::chrono::steady_clock::now();
    // What the server sent after the window was made may wake it up a few times.
    int iterations = 0;
    while(std::chrono::steady_clock::now() - begin < std::chrono::milliseconds{200}) {
        app.mainLoopIteration();
        ++iterations;
    }
    waker.join();
    EXPECT_LT(iterations, 20);
}

TEST(MainLoopTest, exitEndsTheLoopWithItsCode) {
    RecordingApplication app;
    app.onDraw = [&] { app.exit(3); };
    EXPECT_EQ(app.exec(), 3);
    EXPECT_THAT(app.takeEvents(), ElementsAre("draw"));
    EXPECT_FALSE(app.mainLoopIteration());
    EXPECT_THAT(app.takeEvents(), IsEmpty());
}

TEST(MainLoopTest, iterationThatExitsIsTheLast) {
    RecordingApplication app;
    app.onDraw = [&] { app.exit(); };
    EXPECT_FALSE(app.mainLoopIteration());
}

TEST(MainLoopTest, exitBeforeTheLoopDrawsNothing) {
    RecordingApplication app;
    app.exit(7);
    EXPECT_EQ(app.exec(), 7);
    EXPECT_THAT(app.takeEvents(), IsEmpty());
}

// As when the user clicks on the cross: GLFW sets the flag and calls the callback.
void clickOnClose(RecordingApplication& app) {
    glfwSetWindowShouldClose(app.window(), true);
    const auto callback = glfwSetWindowCloseCallback(app.window(), nullptr);
    glfwSetWindowCloseCallback(app.window(), callback);
    callback(app.window());
}

TEST(MainLoopTest, closingTheWindowEndsTheLoop) {
    Ticking app;
    app.mainLoopIteration();
    app.takeEvents();
    clickOnClose(app);
    EXPECT_THAT(app.takeEvents(), ElementsAre("exit"));
    EXPECT_FALSE(app.mainLoopIteration());
}

TEST(MainLoopTest, closingCanBeRefused) {
    Ticking app;
    app.mainLoopIteration();
    app.acceptsExit = false;
    clickOnClose(app);
    EXPECT_FALSE(glfwWindowShouldClose(app.window()));
    EXPECT_TRUE(app.mainLoopIteration());
    app.acceptsExit = true;
    clickOnClose(app);
    EXPECT_FALSE(app.mainLoopIteration());
}

TEST(MainLoopTest, closingIsAcceptedByDefault) {
    struct Minimal: RecordingApplication::Base {
        using Base = RecordingApplication::Base;
        explicit Minimal(int argc):
            Base{Arguments{argc, nullptr}, RecordingApplication::hiddenWindow(), RecordingApplication::quietGl330()} {}
        void drawEvent() override {}
    } app{0};
    app.mainLoopIteration();
    glfwSetWindowShouldClose(app.window(), true);
    const auto callback = glfwSetWindowCloseCallback(app.window(), nullptr);
    glfwSetWindowCloseCallback(app.window(), callback);
    callback(app.window());
    EXPECT_FALSE(app.mainLoopIteration());
    EXPECT_EQ(app.exec(), 0);
}

}
