#include "Application/HeadlessContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <Magnum/GL/Context.h>
#include <Magnum/Platform/GLContext.h>

namespace VantrelEngine {

using namespace Magnum;

struct HeadlessContext::State {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;
    std::unique_ptr<Magnum::Platform::GLContext> magnum;

    State() = default;
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State() {
        magnum.reset();
        if(display == EGL_NO_DISPLAY) return;
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        if(context != EGL_NO_CONTEXT) eglDestroyContext(display, context);
        eglTerminate(display);
    }

    // Each null, or what failed.
    const char* openDisplay();
    const char* makeContext();
};

const char* HeadlessContext::State::openDisplay() {
    display = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if(display == EGL_NO_DISPLAY) return "eglGetPlatformDisplay()";
    return eglInitialize(display, nullptr, nullptr) ? nullptr : "eglInitialize()";
}

const char* HeadlessContext::State::makeContext() {
    if(!eglBindAPI(EGL_OPENGL_API)) return "eglBindAPI()";
    const EGLint configAttributes[]{EGL_SURFACE_TYPE, 0, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_NONE};
    EGLConfig config{};
    EGLint count = 0;
    if(!eglChooseConfig(display, configAttributes, &config, 1, &count) || !count) return "eglChooseConfig()";
    const EGLint contextAttributes[]{EGL_CONTEXT_MAJOR_VERSION, 3, EGL_CONTEXT_MINOR_VERSION, 3,
        EGL_CONTEXT_OPENGL_PROFILE_MASK, EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT, EGL_NONE};
    context = eglCreateContext(display, config, EGL_NO_CONTEXT, contextAttributes);
    if(context == EGL_NO_CONTEXT) return "eglCreateContext()";
    if(!eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context)) return "eglMakeCurrent()";
    magnum = std::make_unique<Magnum::Platform::GLContext>(NoCreate);
    const auto configuration = GL::Context::Configuration{}.setFlags(GL::Context::Configuration::Flag::QuietLog);
    return magnum->tryCreate(configuration) ? nullptr : "loading the GL functions";
}

std::unique_ptr<HeadlessContext> HeadlessContext::create(std::string& error) {
    auto state = std::make_unique<State>();
    const char* failed = state->openDisplay();
    if(!failed) failed = state->makeContext();
    if(!failed) return std::unique_ptr<HeadlessContext>{new HeadlessContext{std::move(state)}};
    error = std::string{"There is no OpenGL 3.3 without a window: "} + failed + " failed";
    return {};
}

HeadlessContext::HeadlessContext(std::unique_ptr<State> state): _state{std::move(state)} {}

HeadlessContext::~HeadlessContext() = default;

} // namespace VantrelEngine
