#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector2.h>
#include <Vantrel/EngineData/BitSetView.h>
#include <Vantrel/EngineData/Types.h>
#include <Vantrel/Renderer/BloomPass.h>
#include <Vantrel/Renderer/Draw.h>
#include <Vantrel/Renderer/RendererDebug.h>
#include <Vantrel/Renderer/RendererState.h>
#include <Vantrel/Renderer/TextureAtlas.h>
#include <Vantrel/Renderer/TileStackTextureAtlas.h>

namespace Magnum::GL {
class Mesh;
}

namespace VantrelEngine {

class TextManager;
class ViewManager;
struct ImageHeader;
struct Scene;
struct SceneFont;
struct SceneMaterial;
struct SceneMesh;
struct ScenePipeline;
struct SceneTexture;

// Draws a scene with OpenGL 3.3 or newer, forward, in batches.
//
// Keeps copies of the scene's resources in video memory, by the indices that they have in the scene, and is told which of
// them changed: it never looks by itself, but for where objects stand (DynamicSceneGraph::changed()). The order in which
// things are told is that of this class from top to bottom. What it cannot draw it names once, on the warning output, and
// draws the rest.
//
// All of it, from construction to destruction, with the GL context that was current at the construction. Not tied to one
// scene; each function is told it. After a function the GL's bindings are whatever they are; switches are those of
// RendererState{}.
class CORRADE_VISIBILITY_EXPORT WebGL2Renderer {
public:
    explicit WebGL2Renderer();
    ~WebGL2Renderer();
    WebGL2Renderer(const WebGL2Renderer&) = delete;
    WebGL2Renderer& operator=(const WebGL2Renderer&) = delete;

    // Reserves an index for a material of the editor's own, beyond those of a scene, and kept whatever scene comes.
    Id registerCustomMaterial();

    // Attributes that vertices have (MeshLayoutFlag) with the bits 32 and 64 of a view's own. Whether that changed what
    // it was; then everything from clearShaders() on has to be told again.
    bool setLayoutFlags(std::uint32_t flags);

    void setClearColor(const Magnum::Color4& color);
    Magnum::Color4 clearColor() const;
    // Whether what is bright glows, as the pass says. The pictures that this takes are there only while it is enabled; the
    // parameters of the pass stay. Where there is no memory for them, nothing glows, with a line the first time, until a
    // view gets another size.
    void setBloomEnabled(bool enabled);
    Shaders::BloomPass& bloomPass();
    // Whether depth is drawn before colour.
    void setDepthPrePassEnabled(bool enabled);
    // Whether all meshes of a group are drawn with one call, where the GL can. The picture is the same.
    void setMultiDrawEnabled(bool enabled);
    void setFrustumCullingEnabled(bool enabled);
    // What of the textures render() shows over the pictures of all views.
    RendererDebug& debug();
    // Pixels, at least 1.
    void setViewportSize(Id view, const Magnum::Vector2i& size);
    // A view may be drawn with the matrices of another one.
    void setViewBufferForView(Id view, Id buffer);

    // Images: all again whenever one changed. Sizes of the atlases in pixels; of the plain one it is the size of a layer.
    void setTextureAtlasSize(const Magnum::Vector2i& size);
    void setCompressedTextureAtlasSize(const Magnum::Vector2i& size);
    void clearImages();
    // Reserves the place of an image; without hashes in the plain atlas, else in the compressed one. False, and a line,
    // where there is no room: its textures are then white.
    bool reserveImage(
        Id image, const Magnum::Vector2i& size, Corrade::Containers::ArrayView<const std::uint64_t> tileHashes = {});
    TextureAtlas& textureAtlas();
    TileStackTextureAtlas& compressedTextureAtlas();
    // The texture, whose image has index 0 for none, with its filter and wrapping.
    void setImageForTexture(const SceneTexture& texture, Id image);
    // Makes mip levels, after all images were set.
    void prepareImages();

    // Shaders and pipelines: all again whenever one changed.
    void clearShaders();
    void addDepthShader(std::string_view vertexSource);
    void addSkinningShader(std::string_view vertexSource);
    // A pipeline under its index, with sources that already have the defines of its features in front. Empty sources are
    // replaced by the renderer's own of a flat one. A line, and the flat one, for sources that do not compile.
    void addPipeline(
        Id pipeline, const ScenePipeline& description, std::string_view vertexSource, std::string_view fragmentSource);
    // 0 where there is none of this name.
    Id pipelineIndex(Corrade::Containers::StringView name) const;
    // Takes the pipeline for the shapes of colliders; returns its index.
    Id addColliderVisualizationPipeline(Id pipeline);
    void loadPostProcessShaders();
    void addTileFeedbackShader(std::string_view vertexSource, std::string_view fragmentSource, bool isSky);

    void resetFonts();
    void updateFonts(Corrade::Containers::ArrayView<const SceneFont> fonts);

    // Vertices: makes room for all meshes of the scene, one buffer a layout.
    void prepareBatches(Corrade::Containers::ArrayView<const SceneMesh> meshes, const TextManager& texts);
    // A batch for the shapes of colliders, empty; returns its index, above 0.
    Id addColliderVisualizationBatch();
    void updateMeshes(Corrade::Containers::ArrayView<const SceneMesh> meshes);
    void updateTexts(TextManager& texts);

