#pragma once

#include "Magnum/Math/Vector.h"

namespace Magnum::Math {

template<class T> class Vector2: public Implementation::NamedVector<Vector2<T>, Vector<2, T>> {
    using Base = Implementation::NamedVector<Vector2, Vector<2, T>>;

public:
    constexpr Vector2() = default;
    constexpr explicit Vector2(T value): Base(value, value) {}
    constexpr Vector2(T x, T y): Base(x, y) {}
    constexpr Vector2(const Vector<2, T>& other): Base(other) {}
    template<class U> constexpr explicit Vector2(const Vector<2, U>& other): Base(T(other[0]), T(other[1])) {}

    constexpr T& x() { return (*this)[0]; }
    constexpr T& y() { return (*this)[1]; }
    constexpr T x() const { return (*this)[0]; }
    constexpr T y() const { return (*this)[1]; }

    constexpr Vector2 flipped() const { return {y(), x()}; }
    // Width by height
    constexpr T aspectRatio() const { return x() / y(); }
};

}
