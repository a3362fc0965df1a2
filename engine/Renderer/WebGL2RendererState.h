#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <Magnum/Math/Color.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>

#include "Renderer/Debug/ColliderShapes.h"
#include "Renderer/Debug/LineProgram.h"
#include "Renderer/Debug/TextureSheets.h"
#include "Renderer/Environment/EnvironmentLight.h"
#include "Renderer/Environment/Sky.h"
#include "Renderer/Lights/LightBuffer.h"
#include "Renderer/Lights/LightTileBuffer.h"
#include "Renderer/Lights/ShadowMaps.h"
#include "Renderer/Materials/MaterialBuffer.h"
#include "Renderer/Meshes/DrawList.h"
#include "Renderer/Meshes/InstanceList.h"
#include "Renderer/Meshes/MeshBuffers.h"
#include "Renderer/Meshes/MeshDrawing.h"
#include "Renderer/Meshes/ObjectBuffer.h"
#include "Renderer/Pipelines/PipelineTable.h"
#include "Renderer/PostProcess/BloomDrawing.h"
#include "Renderer/PostProcess/OverdrawDrawing.h"
#include "Renderer/Textures/TextureAtlasState.h"
#include "Renderer/Textures/TileStackTextureAtlasState.h"

namespace VantrelEngine {

// What the renderer was told and what of it is in video memory.
struct WebGL2Renderer::State {
    // What it cannot do yet.
    enum Missing : std::size_t { Fonts, Texts, Skinning, MissingCount };

    State();

    // A line, the first time.
    void warn(Missing missing);

    // Programs that can do what the materials and textures as they are now need. After pipelines, materials or textures
    // changed; looks at all materials.
    void buildPrograms();
    // Groups of the draws, with what their pipelines say of the order. After pipelines or draws changed.
    void sortDraws();
    // The same of what throws shadows.
    void sortCasters();
    // Draws or pipelines are others than before.
    void setDrawsDirty();
    // The view whose matrices a view is drawn with.
    Id matricesOf(const ViewManager& views, Id view) const;
    // What shaders know of a view. Counts as another view each time.
    ViewUniforms viewUniforms(const ViewManager& views, Id view);

    void bindBuffers();
    // Into the bound framebuffer, or with a glow into the view's target.
    void drawView(ViewManager& views, Id view);
    void drawGlowing(Id view, Magnum::GL::AbstractFramebuffer& target, const ViewUniforms& uniforms);
    // From now on with a glow, or without.
    void setGlowing(bool isGlowing);
    // Without one, as there is no memory for it. Binds the target.
    void giveUpGlow(Magnum::GL::AbstractFramebuffer& target);
    // Counts what drawView() would draw, and draws nothing but depth and what is behind everything.
    void countView(ViewManager& views, Id view);
    // Puts the visible meshes in the order for the view, for shaders, too.
    void sortFor(const ViewManager& views, Id view);
    void updateLightTiles(const ViewUniforms& view);
    void drawDepth(const ViewUniforms& view);
    void drawPicture(const ViewUniforms& view);
    void drawCounts(const ViewUniforms& view);
    void drawColliders(const ViewUniforms& view);
    // Over the pictures of all views.
    void drawSheets(ViewManager& views);
    // With programs that do not depend on the material, of the pipeline of each run; double-sided ones without culling.
    // Returns how many calls that took.
    std::size_t drawPlainly(const ViewUniforms& view, const DrawList& list,
        std::shared_ptr<MeshProgram> Pipeline::*program, const Magnum::Color4& color);

    // What throws shadows and is inside, into the bound framebuffer, as the matrix sees it. Returns what that took, see
    // setShadowWork().
    std::uint64_t drawCasters(const Magnum::Matrix4& matrix, const MeshManager& manager);

    std::uint64_t uploadedBytes() const;

    const bool canMultiDraw;

    // Settings.
    std::uint32_t layoutFlags = ~std::uint32_t{};
    Magnum::Color4 clearColor{0.0f, 1.0f};
    bool isDepthPassEnabled = false;
    bool isCullingEnabled = true;
    RendererDebug debug;
    // Only while textures are shown.
    std::unique_ptr<TextureSheets> sheets;
    Shaders::BloomPass bloom;
    // Whether it is asked for: after it failed, too.
    bool isBloomEnabled = false, isBloomFailureSaid = false;
    // Only while bloom is enabled, and while the overdraw is asked for.
    std::unique_ptr<BloomDrawing> bloomDrawing;
    std::unique_ptr<OverdrawDrawing> overdraw;
    bool isOverdrawTracked = false;
    // By view, 1 by 1 pixel and the view itself where nothing else was said.
    std::vector<Magnum::Vector2i> viewportSizes;
    std::vector<Id> viewBuffers;

    // Resources.
    std::unique_ptr<TextureAtlas> textureAtlas;
    std::unique_ptr<TileStackTextureAtlas> compressedTextureAtlas;
    PipelineTable pipelines;
    bool areProgramsBuilt = false;
    MaterialBuffer materials;
    MeshBuffers meshes;
    LightBuffer lights;
    LightTileBuffer lightTiles;
    std::uint64_t lightBytes = 0;
    EnvironmentLight environment;
    Sky sky;

    // Objects.
    ObjectBuffer objects;
    std::vector<Draw> draws;
    bool areDrawsSorted = false;
    std::vector<Id> visible;
    DrawList list, someOfList;
    InstanceList instances, someInstances;
    MeshDrawing drawing;
    Magnum::UnsignedLong viewNumber = 0;
    std::size_t drawCalls = 0;
    std::uint64_t triangles = 0;
    std::size_t objectIdCalls = 0, flatCalls = 0;

    // Shadows.
    ShadowMaps shadows;
    std::uint64_t shadowWork = ~std::uint64_t{};
    bool areCastersSorted = false;
    std::vector<Id> inMap;
    DrawList casters;
    InstanceList casterInstances;
    MeshDrawing casterDrawing;
    std::size_t drawnShadowMaps = 0, drawnCasters = 0;

    // Colliders.
    LineProgram lineProgram;
    ColliderShapes colliders;
    Id colliderPipeline = 0;
    Id colliderMaterial = 0;

    bool isWarned[MissingCount]{};
};

} // namespace VantrelEngine