    // What is drawn: the list replaces the one before. Slots of components may be others than before: per-object data is
    // made again at the next frame.
    void prepareDrawsList(Corrade::Containers::ArrayView<const Draw> draws);
    void addDraw(const Draw& draw);

    // All materials of the scene, then one by one those of registerCustomMaterial().
    void updateMaterials(Corrade::Containers::ArrayView<const SceneMaterial> materials,
        Corrade::Containers::ArrayView<const ScenePipeline> pipelines);
    void updateMaterial(Id index, const SceneMaterial& material);

    // A frame, in this order. The scene's absolute transformations are up to date.
    //
    // Shapes of the active colliders into a batch; removes what was there. Drawn with a custom material.
    void updateColliderVisualizationBatch(Id batch, Id material, Scene& scene);
    void clearColliderVisualizationBatch(Id batch);
    void updateSkinning(const Scene& scene);
    // Which active meshes are inside the frustum of the matrix, from the scene's space to clip space. Takes over where
    // the objects that changed since the last resetChanged() stand.
    void updateMeshVisibility(Scene& scene, const Magnum::Matrix4& cullingMatrix);
    // All active lights, and the scene's environment: of a new image the light is computed, see EnvironmentBaking.
    void updateLights(Scene& scene);
    // Whether the light of an environment is not complete yet: the frames to come look different, also where nothing else
    // changes.
    bool isBakingEnvironment() const;
    // Fits the shadow maps of the scene's lights to the first active view (LightManager::setupShadows()) and draws those
    // that show something else than before: their fit is another one, or something that throws shadows moved, came or
    // went in them since, by updateMeshVisibility(), or resources or draws changed. Lights with shadows where there were
    // none before build programs anew. Leaves another framebuffer bound.
    void updateShadows(Scene& scene, ViewManager& views);
    // How much of that is done in a frame, at first all: each triangle in a map counts one, and for each map each object.
    // At least one light is drawn, those that are seen most first; maps that have to wait show what they showed before, or
    // let all light through. By count and not by time, so that two runs are the same.
    void setShadowWork(std::uint64_t workOfFrame);
    // Whether some had to wait in the last frame: those to come look different, also where nothing else changes.
    bool areShadowsWaiting() const;
    // Until the end, render() counts in the stencil of the target how often each pixel is drawn, up to 255, instead of
    // drawing it: but for that, depth and the sky there is nothing of it in the target. One without stencil is not drawn,
    // with a line.
    void beginOverdrawTracking();
    // Draws the scene over what is in the target framebuffer of each active view; where that is null, in the bound one. With
    // bloom or the overdraw it is expected to be a framebuffer object, and a view without one is not drawn.
    void render(ViewManager& views, Scene& scene);
    void updateTextureStreaming(ViewManager& views);
    void evalTextureStreaming(ViewManager& views);
    void endOverdrawTracking();
    // Draws the counts of the last tracking as colours into the views' targets, wherever something was drawn: from
    // (39, 174, 96) over (255, 255, 0) for five times to (255, 0, 0) for ten times and more.
    void renderOverdraw(ViewManager& views);

    // The ids of the objects of all meshes that the last updateMeshVisibility() found, where they stood then, into the
    // bound framebuffer: the low byte as red, the high byte as green, blue 0, alpha 1. Masks make the holes that they make
    // in the picture. Sets no switches but those of which sides of a mesh are seen, by its pipeline.
    void drawObjectIds(const ViewManager& views, Id view, const Scene& scene);
    // In the same way those of the objects of a set, by object id, plainly in one colour. Returns how many there were; 0
    // calls nothing of the GL.
    std::size_t drawFlat(
        const ViewManager& views, Id view, const Scene& scene, const BitSetView& objects, const Magnum::Color4& color);

    // For who draws a mesh by itself: the GL mesh of a mesh of the scene, null where there is none. Has positions, and
    // normals in the generic attributes. Valid until the next call.
    Magnum::GL::Mesh* mesh(Id mesh);
    // Slots of the active meshes that were found visible.
    const std::vector<Id>& visibleMeshes() const;

    // What the last render() took.
    std::size_t drawCalls() const;
    std::uint64_t triangles() const;
    // What the last updateShadows() drew: maps, and meshes, of each map again; and the calls that it took.
    std::size_t drawnShadowMaps() const;
    std::size_t drawnShadowCasters() const;
    std::size_t shadowDrawCalls() const;
    // What the last drawObjectIds() took, and the last drawFlat().
    std::size_t objectIdDrawCalls() const;
    std::size_t flatDrawCalls() const;
    // Since the construction: bytes of vertices, objects, instances, materials, lights and shadows that went to video memory, and
    // programs that were compiled. Where nothing changed, a frame adds to neither.
    std::uint64_t uploadedBytes() const;
    std::size_t builtPrograms() const;
    // How often the light of an environment was computed since the construction.
    std::size_t environmentBakes() const;

private:
    struct State;
    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
