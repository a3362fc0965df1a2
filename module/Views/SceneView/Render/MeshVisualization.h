#pragma once

#include <Magnum/Shaders/MeshVisualizerGL.h>

namespace VantrelEngine {

class ViewCamera;
class WebGL2Renderer;
struct Scene;
struct SceneResources;

// Shows of what the visible meshes are made: the edges of their triangles, and their normals.
class MeshVisualization {
public:
    explicit MeshVisualization();

    // Into the bound framebuffer. One call a mesh. Normals have this length in scene units. Leaves face culling on.
    void draw(Scene& scene, const SceneResources& resources, WebGL2Renderer& renderer, const ViewCamera& camera,
        Magnum::Float normalLength);

private:
    Magnum::Shaders::MeshVisualizerGL3D _shader;
};

} // namespace VantrelEngine
