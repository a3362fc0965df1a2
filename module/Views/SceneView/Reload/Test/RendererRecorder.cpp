#include "RendererRecorder.h"

#include <sstream>
#include <utility>

#include <Corrade/Containers/Array.h>

using namespace Corrade;
using namespace Magnum;
using VantrelTest::RendererRecorder;

namespace VantrelTest {

std::vector<std::string> RendererRecorder::calls;
std::vector<bool> RendererRecorder::layoutAnswers;
bool RendererRecorder::hasRoom = true;
std::map<std::uint64_t, UnsignedInt> RendererRecorder::tiles;
std::map<VantrelEngine::Id, std::string> RendererRecorder::vertexSources, RendererRecorder::fragmentSources;
std::map<VantrelEngine::Id, VantrelEngine::SceneMaterial> RendererRecorder::materials;

void RendererRecorder::reset() {
    calls.clear();
    layoutAnswers.clear();
    hasRoom = true;
    tiles.clear();
    vertexSources.clear();
    fragmentSources.clear();
    materials.clear();
}

std::vector<std::string> RendererRecorder::takeCalls() { return std::exchange(calls, {}); }

}

namespace {

std::map<std::string, VantrelEngine::Id> pipelines;

std::ostream& operator<<(std::ostream& out, const Vector2i& value) { return out << value.x() << 'x' << value.y(); }
std::ostream& operator<<(std::ostream& out, const Color4& color) {
    return out << color.r() << ' ' << color.g() << ' ' << color.b() << ' ' << color.a();
}

template<class... T> void record(const T&... what) {
    std::ostringstream line;
    line << std::boolalpha;
    ((line << what << ' '), ...);
    std::string text = line.str();
    text.pop_back();
    RendererRecorder::calls.push_back(std::move(text));
}

}

namespace VantrelEngine {

namespace Shaders {

BloomPass& BloomPass::setKernelSize(UnsignedInt size) { return record("bloom kernelSize", size), *this; }
BloomPass& BloomPass::setPasses(UnsignedInt passes) { return record("bloom passes", passes), *this; }
BloomPass& BloomPass::setThreshold(Float threshold) { return record("bloom threshold", threshold), *this; }
BloomPass& BloomPass::setIntensity(Float intensity) { return record("bloom intensity", intensity), *this; }
BloomPass& BloomPass::setExposure(Float exposure) { return record("bloom exposure", exposure), *this; }

}

struct TextureAtlas::State {
    std::size_t count = 0;
};
TextureAtlas::TextureAtlas(std::unique_ptr<State> state): _state{std::move(state)} {}
TextureAtlas::~TextureAtlas() = default;
std::size_t TextureAtlas::textureCount() const { return _state->count; }
void TextureAtlas::setImage(std::size_t index, const SceneImage& image) {
    record("setImage", index, image.id);
    ++_state->count;
}

struct TileStackTextureAtlas::State {};
TileStackTextureAtlas::TileStackTextureAtlas(std::unique_ptr<State> state): _state{std::move(state)} {}
TileStackTextureAtlas::~TileStackTextureAtlas() = default;
UnsignedInt TileStackTextureAtlas::tileIndex(std::uint64_t hash) const {
    record("tileIndex", hash);
    return RendererRecorder::tiles[hash];
}
void TileStackTextureAtlas::uploadTile(UnsignedInt tile, const CompressedImageView2D&) { record("uploadTile", tile); }
void TileStackTextureAtlas::setTileLocked(UnsignedInt tile, bool locked) { record("setTileLocked", tile, locked); }

struct WebGL2Renderer::State {
    State():
        atlas{new TextureAtlas{std::make_unique<TextureAtlas::State>()}},
        tiles{new TileStackTextureAtlas{std::make_unique<TileStackTextureAtlas::State>()}} {}

