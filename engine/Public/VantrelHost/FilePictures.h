#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Color.h>
#include <VantrelHost/Thumbnails.h>

namespace VantrelEngine {

// Small square pictures of files anywhere on the disk; of images as a whole over a chequered ground.
//
// Panels ask each frame for those that they show. One file at a time is read beside the thread that calls; its picture is
// there some frames later, and stays until as many others were asked for as there is room for. Of more that are seen at
// once some have none.
//
// With the GL context that is current at the first update(), and destroyed with it.
class CORRADE_VISIBILITY_EXPORT FilePictures {
public:
    // Makes the picture of a file, as many pixels as the square of the edge, rows upwards; empty for none. Called beside the
    // thread, and waited for: it ends soon when it is given up.
    using Reader = std::function<std::vector<Magnum::Color4ub>(
        const std::string& path, Magnum::Int edge, const std::atomic<bool>& isGivenUp)>;

    // Pixels along an edge, and the number of pictures, both at least 1. Without a reader the files are images.
    explicit FilePictures(Magnum::Int edge = 96, std::size_t capacity = 256, Reader reader = {});
    ~FilePictures();
    FilePictures(const FilePictures&) = delete;
    FilePictures& operator=(const FilePictures&) = delete;

    // Once a frame, before anybody asks: takes what was read, and begins to read what was asked for. True where there is a
    // new picture. Waiting, it reads one file at once, so that a run is the same each time.
    bool update(bool waits);
    // Nothing while it is not there, and for a file that has none. Valid for this frame.
    std::optional<Thumbnail> ask(const std::string& path);
    // Something is asked for that is not there yet.
    bool isBusy() const;
    // The files may be others by now: all of them are read again when they are asked for, and shown as they were meanwhile.
    void forget();

private:
    struct State;
    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
