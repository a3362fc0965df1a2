#pragma once

#include <Magnum/Magnum.h>

namespace VantrelEngine {

// Time of the frames of a view. Seconds of a clock that never goes back, kept as doubles: as floats they would lose
// milliseconds within hours.
class FrameClock {
public:
    void start(Magnum::Double now) {
        _start = now;
        _lastFrame = 0.0;
        _delta = 0.0;
    }
    // Begins a frame.
    void tick(Magnum::Double now) {
        const Magnum::Double time = now - _start;
        _delta = time - _lastFrame;
        _lastFrame = time;
    }
    // What was done since the tick does not count as time of the frame.
    void skip(Magnum::Double now) { _lastFrame = now - _start; }

    // Between the beginnings of the last two frames.
    Magnum::Double delta() const { return _delta; }

private:
    Magnum::Double _start = 0.0;
    Magnum::Double _lastFrame = 0.0;
    Magnum::Double _delta = 0.0;
};

} // namespace VantrelEngine
