#pragma once

#include <memory>

namespace VantrelTest {

// An OpenGL 3.3 core context without window, display server or default framebuffer (EGL, surfaceless platform), made
// current for the calling thread and registered as Magnum::GL::Context::current() while the object lives.
class HeadlessContext {
public:
    // Throws std::runtime_error with the failing EGL call when the machine has no such context.
    HeadlessContext();
    ~HeadlessContext();
    HeadlessContext(const HeadlessContext&) = delete;
    HeadlessContext& operator=(const HeadlessContext&) = delete;

private:
    struct State;
    std::unique_ptr<State> _state;
};

}
