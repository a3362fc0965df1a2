#pragma once

/** The three most used functions of `<utility>` without its weight. */

#include <type_traits>

namespace Corrade::Utility {

template<class T> constexpr T&& forward(std::remove_reference_t<T>& value) noexcept { return static_cast<T&&>(value); }

template<class T> constexpr T&& forward(std::remove_reference_t<T>&& value) noexcept {
    static_assert(!std::is_lvalue_reference<T>::value, "an rvalue can't be forwarded as an lvalue");
    return static_cast<T&&>(value);
}

template<class T> constexpr std::remove_reference_t<T>&& move(T&& value) noexcept {
    return static_cast<std::remove_reference_t<T>&&>(value);
}

/**
Exchanges two values with three moves. The second parameter isn't deduced, which makes this less specialised than
`std::swap()`: an unqualified call that sees both takes the latter instead of being ambiguous.
*/
template<class T>
void swap(T& a, std::common_type_t<T>& b) noexcept(
    std::is_nothrow_move_constructible<T>::value&& std::is_nothrow_move_assignable<T>::value) {
    T temporary = static_cast<T&&>(a);
    a = static_cast<T&&>(b);
    b = static_cast<T&&>(temporary);
}

}
