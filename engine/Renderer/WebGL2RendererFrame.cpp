#include <Vantrel/Renderer/WebGL2Renderer.h>

#include <algorithm>
#include <utility>

#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/AbstractFramebuffer.h>
#include <Magnum/GL/Renderer.h>
#include <Vantrel/EngineData/Scene.h>

#include "Renderer/PassState.h"
#include "Renderer/WebGL2RendererState.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// That a GL keeps.
constexpr int MaximumErrors = 16;

} // namespace

void WebGL2Renderer::State::buildPrograms() {
    if(areProgramsBuilt) return;
    areProgramsBuilt = true;
    const TextureTable& textures = textureAtlas->_state->table;
    materials.forEach([&](Id pipeline, Containers::ArrayView<const Vector4> values) {
        const std::vector<ShaderParameter>& parameters = pipelines[pipeline].parameters;
        for(std::size_t i = 0; i != std::min(parameters.size(), values.size()); ++i) {
            if(parameters[i].type != ParameterType::Texture || values[i].x() == 0.0f) continue;
            const bool isIndex = values[i].x() > 0.0f && values[i].x() < Float(NoComponent);
            pipelines.addNeeds(pipeline, i, textures.needs(isIndex ? Id(values[i].x()) : Id{0}));
        }
    });
    pipelines.build();
}

void WebGL2Renderer::State::sortDraws() {
    if(areDrawsSorted) return;
    areDrawsSorted = true;
    std::vector<DrawGroup> groups;
    for(const Draw& draw: draws) {
        const Pipeline& pipeline = pipelines[draw.pipeline];
        if(draw.kind != Draw::Kind::Meshes || !pipeline.isThere()) continue;
        const DrawGroup::Kind kind = pipeline.header.flags & PipelineHeader::Blend ? DrawGroup::Kind::Blended
            : pipeline.header.flags & PipelineHeader::AlphaMask                    ? DrawGroup::Kind::Masked
                                                                                   : DrawGroup::Kind::Opaque;
        groups.push_back({pipeline.header.order, kind, draw.pipeline, draw.group});
    }
    list.setGroups(std::move(groups));
}

Id WebGL2Renderer::State::matricesOf(const ViewManager& views, Id view) const {
    const Id buffer = view < viewBuffers.size() ? viewBuffers[view] : NoComponent;
    return views.isValid(buffer) ? buffer : view;
}

ViewUniforms WebGL2Renderer::State::viewUniforms(const ViewManager& views, Id view) {
    const Id source = matricesOf(views, view);
    ViewUniforms uniforms;
    uniforms.viewProjection = views.cullingMatrix(source);
    uniforms.cameraPosition = views.viewTransform(source).quaternionConjugated().translation();
    uniforms.viewportSize = Vector2{view < viewportSizes.size() ? viewportSizes[view] : Vector2i{1}};
    uniforms.materialStride = Int(materials.stride());
    uniforms.environment = environment.uniform();
    uniforms.number = ++viewNumber;
    return uniforms;
}

void WebGL2Renderer::State::bindBuffers() {
    objects.bind();
    materials.bind();
    lights.bind();
    environment.bind();
    lightTiles.bind();
    textureAtlas->_state->table.bind();
    shadows.bind();
}

void WebGL2Renderer::State::updateLightTiles(const ViewUniforms& view) {
    lightBytes += lightTiles.update(lights.lights(), view.viewProjection, Vector2i{view.viewportSize});
}

void WebGL2Renderer::State::drawDepth(const ViewUniforms& view) {
    GL::Renderer::setColorMask(false, false, false, false);
    PassState state;
    for(const DrawRun& run: list.runs()) {
        const Pipeline& pipeline = pipelines[run.pipeline];
        if(!pipeline.depth) continue;
        state.apply(pipeline.header, run.isMirrored);
        drawing.draw(pipeline.depth->setView(view), list, run, objects, meshes);
    }
    state.end();
    GL::Renderer::setColorMask(true, true, true, true);
}

void WebGL2Renderer::State::drawPicture(const ViewUniforms& view) {
    PassState state;
    // Behind what hides it, and before what lets it through.
    bool isSkyDue = environment.isBackground();
    const auto drawSky = [&] {
        if(!std::exchange(isSkyDue, false)) return;
        state.end();
        sky.draw(view, bool(bloomDrawing));
        ++drawCalls;
    };
    for(const DrawRun& run: list.runs()) {
        const Pipeline& pipeline = pipelines[run.pipeline];
        if(!pipeline.isThere()) continue;
        if(pipeline.header.flags & PipelineHeader::Blend) drawSky();
        state.apply(pipeline.header, run.isMirrored);
        drawing.draw(pipeline.picture->setView(view), list, run, objects, meshes);
    }
    drawSky();
    state.end();
}

