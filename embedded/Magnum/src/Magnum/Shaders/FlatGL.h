#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Magnum/GL/GL.h"
#include "Magnum/Shaders/GenericGL.h"
#include "Magnum/Shaders/Program.h"

namespace Magnum::Shaders {

// Unlit drawing with one colour, by default white. The colours of the vertices and the texture, where enabled, are
// multiplied with it.
class CORRADE_VISIBILITY_EXPORT FlatGL3D: public Implementation::Program {
public:
    enum class Flag : UnsignedShort {
        Textured = 1,
        // Fragments whose final alpha is not above the mask are discarded.
        AlphaMask = 2,
        VertexColor = 4,
        // Needs Textured.
        TextureTransformation = 8,
        // The object id is written to GenericGL3D::ObjectIdOutput.
        ObjectId = 16
    };
    typedef Containers::EnumSet<Flag> Flags;
    typedef Implementation::Configuration<Flags> Configuration;

    // Expects a current GL context.
    explicit FlatGL3D(const Configuration& configuration = Configuration{});
    // Without a GL object; only to be moved into.
    explicit FlatGL3D(NoCreateT) noexcept: Program{NoCreate} {}

    Flags flags() const { return _flags; }

    // From object space to clip space; identity by default.
    FlatGL3D& setTransformationProjectionMatrix(const Matrix4& matrix) {
        return set(*this, _transformationProjectionMatrix, matrix);
    }
    FlatGL3D& setColor(const Color4& color) { return set(*this, _color, color); }

    // The setters below expect the flag that they are about.
    FlatGL3D& bindTexture(GL::Texture2D& texture);
    FlatGL3D& setTextureMatrix(const Matrix3& matrix) { // identity by default
        return set(*this, {_flags >= Flag::TextureTransformation, "FlatGL::setTextureMatrix", "texture transformation"},
            _textureMatrix, matrix);
    }
    FlatGL3D& setAlphaMask(Float mask) { // 0.5 by default
        return set(*this, {_flags >= Flag::AlphaMask, "FlatGL::setAlphaMask", "alpha mask"}, _alphaMask, mask);
    }
    FlatGL3D& setObjectId(UnsignedInt id) {
        return set(*this, {_flags >= Flag::ObjectId, "FlatGL::setObjectId", "object ID"}, _objectId, id);
    }

    MAGNUM_GL_ABSTRACTSHADERPROGRAM_SUBCLASS_DRAW_IMPLEMENTATION(FlatGL3D)

private:
    Flags _flags;
    Int _transformationProjectionMatrix = -1, _color = -1, _textureMatrix = -1, _alphaMask = -1, _objectId = -1;
};

CORRADE_ENUMSET_OPERATORS(FlatGL3D::Flags)

}
