#include "Views/SceneView/ViewFrame.h"

#include <algorithm>
#include <cmath>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// A number that is none becomes 1, too.
Int whole(Float size) { return size >= 1.0f ? Int(std::min(size, 1.0e6f)) : 1; }

Float positive(Float scale) { return scale > 0.0f ? scale : 1.0f; }
Vector2 positive(const Vector2& scale) { return {positive(scale.x()), positive(scale.y())}; }

}

Vector2i wholeSize(const Vector2& size) { return {whole(size.x()), whole(size.y())}; }

Vector2i framebufferSize(const Vector2i& size, const Vector2& scale, const FramebufferLimits& limits) {
    const Vector2i wish = wholeSize(Vector2{size} * positive(scale));
    const Vector2i pixels{std::min(wish.x(), limits.edge), std::min(wish.y(), limits.edge)};
    const Double count = Double(pixels.x()) * pixels.y();
    if(count <= Double(limits.pixels)) return pixels;
    const Double factor = std::sqrt(Double(limits.pixels) / count);
    const Vector2i scaled{std::max(Int(pixels.x() * factor), 1), std::max(Int(pixels.y() * factor), 1)};
    // An edge that would vanish has one pixel, for which the other one gives way.
    const Int width = Int(std::max(std::min(Long{scaled.x()}, limits.pixels / scaled.y()), Long{1}));
    return {width, Int(std::min(Long{scaled.y()}, limits.pixels / width))};
}

Vector2 pixelsPerPoint(const Vector2i& framebufferSize, const Vector2i& size, const Vector2& scale) {
    if(framebufferSize == wholeSize(Vector2{size} * positive(scale))) return positive(scale);
    return Vector2{framebufferSize} / Vector2{size};
}

} // namespace VantrelEngine
