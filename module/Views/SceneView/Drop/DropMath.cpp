#include "Views/SceneView/Drop/DropMath.h"

#include <algorithm>
#include <cstring>

#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Vector4.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// In front of the camera, in clip space.
constexpr Float Nearest = 1.0e-4f;

Float shrunk(Float min, Float max, Float wish) { return std::min(std::max(wish, min), max); }

Vector2 onScreen(const Vector4& clip, const Range2D& rectangle) {
    const Vector2 place = clip.xy() / clip.w();
    return rectangle.min() + Vector2{place.x() + 1.0f, 1.0f - place.y()} * 0.5f * rectangle.size();
}

}

Range2D dropRectangle(const Range2D& window) {
    const Vector2 min{shrunk(window.min().x(), window.max().x(), window.min().x() + DropMargin),
        shrunk(window.min().y(), window.max().y(), window.min().y() + DropMargin)};
    return {min,
        {shrunk(min.x(), window.max().x(), window.max().x() - DropMargin),
            shrunk(min.y(), window.max().y(), window.max().y() - DropMargin)}};
}

std::optional<std::string> payloadText(const Containers::ArrayView<const char> payload, std::string& reason) {
    const auto refuse = [&](const char* why) {
        reason = why;
        return std::optional<std::string>{};
    };
    if(payload.size() > MaxPayloadSize) return refuse("it is too long");
    if(payload.isEmpty() || payload[payload.size() - 1]) return refuse("it has no end");
    const std::size_t size = std::strlen(payload.data());
    if(!size) return refuse("it is empty");
    if(size + 1 != payload.size()) return refuse("it has a zero byte inside");
    return std::string{payload.data(), size};
}

Vector2 clipPosition(const Vector2i& pixel, const Vector2i& size) {
    return (Vector2{pixel} + Vector2{0.5f}) / Vector2{size} * 2.0f - Vector2{1.0f};
}

Ray rayThrough(const DropCamera& camera, const Vector2& clip) {
    // On the near plane; the rays of a perspective begin in the camera.
    const Vector3 near = camera.projection.inverted().transformPoint({clip, -1.0f});
    return {camera.transformation.translation(), camera.transformation.transformVector(near).normalized()};
}

Vector3 pointAt(const DropCamera& camera, const Vector2& clip, Float depth) {
    return camera.transformation.transformPoint(
        camera.projection.inverted().transformPoint({clip, depth * 2.0f - 1.0f}));
}

Vector3 dropPlace(const DropCamera& camera, const Vector2& clip, Float depth) {
    if(depth < 1.0f) return pointAt(camera, clip, depth);
    const Ray ray = rayThrough(camera, clip);
    const Float distance = -ray.origin.y() / ray.direction.y();
    // A ray along the plane meets it nowhere: no number, or infinity.
    const bool isMet = distance > 0.0f && distance < camera.far && distance < Constants::inf();
    return ray.origin + ray.direction * (isMet ? distance : camera.orbitDistance);
}

std::optional<ScreenLine> screenLine(
    const Vector3& from, const Vector3& to, const Matrix4& viewProjection, const Range2D& rectangle) {
    Vector4 a = viewProjection * Vector4{from, 1.0f}, b = viewProjection * Vector4{to, 1.0f};
    if(!(a.w() > Nearest) && !(b.w() > Nearest)) return {};
    if(!(a.w() > Nearest)) a = Math::lerp(a, b, (Nearest - a.w()) / (b.w() - a.w()));
    if(!(b.w() > Nearest)) b = Math::lerp(b, a, (Nearest - b.w()) / (a.w() - b.w()));
    // Rounding keeps nothing behind it.
    a.w() = std::max(a.w(), Nearest);
    b.w() = std::max(b.w(), Nearest);
    return ScreenLine{onScreen(a, rectangle), onScreen(b, rectangle)};
}

} // namespace VantrelEngine
