#include "RecordingApplication.h"

#include <sstream>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Containers/StringView.h>

using namespace Corrade;
using namespace Magnum;

namespace {

template<class T> std::string text(const Math::Vector2<T>& vector) {
    std::ostringstream out;
    out << vector.x() << "," << vector.y();
    return out.str();
}

template<class Set> std::string bits(Set set) { return std::to_string(int(Containers::enumCastUnderlyingType(set))); }

template<class Event> std::string keyText(const Event& event) {
    return std::to_string(int(event.key())) + " scan " + std::to_string(event.scanCode()) + " modifiers " +
        bits(event.modifiers()) + (event.isRepeated() ? " repeated" : "");
}

template<class Event> std::string pointerText(const Event& event) {
    return std::to_string(int(event.pointer())) + " at " + text(event.position()) + " modifiers " +
        bits(event.modifiers());
}

}

RecordingApplication::RecordingApplication(): RecordingApplication{hiddenWindow(), quietGl330()} {}

RecordingApplication::RecordingApplication(const Configuration& configuration):
    RecordingApplication{configuration, quietGl330()} {}

RecordingApplication::RecordingApplication(const Configuration& configuration, const GLConfiguration& glConfiguration):
    Base{arguments(), configuration, glConfiguration} {}

RecordingApplication::RecordingApplication(NoCreateT): Base{arguments(), NoCreate} {}

RecordingApplication::Configuration RecordingApplication::hiddenWindow() {
    // A scaling of its own: the system's may be anything.
    return Configuration{}
        .setSize({320, 240}, Vector2{1.0f})
        .setWindowFlags(Configuration::WindowFlag::Hidden | Configuration::WindowFlag::Resizable);
}

RecordingApplication::GLConfiguration RecordingApplication::quietGl330() {
    GLConfiguration configuration;
    configuration.setVersion(GL::Version::GL330).addFlags(GLConfiguration::Flag::QuietLog);
    return configuration;
}

RecordingApplication::Arguments RecordingApplication::arguments() {
    static int argc = 1;
    static char name[] = "application";
    static char* argv[]{name, nullptr};
    return Arguments{argc, argv};
}

std::vector<std::string> RecordingApplication::takeEvents() { return std::move(_events); }

void RecordingApplication::drawEvent() {
    record("draw");
    if(onDraw) onDraw();
}

void RecordingApplication::viewportEvent(ViewportEvent& event) {
    record("viewport window " + text(event.windowSize()) + " framebuffer " + text(event.framebufferSize()) +
        " scaling " + text(event.dpiScaling()));
}

void RecordingApplication::keyPressEvent(KeyEvent& event) { record("key press " + keyText(event)); }

void RecordingApplication::keyReleaseEvent(KeyEvent& event) { record("key release " + keyText(event)); }

void RecordingApplication::pointerPressEvent(PointerEvent& event) { record("press " + pointerText(event)); }

void RecordingApplication::pointerReleaseEvent(PointerEvent& event) { record("release " + pointerText(event)); }

void RecordingApplication::pointerMoveEvent(PointerMoveEvent& event) {
    record("move " + (event.pointer() ? "with " + std::to_string(int(*event.pointer())) + " " : std::string{}) + "to " +
        text(event.position()) + " by " + text(event.relativePosition()) + " held " + bits(event.pointers()) +
        " modifiers " + bits(event.modifiers()));
}

void RecordingApplication::scrollEvent(ScrollEvent& event) {
    record(
        "scroll " + text(event.offset()) + " at " + text(event.position()) + " modifiers " + bits(event.modifiers()));
}

void RecordingApplication::textInputEvent(TextInputEvent& event) { record("text " + std::string{event.text()}); }

void RecordingApplication::focusEvent(FocusEvent&) { record("focus"); }

void RecordingApplication::blurEvent(FocusEvent&) { record("blur"); }

void RecordingApplication::exitEvent(ExitEvent& event) {
    record(event.isAccepted() ? "exit, accepted already" : "exit");
    event.setAccepted(acceptsExit);
}
