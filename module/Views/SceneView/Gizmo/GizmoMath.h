#pragma once

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector3.h>
#include <Vantrel/EngineData/Types.h>

#include "Views/SceneView/GizmoSettings.h"

// What a drag of the gizmo makes of an object, as numbers. It knows no scene, no document and no mouse.
namespace VantrelEngine {

// Tells the sets of objects apart that are dragged together: the exclusive or of the ids, each shifted by 8 bits times
// its position, counted from 1, modulo 4.
Magnum::UnsignedLong gestureKey(Corrade::Containers::ArrayView<const Id> objects);

// Tells gestures apart: ((operation * 4) | space) << 28, exclusive or the key above.
Magnum::UnsignedLong groupKey(GizmoOperation operation, GizmoSpace space, Magnum::UnsignedLong gesture);

// Lengths of the axes of a matrix.
Magnum::Vector3 axisLengths(const Magnum::Matrix4& matrix);

// Where a parent is in the scene.
struct ParentPlace {
    Magnum::DualQuaternion transformation;
    Magnum::Vector3 scaling;
};

// The local matrix of an object after a delta in the world: inverse(parent) * delta * parent * local, in double precision;
// not finite where the parent has no size along an axis. What the parent mirrors it mirrors in place and not in direction,
// as the scene does: the object turns as the delta says, so for the axes the signs of the parent's scaling are left out.
Magnum::Matrix4 draggedLocal(const ParentPlace& parent, const Magnum::Matrix4& delta, const Magnum::Matrix4& local);

bool isFinite(const Magnum::Vector3& vector);
bool isFinite(const Magnum::Matrix4& matrix);

// Whether a matrix is a rotation, a scaling and a translation: its axes are finite, have a length, and are perpendicular
// to each other (cosine within 1e-4).
bool isWithoutShear(const Magnum::Matrix4& matrix);

// Rotation and translation of a local matrix, whose scaling has these signs. Aborts where what remains is no rotation,
// see rotationFromMatrix().
Magnum::DualQuaternion rigidPart(const Magnum::Matrix4& local, const Magnum::Vector3& scaling);

} // namespace VantrelEngine
