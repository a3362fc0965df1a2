#pragma once

#include <memory>

#include <gtest/gtest.h>

namespace VantrelTest {

// An OpenGL 3.3 core context without window, display server or default framebuffer (EGL, surfaceless platform), made
// current for the calling thread and registered as Magnum::GL::Context::current() while the object lives.
class OffscreenContext {
public:
    // Throws std::runtime_error with the failing EGL call when the machine has no such context.
    OffscreenContext();
    ~OffscreenContext();
    OffscreenContext(const OffscreenContext&) = delete;
    OffscreenContext& operator=(const OffscreenContext&) = delete;

private:
    struct State;
    std::unique_ptr<State> _state;
};

// Test fixture: one context for all tests of a suite, and no GL error left behind by any of them.
class GlTest: public testing::Test {
public:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

protected:
    void TearDown() override;
};

}
