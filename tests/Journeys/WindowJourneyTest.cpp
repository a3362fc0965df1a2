#include <chrono>
#include <functional>
#include <future>
#include <thread>

#include <gmock/gmock.h>

#include "Journeys/Journey.h"

// Last: full of macros with short names.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace VantrelTest {

namespace {

using testing::HasSubstr;

constexpr unsigned long View = 0x3c5a82;
// As an X server numbers them.
constexpr unsigned LeftButton = 1, RightButton = 3, KeyW = 25;

// The editor with a window, on a server of the test's own.
class WindowJourneyTest: public JourneyTest {
protected:
    WindowJourneyTest(): display{XOpenDisplay(nullptr)} {
        // The window may be gone at any time.
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
        setenv("XDG_CONFIG_HOME", folder.path("config").data(), 1);
    }
    ~WindowJourneyTest() override {
        unsetenv("XDG_CONFIG_HOME");
        if(display) XCloseDisplay(display);
    }

    // Starts the editor and waits until it shows the view of the recorder.
    void start(const std::string& arguments) {
        ASSERT_TRUE(display);
        editor = std::async(std::launch::async, [this, arguments] { return runEditor(arguments); });
        ASSERT_TRUE(waitFor([this] { return (window = find()) != 0; }));
        ASSERT_TRUE(waitFor([this] { return middle() == View; }));
        // There is no window manager that would.
        XSetInputFocus(display, window, RevertToNone, CurrentTime);
        wait();
    }

    // Closes the window as a window manager does.
    JourneyResult close() {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
        event.xclient.format = 32;
        event.xclient.data.l[0] = long(XInternAtom(display, "WM_DELETE_WINDOW", False));
        send(event, NoEventMask);
        return editor.get();
    }

    // The server's own cursor: the editor asks for it with each event.
    void move(int x, int y) {
        XWarpPointer(display, None, window, 0, 0, 0, 0, x, y);
        wait();
    }

    void button(unsigned button, bool isDown) {
        XEvent event{};
        event.xbutton.type = isDown ? ButtonPress : ButtonRelease;
        event.xbutton.button = button;
        send(event, isDown ? ButtonPressMask : ButtonReleaseMask);
    }

    void key(unsigned code, bool isDown) {
        XEvent event{};
        event.xkey.type = isDown ? KeyPress : KeyRelease;
        event.xkey.keycode = code;
        event.xkey.time = ++time;
        send(event, isDown ? KeyPressMask : KeyReleaseMask);
    }

private:
    void send(XEvent& event, long mask) {
        event.xany.display = display;
        event.xany.window = window;
        XSendEvent(display, window, False, mask, &event);
        wait();
    }

    void wait() {
        XSync(display, False);
        // A frame is drawn between two events, as between those of a person.
        std::this_thread::sleep_for(std::chrono::milliseconds{100});
    }

    static bool waitFor(const std::function<bool()>& condition) {
        for(int i = 0; i != 200; ++i) {
            if(condition()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds{50});
        }
        return false;
    }

    Window find() const {
        Window root, parent, *children = nullptr, found = 0;
        unsigned count = 0;
        if(!XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count)) return 0;
        for(unsigned i = 0; i != count; ++i) {
            char* name = nullptr;
            if(!XFetchName(display, children[i], &name)) continue;
            if(std::string{name}.find("Vantrel Editor") != std::string::npos) found = children[i];
            XFree(name);
        }
        if(children) XFree(children);
        return found;
    }

    // The colour in the middle of the window.
    unsigned long middle() const {
        XWindowAttributes attributes;
        if(!XGetWindowAttributes(display, window, &attributes) || attributes.map_state != IsViewable) return 0;
        XImage* const image =
            XGetImage(display, window, attributes.width / 2, attributes.height / 2, 1, 1, AllPlanes, ZPixmap);
        if(!image) return 0;
        const unsigned long pixel = XGetPixel(image, 0, 0) & 0xffffff;
        XDestroyImage(image);
        return pixel;
    }

    Display* display;
    Window window = 0;
    Time time = 0;
    std::future<JourneyResult> editor;
};

TEST_F(WindowJourneyTest, EventsReachTheViewAndSettingsAreKept) {
    start("--module " + Recorder + " --size 900x600 " + Courtyard);
    move(500, 300);
    button(RightButton, true);
    // While one button is down, the others come as movements.
    move(510, 310);
    button(LeftButton, true);
    button(RightButton, false);
    move(520, 320);
    button(LeftButton, false);
    key(KeyW, true);
    key(KeyW, false);
    const JourneyResult result = close();
    EXPECT_EQ(result.status, 0) << result.output;
    // The server may tell at first that something else has the focus.
    EXPECT_THAT(heard(result.output),
        HasSubstr("press 1 500 300 0\npress 0 510 310 0\nrelease 1 510 310 0\nrelease 0 520 320 0\nkey 87 0 false\n"
                  "keyup 87 0 false\ndeleted\n"));
    EXPECT_THAT(result.output, HasSubstr("recorder: move 10 10 0\n"));
    const std::string settings = read("config/vantrel-editor/settings.json");
    EXPECT_THAT(settings, HasSubstr("Courtyard/project.json"));
    EXPECT_THAT(settings, HasSubstr("\"width\": 900"));
}

}

}
