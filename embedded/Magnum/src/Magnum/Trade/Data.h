#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::Trade {

// Who owns the memory behind something, and whether it may be written.
enum class DataFlag : UnsignedByte {
    // By the instance.
    Owned = 1 << 0,
    Mutable = 1 << 2,
    // By something else for as long as that exists.
    ExternallyOwned = 1 << 3,
    // By nobody: it exists as long as the program.
    Global = 1 << 4
};

typedef Containers::EnumSet<DataFlag> DataFlags;
CORRADE_ENUMSET_OPERATORS(DataFlags)

CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, DataFlag value);
CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, DataFlags value);

}
