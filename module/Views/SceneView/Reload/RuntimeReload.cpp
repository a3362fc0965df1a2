#include "Views/SceneView/Reload/RuntimeReload.h"

#include <algorithm>
#include <cstdlib>
#include <unordered_map>

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <Vantrel/EngineData/ValueAccess.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>

#include "AssetCompiler.h"
#include "Views/SceneView/Reload/ShaderSources.h"
#include "Views/SceneView/ViewCamera.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// What the view needs of the vertices besides what the scene has.
constexpr std::uint32_t ViewLayoutFlags = 96;

// Pixels; more is not read from a project.
constexpr Float MaxBloomKernelSize = 21.0f;

// The engine's own shader sources.
constexpr const char* EngineAsset = "default";

std::uint32_t layoutFlags(const SceneResources& resources) { return resources.meshLayoutFlags | ViewLayoutFlags; }

std::uint32_t shadowLightCount(Scene& scene) {
    std::uint32_t count = 0;
    for(const Id light: scene.lights.components().prefix(scene.lights.numActiveComponents()))
        if(scene.lights.parameters(light).z() > 0.5f) ++count;
    return count;
}

// Lights are counted one by one only where one of them changed.
PipelineCounts countsOf(EditorSceneData& scene, const ReloadSeen& seen) {
    const bool lightsChanged = scene.revisions().counter(Aspect::Lights) != std::uint32_t(seen.revision);
    return {std::uint32_t(scene.main().lights.numActiveComponents()),
        lightsChanged ? shadowLightCount(scene.main()) : seen.counts.shadowLights};
}

void expectAllTiles(const SceneImage& image) {
    if(image.header.tileCount == image.tileHashes.size()) return;
    Utility::Error{} << "SceneView::reloadRuntime(): Tile count and tile hashes array were not equal size:"
                     << image.header.tileCount << "!=" << image.tileHashes.size();
    std::abort();
}

// A material with the values by the names of the parameters that a pipeline has.
SceneMaterial materialOf(
    Id pipeline, const ScenePipeline& description, const std::unordered_map<std::string, Vector4>& values) {
    SceneMaterial material;
    material.pipeline = pipeline;
    for(const ShaderParameter& parameter: description.parameters) {
        const auto found = values.find(parameter.name);
        material.values.push_back(found == values.end() ? parameter.initial : found->second);
        material.textures.push_back(0);
    }
    return material;
}

}

void RuntimeReload::run(const ReloadTargets& targets) {
    const SceneRevisions& revisions = targets.data.scene().revisions();
    std::uint32_t reloaded;
    // Restoring what a simulation moved may change more than places, which then is reloaded, too.
    do {
        reloaded = revisions.revision();
        reload(targets);
        reloadPhysics(targets);
    } while(revisions.revision() != reloaded);

    targets.data.scene().revisions().acknowledge();
    _seen = seenNow(revisions, _counts);
}

void RuntimeReload::reload(const ReloadTargets& targets) {
    EditorSceneData& scene = targets.data.scene();
    const SceneRevisions& revisions = scene.revisions();
    const std::size_t fontCount = scene.resources().fonts.size();
    _counts = countsOf(scene, _seen);

    bool layoutChanged = targets.renderer.setLayoutFlags(layoutFlags(scene.resources()));
    ReloadPlan plan = planReload(revisions, _seen, _counts, layoutChanged, fontCount);

    if(plan.runs(ReloadStage::Shadows))
        scene.main().lights.setupShadows(scene.main(), targets.camera.views(), targets.camera.view());
    if(plan.runs(ReloadStage::Settings)) {
        reloadSettings(targets);
        layoutChanged |= targets.renderer.setLayoutFlags(layoutFlags(scene.resources()));
        plan = planReload(revisions, _seen, _counts, layoutChanged, fontCount);
    }
    if(plan.runs(ReloadStage::TextureAtlases)) reloadImages(targets);
    if(plan.runs(ReloadStage::Pipelines)) reloadPipelines(targets);
    if(plan.runs(ReloadStage::Fonts)) reloadFonts(targets, plan.updatesFonts());
    if(plan.runs(ReloadStage::Batches)) reloadBatches(targets);
    if(plan.runs(ReloadStage::Draws)) reloadDraws(targets);
    if(plan.runs(ReloadStage::Materials)) reloadMaterials(targets);
    targets.state.lastReload = describe(plan).c_str();
}

