#pragma once

/** Two values. */

#include "Corrade/Containers/Containers.h"
#include "Corrade/Utility/Move.h"

namespace Corrade::Containers {

/** Two values of any type, by default zero or default-constructed. Copyable, movable and trivial as far as they are. */
template<class F, class S> class Pair {
public:
    using FirstType = F;
    using SecondType = S;

    constexpr /*implicit*/ Pair(): _first(), _second() {}
    constexpr /*implicit*/ Pair(F first, S second): _first(Utility::move(first)), _second(Utility::move(second)) {}

    constexpr bool operator==(const Pair<F, S>& other) const {
        return _first == other._first && _second == other._second;
    }
    constexpr bool operator!=(const Pair<F, S>& other) const { return !(*this == other); }

    constexpr F& first() & { return _first; }
    constexpr F first() && { return Utility::move(_first); }
    constexpr const F& first() const& { return _first; }
    constexpr S& second() & { return _second; }
    constexpr S second() && { return Utility::move(_second); }
    constexpr const S& second() const& { return _second; }

private:
    F _first;
    S _second;
};

/** A pair of copies. */
template<class F, class S> constexpr Pair<std::decay_t<F>, std::decay_t<S>> pair(F&& first, S&& second) {
    return {Utility::forward<F>(first), Utility::forward<S>(second)};
}

}
