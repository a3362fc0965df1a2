#include "BareGl.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include <Magnum/GL/Context.h>

namespace VantrelBench {

using namespace Magnum;

namespace {

constexpr GLsizei Samples = 4;

constexpr const char* DrawVertex = R"(#version 330
uniform mat4 transformation;
layout(location = 0) in vec3 position;
void main() { gl_Position = transformation*vec4(position, 1.0); }
)";
constexpr const char* DrawFragment = R"(#version 330
out vec4 color;
void main() { color = vec4(1.0); }
)";
constexpr const char* FetchVertex = R"(#version 330
void main() { gl_Position = vec4(gl_VertexID == 2 ? 3.0 : -1.0, gl_VertexID == 1 ? -3.0 : 1.0, 0.0, 1.0); }
)";
// The border counts, too: a fetch from outside of it would be undefined.
constexpr const char* FetchFragment = R"(#version 330
uniform sampler2D values;
uniform int spacing;
out vec2 sum;
void main() {
    ivec2 last = textureSize(values, 0) - 1;
    sum = vec2(0.0);
    for(int y = -1; y <= 1; ++y)
        for(int x = -1; x <= 1; ++x)
            sum += texelFetch(values, clamp(ivec2(gl_FragCoord.xy) + ivec2(x, y)*spacing, ivec2(0), last), 0).xy;
}
)";

// A cube's six sides, then a plane, each as two triangles of four vertices of its own.
constexpr int CubeIndices = 36, PlaneIndices = 6;

struct Shapes {
    std::vector<Vector3> vertices;
    std::vector<UnsignedInt> indices;
};

void addSide(Shapes& shapes, const Vector3& center, const Vector3& right, const Vector3& up) {
    const auto first = UnsignedInt(shapes.vertices.size());
    for(const Vector3& corner: {-right - up, right - up, right + up, up - right})
        shapes.vertices.push_back(center + corner);
    for(const UnsignedInt i: {0u, 1u, 2u, 0u, 2u, 3u}) shapes.indices.push_back(first + i);
}

Shapes cubeAndPlane() {
    Shapes shapes;
    const Vector3 x = Vector3::xAxis(), y = Vector3::yAxis(), z = Vector3::zAxis();
    const Vector3 sides[][3]{{z, x, y}, {x, -z, y}, {y, x, -z}, {-z, -x, y}, {-x, z, y}, {-y, x, z}, {{}, x, y}};
    for(const auto& side: sides) addSide(shapes, side[0], side[1], side[2]);
    return shapes;
}

GLuint bareShader(GLenum type, const char* source) {
    const GLuint shader = glCreateShader(type);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    return shader;
}

void storage(GLenum format, GLsizei samples, const Vector2i& size) {
    if(samples)
        glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, size.x(), size.y());
    else
        glRenderbufferStorage(GL_RENDERBUFFER, format, size.x(), size.y());
}

void textureStorage(GLuint texture, GLint format, GLint filter, const Vector2i& size) {
    glBindTexture(GL_TEXTURE_2D, texture);
    for(const GLenum wrap: {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T})
        glTexParameteri(GL_TEXTURE_2D, wrap, GL_CLAMP_TO_EDGE);
    for(const GLenum which: {GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER})
        glTexParameteri(GL_TEXTURE_2D, which, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
    glTexImage2D(GL_TEXTURE_2D, 0, format, size.x(), size.y(), 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
}

void attachRenderbuffer(GLenum attachment, GLuint renderbuffer) {
    glFramebufferRenderbuffer(GL_DRAW_FRAMEBUFFER, attachment, GL_RENDERBUFFER, renderbuffer);
}

void attachTexture(GLenum attachment, GLuint texture) {
    glFramebufferTexture2D(GL_DRAW_FRAMEBUFFER, attachment, GL_TEXTURE_2D, texture, 0);
}

void expectComplete() {
    if(glCheckFramebufferStatus(GL_DRAW_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE) return;
    std::fprintf(stderr, "vantrel-bench: the GL cannot render to a plain framebuffer\n");
    std::exit(1);
}

}

BareGl::BareGl() {
    GL::Context::current().resetState(GL::Context::State::EnterExternal);
    glActiveTexture(GL_TEXTURE0);
}

BareGl::~BareGl() {
    glBindVertexArray(0);
    GL::Context::current().resetState();
}

GLuint bareProgram(const char* vertexSource, const char* fragmentSource) {
    const GLuint vertex = bareShader(GL_VERTEX_SHADER, vertexSource),
                 fragment = bareShader(GL_FRAGMENT_SHADER, fragmentSource);
    const GLuint program = glCreateProgram();
    glAttachShader(program, vertex);
    glAttachShader(program, fragment);
    glLinkProgram(program);
    glDeleteShader(vertex);
    glDeleteShader(fragment);
    GLint isLinked = 0;
    glGetProgramiv(program, GL_LINK_STATUS, &isLinked);
    if(isLinked) return program;
    std::fprintf(stderr, "vantrel-bench: the GL refuses a plain program\n");
    std::exit(1);
}

BareTargets::BareTargets(const Vector2i& size): _size{size} {
    glGenFramebuffers(4, _framebuffers);
    glGenRenderbuffers(4, _renderbuffers);
    glGenTextures(3, _textures);
    constexpr std::pair<GLenum, GLsizei> Buffers[]{
        {GL_RGBA8, Samples}, {GL_DEPTH24_STENCIL8, Samples}, {GL_DEPTH24_STENCIL8, 0}, {GL_R8, Samples}};
    for(std::size_t i = 0; i != 4; ++i) {
        glBindRenderbuffer(GL_RENDERBUFFER, _renderbuffers[i]);
        storage(Buffers[i].first, Buffers[i].second, size);
    }
    constexpr GLint Formats[]{GL_RGBA8, GL_RGB8, GL_R8};
    for(std::size_t i = 0; i != 3; ++i) textureStorage(_textures[i], Formats[i], GL_LINEAR, size);

    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, _framebuffers[0]);
    attachRenderbuffer(GL_COLOR_ATTACHMENT0, _renderbuffers[0]);
    attachRenderbuffer(GL_DEPTH_STENCIL_ATTACHMENT, _renderbuffers[1]);
    expectComplete();
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, _framebuffers[1]);
    attachTexture(GL_COLOR_ATTACHMENT0, _textures[0]);
    attachTexture(GL_COLOR_ATTACHMENT1, _textures[1]);
    attachRenderbuffer(GL_DEPTH_STENCIL_ATTACHMENT, _renderbuffers[2]);
    expectComplete();
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, _framebuffers[2]);
    attachRenderbuffer(GL_COLOR_ATTACHMENT0, _renderbuffers[3]);
    expectComplete();
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, _framebuffers[3]);
    attachTexture(GL_COLOR_ATTACHMENT0, _textures[2]);
    expectComplete();
}

