#include "Application/WindowApplication.h"

#include <chrono>
#include <memory>
#include <utility>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/DefaultFramebuffer.h>
#include <Magnum/GL/Version.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Platform/GlfwApplication.h>

#include "Application/Application.h"
#include "Application/CommandLine.h"
#include "Application/Editor.h"
#include "Application/EndSignals.h"
#include "Application/ModuleFile.h"
#include "Data/WorkingFolder.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

using Window = Magnum::Platform::GlfwApplication;

// Seconds from frame to frame while nothing moves but something is waited for.
constexpr Double WaitTime = 0.1;

std::optional<MouseButton> buttonOf(Window::Pointer pointer) {
    // Bits, and in another order than the buttons' numbers.
    switch(pointer) {
    case Window::Pointer::MouseLeft: return MouseButton::Left;
    case Window::Pointer::MouseMiddle: return MouseButton::Middle;
    case Window::Pointer::MouseRight: return MouseButton::Right;
    default: return {};
    }
}

Window::Cursor cursorOf(CursorShape shape) {
    switch(shape) {
    case CursorShape::None: return Window::Cursor::Hidden;
    case CursorShape::Arrow: break;
    case CursorShape::TextInput: return Window::Cursor::TextInput;
    case CursorShape::ResizeWE: return Window::Cursor::ResizeWE;
    case CursorShape::ResizeNS: return Window::Cursor::ResizeNS;
    case CursorShape::Hand: return Window::Cursor::Hand;
    case CursorShape::Crosshair: return Window::Cursor::Crosshair;
    }
    return Window::Cursor::Arrow;
}

class WindowApplication final: public Window, public Platform {
public:
    explicit WindowApplication(const Arguments& arguments): Window{arguments, NoCreate} {}

    // False where there is no OpenGL 3.3.
    bool open(const CommandLine& line);
    int run(const EndSignals& signals);

private:
    // Platform.
    Double now() override;
    Vector2 framebufferScale() override;
    Vector2d cursorPosition() override;
    void setCursorPosition(const Vector2i& position) override;
    void setCursorDisabled(bool disabled) override;

    // Window.
    void drawEvent() override;
    void viewportEvent(ViewportEvent& event) override;
    void keyPressEvent(Window::KeyEvent& event) override;
    void keyReleaseEvent(Window::KeyEvent& event) override;
    void pointerPressEvent(PointerEvent& event) override;
    void pointerReleaseEvent(PointerEvent& event) override;
    void pointerMoveEvent(PointerMoveEvent& event) override;
    void scrollEvent(ScrollEvent& event) override;
    void textInputEvent(TextInputEvent& event) override;
    void focusEvent(FocusEvent& event) override;
    void blurEvent(FocusEvent& event) override;
    void exitEvent(ExitEvent& event) override;

    bool openWindow(const CommandLine& line, const std::string& settingsFile);
    void listenToDrops();
    void openProject(const CommandLine& line);
    void keepLight();
    void drawFrame();
    void showCursor();
    void showTitle();
    // Before an event is delivered: the view measures time from frame to frame, and none was drawn for a while.
    void wakeUp();
    void setButton(Window::Pointer pointer, const Vector2& position, Modifiers modifiers, bool isDown);
    void moveTo(const Vector2& position) { _editor->input().moveTo(position + Vector2{_cursorOffset}); }
    void setModifiers(Modifiers modifiers);

    bool _isIdle = false;
    bool _isCursorDisabled = false;
    // From where the window library has the disabled cursor to where it was put: without the focus, putting it there
    // does nothing.
    Vector2d _cursorOffset;
    Containers::Optional<Cursor> _shownCursor;
    std::string _shownTitle;
    // Last: what it gives back when it goes comes back to the members above.
    std::unique_ptr<Editor> _editor;
};

// The window library calls back without saying for whom; there is one window.
WindowApplication* current = nullptr;

