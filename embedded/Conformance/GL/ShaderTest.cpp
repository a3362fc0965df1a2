#include <chrono>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringIterable.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Version.h>
#include <gmock/gmock.h>

#include "Support/OffscreenContext.h"

using namespace Corrade;
using namespace Magnum;

namespace {

using testing::ContainsRegex;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::KilledBySignal;
using testing::Not;
using testing::StartsWith;

std::vector<std::string> sourcesOf(const GL::Shader& shader) {
    std::vector<std::string> sources;
    for(const Containers::StringView source: shader.sources()) sources.emplace_back(source.data(), source.size());
    return sources;
}

struct ShaderTest: VantrelTest::GlTest {};

TEST_F(ShaderTest, constructionAndMove) {
    GL::Shader shader{GL::Version::GL330, GL::Shader::Type::Geometry};
    const UnsignedInt id = shader.id();
    EXPECT_TRUE(glIsShader(id));
    EXPECT_EQ(shader.type(), GL::Shader::Type::Geometry);
    {
        GL::Shader moved{std::move(shader)};
        EXPECT_EQ(shader.id(), 0u);
        EXPECT_EQ(moved.id(), id);
        EXPECT_EQ(moved.type(), GL::Shader::Type::Geometry);
        GL::Shader assigned{NoCreate};
        assigned = std::move(moved);
        EXPECT_EQ(moved.id(), 0u);
        EXPECT_EQ(assigned.id(), id);
        EXPECT_TRUE(glIsShader(id));
    }
    EXPECT_FALSE(glIsShader(id));
}

TEST_F(ShaderTest, sourcesStartWithVersionAndLines) {
    GL::Shader shader{GL::Version::GL330, GL::Shader::Type::Vertex};
    EXPECT_THAT(sourcesOf(shader), ElementsAre("#version 330\n"));
    shader.addSource("first\n").addSource("").addSource(Containers::String{"second"}).addSource("third");
    EXPECT_THAT(sourcesOf(shader),
        ElementsAre("#version 330\n", "#line 1 1\n", "first\n", "#line 1 2\n", "second", "#line 1 3\n", "third"));
}

TEST_F(ShaderTest, languageVersions) {
    const struct {
        GL::Version version;
        const char* source;
    } rows[]{{GL::Version::GL330, "#version 330\n"}, {GL::Version::GL430, "#version 430\n"}};
    for(const auto& row: rows)
        EXPECT_THAT(sourcesOf(GL::Shader{row.version, GL::Shader::Type::Vertex}), ElementsAre(row.source));
}

TEST_F(ShaderTest, withoutVersionTheFirstSourceHasIt) {
    GL::Shader shader{GL::Version::None, GL::Shader::Type::Vertex};
    EXPECT_THAT(sourcesOf(shader), ElementsAre());
    shader.addSource("").addSource("#version 330\n").addSource("void main() {}\n").addSource("// end\n");
    EXPECT_THAT(sourcesOf(shader),
        ElementsAre("", "#version 330\n", "#line 1 1\n", "void main() {}\n", "#line 1 2\n", "// end\n"));
    EXPECT_TRUE(shader.compile());
}

TEST_F(ShaderTest, sourcesMayGoAway) {
    GL::Shader shader{GL::Version::GL330, GL::Shader::Type::Vertex};
    {
        std::string source = "void main() {}\n";
        shader.addSource(source.c_str());
        source.assign(source.size(), 'x');
    }
    EXPECT_TRUE(shader.compile());
}

TEST_F(ShaderTest, filesAreSources) {
    const std::string path = testing::TempDir() + "ShaderTest.vert";
    std::ofstream{path} << "void main() {}\n";
    GL::Shader shader{GL::Version::GL330, GL::Shader::Type::Vertex};
    shader.addFile(path.c_str());
    std::remove(path.c_str());
    EXPECT_THAT(sourcesOf(shader), ElementsAre("#version 330\n", "#line 1 1\n", "void main() {}\n"));
    EXPECT_EXIT(shader.addFile("/nonexistent.vert"), KilledBySignal(SIGABRT),
        HasSubstr("GL::Shader::addFile(): can't read /nonexistent.vert"));
}

TEST_F(ShaderTest, compileInTwoSteps) {
    GL::Shader shader{GL::Version::GL330, GL::Shader::Type::Vertex};
    shader.addSource("void main() {}\n");
    shader.submitCompile();
    std::ostringstream errors, warnings;
    {
        Error redirectError{&errors};
        Warning redirectWarning{&warnings};
        EXPECT_TRUE(shader.checkCompile());
    }
    EXPECT_TRUE(shader.isCompileFinished());
    EXPECT_EQ(errors.str(), "");
    EXPECT_EQ(warnings.str(), "");
}

TEST_F(ShaderTest, failurePrintsTheLog) {
    const struct {
        GL::Shader::Type type;
        const char* message;
    } rows[]{{GL::Shader::Type::Vertex,
                 "GL::Shader::compile(): compilation of vertex shader failed with the following message:\n"},
        {GL::Shader::Type::Fragment,
            "GL::Shader::compile(): compilation of fragment shader failed with the following message:\n"},
        {GL::Shader::Type::Geometry,
            "GL::Shader::compile(): compilation of geometry shader failed with the following message:\n"}};
    for(const auto& row: rows) {
        GL::Shader shader{GL::Version::GL330, row.type};
        shader.addSource("// fine\n").addSource("\nvoid main() { nonsense }\n");
        std::ostringstream errors;
        {
            Error redirect{&errors};
            EXPECT_FALSE(shader.compile());
        }
        EXPECT_THAT(errors.str(), StartsWith(row.message));
        // Line 2 of the second source.
        EXPECT_THAT(errors.str(), HasSubstr("2:2("));
        EXPECT_THAT(errors.str(), ContainsRegex("[^\n]\n$"));
        EXPECT_THAT(errors.str(), Not(EndsWith("\n\n")));
    }
}

TEST_F(ShaderTest, successWithLogWarns) {
    GL::Shader shader{GL::Version::GL330, GL::Shader::Type::Fragment};
    // The driver says nothing when it has seen the very same text before.
    const std::string unique =
        "// " + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()) + "\n";
    shader.addSource(unique.c_str()).addSource("out vec4 color;\nvoid main() { float a; color = vec4(a); }\n");
    std::ostringstream errors, warnings;
    {
        Error redirectError{&errors};
        Warning redirectWarning{&warnings};
        EXPECT_TRUE(shader.compile());
    }
    EXPECT_EQ(errors.str(), "");
    EXPECT_THAT(warnings.str(),
        StartsWith("GL::Shader::compile(): compilation of fragment shader succeeded with the following message:\n"));
    EXPECT_THAT(warnings.str(), HasSubstr("uninitialized"));
}

