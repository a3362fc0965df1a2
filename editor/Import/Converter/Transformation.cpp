#include "Import/Converter/Transformation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <Magnum/Math/Matrix3.h>

namespace VantrelImport {

using namespace Magnum;

namespace {

// Of the cosine between two axes: what rounding makes of right angles stays below.
constexpr float LargestSkew = 1.0e-3f;

bool isFinite(const Vector3& vector) {
    return std::isfinite(vector.x()) && std::isfinite(vector.y()) && std::isfinite(vector.z());
}

// The squares of very small numbers would be none.
Vector3 unit(const Vector3& vector, const Vector3& otherwise) {
    const float largest = std::max({std::abs(vector.x()), std::abs(vector.y()), std::abs(vector.z())});
    return largest >= std::numeric_limits<float>::min() ? (vector / largest).normalized() : otherwise;
}

// Some direction at right angles to a unit vector.
Vector3 anyAcross(const Vector3& direction) {
    const Vector3 axis = std::abs(direction.x()) < 0.9f ? Vector3{1.0f, 0.0f, 0.0f} : Vector3{0.0f, 1.0f, 0.0f};
    return Math::cross(direction, axis).normalized();
}

} // namespace

bool setPlace(Node& node, const Vector3& translation, const Quaternion& rotation, const Vector3& scaling) {
    const bool isTranslated = isFinite(translation), isScaled = isFinite(scaling);
    if(isTranslated) node.translation = translation;
    if(isScaled) node.scaling = scaling;
    const float length = rotation.length();
    const bool isTurned = std::isfinite(length) && length > 1.0e-6f;
    if(isTurned) node.rotation = rotation / length;
    return isTranslated && isScaled && isTurned;
}

Fit setPlace(Node& node, const Matrix4& matrix) {
    const Vector3 axes[]{matrix[0].xyz(), matrix[1].xyz(), matrix[2].xyz()};
    if(!std::all_of(std::begin(axes), std::end(axes), isFinite) || !isFinite(matrix[3].xyz())) return Fit::Unusable;
    Vector3 scaling{axes[0].length(), axes[1].length(), axes[2].length()};
    if(!isFinite(scaling)) return Fit::Unusable;
    const bool isMirrored = Math::dot(Math::cross(axes[0], axes[1]), axes[2]) < 0.0f;
    if(isMirrored) scaling.x() = -scaling.x();

    const Vector3 x = unit(isMirrored ? -axes[0] : axes[0], {1.0f, 0.0f, 0.0f});
    const Vector3 along = unit(axes[1], anyAcross(x));
    const Vector3 across = along - x * Math::dot(x, along);
    const Vector3 y = across.length() > LargestSkew ? across.normalized() : anyAcross(x);
    const Vector3 z = Math::cross(x, y);
    node.translation = matrix[3].xyz();
    node.scaling = scaling;
    node.rotation = Quaternion::fromMatrix(Matrix3x3{x, y, z}).normalized();
    const bool isSheared =
        std::abs(Math::dot(x, along)) > LargestSkew || std::abs(Math::dot(unit(axes[2], z), z)) < 1.0f - LargestSkew;
    return isSheared ? Fit::Sheared : Fit::Exact;
}

} // namespace VantrelImport