BareTargets::~BareTargets() {
    glDeleteFramebuffers(4, _framebuffers);
    glDeleteRenderbuffers(4, _renderbuffers);
    glDeleteTextures(3, _textures);
}

void BareTargets::bindPicture() const {
    glBindFramebuffer(GL_FRAMEBUFFER, _framebuffers[0]);
    glViewport(0, 0, _size.x(), _size.y());
}

void BareTargets::bindIds() const {
    glBindFramebuffer(GL_FRAMEBUFFER, _framebuffers[1]);
    constexpr GLenum Buffers[]{GL_NONE, GL_COLOR_ATTACHMENT1};
    glDrawBuffers(2, Buffers);
    glViewport(0, 0, _size.x(), _size.y());
}

void BareTargets::clear() const {
    bindPicture();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    bindIds();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    // What the picture is resolved to.
    glBindFramebuffer(GL_READ_FRAMEBUFFER, _framebuffers[0]);
    glDrawBuffer(GL_COLOR_ATTACHMENT0);
    glBlitFramebuffer(0, 0, _size.x(), _size.y(), 0, 0, _size.x(), _size.y(), GL_COLOR_BUFFER_BIT, GL_NEAREST);
}

BareDraws::BareDraws(GridObjects objects, std::vector<Matrix4> transformations):
    _objects{objects}, _transformations{std::move(transformations)}, _program{bareProgram(DrawVertex, DrawFragment)},
    _transformation{glGetUniformLocation(_program, "transformation")} {
    const Shapes shapes = cubeAndPlane();
    glGenVertexArrays(1, &_array);
    glBindVertexArray(_array);
    glGenBuffers(2, _buffers);
    glBindBuffer(GL_ARRAY_BUFFER, _buffers[0]);
    glBufferData(
        GL_ARRAY_BUFFER, GLsizeiptr(shapes.vertices.size() * sizeof(Vector3)), shapes.vertices.data(), GL_STATIC_DRAW);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, _buffers[1]);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, GLsizeiptr(shapes.indices.size() * sizeof(UnsignedInt)),
        shapes.indices.data(), GL_STATIC_DRAW);
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
}

BareDraws::~BareDraws() {
    glDeleteProgram(_program);
    glDeleteVertexArrays(1, &_array);
    glDeleteBuffers(2, _buffers);
}

void BareDraws::draw() const {
    glUseProgram(_program);
    glBindVertexArray(_array);
    bool isPlane = _objects == GridObjects::Backs;
    for(const Matrix4& transformation: _transformations) {
        glUniformMatrix4fv(_transformation, 1, GL_FALSE, transformation.data());
        glDrawElements(GL_TRIANGLES, isPlane ? PlaneIndices : CubeIndices, GL_UNSIGNED_INT,
            reinterpret_cast<const void*>(isPlane ? CubeIndices * sizeof(UnsignedInt) : 0));
        if(_objects == GridObjects::CubesAndPlanes) isPlane = !isPlane;
    }
}

BareNineFetches::BareNineFetches(const Vector2i& size):
    _program{bareProgram(FetchVertex, FetchFragment)}, _spacing{glGetUniformLocation(_program, "spacing")} {
    glGenVertexArrays(1, &_array);
    glGenTextures(2, _textures);
    for(const GLuint texture: _textures) textureStorage(texture, GL_RG16, GL_NEAREST, size);
    glGenFramebuffers(2, _framebuffers);
    glViewport(0, 0, size.x(), size.y());
    for(std::size_t i = 0; i != 2; ++i) {
        glBindFramebuffer(GL_FRAMEBUFFER, _framebuffers[i]);
        attachTexture(GL_COLOR_ATTACHMENT0, _textures[i]);
        expectComplete();
        glClear(GL_COLOR_BUFFER_BIT);
    }
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glDisable(GL_CULL_FACE);
}

BareNineFetches::~BareNineFetches() {
    glDeleteProgram(_program);
    glDeleteVertexArrays(1, &_array);
    glDeleteTextures(2, _textures);
    glDeleteFramebuffers(2, _framebuffers);
}

// In turn: passes that nobody reads from might not be drawn.
void BareNineFetches::draw(int spacing) {
    glBindFramebuffer(GL_FRAMEBUFFER, _framebuffers[_target]);
    _target = 1 - _target;
    glBindTexture(GL_TEXTURE_2D, _textures[_target]);
    glUseProgram(_program);
    glBindVertexArray(_array);
    glUniform1i(_spacing, spacing);
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

}