TEST_F(ShaderTest, nothingToCompileAsserts) {
    EXPECT_EXIT((GL::Shader{GL::Version::GL330, GL::Shader::Type::Vertex}.compile()), KilledBySignal(SIGABRT),
        HasSubstr("GL::Shader::compile(): no files added"));
    EXPECT_EXIT((GL::Shader{GL::Version::GL330, GL::Shader::Type::Vertex}.addSource("").submitCompile()),
        KilledBySignal(SIGABRT), HasSubstr("GL::Shader::compile(): no files added"));
}

TEST_F(ShaderTest, unknownVersionAsserts) {
    EXPECT_EXIT((GL::Shader{GL::Version(7), GL::Shader::Type::Vertex}), KilledBySignal(SIGABRT),
        HasSubstr("GL::Shader::Shader(): unsupported version Invalid(0x7)"));
}

TEST_F(ShaderTest, label) {
    GL::Shader shader{GL::Version::GL330, GL::Shader::Type::Vertex};
    EXPECT_EQ(&shader.setLabel("outline"), &shader);
    const bool supported = GL::Context::current().isExtensionSupported<GL::Extensions::KHR::debug>();
    EXPECT_STREQ(shader.label().data(), supported ? "outline" : "");
}

TEST(ShaderType, prints) {
    std::ostringstream out;
    Debug{&out, Debug::Flag::NoNewlineAtTheEnd} << GL::Shader::Type::Vertex << GL::Shader::Type::Geometry
                                                << GL::Shader::Type::Fragment << GL::Shader::Type(0xdead);
    EXPECT_EQ(out.str(),
        "GL::Shader::Type::Vertex GL::Shader::Type::Geometry GL::Shader::Type::Fragment GL::Shader::Type(0xdead)");
}

}
