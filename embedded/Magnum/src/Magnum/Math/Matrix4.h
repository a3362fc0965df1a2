#pragma once
// Transformations and projections of space in homogeneous coordinates

#include "Magnum/Math/Functions.h"
#include "Magnum/Math/Matrix.h"
#include "Magnum/Math/Vector4.h"

namespace Magnum::Math {

template<class T> class Matrix4: public Matrix<4, T> {
    using Base = Matrix<4, T>;

public:
    static constexpr Matrix4 translation(const Vector3<T>& by) {
        return {{T(1), T(0), T(0), T(0)}, {T(0), T(1), T(0), T(0)}, {T(0), T(0), T(1), T(0)}, {by, T(1)}};
    }
    static constexpr Matrix4 scaling(const Vector3<T>& by) {
        return {{by.x(), T(0), T(0), T(0)}, {T(0), by.y(), T(0), T(0)}, {T(0), T(0), by.z(), T(0)},
            {T(0), T(0), T(0), T(1)}};
    }
    // Counterclockwise when the axis, which has to be normalized, points to the viewer (Rodrigues' formula)
    static Matrix4 rotation(Rad<T> angle, const Vector3<T>& axis) {
        CORRADE_DEBUG_ASSERT(axis.isNormalized(), "Math::Matrix4::rotation(): axis" << axis << "is not normalized", {});
        const T s = Math::sin(angle), c = Math::cos(angle);
        const Vector3<T> around = axis * s, along = axis * (T(1) - c);
        return {{along * axis.x() + Vector3<T>{c, around.z(), -around.y()}, T(0)},
            {along * axis.y() + Vector3<T>{-around.z(), c, around.x()}, T(0)},
            {along * axis.z() + Vector3<T>{around.y(), -around.x(), c}, T(0)}, {T(0), T(0), T(0), T(1)}};
    }
    // The same about one axis, with exact zeros and ones
    static Matrix4 rotationX(Rad<T> angle) {
        const T s = Math::sin(angle), c = Math::cos(angle);
        return {{T(1), T(0), T(0), T(0)}, {T(0), c, s, T(0)}, {T(0), -s, c, T(0)}, {T(0), T(0), T(0), T(1)}};
    }
    static Matrix4 rotationY(Rad<T> angle) {
        const T s = Math::sin(angle), c = Math::cos(angle);
        return {{c, T(0), -s, T(0)}, {T(0), T(1), T(0), T(0)}, {s, T(0), c, T(0)}, {T(0), T(0), T(0), T(1)}};
    }
    static Matrix4 rotationZ(Rad<T> angle) {
        const T s = Math::sin(angle), c = Math::cos(angle);
        return {{c, s, T(0), T(0)}, {-s, c, T(0), T(0)}, {T(0), T(0), T(1), T(0)}, {T(0), T(0), T(0), T(1)}};
    }
    // Mirrored at the plane through the origin with this normalized normal (Householder)
    static Matrix4 reflection(const Vector3<T>& normal) {
        CORRADE_DEBUG_ASSERT(
            normal.isNormalized(), "Math::Matrix4::reflection(): normal" << normal << "is not normalized", {});
        const Vector3<T> twice = normal * T(2);
        return {{Vector3<T>::xAxis() - twice * normal.x(), T(0)}, {Vector3<T>::yAxis() - twice * normal.y(), T(0)},
            {Vector3<T>::zAxis() - twice * normal.z(), T(0)}, {T(0), T(0), T(0), T(1)}};
    }
    // Placement of an object at eye that looks along its -z to target; NaNs where up is along the view.
    static Matrix4 lookAt(const Vector3<T>& eye, const Vector3<T>& target, const Vector3<T>& up) {
        const Vector3<T> backward = (eye - target).normalized();
        const Vector3<T> right = cross(up, backward).normalized();
        return {{right, T(0)}, {cross(backward, right), T(0)}, {backward, T(0)}, {eye, T(1)}};
    }
    static constexpr Matrix4 from(const Matrix3x3<T>& rotationScaling, const Vector3<T>& translation) {
        return {
            {rotationScaling[0], T(0)}, {rotationScaling[1], T(0)}, {rotationScaling[2], T(0)}, {translation, T(1)}};
    }

    static constexpr Matrix4 orthographicProjection(const Vector2<T>& size, T near, T far) {
        return orthographicProjection(size * T(-0.5), size * T(0.5), near, far);
    }
    static constexpr Matrix4 orthographicProjection(
        const Vector2<T>& bottomLeft, const Vector2<T>& topRight, T near, T far) {
        const Vector2<T> size = topRight - bottomLeft, offset = -(topRight + bottomLeft) / size;
        const T depth = near - far;
        return {{T(2) / size.x(), T(0), T(0), T(0)}, {T(0), T(2) / size.y(), T(0), T(0)},
            {T(0), T(0), T(2) / depth, T(0)}, {offset.x(), offset.y(), (near + far) / depth, T(1)}};
    }
    // The size is that of the near plane, far may be infinite.
    static constexpr Matrix4 perspectiveProjection(const Vector2<T>& size, T near, T far) {
        return perspectiveProjection(size * T(-0.5), size * T(0.5), near, far);
    }
    // Horizontal opening angle; aspect ratio width by height
    static Matrix4 perspectiveProjection(Rad<T> fov, T aspectRatio, T near, T far) {
        const T width = T(2) * near * Math::tan(fov / T(2));
        return perspectiveProjection({width, width / aspectRatio}, near, far);
    }
    static constexpr Matrix4 perspectiveProjection(
        const Vector2<T>& bottomLeft, const Vector2<T>& topRight, T near, T far) {
        const Vector2<T> size = topRight - bottomLeft, offset = (topRight + bottomLeft) / size;
        const bool infinite = far == Constants<T>::inf();
        const T zz = infinite ? T(-1) : (near + far) / (near - far);
        const T zw = infinite ? T(-2) * near : T(2) * near * far / (near - far);
        return {{T(2) * near / size.x(), T(0), T(0), T(0)}, {T(0), T(2) * near / size.y(), T(0), T(0)},
            {offset.x(), offset.y(), zz, T(-1)}, {T(0), T(0), zw, T(0)}};
    }

    // Identity
    constexpr Matrix4() = default;
    constexpr explicit Matrix4(IdentityInitT, T value = T(1)): Base{IdentityInit, value} {}
    constexpr explicit Matrix4(ZeroInitT): Base{ZeroInit} {}
    constexpr Matrix4(
        const Vector4<T>& first, const Vector4<T>& second, const Vector4<T>& third, const Vector4<T>& fourth):
        Base{first, second, third, fourth} {}
    constexpr Matrix4(const RectangularMatrix<4, 4, T>& other): Base(other) {}
    template<class U> constexpr explicit Matrix4(const RectangularMatrix<4, 4, U>& other): Base(other) {}

    Vector4<T>& operator[](std::size_t column) { return static_cast<Vector4<T>&>(Base::operator[](column)); }
    constexpr const Vector4<T> operator[](std::size_t column) const { return Base::operator[](column); }
    constexpr Vector4<T> row(std::size_t row) const { return Base::row(row); }
    Vector4<T> diagonal() const { return Base::diagonal(); }
    Matrix4 transposed() const { return Base::transposed(); }
    Matrix4 inverted() const { return Base::inverted(); }

    [[gnu::always_inline]] Vector4<T> operator*(const Vector<4, T>& vector) const { return Base::operator*(vector); }

    // Upper left part as it is
    constexpr Matrix3x3<T> rotationScaling() const { return {(*this)[0].xyz(), (*this)[1].xyz(), (*this)[2].xyz()}; }
    // The same with normalized columns
    Matrix3x3<T> rotationShear() const { return {right().normalized(), up().normalized(), backward().normalized()}; }
    // The same, expected to be a rotation or reflection then
    Matrix3x3<T> rotation() const {
        const Matrix3x3<T> result = rotationShear();
        CORRADE_DEBUG_ASSERT(result.isOrthogonal(),
            "Math::Matrix4::rotation(): the normalized rotation part is not orthogonal:\n"
                << Corrade::Utility::Debug::nospace << result,
            {});
        return result;
    }
    // Upper left part, expected to be a rotation or reflection as it is
    Matrix3x3<T> rotationNormalized() const {
        const Matrix3x3<T> result = rotationScaling();
        CORRADE_DEBUG_ASSERT(result.isOrthogonal(),
            "Math::Matrix4::rotationNormalized(): the rotation part is not orthogonal:\n"
                << Corrade::Utility::Debug::nospace << result,
            {});
        return result;
    }
    Vector3<T> scalingSquared() const { return {right().dot(), up().dot(), backward().dot()}; }
    Vector3<T> scaling() const { return Math::sqrt(scalingSquared()); }
    // Expects the scaling to be the same along all axes.
    T uniformScaling() const {
        const Vector3<T> squared = scalingSquared();
        CORRADE_DEBUG_ASSERT(
            TypeTraits<T>::equals(squared.x(), squared.y()) && TypeTraits<T>::equals(squared.x(), squared.z()),
            "Math::Matrix4::uniformScaling(): the matrix doesn't have uniform scaling:\n"
                << Corrade::Utility::Debug::nospace << rotationScaling(),
            {});
        return std::sqrt(squared.x());
    }
    // What normals are transformed with: inverse, transposed upper left part. Does not keep them normalized.
    Matrix3x3<T> normalMatrix() const { return rotationScaling().inverted().transposed(); }

    Vector3<T>& right() { return (*this)[0].xyz(); }
    constexpr Vector3<T> right() const { return (*this)[0].xyz(); }
    Vector3<T>& up() { return (*this)[1].xyz(); }
    constexpr Vector3<T> up() const { return (*this)[1].xyz(); }
    Vector3<T>& backward() { return (*this)[2].xyz(); }
    constexpr Vector3<T> backward() const { return (*this)[2].xyz(); }
    Vector3<T>& translation() { return (*this)[3].xyz(); }
    constexpr Vector3<T> translation() const { return (*this)[3].xyz(); }

    // Rotation or reflection and translation, nothing else
    bool isRigidTransformation() const {
        return rotationScaling().isOrthogonal() && row(3) == Vector4<T>{T(0), T(0), T(0), T(1)};
    }
    // Inverse of a rigid transformation, faster than that of any matrix
    Matrix4 invertedRigid() const {
        CORRADE_DEBUG_ASSERT(isRigidTransformation(),
            "Math::Matrix4::invertedRigid(): the matrix doesn't represent a rigid transformation:\n"
                << Corrade::Utility::Debug::nospace << *this,
            {});
        const Matrix3x3<T> inverse = rotationScaling().transposed();
        return from(inverse, inverse * -translation());
    }

    // A direction is not translated.
    Vector3<T> transformVector(const Vector3<T>& vector) const { return ((*this) * Vector4<T>{vector, T(0)}).xyz(); }
    // Divided by the fourth component
    Vector3<T> transformPoint(const Vector3<T>& point) const {
        const Vector4<T> result = (*this) * Vector4<T>{point, T(1)};
        return result.xyz() / result.w();
    }

    // Of matrices that come from the projections above
    T perspectiveProjectionNear() const { return (*this)[3][2] / ((*this)[2][2] - T(1)); }
    T perspectiveProjectionFar() const { return -(*this)[3][2] / (T(-1) - (*this)[2][2]); }
    T orthographicProjectionNear() const { return ((*this)[3][2] + T(1)) / (*this)[2][2]; }
    T orthographicProjectionFar() const { return ((*this)[3][2] - T(1)) / (*this)[2][2]; }
};

}