// The same meshes with the same holes. They are counted in the stencil alone.
void WebGL2Renderer::State::drawCounts(const ViewUniforms& view) {
    GL::Renderer::setColorMask(false, false, false, false);
    GL::Renderer::enable(GL::Renderer::Feature::StencilTest);
    PassState state;
    for(const DrawRun& run: list.runs()) {
        const Pipeline& pipeline = pipelines[run.pipeline];
        if(!pipeline.isThere()) continue;
        state.apply(pipeline.header, run.isMirrored);
        drawing.draw(pipeline.oneColor->setView(view).setColor(Color4{1.0f}), list, run, objects, meshes);
    }
    state.end();
    GL::Renderer::disable(GL::Renderer::Feature::StencilTest);
    GL::Renderer::setColorMask(true, true, true, true);
}

void WebGL2Renderer::State::sortFor(const ViewManager& views, Id view) {
    // Along the direction of view, the negative z axis.
    const Matrix4 toView = views.viewTransform(matricesOf(views, view)).toMatrix();
    list.sortBlended(-toView.row(2), objects);
    instances.use(list.slots());
}

void WebGL2Renderer::State::drawView(ViewManager& views, Id view) {
    const ViewUniforms uniforms = viewUniforms(views, view);
    sortFor(views, view);
    updateLightTiles(uniforms);
    GL::AbstractFramebuffer* const target = views.targetFramebuffer(view);
    if(bloomDrawing && !target) return;
    if(bloomDrawing && !bloomDrawing->begin(view, *target)) giveUpGlow(*target);
    if(bloomDrawing) return drawGlowing(view, *target, uniforms);
    if(isDepthPassEnabled) drawDepth(uniforms);
    drawPicture(uniforms);
    drawColliders(uniforms);
}

// Colliders are no part of the scene: their colours are those of the screen.
void WebGL2Renderer::State::drawGlowing(Id view, GL::AbstractFramebuffer& target, const ViewUniforms& uniforms) {
    if(isDepthPassEnabled) drawDepth(uniforms);
    drawPicture(uniforms);
    bloomDrawing->end(view, bloom, target);
    drawColliders(uniforms);
    // For the next view.
    bindBuffers();
}

void WebGL2Renderer::State::setGlowing(bool isGlowing) {
    bloomDrawing = isGlowing ? std::make_unique<BloomDrawing>() : nullptr;
    pipelines.setLinear(isGlowing);
    areProgramsBuilt = false;
}

void WebGL2Renderer::State::giveUpGlow(GL::AbstractFramebuffer& target) {
    // What the GL has to say of it is said here.
    for(int i = 0; i != MaximumErrors && GL::Renderer::error() != GL::Renderer::Error::NoError; ++i) {
    }
    const Vector2i size = target.viewport().max();
    if(!isBloomFailureSaid)
        Utility::Warning{} << "WebGL2Renderer: no memory for the bloom of" << size.x() << "x" << size.y()
                           << "pixels: drawn without";
    isBloomFailureSaid = true;
    setGlowing(false);
    buildPrograms();
    bindBuffers();
    target.bind();
}

void WebGL2Renderer::State::countView(ViewManager& views, Id view) {
    GL::AbstractFramebuffer* const target = views.targetFramebuffer(view);
    if(!target || !overdraw->begin(*target)) return;
    const ViewUniforms uniforms = viewUniforms(views, view);
    sortFor(views, view);
    if(isDepthPassEnabled) drawDepth(uniforms);
    drawCounts(uniforms);
    if(environment.isBackground()) sky.draw(uniforms, false);
}

void WebGL2Renderer::State::drawColliders(const ViewUniforms& view) {
    for(const Draw& draw: draws) {
        const Pipeline& pipeline = pipelines[colliderPipeline];
        if(draw.kind != Draw::Kind::ColliderVisualization || !pipeline.isThere()) continue;
        PassState state;
        state.apply(pipeline.header, false);
        const Vector4 color = materials.value(colliderMaterial, pipeline.parameter("wireframeColor"));
        drawCalls += colliders.draw(lineProgram, view.viewProjection, Color4{color});
        state.end();
    }
}

std::size_t WebGL2Renderer::State::drawPlainly(const ViewUniforms& view, const DrawList& runs,
    std::shared_ptr<MeshProgram> Pipeline::*program, const Color4& color) {
    const std::size_t before = drawing.calls();
    buildPrograms();
    bindBuffers();
    PassState state;
    for(const DrawRun& run: runs.runs()) {
        const Pipeline& pipeline = pipelines[run.pipeline];
        if(!(pipeline.*program)) continue;
        state.applySides(pipeline.header, run.isMirrored);
        drawing.draw((pipeline.*program)->setView(view).setColor(color), runs, run, objects, meshes);
    }
    state.end();
    return drawing.calls() - before;
}

