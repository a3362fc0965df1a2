#include "RecordingApplication.h"

#include <gmock/gmock.h>

// Last: full of macros with short names.
#include <X11/Xlib.h>

// As in GLFW/glfw3native.h, which asks for headers of more X11 extensions than are used here.
extern "C" {
Display* glfwGetX11Display();
Window glfwGetX11Window(GLFWwindow* window);
}

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Takes a callback out of GLFW, which returns the one that was there.
#define CALLBACK(type)                                                                                                 \
    [](GLFWwindow* window) {                                                                                           \
        const auto callback = glfwSet##type##Callback(window, nullptr);                                                \
        glfwSet##type##Callback(window, callback);                                                                     \
        return callback;                                                                                               \
    }(app.window())

// An X server starts over when its last client leaves, and refuses new ones in the meantime: be one all the time.
struct Connection: testing::Environment {
    void SetUp() override { display = XOpenDisplay(nullptr); }
    void TearDown() override {
        if(display) XCloseDisplay(display);
    }
    Display* display{};
};

const testing::Environment* const connection = testing::AddGlobalTestEnvironment(new Connection);

struct EventTest: testing::Test {
    // Callbacks are in place once the loop runs.
    EventTest() {
        app.mainLoopIteration();
        app.takeEvents();
    }

    // As if the X server had sent it. The position of buttons is where the real pointer is, wherever that may be.
    void sendButton(unsigned int button, bool press, unsigned int state = 0) {
        XEvent event{};
        event.xbutton.type = press ? ButtonPress : ButtonRelease;
        event.xbutton.button = button;
        event.xbutton.state = state;
        send(event);
    }

    void sendMotion(int x, int y) {
        XEvent event{};
        event.xmotion.type = MotionNotify;
        event.xmotion.x = x;
        event.xmotion.y = y;
        send(event);
    }

    void sendKey(unsigned int code, bool press) {
        XEvent event{};
        event.xkey.type = press ? KeyPress : KeyRelease;
        event.xkey.keycode = code;
        // Two at the same time count as one.
        event.xkey.time = ++time;
        send(event);
    }

    void send(XEvent& event) {
        Display* const display = glfwGetX11Display();
        event.xany.display = display;
        event.xany.window = glfwGetX11Window(app.window());
        XSendEvent(display, event.xany.window, False, NoEventMask, &event);
        XSync(display, False);
        glfwPollEvents();
    }

    std::string pointerPosition() {
        double x, y;
        glfwGetCursorPos(app.window(), &x, &y);
        return std::to_string(int(x)) + "," + std::to_string(int(y));
    }

    RecordingApplication app;
    Time time = 1;
};

TEST_F(EventTest, keys) {
    const GLFWkeyfun key = CALLBACK(Key);
    key(app.window(), GLFW_KEY_A, 38, GLFW_PRESS, GLFW_MOD_SHIFT | GLFW_MOD_SUPER);
    key(app.window(), GLFW_KEY_A, 38, GLFW_REPEAT, GLFW_MOD_CONTROL | GLFW_MOD_ALT);
    key(app.window(), GLFW_KEY_A, 38, GLFW_RELEASE, 0);
    key(app.window(), GLFW_KEY_UNKNOWN, 200, GLFW_PRESS, 0);
    EXPECT_THAT(app.takeEvents(),
        ElementsAre("key press 65 scan 38 modifiers 9", "key press 65 scan 38 modifiers 6 repeated",
            "key release 65 scan 38 modifiers 0", "key press -1 scan 200 modifiers 0"));
}

TEST_F(EventTest, textIsUtf8) {
    app.startTextInput();
    const GLFWcharfun character = CALLBACK(Char);
    for(unsigned int codePoint: {0x41u, 0x7fu, 0x80u, 0x10du, 0x7ffu, 0x800u, 0x20acu, 0xffffu, 0x10000u, 0x1f600u})
        character(app.window(), codePoint);
    EXPECT_THAT(app.takeEvents(),
        ElementsAre("text A", "text \x7f", "text \xc2\x80", "text \xc4\x8d", "text \xdf\xbf", "text \xe0\xa0\x80",
            "text \xe2\x82\xac", "text \xef\xbf\xbf", "text \xf0\x90\x80\x80", "text \xf0\x9f\x98\x80"));
}

TEST_F(EventTest, textComesOnlyWhileItIsWanted) {
    EXPECT_FALSE(app.isTextInputActive());
    const GLFWcharfun character = CALLBACK(Char);
    character(app.window(), 'a');
    app.startTextInput();
    EXPECT_TRUE(app.isTextInputActive());
    character(app.window(), 'b');
    app.stopTextInput();
    EXPECT_FALSE(app.isTextInputActive());
    character(app.window(), 'c');
    EXPECT_THAT(app.takeEvents(), ElementsAre("text b"));
}

TEST_F(EventTest, movesKnowWhereTheyComeFrom) {
    const GLFWcursorposfun move = CALLBACK(CursorPos);
    move(app.window(), 10.5, 20.25);
    move(app.window(), 12.0, 20.0);
    EXPECT_THAT(app.takeEvents(),
        ElementsAre("move to 10.5,20.25 by 0,0 held 0 modifiers 0", "move to 12,20 by 1.5,-0.25 held 0 modifiers 0"));
}

