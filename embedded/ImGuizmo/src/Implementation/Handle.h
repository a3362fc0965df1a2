#pragma once

#include <ImGuizmo.h>

namespace ImGuizmo::Implementation {

// What the mouse can take hold of. Planes are named by the axis that they do not hold.
struct Handle {
    enum class Kind { None, MoveAxis, MovePlane, MoveScreen, TurnAxis, TurnScreen, ScaleAxis, ScaleAll };

    Kind kind = Kind::None;
    // 0 to 2, where the kind has one
    int axis = 0;

    explicit operator bool() const { return kind != Kind::None; }
    friend bool operator==(Handle a, Handle b) { return a.kind == b.kind && a.axis == b.axis; }

    bool isMove() const { return kind == Kind::MoveAxis || kind == Kind::MovePlane || kind == Kind::MoveScreen; }
    bool isTurn() const { return kind == Kind::TurnAxis || kind == Kind::TurnScreen; }
    bool isScale() const { return kind == Kind::ScaleAxis || kind == Kind::ScaleAll; }
};

// Planes need both of their axes, the handles in the middle all three.
bool hasHandle(OPERATION operation, Handle handle);

}
