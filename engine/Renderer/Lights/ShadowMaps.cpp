#include "Renderer/Lights/ShadowMaps.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/GL/Sampler.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>
#include <Vantrel/EngineData/Scene.h>
#include <Vantrel/Renderer/RendererState.h>

#include "Renderer/Lights/LightBuffer.h"
#include "Renderer/Meshes/FrustumCulling.h"
#include "Renderer/TextureUnits.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// As Shadows.glsl reads them.
constexpr std::size_t TexelsPerLight = 2;

// Texels to each side that filters look at.
constexpr Float FilterReach = 2.0f;

bool isSame(const ShadowTile& a, const ShadowTile& b) { return a.offset == b.offset && a.size == b.size; }

// To the bit: what is compared with some tolerance might creep away.
bool isSame(const Matrix4& a, const Matrix4& b) { return !std::memcmp(&a, &b, sizeof(a)); }
bool isSame(const std::vector<Vector4>& a, const std::vector<Vector4>& b) {
    return a.size() == b.size() && (a.empty() || !std::memcmp(a.data(), b.data(), a.size() * sizeof(Vector4)));
}

// Else a framebuffer without colours is not complete before OpenGL 4.1. The library cannot say it.
void readNothingFrom(GL::Framebuffer& framebuffer) {
    GL::Context::current().resetState(GL::Context::State::EnterExternal);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer.id());
    glReadBuffer(GL_NONE);
    GL::Context::current().resetState(GL::Context::State::Framebuffers);
}

} // namespace

void ShadowMaps::update(Scene& scene) {
    const Containers::ArrayView<const LightShadow> fits = scene.lights.shadows();
    if(fits.isEmpty() && _maps.empty()) return;
    place(fits);
    _maps.resize(fits.size());
    for(std::size_t i = 0; i != fits.size(); ++i) {
        Map& map = _maps[i];
        map.isShown = map.isShown && map.fit.light == fits[i].light && isSame(map.tile, _tiles[i]);
        map.isCurrent = map.isCurrent && map.isShown && isSame(map.shown, fits[i].matrix);
        map.fit = fits[i];
        map.tile = _tiles[i];
    }
}

void ShadowMaps::findWaiting(Scene& scene, const ShadowViewer& viewer) {
    _waiting.clear();
    for(std::size_t first = 0, end = 0; first != _maps.size(); first = end) {
        const Id light = _maps[first].fit.light;
        const Map* waiting = nullptr;
        for(; end != _maps.size() && _maps[end].fit.light == light; ++end)
            if(isWaiting(_maps[end])) waiting = &_maps[end];
        if(!waiting) continue;
        const bool isSun = scene.lights.lightType(light) == LightType::Sun;
        const Vector3 place = scene.absoluteTransformation(scene.lights.object(light)).translation();
        const Float part = isSun ? 1.0f : seenPart(place, scene.lights.shadowRange(light), viewer);
        _waiting.push_back({first, end, part, waiting->waited});
    }
    sortByWeight(_waiting);
}

void ShadowMaps::noteDrawn(Map& map) {
    map.isCurrent = map.isShown = true;
    map.shown = map.fit.matrix;
    map.waited = 0;
}

bool ShadowMaps::areWaiting() const { return std::any_of(_maps.begin(), _maps.end(), isWaiting); }

void ShadowMaps::place(Containers::ArrayView<const LightShadow> fits) {
    _nextSizes.clear();
    for(const LightShadow& fit: fits) _nextSizes.push_back(fit.resolution);
    if(_nextSizes == _sizes) return;
    std::swap(_sizes, _nextSizes);
    const Int edge = placeShadowTiles(
        vectorView(std::as_const(_sizes)), std::min(LargestShadowAtlas, GL::Texture2D::maxSize().x()), _tiles);
    if(edge != _edge) allocate(edge);
    const auto missing = std::count_if(_tiles.begin(), _tiles.end(), [](const ShadowTile& tile) { return !tile.size; });
    if(missing && !_isShortageSaid)
        Utility::Warning{} << "WebGL2Renderer: no room for" << missing << "of" << _tiles.size()
                           << "shadow maps: their lights shine through everything";
    _isShortageSaid = missing;
}

