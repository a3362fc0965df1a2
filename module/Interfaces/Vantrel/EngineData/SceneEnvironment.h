#pragma once

#include <string>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Angle.h>

namespace VantrelEngine {

struct SceneImage;

// What is all around a scene and lights it from all sides, as its project says.
//
// The image is one of longitude over latitude, stretched over the whole sphere: its middle lies in the direction of -z of
// the scene, what is right of that in the picture in the direction of +x, and its upper edge is the direction of +y.
struct SceneEnvironment {
    // Null for none. Valid until the next change of the scene's images; who gives it gives it again then.
    const SceneImage* image = nullptr;
    // Factor of its light, not negative.
    Magnum::Float intensity = 1.0f;
    // About +y.
    Magnum::Deg rotation{0.0f};
    // Whether it is seen where there is nothing else.
    bool isBackground = true;
};

// How the host wants the light of environments to be computed, which takes a while.
struct EnvironmentBaking {
    // Before the frame that needs it. Otherwise bit by bit, over several frames, which show what was there before.
    bool isAtOnce = true;
    // A folder, which may not be there yet, where results are kept for the next time; empty for none.
    std::string cacheFolder;
};

} // namespace VantrelEngine
