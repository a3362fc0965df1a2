#pragma once

/** Sets of enum values that are bits. */

#include "Corrade/Containers/Containers.h"

namespace Corrade::Containers {

/**
Set of values of the enum `T`. `fullValue` has all bits that exist, which matters for the complement only. Put
CORRADE_ENUMSET_OPERATORS() next to the type, so that values can be combined to a set.
*/
template<class T, typename std::underlying_type<T>::type fullValue> class EnumSet {
public:
    using Type = T;
    using UnderlyingType = std::underlying_type_t<T>;
    static constexpr UnderlyingType FullValue = fullValue;

    constexpr /*implicit*/ EnumSet() noexcept: _value{} {}
    constexpr /*implicit*/ EnumSet(T value) noexcept: _value{UnderlyingType(value)} {}
    /** Bits without a name are kept. */
    constexpr explicit EnumSet(UnderlyingType value) noexcept: _value{value} {}

    constexpr explicit operator UnderlyingType() const { return _value; }
    /** Whether any bit is set. */
    constexpr explicit operator bool() const { return _value != 0; }

    constexpr bool operator==(EnumSet other) const { return _value == other._value; }
    constexpr bool operator!=(EnumSet other) const { return _value != other._value; }
    /** Whether this contains all of the other. */
    constexpr bool operator>=(EnumSet other) const { return (*this & other) == other; }
    /** Whether all of this is in the other. */
    constexpr bool operator<=(EnumSet other) const { return (*this & other) == *this; }

    constexpr EnumSet operator|(EnumSet other) const { return EnumSet{UnderlyingType(_value | other._value)}; }
    constexpr EnumSet operator&(EnumSet other) const { return EnumSet{UnderlyingType(_value & other._value)}; }
    constexpr EnumSet operator^(EnumSet other) const { return EnumSet{UnderlyingType(_value ^ other._value)}; }
    constexpr EnumSet operator~() const { return EnumSet{UnderlyingType(fullValue & UnderlyingType(~_value))}; }
    constexpr EnumSet& operator|=(EnumSet other) { return *this = *this | other; }
    constexpr EnumSet& operator&=(EnumSet other) { return *this = *this & other; }
    constexpr EnumSet& operator^=(EnumSet other) { return *this = *this ^ other; }

private:
    UnderlyingType _value;
};

/** @{ Number of an enum value or of a set. */
template<class T> constexpr std::underlying_type_t<T> enumCastUnderlyingType(T value) {
    return std::underlying_type_t<T>(value);
}
template<class T, typename std::underlying_type<T>::type fullValue>
constexpr std::underlying_type_t<T> enumCastUnderlyingType(EnumSet<T, fullValue> value) {
    return std::underlying_type_t<T>(value);
}
/** @} */

}

#define _CORRADE_ENUMSET_OPERATORS(prefix, Set)                                                                        \
    prefix constexpr bool operator==(typename Set::Type a, Set b) { return Set{a} == b; }                              \
    prefix constexpr bool operator!=(typename Set::Type a, Set b) { return Set{a} != b; }                              \
    prefix constexpr bool operator>=(typename Set::Type a, Set b) { return Set{a} >= b; }                              \
    prefix constexpr bool operator<=(typename Set::Type a, Set b) { return Set{a} <= b; }                              \
    prefix constexpr Set operator|(typename Set::Type a, Set b) { return b | a; }                                      \
    prefix constexpr Set operator&(typename Set::Type a, Set b) { return b & a; }                                      \
    prefix constexpr Set operator^(typename Set::Type a, Set b) { return b ^ a; }                                      \
    prefix constexpr Set operator~(typename Set::Type a) { return ~Set{a}; }

/** Operators with an enum value on the left, next to a set at namespace scope. */
#define CORRADE_ENUMSET_OPERATORS(Set) _CORRADE_ENUMSET_OPERATORS(inline, Set)

/** The same for a set that is a member of a class. */
#define CORRADE_ENUMSET_FRIEND_OPERATORS(Set) _CORRADE_ENUMSET_OPERATORS(friend, Set)
