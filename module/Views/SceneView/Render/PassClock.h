#pragma once

#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/Module/Platform.h>

namespace VantrelEngine {

// Tells the passes of a frame how long they took: what goes by from one to the next is the latter's.
class PassClock {
public:
    // Both outlive it.
    explicit PassClock(Platform& platform, FrameStatistics& statistics):
        _platform{platform}, _statistics{statistics}, _last{platform.now()} {}

    void end(FramePass pass) {
        const Magnum::Double now = _platform.now();
        _statistics.pass(pass).milliseconds += float((now - _last) * 1000.0);
        _last = now;
    }

private:
    Platform& _platform;
    FrameStatistics& _statistics;
    Magnum::Double _last;
};

} // namespace VantrelEngine
