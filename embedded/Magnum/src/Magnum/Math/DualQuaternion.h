#pragma once
// Rotations with translation as unit dual quaternions. Products apply the right operand first.
//
// The real part is the rotation r, the dual part t*r/2 with the translation t as a quaternion.

#include "Magnum/Math/Matrix4.h"
#include "Magnum/Math/Quaternion.h"

namespace Magnum::Math {

template<class T> class DualQuaternion {
public:
    using Type = T;

    static DualQuaternion rotation(Rad<T> angle, const Vector3<T>& axis) {
        return Quaternion<T>::rotation(angle, axis);
    }
    static DualQuaternion translation(const Vector3<T>& by) { return {{}, Quaternion<T>{by * T(0.5)}}; }
    // Rotation by a normalized quaternion, then translation
    static DualQuaternion from(const Quaternion<T>& rotation, const Vector3<T>& translation) {
        return {rotation, Quaternion<T>{translation * T(0.5)} * rotation};
    }
    // Of a rigid transformation without reflection
    static DualQuaternion fromMatrix(const Matrix4<T>& matrix) {
        CORRADE_DEBUG_ASSERT(matrix.isRigidTransformation(),
            "Math::DualQuaternion::fromMatrix(): the matrix doesn't represent a rigid transformation:\n"
                << Corrade::Utility::Debug::nospace << matrix,
            {});
        return from(Quaternion<T>::fromMatrixUnchecked(matrix.rotationScaling()), matrix.translation());
    }

    // Identity
    constexpr DualQuaternion(): _dual{{}, T(0)} {}
    constexpr DualQuaternion(const Quaternion<T>& real, const Quaternion<T>& dual): _real{real}, _dual{dual} {}
    // Rotation without translation
    constexpr DualQuaternion(const Quaternion<T>& rotation): _real{rotation}, _dual{{}, T(0)} {}
    template<class U>
    constexpr explicit DualQuaternion(const DualQuaternion<U>& other): _real{other.real()}, _dual{other.dual()} {}

    friend bool operator==(const DualQuaternion& a, const DualQuaternion& b) {
        return a._real == b._real && a._dual == b._dual;
    }
    friend bool operator!=(const DualQuaternion& a, const DualQuaternion& b) { return !(a == b); }

    // Real x, y, z, w, dual x, y, z, w
    T* data() { return reinterpret_cast<T*>(this); }
    const T* data() const { return reinterpret_cast<const T*>(this); }
    constexpr Quaternion<T>& real() { return _real; }
    constexpr Quaternion<T> real() const { return _real; }
    constexpr Quaternion<T>& dual() { return _dual; }
    constexpr Quaternion<T> dual() const { return _dual; }

    // Parts of a normalized dual quaternion; that is not checked.
    constexpr Quaternion<T> rotation() const { return _real; }
    Vector3<T> translation() const {
        // Vector part of 2*dual*conjugated real; of any other length it comes out times the square of that.
        return (_real.turn(_dual.vector()) - _real.vector() * _dual.scalar()) * T(2);
    }
    Matrix4<T> toMatrix() const { return Matrix4<T>::from(_real.toMatrix(), translation()); }

    friend constexpr DualQuaternion operator-(const DualQuaternion& a) { return {-a._real, -a._dual}; }
    friend DualQuaternion operator*(const DualQuaternion& a, const DualQuaternion& b) {
        return {a._real * b._real, a._real * b._dual + a._dual * b._real};
    }

    // Real part of unit length, dual part perpendicular to it. How exactly depends on the length of the translation, if
    // that is above one.
    bool isNormalized() const {
        if(!_real.isNormalized()) return false;
        const T error = std::abs(T(2) * dot(_real, _dual)), epsilon = TypeTraits<T>::epsilon();
        return error < epsilon || error < epsilon * T(2) * Vector4<T>{Math::abs(_dual.xyzw())}.max();
    }
    DualQuaternion normalized() const {
        const T length = _real.length();
        const Quaternion<T> real = _real / length, dual = _dual / length;
        return {real, dual - real * dot(real, dual)};
    }
    constexpr DualQuaternion quaternionConjugated() const { return {_real.conjugated(), _dual.conjugated()}; }
    constexpr DualQuaternion dualConjugated() const { return {_real, -_dual}; }
    constexpr DualQuaternion conjugated() const { return {_real.conjugated(), -_dual.conjugated()}; }
    DualQuaternion inverted() const {
        const Quaternion<T> inverse = _real.inverted();
        return {inverse, _dual.conjugated() / _real.dot() - inverse * (T(2) * dot(_real, _dual) / _real.dot())};
    }
    // The same for a normalized dual quaternion, cheaper
    DualQuaternion invertedNormalized() const {
        CORRADE_DEBUG_ASSERT(isNormalized(),
            "Math::DualQuaternion::invertedNormalized():" << DualQuaternion{*this} << "is not normalized", {});
        return quaternionConjugated();
    }

    // A direction is not translated. The length of the dual quaternion does not matter.
    Vector3<T> transformVector(const Vector3<T>& vector) const { return _real.transformVector(vector); }
    [[gnu::always_inline]] Vector3<T> transformPoint(const Vector3<T>& point) const {
        return point + halfShift(point) * (T(2) / _real.dot());
    }
    // The same for a normalized dual quaternion, cheaper
    Vector3<T> transformVectorNormalized(const Vector3<T>& vector) const {
        return _real.transformVectorNormalized(vector);
    }
    [[gnu::always_inline]] Vector3<T> transformPointNormalized(const Vector3<T>& point) const {
        CORRADE_DEBUG_ASSERT(isNormalized(),
            "Math::DualQuaternion::transformPointNormalized():" << DualQuaternion{*this} << "is not normalized", {});
        return point + halfShift(point) * T(2);
    }

private:
    // Half of what a point moves by, over the square of the length: rotation and translation have the same left factor.
    Vector3<T> halfShift(const Vector3<T>& point) const {
        return _real.turn(cross(_real.vector(), point) + _dual.vector()) - _real.vector() * _dual.scalar();
    }

    Quaternion<T> _real, _dual;
};

namespace Implementation {

template<class T>
DualQuaternion<T> sclerp(const DualQuaternion<T>& a, const DualQuaternion<T>& b, T t, bool shortestPath) {
    const T cosine = dot(a.real(), b.real());
    if(std::abs(cosine) > T(1) - TypeTraits<T>::epsilon())
        return DualQuaternion<T>::from(a.real(), lerp(a.translation(), b.translation(), t));

    // The way between the two as an axis with half the angle about it, its moment and half the distance along it
    const DualQuaternion<T> difference = a.quaternionConjugated() * b;
    const DualQuaternion<T> way = shortestPath && cosine < T(0) ? -difference : difference;
    const T sine = way.real().vector().length(), halfAngle = std::atan2(sine, way.real().scalar());
    const Vector3<T> axis = way.real().vector() / sine;
    const T halfDistance = -way.dual().scalar() / sine;
    const Vector3<T> moment = (way.dual().vector() - axis * (halfDistance * way.real().scalar())) / sine;

    // A fraction of the way, put together again
    const T s = std::sin(t * halfAngle), c = std::cos(t * halfAngle);
    return a * DualQuaternion<T>{{axis * s, c}, {moment * s + axis * (t * halfDistance * c), -t * halfDistance * s}};
}

}

// Screw motion from a at t = 0 to b at t = 1: rotation about and translation along one axis, both with constant speed.
// Between equal rotations the translation is interpolated. Expects normalized dual quaternions.
// [Kavan et al., Geometric skinning with approximate dual quaternion blending]
template<class T>
DualQuaternion<T> sclerp(const DualQuaternion<T>& a, const DualQuaternion<T>& b, Implementation::NonDeducedT<T> t) {
    CORRADE_DEBUG_ASSERT(a.isNormalized() && b.isNormalized(),
        "Math::sclerp(): dual quaternions" << a << "and" << b << "are not normalized", {});
    return Implementation::sclerp(a, b, t, false);
}
// The same by the smaller of the two rotations
template<class T>
DualQuaternion<T> sclerpShortestPath(
    const DualQuaternion<T>& a, const DualQuaternion<T>& b, Implementation::NonDeducedT<T> t) {
    CORRADE_DEBUG_ASSERT(a.isNormalized() && b.isNormalized(),
        "Math::sclerp(): dual quaternions" << a << "and" << b << "are not normalized", {});
    return Implementation::sclerp(a, b, t, true);
}

template<class T> Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, const DualQuaternion<T>& value) {
    using Corrade::Utility::Debug;
    Implementation::print(debug, "DualQuaternion({{", value.real().vector().data(), 3, "},");
    debug << value.real().scalar() << Debug::nospace << "},";
    Implementation::print(debug, "{{", value.dual().vector().data(), 3, "},");
    return debug << value.dual().scalar() << Debug::nospace << "})";
}

}