bool WindowApplication::open(const CommandLine& line) {
    const std::string file = settingsFile();
    WorkingFolder::removeAbandoned();
    if(!openWindow(line, file)) return false;
    setSwapInterval(1);
    startTextInput();
    _editor = std::make_unique<Editor>(*this,
        Editor::Files{line.module.empty() ? defaultModuleFile() : line.module,
            line.converter.empty() ? defaultConverterFile() : line.converter, file});
    keepLight();
    if(line.fontScale > 0.0f) _editor->settings().fontScale = line.fontScale;
    _editor->interface().setClipboard(
        [this] { return std::string{clipboardText()}; }, [this](const std::string& text) { setClipboardText(text); });
    listenToDrops();
    _editor->keepJournals(line.recover.value_or(Recover::Ask));
    openProject(line);
    return true;
}

bool WindowApplication::openWindow(const CommandLine& line, const std::string& settingsFile) {
    // One size that was asked for counts more than one that is remembered.
    const Vector2i size = line.size != CommandLine{}.size ? line.size : readSettings(settingsFile).windowSize;
    Configuration configuration;
    configuration.setTitle("Vantrel Editor").setSize(size).addWindowFlags(Configuration::WindowFlag::Resizable);
    GLConfiguration glConfiguration;
    glConfiguration.setVersion(GL::Version::GL330).addFlags(GLConfiguration::Flag::QuietLog);
    return tryCreate(configuration, glConfiguration);
}

// The light of an environment is computed beside what the user does, and once.
void WindowApplication::keepLight() {
    const std::string folder = cacheFolder();
    _editor->session().data().scene().main().environmentBaking = {
        false, folder.empty() ? folder : folder + "/environments"};
}

void WindowApplication::listenToDrops() {
    current = this;
    glfwSetDropCallback(window(), [](GLFWwindow*, int count, const char** files) {
        if(!count) return;
        current->wakeUp();
        for(int i = 0; i != count; ++i) current->_editor->dropFile(files[i], Vector2{current->cursorPosition()});
    });
}

void WindowApplication::openProject(const CommandLine& line) {
    const std::string error = _editor->loadView();
    if(!error.empty()) _editor->showError(error);
    if(line.project.empty()) return _editor->recoverUntitled();
    _editor->openAsked(line.project);
}

int WindowApplication::run(const EndSignals& signals) {
    bool isLeft = false;
    do {
        if(signals.isEnding() && !std::exchange(isLeft, true)) {
            wakeUp();
            _editor->leave();
        }
        if(!_isIdle || !_editor->isWaiting()) continue;
        // An event ends it early, and asks for a frame by itself.
        glfwWaitEventsTimeout(WaitTime);
        redraw();
    } while(mainLoopIteration());
    return 0;
}

Double WindowApplication::now() {
    const std::chrono::duration<Double> time = std::chrono::steady_clock::now().time_since_epoch();
    return time.count();
}

Vector2 WindowApplication::framebufferScale() {
    // A window that is minimised has no size.
    const Vector2 window = Vector2{Math::max(windowSize(), Vector2i{1})};
    const Vector2 scale = Vector2{framebufferSize()} / window;
    return scale.x() > 0.0f && scale.y() > 0.0f ? scale : Vector2{1.0f};
}

Vector2d WindowApplication::cursorPosition() {
    Vector2d position;
    glfwGetCursorPos(window(), &position.x(), &position.y());
    return position + _cursorOffset;
}

void WindowApplication::setCursorPosition(const Vector2i& position) {
    warpCursor(position);
    _cursorOffset = {};
    if(_isCursorDisabled) _cursorOffset = Vector2d{position} - cursorPosition();
    _editor->input().warpTo(Vector2{position});
}

void WindowApplication::setCursorDisabled(bool disabled) {
    if(disabled == _isCursorDisabled) return;
    _isCursorDisabled = disabled;
    _shownCursor = Containers::NullOpt;
    _cursorOffset = {};
    setCursor(disabled ? Cursor::HiddenLocked : Cursor::Arrow);
    _editor->input().warpTo(Vector2{cursorPosition()});
}

