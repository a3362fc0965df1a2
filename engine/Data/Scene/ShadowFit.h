#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector3.h>

namespace VantrelEngine {

// Where the maps of shadows lie. Matrices lead from the scene's space to the map's clip space, -1 to 1 in each
// direction, with the light at the near plane. Lengths are in scene units.

// The smallest sphere around the part of what a view sees between two distances along its axis, in the scene's space. Its
// radius does not depend on where the view stands and how it is turned.
struct SliceSphere {
    Magnum::Vector3 center;
    Magnum::Float radius;
};

// viewTransform leads from the scene's space to the view's and is a unit dual quaternion; projection is a perspective one
// with a finite, invertible scale across the axis, not off centre.
SliceSphere sliceSphere(const Magnum::DualQuaternion& viewTransform, const Magnum::Matrix4& projection,
    Magnum::Float nearDistance, Magnum::Float farDistance);

// Where slice i of count ends, from 0 < near to far: the mean of equal steps and of equal factors (F. Zhang, H. Sun, L. Xu
// and K. L. Lee, "Parallel-Split Shadow Maps for Large-scale Virtual Environments", 2006).
Magnum::Float sliceEnd(Magnum::UnsignedInt i, Magnum::UnsignedInt count, Magnum::Float near, Magnum::Float far);

// These take the light's transformation in the scene, a unit dual quaternion; lights shine along the negative y axis.

// A box along the light's axes around the sphere, and longer by the reach towards the light for what throws shadows from
// there. Its size depends on the radius and the reach alone. It lies at multiples of a SunSteps-th of its edge, so that a
// sphere that moves has the very same box for a while, and then one whose texels, of any power of two from SunSteps on,
// lie where those of the other did.
Magnum::Matrix4 sunShadow(const Magnum::DualQuaternion& light, const SliceSphere& sphere, Magnum::Float reach);
constexpr Magnum::Int SunSteps = 16;

// The square around the cone, from a hundredth of the reach (above 0) on. The angle is that from the axis to the cone, in
// degrees; one that is not between 1 and 80 counts as the nearest of these.
Magnum::Matrix4 spotShadow(const Magnum::DualQuaternion& light, Magnum::Float angle, Magnum::Float reach);

// What a point light sees along an axis of the scene, from a hundredth of the reach (above 0) on: of faces 0 to 5 along the
// positive and the negative x, y and z axis. A little wider than a face of a cube, for filters that look beyond its edge.
Magnum::Matrix4 pointShadow(const Magnum::Vector3& light, Magnum::UnsignedInt face, Magnum::Float reach);

} // namespace VantrelEngine
