#include "Data/Scene/ShadowFit.h"

#include <algorithm>
#include <cmath>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// From the scene's space to one in which the light shines along the negative z axis, as views look.
Matrix4 toLight(const DualQuaternion& light) {
    return Matrix4::rotationX(Deg{90.0f}) * light.quaternionConjugated().toMatrix();
}

void snapOutwards(Float& min, Float& max, Float texelSize) {
    if(!(texelSize > 0.0f)) return;
    min = std::floor(min / texelSize) * texelSize;
    max = std::ceil(max / texelSize) * texelSize;
}

// Of a box without thickness, which a light or a view far away from everything has, nothing would be left.
Float extent(Float min, Float max) { return std::max(max - min, 1.0e-6f); }

Matrix4 clipFromBox(const Vector3& min, const Vector3& max) {
    const Vector3 size{extent(min.x(), max.x()), extent(min.y(), max.y()), extent(min.z(), max.z())};
    // The near plane is the one with the largest z.
    return Matrix4::scaling(Vector3{2.0f, 2.0f, -2.0f} / size) * Matrix4::translation((min + max) * -0.5f);
}

} // namespace

FrustumCorners frustumCorners(
    const DualQuaternion& viewTransform, const Matrix4& projection, Float nearDistance, Float farDistance) {
    const Matrix4 sceneFromView = viewTransform.quaternionConjugated().toMatrix();
    FrustumCorners corners;
    for(std::size_t i = 0; i != corners.size(); ++i) {
        const Float distance = i & 4 ? farDistance : nearDistance;
        const Vector3 corner{(i & 1 ? distance : -distance) / projection[0][0],
            (i & 2 ? distance : -distance) / projection[1][1], -distance};
        corners[i] = sceneFromView.transformPoint(corner);
    }
    return corners;
}

Float sliceEnd(UnsignedInt i, UnsignedInt count, Float near, Float far) {
    if(i + 1 >= count) return far;
    const Float part = Float(i + 1) / Float(count);
    return 0.5f * (near + (far - near) * part + near * std::pow(far / near, part));
}

Matrix4 sunShadow(const DualQuaternion& light, const FrustumCorners& corners, Float reach, Float texelSize) {
    const Matrix4 lightFromScene = toLight(light);
    Vector3 min = lightFromScene.transformPoint(corners[0]), max = min;
    for(const Vector3& corner: corners) {
        const Vector3 point = lightFromScene.transformPoint(corner);
        for(std::size_t axis = 0; axis != 3; ++axis) {
            min[axis] = std::min(min[axis], point[axis]);
            max[axis] = std::max(max[axis], point[axis]);
        }
    }
    for(std::size_t axis = 0; axis != 2; ++axis) snapOutwards(min[axis], max[axis], texelSize);
    max.z() += reach;
    return clipFromBox(min, max) * lightFromScene;
}

Matrix4 spotShadow(const DualQuaternion& light, Float angle, Float reach) {
    // Also for what is not a number.
    const Float half = angle > 1.0f ? std::min(angle, 80.0f) : 1.0f;
    return Matrix4::perspectiveProjection(Deg{2.0f * half}, 1.0f, 0.01f * reach, reach) * toLight(light);
}

} // namespace VantrelEngine
