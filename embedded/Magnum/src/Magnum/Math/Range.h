#pragma once
// Axis-aligned ranges in one, two and three dimensions, without their upper end.

#include "Magnum/Math/Functions.h"
#include "Magnum/Math/Vector3.h"

namespace Magnum::Math {

namespace Implementation {

template<std::size_t dimensions, class T> struct RangePoint { using Type = Vector<dimensions, T>; };
template<class T> struct RangePoint<1, T> { using Type = T; };
template<class T> struct RangePoint<2, T> { using Type = Vector2<T>; };
template<class T> struct RangePoint<3, T> { using Type = Vector3<T>; };

inline bool allOf(bool value) { return value; }
template<std::size_t size> bool allOf(BitVector<size> value) { return value.all(); }

}

template<std::size_t dimensions, class T> class Range {
public:
    // T in one dimension
    using VectorType = typename Implementation::RangePoint<dimensions, T>::Type;

    static Range fromSize(const VectorType& min, const VectorType& size) { return {min, VectorType(min + size)}; }
    static Range fromCenter(const VectorType& center, const VectorType& halfSize) {
        return {VectorType(center - halfSize), VectorType(center + halfSize)};
    }

    // Empty, at zero
    constexpr Range(): _min{}, _max{} {}
    // Expects min not to be above max.
    constexpr Range(const VectorType& min, const VectorType& max): _min(min), _max(max) {}
    template<class U>
    constexpr explicit Range(const Range<dimensions, U>& other): _min(other.min()), _max(other.max()) {}

    // With the tolerance of the type
    friend bool operator==(const Range& a, const Range& b) { return equal(a._min, b._min) && equal(a._max, b._max); }
    friend bool operator!=(const Range& a, const Range& b) { return !(a == b); }

    constexpr VectorType& min() { return _min; }
    constexpr const VectorType& min() const { return _min; }
    constexpr VectorType& max() { return _max; }
    constexpr const VectorType& max() const { return _max; }
    VectorType size() const { return VectorType(_max - _min); }
    VectorType center() const { return VectorType((_min + _max) / T(2)); }

    // A point at the upper end is outside.
    bool contains(const VectorType& point) const {
        return Implementation::allOf(point >= _min) && Implementation::allOf(point < _max);
    }
    // A range with the same upper end is inside.
    bool contains(const Range& other) const {
        return Implementation::allOf(other._min >= _min) && Implementation::allOf(other._max <= _max);
    }

    Range translated(const VectorType& by) const { return {VectorType(_min + by), VectorType(_max + by)}; }
    // Moves both ends outwards.
    Range padded(const VectorType& by) const { return {VectorType(_min - by), VectorType(_max + by)}; }
    // Multiplies both ends.
    Range scaled(const VectorType& by) const { return {VectorType(_min * by), VectorType(_max * by)}; }

private:
    static bool equal(const VectorType& a, const VectorType& b) { return TypeTraits<VectorType>::equals(a, b); }

    VectorType _min, _max;
};

template<class T> class Range2D: public Range<2, T> {
    using Base = Range<2, T>;

public:
    static Range2D fromSize(const Vector2<T>& min, const Vector2<T>& size) { return Base::fromSize(min, size); }
    static Range2D fromCenter(const Vector2<T>& center, const Vector2<T>& halfSize) {
        return Base::fromCenter(center, halfSize);
    }

    constexpr Range2D() = default;
    constexpr Range2D(const Vector2<T>& min, const Vector2<T>& max): Base{min, max} {}
    constexpr Range2D(const Range<2, T>& other): Base(other) {}
    template<class U> constexpr explicit Range2D(const Range<2, U>& other): Base(other) {}

    constexpr T left() const { return this->min().x(); }
    constexpr T right() const { return this->max().x(); }
    constexpr T bottom() const { return this->min().y(); }
    constexpr T top() const { return this->max().y(); }
    constexpr Vector2<T> bottomLeft() const { return this->min(); }
    constexpr Vector2<T> bottomRight() const { return {right(), bottom()}; }
    constexpr Vector2<T> topLeft() const { return {left(), top()}; }
    constexpr Vector2<T> topRight() const { return this->max(); }
    constexpr Range<1, T> x() const { return {left(), right()}; }
    constexpr Range<1, T> y() const { return {bottom(), top()}; }
    T sizeX() const { return right() - left(); }
    T sizeY() const { return top() - bottom(); }

    Range2D translated(const Vector2<T>& by) const { return Base::translated(by); }
    Range2D padded(const Vector2<T>& by) const { return Base::padded(by); }
    Range2D scaled(const Vector2<T>& by) const { return Base::scaled(by); }
};

template<class T> class Range3D: public Range<3, T> {
    using Base = Range<3, T>;

public:
    static Range3D fromSize(const Vector3<T>& min, const Vector3<T>& size) { return Base::fromSize(min, size); }
    static Range3D fromCenter(const Vector3<T>& center, const Vector3<T>& halfSize) {
        return Base::fromCenter(center, halfSize);
    }

    constexpr Range3D() = default;
    constexpr Range3D(const Vector3<T>& min, const Vector3<T>& max): Base{min, max} {}
    constexpr Range3D(const Range<3, T>& other): Base(other) {}
    template<class U> constexpr explicit Range3D(const Range<3, U>& other): Base(other) {}

    // Front is towards the viewer of a right-handed system, at the upper end of z.
    constexpr T left() const { return this->min().x(); }
    constexpr T right() const { return this->max().x(); }
    constexpr T bottom() const { return this->min().y(); }
    constexpr T top() const { return this->max().y(); }
    constexpr T back() const { return this->min().z(); }
    constexpr T front() const { return this->max().z(); }
    constexpr Range<1, T> x() const { return {left(), right()}; }
    constexpr Range<1, T> y() const { return {bottom(), top()}; }
    constexpr Range<1, T> z() const { return {back(), front()}; }
    T sizeX() const { return right() - left(); }
    T sizeY() const { return top() - bottom(); }
    T sizeZ() const { return front() - back(); }

    Range3D translated(const Vector3<T>& by) const { return Base::translated(by); }
    Range3D padded(const Vector3<T>& by) const { return Base::padded(by); }
    Range3D scaled(const Vector3<T>& by) const { return Base::scaled(by); }
};

// The smallest range around both. A range whose ends coincide takes no part, wherever it is.
template<std::size_t dimensions, class T>
Range<dimensions, T> join(const Range<dimensions, T>& a, const Range<dimensions, T>& b) {
    if(a.min() == a.max()) return b;
    if(b.min() == b.max()) return a;
    return {Math::min(a.min(), b.min()), Math::max(a.max(), b.max())};
}

// Whether they have a point in common; one that only touches the other does not.
template<std::size_t dimensions, class T>
bool intersects(const Range<dimensions, T>& a, const Range<dimensions, T>& b) {
    return Implementation::allOf(a.max() > b.min()) && Implementation::allOf(a.min() < b.max());
}

// What they have in common, the empty range at zero if that is nothing
template<std::size_t dimensions, class T>
Range<dimensions, T> intersect(const Range<dimensions, T>& a, const Range<dimensions, T>& b) {
    if(!intersects(a, b)) return {};
    return {Math::max(a.min(), b.min()), Math::min(a.max(), b.max())};
}

template<std::size_t dimensions, class T>
Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, const Range<dimensions, T>& value) {
    Implementation::print(debug, "Range({", reinterpret_cast<const T*>(&value.min()), dimensions, "},");
    return Implementation::print(debug, "{", reinterpret_cast<const T*>(&value.max()), dimensions, "})");
}

}
