#include "Support/HeadlessContext.h"

#include <stdexcept>
#include <string>

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <Magnum/GL/Context.h>
#include <Magnum/Platform/GLContext.h>

namespace VantrelTest {

namespace {

[[noreturn]] void fail(const char* what) {
    throw std::runtime_error{std::string{what} + " failed, EGL error " + std::to_string(eglGetError())};
}

EGLDisplay openDisplay() {
    EGLDisplay display = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if(display == EGL_NO_DISPLAY) fail("eglGetPlatformDisplay");
    if(!eglInitialize(display, nullptr, nullptr)) fail("eglInitialize");
    return display;
}

EGLContext makeContext(EGLDisplay display) {
    if(!eglBindAPI(EGL_OPENGL_API)) fail("eglBindAPI");
    const EGLint configAttributes[]{EGL_SURFACE_TYPE, 0, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_NONE};
    EGLConfig config{};
    EGLint count = 0;
    if(!eglChooseConfig(display, configAttributes, &config, 1, &count) || !count) fail("eglChooseConfig");
    const EGLint contextAttributes[]{EGL_CONTEXT_MAJOR_VERSION, 3, EGL_CONTEXT_MINOR_VERSION, 3,
        EGL_CONTEXT_OPENGL_PROFILE_MASK, EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT, EGL_NONE};
    EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, contextAttributes);
    if(context == EGL_NO_CONTEXT) fail("eglCreateContext");
    if(!eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context)) fail("eglMakeCurrent");
    return context;
}

}

struct HeadlessContext::State {
    EGLDisplay display = openDisplay();
    EGLContext context = makeContext(display);
    std::unique_ptr<Magnum::Platform::GLContext> magnum;

    ~State() {
        magnum.reset();
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        eglDestroyContext(display, context);
        eglTerminate(display);
    }
};

HeadlessContext::HeadlessContext(): _state{std::make_unique<State>()} {
    _state->magnum = std::make_unique<Magnum::Platform::GLContext>(Magnum::NoCreate);
    if(!_state->magnum->tryCreate(
           Magnum::GL::Context::Configuration{}.setFlags(Magnum::GL::Context::Configuration::Flag::QuietLog)))
        throw std::runtime_error{"Magnum::Platform::GLContext::tryCreate() failed"};
}

HeadlessContext::~HeadlessContext() = default;

}
