#pragma once

#include <memory>

#include <Corrade/Containers/Pair.h>
#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EngineData/Types.h>
#include <Vantrel/Renderer/ShadowsData.h>

namespace VantrelEngine {

// What the camera saw at the moment when the culling was frozen.
struct FrozenCulling {
    Magnum::Matrix4 matrix;
    // Slots of lights, from the first to the one past the last.
    Corrade::Containers::Pair<Id, Id> lights{0, 0};
    // Null where nothing is frozen.
    std::unique_ptr<ShadowsData> shadows;
};

} // namespace VantrelEngine
