#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <Magnum/Math/Vector2.h>

#include "BenchView.h"

namespace VantrelBench {

// The mouse, as a user has it, over a view of a grid: what it does is heard by the UI library and by the view, as in the
// editor. Window points.
class BenchMouse {
public:
    explicit BenchMouse(BenchView& view): _view{view} {}

    void moveTo(const Magnum::Vector2& position);
    void press(VantrelEngine::MouseButton button);
    void release(VantrelEngine::MouseButton button);
    const Magnum::Vector2& position() const { return _position; }

private:
    BenchView& _view;
    Magnum::Vector2 _position;
};

// Objects of a grid, spread evenly over it, selected and dragged with the gizmo's handle in their middle. Ends the program
// with one line where there is nothing to be grabbed.
class MouseDrag {
public:
    explicit MouseDrag(BenchView& view, std::size_t count);

    // Takes hold of the handle and makes the first movement, which is the first frame of the drag. Seconds of it.
    double begin();
    // Moves the mouse a little further, or back, before a frame.
    void moveMouse();
    // The same with the frame that takes it. Seconds of that.
    double moveOn();
    // Lets go. The drag is a step then.
    void end();

private:
    double move();
    double frame();
    Magnum::Vector2 middle() const;

    BenchView& _view;
    BenchMouse _mouse;
    Magnum::Vector2 _start;
    std::size_t _moves = 0;
};

// Where a point of the scene is in the view's window.
Magnum::Vector2 placeInWindow(BenchView& view, const Magnum::Vector3& point);

}
