#pragma once

#include <Magnum/GL/Mesh.h>

namespace VantrelEngine {

// What the editor draws besides the scene, of size 1.
struct DebugMeshes {
    // No GL objects.
    explicit DebugMeshes() = default;

    // Needs the GL context.
    void create();

    // Solid.
    Magnum::GL::Mesh lowSphere{Magnum::NoCreate};
    // Solid, from the origin down the negative y axis; the mirrored faces want no culling.
    Magnum::GL::Mesh arrow{Magnum::NoCreate};
    // Lines; the axes with colours.
    Magnum::GL::Mesh wireSphere{Magnum::NoCreate};
    Magnum::GL::Mesh axis{Magnum::NoCreate};
    Magnum::GL::Mesh wireCube{Magnum::NoCreate};
};

} // namespace VantrelEngine