void WindowApplication::drawEvent() { drawFrame(); }

void WindowApplication::drawFrame() {
    _isIdle = false;
    GL::defaultFramebuffer.setViewport({{}, framebufferSize()});
    _editor->settings().windowSize = Math::max(windowSize(), Vector2i{1});
    _editor->drawFrame(GL::defaultFramebuffer, Vector2{windowSize()});
    swapBuffers();
    showCursor();
    showTitle();
    if(_editor->wantsQuit()) {
        _editor->releaseInput();
        return exit();
    }
    if(_editor->wantsFrame())
        redraw();
    else
        _isIdle = true;
}

void WindowApplication::showCursor() {
    if(_isCursorDisabled) return;
    const Cursor cursor = cursorOf(_editor->cursorShape());
    if(_shownCursor && *_shownCursor == cursor) return;
    setCursor(cursor);
    _shownCursor = cursor;
}

void WindowApplication::showTitle() {
    const std::string title = _editor->title() + " - Vantrel Editor";
    if(title == _shownTitle) return;
    setWindowTitle(title);
    _shownTitle = title;
}

void WindowApplication::wakeUp() {
    if(_isIdle) drawFrame();
    _editor->requestFrames();
    redraw();
}

void WindowApplication::viewportEvent(ViewportEvent&) {
    _editor->requestFrames();
    redraw();
}

void WindowApplication::keyPressEvent(Window::KeyEvent& event) {
    wakeUp();
    setModifiers(event.modifiers());
    _editor->setKey(int(event.key()), true, event.isRepeated());
}

void WindowApplication::keyReleaseEvent(Window::KeyEvent& event) {
    wakeUp();
    setModifiers(event.modifiers());
    _editor->setKey(int(event.key()), false, false);
}

// The bits are the same.
void WindowApplication::setModifiers(Modifiers modifiers) { _editor->input().setModifiers(unsigned(int(modifiers))); }

void WindowApplication::setButton(Window::Pointer pointer, const Vector2& position, Modifiers modifiers, bool isDown) {
    const std::optional<MouseButton> button = buttonOf(pointer);
    if(!button) return;
    setModifiers(modifiers);
    moveTo(position);
    _editor->setButton(*button, isDown);
}

void WindowApplication::pointerPressEvent(PointerEvent& event) {
    wakeUp();
    setButton(event.pointer(), event.position(), event.modifiers(), true);
}

void WindowApplication::pointerReleaseEvent(PointerEvent& event) {
    wakeUp();
    setButton(event.pointer(), event.position(), event.modifiers(), false);
}

void WindowApplication::pointerMoveEvent(PointerMoveEvent& event) {
    wakeUp();
    // While a button is down, others come as movements.
    if(const Containers::Optional<Window::Pointer> pointer = event.pointer())
        setButton(*pointer, event.position(), event.modifiers(), bool(event.pointers() & *pointer));
    else
        moveTo(event.position());
}

void WindowApplication::scrollEvent(ScrollEvent& event) {
    wakeUp();
    _editor->input().scroll(event.offset());
}

void WindowApplication::textInputEvent(TextInputEvent& event) {
    wakeUp();
    _editor->input().addText(event.text());
}

void WindowApplication::focusEvent(FocusEvent&) {
    wakeUp();
    _editor->setFocus(true);
}

void WindowApplication::blurEvent(FocusEvent&) {
    wakeUp();
    _editor->setFocus(false);
}

void WindowApplication::exitEvent(ExitEvent&) {
    // Closed only when nothing is lost.
    wakeUp();
    _editor->close();
}

} // namespace

int runWindow(const CommandLine& line, int& argc, char** argv) {
    const EndSignals signals{[] { glfwPostEmptyEvent(); }};
    WindowApplication application{Window::Arguments{argc, argv}};
    if(!application.open(line)) {
        Utility::Error{} << "This display has no OpenGL 3.3";
        return NoDisplayStatus;
    }
    return application.run(signals);
}

} // namespace VantrelEngine
