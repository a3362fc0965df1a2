#include "Renderer/Lights/ShadowOrder.h"

#include <algorithm>

#include <Magnum/Math/Vector4.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Of what is not seen.
constexpr Float LeastPart = 1.0e-6f;

Float weightOf(const WaitingLight& light) { return (light.part + LeastPart) * Float(light.waited + 1); }

// Whether all of a sphere is on the outer side of a plane; the normal may have any length.
bool isOutside(const Vector4& plane, const Vector3& center, Float radius) {
    return Math::dot(plane.xyz(), center) + plane.w() < -radius * plane.xyz().length();
}

} // namespace

Float seenPart(const Vector3& light, Float range, const ShadowViewer& viewer) {
    for(const std::size_t axis: {0, 1})
        for(const Float side: {-1.0f, 1.0f})
            if(isOutside(viewer.toClip.row(3) + viewer.toClip.row(axis) * side, light, range)) return 0.0f;
    if(isOutside(viewer.toClip.row(3) + viewer.toClip.row(2), light, range)) return 0.0f;
    const Float distance = (light - viewer.place).length();
    return distance > range ? range * range / (distance * distance) : 1.0f;
}

void sortByWeight(std::vector<WaitingLight>& lights) {
    std::sort(lights.begin(), lights.end(), [](const WaitingLight& a, const WaitingLight& b) {
        const Float weightA = weightOf(a), weightB = weightOf(b);
        return weightA != weightB ? weightA > weightB : a.first < b.first;
    });
}

} // namespace VantrelEngine
