#include "CullingFloor.h"

#include <Vantrel/EngineData/Scene.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Measure.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

CullingFloor::CullingFloor(Scene& scene, const SceneResources& resources, const Matrix4& toClip) {
    for(std::size_t axis = 0; axis != 3; ++axis) {
        _planes[2 * axis] = toClip.row(3) + toClip.row(axis);
        _planes[2 * axis + 1] = toClip.row(3) - toClip.row(axis);
    }
    for(Vector4& plane: _planes) plane /= plane.xyz().length();
    const auto objects = scene.meshes.objects(), meshes = scene.meshes.meshes();
    for(std::size_t slot = 0; slot != scene.meshes.numActiveComponents(); ++slot) {
        const SceneMesh& mesh = resources.meshes[meshes[slot]];
        const Vector3 center = scene.absoluteTransformationAsMatrix(objects[slot]).transformPoint(mesh.bounds.center());
        _spheres.push_back({center, mesh.radius * Math::abs(scene.absoluteScaling(objects[slot])).max()});
    }
    _inside.reserve(_spheres.size());
}

void CullingFloor::cull() {
    _inside.resize(_spheres.size());
    std::size_t count = 0;
    for(std::size_t i = 0; i != _spheres.size(); ++i) {
        const Vector4& sphere = _spheres[i];
        bool isInside = true;
        for(const Vector4& plane: _planes)
            isInside = isInside && Math::dot(plane.xyz(), sphere.xyz()) + plane.w() >= -sphere.w();
        _inside[count] = Id(i);
        count += isInside;
    }
    _inside.resize(count);
    keep(_inside.data());
}

}
