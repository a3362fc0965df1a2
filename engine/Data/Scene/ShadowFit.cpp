#include "Data/Scene/ShadowFit.h"

#include <algorithm>
#include <cmath>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Functions.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// From the scene's space to one in which the light shines along the negative z axis, as views look.
Matrix4 toLight(const DualQuaternion& light) {
    return Matrix4::rotationX(Deg{90.0f}) * light.quaternionConjugated().toMatrix();
}

// Where a step begins that is not behind the place.
Float snapped(Float place, Float step) { return std::floor(place / step) * step; }

// From the corner that is farthest from the light to clip space.
Matrix4 clipFromBox(const Vector3& corner, const Vector3& size) {
    // The near plane is the one with the largest z.
    return Matrix4::scaling(Vector3{2.0f, 2.0f, -2.0f} / size) * Matrix4::translation(-corner - 0.5f * size);
}

// How much wider a face of a point light is than one of a cube: three texels on each side where it has 128.
constexpr Float FaceMargin = 1.05f;

} // namespace

SliceSphere sliceSphere(
    const DualQuaternion& viewTransform, const Matrix4& projection, Float nearDistance, Float farDistance) {
    // Of the corners, the distance from the axis over that along it, squared.
    const Float spread = 1.0f / (projection[0][0] * projection[0][0]) + 1.0f / (projection[1][1] * projection[1][1]);
    // Equally far from the near and the far corners, or in the middle of the far ones where that is nearer.
    const Float along = std::min(0.5f * (nearDistance + farDistance) * (1.0f + spread), farDistance);
    const Float rest = farDistance - along;
    return {viewTransform.quaternionConjugated().transformPoint({0.0f, 0.0f, -along}),
        std::sqrt(rest * rest + spread * farDistance * farDistance)};
}

Float sliceEnd(UnsignedInt i, UnsignedInt count, Float near, Float far) {
    if(i + 1 >= count) return far;
    const Float part = Float(i + 1) / Float(count);
    return 0.5f * (near + (far - near) * part + near * std::pow(far / near, part));
}

Matrix4 sunShadow(const DualQuaternion& light, const SliceSphere& sphere, Float reach) {
    const Matrix4 lightFromScene = toLight(light);
    const Vector3 center = lightFromScene.transformPoint(sphere.center);
    // One step is there to move in.
    const Float edge = 2.0f * sphere.radius * Float(SunSteps) / Float(SunSteps - 1), step = edge / Float(SunSteps);
    Vector3 corner;
    for(std::size_t axis = 0; axis != 3; ++axis) corner[axis] = snapped(center[axis] - sphere.radius, step);
    return clipFromBox(corner, {edge, edge, edge + reach}) * lightFromScene;
}

Matrix4 spotShadow(const DualQuaternion& light, Float angle, Float reach) {
    // Also for what is not a number.
    const Float half = angle > 1.0f ? std::min(angle, 80.0f) : 1.0f;
    return Matrix4::perspectiveProjection(Deg{2.0f * half}, 1.0f, 0.01f * reach, reach) * toLight(light);
}

Matrix4 pointShadow(const Vector3& light, UnsignedInt face, Float reach) {
    Vector3 direction;
    direction[face / 2] = face % 2 ? -1.0f : 1.0f;
    const Vector3 up = face / 2 == 1 ? Vector3::zAxis() : Vector3::yAxis();
    const Deg angle{2.0f * Math::atan(FaceMargin)};
    return Matrix4::perspectiveProjection(angle, 1.0f, 0.01f * reach, reach) *
        Matrix4::lookAt(light, light + direction, up).invertedRigid();
}

} // namespace VantrelEngine
