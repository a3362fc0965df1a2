#include "RecordingApplication.h"

#include <cstdlib>

#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/DefaultFramebuffer.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/Math/Range.h>

#include <gmock/gmock.h>

using namespace Corrade;
using namespace Magnum;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::KilledBySignal;

typedef RecordingApplication::Configuration Configuration;
typedef RecordingApplication::GLConfiguration GLConfiguration;
typedef Configuration::WindowFlag WindowFlag;
typedef RecordingApplication::Cursor Cursor;

namespace {

// Children of death tests start over: a copy of this process would share its connection to the display.
struct WindowTest: testing::Test {
    static void SetUpTestSuite() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

typedef WindowTest WindowDeathTest;

// No such thing, and GLFW leaves it to the driver to say so.
GLConfiguration impossibleVersion() {
    GLConfiguration configuration;
    configuration.setVersion(GL::Version(990));
    return configuration;
}

GLint integer(GLenum name) {
    GLint value = -1;
    glGetIntegerv(name, &value);
    return value;
}

TEST_F(WindowTest, opensHiddenWindowWithTheRequestedVersion) {
    RecordingApplication app;
    ASSERT_TRUE(app.window());
    EXPECT_FALSE(glfwGetWindowAttrib(app.window(), GLFW_VISIBLE));
    EXPECT_EQ(glfwGetWindowAttrib(app.window(), GLFW_OPENGL_PROFILE), GLFW_OPENGL_CORE_PROFILE);
    EXPECT_TRUE(GL::Context::hasCurrent());
    EXPECT_TRUE(GL::Context::current().isVersionSupported(GL::Version::GL330));
    EXPECT_EQ(glfwGetCurrentContext(), app.window());
}

TEST_F(WindowTest, sizes) {
    RecordingApplication app;
    EXPECT_EQ(app.windowSize(), (Vector2i{320, 240}));
    EXPECT_EQ(app.framebufferSize(), (Vector2i{320, 240}));
    EXPECT_EQ(app.dpiScaling(), Vector2{1.0f});
    EXPECT_EQ(GL::defaultFramebuffer.viewport(), (Range2Di{{}, {320, 240}}));
}

TEST_F(WindowTest, configuredScalingMultipliesTheSize) {
    RecordingApplication app{RecordingApplication::hiddenWindow().setSize({320, 240}, {1.5f, 2.0f})};
    EXPECT_EQ(app.windowSize(), (Vector2i{480, 480}));
    EXPECT_EQ(app.dpiScaling(), (Vector2{1.5f, 2.0f}));
}

TEST_F(WindowTest, systemScalingMultipliesTheSize) {
    RecordingApplication app{RecordingApplication::hiddenWindow().setSize({320, 240})};
    Vector2 scaling;
    glfwGetWindowContentScale(app.window(), &scaling.x(), &scaling.y());
    EXPECT_EQ(app.dpiScaling(), scaling);
    EXPECT_EQ(app.windowSize(), Vector2i(Vector2{320, 240} * scaling));
}

TEST_F(WindowTest, defaults) {
    const Configuration configuration;
    EXPECT_EQ(std::string{configuration.title()}, "Magnum GLFW Application");
    EXPECT_EQ(configuration.size(), (Vector2i{800, 600}));
    EXPECT_TRUE(configuration.dpiScaling().isZero());
    EXPECT_TRUE(configuration.windowFlags() == Configuration::WindowFlags{WindowFlag::Focused});
    const GLConfiguration glConfiguration;
    EXPECT_TRUE(glConfiguration.version() == GL::Version::None);
    EXPECT_TRUE(glConfiguration.flags() == GLConfiguration::Flags{GLConfiguration::Flag::ForwardCompatible});
    EXPECT_EQ(glConfiguration.depthBufferSize(), 24);
    EXPECT_EQ(glConfiguration.stencilBufferSize(), 0);
    EXPECT_EQ(glConfiguration.sampleCount(), 0);
    EXPECT_FALSE(glConfiguration.isSrgbCapable());
}

TEST_F(WindowTest, withoutVersionTheContextIsCore) {
    GLConfiguration configuration;
    configuration.addFlags(GLConfiguration::Flag::QuietLog);
    RecordingApplication app{RecordingApplication::hiddenWindow(), configuration};
    EXPECT_TRUE(GL::Context::current().isVersionSupported(GL::Version::GL320));
    EXPECT_EQ(glfwGetWindowAttrib(app.window(), GLFW_OPENGL_PROFILE), GLFW_OPENGL_CORE_PROFILE);
    EXPECT_TRUE(glfwGetWindowAttrib(app.window(), GLFW_OPENGL_FORWARD_COMPAT));
}

TEST_F(WindowTest, oldVersionHasNoProfile) {
    RecordingApplication app{
        RecordingApplication::hiddenWindow(), RecordingApplication::quietGl330().setVersion(GL::Version::GL210)};
    EXPECT_TRUE(GL::Context::current().isVersionSupported(GL::Version::GL210));
    EXPECT_NE(glfwGetWindowAttrib(app.window(), GLFW_OPENGL_PROFILE), GLFW_OPENGL_CORE_PROFILE);
    EXPECT_FALSE(glfwGetWindowAttrib(app.window(), GLFW_OPENGL_FORWARD_COMPAT));
}

TEST_F(WindowTest, framebufferFollowsTheConfiguration) {
    {
        RecordingApplication app;
        EXPECT_EQ(integer(GL_SAMPLES), 0);
    }
    RecordingApplication app{RecordingApplication::hiddenWindow(),
        RecordingApplication::quietGl330().setSampleCount(4).setDepthBufferSize(24).setStencilBufferSize(8)};
    EXPECT_EQ(integer(GL_SAMPLES), 4);
    GLint depth = 0, stencil = 0;
    glGetFramebufferAttachmentParameteriv(GL_DRAW_FRAMEBUFFER, GL_DEPTH, GL_FRAMEBUFFER_ATTACHMENT_DEPTH_SIZE, &depth);
    glGetFramebufferAttachmentParameteriv(
        GL_DRAW_FRAMEBUFFER, GL_STENCIL, GL_FRAMEBUFFER_ATTACHMENT_STENCIL_SIZE, &stencil);
    EXPECT_EQ(depth, 24);
    EXPECT_EQ(stencil, 8);
}

TEST_F(WindowTest, debugFlag) {
    RecordingApplication app{RecordingApplication::hiddenWindow(),
        RecordingApplication::quietGl330().addFlags(GLConfiguration::Flag::Debug)};
    EXPECT_TRUE(glfwGetWindowAttrib(app.window(), GLFW_OPENGL_DEBUG_CONTEXT));
}

TEST_F(WindowTest, windowFlags) {
    RecordingApplication app{RecordingApplication::hiddenWindow()
                                 .setWindowFlags(WindowFlag::Hidden)
                                 .addWindowFlags(WindowFlag::Borderless | WindowFlag::AlwaysOnTop)};
    EXPECT_FALSE(glfwGetWindowAttrib(app.window(), GLFW_DECORATED));
    EXPECT_FALSE(glfwGetWindowAttrib(app.window(), GLFW_RESIZABLE));
    EXPECT_TRUE(glfwGetWindowAttrib(app.window(), GLFW_FLOATING));
}

TEST_F(WindowTest, windowIsShownAndDecoratedByDefault) {
    RecordingApplication app{Configuration{}.setSize({64, 64}, Vector2{1.0f})};
    EXPECT_TRUE(glfwGetWindowAttrib(app.window(), GLFW_VISIBLE));
    EXPECT_TRUE(glfwGetWindowAttrib(app.window(), GLFW_DECORATED));
    EXPECT_FALSE(glfwGetWindowAttrib(app.window(), GLFW_RESIZABLE));
}

TEST_F(WindowTest, failedCreationSaysSoAndCanBeRepeated) {
    RecordingApplication app{NoCreate};
    EXPECT_FALSE(app.window());
    Containers::String errors;
    {
        Utility::Error redirect{&errors};
        EXPECT_FALSE(app.tryCreate(RecordingApplication::hiddenWindow(), impossibleVersion()));
    }
    EXPECT_FALSE(app.window());
    EXPECT_THAT(std::string{errors},
        testing::AllOf(
            // Whatever GLFW has to say comes first.
            testing::StartsWith("Platform::GlfwApplication: "),
            testing::EndsWith("Platform::GlfwApplication::tryCreate(): cannot create a window with OpenGL context\n")));
    EXPECT_TRUE(app.tryCreate(RecordingApplication::hiddenWindow(), RecordingApplication::quietGl330()));
    EXPECT_TRUE(app.window());
}

TEST_F(WindowTest, oneAfterTheOther) {
    for(int i = 0; i != 3; ++i) {
        { RecordingApplication app; }
        EXPECT_FALSE(GL::Context::hasCurrent());
    }
}

TEST_F(WindowTest, cursor) {
    RecordingApplication app;
    EXPECT_EQ(app.cursor(), Cursor::Arrow);
    const struct {
        Cursor cursor;
        int mode;
    } data[]{{Cursor::TextInput, GLFW_CURSOR_NORMAL}, {Cursor::Crosshair, GLFW_CURSOR_NORMAL},
        {Cursor::Hidden, GLFW_CURSOR_HIDDEN}, {Cursor::Hand, GLFW_CURSOR_NORMAL},
        {Cursor::HiddenLocked, GLFW_CURSOR_DISABLED}, {Cursor::ResizeWE, GLFW_CURSOR_NORMAL},
        {Cursor::ResizeNS, GLFW_CURSOR_NORMAL}, {Cursor::Arrow, GLFW_CURSOR_NORMAL}};
    for(const auto& i: data) {
        app.setCursor(i.cursor);
        EXPECT_EQ(app.cursor(), i.cursor);
        EXPECT_EQ(glfwGetInputMode(app.window(), GLFW_CURSOR), i.mode);
    }
}

TEST_F(WindowTest, clipboardKeepsText) {
    RecordingApplication app;
    const char text[] = "copied \xe2\x82\xac and more";
    // Of a part of a longer string.
    app.setClipboardText(Containers::StringView{text}.prefix(10));
    EXPECT_EQ(std::string{app.clipboardText()}, "copied \xe2\x82\xac");
}

TEST_F(WindowTest, titleAndSwapIntervalAreAccepted) {
    RecordingApplication app;
    Containers::String errors;
    {
        Utility::Error redirect{&errors};
        app.setWindowTitle(Containers::StringView{"Title of the window"}.prefix(5));
        app.setSwapInterval(0);
        app.swapBuffers();
    }
    EXPECT_EQ(std::string{errors}, "");
}

TEST_F(WindowDeathTest, unreachableDisplayExitsWith8) {
    const auto open = [] {
        setenv("DISPLAY", ":4242", true);
        RecordingApplication app;
    };
    EXPECT_EXIT(open(), ExitedWithCode(8),
        HasSubstr("Platform::GlfwApplication: could not initialize GLFW: X11: Failed to open display :4242"));
}

TEST_F(WindowDeathTest, unreachableDisplayExitsWith8EvenWithoutWindow) {
    const auto open = [] {
        setenv("DISPLAY", ":4242", true);
        RecordingApplication app{NoCreate};
    };
    EXPECT_EXIT(open(), ExitedWithCode(8), HasSubstr("Platform::GlfwApplication: could not initialize GLFW"));
}

TEST_F(WindowDeathTest, missingVersionExitsWith1) {
    const std::string message = "Platform::GlfwApplication::tryCreate(): cannot create a window with OpenGL context";
    EXPECT_EXIT((RecordingApplication{RecordingApplication::hiddenWindow(), impossibleVersion()}), ExitedWithCode(1),
        HasSubstr(message));
    EXPECT_EXIT(RecordingApplication{NoCreate}.create(RecordingApplication::hiddenWindow(), impossibleVersion()),
        ExitedWithCode(1), HasSubstr(message));
}

TEST_F(WindowDeathTest, whatNeedsAWindowSaysSo) {
    EXPECT_EXIT(RecordingApplication{NoCreate}.windowSize(), KilledBySignal(SIGABRT),
        HasSubstr("Platform::GlfwApplication::windowSize(): no window opened"));
    EXPECT_EXIT(RecordingApplication{NoCreate}.framebufferSize(), KilledBySignal(SIGABRT),
        HasSubstr("Platform::GlfwApplication::framebufferSize(): no window opened"));
    EXPECT_EXIT(RecordingApplication{NoCreate}.setCursor(Cursor::Hand), KilledBySignal(SIGABRT),
        HasSubstr("Platform::GlfwApplication::setCursor(): no window opened"));
}

TEST_F(WindowDeathTest, oneWindowAtATime) {
    const auto twice = [] {
        RecordingApplication app;
        app.tryCreate(RecordingApplication::hiddenWindow(), RecordingApplication::quietGl330());
    };
    EXPECT_EXIT(twice(), KilledBySignal(SIGABRT),
        HasSubstr("Platform::GlfwApplication::tryCreate(): window with OpenGL context already created"));
}

}
