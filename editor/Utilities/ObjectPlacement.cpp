#include "Utilities/ObjectPlacement.h"

#include <cmath>

#include <Magnum/Math/Functions.h>
#include <Vantrel/EngineData/JsonObject.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

bool isFinite(const Vector3& vector) {
    return std::isfinite(vector.x()) && std::isfinite(vector.y()) && std::isfinite(vector.z());
}

// What is written as zero counts as a little; a scaling of that is none that can be taken back.
bool isFlat(const Vector3& scaling) { return Math::abs(scaling).min() <= SafeScaling; }

} // namespace

ObjectPlacement placementInScene(const ObjectPlacement& local, const ObjectPlacement& parent) {
    return {(parent.rotation * local.rotation).normalized(),
        parent.translation + parent.rotation.transformVectorNormalized(parent.scaling * local.translation),
        parent.scaling * local.scaling};
}

std::optional<ObjectPlacement> placementBelow(const ObjectPlacement& inScene, const ObjectPlacement& parent) {
    if(isFlat(parent.scaling)) return {};
    const Quaternion back = parent.rotation.conjugated();
    const ObjectPlacement local{(back * inScene.rotation).normalized(),
        back.transformVectorNormalized(inScene.translation - parent.translation) / parent.scaling,
        inScene.scaling / parent.scaling};
    if(!isFinite(local.translation) || !isFinite(local.scaling)) return {};
    return local;
}

} // namespace VantrelEngine
