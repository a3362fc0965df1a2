#include "BareBlur.h"

#include <string>

#include "BareGl.h"

namespace VantrelBench {

using namespace Magnum;

namespace {

constexpr const char* Vertex = R"(#version 330
out vec2 place;
void main() {
    vec2 corner = vec2(gl_VertexID == 2 ? 3.0 : -1.0, gl_VertexID == 1 ? -3.0 : 1.0);
    place = corner*0.5 + 0.5;
    gl_Position = vec4(corner, 0.0, 1.0);
}
)";

std::string fragment(int taps) {
    return "#version 330\n"
           "const int Side = " +
        std::to_string(taps / 2) +
        ";\n"
        "in vec2 place;\n"
        "uniform sampler2D values;\n"
        "uniform vec2 direction;\n"
        "out vec4 color;\n"
        "void main() {\n"
        "    vec3 sum = vec3(0.0);\n"
        "    for(int i = -Side; i <= Side; ++i) sum += texture(values, place + direction*float(i)).rgb*0.1;\n"
        "    color = vec4(sum, 1.0);\n"
        "}\n";
}

}

BareBlur::BareBlur(const Vector2i& size, int taps):
    _program{bareProgram(Vertex, fragment(taps).data())},
    _direction{glGetUniformLocation(_program, "direction")}, _size{size} {
    glGenVertexArrays(1, &_array);
    glGenTextures(2, _textures);
    glGenFramebuffers(2, _framebuffers);
    for(std::size_t i = 0; i != 2; ++i) {
        glBindTexture(GL_TEXTURE_2D, _textures[i]);
        for(const GLenum wrap: {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T})
            glTexParameteri(GL_TEXTURE_2D, wrap, GL_CLAMP_TO_EDGE);
        for(const GLenum filter: {GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER})
            glTexParameteri(GL_TEXTURE_2D, filter, GL_LINEAR);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA16F, size.x(), size.y(), 0, GL_RGBA, GL_FLOAT, nullptr);
        glBindFramebuffer(GL_FRAMEBUFFER, _framebuffers[i]);
        glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, _textures[i], 0);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    for(const GLenum feature: {GL_DEPTH_TEST, GL_BLEND, GL_CULL_FACE}) glDisable(feature);
}

BareBlur::~BareBlur() {
    glDeleteProgram(_program);
    glDeleteVertexArrays(1, &_array);
    glDeleteTextures(2, _textures);
    glDeleteFramebuffers(2, _framebuffers);
}

void BareBlur::draw() {
    glViewport(0, 0, _size.x(), _size.y());
    glUseProgram(_program);
    glBindVertexArray(_array);
    for(std::size_t i = 0; i != 2; ++i) {
        glBindTexture(GL_TEXTURE_2D, _textures[i]);
        glBindFramebuffer(GL_FRAMEBUFFER, _framebuffers[1 - i]);
        glUniform2f(_direction, i ? 0.0f : 1.0f / Float(_size.x()), i ? 1.0f / Float(_size.y()) : 0.0f);
        glDrawArrays(GL_TRIANGLES, 0, 3);
    }
}

}
