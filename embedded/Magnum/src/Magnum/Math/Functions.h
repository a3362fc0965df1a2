#pragma once
// Functions of numbers and angles and, component by component, of vectors. What is said of two arguments of one type
// holds for a vector and a number as well. Trigonometric functions take and return angles.

#include <cstdint>
#include <cstdlib>

#include "Magnum/Math/Vector.h"

namespace Magnum::Math {

namespace Implementation {

template<class T, class = void> constexpr bool IsVector = false;
template<class T> constexpr bool IsVector<T, EnableIfVector<T>> = true;

template<class T> constexpr auto component(const T& value, std::size_t i) {
    if constexpr(IsVector<T>)
        return value[i];
    else
        return void(i), value;
}

// f of all arguments, for a vector component by component; the others are vectors like it or its numbers.
template<class F, class T, class... U> constexpr auto each(const F& f, const T& a, const U&... b) {
    if constexpr(IsVector<T>) {
        static_assert((... && (std::is_convertible_v<U, VectorOf<T>> || std::is_convertible_v<U, ScalarOf<T>>)));
        return generate<Vector<T::Size, decltype(f(a[0], component(b, 0)...))>>(
            [&](std::size_t i) { return f(a[i], component(b, i)...); });
    } else {
        static_assert((... && std::is_same_v<T, U>), "numbers have to be of one type");
        return f(a, b...);
    }
}
// The same with the numbers behind an angle; the result is an angle again.
template<class F, class T, class... U> auto eachNumber(const F& f, const T& a, const U&... b) {
    return each(
        [&](auto v, auto... w) {
            using Number = UnderlyingTypeOf<decltype(v)>;
            return decltype(v)(Number(f(Number(v), Number(w)...)));
        },
        a, b...);
}
// The same for a condition: a bit for each component of a vector
template<class F, class T> auto test(const F& f, const T& value) {
    if constexpr(IsVector<T>)
        return T::bits([&](std::size_t i) { return f(UnderlyingTypeOf<ScalarOf<T>>(value[i])); });
    else
        return f(UnderlyingTypeOf<T>(value));
}

}

// A NaN as the second argument never wins, one as the first always stays.
template<class T, class U> constexpr auto min(const T& value, const U& min) {
    return Implementation::each([](auto v, auto m) { return m < v ? m : v; }, value, min);
}
template<class T, class U> constexpr auto max(const T& value, const U& max) {
    return Implementation::each([](auto v, auto m) { return v < m ? m : v; }, value, max);
}
// First the smaller, then the larger
template<class T> auto minmax(const T& a, const T& b) {
    const auto smaller = Implementation::each([](auto v, auto w) { return v < w ? v : w; }, a, b);
    const auto larger = Implementation::each([](auto v, auto w) { return v < w ? w : v; }, a, b);
    return Corrade::Containers::Pair<std::decay_t<decltype(smaller)>, std::decay_t<decltype(larger)>>{smaller, larger};
}
// Raised to min first, lowered to max then: with min > max the result is max.
template<class T, class U> constexpr auto clamp(const T& value, const U& min, const U& max) {
    return Math::min(Math::max(value, min), max);
}

// -1, 0 or 1, without unit; 0 for NaN
template<class T> auto sign(const T& value) {
    return Implementation::each(
        [](auto v) {
            using Unit = decltype(v);
            return Implementation::UnderlyingTypeOf<Unit>((Unit(0) < v) - (v < Unit(0)));
        },
        value);
}
template<class T> auto abs(const T& value) {
    return Implementation::eachNumber([](auto v) { return std::abs(v); }, value);
}
template<class T> auto floor(const T& value) {
    return Implementation::eachNumber([](auto v) { return std::floor(v); }, value);
}
// Halves go away from zero.
template<class T> auto round(const T& value) {
    return Implementation::eachNumber([](auto v) { return std::round(v); }, value);
}
template<class T> auto ceil(const T& value) {
    return Implementation::eachNumber([](auto v) { return std::ceil(v); }, value);
}
// The remainder has the sign of the dividend.
template<class T, class U> auto fmod(const T& a, const U& b) {
    return Implementation::eachNumber([](auto v, auto w) { return std::fmod(v, w); }, a, b);
}

// From a at t = 0 to b at t = 1, beyond the two outside; t is a number or, for vectors, one for each component.
template<class T, class U> T lerp(const T& a, const T& b, U t) { return T((U(1) - t) * a + t * b); }
// The t that makes lerp() return the value
template<class T> auto lerpInverted(const T& a, const T& b, const T& value) { return (value - a) / (b - a); }
// a before t = 1, b from there on
template<class T, class U> T select(const T& a, const T& b, const U& t) {
    if constexpr(Implementation::IsVector<U>)
        return Implementation::each([](auto v, auto w, auto u) { return u < decltype(u)(1) ? v : w; }, a, b, t);
    else
        return t < U(1) ? a : b;
}

template<std::size_t exponent, class T> constexpr T pow(T base) {
    if constexpr(exponent == 0)
        return T(1);
    else
        return base * Math::pow<exponent - 1>(base);
}
template<class T, class U> auto pow(const T& base, const U& exponent) {
    return Implementation::eachNumber([](auto v, auto w) { return std::pow(v, w); }, base, exponent);
}
template<class T> auto sqrt(const T& value) {
    return Implementation::eachNumber([](auto v) { return std::sqrt(v); }, value);
}
template<class T> auto sqrtInverted(const T& value) {
    return Implementation::eachNumber([](auto v) { return decltype(v)(1) / std::sqrt(v); }, value);
}

template<class T> auto isNan(const T& value) {
    return Implementation::test([](auto v) { return std::isnan(v); }, value);
}
template<class T> auto isInf(const T& value) {
    return Implementation::test([](auto v) { return std::isinf(v); }, value);
}

// The vector bounced off a surface with this normalized normal
template<std::size_t size, class T>
Vector<size, T> reflect(const Vector<size, T>& vector, const Vector<size, T>& normal) {
    CORRADE_DEBUG_ASSERT(normal.isNormalized(), "Math::reflect(): normal" << normal << "is not normalized", {});
    return vector - normal * (T(2) * dot(vector, normal));
}
// The normalized vector bent by a surface (Snell's law), eta being the ratio of the refractive indices before and behind
// it. Zero where all is reflected.
template<std::size_t size, class T>
Vector<size, T> refract(const Vector<size, T>& vector, const Vector<size, T>& normal, T eta) {
    CORRADE_DEBUG_ASSERT(vector.isNormalized() && normal.isNormalized(),
        "Math::refract(): vectors" << vector << "and" << normal << "are not normalized", {});
    const T cosine = dot(vector, normal);
    const T k = T(1) - eta * eta * (T(1) - cosine * cosine);
    if(k < T(0)) return {};
    return vector * eta - normal * (eta * cosine + std::sqrt(k));
}

// a*b + c, rounded once
template<class T> auto fma(const T& a, const T& b, const T& c) {
    return Implementation::each([](auto u, auto v, auto w) { return std::fma(u, v, w); }, a, b, c);
}

template<class T> T sin(Unit<Rad, T> angle) { return std::sin(T(angle)); }
template<class T> T sin(Unit<Deg, T> angle) { return Math::sin(Rad<T>{angle}); }
template<class T> T cos(Unit<Rad, T> angle) { return std::cos(T(angle)); }
template<class T> T cos(Unit<Deg, T> angle) { return Math::cos(Rad<T>{angle}); }
template<class T> T tan(Unit<Rad, T> angle) { return std::tan(T(angle)); }
template<class T> T tan(Unit<Deg, T> angle) { return Math::tan(Rad<T>{angle}); }
template<class T> Corrade::Containers::Pair<T, T> sincos(Unit<Rad, T> angle) {
    return {std::sin(T(angle)), std::cos(T(angle))};
}
template<class T> Corrade::Containers::Pair<T, T> sincos(Unit<Deg, T> angle) { return Math::sincos(Rad<T>{angle}); }
template<class T> Rad<T> asin(T value) { return Rad<T>{std::asin(value)}; }
template<class T> Rad<T> acos(T value) { return Rad<T>{std::acos(value)}; }
template<class T> Rad<T> atan(T value) { return Rad<T>{std::atan(value)}; }

template<class T> T log(T value) { return std::log(value); }
template<class T> T exp(T value) { return std::exp(value); }
// The integer part; 0 for 0. The base is at least 2.
inline std::uint32_t log(std::uint32_t base, std::uint32_t number) {
    std::uint32_t result = 0;
    while(number /= base) ++result;
    return result;
}
inline std::uint32_t log2(std::uint32_t number) { return number ? 31u - std::uint32_t(__builtin_clz(number)) : 0; }
inline std::uint32_t popcount(std::uint32_t number) { return std::uint32_t(__builtin_popcount(number)); }
inline std::uint32_t popcount(std::uint64_t number) { return std::uint32_t(__builtin_popcountll(number)); }

// Quotient and remainder of integers
template<class Integral> Corrade::Containers::Pair<Integral, Integral> div(Integral a, Integral b) {
    return {Integral(a / b), Integral(a % b)};
}

}
