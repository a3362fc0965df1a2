#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/GL/Mesh.h>

namespace VantrelEngine {

// Runs a fragment shader of the engine's own once for each pixel of the viewport.
class FullScreenProgram: public Magnum::GL::AbstractShaderProgram {
public:
    // From a file of the compiled-in assets, that is expected to compile.
    explicit FullScreenProgram(Corrade::Containers::StringView fragmentFile);

    // Of one of its textures, which it is expected to have.
    FullScreenProgram& setTextureUnit(Corrade::Containers::StringView name, Magnum::Int unit);

    void draw() { AbstractShaderProgram::draw(_triangle); }

private:
    Magnum::GL::Mesh _triangle;
};

} // namespace VantrelEngine
