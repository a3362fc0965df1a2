#pragma once

/** Printing of sets, for the operator<<() of each. */

#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Utility/Debug.h"

#include <initializer_list>

namespace Corrade::Containers {

/**
Prints the values that are in the set, separated by "|", in the given order. A value whose bits were all printed already
is left out; bits that none of them has are printed as one value at the end. `empty` is what an empty set looks like.
*/
template<class T, typename std::underlying_type<T>::type fullValue>
Utility::Debug& enumSetDebugOutput(
    Utility::Debug& debug, EnumSet<T, fullValue> value, const char* empty, std::initializer_list<T> enums) {
    using Set = EnumSet<T, fullValue>;
    using UnderlyingType = typename Set::UnderlyingType;

    if(!value) return debug << empty;

    bool first = true;
    const auto print = [&](T name) {
        if(!first) debug << Utility::Debug::nospace << "|" << Utility::Debug::nospace;
        debug << name;
        first = false;
        value = Set{UnderlyingType(UnderlyingType(value) & UnderlyingType(~UnderlyingType(name)))};
    };
    for(const T name: enums)
        if(value & name && value >= name) print(name);
    if(value) print(T(UnderlyingType(value)));
    return debug;
}

}
