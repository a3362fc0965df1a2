#pragma once
// Angles that know their unit. A number becomes one only explicitly; degrees and radians convert to each other silently.

#include "Corrade/Utility/Debug.h"
#include "Magnum/Math/Constants.h"
#include "Magnum/Math/TypeTraits.h"

namespace Magnum::Math {

template<template<class> class Derived, class T> class Unit {
public:
    using Type = T;

    constexpr Unit(): _value{} {}
    constexpr explicit Unit(T value): _value{value} {}

    constexpr explicit operator T() const { return _value; }

    Derived<T>& operator+=(Unit other) { return assign(_value + other._value); }
    Derived<T>& operator-=(Unit other) { return assign(_value - other._value); }
    Derived<T>& operator*=(T number) { return assign(_value * number); }
    Derived<T>& operator/=(T number) { return assign(_value / number); }

    friend constexpr Derived<T> operator-(Unit a) { return Derived<T>{-a._value}; }
    friend constexpr Derived<T> operator+(Unit a, Unit b) { return Derived<T>{a._value + b._value}; }
    friend constexpr Derived<T> operator-(Unit a, Unit b) { return Derived<T>{a._value - b._value}; }
    friend constexpr Derived<T> operator*(Unit a, T number) { return Derived<T>{a._value * number}; }
    friend constexpr Derived<T> operator*(T number, Unit a) { return Derived<T>{number * a._value}; }
    friend constexpr Derived<T> operator/(Unit a, T number) { return Derived<T>{a._value / number}; }
    friend constexpr T operator/(Unit a, Unit b) { return a._value / b._value; }

    // Equality with tolerance, order without.
    friend bool operator==(Unit a, Unit b) { return TypeTraits<T>::equals(a._value, b._value); }
    friend bool operator!=(Unit a, Unit b) { return !(a == b); }
    friend constexpr bool operator<(Unit a, Unit b) { return a._value < b._value; }
    friend constexpr bool operator>(Unit a, Unit b) { return a._value > b._value; }
    friend constexpr bool operator<=(Unit a, Unit b) { return a._value <= b._value; }
    friend constexpr bool operator>=(Unit a, Unit b) { return a._value >= b._value; }

private:
    Derived<T>& assign(T value) {
        _value = value;
        return static_cast<Derived<T>&>(*this);
    }

    T _value;
};

template<class T> class Deg: public Unit<Deg, T> {
public:
    constexpr Deg() = default;
    constexpr explicit Deg(T value): Unit<Math::Deg, T>{value} {}
    constexpr Deg(Unit<Math::Deg, T> other): Unit<Math::Deg, T>{other} {}
    constexpr Deg(Unit<Rad, T> other): Unit<Math::Deg, T>{T(180) / Constants<T>::pi() * T(other)} {}
    template<class U> constexpr explicit Deg(Unit<Math::Deg, U> other): Unit<Math::Deg, T>{T(U(other))} {}
};

template<class T> class Rad: public Unit<Rad, T> {
public:
    constexpr Rad() = default;
    constexpr explicit Rad(T value): Unit<Math::Rad, T>{value} {}
    constexpr Rad(Unit<Math::Rad, T> other): Unit<Math::Rad, T>{other} {}
    constexpr Rad(Unit<Deg, T> other): Unit<Math::Rad, T>{Constants<T>::pi() / T(180) * T(other)} {}
    template<class U> constexpr explicit Rad(Unit<Math::Rad, U> other): Unit<Math::Rad, T>{T(U(other))} {}
};

template<class T> Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, Unit<Deg, T> value) {
    using Corrade::Utility::Debug;
    return debug << "Deg(" << Debug::nospace << T(value) << Debug::nospace << ")";
}
template<class T> Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, Unit<Rad, T> value) {
    using Corrade::Utility::Debug;
    return debug << "Rad(" << Debug::nospace << T(value) << Debug::nospace << ")";
}

namespace Literals {
inline namespace AngleLiterals {

constexpr Deg<float> operator""_degf(long double value) { return Deg<float>{float(value)}; }
constexpr Deg<double> operator""_deg(long double value) { return Deg<double>{double(value)}; }
constexpr Rad<float> operator""_radf(long double value) { return Rad<float>{float(value)}; }
constexpr Rad<double> operator""_rad(long double value) { return Rad<double>{double(value)}; }

}
}

}
