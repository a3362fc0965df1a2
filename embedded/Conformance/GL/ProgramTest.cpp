#include <sstream>
#include <type_traits>

#include <Corrade/Containers/Iterable.h>
#include <Corrade/Containers/Pair.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/GL/MeshView.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Matrix3.h>
#include <Magnum/Math/Matrix4.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

using namespace Conformance;

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::KilledBySignal;
using testing::StartsWith;

constexpr const char* PointVertex = "void main() { gl_Position = vec4(0.0, 0.0, 0.0, 1.0); }\n";
constexpr const char* WhiteFragment = "out vec4 color;\nvoid main() { color = vec4(1.0); }\n";

struct ProgramTest: VantrelTest::GlTest {};

TEST_F(ProgramTest, constructionAndMove) {
    Program program;
    const UnsignedInt id = program.id();
    EXPECT_TRUE(glIsProgram(id));
    {
        Program moved{std::move(program)};
        EXPECT_EQ(program.id(), 0u);
        EXPECT_EQ(moved.id(), id);
        Program assigned{NoCreate};
        EXPECT_EQ(assigned.id(), 0u);
        assigned = std::move(moved);
        EXPECT_EQ(moved.id(), 0u);
        EXPECT_EQ(assigned.id(), id);
    }
    EXPECT_FALSE(glIsProgram(id));
}

TEST_F(ProgramTest, label) {
    Program program;
    EXPECT_EQ(&program.setLabel("outline"), &program);
    const bool supported = GL::Context::current().isExtensionSupported<GL::Extensions::KHR::debug>();
    EXPECT_STREQ(program.label().data(), supported ? "outline" : "");
}

TEST_F(ProgramTest, linksSilently) {
    std::ostringstream errors, warnings;
    {
        Error redirectError{&errors};
        Warning redirectWarning{&warnings};
        Program program{PointVertex, WhiteFragment};
        EXPECT_TRUE(program.ready);
        EXPECT_TRUE(program.validate().first());
    }
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(warnings.str(), "");
}

TEST_F(ProgramTest, linkFailurePrintsTheLog) {
    std::ostringstream errors;
    Error redirect{&errors};
    Program program{"void missing();\nvoid main() { missing(); }\n", WhiteFragment};
    EXPECT_FALSE(program.ready);
    EXPECT_THAT(
        errors.str(), StartsWith("GL::AbstractShaderProgram::link(): linking failed with the following message:\n"));
    EXPECT_THAT(errors.str(), HasSubstr("missing"));
}

TEST_F(ProgramTest, linkInTwoSteps) {
    GL::Shader vertex{GL::Version::GL330, GL::Shader::Type::Vertex};
    GL::Shader fragment{GL::Version::GL330, GL::Shader::Type::Fragment};
    vertex.addSource(PointVertex).submitCompile();
    fragment.addSource(WhiteFragment).submitCompile();
    Program program;
    program.attachShaders({vertex, fragment});
    program.submitLink();
    EXPECT_TRUE(program.checkLink({vertex, fragment}));
}

TEST_F(ProgramTest, checkLinkStopsAtAShaderThatDidNotCompile) {
    GL::Shader vertex{GL::Version::GL330, GL::Shader::Type::Vertex};
    GL::Shader fragment{GL::Version::GL330, GL::Shader::Type::Fragment};
    vertex.addSource("void main() { nonsense }\n").submitCompile();
    fragment.addSource("more nonsense\n").submitCompile();
    Program program;
    program.attachShaders({vertex, fragment});
    program.submitLink();
    std::ostringstream errors;
    {
        Error redirect{&errors};
        EXPECT_FALSE(program.checkLink({vertex, fragment}));
    }
    EXPECT_THAT(errors.str(), HasSubstr("compilation of vertex shader failed"));
    EXPECT_THAT(errors.str(), testing::Not(HasSubstr("fragment")));
    EXPECT_THAT(errors.str(), testing::Not(HasSubstr("link()")));

    // Without the shaders it is the linker that says so.
    std::ostringstream linkErrors;
    {
        Error redirect{&linkErrors};
        EXPECT_FALSE(program.checkLink({}));
    }
    EXPECT_THAT(linkErrors.str(), HasSubstr("GL::AbstractShaderProgram::link(): linking failed"));
}

