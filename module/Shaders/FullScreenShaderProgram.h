#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine::Shaders {

// Base of the programs that run a fragment shader once for each pixel of the viewport. The fragment shader is given
// "textureCoordinates", from (0, 0) to (1, 1), and may have a uniform vec4 "viewportOffsetSize": offset of the viewport
// and, in zw, its size, in pixels. To be used with the current GL context only.
class FullScreenShaderProgram: public Magnum::GL::AbstractShaderProgram {
public:
    // Compiles the fragment shader, which has its sources but is not compiled, and links it; says so on the debug
    // output by the name. What does not compile or link is reported by the GL library, and draws nothing useful. The
    // caller goes on owning the fragment shader, which is of no use to the program once this has returned.
    explicit FullScreenShaderProgram(Corrade::Containers::StringView name, Magnum::GL::Shader&& fragment);

    // In pixels. Without effect if the fragment shader does not ask for it.
    FullScreenShaderProgram& setViewportOffsetSize(const Magnum::Vector2& offset, const Magnum::Vector2& size);

    // Draws over the whole viewport of the bound framebuffer.
    FullScreenShaderProgram& draw();

private:
    Magnum::Int _viewportOffsetSizeUniform = -1;
    Magnum::GL::Mesh _mesh{Magnum::GL::MeshPrimitive::Triangles};
};

}
