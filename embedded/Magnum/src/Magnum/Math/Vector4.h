#pragma once

#include "Magnum/Math/Vector3.h"

namespace Magnum::Math {

template<class T> class Vector4: public Implementation::NamedVector<Vector4<T>, Vector<4, T>> {
    using Base = Implementation::NamedVector<Vector4, Vector<4, T>>;

public:
    constexpr Vector4() = default;
    constexpr explicit Vector4(T value): Base(value, value, value, value) {}
    constexpr Vector4(T x, T y, T z, T w): Base(x, y, z, w) {}
    constexpr Vector4(const Vector<3, T>& xyz, T w): Base(xyz[0], xyz[1], xyz[2], w) {}
    constexpr Vector4(const Vector<4, T>& other): Base(other) {}
    template<class U>
    constexpr explicit Vector4(const Vector<4, U>& other): Base(T(other[0]), T(other[1]), T(other[2]), T(other[3])) {}

    constexpr T& x() { return (*this)[0]; }
    constexpr T& y() { return (*this)[1]; }
    constexpr T& z() { return (*this)[2]; }
    constexpr T& w() { return (*this)[3]; }
    constexpr T x() const { return (*this)[0]; }
    constexpr T y() const { return (*this)[1]; }
    constexpr T z() const { return (*this)[2]; }
    constexpr T w() const { return (*this)[3]; }

    Vector2<T>& xy() { return reinterpret_cast<Vector2<T>&>((*this)[0]); }
    constexpr Vector2<T> xy() const { return {x(), y()}; }
    Vector3<T>& xyz() { return reinterpret_cast<Vector3<T>&>((*this)[0]); }
    constexpr Vector3<T> xyz() const { return {x(), y(), z()}; }

    constexpr Vector4 flipped() const { return {w(), z(), y(), x()}; }
};

}
