#pragma once

#include <functional>
#include <string>
#include <vector>

#include <Corrade/Containers/Optional.h>
#include <Magnum/GL/Version.h>
#include <Magnum/Platform/GlfwApplication.h>

// An application that writes down which events it got, in words, and has what is protected in its base.
class RecordingApplication: public Magnum::Platform::GlfwApplication {
public:
    typedef Magnum::Platform::GlfwApplication Base;

    // A hidden window of 320 x 240 with OpenGL 3.3, quiet.
    RecordingApplication();
    explicit RecordingApplication(const Configuration& configuration);
    explicit RecordingApplication(const Configuration& configuration, const GLConfiguration& glConfiguration);
    explicit RecordingApplication(Magnum::NoCreateT);

    static Configuration hiddenWindow();
    static GLConfiguration quietGl330();

    using Base::create;
    using Base::tryCreate;

    // What happened since the last call.
    std::vector<std::string> takeEvents();

    std::function<void()> onDraw;
    bool acceptsExit = true;

private:
    static Arguments arguments();

    void record(const std::string& event) { _events.push_back(event); }

    void drawEvent() override;
    void viewportEvent(ViewportEvent& event) override;
    void keyPressEvent(KeyEvent& event) override;
    void keyReleaseEvent(KeyEvent& event) override;
    void pointerPressEvent(PointerEvent& event) override;
    void pointerReleaseEvent(PointerEvent& event) override;
    void pointerMoveEvent(PointerMoveEvent& event) override;
    void scrollEvent(ScrollEvent& event) override;
    void textInputEvent(TextInputEvent& event) override;
    void focusEvent(FocusEvent& event) override;
    void blurEvent(FocusEvent& event) override;
    void exitEvent(ExitEvent& event) override;

    std::vector<std::string> _events;
};
