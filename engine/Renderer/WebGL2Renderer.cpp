#include <Vantrel/Renderer/WebGL2Renderer.h>

#include <iterator>
#include <string_view>

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EngineData/Scene.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Renderer/Pipelines/DrawParameters.h"
#include "Renderer/WebGL2RendererState.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// By view.
template<class T> T& entry(std::vector<T>& list, Id index, T missing) {
    if(index >= list.size()) list.resize(std::size_t{index} + 1, missing);
    return list[index];
}

} // namespace

WebGL2Renderer::State::State():
    canMultiDraw{hasDrawParameters()}, textureAtlas{new TextureAtlas{std::make_unique<TextureAtlas::State>()}},
    compressedTextureAtlas{new TileStackTextureAtlas{std::make_unique<TileStackTextureAtlas::State>()}},
    pipelines{canMultiDraw}, drawing{canMultiDraw}, casterDrawing{canMultiDraw} {}

void WebGL2Renderer::State::warn(Missing missing) {
    constexpr const char* What[]{"letters of fonts", "texts", "skinned meshes other than as they were made"};
    static_assert(std::size(What) == MissingCount, "a text for each");
    if(isWarned[missing]) return;
    isWarned[missing] = true;
    Utility::Warning{} << "WebGL2Renderer: cannot draw" << What[missing] << "yet";
}

std::uint64_t WebGL2Renderer::State::uploadedBytes() const {
    return meshes.uploadedBytes() + materials.uploadedBytes() + objects.uploadedBytes() + instances.uploadedBytes() +
        someInstances.uploadedBytes() + colliders.uploadedBytes() + lightBytes + shadows.uploadedBytes() +
        casterInstances.uploadedBytes();
}

WebGL2Renderer::WebGL2Renderer(): _state{std::make_unique<State>()} {}

WebGL2Renderer::~WebGL2Renderer() = default;

Id WebGL2Renderer::registerCustomMaterial() { return _state->materials.addCustom(); }

bool WebGL2Renderer::setLayoutFlags(std::uint32_t flags) {
    if(flags == _state->layoutFlags) return false;
    _state->layoutFlags = flags;
    const VertexLayout layout{flags};
    if(layout != _state->meshes.layout()) _state->meshes.setLayout(layout);
    return true;
}

void WebGL2Renderer::setClearColor(const Color4& color) { _state->clearColor = color; }

Color4 WebGL2Renderer::clearColor() const { return _state->clearColor; }

void WebGL2Renderer::setBloomEnabled(bool enabled) {
    if(enabled == _state->isBloomEnabled) return;
    _state->isBloomEnabled = enabled;
    _state->setGlowing(enabled);
}

Shaders::BloomPass& WebGL2Renderer::bloomPass() { return _state->bloom; }

void WebGL2Renderer::setDepthPrePassEnabled(bool enabled) { _state->isDepthPassEnabled = enabled; }

void WebGL2Renderer::setMultiDrawEnabled(bool enabled) {
    _state->drawing.setMultiDrawEnabled(enabled);
    _state->casterDrawing.setMultiDrawEnabled(enabled);
}

void WebGL2Renderer::setFrustumCullingEnabled(bool enabled) { _state->isCullingEnabled = enabled; }

RendererDebug& WebGL2Renderer::debug() { return _state->debug; }

void WebGL2Renderer::setViewportSize(Id view, const Vector2i& size) {
    Vector2i& known = entry(_state->viewportSizes, view, Vector2i{1});
    if(known == Math::max(size, Vector2i{1})) return;
    known = Math::max(size, Vector2i{1});
    if(_state->bloomDrawing) _state->bloomDrawing->forget(view);
    // There may be memory for this one.
    if(_state->isBloomEnabled && !_state->bloomDrawing) _state->setGlowing(true);
}

void WebGL2Renderer::setViewBufferForView(Id view, Id buffer) {
    entry(_state->viewBuffers, view, NoComponent) = buffer;
}

void WebGL2Renderer::setTextureAtlasSize(const Vector2i& size) {
    _state->textureAtlas->_state->table.images().setLayerSize(size);
}

// Compressed images have no room yet, whatever its size.
void WebGL2Renderer::setCompressedTextureAtlasSize(const Vector2i&) {}

void WebGL2Renderer::clearImages() { _state->textureAtlas->_state->table.clear(); }

bool WebGL2Renderer::reserveImage(
    Id image, const Vector2i& size, Containers::ArrayView<const std::uint64_t> tileHashes) {
    if(!tileHashes.isEmpty()) return _state->compressedTextureAtlas->_state->refuse();
    return _state->textureAtlas->_state->table.images().reserve(image, size);
}

TextureAtlas& WebGL2Renderer::textureAtlas() { return *_state->textureAtlas; }

