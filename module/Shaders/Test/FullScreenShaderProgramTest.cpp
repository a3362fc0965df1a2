#include "Shaders/FullScreenShaderProgram.h"

#include <sstream>
#include <string>

#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Renderer.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MaskPicture.h"
#include "Shaders/Outline.h"
#include "Shaders/ShaderResources.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine::Shaders;
using namespace VantrelTest;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;

typedef GlTest FullScreenShaderProgramTest;

GL::Shader fragment(const char* source) {
    GL::Shader shader{shaderVersion(), GL::Shader::Type::Fragment};
    shader.addSource(source);
    return shader;
}

// What the program draws into four by two pixels that were black and transparent.
std::vector<Color4ub> drawn(FullScreenShaderProgram& program) {
    OutlineCanvas canvas{emptyMask({4, 2})};
    canvas.framebuffer.clearColor(0, Color4{0.0f, 0.0f}).bind();
    program.draw();
    return canvas.pixels();
}

TEST_F(FullScreenShaderProgramTest, textureCoordinatesSpanTheViewport) {
    FullScreenShaderProgram program{"coordinates",
        fragment("in vec2 textureCoordinates;\n"
                 "out vec4 color;\n"
                 "void main() { color = vec4(textureCoordinates, 0.0, 1.0); }\n")};
    const std::vector<Color4ub> pixels = drawn(program);
    for(Int i = 0; i != 8; ++i) {
        EXPECT_NEAR(pixels[i].r(), 255 * (i % 4 + 0.5) / 4, 1.0) << i;
        EXPECT_NEAR(pixels[i].g(), 255 * (i / 4 + 0.5) / 2, 1.0) << i;
        EXPECT_EQ(pixels[i].a(), 255) << i;
    }
}

TEST_F(FullScreenShaderProgramTest, viewportIsOffsetThenSize) {
    FullScreenShaderProgram program{"viewport",
        fragment("uniform vec4 viewportOffsetSize;\n"
                 "out vec4 color;\n"
                 "void main() { color = viewportOffsetSize/255.0; }\n")};
    program.setViewportOffsetSize({1.0f, 2.0f}, {30.0f, 40.0f});
    EXPECT_THAT(drawn(program), Each(Color4ub{1, 2, 30, 40}));
}

TEST_F(FullScreenShaderProgramTest, worksWithoutTheUniformAndWarnsOfNothing) {
    std::ostringstream warnings, errors;
    const Utility::Warning redirectWarnings{&warnings};
    const Utility::Error redirectErrors{&errors};
    FullScreenShaderProgram program{"plain", fragment("out vec4 color;\nvoid main() { color = vec4(1.0); }\n")};
    program.setViewportOffsetSize({1.0f, 2.0f}, {3.0f, 4.0f});
    EXPECT_THAT(drawn(program), Each(Color4ub{255, 255, 255, 255}));
    EXPECT_THAT(warnings.str(), IsEmpty());
    EXPECT_THAT(errors.str(), IsEmpty());
}

TEST_F(FullScreenShaderProgramTest, warningsAreBackAfterwards) {
    std::ostringstream warnings;
    const Utility::Warning redirect{&warnings};
    FullScreenShaderProgram program{"plain", fragment("out vec4 color;\nvoid main() { color = vec4(1.0); }\n")};
    Utility::Warning{} << "still here";
    EXPECT_EQ(warnings.str(), "still here\n");
}

TEST_F(FullScreenShaderProgramTest, saysWhatItCompiles) {
    std::ostringstream out;
    {
        const Utility::Debug redirect{&out};
        Outline outline;
    }
    EXPECT_EQ(out.str(), "Compiling OutlineInit\nCompiling OutlineStep\nCompiling OutlineDraw\n");
}

TEST_F(FullScreenShaderProgramTest, aShaderThatDoesNotCompileIsReportedAndSurvived) {
    std::ostringstream errors;
    {
        const Utility::Error redirect{&errors};
        FullScreenShaderProgram program{"broken", fragment("void main() { nonsense; }\n")};
        program.setViewportOffsetSize({}, {1.0f, 1.0f});
    }
    // There is nothing to look a uniform up in.
    EXPECT_EQ(GL::Renderer::error(), GL::Renderer::Error::InvalidOperation);
    EXPECT_THAT(errors.str(), HasSubstr("GL::Shader::compile(): compilation of fragment shader failed"));
    EXPECT_THAT(errors.str(), HasSubstr("GL::AbstractShaderProgram::link(): linking failed"));
}

TEST_F(FullScreenShaderProgramTest, programsOfTheOutlineHaveAllTheirUniforms) {
    std::ostringstream warnings;
    {
        const Utility::Warning redirect{&warnings};
        Outline outline;
    }
    EXPECT_THAT(warnings.str(), IsEmpty());
}

}
