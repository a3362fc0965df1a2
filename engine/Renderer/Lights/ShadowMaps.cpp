#include "Renderer/Lights/ShadowMaps.h"

#include <algorithm>

#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/GL/Sampler.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>
#include <Vantrel/EngineData/Scene.h>
#include <Vantrel/Renderer/RendererState.h>

#include "Renderer/Meshes/FrustumCulling.h"
#include "Renderer/TextureUnits.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// As Shadows.glsl reads them.
constexpr std::size_t TexelsPerLight = 2, TexelsPerMap = 6;

// Texels to each side that filters look at.
constexpr Float FilterReach = 2.0f;
// Of a cascade's width, in which it gives way to the next one.
constexpr Float CascadeBlend = 0.08f;

bool isSame(const ShadowTile& a, const ShadowTile& b) { return a.offset == b.offset && a.size == b.size; }

} // namespace

void ShadowMaps::update(Scene& scene) {
    const Containers::ArrayView<const LightShadow> fits = scene.lights.shadows();
    if(fits.isEmpty() && _maps.empty()) return;
    place(fits);
    _maps.resize(fits.size());
    for(std::size_t i = 0; i != fits.size(); ++i) {
        Map& map = _maps[i];
        map.isCurrent = map.isCurrent && map.fit.light == fits[i].light && map.fit.matrix == fits[i].matrix &&
            isSame(map.tile, _tiles[i]);
        map.fit = fits[i];
        map.tile = _tiles[i];
    }
    describe(scene);
}

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
    touchAll();
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
}

void ShadowMaps::touch(const Spheres& places) {
    if(!places.size()) return;
    for(Map& map: _maps)
        if(map.isCurrent) map.isCurrent = !isAnyInside(FrustumPlanes{map.fit.matrix}, places);
}

void ShadowMaps::touchAll() {
    for(Map& map: _maps) map.isCurrent = false;
}

// Both the lights for shaders and the shadows follow the order of the active lights.
void ShadowMaps::describe(Scene& scene) {
    LightManager& lights = scene.lights;
    const auto components = lights.components().prefix(lights.numActiveComponents());
    _nextTexels.assign(components.size() * TexelsPerLight, Vector4{});
    std::size_t map = 0, light = 0;
    for(const Id component: components) {
        const std::size_t first = _nextTexels.size();
        const bool isSun = lights.lightType(component) == LightType::Sun;
        std::size_t count = 0;
        for(; map != _maps.size() && _maps[map].fit.light == component; ++map, ++count) describe(_maps[map], isSun);
        if(count) {
            const Vector4& parameters = lights.shadowParameters(component);
            const Vector3 place = scene.absoluteTransformation(lights.object(component)).translation();
            const Float range = lights.shadowRange(component);
            _nextTexels[light] = {Float(first), Float(count), parameters.x(), parameters.y()};
            _nextTexels[light + 1] = {place, isSun ? -range : range};
        }
        light += TexelsPerLight;
    }
    if(_nextTexels == _texels) return;
    std::swap(_texels, _nextTexels);
    _data.reserve(_texels.size() * sizeof(Vector4));
    _data.write(0, vectorView(std::as_const(_texels)));
}

void ShadowMaps::describe(const Map& map, bool isSun) {
    if(!map.tile.size) {
        // Everything is beyond its edge.
        _nextTexels.insert(_nextTexels.end(),
            {{}, {}, {}, Vector4{0.0f, 0.0f, 0.0f, 1.0f}, Vector4{1.0f, 1.0f, 2.0f, 2.0f}, {0.0f, 1.0f, 0.0f, 0.0f}});
        return;
    }
    const Float texel = 1.0f / Float(_edge);
    const Vector2 offset = Vector2{map.tile.offset} * texel;
    const Float half = 0.5f * Float(map.tile.size) * texel;
    const Matrix4 matrix =
        Matrix4::translation({offset + Vector2{half}, 0.5f}) * Matrix4::scaling({half, half, 0.5f}) * map.fit.matrix;
    for(std::size_t row = 0; row != 4; ++row) _nextTexels.push_back(matrix.row(row));
    const Vector2 margin{FilterReach * texel};
    const Vector2 least = offset + margin, most = offset + Vector2{2.0f * half} - margin;
    _nextTexels.push_back({least.x(), least.y(), most.x(), most.y()});
    const Float texelSize = 2.0f / (map.fit.matrix.row(0).xyz().length() * Float(map.tile.size));
    _nextTexels.push_back({texelSize, isSun ? 1.0f / CascadeBlend : 0.0f, 0.0f, 0.0f});
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

void ShadowMaps::bind() {
    if(!_edge) return;
    _data.bind(TextureUnit::ShadowData);
    _texture.bind(TextureUnit::ShadowMaps);
}

} // namespace VantrelEngine