TEST_F(ProgramTest, locationsCanBeBound) {
    GL::Shader vertex{GL::Version::GL330, GL::Shader::Type::Vertex};
    GL::Shader fragment{GL::Version::GL330, GL::Shader::Type::Fragment};
    vertex.addSource("in vec4 first;\nin vec4 second;\nvoid main() { gl_Position = first + second; }\n").compile();
    fragment
        .addSource("out vec4 color;\nout vec4 other;\n"
                   "void main() { color = vec4(1.0); other = vec4(0.5); }\n")
        .compile();
    Program program;
    program.attachShaders({vertex, fragment});
    program.bindAttributeLocation(5, "first");
    // A view that is not terminated.
    program.bindAttributeLocation(3, Containers::StringView{"seconds"}.exceptSuffix(1));
    program.bindFragmentDataLocation(1, "color");
    program.bindFragmentDataLocation(0, Containers::StringView{"others"}.exceptSuffix(1));
    ASSERT_TRUE(program.link());
    EXPECT_EQ(glGetAttribLocation(program.id(), "first"), 5);
    EXPECT_EQ(glGetAttribLocation(program.id(), "second"), 3);
    EXPECT_EQ(glGetFragDataLocation(program.id(), "color"), 1);
    EXPECT_EQ(glGetFragDataLocation(program.id(), "other"), 0);
}

TEST_F(ProgramTest, missingUniformWarnsOnce) {
    Program program{PointVertex, WhiteFragment};
    std::ostringstream warnings;
    {
        Warning redirect{&warnings};
        EXPECT_EQ(program.uniformLocation("absent"), -1);
        EXPECT_EQ(program.uniformBlockIndex("nowhere"), 0xffffffffu);
    }
    EXPECT_EQ(warnings.str(),
        "GL::AbstractShaderProgram: location of uniform 'absent' cannot be retrieved\n"
        "GL::AbstractShaderProgram: index of uniform block 'nowhere' cannot be retrieved\n");

    std::ostringstream outer;
    {
        Warning redirect{&outer};
        Warning silence{nullptr};
        EXPECT_EQ(program.uniformLocation("absent"), -1);
    }
    EXPECT_EQ(outer.str(), "");
}

TEST_F(ProgramTest, uniformBlocksHaveBindings) {
    Program program{"layout(std140) uniform Colors { vec4 tint; };\n"
                    "void main() { gl_Position = tint; }\n",
        WhiteFragment};
    const UnsignedInt index = program.uniformBlockIndex("Colors");
    ASSERT_NE(index, 0xffffffffu);
    program.setUniformBlockBinding(index, 3);
    GLint binding = 0;
    glGetActiveUniformBlockiv(program.id(), index, GL_UNIFORM_BLOCK_BINDING, &binding);
    EXPECT_EQ(binding, 3);
}

struct UniformTest: VantrelTest::GlTest {
    template<class T> std::vector<GLfloat> set(const char* type, const T& value, std::size_t count) {
        return setIn("uniform " + std::string{type} + " value;\n", "value", value, count);
    }
    // The first of the scalars that the uniform has afterwards.
    template<class T>
    std::vector<GLfloat> setIn(
        const std::string& declaration, const std::string& expression, const T& value, std::size_t count) {
        Program program{declaration + "void main() { gl_Position = vec4(float(" + expression +
                (count == 1         ? ""
                        : count > 4 ? "[0][0]"
                                    : "[0]") +
                ")); }\n",
            WhiteFragment};
        EXPECT_TRUE(program.ready);
        const Int location = program.uniformLocation("value");
        EXPECT_NE(location, -1);
        // Another program is in use.
        Program other{PointVertex, WhiteFragment};
        glUseProgram(other.id());
        GL::Context::current().resetState();
        program.setUniform(location, value);
        std::vector<GLfloat> scalars(count);
        glGetUniformfv(program.id(), location, scalars.data());
        return scalars;
    }
};

TEST_F(UniformTest, scalars) {
    EXPECT_THAT(set("float", 1.5f, 1), ElementsAre(1.5f));
    EXPECT_THAT(set("int", -7, 1), ElementsAre(-7.0f));
    EXPECT_THAT(set("uint", 7u, 1), ElementsAre(7.0f));
    EXPECT_THAT(set("bool", true, 1), ElementsAre(1.0f));
}

