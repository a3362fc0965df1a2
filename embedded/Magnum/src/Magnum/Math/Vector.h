#pragma once
// Vectors of any size: storage, arithmetic, comparison, lengths. Vector2, Vector3, Vector4 and the colours derive from
// Vector; what an operator or a member of theirs returns has the type of the left operand.

#include <cmath>
#include <utility>

#include "Corrade/Containers/Pair.h"
#include "Corrade/Utility/DebugAssert.h"
#include "Magnum/Math/Angle.h"
#include "Magnum/Math/BitVector.h"

namespace Magnum::Math {

namespace Implementation {

// The Vector that V is or derives from; no type at all for everything else, which takes the operators below out of
// consideration.
template<std::size_t size, class T> Vector<size, T> vectorBase(const Vector<size, T>&);
template<class V> using VectorOf = decltype(vectorBase(std::declval<const V&>()));
template<class V> using ScalarOf = typename VectorOf<V>::Type;
template<class V> using EnableIfVector = std::enable_if_t<(VectorOf<V>::Size > 0)>;
template<class V> using EnableIfIntegral = std::enable_if_t<std::is_integral_v<ScalarOf<V>>>;
template<class V, class F>
using EnableIfMixed = std::enable_if_t<std::is_integral_v<ScalarOf<V>> && std::is_floating_point_v<F>>;

// V with component i being f(i). Unrolled, because an optimiser at -O2 keeps even a loop of four as a loop.
template<class V, class F, std::size_t... i> constexpr V generate(std::index_sequence<i...>, const F& f) {
    return V(typename V::Type(f(i))...);
}
template<class V, class F> constexpr V generate(const F& f) {
    return generate<V>(std::make_index_sequence<V::Size>{}, f);
}

// values[0] + values[1] + ..., in this order.
template<std::size_t... i, class F> constexpr auto sum(std::index_sequence<i...>, const F& f) { return (... + f(i)); }
template<std::size_t size, class F> constexpr auto sum(const F& f) { return sum(std::make_index_sequence<size>{}, f); }

}

// Sum of the products of the components
template<std::size_t size, class T> T dot(const Vector<size, T>& a, const Vector<size, T>& b) {
    return T(Implementation::sum<size>([&](std::size_t i) { return a[i] * b[i]; }));
}

// Angle between two normalized vectors, from 0 to pi
template<std::size_t size, class T> Rad<T> angle(const Vector<size, T>& a, const Vector<size, T>& b) {
    CORRADE_DEBUG_ASSERT(
        a.isNormalized() && b.isNormalized(), "Math::angle(): vectors" << a << "and" << b << "are not normalized", {});
    // Rounding can carry the cosine of equal vectors beyond one.
    const T cosine = dot(a, b);
    return Rad<T>{std::acos(cosine < T(-1) ? T(-1) : T(1) < cosine ? T(1) : cosine)};
}

template<std::size_t size, class T> class Vector {
    static_assert(size, "a vector has at least one component");

public:
    using Type = T;
    static constexpr std::size_t Size = size;

    // Zero
    constexpr Vector(): _data{} {}
    template<class... U, class = std::enable_if_t<sizeof...(U) + 1 == size && (size > 1)>>
    constexpr Vector(T first, U... next): _data{first, T(next)...} {}
    // The same value everywhere
    constexpr explicit Vector(T value): Vector{value, std::make_index_sequence<size>{}} {}
    // Converts each component; from a floating-point to an integer type this cuts off the fraction.
    template<class U>
    constexpr explicit Vector(const Vector<size, U>& other): Vector{other, std::make_index_sequence<size>{}} {}

    auto data() -> T (&)[size] { return _data; }
    constexpr auto data() const -> const T (&)[size] { return _data; }
    constexpr T& operator[](std::size_t i) { return _data[i]; }
    constexpr const T& operator[](std::size_t i) const { return _data[i]; }

    // With tolerance for floating-point types
    friend bool operator==(const Vector& a, const Vector& b) {
        return a.all([&](std::size_t i) { return TypeTraits<T>::equals(a[i], b[i]); });
    }
    friend bool operator!=(const Vector& a, const Vector& b) { return !(a == b); }
    // Component by component, exactly
    friend BitVector<size> operator<(const Vector& a, const Vector& b) {
        return bits([&](std::size_t i) { return a[i] < b[i]; });
    }
    friend BitVector<size> operator<=(const Vector& a, const Vector& b) {
        return bits([&](std::size_t i) { return a[i] <= b[i]; });
    }
    friend BitVector<size> operator>(const Vector& a, const Vector& b) { return b < a; }
    friend BitVector<size> operator>=(const Vector& a, const Vector& b) { return b <= a; }

    bool isZero() const { return *this == Vector{}; }
    bool isNormalized() const { return Implementation::isNormalizedSquared(dot()); }

    // Square of the length
    T dot() const { return Math::dot(*this, *this); }
    T length() const { return std::sqrt(dot()); }
    T lengthInverted() const { return T(1) / length(); }
    // NaNs for a zero vector
    Vector normalized() const { return *this * lengthInverted(); }
    Vector resized(T length) const { return *this * (lengthInverted() * length); }
    // The part along a line through the origin
    Vector projected(const Vector& line) const { return line * (Math::dot(*this, line) / line.dot()); }
    constexpr Vector flipped() const {
        return Implementation::generate<Vector>([this](std::size_t i) { return _data[size - 1 - i]; });
    }

    T sum() const {
        return T(Implementation::sum<size>([this](std::size_t i) { return _data[i]; }));
    }
    T product() const {
        T result = _data[0];
        for(std::size_t i = 1; i < size; ++i) result = T(result * _data[i]);
        return result;
    }
    // NaN components are skipped, the result is NaN only if all are.
    T min() const {
        return best([](T a, T b) { return a < b; });
    }
    T max() const {
        return best([](T a, T b) { return b < a; });
    }
    Corrade::Containers::Pair<T, T> minmax() const { return {min(), max()}; }

    // Bit i is f(i)
    template<class F> static BitVector<size> bits(const F& f) { return bits(f, std::make_index_sequence<size>{}); }

private:
    template<std::size_t... i>
    constexpr explicit Vector(T value, std::index_sequence<i...>): _data{(void(i), value)...} {}
    template<class U, std::size_t... i>
    constexpr explicit Vector(const Vector<size, U>& other, std::index_sequence<i...>): _data{T(other[i])...} {}

    template<class F, std::size_t... i> static BitVector<size> bits(const F& f, std::index_sequence<i...>) {
        return BitVector<size>{std::uint8_t((... | (f(i) << i)))};
    }
    template<class F> static bool all(const F& f) { return all(f, std::make_index_sequence<size>{}); }
    template<class F, std::size_t... i> static bool all(const F& f, std::index_sequence<i...>) { return (... && f(i)); }
    template<class F> T best(const F& isBetter) const {
        T result = _data[0];
        for(std::size_t i = 1; i < size; ++i)
            if(isBetter(_data[i], result) || result != result) result = _data[i];
        return result;
    }

    T _data[size];
};

namespace Implementation {

// Base of the vectors with a name: members of Vector that return a vector return the derived type.
template<class Derived, class Base> class NamedVector: public Base {
public:
    using Base::Base;
    constexpr NamedVector() = default;
    constexpr NamedVector(const VectorOf<Base>& other): Base(other) {}

    Derived normalized() const { return Base::normalized(); }
    Derived resized(typename Base::Type length) const { return Base::resized(length); }
    Derived projected(const VectorOf<Base>& line) const { return Base::projected(line); }
};

}

template<class V, class = Implementation::EnableIfVector<V>> constexpr V operator-(const V& a) {
    return Implementation::generate<V>([&](std::size_t i) { return -a[i]; });
}

#define MAGNUM_VECTOR_BY_VECTOR(op, EnableIf)                                                                          \
    template<class V, class = Implementation::EnableIf<V>>                                                             \
    constexpr V operator op(const V& a, const Implementation::VectorOf<V>& b) {                                        \
        return Implementation::generate<V>([&](std::size_t i) { return a[i] op b[i]; });                               \
    }
MAGNUM_VECTOR_BY_VECTOR(+, EnableIfVector)
MAGNUM_VECTOR_BY_VECTOR(-, EnableIfVector)
MAGNUM_VECTOR_BY_VECTOR(*, EnableIfVector)
MAGNUM_VECTOR_BY_VECTOR(/, EnableIfVector)
MAGNUM_VECTOR_BY_VECTOR(%, EnableIfIntegral)
MAGNUM_VECTOR_BY_VECTOR(&, EnableIfIntegral)
MAGNUM_VECTOR_BY_VECTOR(|, EnableIfIntegral)
#undef MAGNUM_VECTOR_BY_VECTOR

#define MAGNUM_VECTOR_BY_NUMBER(op, EnableIf)                                                                          \
    template<class V, class = Implementation::EnableIf<V>>                                                             \
    constexpr V operator op(const V& a, Implementation::ScalarOf<V> number) {                                          \
        return Implementation::generate<V>([&](std::size_t i) { return a[i] op number; });                             \
    }
MAGNUM_VECTOR_BY_NUMBER(*, EnableIfVector)
MAGNUM_VECTOR_BY_NUMBER(/, EnableIfVector)
MAGNUM_VECTOR_BY_NUMBER(%, EnableIfIntegral)
MAGNUM_VECTOR_BY_NUMBER(<<, EnableIfIntegral)
MAGNUM_VECTOR_BY_NUMBER(>>, EnableIfIntegral)
#undef MAGNUM_VECTOR_BY_NUMBER

template<class V> constexpr V operator*(Implementation::ScalarOf<V> number, const V& a) { return a * number; }
template<class V> constexpr V operator/(Implementation::ScalarOf<V> number, const V& a) {
    return Implementation::generate<V>([&](std::size_t i) { return number / a[i]; });
}

// Integer vectors and floating-point numbers: calculated in floating point, then cut off.
#define MAGNUM_VECTOR_MIXED(op)                                                                                        \
    template<class V, class F, class = Implementation::EnableIfMixed<V, F>>                                            \
    constexpr V operator op(const V& a, F number) {                                                                    \
        return Implementation::generate<V>([&](std::size_t i) { return a[i] op number; });                             \
    }                                                                                                                  \
    template<class V, class F, class = Implementation::EnableIfMixed<V, F>>                                            \
    constexpr V operator op(const V& a, const Vector<Implementation::VectorOf<V>::Size, F>& b) {                       \
        return Implementation::generate<V>([&](std::size_t i) { return a[i] op b[i]; });                               \
    }
MAGNUM_VECTOR_MIXED(*)
MAGNUM_VECTOR_MIXED(/)
#undef MAGNUM_VECTOR_MIXED
template<class V, class F, class = Implementation::EnableIfMixed<V, F>> constexpr V operator*(F number, const V& a) {
    return a * number;
}

// Takes whatever the operator without the equals sign takes on the right.
#define MAGNUM_VECTOR_ASSIGN(op)                                                                                       \
    template<class V, class B, class = Implementation::EnableIfVector<V>>                                              \
    auto operator op##=(V& a, const B& b)->decltype(a = a op b) {                                                      \
        return a = a op b;                                                                                             \
    }
MAGNUM_VECTOR_ASSIGN(+)
MAGNUM_VECTOR_ASSIGN(-)
MAGNUM_VECTOR_ASSIGN(*)
MAGNUM_VECTOR_ASSIGN(/)
#undef MAGNUM_VECTOR_ASSIGN

namespace Implementation {

// "beforeX, Y, Zafter"
template<class T>
Corrade::Utility::Debug& print(
    Corrade::Utility::Debug& debug, const char* before, const T* values, std::size_t count, const char* after) {
    using Corrade::Utility::Debug;
    debug << before;
    for(std::size_t i = 0; i != count; ++i) {
        if(i)
            debug << Debug::nospace << ",";
        else
            debug << Debug::nospace;
        debug << values[i];
    }
    return debug << Debug::nospace << after;
}

}

template<std::size_t size, class T>
Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, const Vector<size, T>& value) {
    return Implementation::print(debug, "Vector(", value.data(), size, ")");
}

}
