#pragma once

#include "Magnum/Magnum.h"
#include "Magnum/Math/Vector3.h"

namespace Magnum {

// How the rows of an image lie in memory.
class PixelStorage {
public:
    // Every row starts at a multiple of this many bytes: 1, 2, 4 (the default) or 8.
    Int alignment() const { return _alignment; }
    PixelStorage& setAlignment(Int alignment) {
        _alignment = alignment;
        return *this;
    }

    // Distance of two rows in pixels. 0, the default, is the width of the image.
    Int rowLength() const { return _rowLength; }
    PixelStorage& setRowLength(Int length) {
        _rowLength = length;
        return *this;
    }

    // Pixels, rows and images before the first pixel.
    Vector3i skip() const { return _skip; }
    PixelStorage& setSkip(const Vector3i& skip) {
        _skip = skip;
        return *this;
    }

    bool operator==(const PixelStorage& other) const {
        return _alignment == other._alignment && _rowLength == other._rowLength && _skip == other._skip;
    }
    bool operator!=(const PixelStorage& other) const { return !(*this == other); }

private:
    Int _alignment{4};
    Int _rowLength{0};
    Vector3i _skip;
};

}
