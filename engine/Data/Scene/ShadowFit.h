#pragma once

#include <array>

#include <Magnum/Magnum.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector3.h>

namespace VantrelEngine {

// Where the maps of shadows lie. Matrices lead from the scene's space to the map's clip space, -1 to 1 in each
// direction, with the light at the near plane. Lengths are in scene units.

// The part of what a view sees between two distances along its axis: its corners in the scene's space.
using FrustumCorners = std::array<Magnum::Vector3, 8>;

// viewTransform leads from the scene's space to the view's and is a unit dual quaternion; projection is a perspective one
// with a finite, invertible scale across the axis, not off centre.
FrustumCorners frustumCorners(const Magnum::DualQuaternion& viewTransform, const Magnum::Matrix4& projection,
    Magnum::Float nearDistance, Magnum::Float farDistance);

// Where slice i of count ends, from 0 < near to far: the mean of equal steps and of equal factors (F. Zhang, H. Sun, L. Xu
// and K. L. Lee, "Parallel-Split Shadow Maps for Large-scale Virtual Environments", 2006).
Magnum::Float sliceEnd(Magnum::UnsignedInt i, Magnum::UnsignedInt count, Magnum::Float near, Magnum::Float far);

// Both take the light's transformation in the scene, a unit dual quaternion; lights shine along the negative y axis.

// A box around the corners, along the light's axes, and longer by the reach towards the light for what throws shadows from
// there. Its edges across the light lie at multiples of the texel size, where that is above 0, so that the texels stay
// where they are when the view moves along.
Magnum::Matrix4 sunShadow(
    const Magnum::DualQuaternion& light, const FrustumCorners& corners, Magnum::Float reach, Magnum::Float texelSize);

// The square around the cone, from a hundredth of the reach (above 0) on. The angle is that from the axis to the cone, in
// degrees; one that is not between 1 and 80 counts as the nearest of these.
Magnum::Matrix4 spotShadow(const Magnum::DualQuaternion& light, Magnum::Float angle, Magnum::Float reach);

} // namespace VantrelEngine
