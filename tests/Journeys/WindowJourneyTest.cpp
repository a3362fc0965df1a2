#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <future>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include "Journeys/Journey.h"

// Last: full of macros with short names.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace VantrelTest {

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr unsigned long View = 0x3c5a82;
// Where a view is before it has drawn.
constexpr unsigned long Empty = 0x222224;
// As an X server numbers them.
constexpr unsigned LeftButton = 1, RightButton = 3, KeyEscape = 9, KeyW = 25, KeyP = 33, KeyA = 38, KeyS = 39,
                   KeyD = 40, KeyZ = 52, KeyC = 54, KeyV = 55, KeyB = 56, KeyDelete = 119;

// The courtyard's ball in a window of 900 x 600.
constexpr int BallX = 342, BallY = 233;

// As values: the order of an object's keys is none.
bool isSame(const std::string& a, const std::string& b) {
    rapidjson::Document first, second;
    first.Parse(a.data());
    second.Parse(b.data());
    return !first.HasParseError() && !second.HasParseError() && first == second;
}

// The editor with a window, on a server of the test's own.
class WindowJourneyTest: public JourneyTest {
protected:
    WindowJourneyTest(): display{XOpenDisplay(nullptr)} {
        // The window may be gone at any time.
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
        // Where an answer to a ping goes.
        if(display) XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
        setenv("XDG_CONFIG_HOME", folder.path("config").data(), 1);
        setenv("XDG_CACHE_HOME", folder.path("cache").data(), 1);
        setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
        // The editor puts a journal beside it.
        folder.write("Courtyard/project.json", readFile(Courtyard));
    }
    ~WindowJourneyTest() override {
        unsetenv("XDG_CONFIG_HOME");
        unsetenv("XDG_CACHE_HOME");
        unsetenv("XDG_DATA_HOME");
        if(display) XCloseDisplay(display);
    }

    // Starts the editor with a copy of the courtyard, or another project, and waits until it is opened, and shown by the
    // recorder if that is the view.
    void start(const std::string& arguments, bool isRecorder = true, const std::string& project = {}) {
        startWith(arguments + ' ' + (project.empty() ? folder.path("Courtyard/project.json") : project),
            "project.json - Vantrel Editor");
        ASSERT_TRUE(waitFor([&] { return isRecorder ? middle() == View : middle() && middle() != Empty; }));
        // There is no window manager that would.
        XSetInputFocus(display, window, RevertToNone, CurrentTime);
        wait();
    }

    // Until there is a window of that title.
    void startWith(const std::string& arguments, const std::string& title) {
        ASSERT_TRUE(display);
        const std::string all = "--size 900x600 " + arguments;
        editor = std::async(std::launch::async, [this, all] { return runEditor(all); });
        ASSERT_TRUE(waitFor([&] { return (window = find(title)) != 0; }));
    }

    // Closes the window as a window manager does.
    JourneyResult close() {
        sendClose();
        return editor.get();
    }

    void sendClose() { sendProtocol("WM_DELETE_WINDOW"); }

    // What a window manager says to the window.
    void sendProtocol(const char* protocol) {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.display = display;
        event.xclient.window = window;
        event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
        event.xclient.format = 32;
        event.xclient.data.l[0] = long(XInternAtom(display, protocol, False));
        XSendEvent(display, window, False, NoEventMask, &event);
        XSync(display, False);
    }

    // The server's own cursor: the editor asks for it with each event.
    void move(int x, int y) {
        XWarpPointer(display, None, window, 0, 0, 0, 0, x, y);
        wait();
    }

    void tap(unsigned code, unsigned state = 0) {
        key(code, true, state);
        key(code, false);
    }
    void click(int x, int y) {
        move(x, y);
        button(LeftButton, true);
        button(LeftButton, false);
    }
    // By steps, as a hand does.
    void drag(int x, int y, int endX, int endY) {
        move(x, y);
        settledView();
        button(LeftButton, true);
        settledView();
        for(int i = 1; i != 5; ++i) move(x + (endX - x) * i / 4, y + (endY - y) * i / 4);
        button(LeftButton, false);
    }
    // What Ctrl+S saves of a change that was made just now, however long the editor takes for both.
    std::string saved() {
        EXPECT_TRUE(isTitle("project.json* - Vantrel Editor"));
        tap(KeyS, ControlMask);
        EXPECT_TRUE(isTitle("project.json - Vantrel Editor"));
        return read("Courtyard/project.json");
    }
    bool isTitle(const std::string& title) {
        return waitFor([&] { return find(title) == window; });
    }

