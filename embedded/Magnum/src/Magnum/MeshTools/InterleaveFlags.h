#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Magnum/Magnum.h"

namespace Magnum::MeshTools {

enum class InterleaveFlag : UnsignedInt {
    // Keeps offsets, stride and padding of a mesh that is interleaved already; else attributes are packed tightly.
    PreserveInterleavedAttributes = 1 << 0
};
typedef Containers::EnumSet<InterleaveFlag> InterleaveFlags;
CORRADE_ENUMSET_OPERATORS(InterleaveFlags)

}
