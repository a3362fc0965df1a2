#pragma once

/** Makes `auto [a, b] = pair;` possible for pairs, triples and arrays of static size. */

#include "Corrade/Containers/Containers.h"
#include "Corrade/Utility/Move.h"

#include <tuple>

namespace Corrade::Containers {

namespace Implementation {

template<std::size_t i, class V> constexpr decltype(auto) nth(V&& value) {
    if constexpr(i == 0)
        return Utility::forward<V>(value).first();
    else if constexpr(i == 1)
        return Utility::forward<V>(value).second();
    else
        return Utility::forward<V>(value).third();
}

}

template<std::size_t i, class F, class S> constexpr decltype(auto) get(Pair<F, S>& value) {
    return Implementation::nth<i>(value);
}
template<std::size_t i, class F, class S> constexpr decltype(auto) get(const Pair<F, S>& value) {
    return Implementation::nth<i>(value);
}
template<std::size_t i, class F, class S> constexpr decltype(auto) get(Pair<F, S>&& value) {
    return Implementation::nth<i>(Utility::move(value));
}

template<std::size_t i, class F, class S, class T> constexpr decltype(auto) get(Triple<F, S, T>& value) {
    return Implementation::nth<i>(value);
}
template<std::size_t i, class F, class S, class T> constexpr decltype(auto) get(const Triple<F, S, T>& value) {
    return Implementation::nth<i>(value);
}
template<std::size_t i, class F, class S, class T> constexpr decltype(auto) get(Triple<F, S, T>&& value) {
    return Implementation::nth<i>(Utility::move(value));
}

template<std::size_t i, std::size_t size, class T> constexpr T& get(StaticArray<size, T>& value) { return value[i]; }
template<std::size_t i, std::size_t size, class T> constexpr const T& get(const StaticArray<size, T>& value) {
    return value[i];
}
template<std::size_t i, std::size_t size, class T> constexpr T get(StaticArray<size, T>&& value) {
    return Utility::move(value[i]);
}

}

namespace std {

template<class F, class S> struct tuple_size<Corrade::Containers::Pair<F, S>>: integral_constant<size_t, 2> {};
template<size_t i, class F, class S>
struct tuple_element<i, Corrade::Containers::Pair<F, S>>: tuple_element<i, tuple<F, S>> {};

template<class F, class S, class T>
struct tuple_size<Corrade::Containers::Triple<F, S, T>>: integral_constant<size_t, 3> {};
template<size_t i, class F, class S, class T>
struct tuple_element<i, Corrade::Containers::Triple<F, S, T>>: tuple_element<i, tuple<F, S, T>> {};

template<size_t size, class T>
struct tuple_size<Corrade::Containers::StaticArray<size, T>>: integral_constant<size_t, size> {};
template<size_t i, size_t size, class T> struct tuple_element<i, Corrade::Containers::StaticArray<size, T>> {
    using type = T;
};

}