void RuntimeReload::reloadSettings(const ReloadTargets& targets) {
    WebGL2Renderer& renderer = targets.renderer;
    const ValueAccess settings = ValueAccess{targets.data.project()}["settings"];
    const ValueAccess rendering = settings["rendering"];
    renderer.setClearColor(Color4{rendering["clearColor"].readValue().asVector4()});

    ViewManager& views = targets.camera.views();
    const Id view = targets.camera.view();
    const ValueAccess camera = settings["editor"]["camera"];
    const Float near = camera["near"].readValue().asFloat(), far = camera["far"].readValue().asFloatOrInfinity();
    if(0.0f < near && near < far) {
        views.near(view) = near;
        views.far(view) = far;
    } else
        Utility::Warning{}
            << "SceneView::reloadRuntime(): settings/editor/camera: near has to be above 0 and below far, got" << near
            << "and" << far << Utility::Debug::nospace << ": both stay as they were";
    views.fov(view) = 90.0f;

    const ValueAccess bloom = rendering["bloom"];
    const Int passes = std::max(bloom["passes"].readValue().asInt(0, JsonObject::WhenMissing::Accept), 0);
    const auto kernelSize =
        UnsignedInt(std::clamp(bloom["kernelSize"].readValue().asFloat(), 0.0f, MaxBloomKernelSize));
    const Float threshold = bloom["threshold"].readValue().asFloat();
    const Float intensity = bloom["intensity"].readValue().asFloat();
    const Float exposure = rendering["hdr"]["exposure"].readValue().asFloat();
    const bool isBloomEnabled = bloom["enabled"].readValue().asBool();
    renderer.setBloomEnabled(isBloomEnabled);
    /* Kept: the exposure reaches the renderer only while bloom is on. */
    if(isBloomEnabled) {
        renderer.bloomPass()
            .setKernelSize(kernelSize)
            .setPasses(UnsignedInt(passes))
            .setThreshold(threshold)
            .setIntensity(intensity)
            .setExposure(exposure);
    }

    renderer.setDepthPrePassEnabled(rendering["usePreZ"].readValue().asBool());
    renderer.setMultiDrawEnabled(rendering["useMultiDraw"].readValue().asBool());
    renderer.setFrustumCullingEnabled(rendering["useFrustumCulling"].readValue().asBool());

    const Vector2i size = targets.camera.viewportSize();
    renderer.setViewportSize(view, {std::max(size.x(), 1), std::max(size.y(), 1)});
    renderer.setViewBufferForView(view, view);
}

void RuntimeReload::reloadImages(const ReloadTargets& targets) {
    WebGL2Renderer& renderer = targets.renderer;
    const SceneResources& resources = targets.data.scene().resources();
    const ValueAccess rendering = ValueAccess{targets.data.project()}["settings"]["rendering"];

    renderer.clearImages();
    renderer.setTextureAtlasSize(rendering["textureAtlasSize"].readValue().asVector2i());
    renderer.setCompressedTextureAtlasSize(rendering["compressedTextureAtlasSize"].readValue().asVector2i());

    for(std::size_t i = 1; i < resources.images.size(); ++i) {
        const SceneImage& image = resources.images[i];
        if(image.id.empty()) continue;
        if(image.header.isCompressed) {
            if(image.tileHashes.empty()) continue;
            expectAllTiles(image);
            renderer.reserveImage(Id(i), image.header.size, {image.tileHashes.data(), image.tileHashes.size()});
        } else if(renderer.reserveImage(Id(i), image.header.size)) {
            TextureAtlas& atlas = renderer.textureAtlas();
            atlas.setImage(atlas.textureCount(), image);
        }
    }
    for(const SceneTexture& texture: resources.textures)
        if(!texture.id.empty()) renderer.setImageForTexture(texture, texture.header.image);
    renderer.prepareImages();
}

