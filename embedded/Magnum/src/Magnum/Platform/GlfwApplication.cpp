#include "Magnum/Platform/GlfwApplication.h"

#include <cstdlib>

#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/Debug.h"
#include "Magnum/GL/Context.h"
#include "Magnum/GL/Version.h"
#include "Magnum/Platform/GLContext.h"

namespace Magnum::Platform {

namespace {

Vector2 cursorPosition(GLFWwindow* window) {
    double x, y;
    glfwGetCursorPos(window, &x, &y);
    return {Float(x), Float(y)};
}

GlfwApplication::Modifiers heldModifiers(GLFWwindow* window) {
    GlfwApplication::Modifiers modifiers;
    // The keys on the left follow each other in the order of the bits, and so do those on the right.
    for(int i = 0; i != 4; ++i)
        if(glfwGetKey(window, GLFW_KEY_LEFT_SHIFT + i) || glfwGetKey(window, GLFW_KEY_RIGHT_SHIFT + i))
            modifiers |= GlfwApplication::Modifier(1 << i);
    return modifiers;
}

GlfwApplication::Pointer pointerFor(int button) {
    constexpr GlfwApplication::Pointer first[]{GlfwApplication::Pointer::MouseLeft,
        GlfwApplication::Pointer::MouseRight, GlfwApplication::Pointer::MouseMiddle};
    return button < 3 ? first[button] : GlfwApplication::Pointer(1 << button);
}

GlfwApplication::Pointers heldPointers(GLFWwindow* window) {
    GlfwApplication::Pointers pointers;
    for(int button = 0; button <= GLFW_MOUSE_BUTTON_LAST; ++button)
        if(glfwGetMouseButton(window, button)) pointers |= pointerFor(button);
    return pointers;
}

// Returns the number of bytes.
std::size_t encodeUtf8(char32_t character, char (&out)[4]) {
    if(character < 0x80) {
        out[0] = char(character);
        return 1;
    }
    const std::size_t size = character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    for(std::size_t i = size - 1; i; --i, character >>= 6) out[i] = char(0x80 | (character & 0x3f));
    // As many ones at the top as there are bytes.
    out[0] = char((0xf00 >> size) | character);
    return size;
}

void printGlfwError(int, const char* description) { Utility::Error{} << "Platform::GlfwApplication:" << description; }

void setWindowHints(
    GlfwApplication::Configuration::WindowFlags flags, const GlfwApplication::GLConfiguration& configuration) {
    typedef GlfwApplication::Configuration::WindowFlag WindowFlag;
    glfwDefaultWindowHints();
    glfwWindowHint(GLFW_DECORATED, !(flags & WindowFlag::Borderless));
    glfwWindowHint(GLFW_RESIZABLE, bool(flags & WindowFlag::Resizable));
    glfwWindowHint(GLFW_VISIBLE, !(flags & WindowFlag::Hidden));
    glfwWindowHint(GLFW_MAXIMIZED, bool(flags & WindowFlag::Maximized));
    glfwWindowHint(GLFW_FLOATING, bool(flags & WindowFlag::AlwaysOnTop));
    glfwWindowHint(GLFW_AUTO_ICONIFY, bool(flags & WindowFlag::AutoIconify));
    glfwWindowHint(GLFW_FOCUSED, bool(flags & WindowFlag::Focused));
    glfwWindowHint(GLFW_DEPTH_BITS, configuration.depthBufferSize());
    glfwWindowHint(GLFW_STENCIL_BITS, configuration.stencilBufferSize());
    glfwWindowHint(GLFW_SAMPLES, configuration.sampleCount());
    glfwWindowHint(GLFW_SRGB_CAPABLE, configuration.isSrgbCapable());
}

void setContextHints(Int version, GlfwApplication::GLConfiguration::Flags flags) {
    typedef GlfwApplication::GLConfiguration::Flag Flag;
    const bool core = version >= 320;
    glfwWindowHint(GLFW_CONTEXT_VERSION_MAJOR, version / 100);
    glfwWindowHint(GLFW_CONTEXT_VERSION_MINOR, version / 10 % 10);
    glfwWindowHint(GLFW_OPENGL_PROFILE, core ? GLFW_OPENGL_CORE_PROFILE : GLFW_OPENGL_ANY_PROFILE);
    glfwWindowHint(GLFW_OPENGL_FORWARD_COMPAT, core && flags & Flag::ForwardCompatible);
    glfwWindowHint(GLFW_CONTEXT_NO_ERROR, bool(flags & Flag::NoError));
    glfwWindowHint(GLFW_OPENGL_DEBUG_CONTEXT, bool(flags & Flag::Debug));
}

GL::Context::Configuration contextConfiguration(GlfwApplication::GLConfiguration::Flags flags) {
    typedef GlfwApplication::GLConfiguration::Flag Flag;
    GL::Context::Configuration configuration;
    if(flags & Flag::QuietLog) configuration.setFlags(GL::Context::Configuration::Flag::QuietLog);
    if(flags & Flag::VerboseLog) configuration.setFlags(GL::Context::Configuration::Flag::VerboseLog);
    return configuration;
}

}

GlfwApplication::GlfwApplication(const Arguments& arguments, NoCreateT):
    _context{InPlaceInit, NoCreate, arguments.argc, arguments.argv} {
    glfwSetErrorCallback(nullptr);
    if(!glfwInit()) {
        const char* reason;
        glfwGetError(&reason);
        Utility::Error{} << "Platform::GlfwApplication: could not initialize GLFW:" << reason;
        std::exit(8);
    }
    glfwSetErrorCallback(printGlfwError);
}

GlfwApplication::GlfwApplication(
    const Arguments& arguments, const Configuration& configuration, const GLConfiguration& glConfiguration):
    GlfwApplication{arguments, NoCreate} {
    create(configuration, glConfiguration);
}

GlfwApplication::~GlfwApplication() {
    _context = nullptr;
    closeWindow();
    glfwTerminate();
}

void GlfwApplication::create(const Configuration& configuration, const GLConfiguration& glConfiguration) {
    if(!tryCreate(configuration, glConfiguration)) std::exit(1);
}

bool GlfwApplication::tryCreate(const Configuration& configuration, const GLConfiguration& glConfiguration) {
    CORRADE_ASSERT(
        !_window, "Platform::GlfwApplication::tryCreate(): window with OpenGL context already created", false);
    if(!openWindow(configuration, glConfiguration)) {
        Utility::Error{} << "Platform::GlfwApplication::tryCreate(): cannot create a window with OpenGL context";
        return false;
    }
    glfwMakeContextCurrent(_window);
    if(_context->tryCreate(contextConfiguration(glConfiguration.flags()))) return true;
    closeWindow();
    return false;
}

bool GlfwApplication::openWindow(const Configuration& configuration, const GLConfiguration& glConfiguration) {
    const Configuration::WindowFlags flags = configuration.windowFlags();
    _dpiScaling = configuration.dpiScaling();
    const Vector2i size{Vector2{configuration.size()} * dpiScaling()};
    GLFWmonitor* const monitor = flags & Configuration::WindowFlag::Fullscreen ? glfwGetPrimaryMonitor() : nullptr;
    const auto open = [&](Int version) {
        setContextHints(version, glConfiguration.flags());
        return _window = glfwCreateWindow(size.x(), size.y(), configuration.title().data(), monitor, nullptr);
    };

    setWindowHints(flags, glConfiguration);
    if(glConfiguration.version() != GL::Version::None)
        open(Int(glConfiguration.version()));
    else if(!open(320))
        open(210);
    if(_window && flags & Configuration::WindowFlag::Minimized) glfwIconifyWindow(_window);
    return _window;
}

void GlfwApplication::closeWindow() {
    for(GLFWcursor*& cursor: _cursors) {
        if(cursor) glfwDestroyCursor(cursor);
        cursor = nullptr;
    }
    if(_window) glfwDestroyWindow(_window);
    _window = nullptr;
}

int GlfwApplication::exec() {
    while(mainLoopIteration()) {
    }
    return _exitCode;
}

bool GlfwApplication::mainLoopIteration() {
    // Not earlier: a class that is still being constructed gets no events.
    if(!glfwGetWindowUserPointer(_window)) connectEvents();
    if(_exit || glfwWindowShouldClose(_window)) return false;

    if(_redraw || _tick || _drawn)
        glfwPollEvents();
    else
        glfwWaitEvents();
    _drawn = false;
    if(_tick) tickEvent();
    if(_redraw) draw();
    return !_exit && !glfwWindowShouldClose(_window);
}

void GlfwApplication::exit(int exitCode) {
    _exit = true;
    _exitCode = exitCode;
}

Vector2i GlfwApplication::windowSize() const {
    CORRADE_ASSERT(_window, "Platform::GlfwApplication::windowSize(): no window opened", {});
    Vector2i size;
    glfwGetWindowSize(_window, &size.x(), &size.y());
    return size;
}

Vector2i GlfwApplication::framebufferSize() const {
    CORRADE_ASSERT(_window, "Platform::GlfwApplication::framebufferSize(): no window opened", {});
    Vector2i size;
    glfwGetFramebufferSize(_window, &size.x(), &size.y());
    return size;
}

Vector2 GlfwApplication::dpiScaling() const {
    if(!_dpiScaling.isZero()) return _dpiScaling;
    Vector2 scaling{1.0f};
    if(_window)
        glfwGetWindowContentScale(_window, &scaling.x(), &scaling.y());
    else if(GLFWmonitor* const monitor = glfwGetPrimaryMonitor())
        glfwGetMonitorContentScale(monitor, &scaling.x(), &scaling.y());
    return scaling;
}

void GlfwApplication::setWindowTitle(Containers::StringView title) {
    glfwSetWindowTitle(_window, Containers::String::nullTerminatedView(title).data());
}

void GlfwApplication::setCursor(Cursor cursor) {
    CORRADE_ASSERT(_window, "Platform::GlfwApplication::setCursor(): no window opened", );
    constexpr int shapes[]{GLFW_ARROW_CURSOR, GLFW_IBEAM_CURSOR, GLFW_CROSSHAIR_CURSOR, GLFW_HRESIZE_CURSOR,
        GLFW_VRESIZE_CURSOR, GLFW_HAND_CURSOR};
    _cursor = cursor;
    if(cursor == Cursor::Hidden || cursor == Cursor::HiddenLocked) {
        const int mode = cursor == Cursor::Hidden ? GLFW_CURSOR_HIDDEN : GLFW_CURSOR_DISABLED;
        return glfwSetInputMode(_window, GLFW_CURSOR, mode);
    }
    GLFWcursor*& shape = _cursors[UnsignedInt(cursor)];
    if(!shape) shape = glfwCreateStandardCursor(shapes[UnsignedInt(cursor)]);
    glfwSetCursor(_window, shape);
    glfwSetInputMode(_window, GLFW_CURSOR, GLFW_CURSOR_NORMAL);
}

void GlfwApplication::warpCursor(const Vector2i& position) {
    glfwSetCursorPos(_window, Double(position.x()), Double(position.y()));
}

Containers::StringView GlfwApplication::clipboardText() { return glfwGetClipboardString(_window); }

void GlfwApplication::setClipboardText(Containers::StringView text) {
    glfwSetClipboardString(_window, Containers::String::nullTerminatedView(text).data());
}

void GlfwApplication::draw() {
    _redraw = false;
    _drawn = true;
    drawEvent();
}

void GlfwApplication::sendButton(int button, int action, Modifiers modifiers) {
    const Pointer pointer = pointerFor(button);
    if(heldPointers(_window) & ~Pointers{pointer}) {
        PointerMoveEvent event{_window, pointer, modifiers, cursorPosition(_window), {}};
        return pointerMoveEvent(event);
    }
    PointerEvent event{pointer, cursorPosition(_window), modifiers};
    action == GLFW_PRESS ? pointerPressEvent(event) : pointerReleaseEvent(event);
}

void GlfwApplication::sendMove(const Vector2& position) {
    PointerMoveEvent event{_window, {}, {}, position, _lastMove ? position - *_lastMove : Vector2{}};
    _lastMove = position;
    pointerMoveEvent(event);
}

void GlfwApplication::connectEvents() {
    glfwSetWindowUserPointer(_window, this);
#define self (*static_cast<GlfwApplication*>(glfwGetWindowUserPointer(window)))
    glfwSetWindowCloseCallback(_window, [](GLFWwindow* window) {
        ExitEvent event;
        self.exitEvent(event);
        if(!event.isAccepted()) glfwSetWindowShouldClose(window, false);
    });
    glfwSetWindowRefreshCallback(_window, [](GLFWwindow* window) { self.draw(); });
    glfwSetFramebufferSizeCallback(_window, [](GLFWwindow* window, int width, int height) {
        ViewportEvent event{self.windowSize(), {width, height}, self.dpiScaling()};
        self.viewportEvent(event);
    });
    glfwSetWindowFocusCallback(_window, [](GLFWwindow* window, int focused) {
        FocusEvent event;
        focused ? self.focusEvent(event) : self.blurEvent(event);
    });
    glfwSetKeyCallback(_window, [](GLFWwindow* window, int key, int scanCode, int action, int modifiers) {
        KeyEvent event{Key(key), UnsignedInt(scanCode), Modifiers{Modifier(modifiers)}, action == GLFW_REPEAT};
        action == GLFW_RELEASE ? self.keyReleaseEvent(event) : self.keyPressEvent(event);
    });
    glfwSetCharCallback(_window, [](GLFWwindow* window, unsigned int character) {
        if(!self._textInput) return;
        char text[4];
        TextInputEvent event{{text, encodeUtf8(character, text)}};
        self.textInputEvent(event);
    });
    glfwSetMouseButtonCallback(_window, [](GLFWwindow* window, int button, int action, int modifiers) {
        self.sendButton(button, action, Modifiers{Modifier(modifiers)});
    });
    glfwSetCursorPosCallback(_window, [](GLFWwindow* window, double x, double y) {
        self.sendMove({Float(x), Float(y)});
    });
    glfwSetScrollCallback(_window, [](GLFWwindow* window, double x, double y) {
        ScrollEvent event{window, {Float(x), Float(y)}};
        self.scrollEvent(event);
    });
#undef self
}

GlfwApplication::Pointers GlfwApplication::PointerMoveEvent::pointers() {
    if(!_pointers) _pointers = heldPointers(_window);
    return *_pointers;
}

GlfwApplication::Modifiers GlfwApplication::PointerMoveEvent::modifiers() {
    if(!_modifiers) _modifiers = heldModifiers(_window);
    return *_modifiers;
}

Vector2 GlfwApplication::ScrollEvent::position() { return cursorPosition(_window); }

GlfwApplication::Modifiers GlfwApplication::ScrollEvent::modifiers() { return heldModifiers(_window); }

void GlfwApplication::exitEvent(ExitEvent& event) { event.setAccepted(); }

}
