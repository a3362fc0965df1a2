#pragma once

#include <Magnum/Magnum.h>

namespace VantrelEngine {

// Inverse of a rotation followed by a translation: the transposed rotation, and the translation rotated back and
// negated. Aborts with "Math::Matrix4::invertedRigid(): the matrix doesn't represent a rigid transformation:" and the
// matrix unless every basis vector has unit length (squared length within 2e-5), every pair of them is perpendicular
// (dot product within 1e-5) and the last row is (0, 0, 0, 1).
//
// The math library makes this check in debug builds only; an editor that went on with a wrong camera would show, and
// pick, the wrong thing.
Magnum::Matrix4 invertedRigid(const Magnum::Matrix4& matrix);

// Unit quaternion of a rotation matrix. Aborts with "Math::Quaternion::fromMatrix(): the matrix is not a rotation:" and
// the matrix unless its determinant is within 3e-5 of 1 (a reflection, a scale or NaN is not).
Magnum::Quaternion rotationFromMatrix(const Magnum::Matrix3x3& matrix);

}
