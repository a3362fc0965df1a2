#include "Views/SceneView/ViewFrame.h"

#include <algorithm>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// A number that is none becomes 1, too.
Int whole(Float size) { return size >= 1.0f ? Int(std::min(size, 1.0e6f)) : 1; }

Float positive(Float scale) { return scale > 0.0f ? scale : 1.0f; }

}

Vector2i wholeSize(const Vector2& size) { return {whole(size.x()), whole(size.y())}; }

Vector2i framebufferSize(const Vector2i& size, const Vector2& scale, Int maximum) {
    const Vector2i pixels = wholeSize({size.x() * positive(scale.x()), size.y() * positive(scale.y())});
    return {std::min(pixels.x(), maximum), std::min(pixels.y(), maximum)};
}

} // namespace VantrelEngine