    Shaders::BloomPass bloom;
    std::unique_ptr<TextureAtlas> atlas;
    std::unique_ptr<TileStackTextureAtlas> tiles;
    Id customMaterials = 0;
};

WebGL2Renderer::WebGL2Renderer(): _state{std::make_unique<State>()} {}
WebGL2Renderer::~WebGL2Renderer() = default;

Id WebGL2Renderer::registerCustomMaterial() { return Id(60000 + _state->customMaterials++); }

bool WebGL2Renderer::setLayoutFlags(std::uint32_t flags) {
    record("setLayoutFlags", flags);
    std::vector<bool>& answers = RendererRecorder::layoutAnswers;
    if(answers.empty()) return false;
    const bool answer = answers.front();
    answers.erase(answers.begin());
    return answer;
}

void WebGL2Renderer::setClearColor(const Color4& color) { record("setClearColor", color); }
void WebGL2Renderer::setBloomEnabled(bool enabled) { record("setBloomEnabled", enabled); }
Shaders::BloomPass& WebGL2Renderer::bloomPass() { return _state->bloom; }
void WebGL2Renderer::setDepthPrePassEnabled(bool enabled) { record("setDepthPrePassEnabled", enabled); }
void WebGL2Renderer::setMultiDrawEnabled(bool enabled) { record("setMultiDrawEnabled", enabled); }
void WebGL2Renderer::setFrustumCullingEnabled(bool enabled) { record("setFrustumCullingEnabled", enabled); }
void WebGL2Renderer::setViewportSize(Id view, const Vector2i& size) { record("setViewportSize", view, size); }
void WebGL2Renderer::setViewBufferForView(Id view, Id buffer) { record("setViewBufferForView", view, buffer); }

void WebGL2Renderer::setTextureAtlasSize(const Vector2i& size) { record("setTextureAtlasSize", size); }
void WebGL2Renderer::setCompressedTextureAtlasSize(const Vector2i& size) {
    record("setCompressedTextureAtlasSize", size);
}
void WebGL2Renderer::clearImages() {
    record("clearImages");
    *_state->atlas->_state = {};
}
bool WebGL2Renderer::reserveImage(
    Id image, const Vector2i& size, Containers::ArrayView<const std::uint64_t> tileHashes) {
    record("reserveImage", image, size, tileHashes.size());
    return RendererRecorder::hasRoom;
}
TextureAtlas& WebGL2Renderer::textureAtlas() { return *_state->atlas; }
TileStackTextureAtlas& WebGL2Renderer::compressedTextureAtlas() { return *_state->tiles; }
void WebGL2Renderer::setImageForTexture(const SceneTexture& texture, Id image) {
    record("setImageForTexture", texture.id, image);
}
void WebGL2Renderer::prepareImages() { record("prepareImages"); }

void WebGL2Renderer::clearShaders() {
    record("clearShaders");
    pipelines.clear();
}
void WebGL2Renderer::addDepthShader(std::string_view source) { record("addDepthShader", !source.empty()); }
void WebGL2Renderer::addSkinningShader(std::string_view source) { record("addSkinningShader", !source.empty()); }
void WebGL2Renderer::addPipeline(
    Id pipeline, const ScenePipeline& description, std::string_view vertexSource, std::string_view fragmentSource) {
    record("addPipeline", pipeline, description.name);
    pipelines[description.name] = pipeline;
    RendererRecorder::vertexSources[pipeline] = vertexSource;
    RendererRecorder::fragmentSources[pipeline] = fragmentSource;
}
Id WebGL2Renderer::pipelineIndex(Containers::StringView name) const {
    const auto found = pipelines.find({name.data(), name.size()});
    return found == pipelines.end() ? Id{0} : found->second;
}
Id WebGL2Renderer::addColliderVisualizationPipeline(Id pipeline) {
    record("addColliderVisualizationPipeline", pipeline);
    return pipeline;
}
void WebGL2Renderer::loadPostProcessShaders() { record("loadPostProcessShaders"); }
void WebGL2Renderer::addTileFeedbackShader(std::string_view, std::string_view fragmentSource, bool isSky) {
    record("addTileFeedbackShader", isSky, fragmentSource.substr(0, fragmentSource.find('\n')) == "#define SKY");
}

void WebGL2Renderer::resetFonts() { record("resetFonts"); }
void WebGL2Renderer::updateFonts(Containers::ArrayView<const SceneFont> fonts) { record("updateFonts", fonts.size()); }

void WebGL2Renderer::prepareBatches(Containers::ArrayView<const SceneMesh> meshes, const TextManager&) {
    record("prepareBatches", meshes.size());
}
Id WebGL2Renderer::addColliderVisualizationBatch() {
    record("addColliderVisualizationBatch");
    return 7;
}
void WebGL2Renderer::updateMeshes(Containers::ArrayView<const SceneMesh> meshes) {
    record("updateMeshes", meshes.size());
}
void WebGL2Renderer::updateTexts(TextManager&) { record("updateTexts"); }

void WebGL2Renderer::prepareDrawsList(Containers::ArrayView<const Draw> draws) {
    record("prepareDrawsList", draws.size());
}
void WebGL2Renderer::addDraw(const Draw& draw) {
    record(
        "addDraw", draw.kind == Draw::Kind::ColliderVisualization ? "colliders" : "meshes", draw.pipeline, draw.group);
}

void WebGL2Renderer::updateMaterials(
    Containers::ArrayView<const SceneMaterial> materials, Containers::ArrayView<const ScenePipeline> descriptions) {
    record("updateMaterials", materials.size(), descriptions.size());
}
void WebGL2Renderer::updateMaterial(Id index, const SceneMaterial& material) {
    record("updateMaterial", index);
    RendererRecorder::materials[index] = material;
}

}
