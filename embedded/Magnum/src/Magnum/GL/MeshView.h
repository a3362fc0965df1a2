#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/Implementation/DrawRange.h"
#include "Magnum/GL/OpenGL.h"

namespace Magnum::GL {

// A part of a mesh to draw. Starts with the defaults of a mesh, whatever was set on the original, and has to be given
// a count. The original has to outlive it and to stay where it is.
class CORRADE_VISIBILITY_EXPORT MeshView {
public:
    explicit MeshView(Mesh& original): _original{&original} {}

    // These are as in Mesh.
    Int count() const { return _range.count < 0 ? 0 : _range.count; }
    MeshView& setCount(Int count) {
        _range.count = count;
        return *this;
    }
    Int baseVertex() const { return _range.baseVertex; }
    MeshView& setBaseVertex(Int vertex) {
        _range.baseVertex = vertex;
        return *this;
    }
    Int instanceCount() const { return _range.instanceCount; }
    MeshView& setInstanceCount(Int count) {
        _range.instanceCount = count;
        return *this;
    }
    UnsignedInt baseInstance() const { return _range.baseInstance; }
    MeshView& setBaseInstance(UnsignedInt instance) {
        _range.baseInstance = instance;
        return *this;
    }
    GLintptr indexOffset() const { return _range.indexOffset; }
    MeshView& setIndexOffset(GLintptr offset);

private:
    friend AbstractShaderProgram;

    Mesh* _original;
    Implementation::DrawRange _range;
};

}
