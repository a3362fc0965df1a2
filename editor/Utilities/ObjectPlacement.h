#pragma once

#include <optional>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/Math/Vector3.h>

namespace VantrelEngine {

// Where an object stands, in the scene or below a parent: a unit rotation, a translation in scene units, and the scaling
// along its axes.
struct ObjectPlacement {
    Magnum::Quaternion rotation;
    Magnum::Vector3 translation;
    Magnum::Vector3 scaling{1.0f};
};

// Where an object is in the scene that is placed below a parent, as the scene graph computes it: rotations and scalings are
// multiplied, each by itself, so that nothing is ever sheared.
CORRADE_VISIBILITY_EXPORT ObjectPlacement placementInScene(const ObjectPlacement& local, const ObjectPlacement& parent);

// The placement below a parent that leads to a placement in the scene. None where the parent is scaled to nothing along an
// axis, or where no finite numbers come out.
CORRADE_VISIBILITY_EXPORT std::optional<ObjectPlacement> placementBelow(
    const ObjectPlacement& inScene, const ObjectPlacement& parent);

} // namespace VantrelEngine
