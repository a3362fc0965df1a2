#include "Renderer/Lights/LightBuffer.h"

#include <cmath>
#include <cstring>

#include <Magnum/GL/BufferTextureFormat.h>
#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Functions.h>
#include <Vantrel/EngineData/Scene.h>

#include "Renderer/TextureUnits.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// What is less than that on a surface across the light is not seen any more.
constexpr Float LeastLight = 0.01f;
constexpr Float Everywhere = -1.0f;
// Of the cosines: an edge sharper than that is a sharp one.
constexpr Float NarrowestEdge = 1.0e-4f;

Float cosineOf(Float degrees) { return Math::cos(Deg{Math::clamp(degrees, 0.0f, 180.0f)}); }

void setCone(LightRecord& light, const Vector3& parameters) {
    const Float outer = cosineOf(parameters.x()), inner = cosineOf(parameters.y());
    const Float factor = 1.0f / Math::max(inner - outer, NarrowestEdge);
    light.positionAndConeFactor.w() = factor;
    light.axisAndConeSummand.w() = -outer * factor;
}

LightRecord recordOf(Scene& scene, Id component, LightType type) {
    const DualQuaternion transformation = scene.absoluteTransformation(scene.lights.object(component));
    const Vector4& color = scene.lights.color(component);
    const Vector3 incoming = Math::max(color.xyz() * color.w(), Vector3{0.0f});
    const Float reach = type == LightType::Sun ? Everywhere : std::sqrt(incoming.max() / LeastLight);
    LightRecord light{{incoming, reach}, {transformation.translation(), 0.0f},
        {transformation.rotation().transformVectorNormalized(Vector3::yAxis(-1.0f)), 1.0f}};
    if(type == LightType::Spot) setCone(light, scene.lights.parameters(component));
    return light;
}

} // namespace

std::size_t packLights(Scene& scene, std::vector<LightRecord>& lights) {
    lights.clear();
    const auto components = scene.lights.components().prefix(scene.lights.numActiveComponents());
    std::size_t withShadows = 0;
    for(const bool hasShadows: {true, false}) {
        for(const Id light: components)
            if(isMeantToThrowShadows(scene.lights, light) == hasShadows)
                lights.push_back(recordOf(scene, light, scene.lights.lightType(light)));
        if(hasShadows) withShadows = lights.size();
    }
    return withShadows;
}

bool isMeantToThrowShadows(LightManager& lights, Id component) { return lights.parameters(component).z() > 0.5f; }

LightBuffer::LightBuffer() {
    upload();
    _texture.setBuffer(GL::BufferTextureFormat::RGBA32F, _buffer).setLabel("Renderer lights");
    _buffer.setLabel("Renderer lights");
}

std::size_t LightBuffer::update(Scene& scene) {
    const std::size_t withShadows = packLights(scene, _next);
    const bool isSame = withShadows == _withShadows && _next.size() == _lights.size() &&
        (_next.empty() || !std::memcmp(_next.data(), _lights.data(), _next.size() * sizeof(LightRecord)));
    if(isSame) return 0;
    std::swap(_lights, _next);
    _withShadows = withShadows;
    upload();
    return _texels.size() * sizeof(Vector4);
}

void LightBuffer::upload() {
    _texels.assign(1, Vector4{Float(_lights.size()), Float(_withShadows), 0.0f, 0.0f});
    for(const LightRecord& light: _lights)
        _texels.insert(_texels.end(), {light.incomingAndReach, light.positionAndConeFactor, light.axisAndConeSummand});
    _buffer.setData(Containers::ArrayView<const Vector4>{_texels.data(), _texels.size()}, GL::BufferUsage::DynamicDraw);
}

void LightBuffer::bind() { _texture.bind(TextureUnit::LightData); }

} // namespace VantrelEngine
