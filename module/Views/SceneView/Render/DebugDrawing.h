#pragma once

#include <Magnum/GL/Buffer.h>
#include <Magnum/Shaders/FlatGL.h>
#include <Magnum/Shaders/VertexColorGL.h>

#include "Views/SceneView/FrozenCulling.h"
#include "Views/SceneView/Render/DebugMeshes.h"
#include "Views/SceneView/Render/LightMarkers.h"

namespace VantrelEngine {

class EditorData;
class ViewCamera;
struct Scene;
struct SharedState;

// What the editor draws over the scene for whom works on it: lights, the axes of objects, and what culling left.
class DebugDrawing {
public:
    // GL objects of shaders only.
    explicit DebugDrawing() = default;

    // Needs the GL context.
    void create();

    // Takes over the lights as they are now. Before what follows.
    void update(Scene& scene, const ViewCamera& camera) { _lights.update(scene, camera); }

    // Everything that is switched on, into the bound framebuffer, whose depth is that of the scene.
    void draw(EditorData& data, SharedState& state, const ViewCamera& camera, const FrozenCulling& frozen);

    // The shapes of the lights in the colours of their objects' ids.
    void drawLightIds() { _lights.drawIds(); }

private:
    void drawFrozenFrustum(EditorData& data, const Magnum::Matrix4& toClip, const FrozenCulling& frozen);
    void drawFrozenShadows(EditorData& data, const Magnum::Matrix4& toClip, const FrozenCulling& frozen);
    void drawAxes(Scene& scene, const Magnum::Matrix4& toClip);
    void placeAxes(Scene& scene);

    DebugMeshes _meshes;
    LightMarkers _lights;
    Magnum::Shaders::FlatGL3D _flat;
    Magnum::Shaders::VertexColorGL3D _vertexColor;
    // Of all objects in one.
    Magnum::GL::Buffer _axesVertices{Magnum::NoCreate};
    Magnum::GL::Mesh _axes{Magnum::NoCreate};
    // For how many objects, with the root, they were placed; 0 where they have to be placed again.
    std::size_t _axesObjects = 0;
};

} // namespace VantrelEngine