void RuntimeReload::reloadPipelines(const ReloadTargets& targets) {
    WebGL2Renderer& renderer = targets.renderer;
    const SceneResources& resources = targets.data.scene().resources();
    const ResourceManager& files = targets.data.resources();

    renderer.clearShaders();
    targets.materials.colliderPipeline = 0;

    bool needsDepth = false, needsSkinning = false;
    for(std::size_t i = 1; i < resources.shaders.size(); ++i) {
        const ShaderHeader& header = resources.shaders[i].header;
        needsDepth |= header.stage == ShaderStage::Mesh && header.variant == 1;
        needsSkinning |= header.stage == ShaderStage::Skinning && header.variant == 0;
    }
    const std::string dynamic = shaderSource(files, {EngineAsset, "Dynamic.vert"});
    if(needsDepth) renderer.addDepthShader(dynamic);
    if(needsSkinning) renderer.addSkinningShader(dynamic);

    for(std::size_t i = 1; i < resources.pipelines.size(); ++i) {
        const ScenePipeline& pipeline = resources.pipelines[i];
        if(pipeline.id.empty()) continue;
        const std::string preamble = definesOf(pipeline.features);
        const SceneShader& shader = resources.shaders[pipeline.shader];
        renderer.addPipeline(Id(i), pipeline, preamble + shaderSource(files, shader.vertex),
            preamble + shaderSource(files, shader.fragment));
    }
    if(const Id visualizer = renderer.pipelineIndex("MeshVisualizer"))
        targets.materials.colliderPipeline = renderer.addColliderVisualizationPipeline(visualizer);

    renderer.loadPostProcessShaders();
    const std::string feedback = shaderSource(files, {EngineAsset, "TileFeedback.frag"});
    const std::string fullScreen = shaderSource(files, {EngineAsset, "FullScreenTriangle.vert"});
    renderer.addTileFeedbackShader(fullScreen, feedback, false);
    renderer.addTileFeedbackShader(fullScreen, "#define SKY\n" + feedback, true);
}

void RuntimeReload::reloadFonts(const ReloadTargets& targets, bool areThere) {
    EditorSceneData& scene = targets.data.scene();
    if(areThere) {
        targets.renderer.updateFonts({scene.resources().fonts.data(), scene.resources().fonts.size()});
        scene.main().texts.setAllDirty();
    } else
        targets.renderer.resetFonts();
}

void RuntimeReload::reloadBatches(const ReloadTargets& targets) {
    WebGL2Renderer& renderer = targets.renderer;
    EditorSceneData& scene = targets.data.scene();
    const Containers::ArrayView<const SceneMesh> meshes{
        scene.resources().meshes.data(), scene.resources().meshes.size()};

    renderer.prepareBatches(meshes, scene.main().texts);
    targets.materials.colliderBatch =
        renderer.pipelineIndex("MeshVisualizer") ? renderer.addColliderVisualizationBatch() : Id{0};
    renderer.updateMeshes(meshes);
    renderer.updateTexts(scene.main().texts);
}

void RuntimeReload::reloadDraws(const ReloadTargets& targets) {
    const MeshManager& meshes = targets.data.scene().main().meshes;
    // The first group has no pipeline.
    std::vector<Draw> draws;
    draws.reserve(meshes.groupsCount());
    for(std::size_t group = 1; group < meshes.groupsCount(); ++group)
        draws.push_back({Draw::Kind::Meshes, meshes.groupPipeline(group), Id(group), meshes.isGroupSkinned(group)});
    targets.renderer.prepareDrawsList({draws.data(), draws.size()});

    const EditorMaterials& own = targets.materials;
    if(own.colliderPipeline && own.colliderBatch)
        targets.renderer.addDraw({Draw::Kind::ColliderVisualization, own.colliderPipeline, own.colliderBatch, false});
}

void RuntimeReload::reloadMaterials(const ReloadTargets& targets) {
    WebGL2Renderer& renderer = targets.renderer;
    const SceneResources& resources = targets.data.scene().resources();
    renderer.updateMaterials({resources.materials.data(), resources.materials.size()},
        {resources.pipelines.data(), resources.pipelines.size()});

    if(const Id pipeline = renderer.pipelineIndex("MeshVisualizer")) {
        const Vector4 transparent, wire{170.0f / 255.0f, 1.0f, 170.0f / 255.0f, 1.0f};
        renderer.updateMaterial(targets.materials.colliders,
            materialOf(pipeline, resources.pipelines[pipeline], {{"color", transparent}, {"wireframeColor", wire}}));
    }
    if(const Id pipeline = renderer.pipelineIndex("Text")) {
        const Vector4 white{1.0f}, black{0.0f, 0.0f, 0.0f, 1.0f};
        renderer.updateMaterial(targets.materials.labels,
            materialOf(pipeline, resources.pipelines[pipeline], {{"color", white}, {"effectColor", black}}));
    }
}

void RuntimeReload::reloadPhysics(const ReloadTargets& targets) {
    PhysXManager& bodies = targets.data.scene().main().bodies;
    std::uint8_t& isSimulating = targets.state.display(DebugDisplay::SimulatePhysX);
    if(isSimulating) {
        if(ValueAccess{targets.data.project()}["settings"]["physx"]["enable"].readValue().asBool()) return;
        isSimulating = 0;
        Utility::Debug{} << "Stopped simulating physics";
        targets.state.assetCompiler->compileAll(true);
    }
    bodies.initComponents();
    bodies.doFalseUpdate();
}

} // namespace VantrelEngine
