#include "Views/SceneView/Gizmo/GizmoMath.h"

#include <algorithm>
#include <cmath>

#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Quaternion.h>

#include "Utils/CheckedMath.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr Double ShearTolerance = 1.0e-4;

// Of their directions: the lengths may be of any magnitude.
Double cosineBetween(const Vector3& a, const Vector3& b) {
    const Vector3d u{a}, v{b};
    return Math::dot(u, v) / (u.length() * v.length());
}

}

UnsignedLong gestureKey(Containers::ArrayView<const Id> objects) {
    UnsignedLong key = 0;
    for(std::size_t i = 0; i != objects.size(); ++i) key ^= UnsignedLong{objects[i]} << 8 * ((i + 1) % 4);
    return key;
}

UnsignedLong groupKey(GizmoOperation operation, GizmoSpace space, UnsignedLong gesture) {
    return (UnsignedLong(operation) * 4 | UnsignedLong(space)) << 28 ^ gesture;
}

Vector3 axisLengths(const Matrix4& matrix) {
    return {matrix[0].xyz().length(), matrix[1].xyz().length(), matrix[2].xyz().length()};
}

Matrix4 draggedLocal(const ParentPlace& parent, const Matrix4& delta, const Matrix4& local) {
    using Precise = Math::Matrix4<Double>;
    const Precise from{parent.transformation.toMatrix()};
    const auto dragged = [&](const Vector3& scaling) {
        const Precise place = from * Precise::scaling(Vector3d{scaling});
        return Matrix4{place.inverted() * Precise{delta} * place * Precise{local}};
    };
    Matrix4 out = dragged(Math::abs(parent.scaling));
    if(parent.scaling.min() < 0.0f) out.translation() = dragged(parent.scaling).translation();
    return out;
}

bool isFinite(const Vector3& vector) {
    return std::all_of(vector.data(), vector.data() + 3, [](Float number) { return std::isfinite(number); });
}

bool isFinite(const Matrix4& matrix) {
    return std::all_of(matrix.data(), matrix.data() + 16, [](Float number) { return std::isfinite(number); });
}

// Written so that what has no length fails.
bool isWithoutShear(const Matrix4& matrix) {
    for(std::size_t i = 0; i != 3; ++i)
        if(!(std::abs(cosineBetween(matrix[i].xyz(), matrix[(i + 1) % 3].xyz())) < ShearTolerance)) return false;
    return isFinite(matrix);
}

DualQuaternion rigidPart(const Matrix4& local, const Vector3& scaling) {
    Matrix3x3 rotation;
    for(std::size_t i = 0; i != 3; ++i) {
        const Vector3d axis{local[i].xyz()};
        rotation[i] = Vector3{axis / std::copysign(axis.length(), Double(scaling[i]))};
    }
    return DualQuaternion::from(rotationFromMatrix(rotation).normalized(), local.translation());
}

} // namespace VantrelEngine