    // The state is that of the modifiers' keys before it.
    void button(unsigned button, bool isDown, unsigned state = 0) {
        XEvent event{};
        event.xbutton.type = isDown ? ButtonPress : ButtonRelease;
        event.xbutton.button = button;
        event.xbutton.state = state;
        send(event, isDown ? ButtonPressMask : ButtonReleaseMask);
    }

    void key(unsigned code, bool isDown, unsigned state = 0) {
        XEvent event{};
        event.xkey.type = isDown ? KeyPress : KeyRelease;
        event.xkey.keycode = code;
        event.xkey.state = state;
        event.xkey.time = ++time;
        send(event, isDown ? KeyPressMask : KeyReleaseMask);
    }

    void takeFocus() {
        XSetInputFocus(display, None, RevertToNone, CurrentTime);
        wait();
    }

    // What the middle of the view shows, when it does not change any more; empty where it never does.
    std::vector<unsigned long> settledView() {
        std::vector<unsigned long> last, now;
        const bool isSettled = waitFor([&] {
            wait();
            last = std::move(now);
            now = pixels(400, 200, 200, 100);
            return !now.empty() && now == last;
        });
        return isSettled ? now : std::vector<unsigned long>{};
    }

    // Where the view of the recorder begins, from the left; -1 where it does not.
    int viewLeft() const {
        const std::vector<unsigned long> row = pixels(0, 300, 900, 1);
        const auto found = std::find(row.begin(), row.end(), View);
        return found == row.end() ? -1 : int(found - row.begin());
    }

    void send(XEvent& event, long mask) {
        event.xany.display = display;
        event.xany.window = window;
        XSendEvent(display, window, False, mask, &event);
        wait();
    }

    // A frame is drawn between two events, as between those of a person, however long the editor takes: it answers the
    // second ping after the frame that what came before the first has led to.
    void wait() {
        XSync(display, False);
        ping();
        ping();
        std::this_thread::sleep_for(std::chrono::milliseconds{50});
    }

    // Until the editor has taken all that was sent, or ends.
    void ping() {
        sendProtocol("_NET_WM_PING");
        waitFor([this] {
            return editor.wait_for(std::chrono::seconds{0}) == std::future_status::ready || isPingAnswered();
        });
    }

    bool isPingAnswered() const {
        XEvent event;
        const Atom ping = XInternAtom(display, "_NET_WM_PING", False);
        bool isAnswered = false;
        while(XCheckTypedEvent(display, ClientMessage, &event)) isAnswered |= Atom(event.xclient.data.l[0]) == ping;
        return isAnswered;
    }

    static bool waitFor(const std::function<bool()>& condition) {
        for(int i = 0; i != 2000; ++i) {
            if(condition()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds{10});
        }
        return false;
    }

    Window find(const std::string& title) const {
        Window root, parent, *children = nullptr, found = 0;
        unsigned count = 0;
        if(!XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count)) return 0;
        for(unsigned i = 0; i != count; ++i) {
            char* name = nullptr;
            if(!XFetchName(display, children[i], &name)) continue;
            if(title == name) found = children[i];
            XFree(name);
        }
        if(children) XFree(children);
        return found;
    }

    // The colour in the middle of the window.
    unsigned long middle() const {
        const std::vector<unsigned long> pixel = pixels(450, 300, 1, 1);
        return pixel.empty() ? 0 : pixel.front();
    }

    // Of a part of the window, row by row; nothing while it cannot be seen.
    std::vector<unsigned long> pixels(int x, int y, int width, int height) const {
        XWindowAttributes attributes;
        if(!XGetWindowAttributes(display, window, &attributes) || attributes.map_state != IsViewable) return {};
        XImage* const image = XGetImage(display, window, x, y, unsigned(width), unsigned(height), AllPlanes, ZPixmap);
        if(!image) return {};
        std::vector<unsigned long> pixels;
        for(int row = 0; row != height; ++row)
            for(int column = 0; column != width; ++column) pixels.push_back(XGetPixel(image, column, row) & 0xffffff);
        XDestroyImage(image);
        return pixels;
    }

    Display* display;
    Window window = 0;
    Time time = 0;
    std::future<JourneyResult> editor;
};

