#include "Views/SceneView/Reload/RuntimeReload.h"

#include <algorithm>
#include <memory>

#include <Vantrel/EngineData/ResourceManager.h>

#include "Data/Test/SessionFixture.h"
#include "RendererRecorder.h"
#include "Views/SceneView/ViewCamera.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;
using VantrelTest::RendererRecorder;

using Calls = std::vector<std::string>;

// What each stage of a new project asks for.
const Calls LayoutCalls{"setLayoutFlags 96"};
const Calls SettingsCalls{"setClearColor 0.1 0.1 0.12 1", "setBloomEnabled false", "setDepthPrePassEnabled false",
    "setMultiDrawEnabled true", "setFrustumCullingEnabled true", "setViewportSize 0 640x480",
    "setViewBufferForView 0 0", "setLayoutFlags 96"};
const Calls ImageCalls{
    "clearImages", "setTextureAtlasSize 4096x4096", "setCompressedTextureAtlasSize 4096x4096", "prepareImages"};
const Calls PipelineCalls{"clearShaders", "addDepthShader true", "addPipeline 1 MeshVisualizer", "addPipeline 2 Text",
    "addPipeline 3 Lit", "addPipeline 4 Flat", "addColliderVisualizationPipeline 1", "loadPostProcessShaders",
    "addTileFeedbackShader false false", "addTileFeedbackShader true true"};
const Calls FontCalls{"resetFonts"};
const Calls BatchCalls{"prepareBatches 1", "addColliderVisualizationBatch", "updateMeshes 1", "updateTexts"};
const Calls DrawCalls{"prepareDrawsList 0", "addDraw colliders 1 7"};
const Calls MaterialCalls{"updateMaterials 3 5", "updateMaterial 60000", "updateMaterial 60001"};

