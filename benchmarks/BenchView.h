#pragma once

#include <cstddef>
#include <string>

#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Vector2.h>

#include "Measure.h"
#include "Support/ViewHost.h"

namespace VantrelBench {

// The scene view out of its module, in a host without a window, drawn by the software rasteriser in the calling thread
// alone, whose time on the processor then is that of all of it. The environment may ask for another rasteriser.
class BenchView {
public:
    // The stages are told as ViewHost tells them.
    explicit BenchView(const Magnum::Vector2i& pictureSize, const VantrelTest::ViewHost::Reached& reached = {});

    VantrelTest::ViewHost& host() { return _host; }

    // Ends the program with one line where the project is refused. Draws nothing yet.
    void open(const std::string& path);
    // The same without compiling it.
    void read(const std::string& path);
    // Draws.
    void setPictureSize(const Magnum::Vector2i& size);
    Magnum::Vector2i windowSize() const { return _windowSize; }
    Magnum::Vector2i pictureSize();

    // Seconds of a frame, until the GL has finished it.
    double frameSeconds();
    // The median of frames in which nothing moves, after some to get warm.
    double warmFrameSeconds(const Budget& budget);
    // Ends the program with one line where the last frame was of another number of meshes.
    void expectVisible(std::size_t meshes);
    // Nothing of the view is to be seen: it keeps its renderer up to date and draws nothing. For good.
    void collapse();

private:
    // Standard output is for lines of figures.
    Corrade::Utility::Debug _silence{nullptr};
    VantrelTest::ViewHost _host;
    Magnum::Vector2i _windowSize;
};

}
