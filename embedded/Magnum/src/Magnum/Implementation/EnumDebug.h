#pragma once

#include <cstddef>

#include "Corrade/Utility/Debug.h"
#include "Magnum/Magnum.h"

namespace Magnum::Implementation {

// "Type(0x2a)", for values that are none of the enumerators.
template<class T> Debug& printUnknownEnum(Debug& debug, const char* type, T value) {
    return debug << type << Debug::nospace << "(" << Debug::nospace << Debug::hex << UnsignedInt(value)
                 << Debug::nospace << ")";
}

// "Type::Name" with the names of the enumerators from `first` on.
template<class T, std::size_t size>
Debug& printEnum(Debug& debug, const char* type, const char* const (&names)[size], UnsignedInt first, T value) {
    const std::size_t index = std::size_t(value) - first;
    if(index >= size) return printUnknownEnum(debug, type, value);
    return debug << type << Debug::nospace << "::" << Debug::nospace << names[index];
}

}
