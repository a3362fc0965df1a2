#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

struct ViewFrame;

// What a press of the left button is for, where the mouse is over the view.
enum class PressAction : Magnum::UnsignedByte { None, BeginBox, Place, Select };

struct PressState {
    // The view is hovered, and nothing in it is.
    bool isHovered = false;
    bool isFlying = false;
    bool isBoxArmed = false;
    // Something is selected, and the mouse is over a handle of its gizmo.
    bool isOverHandle = false;
};

// A box goes before all else; Ctrl and Shift, and no other modifier, place; a handle of the gizmo keeps the press for
// itself.
PressAction pressAction(const PressState& state, unsigned modifiers);

// Whether a press of these modifiers leaves selected what was.
bool isAdditivePress(unsigned modifiers);

// Pixels of the framebuffer between two places in window points, from the top left corner of the view's picture; in any
// order. Not clipped; without pixels where the box has no width or no height.
Magnum::Range2Di boxRectangle(const Magnum::Vector2i& a, const Magnum::Vector2i& b, const ViewFrame& frame);

} // namespace VantrelEngine
