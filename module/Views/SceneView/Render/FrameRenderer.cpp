#include "Views/SceneView/Render/FrameRenderer.h"

#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Color.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>

#include "Views/SceneView/Render/PassClock.h"
#include "Views/SceneView/ViewCamera.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr GL::FramebufferClearMask ColorAndDepth =
    GL::FramebufferClear::Color | GL::FramebufferClear::Depth | GL::FramebufferClear::Stencil;

// Pixels of a screen whose framebuffer has one for each point.
constexpr Float OutlineWidth = 4.0f;
constexpr Color4 OutlineColor{0.9f, 0.0f, 0.53f, 0.9f};

// The larger one; one that is not a number does not count.
Float larger(const Vector2& scale) {
    return scale.x() != scale.x() ? scale.y() : scale.y() > scale.x() ? scale.y() : scale.x();
}

}

void FrameRenderer::resize(const Vector2i& size, WebGL2Renderer& renderer, ViewCamera& camera) {
    _framebuffers.resize(size);
    renderer.setViewportSize(camera.view(), size);
    camera.setTarget(_framebuffers.multisampled(), size);
}

void FrameRenderer::draw(const FrameInput& input) {
    FrameStatistics& statistics = input.state.statistics;
    const PassStatistics reload = statistics.pass(FramePass::Reload);
    statistics = {};
    statistics.pass(FramePass::Reload) = reload;
    PassClock clock{*input.state.platform, statistics};

    Scene& scene = input.data.scene().main();
    scene.computeAbsoluteTransformations();
    input.camera.setTarget(_framebuffers.multisampled(), _framebuffers.size());
    input.camera.update();

    const Id view = input.camera.view();
    input.renderer.updateMeshVisibility(
        scene, input.frozen.shadows ? input.frozen.matrix : input.camera.views().cullingMatrix(view));

    _debug.update(scene, input.camera);
    clock.end(FramePass::Update);

    RendererState{}.apply();
    GL::Framebuffer& target = _framebuffers.multisampled();
    target.bind();
    target.mapForDraw(GL::Framebuffer::ColorAttachment{0});
    GL::Renderer::setClearColor(input.renderer.clearColor());
    target.clear(ColorAndDepth);

    drawObjectIds(input);
    clock.end(FramePass::ObjectIds);
    target.bind();
    if(input.mode == RenderMode::MeshVisualization)
        _meshVisualization.draw(
            scene, input.data.scene().resources(), input.renderer, input.camera, input.normalLength);
    drawScene(input, clock);
    drawOutline(input);
    clock.end(FramePass::Outline);

    target.bind();
    _debug.draw(input.data, input.state, input.camera, input.frozen);
    resolve();
    clock.end(FramePass::Overlays);
    scene.resetChanged();
    count(input.renderer, statistics);
}

void FrameRenderer::count(const WebGL2Renderer& renderer, FrameStatistics& statistics) const {
    statistics.visibleMeshes = std::uint32_t(renderer.visibleMeshes().size());
    statistics.drawCalls = std::uint32_t(renderer.drawCalls());
    statistics.triangles = renderer.triangles();
    statistics.shadowMaps = std::uint32_t(renderer.drawnShadowMaps());
    statistics.shadowCasters = std::uint32_t(renderer.drawnShadowCasters());
    statistics.pass(FramePass::Scene).drawCalls = statistics.drawCalls;
    statistics.pass(FramePass::Shadows).drawCalls = std::uint32_t(renderer.shadowDrawCalls());
    statistics.pass(FramePass::ObjectIds).drawCalls = std::uint32_t(renderer.objectIdDrawCalls());
    statistics.pictureBytes = _framebuffers.bytes() + _outline.bytes();
    statistics.uploadedBytes = renderer.uploadedBytes();
}

void FrameRenderer::drawObjectIds(const FrameInput& input) {
    GL::Framebuffer& target = _framebuffers.resolved();
    RendererState::objectIds().apply();
    target.bind();
    target.mapForDraw(GL::Framebuffer::ColorAttachment{ObjectIdAttachment});
    GL::Renderer::setClearColor(Color4{1.0f, 1.0f});
    target.clear(ColorAndDepth);
    input.renderer.drawObjectIds(input.camera.views(), input.camera.view(), input.data.scene().main());
    _debug.drawLightIds();
}

void FrameRenderer::drawScene(const FrameInput& input, PassClock& clock) {
    Scene& scene = input.data.scene().main();
    WebGL2Renderer& renderer = input.renderer;
    ViewManager& views = input.camera.views();
    const bool showsOverdraw = input.state.display(DebugDisplay::Overdraw);

    renderer.updateSkinning(scene);
    if(input.state.display(DebugDisplay::CollisionShapes) && input.materials.colliderBatch)
        renderer.updateColliderVisualizationBatch(input.materials.colliderBatch, input.materials.colliders, scene);
    renderer.updateLights(scene);
    renderer.updateShadows(scene, views);
    clock.end(FramePass::Shadows);
    if(showsOverdraw) renderer.beginOverdrawTracking();
    // What the mesh visualisation drew stays in front of the surfaces that it is about.
    if(input.mode == RenderMode::MeshVisualization) {
        GL::Renderer::enable(GL::Renderer::Feature::PolygonOffsetFill);
        GL::Renderer::setPolygonOffset(1.0f, 1.0f);
    }
    renderer.render(views, scene);
    if(input.mode == RenderMode::MeshVisualization) GL::Renderer::disable(GL::Renderer::Feature::PolygonOffsetFill);
    renderer.updateTextureStreaming(views);
    renderer.evalTextureStreaming(views);
    if(showsOverdraw) {
        renderer.endOverdrawTracking();
        renderer.renderOverdraw(views);
    }
    clock.end(FramePass::Scene);
}

void FrameRenderer::drawOutline(const FrameInput& input) {
    if(!input.data.firstSelectedObject()) return;

    GL::Framebuffer& mask = _framebuffers.maskMultisampled();
    RendererState state;
    state.depthTest = state.depthWrite = state.faceCulling = false;
    state.apply();
    GL::Renderer::setClearColor(Color4{0.0f, 0.0f});
    mask.clear(GL::FramebufferClear::Color);
    mask.bind();
    const std::size_t drawn = input.renderer.drawFlat(
        input.camera.views(), input.camera.view(), input.data.scene().main(), input.data.selection(), Color4{1.0f});
    if(drawn) {
        GL::AbstractFramebuffer::blit(
            mask, _framebuffers.mask(), {{}, _framebuffers.size()}, GL::FramebufferBlit::Color);
        _outline.setViewportSize(_framebuffers.size())
            .setMaskTexture(_framebuffers.maskTexture())
            .setWidth(OutlineWidth * larger(input.framebufferScale))
            .setColor(OutlineColor)
            .draw(*input.camera.views().targetFramebuffer(input.camera.view()));
    }
    RendererState{}.apply();
    input.state.statistics.pass(FramePass::Outline).drawCalls =
        std::uint32_t(input.renderer.flatDrawCalls()) + (drawn ? _outline.drawCalls() : 0);
}

void FrameRenderer::resolve() {
    GL::Framebuffer& from = _framebuffers.multisampled();
    GL::Framebuffer& to = _framebuffers.resolved();
    from.mapForRead(GL::Framebuffer::ColorAttachment{0});
    to.mapForDraw(GL::Framebuffer::ColorAttachment{PictureAttachment});
    GL::AbstractFramebuffer::blit(from, to, {{}, _framebuffers.size()}, GL::FramebufferBlit::Color);
}

} // namespace VantrelEngine