void WebGL2Renderer::State::drawSheets(ViewManager& views) {
    if(!debug.textureOverlay) return sheets.reset();
    if(!sheets) sheets = std::make_unique<TextureSheets>();
    bindBuffers();
    for(const Id view: views.components().prefix(views.numActiveComponents()))
        if(GL::AbstractFramebuffer* const target = views.targetFramebuffer(view))
            sheets->draw(*target, debug, textureAtlas->_state->table.images(), shadows);
}

void WebGL2Renderer::updateColliderVisualizationBatch(Id, Id material, Scene& scene) {
    _state->colliderMaterial = material;
    _state->colliders.update(scene);
}

void WebGL2Renderer::clearColliderVisualizationBatch(Id) { _state->colliders.clear(); }

// Skinned meshes stand as they were made.
void WebGL2Renderer::updateSkinning(const Scene&) {}

void WebGL2Renderer::updateMeshVisibility(Scene& scene, const Matrix4& cullingMatrix) {
    _state->buildPrograms();
    _state->pipelines.tidy();
    _state->sortDraws();
    _state->objects.update(scene, _state->meshes);
    _state->shadows.touch(_state->objects.touched());
    if(_state->isCullingEnabled)
        findInside(FrustumPlanes{cullingMatrix}, _state->objects.spheres(), _state->visible);
    else
        findAll(_state->objects.spheres(), _state->visible);
    _state->list.build(_state->visible, scene.meshes, _state->objects);
}

void WebGL2Renderer::updateLights(Scene& scene) {
    _state->lightBytes += _state->lights.update(scene);
    _state->environment.update(scene.environment, scene.environmentBaking);
    if(_state->pipelines.setEnvironment(_state->environment.isThere())) _state->areProgramsBuilt = false;
}

void WebGL2Renderer::beginOverdrawTracking() {
    if(!_state->overdraw) _state->overdraw = std::make_unique<OverdrawDrawing>();
    _state->isOverdrawTracked = true;
}

void WebGL2Renderer::render(ViewManager& views, Scene&) {
    State& state = *_state;
    RendererState{}.apply();
    state.buildPrograms();
    state.bindBuffers();
    state.drawing.resetStatistics();
    state.drawCalls = 0;
    if(!state.isOverdrawTracked) state.overdraw.reset();
    for(const Id view: views.components().prefix(views.numActiveComponents())) {
        if(GL::AbstractFramebuffer* const target = views.targetFramebuffer(view)) target->bind();
        if(state.isOverdrawTracked)
            state.countView(views, view);
        else
            state.drawView(views, view);
    }
    if(!state.isOverdrawTracked) state.drawSheets(views);
    state.drawCalls += state.drawing.calls();
    state.triangles = state.drawing.triangles();
}

// Without compressed images there is nothing to do.
void WebGL2Renderer::updateTextureStreaming(ViewManager&) {}

void WebGL2Renderer::evalTextureStreaming(ViewManager&) {}

void WebGL2Renderer::endOverdrawTracking() { _state->isOverdrawTracked = false; }

void WebGL2Renderer::renderOverdraw(ViewManager& views) {
    if(!_state->overdraw) return;
    for(const Id view: views.components().prefix(views.numActiveComponents())) {
        GL::AbstractFramebuffer* const target = views.targetFramebuffer(view);
        if(!target) continue;
        _state->overdraw->show(*target);
        _state->drawColliders(_state->viewUniforms(views, view));
    }
    _state->drawSheets(views);
}

void WebGL2Renderer::drawObjectIds(const ViewManager& views, Id view, const Scene&) {
    _state->instances.use(_state->list.slots());
    _state->objectIdCalls =
        _state->drawPlainly(_state->viewUniforms(views, view), _state->list, &Pipeline::objectIds, {});
}

std::size_t WebGL2Renderer::drawFlat(
    const ViewManager& views, Id view, const Scene&, const BitSetView& objects, const Color4& color) {
    State& state = *_state;
    state.someOfList.assignWhere(
        state.list, [&](Id slot) { return slot < state.objects.size() && objects.isSet(state.objects.object(slot)); });
    const std::size_t count = state.someOfList.slots().size();
    state.flatCalls = 0;
    if(!count) return 0;
    state.someInstances.use(state.someOfList.slots());
    state.flatCalls = state.drawPlainly(state.viewUniforms(views, view), state.someOfList, &Pipeline::oneColor, color);
    return count;
}

} // namespace VantrelEngine
