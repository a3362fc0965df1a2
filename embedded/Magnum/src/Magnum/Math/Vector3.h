#pragma once

#include "Magnum/Math/Vector2.h"

namespace Magnum::Math {

// Perpendicular to both, right-handed; as long as the area of the parallelogram they span
template<class T> Vector3<T> cross(const Vector<3, T>& a, const Vector<3, T>& b) {
    return {T(a[1] * b[2] - a[2] * b[1]), T(a[2] * b[0] - a[0] * b[2]), T(a[0] * b[1] - a[1] * b[0])};
}

template<class T> class Vector3: public Implementation::NamedVector<Vector3<T>, Vector<3, T>> {
    using Base = Implementation::NamedVector<Vector3, Vector<3, T>>;

public:
    static constexpr Vector3 xAxis(T length = T(1)) { return {length, T(0), T(0)}; }
    static constexpr Vector3 yAxis(T length = T(1)) { return {T(0), length, T(0)}; }
    static constexpr Vector3 zAxis(T length = T(1)) { return {T(0), T(0), length}; }
    static constexpr Vector3 xScale(T scale) { return {scale, T(1), T(1)}; }
    static constexpr Vector3 yScale(T scale) { return {T(1), scale, T(1)}; }
    static constexpr Vector3 zScale(T scale) { return {T(1), T(1), scale}; }

    constexpr Vector3() = default;
    constexpr explicit Vector3(T value): Base(value, value, value) {}
    constexpr Vector3(T x, T y, T z): Base(x, y, z) {}
    constexpr Vector3(const Vector<2, T>& xy, T z): Base(xy[0], xy[1], z) {}
    constexpr Vector3(const Vector<3, T>& other): Base(other) {}
    template<class U>
    constexpr explicit Vector3(const Vector<3, U>& other): Base(T(other[0]), T(other[1]), T(other[2])) {}

    constexpr T& x() { return (*this)[0]; }
    constexpr T& y() { return (*this)[1]; }
    constexpr T& z() { return (*this)[2]; }
    constexpr T x() const { return (*this)[0]; }
    constexpr T y() const { return (*this)[1]; }
    constexpr T z() const { return (*this)[2]; }

    Vector2<T>& xy() { return reinterpret_cast<Vector2<T>&>((*this)[0]); }
    constexpr Vector2<T> xy() const { return {x(), y()}; }

    constexpr Vector3 flipped() const { return {z(), y(), x()}; }
};

}
