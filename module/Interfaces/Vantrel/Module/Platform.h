#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// What a view asks of the window system. The editor implements it with a window; a replay answers out of its script, so
// that two runs of it are the same.
class Platform {
public:
    // Seconds of a clock that never goes back.
    virtual Magnum::Double now() = 0;

    // Framebuffer pixels per window point, above 0.
    virtual Magnum::Vector2 framebufferScale() = 0;

    // Window coordinates, y down. While the cursor is disabled it may be anywhere.
    virtual Magnum::Vector2d cursorPosition() = 0;
    virtual void setCursorPosition(const Magnum::Vector2i& position) = 0;
    // A disabled cursor is invisible and is not held back by the edges of the screen; enabled again, it stands where it
    // was when it was disabled.
    virtual void setCursorDisabled(bool disabled) = 0;

protected:
    ~Platform() = default;
};

} // namespace VantrelEngine
