#pragma once

#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector4.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {
struct Scene;
struct SceneResources;
}

namespace VantrelBench {

// The least that it takes to find what is in a frustum: one loop over spheres.
class CullingFloor {
public:
    // The spheres are those around the scene's active meshes, by slot.
    explicit CullingFloor(
        VantrelEngine::Scene& scene, const VantrelEngine::SceneResources& resources, const Magnum::Matrix4& toClip);

    void cull();
    const std::vector<VantrelEngine::Id>& inside() const { return _inside; }

private:
    Magnum::Vector4 _planes[6];
    // The centre and the radius.
    std::vector<Magnum::Vector4> _spheres;
    std::vector<VantrelEngine::Id> _inside;
};

}
