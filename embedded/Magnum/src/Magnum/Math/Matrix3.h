#pragma once

#include "Magnum/Math/Matrix.h"

namespace Magnum::Math {

// Transformation of the plane in homogeneous coordinates
template<class T> class Matrix3: public Matrix<3, T> {
public:
    // Identity
    constexpr Matrix3() = default;
    constexpr Matrix3(const Vector3<T>& first, const Vector3<T>& second, const Vector3<T>& third):
        Matrix<3, T>{first, second, third} {}
    constexpr Matrix3(const RectangularMatrix<3, 3, T>& other): Matrix<3, T>(other) {}

    Vector3<T> operator*(const Vector<3, T>& vector) const { return Matrix<3, T>::operator*(vector); }
};

}
