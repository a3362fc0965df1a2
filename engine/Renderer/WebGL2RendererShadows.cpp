#include <Vantrel/Renderer/WebGL2Renderer.h>

#include <algorithm>
#include <utility>

#include <Vantrel/EngineData/Scene.h>

#include "Renderer/PassState.h"
#include "Renderer/WebGL2RendererState.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// What leaves no depth, or lets something through, throws none.
bool throwsShadows(const PipelineHeader& header) {
    return (header.flags & PipelineHeader::DepthWrite) && !(header.flags & PipelineHeader::Blend);
}

// Hidden ones, too, and those that reach nowhere right now: so that programs are not built anew with each that comes and
// goes.
bool isAnyMeantToThrowShadows(LightManager& lights) {
    const auto components = lights.components();
    return std::any_of(
        components.begin(), components.end(), [&](Id light) { return isMeantToThrowShadows(lights, light); });
}

} // namespace

void WebGL2Renderer::State::setDrawsDirty() {
    areDrawsSorted = areCastersSorted = false;
    shadows.touchAll();
}

void WebGL2Renderer::State::sortCasters() {
    if(areCastersSorted) return;
    areCastersSorted = true;
    std::vector<DrawGroup> groups;
    for(const Draw& draw: draws) {
        const Pipeline& pipeline = pipelines[draw.pipeline];
        if(draw.kind == Draw::Kind::Meshes && pipeline.isThere() && throwsShadows(pipeline.header))
            groups.push_back({0, DrawGroup::Kind::Opaque, draw.pipeline, draw.group});
    }
    casters.setGroups(std::move(groups));
}

// From the light: what the pipelines' depth programs draw, or where there is none those that make the same holes.
std::uint64_t WebGL2Renderer::State::drawCasters(const Matrix4& matrix, const MeshManager& manager) {
    const std::uint64_t before = casterDrawing.triangles();
    findInside(FrustumPlanes{matrix}, objects.spheres(), inMap);
    casters.build(inMap, manager, objects);
    drawnCasters += casters.slots().size();
    casterInstances.use(casters.slots());
    ViewUniforms uniforms;
    uniforms.viewProjection = matrix;
    uniforms.materialStride = Int(materials.stride());
    uniforms.number = ++viewNumber;
    PassState state;
    for(const DrawRun& run: casters.runs()) {
        const Pipeline& pipeline = pipelines[run.pipeline];
        MeshProgram* const program = (pipeline.depth ? pipeline.depth : pipeline.oneColor).get();
        if(!program) continue;
        state.applySides(pipeline.header, run.isMirrored);
        casterDrawing.draw(program->setView(uniforms), casters, run, objects, meshes);
    }
    state.end();
    return casterDrawing.triangles() - before + objects.size();
}

void WebGL2Renderer::setShadowWork(std::uint64_t workOfFrame) { _state->shadowWork = workOfFrame; }

bool WebGL2Renderer::areShadowsWaiting() const { return _state->shadows.areWaiting(); }

void WebGL2Renderer::updateShadows(Scene& scene, ViewManager& views) {
    State& state = *_state;
    state.drawnShadowMaps = state.drawnCasters = 0;
    state.casterDrawing.resetStatistics();
    if(!views.numActiveComponents()) return;
    const Id view = state.matricesOf(views, views.components()[0]);
    scene.lights.setupShadows(scene, views, view);
    state.shadows.update(scene);
    if(state.pipelines.setShadows(isAnyMeantToThrowShadows(scene.lights))) state.areProgramsBuilt = false;
    state.buildPrograms();
    if(!state.shadows.isEmpty()) state.sortCasters();
    const ShadowViewer viewer{
        views.cullingMatrix(view), views.viewTransform(view).quaternionConjugated().translation()};
    state.drawnShadowMaps = state.shadows.redraw(scene, viewer, state.shadowWork, [&](const ShadowMaps::Map& map) {
        state.bindBuffers();
        return state.drawCasters(map.fit.matrix, scene.meshes);
    });
    state.shadows.describe(scene);
}

std::size_t WebGL2Renderer::drawnShadowMaps() const { return _state->drawnShadowMaps; }

std::size_t WebGL2Renderer::drawnShadowCasters() const { return _state->drawnCasters; }

std::size_t WebGL2Renderer::shadowDrawCalls() const { return _state->casterDrawing.calls(); }

} // namespace VantrelEngine
