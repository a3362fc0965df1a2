#pragma once

#include <vector>

#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// Where the lights of a scene cast shadows: a matrix from the scene's space to clip space for each cascade of a light,
// the nearest first. Copied to be looked at while the scene goes on.
struct ShadowsData {
    struct Light {
        // Component of the scene's light manager.
        Id light;
        std::vector<Magnum::Matrix4> cascades;
    };

    std::vector<Light> lights;
};

} // namespace VantrelEngine
