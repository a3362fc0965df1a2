#pragma once

#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix4.h>

namespace VantrelEngine {

// Draws instances of a shape, each at its own place and in one of its two colours.
class MarkerProgram: public Magnum::GL::AbstractShaderProgram {
public:
    typedef Magnum::GL::Attribute<2, Magnum::Color4> Color;
    typedef Magnum::GL::Attribute<3, Magnum::Color4> IdColor;
    // From the shape to clip space.
    typedef Magnum::GL::Attribute<8, Magnum::Matrix4> Transformation;

    explicit MarkerProgram();
    explicit MarkerProgram(Magnum::NoCreateT): AbstractShaderProgram{Magnum::NoCreate} {}

    MarkerProgram& setShowsIds(bool showsIds);

private:
    Magnum::Int _showsIds = -1;
};

} // namespace VantrelEngine
