#include "Views/SceneView/Render/MeshVisualization.h"

#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Color.h>
#include <Vantrel/EngineData/Scene.h>
#include <Vantrel/EngineData/SceneResources.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>

#include "Views/SceneView/ViewCamera.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Edges and normals.
constexpr Magnum::Shaders::MeshVisualizerGL3D::Flags ShownOfMeshes{Magnum::Shaders::MeshVisualizerGL3D::Flag(513)};

constexpr Color4 FaceColor{0.18f, 0.20f, 0.23f, 1.0f};
constexpr Color4 EdgeColor{0.72f, 0.78f, 0.85f, 1.0f};

bool isDoubleSided(const SceneResources& resources, Id material) {
    if(material >= resources.materials.size()) return false;
    const Id pipeline = resources.materials[material].pipeline;
    return pipeline < resources.pipelines.size() &&
        resources.pipelines[pipeline].header.flags & PipelineHeader::DoubleSided;
}

}

MeshVisualization::MeshVisualization():
    _shader{Magnum::Shaders::MeshVisualizerGL3D::Configuration{}.setFlags(ShownOfMeshes)} {}

void MeshVisualization::draw(Scene& scene, const SceneResources& resources, WebGL2Renderer& renderer,
    const ViewCamera& camera, Float normalLength) {
    ViewManager& views = camera.views();
    const Matrix4 toView = views.viewTransform(camera.view()).toMatrix();
    _shader.setProjectionMatrix(views.projectionMatrix(camera.view()))
        .setViewportSize(Vector2{camera.viewportSize()})
        .setColor(FaceColor)
        .setWireframeColor(EdgeColor)
        .setLineLength(normalLength);

    const auto meshes = scene.meshes.meshes(), materials = scene.meshes.materials();
    const auto objects = scene.meshes.objects();
    for(const Id slot: renderer.visibleMeshes()) {
        GL::Mesh* const mesh = renderer.mesh(meshes[slot]);
        if(!mesh) continue;
        const Matrix4 transformation = toView * scene.absoluteTransformationAsMatrix(objects[slot]);
        GL::Renderer::setFeature(GL::Renderer::Feature::FaceCulling, !isDoubleSided(resources, materials[slot]));
        // A mirrored mesh is seen from the other side of its triangles.
        GL::Renderer::setFrontFace(transformation.determinant() < 0.0f ? GL::Renderer::FrontFace::ClockWise
                                                                       : GL::Renderer::FrontFace::CounterClockWise);
        _shader.setTransformationMatrix(transformation).setNormalMatrix(transformation.normalMatrix()).draw(*mesh);
    }
    GL::Renderer::setFrontFace(GL::Renderer::FrontFace::CounterClockWise);
    GL::Renderer::enable(GL::Renderer::Feature::FaceCulling);
}

} // namespace VantrelEngine
