#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Containers/Optional.h"
#include "Corrade/Containers/Pointer.h"
#include "Corrade/Containers/String.h"
#include "Corrade/Containers/StringView.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/Magnum.h"
#include "Magnum/Math/Vector2.h"
#include "Magnum/Platform/Platform.h"
#include "Magnum/Tags.h"

// GL declarations come from Magnum/GL/OpenGL.h.
#ifndef GLFW_INCLUDE_NONE
#define GLFW_INCLUDE_NONE
#endif
#include <GLFW/glfw3.h>

namespace Magnum::Platform {

// An application with one GLFW window and the GL context in it. Derive from it and implement the events; all of it
// belongs to the main thread. One at a time: GLFW is initialised in the constructor and terminated in the destructor.
// What GLFW complains about goes to the error output.
class CORRADE_VISIBILITY_EXPORT GlfwApplication {
public:
    struct Arguments {
        explicit constexpr Arguments(int& argc, char** argv) noexcept: argc{argc}, argv{argv} {}

        int& argc;
        char** argv;
    };

    class Configuration;
    class GLConfiguration;
    class InputEvent;
    class KeyEvent;
    class PointerEvent;
    class PointerMoveEvent;
    class ScrollEvent;
    class TextInputEvent;
    class ViewportEvent;
    class FocusEvent;
    class ExitEvent;

    enum class Cursor : UnsignedInt {
        Arrow,
        TextInput,
        Crosshair,
        ResizeWE,
        ResizeNS,
        Hand,
        // Invisible inside the window.
        Hidden,
        // Invisible, kept inside the window and moving without bounds.
        HiddenLocked
    };

    // Bits, as GLFW reports them.
    enum class Modifier : Int {
        Shift = GLFW_MOD_SHIFT,
        Ctrl = GLFW_MOD_CONTROL,
        Alt = GLFW_MOD_ALT,
        Super = GLFW_MOD_SUPER
    };
    typedef Containers::EnumSet<Modifier> Modifiers;

    // Bits; unlike GLFW's button numbers the middle one comes before the right one.
    enum class Pointer : UnsignedByte {
        MouseLeft = 1 << 0,
        MouseMiddle = 1 << 1,
        MouseRight = 1 << 2,
        MouseButton4 = 1 << 3,
        MouseButton5 = 1 << 4,
        MouseButton6 = 1 << 5,
        MouseButton7 = 1 << 6,
        MouseButton8 = 1 << 7
    };
    typedef Containers::EnumSet<Pointer> Pointers;

    enum class Key : Int;

    // Opens the window. Without one the process exits: with code 8 if GLFW does not work here (no display), with 1 if
    // there is no such GL context.
    explicit GlfwApplication(
        const Arguments& arguments, const Configuration& configuration, const GLConfiguration& glConfiguration);

    // No window until create() or tryCreate(), but GLFW has to work: exit code 8, too.
    explicit GlfwApplication(const Arguments& arguments, NoCreateT);

    GlfwApplication(const GlfwApplication&) = delete;
    GlfwApplication& operator=(const GlfwApplication&) = delete;

    // Runs the main loop until exit() or until the window was closed, and returns the exit code.
    int exec();

    // Handles what happened, calls tickEvent() and, if it was asked for, drawEvent(). Waits for something to happen
    // when there is nothing to draw and tickEvent() is not overridden. False if the loop has to end.
    bool mainLoopIteration();

    void exit(int exitCode = 0);

    // Null without a window.
    GLFWwindow* window() { return _window; }

    // In units of the cursor position. A window has to be open.
    Vector2i windowSize() const;

    // In pixels. A window has to be open.
    Vector2i framebufferSize() const;

    // What the size in the configuration was multiplied with: the system's setting unless the configuration says
    // otherwise. Not related to the ratio of the sizes above.
    Vector2 dpiScaling() const;

    void setWindowTitle(Containers::StringView title);
    void swapBuffers() { glfwSwapBuffers(_window); }

    // Calls drawEvent() in this or the next iteration.
    void redraw() { _redraw = true; }

    // Number of screen refreshes to wait for in swapBuffers().
    void setSwapInterval(Int interval) { glfwSwapInterval(interval); }

    // A window has to be open.
    void setCursor(Cursor cursor);
    Cursor cursor() const { return _cursor; }

    // Needs a window with focus; does not work on Wayland. Position in window coordinates.
    void warpCursor(const Vector2i& position);

    // Text input events are sent in between only.
    void startTextInput() { _textInput = true; }
    void stopTextInput() { _textInput = false; }
    bool isTextInputActive() const { return _textInput; }

    // Valid until the next call.
    Containers::StringView clipboardText();
    void setClipboardText(Containers::StringView text);

protected:
    // Closes the window. An application is not deleted through its base.
    ~GlfwApplication();

