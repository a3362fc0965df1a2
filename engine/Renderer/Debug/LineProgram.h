#pragma once

#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix4.h>

namespace VantrelEngine {

// Draws instances of a shape, each with its own transformation, in one colour.
class LineProgram: public Magnum::GL::AbstractShaderProgram {
public:
    explicit LineProgram();

    LineProgram& setViewProjection(const Magnum::Matrix4& matrix);
    LineProgram& setColor(const Magnum::Color4& color);

private:
    Magnum::Int _viewProjection, _color;
};

} // namespace VantrelEngine