TEST_F(EventTest, buttonNumbersBecomePointerBits) {
    const GLFWmousebuttonfun button = CALLBACK(MouseButton);
    const int data[][2]{{GLFW_MOUSE_BUTTON_LEFT, 1}, {GLFW_MOUSE_BUTTON_RIGHT, 4}, {GLFW_MOUSE_BUTTON_MIDDLE, 2},
        {GLFW_MOUSE_BUTTON_4, 8}, {GLFW_MOUSE_BUTTON_5, 16}, {GLFW_MOUSE_BUTTON_6, 32}, {GLFW_MOUSE_BUTTON_7, 64},
        {GLFW_MOUSE_BUTTON_8, 128}};
    for(const auto& i: data) {
        button(app.window(), i[0], GLFW_PRESS, GLFW_MOD_ALT);
        button(app.window(), i[0], GLFW_RELEASE, 0);
        const std::string rest = std::to_string(i[1]) + " at " + pointerPosition();
        EXPECT_THAT(
            app.takeEvents(), ElementsAre("press " + rest + " modifiers 4", "release " + rest + " modifiers 0"));
    }
}

TEST_F(EventTest, scroll) {
    const GLFWscrollfun scroll = CALLBACK(Scroll);
    scroll(app.window(), 1.5, -2.25);
    EXPECT_THAT(app.takeEvents(), ElementsAre("scroll 1.5,-2.25 at " + pointerPosition() + " modifiers 0"));
}

TEST_F(EventTest, focus) {
    const GLFWwindowfocusfun focus = CALLBACK(WindowFocus);
    focus(app.window(), true);
    focus(app.window(), false);
    EXPECT_THAT(app.takeEvents(), ElementsAre("focus", "blur"));
}

TEST_F(EventTest, viewportFollowsTheFramebuffer) {
    const GLFWframebuffersizefun resize = CALLBACK(FramebufferSize);
    resize(app.window(), 700, 500);
    EXPECT_THAT(app.takeEvents(), ElementsAre("viewport window 320,240 framebuffer 700,500 scaling 1,1"));
}

TEST_F(EventTest, resizedWindowIsReportedOnceInTheLoop) {
    glfwSetWindowSize(app.window(), 400, 300);
    XSync(glfwGetX11Display(), False);
    app.redraw();
    app.mainLoopIteration();
    EXPECT_THAT(app.takeEvents(), ElementsAre("viewport window 400,300 framebuffer 400,300 scaling 1,1", "draw"));
    EXPECT_EQ(app.windowSize(), (Magnum::Vector2i{400, 300}));
}

TEST_F(EventTest, damagedWindowIsDrawn) {
    const GLFWwindowrefreshfun refresh = CALLBACK(WindowRefresh);
    refresh(app.window());
    EXPECT_THAT(app.takeEvents(), ElementsAre("draw"));
}

// The press of the first button and the release of the last one are events of their own, the rest of them moves.
TEST_F(EventTest, secondButtonIsAMove) {
    sendMotion(5, 6);
    sendButton(Button1, true);
    sendButton(Button3, true, ShiftMask);
    sendMotion(7, 9);
    sendButton(Button2, true);
    sendButton(Button1, false);
    sendButton(Button3, false);
    sendButton(Button2, false, ControlMask);
    const std::string at = pointerPosition();
    EXPECT_THAT(app.takeEvents(),
        ElementsAre("move to 5,6 by 0,0 held 0 modifiers 0", "press 1 at " + at + " modifiers 0",
            "move with 4 to " + at + " by 0,0 held 5 modifiers 1", "move to 7,9 by 2,3 held 5 modifiers 0",
            "move with 2 to " + at + " by 0,0 held 7 modifiers 0",
            "move with 1 to " + at + " by 0,0 held 6 modifiers 0",
            "move with 4 to " + at + " by 0,0 held 2 modifiers 0", "release 2 at " + at + " modifiers 2"));
}

// GLFW tells about them for buttons and keys only.
TEST_F(EventTest, heldModifiersOfMovesAndScrolls) {
    sendMotion(1, 1);
    // Keycodes of an ordinary keyboard: left shift, right control, left alt, right super.
    const unsigned int codes[]{50, 105, 64, 134};
    for(unsigned int code: codes) sendKey(code, true);
    app.takeEvents();
    sendMotion(2, 2);
    sendButton(Button4, true);
    for(unsigned int code: codes) sendKey(code, false);
    sendMotion(2, 3);
    EXPECT_THAT(app.takeEvents(),
        ElementsAre("move to 2,2 by 1,1 held 0 modifiers 15", "scroll 0,1 at " + pointerPosition() + " modifiers 15",
            "key release 340 scan 50 modifiers 0", "key release 345 scan 105 modifiers 0",
            "key release 342 scan 64 modifiers 0", "key release 347 scan 134 modifiers 0",
            "move to 2,3 by 0,1 held 0 modifiers 0"));
}

}