    // As the constructor.
    void create(const Configuration& configuration, const GLConfiguration& glConfiguration);

    // False, and a message on the error output, if there is no such GL context. Can be tried again.
    bool tryCreate(const Configuration& configuration, const GLConfiguration& glConfiguration);

    // Called in every iteration if overridden.
    virtual void tickEvent() { _tick = false; }

private:
    // All of these do nothing unless overridden, but exitEvent().

    // The size changed. What the user uncovers is drawn without being asked, a new size is not.
    virtual void viewportEvent(ViewportEvent&) {}
    virtual void drawEvent() = 0;
    virtual void keyPressEvent(KeyEvent&) {}
    virtual void keyReleaseEvent(KeyEvent&) {}
    // The first button pressed and the last one released. Any change in between is a pointerMoveEvent().
    virtual void pointerPressEvent(PointerEvent&) {}
    virtual void pointerReleaseEvent(PointerEvent&) {}
    virtual void pointerMoveEvent(PointerMoveEvent&) {}
    virtual void scrollEvent(ScrollEvent&) {}
    virtual void textInputEvent(TextInputEvent&) {}
    virtual void focusEvent(FocusEvent&) {}
    virtual void blurEvent(FocusEvent&) {}
    // The user wants to close the window. Does not happen unless the event is accepted, as it is here.
    virtual void exitEvent(ExitEvent& event);

    bool openWindow(const Configuration& configuration, const GLConfiguration& glConfiguration);
    void closeWindow();
    void connectEvents();
    void sendButton(int button, int action, Modifiers modifiers);
    void sendMove(const Vector2& position);
    void draw();

    GLFWwindow* _window{};
    Containers::Pointer<GLContext> _context;
    // Created when first used.
    GLFWcursor* _cursors[UnsignedInt(Cursor::Hidden)]{};
    Cursor _cursor = Cursor::Arrow;
    Vector2 _dpiScaling;
    Containers::Optional<Vector2> _lastMove;
    int _exitCode = 0;
    bool _exit = false;
    bool _redraw = true;
    // Showing a frame may take events off the connection to the display, and glfwWaitEvents() would not see those.
    bool _drawn = false;
    bool _tick = true;
    bool _textInput = false;
};

CORRADE_ENUMSET_OPERATORS(GlfwApplication::Modifiers)
CORRADE_ENUMSET_OPERATORS(GlfwApplication::Pointers)

// Of a US keyboard: names the place of a key, not what it types.
// clang-format off
enum class GlfwApplication::Key : Int {
    Unknown = GLFW_KEY_UNKNOWN,
    LeftShift = GLFW_KEY_LEFT_SHIFT, RightShift = GLFW_KEY_RIGHT_SHIFT,
    LeftCtrl = GLFW_KEY_LEFT_CONTROL, RightCtrl = GLFW_KEY_RIGHT_CONTROL,
    LeftAlt = GLFW_KEY_LEFT_ALT, RightAlt = GLFW_KEY_RIGHT_ALT,
    LeftSuper = GLFW_KEY_LEFT_SUPER, RightSuper = GLFW_KEY_RIGHT_SUPER,
    CapsLock = GLFW_KEY_CAPS_LOCK, ScrollLock = GLFW_KEY_SCROLL_LOCK, NumLock = GLFW_KEY_NUM_LOCK,
    Enter = GLFW_KEY_ENTER, Esc = GLFW_KEY_ESCAPE, Space = GLFW_KEY_SPACE, Tab = GLFW_KEY_TAB,
    Backspace = GLFW_KEY_BACKSPACE, Insert = GLFW_KEY_INSERT, Delete = GLFW_KEY_DELETE,
    Up = GLFW_KEY_UP, Down = GLFW_KEY_DOWN, Left = GLFW_KEY_LEFT, Right = GLFW_KEY_RIGHT,
    Home = GLFW_KEY_HOME, End = GLFW_KEY_END, PageUp = GLFW_KEY_PAGE_UP, PageDown = GLFW_KEY_PAGE_DOWN,
    PrintScreen = GLFW_KEY_PRINT_SCREEN, Pause = GLFW_KEY_PAUSE, Menu = GLFW_KEY_MENU,
    F1 = GLFW_KEY_F1, F2, F3, F4, F5, F6, F7, F8, F9, F10, F11, F12,
    Quote = GLFW_KEY_APOSTROPHE, Comma = GLFW_KEY_COMMA, Period = GLFW_KEY_PERIOD, Minus = GLFW_KEY_MINUS,
    Slash = GLFW_KEY_SLASH, Semicolon = GLFW_KEY_SEMICOLON, Equal = GLFW_KEY_EQUAL,
    LeftBracket = GLFW_KEY_LEFT_BRACKET, RightBracket = GLFW_KEY_RIGHT_BRACKET,
    Backslash = GLFW_KEY_BACKSLASH, Backquote = GLFW_KEY_GRAVE_ACCENT,
    Zero = GLFW_KEY_0, One, Two, Three, Four, Five, Six, Seven, Eight, Nine,
    A = GLFW_KEY_A, B, C, D, E, F, G, H, I, J, K, L, M, N, O, P, Q, R, S, T, U, V, W, X, Y, Z,
    NumZero = GLFW_KEY_KP_0, NumOne, NumTwo, NumThree, NumFour, NumFive, NumSix, NumSeven, NumEight, NumNine,
    NumDecimal = GLFW_KEY_KP_DECIMAL, NumDivide = GLFW_KEY_KP_DIVIDE, NumMultiply = GLFW_KEY_KP_MULTIPLY,
    NumSubtract = GLFW_KEY_KP_SUBTRACT, NumAdd = GLFW_KEY_KP_ADD, NumEnter = GLFW_KEY_KP_ENTER,
    NumEqual = GLFW_KEY_KP_EQUAL
};
// clang-format on

class GlfwApplication::Configuration {
public:
    enum class WindowFlag : UnsignedShort {
        Fullscreen = 1 << 0,
        Borderless = 1 << 1,
        Resizable = 1 << 2,
        Hidden = 1 << 3,
        Maximized = 1 << 4,
        Minimized = 1 << 5,
        AlwaysOnTop = 1 << 6,
        // A fullscreen window is minimised when it loses focus.
        AutoIconify = 1 << 7,
        // Gets the focus when it opens.
        Focused = 1 << 8
    };
    typedef Containers::EnumSet<WindowFlag> WindowFlags;
    CORRADE_ENUMSET_FRIEND_OPERATORS(WindowFlags)

