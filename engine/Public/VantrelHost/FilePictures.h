#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <VantrelHost/Thumbnails.h>

namespace VantrelEngine {

// Small square pictures of image files anywhere on the disk, as a whole over a chequered ground.
//
// Panels ask each frame for those that they show. One file at a time is read beside the thread that calls; its picture is
// there some frames later, and stays until as many others were asked for as there is room for. Of more that are seen at
// once some have none.
//
// With the GL context that is current at the first update(), and destroyed with it.
class CORRADE_VISIBILITY_EXPORT FilePictures {
public:
    // Pixels along an edge, and the number of pictures, both at least 1.
    explicit FilePictures(Magnum::Int edge = 96, std::size_t capacity = 256);
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
    // The files may be others by now: all of them are read again when they are asked for.
    void forget();

private:
    struct State;
    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
