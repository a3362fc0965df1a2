#pragma once

#include <string>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

class InputRouter;

// A file that was dropped on the window, played as a gesture of the UI library: what lies under the mouse sees it
// dragged for two frames, and then gets it.
class FileDrop {
public:
    // Window points. One that is under way is dropped first of all.
    void start(std::string file, const Magnum::Vector2& position);
    bool isUnderWay() const { return _frame >= 0; }

    // Around the windows of a frame: the mouse before it begins, the dragged thing in it, and the end of it.
    void beginFrame(InputRouter& input);
    void draw() const;
    void endFrame();

private:
    std::string _file;
    Magnum::Vector2 _position;
    int _frame = -1;
};

} // namespace VantrelEngine
