#pragma once

#include <cstddef>

#include "Corrade/Containers/Array.h"

namespace Magnum::Trade::Implementation {

// An array of someone else's memory, which it leaves alone when it goes away.
inline Containers::Array<char> referencedArray(Containers::ArrayView<const void> data) {
    return Containers::Array<char>{
        const_cast<char*>(static_cast<const char*>(data.data())), data.size(), [](char*, std::size_t) {}};
}

}
