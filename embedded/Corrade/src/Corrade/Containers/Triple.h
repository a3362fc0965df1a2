#pragma once

/** Three values. */

#include "Corrade/Containers/Containers.h"
#include "Corrade/Utility/Move.h"

namespace Corrade::Containers {

/** Three values of any type, by default zero or default-constructed. Copyable, movable and trivial as far as they are. */
template<class F, class S, class T> class Triple {
public:
    using FirstType = F;
    using SecondType = S;
    using ThirdType = T;

    constexpr /*implicit*/ Triple(): _first(), _second(), _third() {}
    constexpr /*implicit*/ Triple(F first, S second, T third):
        _first(Utility::move(first)), _second(Utility::move(second)), _third(Utility::move(third)) {}

    constexpr bool operator==(const Triple<F, S, T>& other) const {
        return _first == other._first && _second == other._second && _third == other._third;
    }
    constexpr bool operator!=(const Triple<F, S, T>& other) const { return !(*this == other); }

    constexpr F& first() & { return _first; }
    constexpr F first() && { return Utility::move(_first); }
    constexpr const F& first() const& { return _first; }
    constexpr S& second() & { return _second; }
    constexpr S second() && { return Utility::move(_second); }
    constexpr const S& second() const& { return _second; }
    constexpr T& third() & { return _third; }
    constexpr T third() && { return Utility::move(_third); }
    constexpr const T& third() const& { return _third; }

private:
    F _first;
    S _second;
    T _third;
};

/** A triple of copies. */
template<class F, class S, class T>
constexpr Triple<std::decay_t<F>, std::decay_t<S>, std::decay_t<T>> triple(F&& first, S&& second, T&& third) {
    return {Utility::forward<F>(first), Utility::forward<S>(second), Utility::forward<T>(third)};
}

}