TileStackTextureAtlas& WebGL2Renderer::compressedTextureAtlas() { return *_state->compressedTextureAtlas; }

void WebGL2Renderer::setImageForTexture(const SceneTexture& texture, Id image) {
    _state->textureAtlas->_state->table.setTexture(texture, image);
}

void WebGL2Renderer::prepareImages() {
    _state->textureAtlas->_state->table.prepare();
    _state->areProgramsBuilt = false;
    _state->shadows.touchAll();
}

void WebGL2Renderer::clearShaders() {
    _state->pipelines.clear();
    _state->colliderPipeline = 0;
    _state->setDrawsDirty();
}

void WebGL2Renderer::addDepthShader(std::string_view vertexSource) { _state->pipelines.setDepthSource(vertexSource); }

// Skinned meshes are drawn by their pipelines' own shaders as long as they stand as they were made.
void WebGL2Renderer::addSkinningShader(std::string_view) {}

void WebGL2Renderer::addPipeline(
    Id pipeline, const ScenePipeline& description, std::string_view vertexSource, std::string_view fragmentSource) {
    _state->pipelines.add(pipeline, description, vertexSource, fragmentSource, _state->meshes.layout());
    _state->areProgramsBuilt = false;
    _state->setDrawsDirty();
}

Id WebGL2Renderer::pipelineIndex(Containers::StringView name) const {
    return _state->pipelines.find(std::string_view{name.data(), name.size()});
}

Id WebGL2Renderer::addColliderVisualizationPipeline(Id pipeline) { return _state->colliderPipeline = pipeline; }

// They are built with the settings that switch them on.
void WebGL2Renderer::loadPostProcessShaders() {}

// Without compressed images there are no tiles to ask for.
void WebGL2Renderer::addTileFeedbackShader(std::string_view, std::string_view, bool) {}

void WebGL2Renderer::resetFonts() {}

void WebGL2Renderer::updateFonts(Containers::ArrayView<const SceneFont>) { _state->warn(State::Fonts); }

void WebGL2Renderer::prepareBatches(Containers::ArrayView<const SceneMesh> meshes, const TextManager&) {
    _state->meshes.prepare(meshes);
    _state->objects.setAllDirty();
    _state->colliders.clear();
}

Id WebGL2Renderer::addColliderVisualizationBatch() {
    _state->colliders.clear();
    return 1;
}

void WebGL2Renderer::updateMeshes(Containers::ArrayView<const SceneMesh> meshes) {
    if(!_state->meshes.update(meshes)) return;
    _state->objects.setAllDirty();
    _state->shadows.touchAll();
}

void WebGL2Renderer::updateTexts(TextManager& texts) {
    if(texts.numActiveComponents()) _state->warn(State::Texts);
}

void WebGL2Renderer::prepareDrawsList(Containers::ArrayView<const Draw> draws) {
    _state->draws.assign(draws.begin(), draws.end());
    _state->setDrawsDirty();
    _state->objects.setAllDirty();
    for(const Draw& draw: draws)
        if(draw.isSkinned) _state->warn(State::Skinning);
}

void WebGL2Renderer::addDraw(const Draw& draw) {
    _state->draws.push_back(draw);
    _state->setDrawsDirty();
}

void WebGL2Renderer::updateMaterials(
    Containers::ArrayView<const SceneMaterial> materials, Containers::ArrayView<const ScenePipeline>) {
    _state->materials.updateScene(materials);
    _state->areProgramsBuilt = false;
    _state->shadows.touchAll();
    _state->buildPrograms();
}

void WebGL2Renderer::updateMaterial(Id index, const SceneMaterial& material) {
    _state->materials.update(index, material);
    _state->areProgramsBuilt = false;
}

GL::Mesh* WebGL2Renderer::mesh(Id mesh) { return _state->meshes.one(mesh); }

const std::vector<Id>& WebGL2Renderer::visibleMeshes() const { return _state->visible; }

std::size_t WebGL2Renderer::drawCalls() const { return _state->drawCalls; }

std::size_t WebGL2Renderer::objectIdDrawCalls() const { return _state->objectIdCalls; }

std::size_t WebGL2Renderer::flatDrawCalls() const { return _state->flatCalls; }

std::uint64_t WebGL2Renderer::triangles() const { return _state->triangles; }

std::uint64_t WebGL2Renderer::uploadedBytes() const { return _state->uploadedBytes(); }

std::size_t WebGL2Renderer::builtPrograms() const { return _state->pipelines.builtPrograms(); }

bool WebGL2Renderer::isBakingEnvironment() const { return _state->environment.isUnderWay(); }

std::size_t WebGL2Renderer::environmentBakes() const { return _state->environment.bakeCount(); }

} // namespace VantrelEngine
