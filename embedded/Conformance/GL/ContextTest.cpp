#include <cstdlib>
#include <sstream>
#include <string>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/CubeMapTexture.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureArray.h>
#include <Magnum/GL/Version.h>
#include <Magnum/Platform/GLContext.h>
#include <gmock/gmock.h>

#include "Support/OffscreenContext.h"

using namespace Corrade;
using namespace Magnum;

namespace {

using testing::HasSubstr;
using testing::KilledBySignal;
using testing::StartsWith;

std::string toString(Containers::StringView view) { return {view.data(), view.size()}; }

std::string glString(GLenum name) { return reinterpret_cast<const char*>(glGetString(name)); }

GL::Context::Configuration quiet() {
    return GL::Context::Configuration{}.setFlags(GL::Context::Configuration::Flag::QuietLog);
}

struct ContextTest: VantrelTest::GlTest {};

TEST_F(ContextTest, supportsTheRequestedVersion) {
    const GL::Context& context = GL::Context::current();
    EXPECT_GE(context.version(), GL::Version::GL330);
    EXPECT_TRUE(context.isVersionSupported(GL::Version::GL330));
    EXPECT_TRUE(context.isVersionSupported(GL::Version::GL210));
    EXPECT_TRUE(context.isVersionSupported(context.version()));
    EXPECT_FALSE(context.isVersionSupported(GL::Version::None));
}

TEST_F(ContextTest, supportedVersionIsTheFirstThatIs) {
    const GL::Context& context = GL::Context::current();
    EXPECT_EQ(context.supportedVersion({GL::Version::GL330}), GL::Version::GL330);
    EXPECT_EQ(context.supportedVersion({GL::Version::GL320, GL::Version::GL330}), GL::Version::GL320);
    EXPECT_EQ(context.supportedVersion({GL::Version::None, GL::Version::GL330}), GL::Version::GL330);
    EXPECT_EQ(context.supportedVersion({GL::Version::None}), GL::Version::GL210);
    EXPECT_EQ(context.supportedVersion({}), GL::Version::GL210);
}

TEST_F(ContextTest, versionIsTheOneOfGl) {
    GLint major = 0;
    GLint minor = 0;
    glGetIntegerv(GL_MAJOR_VERSION, &major);
    glGetIntegerv(GL_MINOR_VERSION, &minor);
    EXPECT_EQ(int(GL::Context::current().version()), major * 100 + minor * 10);
}

TEST_F(ContextTest, stringsAreThoseOfGl) {
    const GL::Context& context = GL::Context::current();
    EXPECT_EQ(toString(context.vendorString()), glString(GL_VENDOR));
    EXPECT_EQ(toString(context.rendererString()), glString(GL_RENDERER));
    EXPECT_EQ(toString(context.versionString()), glString(GL_VERSION));
    GLint count = 0;
    glGetIntegerv(GL_NUM_EXTENSIONS, &count);
    const auto extensions = context.extensionStrings();
    ASSERT_EQ(extensions.size(), std::size_t(count));
    for(GLint i = 0; i != count; ++i)
        EXPECT_EQ(toString(extensions[i]), reinterpret_cast<const char*>(glGetStringi(GL_EXTENSIONS, i)));
}

TEST_F(ContextTest, extensionsAreSupportedUnlessDisabled) {
    const char* const variable = std::getenv("MAGNUM_DISABLE_EXTENSIONS");
    const std::string disabled = variable ? variable : "";
    const GL::Context& context = GL::Context::current();
    EXPECT_EQ(
        context.isExtensionSupported<GL::Extensions::KHR::debug>(), disabled.find("GL_KHR_debug") == std::string::npos);
    EXPECT_EQ(context.isExtensionSupported<GL::Extensions::ARB::texture_storage>(),
        disabled.find("GL_ARB_texture_storage") == std::string::npos);
    EXPECT_EQ(context.isExtensionSupported<GL::Extensions::ARB::separate_shader_objects>(),
        disabled.find("GL_ARB_separate_shader_objects") == std::string::npos);
}

TEST_F(ContextTest, clearColorStartsDarkGray) {
    GLfloat color[4];
    glGetFloatv(GL_COLOR_CLEAR_VALUE, color);
    for(int i = 0; i != 3; ++i) EXPECT_FLOAT_EQ(color[i], 0x1f / 255.0f);
    EXPECT_EQ(color[3], 1.0f);
}

TEST_F(ContextTest, versionAssertionPassesWhatIsSupported) {
    MAGNUM_ASSERT_GL_VERSION_SUPPORTED(GL::Version::GL330);
    EXPECT_EXIT(MAGNUM_ASSERT_GL_VERSION_SUPPORTED(GL::Version::None), KilledBySignal(SIGABRT),
        HasSubstr("Magnum::GL: required version None is not supported"));
}

TEST_F(ContextTest, thereIsOneCurrentContext) {
    ASSERT_TRUE(GL::Context::hasCurrent());
    GL::Context& context = GL::Context::current();
    {
        Platform::GLContext unused{NoCreate};
        EXPECT_EQ(&GL::Context::current(), &context);
    }
    ASSERT_TRUE(GL::Context::hasCurrent());
    GL::Context::makeCurrent(nullptr);
    EXPECT_FALSE(GL::Context::hasCurrent());
    GL::Context::makeCurrent(&context);
    EXPECT_EQ(&GL::Context::current(), &context);
    EXPECT_EXIT(Platform::GLContext{quiet()}, KilledBySignal(SIGABRT),
        HasSubstr("GL::Context: Another context currently active"));
}

TEST_F(ContextTest, noCurrentContextAsserts) {
    EXPECT_EXIT(
        {
            GL::Context::makeCurrent(nullptr);
            GL::Context::current();
        },
        KilledBySignal(SIGABRT), HasSubstr("GL::Context::current(): no current context"));
}

// Runs with the test's own context set aside.
struct SecondContextTest: VantrelTest::GlTest {
    void SetUp() override {
        first = &GL::Context::current();
        GL::Context::makeCurrent(nullptr);
    }
    void TearDown() override {
        EXPECT_FALSE(GL::Context::hasCurrent());
        GL::Context::makeCurrent(first);
        first->resetState();
        VantrelTest::GlTest::TearDown();
    }

