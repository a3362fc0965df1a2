#include "Golden/GoldenProject.h"

#include <Corrade/Containers/StringStl.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <VantrelHost/ResourceCompiler.h>
#include <gtest/gtest.h>

#include "Renderer/DefaultAssets/DefaultAssets.h"

namespace VantrelTest {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;

namespace {

template<class T> Containers::ArrayView<const T> view(const std::vector<T>& values) {
    return {values.data(), values.size()};
}

} // namespace

GoldenProject::GoldenProject(const std::string& file, const Vector2i& size): _size{size}, _target{size} {
    _session.data().resources().addAsset("default", std::make_unique<DefaultAssets>());
    const OpenedProject opened = _session.open(file);
    EXPECT_EQ(opened.error, "");
    EXPECT_TRUE(opened.problems.empty()) << file;
    EXPECT_TRUE(_session.resourceCompiler().problems().empty()) << file;
    tellRenderer();
}

void GoldenProject::set(const char* pointer, const char* json) {
    JsonDocument value;
    ASSERT_FALSE(value.Parse(json).HasParseError()) << json;
    _session.changes().recordChange(pointer, &value, false);
}

Id GoldenProject::camera() {
    const ViewManager& views = _session.data().scene().main().views;
    EXPECT_EQ(views.numActiveComponents(), 1u);
    return views.components()[0];
}

VantrelProof::Picture GoldenProject::draw() {
    _session.update();
    tellRenderer();
    Scene& scene = _session.data().scene().main();
    ViewManager& views = scene.views;
    scene.computeAbsoluteTransformations();
    const Id view = camera();
    views.viewport(view) = {{}, _size};
    views.projectionMatrix(view) = Matrix4::perspectiveProjection(
        Deg{views.fov(view)}, Vector2{_size}.aspectRatio(), views.near(view), views.far(view));
    views.update();

    GL::Framebuffer& framebuffer = _target.multisampled();
    views.targetFramebuffer(view) = &framebuffer;
    framebuffer.bind();
    framebuffer.clearColor(0, _renderer.clearColor()).clearDepth(1.0f);
    _renderer.setViewportSize(view, _size);
    _renderer.updateSkinning(scene);
    _renderer.updateMeshVisibility(scene, views.cullingMatrix(view));
    _renderer.updateLights(scene);
    _renderer.updateShadows(scene, views);
    _renderer.render(views, scene);
    scene.resetChanged();
    _target.resolve();

    const Image2D image = _target.read();
    VantrelProof::Picture picture{_size.x(), _size.y(), {}};
    const std::size_t stride = std::size_t(_size.x()) * 4;
    for(Int y = _size.y() - 1; y >= 0; --y) {
        const auto* const row = reinterpret_cast<const std::uint8_t*>(image.data().data()) + std::size_t(y) * stride;
        picture.pixels.insert(picture.pixels.end(), row, row + stride);
    }
    return picture;
}

// All of it: what changed is the business of others.
void GoldenProject::tellRenderer() {
    EditorSceneData& data = _session.data().scene();
    const SceneResources& resources = data.resources();
    const ValueAccess rendering = ValueAccess{_session.data().project()}["settings"]["rendering"];
    _renderer.setLayoutFlags(resources.meshLayoutFlags);
    _renderer.setClearColor(Color4{rendering["clearColor"].readValue().asVector4()});
    _renderer.setFrustumCullingEnabled(true);
    _renderer.setDepthPrePassEnabled(rendering["usePreZ"].readValue().asBool());
    tellBloom();
    tellImages();
    tellPipelines();
    tellMeshes();
    _renderer.updateMaterials(view(resources.materials), view(resources.pipelines));
}

void GoldenProject::tellBloom() {
    const ValueAccess rendering = ValueAccess{_session.data().project()}["settings"]["rendering"];
    const ValueAccess bloom = rendering["bloom"];
    const bool isEnabled = bloom["enabled"].readValue().asBool();
    _renderer.setBloomEnabled(isEnabled);
    if(!isEnabled) return;
    _renderer.bloomPass()
        .setKernelSize(UnsignedInt(bloom["kernelSize"].readValue().asFloat()))
        .setPasses(UnsignedInt(bloom["passes"].readValue().asInt()))
        .setThreshold(bloom["threshold"].readValue().asFloat())
        .setIntensity(bloom["intensity"].readValue().asFloat())
        .setExposure(rendering["hdr"]["exposure"].readValue().asFloat());
}

void GoldenProject::tellImages() {
    const SceneResources& resources = _session.data().scene().resources();
    _renderer.setTextureAtlasSize({2048, 2048});
    _renderer.clearImages();
    for(std::size_t i = 1; i < resources.images.size(); ++i) {
        const SceneImage& image = resources.images[i];
        if(image.id.empty()) continue;
        ASSERT_TRUE(_renderer.reserveImage(Id(i), image.header.size));
        _renderer.textureAtlas().setImage(_renderer.textureAtlas().textureCount(), image);
    }
    for(const SceneTexture& texture: resources.textures)
        if(!texture.id.empty()) _renderer.setImageForTexture(texture, texture.header.image);
    _renderer.prepareImages();
}

std::string GoldenProject::source(const FileLink& link) {
    std::string reason;
    const auto file = _session.data().resources().read(link, 1 << 20, reason);
    EXPECT_TRUE(file) << link.file << ": " << reason;
    return file ? std::string{file->data(), file->size()} : std::string{};
}

void GoldenProject::tellPipelines() {
    const SceneResources& resources = _session.data().scene().resources();
    _renderer.clearShaders();
    _renderer.addDepthShader(source({"default", "Dynamic.vert"}));
    for(std::size_t i = 1; i < resources.pipelines.size(); ++i) {
        const ScenePipeline& pipeline = resources.pipelines[i];
        if(pipeline.id.empty()) continue;
        const SceneShader& shader = resources.shaders[pipeline.shader];
        std::string defines;
        for(const std::string& feature: pipeline.features) defines += "#define " + feature + "\n";
        _renderer.addPipeline(Id(i), pipeline, defines + source(shader.vertex), defines + source(shader.fragment));
    }
}

void GoldenProject::tellMeshes() {
    const SceneResources& resources = _session.data().scene().resources();
    Scene& scene = _session.data().scene().main();
    _renderer.prepareBatches(view(resources.meshes), scene.texts);
    _renderer.updateMeshes(view(resources.meshes));
    std::vector<Draw> draws;
    for(std::size_t i = 1; i < scene.meshes.groupsCount(); ++i)
        draws.push_back({Draw::Kind::Meshes, scene.meshes.groupPipeline(i), Id(i), scene.meshes.isGroupSkinned(i)});
    _renderer.prepareDrawsList(view(draws));
}

} // namespace VantrelTest
