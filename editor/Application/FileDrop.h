#pragma once

#include <deque>
#include <string>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

class InputRouter;

// Files that were dropped on the window, each played as a gesture of the UI library: what lies under the mouse sees it
// dragged for two frames, and then gets it. They come one after the other.
class FileDrop {
public:
    // Window points.
    void add(std::string file, const Magnum::Vector2& position) { _waiting.push_back({std::move(file), position}); }
    bool isUnderWay() const { return isPlaying() || !_waiting.empty(); }
    // One of the gestures has begun and is not over: whoever is to take the file has to be able to.
    bool isPlaying() const { return _frame >= 0; }

    // Around the windows of a frame: the mouse before it begins, the dragged thing in it, and the end of it. Where none may
    // begin, they wait.
    void beginFrame(InputRouter& input, bool mayBegin);
    void draw() const;
    // The file that nothing under the mouse wanted, when its gesture is over; else empty.
    std::string endFrame();

private:
    struct Drop {
        std::string file;
        Magnum::Vector2 position;
    };

    // The first one is under way.
    std::deque<Drop> _waiting;
    int _frame = -1;
    bool _isTaken = false;
};

} // namespace VantrelEngine