Calls joined(const std::vector<Calls>& parts) {
    Calls all;
    for(const Calls& part: parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

// Files that are their own names.
struct NamedFiles: Resource {
    std::optional<Containers::Array<char>> get(
        Containers::StringView file, std::size_t, std::string& reason) const override {
        if(file.hasPrefix("missing")) {
            reason = "there is none";
            return {};
        }
        Containers::Array<char> text{NoInit, file.size()};
        for(std::size_t i = 0; i != file.size(); ++i) text[i] = file[i];
        return text;
    }
};

struct RuntimeReloadTest: VantrelTest::SessionFixture {
    RuntimeReloadTest() {
        RendererRecorder::reset();
        session.data().resources().addAsset("default", std::make_unique<NamedFiles>());
        materials.colliders = renderer.registerCustomMaterial();
        materials.labels = renderer.registerCustomMaterial();
        camera.views().viewport(camera.view()) = {{}, {640, 480}};
        session.update();
    }

    EditorSceneData& sceneData() { return session.data().scene(); }
    SceneRevisions& revisions() { return sceneData().revisions(); }
    Calls reload() {
        runtime.run({session.data(), session.editor().state(), renderer, camera, materials});
        return RendererRecorder::takeCalls();
    }
    Calls reloadAfter(Aspect aspect) {
        reload();
        revisions().touch(aspect);
        return reload();
    }

    WebGL2Renderer renderer;
    ViewCamera camera;
    EditorMaterials materials;
    RuntimeReload runtime;
};

TEST_F(RuntimeReloadTest, firstOneRunsEveryStage) {
    EXPECT_TRUE(runtime.isDue(revisions()));
    EXPECT_THAT(reload(),
        ElementsAreArray(joined(
            {LayoutCalls, SettingsCalls, ImageCalls, PipelineCalls, FontCalls, BatchCalls, DrawCalls, MaterialCalls})));
    EXPECT_FALSE(runtime.isDue(revisions()));
}

TEST_F(RuntimeReloadTest, oneWithoutChangesTellsTheLayoutOnly) {
    reload();
    revisions().touch();
    EXPECT_TRUE(runtime.isDue(revisions()));
    EXPECT_THAT(reload(), ElementsAreArray(LayoutCalls));
}

// Of all aspects that changed, with the layout as it was, changed, or changed by the settings only.
TEST_F(RuntimeReloadTest, everyCombination) {
    reload();
    for(unsigned combination = 0; combination != 3u << AspectCount; ++combination) {
        const unsigned layout = combination >> AspectCount;
        const auto has = [&](Aspect aspect) { return bool(combination >> unsigned(aspect) & 1); };
        for(std::size_t i = 0; i != AspectCount; ++i)
            if(has(Aspect(i))) revisions().touch(Aspect(i));
        if(layout) RendererRecorder::layoutAnswers = {layout == 1, layout == 2};

        const bool layoutChanged = layout == 1 || (layout == 2 && has(Aspect::Settings));
        const bool pipelines = has(Aspect::Shaders) || has(Aspect::Pipelines) || layoutChanged;
        const bool batches = pipelines || has(Aspect::Meshes) || has(Aspect::MeshData);
        Calls expected = LayoutCalls;
        const auto add = [&](bool runs, const Calls& calls) {
            if(runs) expected.insert(expected.end(), calls.begin(), calls.end());
        };
        add(has(Aspect::Settings), SettingsCalls);
        add(has(Aspect::Images) || has(Aspect::Textures), ImageCalls);
        add(pipelines, PipelineCalls);
        add(has(Aspect::Fonts), FontCalls);
        add(batches, BatchCalls);
        add(batches || has(Aspect::Draws), DrawCalls);
        add(pipelines || has(Aspect::Materials) || has(Aspect::Textures) || has(Aspect::Images) || has(Aspect::Fonts),
            MaterialCalls);
        ASSERT_EQ(reload(), expected) << "combination " << combination;
        RendererRecorder::layoutAnswers.clear();
    }
}

TEST_F(RuntimeReloadTest, acknowledgesEverything) {
    for(std::size_t i = 0; i != AspectCount; ++i) revisions().touch(Aspect(i));
    reload();
    for(std::size_t i = 0; i != AspectCount; ++i) EXPECT_EQ(revisions().counter(Aspect(i)), revisions().revision());
}

TEST_F(RuntimeReloadTest, saysWhatRanAndWhy) {
    reload();
    revisions().touch(Aspect::Textures);
    reload();
    EXPECT_EQ(session.editor().state().lastReload, "texture atlases: textures\nmaterials: textures\n");
    revisions().touch();
    reload();
    EXPECT_EQ(session.editor().state().lastReload, "");
}

TEST_F(RuntimeReloadTest, startsAgainForANewRenderer) {
    reload();
    runtime.forget();
    EXPECT_TRUE(runtime.isDue(revisions()));
    EXPECT_THAT(reload(), Contains("clearShaders"));
}

TEST_F(RuntimeReloadTest, numberOfLightsIsForPipelines) {
    reload();
    record(
        "/objects/lamp", object("", ", 'components': [{'type': 'light', 'active': true, 'light': {'type': 'point'}}]"));
    session.update();
    ASSERT_EQ(scene.lights.numActiveComponents(), 1);
    EXPECT_THAT(reload(), Contains("clearShaders"));
    revisions().touch(Aspect::Lights);
    EXPECT_THAT(reload(), ElementsAreArray(LayoutCalls));

    // One with shadows among them.
    record("/objects/lamp/components/0/light/shadows", "true");
    session.update();
    EXPECT_THAT(reload(), Contains("clearShaders"));
    revisions().touch();
    EXPECT_THAT(reload(), ElementsAreArray(LayoutCalls));
}

TEST_F(RuntimeReloadTest, settings) {
    record("/settings",
        "{'rendering': {'clearColor': [0.25, 0.5, 0.75, 0.5], 'usePreZ': true, 'useMultiDraw': false,"
        "'useFrustumCulling': false}, 'editor': {'camera': {'near': 0.5, 'far': 250}}}");
    session.update();
    camera.views().fov(camera.view()) = 30.0f;
    const Calls calls = reload();
    EXPECT_THAT(calls,
        IsSupersetOf({"setClearColor 0.25 0.5 0.75 0.5", "setDepthPrePassEnabled true", "setMultiDrawEnabled false",
            "setFrustumCullingEnabled false"}));
    EXPECT_EQ(camera.near(), 0.5f);
    EXPECT_EQ(camera.far(), 250.0f);
    EXPECT_EQ(camera.fov(), 90.0f);
}

TEST_F(RuntimeReloadTest, farBeyondAFloatIsInfinity) {
    record("/settings/editor/camera/far", "1e39");
    session.update();
    reload();
    EXPECT_EQ(camera.far(), Constants::inf());
}

TEST_F(RuntimeReloadTest, depthRangeThatIsNoneIsSaid) {
    reload();
    const Float near = camera.near(), far = camera.far();
    for(const char* const json:
        {"{'near': 0, 'far': 10}", "{'near': -1, 'far': 10}", "{'near': 5, 'far': 5}", "{'near': 5, 'far': 2}"}) {
        record("/settings/editor/camera", json);
        session.update();
        EXPECT_THAT(printed([&] { reload(); }), HasSubstr("near has to be above 0 and below far")) << json;
        EXPECT_EQ(camera.near(), near);
        EXPECT_EQ(camera.far(), far);
    }
}

TEST_F(RuntimeReloadTest, kernelOfAnySizeIsAWholeNumber) {
    record("/settings/rendering/bloom", "{'enabled': true, 'kernelSize': 1e20}");
    session.update();
    EXPECT_THAT(reload(), Contains("bloom kernelSize 21"));
}

TEST_F(RuntimeReloadTest, fewerPassesThanNoneAreNone) {
    record("/settings/rendering/bloom", "{'enabled': true, 'passes': -1}");
    session.update();
    EXPECT_THAT(reload(), Contains("bloom passes 0"));
}

TEST_F(RuntimeReloadTest, compressedImageWithoutTilesIsLeftOut) {
    std::vector<SceneImage>& images = sceneData().resources().images;
    images.resize(2);
    images[1].id = "a";
    images[1].header = {{256, 256}, 0, true};
    EXPECT_THAT(reload(), Not(Contains(StartsWith("reserveImage"))));
}

TEST_F(RuntimeReloadTest, bloomIsToldInItsOrder) {
    record("/settings/rendering",
        "{'bloom': {'enabled': true, 'passes': 3, 'kernelSize': 7.9, 'threshold': 0.5, 'intensity': 2},"
        "'hdr': {'exposure': 1.5}}");
    session.update();
    const Calls calls = reload();
    const auto first = std::find(calls.begin(), calls.end(), "setBloomEnabled true");
    ASSERT_GE(calls.end() - first, 6);
    EXPECT_THAT(Calls(first + 1, first + 6),
        ElementsAre(
            "bloom kernelSize 7", "bloom passes 3", "bloom threshold 0.5", "bloom intensity 2", "bloom exposure 1.5"));
}

TEST_F(RuntimeReloadTest, bloomKeepsItsParametersWhenItIsOff) {
    record("/settings/rendering/bloom", "{'enabled': false, 'passes': 3, 'kernelSize': 7}");
    record("/settings/rendering/hdr", "{'exposure': 3}");
    session.update();
    const Calls calls = reload();
    EXPECT_THAT(calls, Contains("setBloomEnabled false"));
    EXPECT_THAT(calls, Not(Contains(StartsWith("bloom "))));
}

TEST_F(RuntimeReloadTest, imagesInTheirOrder) {
    std::vector<SceneImage>& images = sceneData().resources().images;
    images.resize(4);
    images[1].id = "a";
    images[1].header.size = {4, 2};
    images[3].id = "c";
    images[3].header.size = {1, 8};
    std::vector<SceneTexture>& textures = sceneData().resources().textures;
    textures.resize(2);
    textures[1].id = "t";
    textures[1].header = {1, 3};
    EXPECT_THAT(reloadAfter(Aspect::Images),
        IsSupersetOf({"reserveImage 1 4x2 0", "setImage 0 a", "reserveImage 3 1x8 0", "setImage 1 c",
            "setImageForTexture t 3"}));
}

TEST_F(RuntimeReloadTest, imagesWithoutRoomAreNotPlaced) {
    std::vector<SceneImage>& images = sceneData().resources().images;
    images.resize(2);
    images[1].id = "a";
    RendererRecorder::hasRoom = false;
    EXPECT_THAT(reload(), Not(Contains(StartsWith("setImage "))));
}

TEST_F(RuntimeReloadTest, compressedImagesGoByTheirTiles) {
    std::vector<SceneImage>& images = sceneData().resources().images;
    images.resize(2);
    images[1].id = "a";
    images[1].header = {{256, 256}, 2, true};
    images[1].tileHashes = {11, 12};
    const Calls calls = reload();
    EXPECT_THAT(calls, Contains("reserveImage 1 256x256 2"));
    EXPECT_THAT(calls, Not(Contains(StartsWith("setImage "))));
}

using RuntimeReloadDeathTest = RuntimeReloadTest;

TEST_F(RuntimeReloadDeathTest, tilesWithoutHashes) {
    std::vector<SceneImage>& images = sceneData().resources().images;
    images.resize(2);
    images[1].id = "a";
    images[1].header = {{512, 512}, 4, true};
    images[1].tileHashes = {11, 12, 13};
    EXPECT_DEATH(
        reload(), "SceneView::reloadRuntime\\(\\): Tile count and tile hashes array were not equal size: 4 != 3");
}

TEST_F(RuntimeReloadTest, featuresAreDefinedInBothSources) {
    record("/pipelines/lit/features", "['FIRST', 'SECOND']");
    session.update();
    reload();
    EXPECT_EQ(RendererRecorder::vertexSources[3], "#define FIRST\n#define SECOND\nDynamic.vert");
    EXPECT_EQ(RendererRecorder::fragmentSources[3], "#define FIRST\n#define SECOND\nLit.frag");
    EXPECT_EQ(RendererRecorder::vertexSources[4], "Dynamic.vert");
}

TEST_F(RuntimeReloadTest, sourceThatIsMissingIsEmpty) {
    record("/shaders/lit/fragment", "'missing.frag'");
    session.update();
    reload();
    EXPECT_EQ(RendererRecorder::fragmentSources[3], "");
    EXPECT_EQ(RendererRecorder::vertexSources[3], "Dynamic.vert");
}

TEST_F(RuntimeReloadTest, depthAndSkinningShadersWhereTheyAreNeeded) {
    std::vector<SceneShader>& shaders = sceneData().resources().shaders;
    for(SceneShader& shader: shaders) shader.header = {};
    // The reserved slot does not count.
    shaders[0].header = {ShaderStage::Mesh, 1};
    Calls calls = reload();
    EXPECT_THAT(calls, Not(Contains(StartsWith("addDepthShader"))));
    EXPECT_THAT(calls, Not(Contains(StartsWith("addSkinningShader"))));

    shaders[2].header = {ShaderStage::Skinning, 0};
    calls = reloadAfter(Aspect::Shaders);
    EXPECT_THAT(calls, Not(Contains(StartsWith("addDepthShader"))));
    EXPECT_THAT(calls, Contains("addSkinningShader true"));

    shaders[2].header = {ShaderStage::Mesh, 1};
    shaders[3].header = {ShaderStage::Skinning, 1};
    calls = reloadAfter(Aspect::Shaders);
    EXPECT_THAT(calls, Contains("addDepthShader true"));
    EXPECT_THAT(calls, Not(Contains(StartsWith("addSkinningShader"))));
}

TEST_F(RuntimeReloadTest, withoutTheEditorsPipelines) {
    reload();
    remove("/pipelines/meshVisualizer");
    remove("/pipelines/text");
    session.update();
    const Calls calls = reload();
    EXPECT_THAT(calls, Contains("clearShaders"));
    EXPECT_THAT(calls, Not(Contains(HasSubstr("olliderVisualization"))));
    EXPECT_THAT(calls, Not(Contains(HasSubstr("addDraw"))));
    EXPECT_THAT(calls, Not(Contains(StartsWith("updateMaterial "))));
    EXPECT_EQ(materials.colliderPipeline, 0);
    EXPECT_EQ(materials.colliderBatch, 0);
}

TEST_F(RuntimeReloadTest, editorsMaterials) {
    reload();
    const SceneMaterial& colliders = RendererRecorder::materials[60000];
    EXPECT_EQ(colliders.pipeline, 1);
    ASSERT_EQ(colliders.values.size(), 2);
    EXPECT_EQ(colliders.values[0], (Vector4{0.0f, 0.0f, 0.0f, 0.0f}));
    EXPECT_EQ(colliders.values[1], (Vector4{170 / 255.0f, 1.0f, 170 / 255.0f, 1.0f}));
    EXPECT_EQ(colliders.textures.size(), 2);
    EXPECT_EQ(RendererRecorder::materials[60001].pipeline, 2);
}

TEST_F(RuntimeReloadTest, fontsFromTheSecondSlotOn) {
    std::vector<SceneFont>& fonts = sceneData().resources().fonts;
    EXPECT_THAT(reloadAfter(Aspect::Fonts), Contains("resetFonts"));
    fonts.resize(2);
    const Id text = scene.texts.addComponent(scene.addObject(RootObject));
    scene.texts.resetDirty();
    EXPECT_THAT(reloadAfter(Aspect::Fonts), Contains("updateFonts 2"));
    EXPECT_TRUE(scene.texts.isDirty(text));
}

TEST_F(RuntimeReloadTest, drawsAreTheGroupsOfMeshes) {
    record("/meshes/cube", "{'name': 'Cube', 'primitive': 'cube'}");
    record("/objects/a",
        object("",
            ", 'components': [{'type': 'mesh', 'active': true, 'mesh': {'mesh': 'cube', "
            "'material': 'lit', 'skin': ''}}]"));
    session.update();
    reload();
    revisions().touch(Aspect::Draws);
    EXPECT_THAT(reload(), ElementsAre("setLayoutFlags 101", "prepareDrawsList 1", "addDraw colliders 1 7"));
}

// The bodies follow their objects at each reload, unless they move by themselves.
TEST_F(RuntimeReloadTest, bodiesFollowUnlessTheySimulate) {
    struct: PhysicsSimulation {
        void initComponents(PhysXManager&) override { log += "init "; }
        void doFalseUpdate(PhysXManager&) override { log += "update "; }
        std::string log;
    } simulation;
    scene.bodies.setSimulation(&simulation);
    reload();
    EXPECT_THAT(simulation.log, testing::EndsWith("init update "));
    simulation.log.clear();
    record("/settings/physx/enable", "true");
    session.update();
    session.editor().state().display(DebugDisplay::SimulatePhysX) = 1;
    reload();
    EXPECT_EQ(simulation.log, "");
    session.editor().state().display(DebugDisplay::SimulatePhysX) = 0;
    revisions().touch();
    reload();
    EXPECT_EQ(simulation.log, "init update ");
    scene.bodies.setSimulation(nullptr);
}

// Objects that were moved by a simulation are where the document has them when physics is switched off in the project.
TEST_F(RuntimeReloadTest, stopsSimulatingWhenPhysicsIsSwitchedOff) {
    record("/settings/physx/enable", "true");
    record("/objects/a", object());
    session.update();
    session.editor().state().display(DebugDisplay::SimulatePhysX) = 1;
    EXPECT_EQ(printed<Utility::Debug>([&] { reload(); }), "");
    EXPECT_TRUE(session.editor().state().isSimulating());

    scene.localTransformation(objectOf("a")) = DualQuaternion::translation({0.0f, -5.0f, 0.0f});
    record("/settings/physx/enable", "false");
    session.update();
    EXPECT_EQ(printed<Utility::Debug>([&] { reload(); }), "Stopped simulating physics\n");
    EXPECT_FALSE(session.editor().state().isSimulating());
    EXPECT_EQ(scene.localTransformation(objectOf("a")).translation(), Vector3{});
    EXPECT_FALSE(runtime.isDue(revisions()));
}

} // namespace
