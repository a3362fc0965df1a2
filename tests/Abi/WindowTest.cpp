#include <chrono>
#include <future>
#include <thread>

#include <gtest/gtest.h>

#include "Command.h"

// Last: full of macros with short names.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

struct WindowTest: testing::Test {
    WindowTest(): display{XOpenDisplay(nullptr)} {
        // The window may be gone at any time.
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    }
    ~WindowTest() override {
        if(display) XCloseDisplay(display);
    }

    // A window on the top level whose title is that of the program, 0 if there is none.
    Window find() {
        Window root, parent, *children = nullptr, found = 0;
        unsigned int count = 0;
        if(!XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count)) return 0;
        for(unsigned int i = 0; i != count; ++i) {
            char* name = nullptr;
            if(!XFetchName(display, children[i], &name)) continue;
            if(std::string{name} == "Proof picture") found = children[i];
            XFree(name);
        }
        if(children) XFree(children);
        return found;
    }

    template<class F> bool waitFor(F&& condition) {
        for(int i = 0; i != 200; ++i) {
            if(condition()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds{50});
        }
        return false;
    }

    // The colour in the middle of the window.
    unsigned long middle(Window window) {
        XWindowAttributes attributes;
        if(!XGetWindowAttributes(display, window, &attributes) || attributes.map_state != IsViewable) return 0;
        XImage* const image =
            XGetImage(display, window, attributes.width / 2, attributes.height / 2, 1, 1, AllPlanes, ZPixmap);
        if(!image) return 0;
        const unsigned long pixel = XGetPixel(image, 0, 0) & 0xffffff;
        XDestroyImage(image);
        return pixel;
    }

    void pressEscape(Window window) {
        XEvent event{};
        event.xkey.type = KeyPress;
        event.xkey.display = display;
        event.xkey.window = window;
        event.xkey.keycode = 9;
        event.xkey.time = ++_time;
        XSendEvent(display, window, False, NoEventMask, &event);
        XFlush(display);
    }

    Display* display;

private:
    Time _time = 0;
};

TEST_F(WindowTest, showsThePictureUntilEscape) {
    ASSERT_TRUE(display);
    std::future<CommandResult> program = std::async(std::launch::async, [] { return run(PROGRAM " --window"); });
    Window window = 0;
    ASSERT_TRUE(waitFor([&] { return (window = find()) != 0; }));
    // Between the tiles of the lower row.
    EXPECT_TRUE(waitFor([&] { return middle(window) == 0x16181d; })) << std::hex << middle(window);
    XResizeWindow(display, window, 400, 900);
    XSync(display, False);
    EXPECT_TRUE(waitFor([&] { return middle(window) == 0x16181d; })) << std::hex << middle(window);
    // Again and again: an event that arrives while a frame is being shown may lie there until the next one comes.
    ASSERT_TRUE(waitFor([&] {
        pressEscape(window);
        return program.wait_for(std::chrono::milliseconds{50}) == std::future_status::ready;
    }));
    const CommandResult result = program.get();
    EXPECT_EQ(result.exitCode, 0) << result.output;
}

}