TEST_F(WindowJourneyTest, EventsReachTheViewAndSettingsAreKept) {
    start("--module " + Recorder);
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

TEST_F(WindowJourneyTest, PanesStayWhereTheyWereDragged) {
    start("--module " + Recorder);
    const int atFirst = viewLeft();
    move(282, 300);
    button(LeftButton, true);
    move(320, 300);
    move(342, 300);
    button(LeftButton, false);
    move(500, 300);
    const int dragged = viewLeft();
    EXPECT_NEAR(dragged, atFirst + 60, 3);
    EXPECT_EQ(close().status, 0);
    start("--module " + Recorder);
    EXPECT_EQ(viewLeft(), dragged);
    EXPECT_EQ(close().status, 0);
}

TEST_F(WindowJourneyTest, ModifiersOfKeysThatTheWindowDidNotSee) {
    start("--module " + Recorder);
    move(500, 300);
    button(RightButton, true, ShiftMask);
    button(RightButton, false, ShiftMask);
    key(KeyW, true, ControlMask);
    key(KeyW, false);
    const JourneyResult result = close();
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(heard(result.output),
        HasSubstr("press 1 500 300 1\nrelease 1 500 300 1\nkey 87 2 false\nkeyup 87 0 false\ndeleted\n"));
}

// Through the clipboard of the server.
TEST_F(WindowJourneyTest, ObjectsAreCopiedAndPasted) {
    const std::string project = folder.path("project.json");
    std::filesystem::copy_file(Courtyard, project);
    start("", false, project);
    move(450, 200);
    for(const unsigned code: {KeyA, KeyC, KeyV, KeyS}) {
        key(code, true, ControlMask);
        key(code, false, ControlMask);
    }
    const JourneyResult result = close();
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(read("project.json"), HasSubstr("\"ball-2\": {"));
    EXPECT_THAT(read("project.json"), Not(HasSubstr("\"ball-3\": {")));
}

// The courtyard's ball, where it is seen in a window of 900 x 600, is moved, copied and deleted.
TEST_F(WindowJourneyTest, AnObjectIsClickedMovedCopiedAndDeleted) {
    start("", false);
    click(BallX, BallY);
    drag(BallX, BallY, BallX + 40, BallY - 16);
    const std::string moved = saved();
    EXPECT_FALSE(isSame(moved, readFile(Courtyard))) << "the gizmo of what was clicked is where it is";
    tap(KeyD, ControlMask);
    EXPECT_THAT(saved(), HasSubstr("\"ball-2\": {"));
    tap(KeyZ, ControlMask);
    EXPECT_EQ(saved(), moved);
    tap(KeyZ, ControlMask);
    EXPECT_TRUE(isSame(saved(), readFile(Courtyard)));
    tap(KeyDelete);
    EXPECT_THAT(saved(), Not(HasSubstr("\"ball\": {")));
    tap(KeyZ, ControlMask);
    EXPECT_TRUE(isSame(saved(), readFile(Courtyard)));
    EXPECT_EQ(close().status, 0);
}

// B, and a box about the ball; what is in it is deleted.
TEST_F(WindowJourneyTest, ABoxSelects) {
    start("", false);
    move(BallX - 25, BallY - 25);
    settledView();
    tap(KeyB);
    drag(BallX - 25, BallY - 25, BallX + 25, BallY + 25);
    tap(KeyDelete);
    EXPECT_THAT(saved(), Not(HasSubstr("\"ball\": {")));
    EXPECT_EQ(close().status, 0);
}

TEST_F(WindowJourneyTest, ClosingAsksAboutUnsavedChanges) {
    start("", false);
    const std::string before = read("Courtyard/project.json");
    click(BallX, BallY);
    tap(KeyDelete);
    EXPECT_TRUE(isTitle("project.json* - Vantrel Editor"));
    sendClose();
    // The window is still there; the question goes away by Escape, and the window stays.
    wait();
    tap(KeyEscape);
    wait();
    EXPECT_TRUE(isTitle("project.json* - Vantrel Editor"));
    EXPECT_EQ(read("Courtyard/project.json"), before);
    EXPECT_THAT(saved(), Not(HasSubstr("\"ball\": {")));
    EXPECT_EQ(close().status, 0);
}

TEST_F(WindowJourneyTest, ClosingReleasesWhatIsHeld) {
    start("--module " + Recorder);
    move(500, 300);
    button(RightButton, true);
    key(KeyW, true);
    const JourneyResult result = close();
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(heard(result.output),
        HasSubstr("press 1 500 300 0\nkey 87 0 false\nfocus lost\nkeyup 87 0 false\nrelease 1 500 300 0\ndeleted\n"));
}

TEST_F(WindowJourneyTest, ClosingWhileFlyingEndsWell) {
    start({}, false);
    move(500, 300);
    button(RightButton, true);
    const JourneyResult result = close();
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(read("config/vantrel-editor/settings.json"), HasSubstr("Courtyard/project.json"));
}

TEST_F(WindowJourneyTest, AJournalIsThereForAsLongAsTheProjectIsOpen) {
    const std::string journal = folder.path("Courtyard/.project.json.journal");
    start("--module " + Recorder);
    EXPECT_TRUE(std::filesystem::exists(journal));
    EXPECT_THAT(read("config/vantrel-editor/settings.json"), HasSubstr("Courtyard/project.json"))
        << "an editor that is killed remembers it, too";
    EXPECT_EQ(close().status, 0);
    EXPECT_FALSE(std::filesystem::exists(journal));
}

TEST_F(WindowJourneyTest, AFileThatChangedIsAskedAboutWithTheFocus) {
    start("--module " + Recorder);
    XSetInputFocus(display, PointerRoot, RevertToNone, CurrentTime);
    wait();
    folder.write("Courtyard/project.json", readFile(Courtyard) + "\n");
    EXPECT_EQ(middle(), View);
    XSetInputFocus(display, window, RevertToNone, CurrentTime);
    EXPECT_TRUE(waitFor([&] { return middle() != View; })) << "the question is in front of it";
    key(KeyEscape, true);
    key(KeyEscape, false);
    EXPECT_TRUE(waitFor([&] { return middle() == View; }));
    EXPECT_EQ(close().status, 0);
}

TEST_F(WindowJourneyTest, WaitingForAnImportDrawsNowAndThenAndCanBeLeft) {
    setenv("RECORDER_COUNTS_FRAMES", "1", 1);
    folder.write("model.glb", "hang");
    startWith("--module " + Recorder + " --converter " FAKE_CONVERTER " " + folder.path("model.glb"),
        "New project - Vantrel Editor");
    std::this_thread::sleep_for(std::chrono::seconds{3});
    const JourneyResult result = close();
    unsetenv("RECORDER_COUNTS_FRAMES");
    EXPECT_EQ(result.status, 0) << result.output;
    const std::size_t drew = result.output.find("recorder: drew ");
    ASSERT_NE(drew, std::string::npos) << result.output;
    const int frames = std::atoi(result.output.data() + drew + 15);
    EXPECT_GT(frames, 10);
    EXPECT_LT(frames, 60);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path("data/vantrel")));
}

TEST_F(WindowJourneyTest, FlyingWithoutTheFocusDoesNotTurn) {
    start({}, false);
    takeFocus();
    // Beside the middle: there the cursor is put.
    move(520, 200);
    const std::vector<unsigned long> before = settledView();
    EXPECT_FALSE(before.empty());
    button(RightButton, true);
    // A frame comes with each event.
    for(int i = 0; i != 3; ++i) {
        key(KeyP, true);
        key(KeyP, false);
    }
    EXPECT_EQ(settledView(), before);
    key(KeyW, true);
    key(KeyW, false);
    EXPECT_NE(settledView(), before) << "it flies";
    button(RightButton, false);
    EXPECT_EQ(close().status, 0);
}

}

}
