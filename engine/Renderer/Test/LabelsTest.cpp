#include <functional>

#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/OpenGL.h>

#include "Renderer/Test/RendererFixture.h"

namespace {

using namespace VantrelTest;
using testing::IsEmpty;
using testing::Not;

// Of all objects of a kind that the context has: the name is "" where there is none.
std::vector<std::string> labelsOf(GLenum kind, const std::function<GLboolean(GLuint)>& isThere) {
    std::vector<std::string> labels;
    for(GLuint object = 1; object != 1000; ++object) {
        if(!isThere(object)) continue;
        char label[256]{};
        glGetObjectLabel(kind, object, sizeof(label), nullptr, label);
        labels.push_back(label);
    }
    return labels;
}

TEST_F(RendererTest, EverythingInVideoMemoryHasAName) {
    // The GL would refuse it whole.
    const Id material = addMaterial(addPipeline(std::string(1000, 'x')), RedColor), mesh = addMesh(square());
    add(mesh, material, {});
    tell();
    renderer.setBloomEnabled(true);
    frame();
    renderer.beginOverdrawTracking();
    frame();
    const struct {
        GLenum kind;
        std::function<GLboolean(GLuint)> isThere;
    } kinds[]{{GL_BUFFER, [](GLuint object) { return glIsBuffer(object); }},
        {GL_TEXTURE, [](GLuint object) { return glIsTexture(object); }},
        {GL_PROGRAM, [](GLuint object) { return glIsProgram(object); }}};
    for(const auto& kind: kinds) {
        const std::vector<std::string> labels = labelsOf(kind.kind, kind.isThere);
        EXPECT_THAT(labels, Not(IsEmpty()));
        EXPECT_THAT(labels, testing::Each(Not(IsEmpty())));
    }
    EXPECT_EQ(renderer.mesh(mesh)->label(), "Renderer mesh");
    EXPECT_EQ(GL::Renderer::error(), GL::Renderer::Error::NoError);
}

}
