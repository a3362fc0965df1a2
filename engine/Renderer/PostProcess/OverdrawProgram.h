#pragma once

#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/Math/Color.h>

namespace VantrelEngine {

// Fills the viewport with one colour, by the shaders "FullscreenTriangle.vert" and "Overdraw.frag" of the engine group.
class OverdrawProgram: public Magnum::GL::AbstractShaderProgram {
public:
    explicit OverdrawProgram();

    // As it is to be in the framebuffer.
    OverdrawProgram& setColor(const Magnum::Color4& color);

    void draw() { AbstractShaderProgram::draw(_triangle); }

private:
    Magnum::Int _colorUniform = -1;
    Magnum::GL::Mesh _triangle;
};

} // namespace VantrelEngine
