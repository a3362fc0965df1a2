#pragma once

#include <Magnum/GL/Mesh.h>

namespace VantrelEngine {

// Solid, of size 1.
Magnum::GL::Mesh lowSphereMesh();
// From the origin down the negative y axis; the mirrored faces want no culling.
Magnum::GL::Mesh arrowMesh();

// What the editor draws besides the scene, of size 1.
struct DebugMeshes {
    // No GL objects.
    explicit DebugMeshes() = default;

    // Needs the GL context.
    void create();

    // As arrowMesh().
    Magnum::GL::Mesh arrow{Magnum::NoCreate};
    // Lines; the axes with colours.
    Magnum::GL::Mesh wireSphere{Magnum::NoCreate};
    Magnum::GL::Mesh axis{Magnum::NoCreate};
    Magnum::GL::Mesh wireCube{Magnum::NoCreate};
};

} // namespace VantrelEngine
