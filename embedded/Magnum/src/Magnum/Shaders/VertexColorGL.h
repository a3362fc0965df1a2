#pragma once

#include "Magnum/Shaders/GenericGL.h"
#include "Magnum/Shaders/Program.h"

namespace Magnum::Shaders {

// Unlit drawing with the colours of the vertices; where they have three components, alpha is 1.
class CORRADE_VISIBILITY_EXPORT VertexColorGL3D: public Implementation::Program {
public:
    // Expects a current GL context.
    explicit VertexColorGL3D();
    // Without a GL object; only to be moved into.
    explicit VertexColorGL3D(NoCreateT) noexcept: Program{NoCreate} {}

    // From object space to clip space; identity by default.
    VertexColorGL3D& setTransformationProjectionMatrix(const Matrix4& matrix) {
        return set(*this, _transformationProjectionMatrix, matrix);
    }

    MAGNUM_GL_ABSTRACTSHADERPROGRAM_SUBCLASS_DRAW_IMPLEMENTATION(VertexColorGL3D)

private:
    Int _transformationProjectionMatrix = -1;
};

}