TEST_F(UniformTest, vectors) {
    EXPECT_THAT(set("vec2", Vector2{1.5f, 2.5f}, 2), ElementsAre(1.5f, 2.5f));
    EXPECT_THAT(set("vec3", Vector3{1.5f, 2.5f, 3.5f}, 3), ElementsAre(1.5f, 2.5f, 3.5f));
    EXPECT_THAT(set("vec4", Vector4{1.5f, 2.5f, 3.5f, 4.5f}, 4), ElementsAre(1.5f, 2.5f, 3.5f, 4.5f));
    EXPECT_THAT(set("vec3", Color3{0.25f, 0.5f, 0.75f}, 3), ElementsAre(0.25f, 0.5f, 0.75f));
    EXPECT_THAT(set("vec4", Color4{0.25f, 0.5f, 0.75f}, 4), ElementsAre(0.25f, 0.5f, 0.75f, 1.0f));
    EXPECT_THAT(set("ivec2", Vector2i{-1, 2}, 2), ElementsAre(-1.0f, 2.0f));
    EXPECT_THAT(set("ivec3", Vector3i{-1, 2, -3}, 3), ElementsAre(-1.0f, 2.0f, -3.0f));
    EXPECT_THAT(set("ivec4", Vector4i{-1, 2, -3, 4}, 4), ElementsAre(-1.0f, 2.0f, -3.0f, 4.0f));
    EXPECT_THAT(set("uvec2", Vector2ui{1, 2}, 2), ElementsAre(1.0f, 2.0f));
    EXPECT_THAT(set("uvec3", Vector3ui{1, 2, 3}, 3), ElementsAre(1.0f, 2.0f, 3.0f));
    EXPECT_THAT(set("uvec4", Vector4ui{1, 2, 3, 4}, 4), ElementsAre(1.0f, 2.0f, 3.0f, 4.0f));
}

TEST_F(UniformTest, matricesAreColumnMajor) {
    EXPECT_THAT(
        set("mat3", Matrix3x3{Vector3{1.0f, 2.0f, 3.0f}, Vector3{4.0f, 5.0f, 6.0f}, Vector3{7.0f, 8.0f, 9.0f}}, 9),
        ElementsAre(1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f, 7.0f, 8.0f, 9.0f));
    EXPECT_THAT(set("mat4", Matrix4::translation({2.0f, 3.0f, 4.0f}), 16),
        ElementsAre(1.0f, 0.0f, 0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 2.0f, 3.0f, 4.0f, 1.0f));
}

TEST_F(ProgramTest, uniformArrays) {
    Program program{"uniform float numbers[3];\nuniform vec4 colors[2];\nuniform mat4 matrices[2];\n"
                    "void main() {\n"
                    "    gl_Position = vec4(numbers[0] + numbers[1] + numbers[2]) + matrices[0]*colors[0]\n"
                    "        + matrices[1]*colors[1];\n"
                    "}\n",
        WhiteFragment};
    ASSERT_TRUE(program.ready);
    const char* const names[]{"numbers[0]", "numbers[1]", "numbers[2]"};
    const Float numbers[]{1.0f, 2.0f, 3.0f};
    const Vector4 colors[]{Vector4{0.25f}, Vector4{0.5f}};
    const Matrix4 matrices[]{Matrix4::translation(Vector3::xAxis(3.0f)), Matrix4::translation(Vector3::xAxis(5.0f))};
    program.setUniform(program.uniformLocation("numbers"), Containers::arrayView(numbers));
    program.setUniform(program.uniformLocation("colors"), Containers::arrayView(colors));
    program.setUniform(program.uniformLocation("matrices"), Containers::arrayView(matrices));

    GLfloat value[16];
    for(int i = 0; i != 3; ++i) {
        glGetUniformfv(program.id(), program.uniformLocation(names[i]), value);
        EXPECT_EQ(value[0], numbers[i]);
    }
    glGetUniformfv(program.id(), program.uniformLocation("colors[1]"), value);
    EXPECT_EQ(value[3], 0.5f);
    glGetUniformfv(program.id(), program.uniformLocation("matrices[1]"), value);
    EXPECT_EQ(value[12], 5.0f);
}

TEST_F(ProgramTest, missingLocationIsIgnored) {
    Program program{PointVertex, WhiteFragment};
    program.setUniform(-1, 1.0f);
    program.setUniform(-1, Matrix4{});
    EXPECT_EQ(GL::Renderer::error(), GL::Renderer::Error::NoError);
}

TEST_F(ProgramTest, uniformOfAnUnlinkedProgramIsAnError) {
    Program program;
    program.setUniform(-1, 1.0f);
    EXPECT_EQ(GL::Renderer::error(), GL::Renderer::Error::InvalidOperation);
    // Without separate shader objects there are two: using the program is one already.
    GL::Renderer::error();
    GL::Context::current().resetState();
}

TEST_F(ProgramTest, uniformsStayWithTheirProgram) {
    Canvas canvas{{1, 1}};
    FlatProgram red, green;
    red.fill(Color4::red());
    green.fill(Color4::green());
    EXPECT_EQ(canvas.pixel({}), 0x00ff00ffu);
    red.draw(GL::Mesh{}.setCount(3));
    EXPECT_EQ(canvas.pixel({}), 0xff0000ffu);
}

