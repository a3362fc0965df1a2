#include "Application/ReplayPlatform.h"

#include <Magnum/Math/Functions.h>

namespace VantrelEngine {

using namespace Magnum;

Vector2i ReplayPlatform::framebufferSize() const {
    return Math::max(Vector2i{Math::round(Vector2{_size} * _scale)}, Vector2i{1});
}

std::optional<Vector2d> ReplayPlatform::takeWarp() {
    const std::optional<Vector2d> warp = _warp;
    _warp.reset();
    return warp;
}

Double ReplayPlatform::now() { return Double(_frame) / FramesPerSecond; }

void ReplayPlatform::setCursorPosition(const Vector2i& position) {
    _cursor = Vector2d{position};
    _warp = _cursor;
}

void ReplayPlatform::setCursorDisabled(bool disabled) {
    if(disabled && !_disabledAt) {
        _disabledAt = _cursor;
    } else if(!disabled && _disabledAt) {
        _cursor = *_disabledAt;
        _warp = _cursor;
        _disabledAt.reset();
    }
}

} // namespace VantrelEngine