    Containers::StringView title() const { return _title; }
    Vector2i size() const { return _size; }
    Vector2 dpiScaling() const { return _dpiScaling; }
    WindowFlags windowFlags() const { return _windowFlags; }

    Configuration& setTitle(Containers::StringView title) { return set(_title, title); }
    // The window's size is this multiplied with `dpiScaling`, or with the system's setting if that is zero.
    Configuration& setSize(const Vector2i& size, const Vector2& dpiScaling = {}) {
        return set(_size, size).set(_dpiScaling, dpiScaling);
    }
    Configuration& setWindowFlags(WindowFlags flags) { return set(_windowFlags, flags); }
    Configuration& addWindowFlags(WindowFlags flags) { return set(_windowFlags, _windowFlags | flags); }

private:
    template<class T, class U> Configuration& set(T& member, const U& value) {
        member = value;
        return *this;
    }

    Containers::String _title = "Magnum GLFW Application";
    Vector2i _size{800, 600};
    Vector2 _dpiScaling;
    WindowFlags _windowFlags = WindowFlag::Focused;
};

class GlfwApplication::GLConfiguration {
public:
    enum class Flag : UnsignedInt {
        // No deprecated functions; for core contexts only.
        ForwardCompatible = 1 << 0,
        NoError = 1 << 1,
        Debug = 1 << 2,
        // As in GL::Context::Configuration.
        QuietLog = 1 << 3,
        VerboseLog = 1 << 4
    };
    typedef Containers::EnumSet<Flag> Flags;
    CORRADE_ENUMSET_FRIEND_OPERATORS(Flags)

    GL::Version version() const { return _version; }
    Flags flags() const { return _flags; }
    Int depthBufferSize() const { return _depthBufferSize; }
    Int stencilBufferSize() const { return _stencilBufferSize; }
    Int sampleCount() const { return _sampleCount; }
    bool isSrgbCapable() const { return _srgbCapable; }

    // Without a version the newest core context that there is, from 3.2 on, and if there is none 2.1. With one that
    // version, from 3.2 on a core context; the driver may give a newer one that is compatible with it.
    GLConfiguration& setVersion(GL::Version version) { return set(_version, version); }
    GLConfiguration& addFlags(Flags flags) { return set(_flags, _flags | flags); }
    // In bits.
    GLConfiguration& setDepthBufferSize(Int size) { return set(_depthBufferSize, size); }
    GLConfiguration& setStencilBufferSize(Int size) { return set(_stencilBufferSize, size); }
    // No multisampling if zero.
    GLConfiguration& setSampleCount(Int count) { return set(_sampleCount, count); }
    GLConfiguration& setSrgbCapable(bool enabled) { return set(_srgbCapable, enabled); }

private:
    template<class T> GLConfiguration& set(T& member, const T& value) {
        member = value;
        return *this;
    }

