#pragma once

#include <cstddef>

#include "Magnum/Magnum.h"

namespace Magnum::GL::Implementation {

// Which part of a mesh is drawn.
struct DrawRange {
    bool isEmpty() const { return !count || !instanceCount; }

    // Negative: never set.
    Int count = -1;
    Int baseVertex = 0;
    Int instanceCount = 1;
    UnsignedInt baseInstance = 0;
    // In indices.
    std::ptrdiff_t indexOffset = 0;
};

}
