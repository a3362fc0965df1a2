#pragma once

#include <cstddef>
#include <vector>

#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/BufferTexture.h>
#include <Magnum/Math/Vector4.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class LightManager;
struct Scene;

// What Lights.glsl knows of a light: values as it describes them.
struct LightRecord {
    Magnum::Vector4 incomingAndReach;
    Magnum::Vector4 positionAndConeFactor;
    Magnum::Vector4 axisAndConeSummand;
};

// All active lights of a scene, where their objects stand by the absolute transformations as they are. Those that are
// meant to throw shadows come first; returns how many these are.
std::size_t packLights(Scene& scene, std::vector<LightRecord>& lights);

// In the order of components, as packLights() goes through them.
bool isMeantToThrowShadows(LightManager& lights, Id component);

// The lights of a scene for shaders: Lights.glsl reads what this writes.
class LightBuffer {
public:
    // Needs a GL context. No light at first.
    explicit LightBuffer();

    // Costs a step a light, and an upload only where one changed; returns the bytes of that.
    std::size_t update(Scene& scene);
    // As of the last update, and how many of the first of them are meant to throw shadows.
    const std::vector<LightRecord>& lights() const { return _lights; }
    std::size_t withShadows() const { return _withShadows; }
    // To its unit.
    void bind();

private:
    void upload();

    // As uploaded, and as they are now: kept for their memory.
    std::vector<LightRecord> _lights, _next;
    std::size_t _withShadows = 0;
    std::vector<Magnum::Vector4> _texels;
    Magnum::GL::Buffer _buffer;
    Magnum::GL::BufferTexture _texture;
};

} // namespace VantrelEngine
