#pragma once

#include <optional>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>
#include <Vantrel/Module/InputEvents.h>

namespace Magnum::GL {
class Framebuffer;
}

namespace VantrelEngine {

class EditorData;
struct PressState;
struct SharedState;
struct ViewFrame;

// What is picked in, and where; the framebuffer holds the ids of the last frame. Everything outlives the call.
struct PickTarget {
    EditorData& data;
    SharedState& state;
    Magnum::GL::Framebuffer& framebuffer;
    const ViewFrame& frame;
};

// What the box that selects wants to be seen, in a frame in which it is armed.
struct BoxFeedback {
    // Window points; none before the press.
    std::optional<Magnum::Range2D> rectangle;
};

// Selects what is seen: the left button takes the object below the mouse, with Shift in addition or out; a box takes all
// that is seen in it; with Ctrl and Shift the first selected object goes where the clicked one is. While the editor asks
// for an object, a click or a box answers that instead.
class Picking {
public:
    // The next press of the left button begins a box.
    void armBox() { _boxSelectArmed = true; }
    void cancelBox() { _boxSelectArmed = _boxSelectDragging = false; }
    bool isBoxArmed() const { return _boxSelectArmed; }

    // Of the left button. Whether a box is armed is not asked of the state. Returns whether the press was for it, and so
    // for nobody else. Aborts where the first selected object is to be placed and the transformation of its parent is not
    // rigid, see invertedRigid().
    bool mousePress(const MouseEvent& event, const PressState& state, const PickTarget& target);
    void mouseRelease(const MouseEvent& event, const PickTarget& target);

    // None where no box is armed. The mouse in window points.
    std::optional<BoxFeedback> boxFeedback(const Magnum::Vector2i& mouse, const ViewFrame& frame) const;

private:
    bool _boxSelectArmed = false;
    bool _boxSelectDragging = false;
    // From the top left corner of the view's picture, window points.
    Magnum::Vector2i _boxSelectStart;
};

} // namespace VantrelEngine
