#pragma once

#include <optional>

#include <Magnum/Math/Vector2.h>
#include <Vantrel/Module/Platform.h>

namespace VantrelEngine {

// A window system that there is only in numbers: time goes by a frame at a time, and the cursor is where it was put.
class ReplayPlatform final: public Platform {
public:
    explicit ReplayPlatform(const Magnum::Vector2i& size, Magnum::Float scale): _size{size}, _scale{scale} {}

    void advance() { ++_frame; }
    void resize(const Magnum::Vector2i& size) { _size = size; }
    void setScale(Magnum::Float scale) { _scale = scale; }
    void moveTo(const Magnum::Vector2d& position) { _cursor = position; }

    Magnum::Vector2i size() const { return _size; }
    // At least one pixel each.
    Magnum::Vector2i framebufferSize() const;
    // Where a view has put the cursor since the last call.
    std::optional<Magnum::Vector2d> takeWarp();

    Magnum::Double now() override;
    Magnum::Vector2 framebufferScale() override { return Magnum::Vector2{_scale}; }
    Magnum::Vector2d cursorPosition() override { return _cursor; }
    void setCursorPosition(const Magnum::Vector2i& position) override;
    void setCursorDisabled(bool disabled) override;

private:
    static constexpr Magnum::Double FramesPerSecond = 60.0;

    Magnum::Vector2i _size;
    Magnum::Float _scale;
    Magnum::UnsignedLong _frame = 0;
    Magnum::Vector2d _cursor;
    std::optional<Magnum::Vector2d> _disabledAt, _warp;
};

} // namespace VantrelEngine
