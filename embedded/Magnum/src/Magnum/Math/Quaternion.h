#pragma once
// Rotations as unit quaternions. Products apply the right operand first.

#include "Magnum/Math/Functions.h"
#include "Magnum/Math/Matrix.h"
#include "Magnum/Math/Vector4.h"

namespace Magnum::Math {

template<class T> class Quaternion {
public:
    using Type = T;

    // Counterclockwise when the axis, which has to be normalized, points to the viewer
    static Quaternion rotation(Rad<T> angle, const Vector3<T>& axis) {
        CORRADE_DEBUG_ASSERT(
            axis.isNormalized(), "Math::Quaternion::rotation(): axis" << axis << "is not normalized", {});
        return {axis * Math::sin(angle / T(2)), Math::cos(angle / T(2))};
    }
    // The shortest one that takes one normalized direction to the other; for opposite ones about some perpendicular axis
    static Quaternion rotation(const Vector3<T>& from, const Vector3<T>& to);
    // Of a rotation matrix, whose determinant has to be 1
    static Quaternion fromMatrix(const Matrix3x3<T>& matrix) {
        CORRADE_DEBUG_ASSERT(std::abs(matrix.determinant() - T(1)) < T(3) * TypeTraits<T>::epsilon(),
            "Math::Quaternion::fromMatrix(): the matrix is not a rotation:\n"
                << Corrade::Utility::Debug::nospace << matrix,
            {});
        return fromMatrixUnchecked(matrix);
    }
    static Quaternion fromMatrixUnchecked(const Matrix3x3<T>& m);

    // Identity
    constexpr Quaternion(): _scalar{T(1)} {}
    constexpr Quaternion(const Vector3<T>& vector, T scalar): _vector{vector}, _scalar{scalar} {}
    // Vector as a quaternion
    constexpr explicit Quaternion(const Vector3<T>& vector): _vector{vector}, _scalar{} {}
    template<class U>
    constexpr explicit Quaternion(const Quaternion<U>& other): _vector{other.vector()}, _scalar{T(other.scalar())} {}

    friend bool operator==(const Quaternion& a, const Quaternion& b) { return a.xyzw() == b.xyzw(); }
    friend bool operator!=(const Quaternion& a, const Quaternion& b) { return !(a == b); }

    constexpr Vector3<T>& vector() { return _vector; }
    constexpr Vector3<T> vector() const { return _vector; }
    constexpr T& scalar() { return _scalar; }
    constexpr T scalar() const { return _scalar; }
    constexpr Vector4<T> xyzw() const { return {_vector, _scalar}; }
    constexpr Vector4<T> wxyz() const { return {_scalar, _vector.x(), _vector.y(), _vector.z()}; }

    // From 0 to 2 pi. Expects the quaternion to be normalized.
    Rad<T> angle() const {
        CORRADE_DEBUG_ASSERT(
            isNormalized(), "Math::Quaternion::angle():" << Quaternion{*this} << "is not normalized", {});
        // Exact for small angles too, unlike the arc cosine of the scalar.
        return Rad<T>{T(2) * std::atan2(_vector.length(), _scalar)};
    }
    // NaNs for the identity. Expects the quaternion to be normalized.
    Vector3<T> axis() const {
        CORRADE_DEBUG_ASSERT(
            isNormalized(), "Math::Quaternion::axis():" << Quaternion{*this} << "is not normalized", {});
        return _vector.normalized();
    }
    // Expects the quaternion to be normalized, without checking.
    Matrix3x3<T> toMatrix() const;
    // Angles about x, y and z such that the rotation about x is applied first and that about z last. Where y is +-90
    // degrees, x is 0. Expects the quaternion to be normalized.
    Vector3<Rad<T>> toEuler() const;

    friend constexpr Quaternion operator-(const Quaternion& a) { return {-a._vector, -a._scalar}; }
    friend constexpr Quaternion operator+(const Quaternion& a, const Quaternion& b) {
        return {a._vector + b._vector, a._scalar + b._scalar};
    }
    friend constexpr Quaternion operator-(const Quaternion& a, const Quaternion& b) {
        return {a._vector - b._vector, a._scalar - b._scalar};
    }
    friend constexpr Quaternion operator*(const Quaternion& a, T number) {
        return {a._vector * number, a._scalar * number};
    }
    friend constexpr Quaternion operator*(T number, const Quaternion& a) { return a * number; }
    friend constexpr Quaternion operator/(const Quaternion& a, T number) {
        return {a._vector / number, a._scalar / number};
    }
    friend Quaternion operator*(const Quaternion& a, const Quaternion& b) {
        return {b._vector * a._scalar + a._vector * b._scalar + cross(a._vector, b._vector),
            a._scalar * b._scalar - Math::dot(a._vector, b._vector)};
    }

    // Square of the length
    T dot() const { return xyzw().dot(); }
    T length() const { return std::sqrt(dot()); }
    bool isNormalized() const { return Implementation::isNormalizedSquared(dot()); }
    Quaternion normalized() const { return *this / length(); }
    constexpr Quaternion conjugated() const { return {-_vector, _scalar}; }
    Quaternion inverted() const { return conjugated() / dot(); }
    // The same for a normalized quaternion, cheaper
    Quaternion invertedNormalized() const {
        CORRADE_DEBUG_ASSERT(
            isNormalized(), "Math::Quaternion::invertedNormalized():" << Quaternion{*this} << "is not normalized", {});
        return conjugated();
    }

    // Rotates; the length of the quaternion does not matter.
    Vector3<T> transformVector(const Vector3<T>& vector) const {
        return vector + turn(cross(_vector, vector)) * (T(2) / dot());
    }
    // The same for a normalized quaternion, cheaper
    Vector3<T> transformVectorNormalized(const Vector3<T>& vector) const {
        CORRADE_DEBUG_ASSERT(isNormalized(),
            "Math::Quaternion::transformVectorNormalized():" << Quaternion{*this} << "is not normalized", {});
        return vector + turn(cross(_vector, vector)) * T(2);
    }

private:
    friend DualQuaternion<T>;

    // Product with a vector, without the scalar. By it a rotated vector is v + 2*q*(q x v), over the square of the length.
    Vector3<T> turn(const Vector3<T>& vector) const { return vector * _scalar + cross(_vector, vector); }

    Vector3<T> _vector;
    T _scalar;
};

template<class T> Quaternion<T> Quaternion<T>::rotation(const Vector3<T>& from, const Vector3<T>& to) {
    CORRADE_DEBUG_ASSERT(from.isNormalized() && to.isNormalized(),
        "Math::Quaternion::rotation(): vectors" << from << "and" << to << "are not normalized", {});
    const T cosine = Math::dot(from, to);
    if(cosine > T(1) - TypeTraits<T>::epsilon()) return {};
    if(cosine < T(-1) + TypeTraits<T>::epsilon()) {
        const bool alongY = std::abs(from.y()) > T(1) - TypeTraits<T>::epsilon();
        return Quaternion{cross(alongY ? Vector3<T>::xAxis() : Vector3<T>::yAxis(), from).normalized()};
    }
    // Twice the half angle: the sum of the product of the two with the identity
    return Quaternion{cross(from, to), T(1) + cosine}.normalized();
}

// The largest of the four components comes first, so that nothing is divided by a small number (Shepperd's method).
template<class T> Quaternion<T> Quaternion<T>::fromMatrixUnchecked(const Matrix3x3<T>& m) {
    const T trace = m.trace();
    if(trace > T(0)) {
        const T s = std::sqrt(trace + T(1)), f = T(0.5) / s;
        return {{(m[1][2] - m[2][1]) * f, (m[2][0] - m[0][2]) * f, (m[0][1] - m[1][0]) * f}, T(0.5) * s};
    }
    std::size_t i = 0;
    if(m[1][1] > m[0][0]) i = 1;
    if(m[2][2] > m[i][i]) i = 2;
    const std::size_t j = (i + 1) % 3, k = (i + 2) % 3;
    const T s = std::sqrt(m[i][i] - m[j][j] - m[k][k] + T(1)), f = T(0.5) / s;
    Vector3<T> vector;
    vector[i] = T(0.5) * s;
    vector[j] = (m[i][j] + m[j][i]) * f;
    vector[k] = (m[i][k] + m[k][i]) * f;
    return {vector, (m[j][k] - m[k][j]) * f};
}

template<class T> Matrix3x3<T> Quaternion<T>::toMatrix() const {
    const Vector3<T> twice = _vector * T(2), x = twice * _vector.x(), w = twice * _scalar;
    const T yy = twice.y() * _vector.y(), yz = twice.y() * _vector.z(), zz = twice.z() * _vector.z();
    return {Vector<3, T>{T(1) - yy - zz, x.y() + w.z(), x.z() - w.y()},
        Vector<3, T>{x.y() - w.z(), T(1) - x.x() - zz, yz + w.x()},
        Vector<3, T>{x.z() + w.y(), yz - w.x(), T(1) - x.x() - yy}};
}

template<class T> Vector3<Rad<T>> Quaternion<T>::toEuler() const {
    CORRADE_DEBUG_ASSERT(
        isNormalized(), "Math::Quaternion::toEuler():" << Quaternion{*this} << "is not normalized", {});
    const Matrix3x3<T> m = toMatrix();
    // The arc sine of the third component alone would be coarse around 90 degrees.
    const T cosine = std::hypot(m[0][0], m[0][1]);
    const Rad<T> y{std::atan2(-m[0][2], cosine)};
    if(cosine > TypeTraits<T>::epsilon())
        return {Rad<T>{std::atan2(m[1][2], m[2][2])}, y, Rad<T>{std::atan2(m[0][1], m[0][0])}};
    // Both other rotations are about the same axis: all of it goes to z.
    return {Rad<T>{}, y, Rad<T>{std::atan2(-m[1][0], m[1][1])}};
}

template<class T> T dot(const Quaternion<T>& a, const Quaternion<T>& b) { return dot(a.xyzw(), b.xyzw()); }

namespace Implementation {

// a with the sign that makes the way to b the short one
template<class Q, class T> Q closer(const Q& a, T cosine) { return cosine < T(0) ? -a : a; }

template<class T> Quaternion<T> lerpNormalized(const Quaternion<T>& a, const Quaternion<T>& b, T t) {
    return (a * (T(1) - t) + b * t).normalized();
}

// By the angle between the two; as good as straight for close ones and, by the short way, for opposite ones.
template<class T> Quaternion<T> slerp(const Quaternion<T>& a, const Quaternion<T>& b, T t) {
    const T cosine = dot(a, b);
    if(std::abs(cosine) > T(1) - TypeTraits<T>::epsilon() / T(2)) return lerpNormalized(closer(a, cosine), b, t);
    const T angle = std::acos(cosine);
    return (a * std::sin((T(1) - t) * angle) + b * std::sin(t * angle)) / std::sin(angle);
}

}

// Interpolation of normalized quaternions from a at t = 0 to b at t = 1. The "ShortestPath" forms negate a where that
// makes the rotation in between smaller; lerp() is the cheaper one, slerp() has constant speed.
template<class T> Quaternion<T> lerp(const Quaternion<T>& a, const Quaternion<T>& b, Implementation::NonDeducedT<T> t) {
    CORRADE_DEBUG_ASSERT(a.isNormalized() && b.isNormalized(),
        "Math::lerp(): quaternions" << a << "and" << b << "are not normalized", {});
    return Implementation::lerpNormalized(a, b, t);
}
template<class T>
Quaternion<T> lerpShortestPath(const Quaternion<T>& a, const Quaternion<T>& b, Implementation::NonDeducedT<T> t) {
    return lerp(Implementation::closer(a, dot(a, b)), b, t);
}
template<class T>
Quaternion<T> slerp(const Quaternion<T>& a, const Quaternion<T>& b, Implementation::NonDeducedT<T> t) {
    CORRADE_DEBUG_ASSERT(a.isNormalized() && b.isNormalized(),
        "Math::slerp(): quaternions" << a << "and" << b << "are not normalized", {});
    return Implementation::slerp(a, b, t);
}
template<class T>
Quaternion<T> slerpShortestPath(const Quaternion<T>& a, const Quaternion<T>& b, Implementation::NonDeducedT<T> t) {
    CORRADE_DEBUG_ASSERT(a.isNormalized() && b.isNormalized(),
        "Math::slerpShortestPath(): quaternions" << a << "and" << b << "are not normalized", {});
    return Implementation::slerp(Implementation::closer(a, dot(a, b)), b, t);
}

template<class T> Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, const Quaternion<T>& value) {
    using Corrade::Utility::Debug;
    Implementation::print(debug, "Quaternion({", value.vector().data(), 3, "},");
    return debug << value.scalar() << Debug::nospace << ")";
}

}
