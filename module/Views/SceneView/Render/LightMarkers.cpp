#include "Views/SceneView/Render/LightMarkers.h"

#include <cstring>
#include <utility>

#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Functions.h>
#include <Vantrel/EngineData/Scene.h>

#include "Views/SceneView/Render/DebugMeshes.h"
#include "Views/SceneView/ViewCamera.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

Color4 idColor(Id object) { return {(object & 0xff) / 255.0f, (object >> 8) / 255.0f, 0.0f, 1.0f}; }

// As bright as the light is in its brightest channel; a light of any intensity is to be seen.
Color4 markerColor(const Vector4& color) {
    const Vector3 rgb = color.xyz();
    const Float brightest = rgb.max();
    return Color4{brightest > 0.0f ? Color3{rgb / brightest} : Color3{0.35f}, 1.0f};
}

}

void LightMarkers::create() {
    _spheres.create(lowSphereMesh());
    _arrows.create(arrowMesh());
    _program = MarkerProgram{};
}

void LightMarkers::Shape::create(GL::Mesh&& shape) {
    uploaded.clear();
    places = GL::Buffer{};
    places.setLabel("SceneView light markers");
    mesh = std::move(shape);
    mesh.setLabel("SceneView light markers")
        .addVertexBufferInstanced(
            places, 1, 0, MarkerProgram::Transformation{}, MarkerProgram::Color{}, MarkerProgram::IdColor{});
}

// Bit for bit: numbers that are nearly equal are others, too.
bool LightMarkers::Shape::isUploaded() const {
    return markers.size() == uploaded.size() &&
        std::memcmp(markers.data(), uploaded.data(), markers.size() * sizeof(Marker)) == 0;
}

std::size_t LightMarkers::Shape::upload() {
    mesh.setInstanceCount(Int(markers.size()));
    if(markers.empty() || isUploaded()) return 0;
    places.setData({markers.data(), markers.size()}, GL::BufferUsage::StreamDraw);
    uploaded = markers;
    return markers.size() * sizeof(Marker);
}

std::size_t LightMarkers::update(Scene& scene, const ViewCamera& camera) {
    _spheres.markers.clear();
    _arrows.markers.clear();
    const Matrix4 toClip = camera.views().cullingMatrix(camera.view());
    for(const Id light: scene.lights.components().prefix(scene.lights.numActiveComponents())) {
        const Id object = scene.lights.object(light);
        const Matrix4 place = scene.absoluteTransformation(object).toMatrix() * Matrix4::scaling(Vector3{Size});
        Shape& shape = scene.lights.lightType(light) == LightType::Point ? _spheres : _arrows;
        shape.markers.push_back({toClip * place, markerColor(scene.lights.color(light)), idColor(object)});
    }
    return _spheres.upload() + _arrows.upload();
}

void LightMarkers::draw(bool showsIds) {
    GL::Renderer::disable(GL::Renderer::Feature::FaceCulling);
    for(Shape* const shape: {&_spheres, &_arrows})
        if(!shape->markers.empty()) _program.setShowsIds(showsIds).draw(shape->mesh);
    GL::Renderer::enable(GL::Renderer::Feature::FaceCulling);
}

} // namespace VantrelEngine
