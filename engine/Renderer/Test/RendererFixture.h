#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Range.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/Scene.h>
#include <Vantrel/EngineData/SceneResources.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>
#include <gmock/gmock.h>

#include "Data/Resources/MeshShape.h"
#include "Renderer/DefaultAssets/DefaultAssets.h"
#include "Support/OffscreenContext.h"

namespace VantrelTest {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using namespace Math::Literals;

// The colours of a picture by name.
constexpr std::uint32_t Nothing = 0x000000ff, Red = 0xff0000ff, Green = 0x00ff00ff, Blue = 0x0000ffff;
const Vector4 RedColor{1.0f, 0.0f, 0.0f, 1.0f}, GreenColor{0.0f, 1.0f, 0.0f, 1.0f}, BlueColor{0.0f, 0.0f, 1.0f, 1.0f};

// A scene, its resources and a camera that looks along the negative z axis at 8 by 8 units around the origin; the
// picture has 64 by 64 pixels, the origin is in its middle.
struct RendererTest: GlTest {
    static constexpr int Size = 64;

    RendererTest(): framebuffer{{{}, Vector2i{Size}}} {
        color.setStorage(GL::RenderbufferFormat::RGBA8, Vector2i{Size});
        depth.setStorage(GL::RenderbufferFormat::Depth24Stencil8, Vector2i{Size});
        framebuffer.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, color)
            .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, depth);
        cameraObject = scene.addObject(RootObject);
        scene.localTransformation(cameraObject) = DualQuaternion::translation({0.0f, 0.0f, 20.0f});
        camera = scene.views.addComponent(cameraObject);
        scene.views.projectionMatrix(camera) = Matrix4::orthographicProjection(Vector2{8.0f}, 0.1f, 100.0f);
        scene.views.targetFramebuffer(camera) = &framebuffer;
        scene.views.activate(camera);
        renderer.setViewportSize(camera, Vector2i{Size});
    }

    // Pipelines draw the parameter "color" as it is.
    Id addPipeline(const std::string& name,
        std::uint32_t flags = PipelineHeader::DepthTest | PipelineHeader::DepthWrite, std::uint8_t order = 0) {
        ScenePipeline pipeline;
        pipeline.id = pipeline.name = name;
        pipeline.shader = 1;
        pipeline.header.flags = flags;
        pipeline.header.order = order;
        pipeline.parameters.push_back({"color", ParameterType::Color, Vector4{1.0f}});
        resources.pipelines.push_back(pipeline);
        return Id(resources.pipelines.size() - 1);
    }

    Id addMaterial(Id pipeline, const Vector4& value) {
        SceneMaterial material;
        material.id = "material" + std::to_string(resources.materials.size());
        material.pipeline = pipeline;
        material.values = {value};
        material.textures = {0};
        resources.materials.push_back(material);
        return Id(resources.materials.size() - 1);
    }

    static void setData(SceneMesh& mesh, Trade::MeshData&& data) {
        const MeshBounds bounds = meshBounds(data);
        mesh.bounds = bounds.box;
        mesh.radius = bounds.radius;
        mesh.data = std::move(data);
    }

    Id addMesh(Trade::MeshData&& data) {
        SceneMesh mesh;
        mesh.id = "mesh" + std::to_string(resources.meshes.size());
        setData(mesh, std::move(data));
        resources.meshes.push_back(std::move(mesh));
        return Id(resources.meshes.size() - 1);
    }

    // A square of edges of 1 that faces the camera, of two triangles.
    static Trade::MeshData square(const Vector3& middle = {}, Float halfEdge = 0.5f) {
        Containers::Array<char> vertexData{ValueInit, 6 * sizeof(Vector3)};
        auto* const vertices = reinterpret_cast<Vector3*>(vertexData.data());
        const Vector2 corners[]{{-1, -1}, {1, -1}, {1, 1}, {-1, -1}, {1, 1}, {-1, 1}};
        for(std::size_t i = 0; i != 6; ++i) vertices[i] = middle + Vector3{corners[i] * halfEdge, 0.0f};
        return Trade::MeshData{MeshPrimitive::Triangles, std::move(vertexData),
            {Trade::MeshAttributeData{Trade::MeshAttribute::Position, VertexFormat::Vector3, 0, 6, sizeof(Vector3)}}};
    }

    // An object with a mesh.
    Id add(Id mesh, Id material, const Vector3& position, const Vector3& scaling = Vector3{1.0f}) {
        const Id object = scene.addObject(RootObject);
        move(object, position);
        scene.localScaling(object) = scaling;
        const Id component = scene.meshes.addComponent(object);
        scene.meshes.mesh(component) = mesh;
        scene.meshes.material(component) = material;
        scene.meshes.setGroup(component, resources.materials[material].pipeline, 0);
        scene.meshes.activate(component);
        return object;
    }

    void move(Id object, const Vector3& position) {
        scene.localTransformation(object) = DualQuaternion::translation(position);
        scene.setDirty(object);
    }

    // Tells the renderer everything.
    void tell() {
        renderer.setLayoutFlags(resources.meshLayoutFlags);
        tellPipelines();
        tellMeshes();
        tellDraws();
        renderer.updateMaterials(view(resources.materials), view(resources.pipelines));
    }
    void tellPipelines() {
        renderer.clearShaders();
        const Containers::StringView vertex = defaultAsset("Dynamic.vert");
        const std::string_view source{vertex.data(), vertex.size()};
        renderer.addDepthShader(source);
        for(std::size_t i = 1; i != resources.pipelines.size(); ++i)
            renderer.addPipeline(Id(i), resources.pipelines[i], source, fragment);
    }
    void tellMeshes() {
        renderer.prepareBatches(view(resources.meshes), scene.texts);
        renderer.updateMeshes(view(resources.meshes));
    }
    void tellDraws() {
        std::vector<Draw> draws;
        for(std::size_t i = 0; i != scene.meshes.groupsCount(); ++i)
            draws.push_back({Draw::Kind::Meshes, scene.meshes.groupPipeline(i), Id(i), scene.meshes.isGroupSkinned(i)});
        renderer.prepareDrawsList(view(draws));
    }

    void update() {
        scene.computeAbsoluteTransformations();
        scene.views.update();
        renderer.updateMeshVisibility(scene, scene.views.cullingMatrix(camera));
        renderer.updateLights(scene);
        scene.resetChanged();
    }
    void clear(const Color4& with = Color4{0.0f, 1.0f}) {
        RendererState{}.apply();
        framebuffer.clearColor(0, with).clearDepthStencil(1.0f, 0).bind();
    }
    // A frame; the picture row after row from the bottom, as 0xRRGGBBAA.
    std::vector<std::uint32_t> frame() {
        update();
        clear();
        renderer.render(scene.views, scene);
        return pixels();
    }
    std::vector<std::uint32_t> ids() {
        clear(Color4{1.0f});
        renderer.drawObjectIds(scene.views, camera, scene);
        return pixels();
    }

    std::vector<std::uint32_t> pixels() {
        const Image2D image = framebuffer.read(framebuffer.viewport(), Image2D{PixelFormat::RGBA8Unorm});
        std::vector<std::uint32_t> result;
        for(std::size_t i = 0; i != image.data().size(); i += 4) {
            std::uint32_t pixel = 0;
            for(int channel = 0; channel != 4; ++channel)
                pixel = pixel << 8 | static_cast<unsigned char>(image.data()[i + channel]);
            result.push_back(pixel);
        }
        return result;
    }
    std::vector<float> depths() {
        const Image2D image = framebuffer.read(framebuffer.viewport(), Image2D{PixelFormat::Depth32F});
        std::vector<float> result(image.data().size() / sizeof(float));
        std::copy_n(image.data().data(), image.data().size(), reinterpret_cast<char*>(result.data()));
        return result;
    }
    // In units of the scene.
    static std::uint32_t at(const std::vector<std::uint32_t>& picture, Float x, Float y) {
        return picture[std::size_t((y + 4.0f) * Size / 8.0f) * Size + std::size_t((x + 4.0f) * Size / 8.0f)];
    }

    template<class T> static Containers::ArrayView<const T> view(const std::vector<T>& list) {
        return {list.data(), list.size()};
    }

    Scene scene;
    SceneResources resources;
    WebGL2Renderer renderer;
    GL::Renderbuffer color, depth;
    GL::Framebuffer framebuffer;
    Id cameraObject, camera;
    std::string fragment = "void main() { fragmentColor = material_color(); }\n";
};

// What a function prints on the warning and on the error output.
template<class Function> std::string linesOf(Function&& function) {
    std::ostringstream out;
    {
        Corrade::Utility::Error error{&out};
        Corrade::Utility::Warning warning{&out};
        function();
    }
    return out.str();
}

} // namespace VantrelTest