void ShadowMaps::allocate(Int edge) {
    _edge = edge;
    _texture = GL::Texture2D{NoCreate};
    _framebuffer = GL::Framebuffer{NoCreate};
    for(Map& map: _maps) map.isCurrent = map.isShown = false;
    if(!edge) return;
    _texture = GL::Texture2D{};
    _texture.setLabel("Renderer shadow maps")
        .setMinificationFilter(GL::SamplerFilter::Linear)
        .setMagnificationFilter(GL::SamplerFilter::Linear)
        .setWrapping(GL::SamplerWrapping::ClampToEdge)
        .setCompareMode(GL::SamplerCompareMode::CompareRefToTexture)
        .setCompareFunction(GL::SamplerCompareFunction::LessOrEqual)
        .setStorage(1, GL::TextureFormat::DepthComponent24, Vector2i{edge});
    _framebuffer = GL::Framebuffer{{{}, Vector2i{edge}}};
    _framebuffer.setLabel("Renderer shadow maps")
        .attachTexture(GL::Framebuffer::BufferAttachment::Depth, _texture, 0)
        .mapForDraw(GL::Framebuffer::DrawAttachment::None);
    readNothingFrom(_framebuffer);
}

void ShadowMaps::touch(const Spheres& places) {
    if(!places.size()) return;
    for(Map& map: _maps)
        if(map.isCurrent) map.isCurrent = !isAnyInside(FrustumPlanes{map.fit.matrix}, places);
}

void ShadowMaps::touchAll() {
    for(Map& map: _maps) map.isCurrent = false;
}

// As the lights for shaders, the shadows follow the order of the active lights.
void ShadowMaps::describe(Scene& scene) {
    LightManager& lights = scene.lights;
    const auto components = lights.components().prefix(lights.numActiveComponents());
    const auto isMeant = [&](Id light) { return isMeantToThrowShadows(lights, light); };
    _nextTexels.assign(
        std::size_t(std::count_if(components.begin(), components.end(), isMeant)) * TexelsPerLight, Vector4{});
    std::size_t map = 0, texel = 0;
    for(const Id light: components) {
        if(!isMeant(light)) continue;
        const std::size_t first = _nextTexels.size(), firstMap = map;
        for(; map != _maps.size() && _maps[map].fit.light == light; ++map) describe(_maps[map]);
        const Vector4& parameters = lights.shadowParameters(light);
        // One without maps may have no range that makes sense.
        const Float range = map == firstMap ? 1.0f : lights.shadowRange(light);
        _nextTexels[texel++] = {Float(first), Float(map - firstMap), parameters.x(), parameters.y()};
        _nextTexels[texel++] = {scene.absoluteTransformation(lights.object(light)).translation(),
            lights.lightType(light) == LightType::Sun ? -range : range};
    }
    if(isSame(_nextTexels, _texels)) return;
    std::swap(_texels, _nextTexels);
    _data.reserve(_texels.size() * sizeof(Vector4));
    _data.write(0, vectorView(std::as_const(_texels)));
}

void ShadowMaps::describe(const Map& map) {
    // What was not drawn yet is as if it lay nowhere.
    const Int size = map.isShown ? map.tile.size : 0;
    const Float texel = 1.0f / Float(_edge), half = 0.5f * Float(size) * texel;
    const Vector2 middle = Vector2{map.tile.offset} * texel + Vector2{half};
    const Matrix4 matrix = Matrix4::translation({middle, 0.5f}) * Matrix4::scaling({half, half, 0.5f}) * map.shown;
    for(std::size_t row = 0; row != 4; ++row) _nextTexels.push_back(matrix.row(row));
    const Float inside = half - FilterReach * texel;
    const Float texelSize = 2.0f / (map.shown.row(0).xyz().length() * Float(std::max(size, 1)));
    _nextTexels.push_back({middle.x(), middle.y(), inside, texelSize});
}

void ShadowMaps::beginDrawing() {
    RendererState{}.apply();
    GL::Renderer::enable(GL::Renderer::Feature::ScissorTest);
    GL::Renderer::setColorMask(false, false, false, false);
}

void ShadowMaps::clear(const ShadowTile& tile) {
    const Range2Di rectangle = Range2Di::fromSize(tile.offset, Vector2i{tile.size});
    GL::Renderer::setScissor(rectangle);
    _framebuffer.setViewport(rectangle).clearDepth(1.0f).bind();
}

void ShadowMaps::endDrawing() {
    GL::Renderer::setColorMask(true, true, true, true);
    GL::Renderer::disable(GL::Renderer::Feature::ScissorTest);
}

void ShadowMaps::setComparing(bool compares) {
    _texture.setCompareMode(compares ? GL::SamplerCompareMode::CompareRefToTexture : GL::SamplerCompareMode::None);
    bind();
}

void ShadowMaps::bind() {
    if(!_texels.empty()) _data.bind(TextureUnit::ShadowData);
    if(_edge) _texture.bind(TextureUnit::ShadowMaps);
}

} // namespace VantrelEngine