TEST_F(ProgramTest, deletedProgramsAreNotTakenForNewOnes) {
    Canvas canvas{{1, 1}};
    for(const auto& color: {Color4::red(), Color4::green(), Color4::blue()}) {
        FlatProgram program;
        program.fill(color);
        EXPECT_EQ(canvas.pixel({}),
            (UnsignedInt(color.r()) * 0xff000000u | UnsignedInt(color.g()) * 0xff0000u |
                UnsignedInt(color.b()) * 0xff00u | 0xffu));
    }
}

TEST_F(ProgramTest, meshWithoutBuffersCoversTheViewport) {
    Canvas canvas{{5, 3}};
    FlatProgram{}.fill(Color4{1.0f});
    const auto pixels = canvas.pixels();
    EXPECT_EQ(pixels.size(), 15u);
    EXPECT_THAT(pixels, Each(0xffffffffu));
}

TEST_F(ProgramTest, emptyDrawsDrawNothing) {
    Canvas canvas{{1, 1}};
    FlatProgram program;
    program.fill(Color4::red());
    GL::Mesh mesh;
    mesh.setCount(0);
    program.draw(mesh);
    program.draw(GL::MeshView{mesh}.setCount(0));
    program.draw(GL::MeshView{mesh}.setCount(3).setInstanceCount(0));
    mesh.setCount(3).setInstanceCount(0);
    program.fill(Color4::green());
    EXPECT_EQ(canvas.pixel({}), 0x00ff00ffu);
    program.setUniform(program.uniformLocation("color"), Color4::blue());
    program.draw(mesh);
    program.draw(Containers::Iterable<GL::MeshView>{});
    EXPECT_EQ(canvas.pixel({}), 0x00ff00ffu);
}

TEST_F(ProgramTest, drawWithoutCountAsserts) {
    FlatProgram program;
    GL::Mesh mesh;
    GL::MeshView view{mesh};
    EXPECT_EXIT(program.draw(mesh), KilledBySignal(SIGABRT),
        HasSubstr("GL::AbstractShaderProgram::draw(): Mesh::setCount() was never called, probably a mistake?"));
    mesh.setCount(3);
    EXPECT_EXIT(program.draw(view), KilledBySignal(SIGABRT),
        HasSubstr("GL::AbstractShaderProgram::draw(): MeshView::setCount() was never called, probably a mistake?"));
    mesh.setInstanceCount(0);
    view.setInstanceCount(0);
    EXPECT_EXIT(program.draw(view), KilledBySignal(SIGABRT), HasSubstr("MeshView::setCount() was never called"));
}

TEST_F(ProgramTest, listsOfViewsAssert) {
    FlatProgram program;
    GL::Mesh mesh, other;
    GL::MeshView first{mesh}, second{other}, instanced{mesh};
    first.setCount(3);
    second.setCount(3);
    instanced.setCount(3).setInstanceCount(2);
    EXPECT_EXIT((program.draw({first, second})), KilledBySignal(SIGABRT),
        testing::ContainsRegex("GL::AbstractShaderProgram::draw\\(\\): all meshes must be views of the same original "
                               "mesh, expected 0x[0-9a-f]+ but got 0x[0-9a-f]+ at index 1"));
    EXPECT_EXIT((program.draw({first, instanced})), KilledBySignal(SIGABRT),
        HasSubstr("GL::AbstractShaderProgram::draw(): cannot multi-draw instanced meshes"));
}

struct TypedProgram: FlatProgram {
    MAGNUM_GL_ABSTRACTSHADERPROGRAM_SUBCLASS_DRAW_IMPLEMENTATION(TypedProgram)
};

TEST_F(ProgramTest, subclassesReturnThemselvesFromDraw) {
    Canvas canvas{{1, 1}};
    TypedProgram program;
    GL::Mesh mesh;
    mesh.setCount(3);
    GL::MeshView view{mesh};
    view.setCount(3);
    static_assert(std::is_same_v<decltype(program.draw(mesh)), TypedProgram&>);
    static_assert(std::is_same_v<decltype(program.draw(GL::MeshView{mesh})), TypedProgram&>);
    static_assert(std::is_same_v<decltype(static_cast<FlatProgram&>(program).draw(mesh)), GL::AbstractShaderProgram&>);
    EXPECT_EQ(&program.draw(mesh), &program);
    EXPECT_EQ(&program.draw(GL::Mesh{}.setCount(3)), &program);
    EXPECT_EQ(&program.draw(view), &program);
    EXPECT_EQ(&program.draw(GL::MeshView{mesh}.setCount(3)), &program);
    EXPECT_EQ(&program.draw({view, view}), &program);
}

}
