#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>

#include "Import/Converter/Model.h"

namespace VantrelImport {

// Sets the place of a node from what may be anything; a quaternion of any length. False where something of it is not
// finite or cannot be told: that part is as if there were none.
bool setPlace(
    Node& node, const Magnum::Vector3& translation, const Magnum::Quaternion& rotation, const Magnum::Vector3& scaling);

enum class Fit { Exact, Sheared, Unusable };

// The same from a matrix. A mirrored one gives a negative scaling along x. Angles between the axes other than right ones
// cannot be kept: the first axis stays, the second stays in its plane with the first. Unusable ones leave the node as it
// is.
Fit setPlace(Node& node, const Magnum::Matrix4& matrix);

} // namespace VantrelImport
