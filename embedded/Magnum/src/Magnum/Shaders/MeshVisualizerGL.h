#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Magnum/GL/GL.h"
#include "Magnum/Shaders/GenericGL.h"
#include "Magnum/Shaders/Program.h"

namespace Magnum::Shaders {

// Shows how a mesh is made: the edges of its triangles, the normals of their corners, or its id as a colour.
class CORRADE_VISIBILITY_EXPORT MeshVisualizerGL3D: public Implementation::Program {
public:
    // Wireframe and NormalDirection draw meshes of triangles only.
    enum class Flag : UnsignedInt {
        // Triangles filled with the colour, their edges drawn over it in the wireframe colour.
        Wireframe = 1,
        // A blue line from each corner of a triangle along its normal. Its outline is smooth unless the edges are
        // drawn too, and fades to transparent black, to be blended as premultiplied.
        NormalDirection = 512,
        // Filled with the colour that the object id has in the colour map, times the colour.
        ObjectId = 4096
    };
    typedef Containers::EnumSet<Flag> Flags;
    typedef Implementation::Configuration<Flags> Configuration;

    // Expects a current GL context and at least one flag.
    explicit MeshVisualizerGL3D(const Configuration& configuration);
    // Without a GL object; only to be moved into.
    explicit MeshVisualizerGL3D(NoCreateT) noexcept: Program{NoCreate} {}

    Flags flags() const { return _flags; }

    // From object space to camera space, and from camera space to clip space; identity by default.
    MeshVisualizerGL3D& setTransformationMatrix(const Matrix4& matrix) {
        return set(*this, _transformationMatrix, matrix);
    }
    MeshVisualizerGL3D& setProjectionMatrix(const Matrix4& matrix) { return set(*this, _projectionMatrix, matrix); }
    // In pixels. To be set before edges or normals are drawn, and whenever it changes.
    MeshVisualizerGL3D& setViewportSize(const Vector2& size) { return set(*this, _viewportSize, size); }

    // For the edges and the id.
    MeshVisualizerGL3D& setColor(const Color4& color) { // white by default
        return set(*this,
            {_flags >= Flag::Wireframe || _flags >= Flag::ObjectId, "MeshVisualizerGL::setColor",
                "wireframe or object/vertex/primitive ID"},
            _color, color);
    }

    // For the edges. The width is that of the line where two triangles meet.
    MeshVisualizerGL3D& setWireframeColor(const Color4& color) { // opaque black by default
        return set(*this, {_flags >= Flag::Wireframe, "MeshVisualizerGL::setWireframeColor", "wireframe"},
            _wireframeColor, color);
    }
    MeshVisualizerGL3D& setWireframeWidth(Float pixels) { // 1
        return set(*this, {_flags >= Flag::Wireframe, "MeshVisualizerGL::setWireframeWidth", "wireframe"},
            _wireframeWidth, pixels);
    }

    // For the normals. The length is measured in camera space.
    MeshVisualizerGL3D& setNormalMatrix(const Matrix3x3& matrix) {
        return set(*this, {_flags >= Flag::NormalDirection, "MeshVisualizerGL3D::setNormalMatrix", "TBN direction"},
            _normalMatrix, matrix);
    }
    MeshVisualizerGL3D& setLineWidth(Float pixels) { // 1 by default
        return set(*this, {_flags >= Flag::NormalDirection, "MeshVisualizerGL3D::setLineWidth", "TBN direction"},
            _lineWidth, pixels);
    }
    MeshVisualizerGL3D& setLineLength(Float length) { // 1
        return set(*this, {_flags >= Flag::NormalDirection, "MeshVisualizerGL3D::setLineLength", "TBN direction"},
            _lineLength, length);
    }

    // For the edges and the normals: the width of the band in which a line fades out, half of it outside of the line.
    MeshVisualizerGL3D& setSmoothness(Float pixels) { // 2 by default
        return set(*this,
            {_flags >= Flag::Wireframe || _flags >= Flag::NormalDirection, "MeshVisualizerGL3D::setSmoothness",
                "wireframe or TBN direction"},
            _smoothness, pixels);
    }

    // For the id: it has the colour at the horizontal coordinate offset + scale id; (1/512, 1/256) by default.
    MeshVisualizerGL3D& setColorMapTransformation(Float offset, Float scale) {
        return set(*this,
            {_flags >= Flag::ObjectId, "MeshVisualizerGL::setColorMapTransformation", "object/vertex/primitive ID"},
            _colorMapTransformation, Vector2{offset, scale});
    }
    MeshVisualizerGL3D& bindColorMapTexture(GL::Texture2D& texture);
    MeshVisualizerGL3D& setObjectId(UnsignedInt id) {
        return set(*this, {_flags >= Flag::ObjectId, "MeshVisualizerGL::setObjectId", "object ID"}, _objectId, id);
    }

    MAGNUM_GL_ABSTRACTSHADERPROGRAM_SUBCLASS_DRAW_IMPLEMENTATION(MeshVisualizerGL3D)

private:
    Flags _flags;
    Int _transformationMatrix = -1, _projectionMatrix = -1, _normalMatrix = -1, _viewportSize = -1;
    Int _color = -1, _wireframeColor = -1, _wireframeWidth = -1, _lineWidth = -1, _lineLength = -1, _smoothness = -1;
    Int _colorMapTransformation = -1, _objectId = -1;
};

CORRADE_ENUMSET_OPERATORS(MeshVisualizerGL3D::Flags)

}
