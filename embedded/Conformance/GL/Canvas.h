#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Version.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Range.h>
#include <Magnum/PixelFormat.h>

namespace Conformance {

using namespace Corrade;
using namespace Magnum;
using namespace Math::Literals;

// 0xRRGGBBAA of every pixel, row after row from the bottom.
inline std::vector<std::uint32_t> readPixels(GL::AbstractFramebuffer& framebuffer, const Range2Di& rectangle) {
    const Image2D image = framebuffer.read(rectangle, Image2D{PixelFormat::RGBA8Unorm});
    std::vector<std::uint32_t> pixels;
    for(std::size_t i = 0; i + 3 < image.data().size(); i += 4) {
        std::uint32_t pixel = 0;
        for(int channel = 0; channel != 4; ++channel)
            pixel = pixel << 8 | static_cast<unsigned char>(image.data()[i + channel]);
        pixels.push_back(pixel);
    }
    return pixels;
}

// An RGBA8 framebuffer with depth and stencil, cleared to zeros and bound.
struct Canvas {
    explicit Canvas(const Vector2i& size): framebuffer{{{}, size}} {
        color.setStorage(GL::RenderbufferFormat::RGBA8, size);
        depthStencil.setStorage(GL::RenderbufferFormat::Depth24Stencil8, size);
        framebuffer.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, color)
            .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, depthStencil)
            .clearColor(0, Color4{0.0f, 0.0f})
            .clearDepthStencil(1.0f, 0);
        framebuffer.bind();
    }

    std::vector<std::uint32_t> pixels() { return readPixels(framebuffer, framebuffer.viewport()); }
    std::uint32_t pixel(const Vector2i& position) {
        return readPixels(framebuffer, Range2Di::fromSize(position, Vector2i{1}))[0];
    }

    GL::Framebuffer framebuffer;
    GL::Renderbuffer color;
    GL::Renderbuffer depthStencil;
};

// A program of two sources, with what subclasses see made public.
struct Program: GL::AbstractShaderProgram {
    using GL::AbstractShaderProgram::attachShader;
    using GL::AbstractShaderProgram::attachShaders;
    using GL::AbstractShaderProgram::bindAttributeLocation;
    using GL::AbstractShaderProgram::bindFragmentDataLocation;
    using GL::AbstractShaderProgram::checkLink;
    using GL::AbstractShaderProgram::link;
    using GL::AbstractShaderProgram::setUniform;
    using GL::AbstractShaderProgram::setUniformBlockBinding;
    using GL::AbstractShaderProgram::submitLink;
    using GL::AbstractShaderProgram::uniformBlockIndex;
    using GL::AbstractShaderProgram::uniformLocation;

    explicit Program() = default;
    explicit Program(NoCreateT): GL::AbstractShaderProgram{NoCreate} {}
    explicit Program(const std::string& vertexSource, const std::string& fragmentSource) {
        GL::Shader vertex{GL::Version::GL330, GL::Shader::Type::Vertex};
        GL::Shader fragment{GL::Version::GL330, GL::Shader::Type::Fragment};
        vertex.addSource(vertexSource.c_str());
        fragment.addSource(fragmentSource.c_str());
        ready = vertex.compile() && fragment.compile();
        attachShader(vertex);
        attachShader(fragment);
        ready = link() && ready;
    }

    bool ready = false;
};

// Covers the viewport with the vertices 0 to 2 of a mesh without buffers, at a depth, in a color.
struct FlatProgram: Program {
    explicit FlatProgram():
        Program{"uniform float depth;\n"
                "void main() { gl_Position = vec4(vec2(gl_VertexID & 1, gl_VertexID >> 1)*4.0 - 1.0, depth, 1.0); }\n",
            "uniform vec4 color;\n"
            "out vec4 result;\n"
            "void main() { result = color; }\n"} {
        _depth = uniformLocation("depth");
        _color = uniformLocation("color");
    }

    void fill(const Color4& color, Float depth = 0.0f) {
        setUniform(_color, color);
        setUniform(_depth, depth);
        draw(GL::Mesh{GL::MeshPrimitive::Triangles}.setCount(3));
    }

private:
    Int _depth;
    Int _color;
};

}
