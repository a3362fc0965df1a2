#include "Views/SceneView/Render/DebugDrawing.h"

#include <vector>

#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Shaders/GenericGL.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>

#include "Views/SceneView/ViewCamera.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Scene units.
constexpr Float AxisSize = 0.1f;

constexpr Color4 FrustumColor{1.0f, 0.85f, 0.3f, 1.0f};
constexpr Color4 BoundsColor{0.35f, 0.8f, 1.0f, 1.0f};
constexpr Color4 ShadowColor{0.8f, 0.45f, 1.0f, 1.0f};

struct ColoredPoint {
    Vector3 position;
    Color3 color;
};

Matrix4 toClip(const ViewCamera& camera) { return camera.views().cullingMatrix(camera.view()); }

}

void DebugDrawing::create() {
    _meshes.create();
    _lights.create();
}

void DebugDrawing::draw(EditorData& data, SharedState& state, const ViewCamera& camera, const FrozenCulling& frozen) {
    Scene& scene = data.scene().main();
    const Matrix4 matrix = toClip(camera);
    if(frozen.shadows) drawFrozenFrustum(data, matrix, frozen);
    if(frozen.shadows && frozen.lights.first() != frozen.lights.second()) drawFrozenShadows(data, matrix, frozen);
    _lights.draw();
    if(state.display(DebugDisplay::Objects))
        drawAxes(scene, matrix);
    else
        _axesObjects = 0;
}

void DebugDrawing::drawFrozenFrustum(EditorData& data, const Matrix4& toClip, const FrozenCulling& frozen) {
    _flat.setTransformationProjectionMatrix(toClip * frozen.matrix.inverted()).setColor(FrustumColor);
    _flat.draw(_meshes.wireCube);

    // Above all of those that were culled.
    if(!data.firstSelectedObject()) return;
    Scene& scene = data.scene().main();
    const auto meshes = scene.meshes.meshes(), objects = scene.meshes.objects();
    const std::vector<SceneMesh>& resources = data.scene().resources().meshes;
    for(std::size_t slot = 0; slot != scene.meshes.numActiveComponents(); ++slot) {
        if(!data.isSelected(objects[slot]) || meshes[slot] >= resources.size()) continue;
        const SceneMesh& mesh = resources[meshes[slot]];
        const Matrix4 center =
            toClip * scene.absoluteTransformationAsMatrix(objects[slot]) * Matrix4::translation(mesh.bounds.center());
        _flat.setColor(BoundsColor)
            .setTransformationProjectionMatrix(center * Matrix4::scaling(mesh.bounds.size() * 0.5f))
            .draw(_meshes.wireCube);
        _flat.setTransformationProjectionMatrix(center * Matrix4::scaling(Vector3{mesh.radius}))
            .draw(_meshes.wireSphere);
    }
}

void DebugDrawing::drawFrozenShadows(EditorData& data, const Matrix4& toClip, const FrozenCulling& frozen) {
    LightManager& lights = data.scene().main().lights;
    for(const ShadowsData::Light& light: frozen.shadows->lights) {
        if(!lights.isValid(light.light)) continue;
        const Id slot = lights.toIndex(light.light);
        if(slot < frozen.lights.first() || slot >= frozen.lights.second()) continue;
        for(const Matrix4& cascade: light.cascades) {
            const Matrix4 place = toClip * cascade.inverted();
            _flat.setTransformationProjectionMatrix(place).setColor(ShadowColor).draw(_meshes.wireCube);
            _vertexColor.setTransformationProjectionMatrix(place).draw(_meshes.axis);
        }
        const Matrix4 origin = data.scene().main().absoluteTransformation(lights.object(light.light)).toMatrix();
        GL::Renderer::disable(GL::Renderer::Feature::FaceCulling);
        _flat.setTransformationProjectionMatrix(toClip * origin * Matrix4::scaling(Vector3{LightMarkers::Size}))
            .setColor(ShadowColor)
            .draw(_meshes.arrow);
        GL::Renderer::enable(GL::Renderer::Feature::FaceCulling);
    }
}

void DebugDrawing::drawAxes(Scene& scene, const Matrix4& toClip) {
    const BitSetView changed = scene.changed();
    if(_axesObjects != scene.size() || changed.findFirstSet() != changed.size()) placeAxes(scene);
    if(!_axes.count()) return;
    GL::Renderer::disable(GL::Renderer::Feature::DepthTest);
    _vertexColor.setTransformationProjectionMatrix(toClip).draw(_axes);
    GL::Renderer::enable(GL::Renderer::Feature::DepthTest);
}

void DebugDrawing::placeAxes(Scene& scene) {
    std::vector<ColoredPoint> points;
    points.reserve(6 * scene.size());
    for(std::size_t i = 1; i < scene.size(); ++i) {
        // Of the same length at each object.
        const Matrix4 place = scene.absoluteTransformation(scene.toId(i)).toMatrix();
        for(std::size_t axis = 0; axis != 3; ++axis) {
            Vector3 end;
            end[axis] = AxisSize;
            Color3 color;
            color[axis] = 1.0f;
            points.push_back({place.translation(), color});
            points.push_back({place.transformPoint(end), color});
        }
    }
    if(!_axes.id()) {
        _axesVertices = GL::Buffer{};
        _axesVertices.setLabel("SceneView axes");
        _axes = GL::Mesh{GL::MeshPrimitive::Lines};
        _axes.setLabel("SceneView axes");
        _axes.addVertexBuffer(
            _axesVertices, 0, Magnum::Shaders::GenericGL3D::Position{}, Magnum::Shaders::GenericGL3D::Color3{});
    }
    _axesVertices.setData({points.data(), points.size()}, GL::BufferUsage::StreamDraw);
    _axes.setCount(Int(points.size()));
    _axesObjects = scene.size();
}

} // namespace VantrelEngine