    GL::Version _version{0xFFFF}; // None
    Flags _flags = Flag::ForwardCompatible;
    Int _depthBufferSize = 24;
    Int _stencilBufferSize = 0;
    Int _sampleCount = 0;
    bool _srgbCapable = false;
};

class GlfwApplication::ViewportEvent {
public:
    Vector2i windowSize() const { return _windowSize; }
    Vector2i framebufferSize() const { return _framebufferSize; }
    Vector2 dpiScaling() const { return _dpiScaling; }

private:
    friend GlfwApplication;
    explicit ViewportEvent(const Vector2i& windowSize, const Vector2i& framebufferSize, const Vector2& dpiScaling):
        _windowSize{windowSize}, _framebufferSize{framebufferSize}, _dpiScaling{dpiScaling} {}

    Vector2i _windowSize, _framebufferSize;
    Vector2 _dpiScaling;
};

class GlfwApplication::FocusEvent {
    friend GlfwApplication;
    explicit FocusEvent() = default;
};

class GlfwApplication::InputEvent {
public:
    InputEvent(const InputEvent&) = delete;
    InputEvent& operator=(const InputEvent&) = delete;

    // Decides over an ExitEvent, otherwise it is for the application's own use.
    bool isAccepted() const { return _accepted; }
    void setAccepted(bool accepted = true) { _accepted = accepted; }

protected:
    explicit InputEvent() = default;
    ~InputEvent() = default;

private:
    bool _accepted = false;
};

class GlfwApplication::ExitEvent: public InputEvent {
    friend GlfwApplication;
    explicit ExitEvent() = default;
};

class GlfwApplication::KeyEvent: public InputEvent {
public:
    Key key() const { return _key; }
    UnsignedInt scanCode() const { return _scanCode; }
    Modifiers modifiers() const { return _modifiers; }
    // Sent again and again while the key is held.
    bool isRepeated() const { return _repeated; }

private:
    friend GlfwApplication;
    explicit KeyEvent(Key key, UnsignedInt scanCode, Modifiers modifiers, bool repeated):
        _key{key}, _scanCode{scanCode}, _modifiers{modifiers}, _repeated{repeated} {}

    Key _key;
    UnsignedInt _scanCode;
    Modifiers _modifiers;
    bool _repeated;
};

// Positions are in window coordinates, y down.
class GlfwApplication::PointerEvent: public InputEvent {
public:
    // The one that was pressed or released.
    Pointer pointer() const { return _pointer; }
    Vector2 position() const { return _position; }
    Modifiers modifiers() const { return _modifiers; }

private:
    friend GlfwApplication;
    explicit PointerEvent(Pointer pointer, const Vector2& position, Modifiers modifiers):
        _pointer{pointer}, _position{position}, _modifiers{modifiers} {}

    Pointer _pointer;
    Vector2 _position;
    Modifiers _modifiers;
};

class GlfwApplication::PointerMoveEvent: public InputEvent {
public:
    // The button that was pressed or released while another one was down; empty for a movement.
    Containers::Optional<Pointer> pointer() const { return _pointer; }
    Vector2 position() const { return _position; }
    // Since the previous movement, zero in the first and for buttons.
    Vector2 relativePosition() const { return _relativePosition; }
    // Both as they are when first asked for.
    Pointers pointers();
    Modifiers modifiers();

private:
    friend GlfwApplication;
    explicit PointerMoveEvent(GLFWwindow* window, Containers::Optional<Pointer> pointer,
        Containers::Optional<Modifiers> modifiers, const Vector2& position, const Vector2& relativePosition):
        _window{window},
        _pointer{pointer}, _modifiers{modifiers}, _position{position}, _relativePosition{relativePosition} {}

    GLFWwindow* _window;
    Containers::Optional<Pointer> _pointer;
    Containers::Optional<Pointers> _pointers;
    Containers::Optional<Modifiers> _modifiers;
    Vector2 _position, _relativePosition;
};

class GlfwApplication::ScrollEvent: public InputEvent {
public:
    // Steps of the wheel, y up.
    Vector2 offset() const { return _offset; }
    // Both as they are when asked for.
    Vector2 position();
    Modifiers modifiers();

private:
    friend GlfwApplication;
    explicit ScrollEvent(GLFWwindow* window, const Vector2& offset): _window{window}, _offset{offset} {}

    GLFWwindow* _window;
    Vector2 _offset;
};

class GlfwApplication::TextInputEvent: public InputEvent {
public:
    // UTF-8.
    Containers::StringView text() const { return _text; }

private:
    friend GlfwApplication;
    explicit TextInputEvent(Containers::StringView text): _text{text} {}

    Containers::StringView _text;
};

}

#define MAGNUM_GLFWAPPLICATION_MAIN(className)                                                                         \
    int main(int argc, char** argv) {                                                                                  \
        className app({argc, argv});                                                                                   \
        return app.exec();                                                                                             \
    }