    GL::Context* first = nullptr;
};

TEST_F(SecondContextTest, becomesCurrentWhenCreated) {
    Platform::GLContext context{NoCreate};
    EXPECT_FALSE(GL::Context::hasCurrent());
    EXPECT_TRUE(context.tryCreate(quiet()));
    EXPECT_EQ(&GL::Context::current(), &context);
    EXPECT_EQ(context.version(), first->version());
}

TEST_F(SecondContextTest, createdTwiceAsserts) {
    EXPECT_EXIT(
        {
            Platform::GLContext context{quiet()};
            context.tryCreate(quiet());
        },
        KilledBySignal(SIGABRT), HasSubstr("Platform::Context::tryCreate(): context already created"));
}

TEST_F(SecondContextTest, logsRendererAndVersion) {
    std::ostringstream out;
    {
        Debug redirect{&out};
        Platform::GLContext context{NoCreate, 0, nullptr};
        context.create();
    }
    EXPECT_THAT(out.str(),
        StartsWith("Renderer: " + glString(GL_RENDERER) + " by " + glString(GL_VENDOR) + "\n" +
            "OpenGL version: " + glString(GL_VERSION) + "\n"));
}

TEST_F(SecondContextTest, logsDisabledExtensions) {
    const char* const variable = std::getenv("MAGNUM_DISABLE_EXTENSIONS");
    const std::string before = variable ? variable : "";
    setenv("MAGNUM_DISABLE_EXTENSIONS", "GL_KHR_debug GL_FOO_unknown", 1);
    std::ostringstream out;
    {
        Debug redirect{&out};
        Platform::GLContext context;
        EXPECT_FALSE(context.isExtensionSupported<GL::Extensions::KHR::debug>());
        EXPECT_TRUE(context.isExtensionSupported<GL::Extensions::ARB::texture_storage>());
    }
    setenv("MAGNUM_DISABLE_EXTENSIONS", before.c_str(), 1);
    EXPECT_THAT(out.str(), HasSubstr("\nDisabling extensions:\n    GL_KHR_debug\nUsing optional features:\n"));
}

TEST_F(SecondContextTest, quietLogIsEmpty) {
    std::ostringstream out;
    {
        Debug redirect{&out};
        Platform::GLContext context{quiet()};
    }
    EXPECT_EQ(out.str(), "");
}

TEST(WithoutContext, creationFails) {
    ASSERT_FALSE(GL::Context::hasCurrent());
    std::ostringstream out;
    {
        Error redirect{&out};
        Platform::GLContext context{NoCreate};
        EXPECT_FALSE(context.tryCreate(quiet()));
    }
    EXPECT_FALSE(GL::Context::hasCurrent());
    EXPECT_EQ(out.str(), "GL::Context: unsupported OpenGL version {0, 0}\n");
}

TEST(WithoutContext, failedCreateEndsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(Platform::GLContext{quiet()}, testing::ExitedWithCode(1),
        HasSubstr("GL::Context: unsupported OpenGL version {0, 0}"));
}

TEST(WithoutContext, emptyObjectsComeAndGo) {
    ASSERT_FALSE(GL::Context::hasCurrent());
    struct Program: GL::AbstractShaderProgram {
        explicit Program(): GL::AbstractShaderProgram{NoCreate} {}
    };
    GL::Buffer buffer{NoCreate};
    GL::CubeMapTexture cubeMap{NoCreate};
    GL::Framebuffer framebuffer{NoCreate};
    GL::Mesh mesh{NoCreate};
    Program program;
    GL::Renderbuffer renderbuffer{NoCreate};
    GL::Shader shader{NoCreate};
    GL::Texture2D texture{NoCreate};
    GL::Texture2DArray array{NoCreate};
    const UnsignedInt ids[]{buffer.id(), cubeMap.id(), framebuffer.id(), mesh.id(), program.id(), renderbuffer.id(),
        shader.id(), texture.id(), array.id()};
    for(const UnsignedInt id: ids) EXPECT_EQ(id, 0u);

    // Moving them around needs no context either.
    GL::Framebuffer moved{std::move(framebuffer)};
    moved = GL::Framebuffer{NoCreate};
    EXPECT_EQ(moved.id(), 0u);
    Program other{std::move(program)};
    other = Program{};
    EXPECT_EQ(other.id(), 0u);
}

TEST(Version, prints) {
    std::ostringstream out;
    Debug{&out, Debug::Flag::NoNewlineAtTheEnd} << GL::Version::GL330 << GL::Version::GL210 << GL::Version::GL460
                                                << GL::Version::None << GL::Version(7);
    EXPECT_EQ(out.str(), "OpenGL 3.3 OpenGL 2.1 OpenGL 4.6 None Invalid(0x7)");
}

}
